#pragma once

#include <QComboBox>

namespace controls {

class ImageList;

/// An editable combo box with item pictures. Entries are counted from 0; List throws ControlError outside the list.
/// Inserting never changes the text of the edit field, also in an empty list.
class ComboBox : public QComboBox
{
    Q_OBJECT
public:
    explicit ComboBox(QWidget *parent = nullptr);

    QString Text() const;
    /// Writes the edit field; raises textChanged, no click.
    void setText(const QString &text);
    int ListCount() const;
    QString List(int index) const;
    void InsertItem(int index, const QString &text, int icon = -1);
    void Clear();
    int ItemIcon(int index) const;
    void setImageList(const ImageList *images);

signals:
    void gotFocus();
    void lostFocus();
    void beginEdit();
    void endEdit();
    void textChanged();
    /// An item was picked from the drop-down list; Text() already holds it and the edit has ended.
    void listItemPicked();
    /// A key press in the edit field, before the field acts on it. `key` is a virtual key (Enter 13); 0 swallows it.
    void key(int &keyCode, int shift);

private:
    const ImageList *m_images = nullptr;
};

} // namespace controls

#pragma once

#include <QComboBox>

class QCompleter;

namespace controls {

class ImageList;

/// An editable combo box with item pictures. Entries are counted from 0; List and ItemIcon throw ControlError outside
/// the list. The edit field and the list are independent: neither inserting nor clearing nor typing couples them, only
/// a pick from the drop-down list copies an entry into the field.
class ComboBox : public QComboBox
{
    Q_OBJECT
public:
    explicit ComboBox(QWidget *parent = nullptr);

    QString Text() const;
    /// Writes the edit field; raises textChanged when that changes it, no pick and no edit.
    void setText(const QString &text);
    int ListCount() const;
    QString List(int index) const;
    /// `index` from 0 to ListCount; `icon` is an index into the image list, -1 for none.
    void InsertItem(int index, const QString &text, int icon = -1);
    /// Empties the list. The edit field keeps its text.
    void Clear();
    int ItemIcon(int index) const;
    void setImageList(const ImageList *images);

    /// Completion of the edit field. Unlike the function of the base class it never looks for the completed text among
    /// the entries, so completing is typing, not a pick. Null takes it off.
    void setCompleter(QCompleter *completer);

    void showPopup() override;

signals:
    /// The caret came into the box or left it. The drop-down list and the context menu belong to the box.
    void gotFocus();
    void lostFocus();
    /// The first change by typing, and its end by Enter, by a pick or by leaving the box.
    void beginEdit();
    void endEdit();
    void textChanged();
    /// An entry was picked from the drop-down list; Text() already holds it and the edit has ended.
    void listItemPicked();
    /// A key press in the edit field, before the field acts on it. `keyCode` is a virtual key (Enter 13); 0 swallows
    /// it. `shift`: 1 Shift, 2 Ctrl, 4 Alt, added up.
    void key(int &keyCode, int shift);

protected:
    void focusInEvent(QFocusEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;

private:
    void pick(int index);
    void finishEdit();
    bool completionShown() const;
    void requireItem(int index) const;
    /// Runs a change of the list with the edit field shut against it.
    template <typename Change>
    void keepEditField(Change &&change);

    const ImageList *m_images = nullptr;
    bool m_hasFocus = false;
    bool m_editing = false;
};

} // namespace controls

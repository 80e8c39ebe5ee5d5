#pragma once

#include <QString>
#include <QWidget>
#include <memory>

namespace controls {

/// Button styles, with the numbers of the toolbar control.
inline constexpr int kButtonSeparator = 1;
inline constexpr int kButtonDropDown = 8;
inline constexpr int kButtonAutoSize = 16;

/// A toolbar of keyed buttons. Buttons are counted from 0; unknown ones throw ControlError. Sizes are pixels.
class ToolBar : public QWidget
{
    Q_OBJECT
public:
    explicit ToolBar(QWidget *parent = nullptr);
    ~ToolBar() override;

    /// Strip of square cells, one for each glyph; a file "name@2x.ext" beside it serves high-resolution screens.
    void setImageFile(const QString &path);
    void CreateToolbar(int cellSize, bool textRight, bool textVisible);
    void AddButton(const QString &toolTip, int glyph, const QString &caption, int style, const QString &key);
    void RemoveButton(const QString &key);
    int ButtonCount() const;
    QString ButtonKey(int index) const;
    bool ButtonVisible(const QString &key) const;
    void setButtonVisible(const QString &key, bool visible);
    bool ButtonTextVisible(int index) const;
    bool ButtonTextVisible(const QString &key) const;
    void setButtonTextVisible(const QString &key, bool visible);
    bool ButtonEnabled(int index) const;
    void setButtonEnabled(int index, bool enabled);
    bool TextAlignRight() const;
    void setTextAlignRight(bool right);
    void SetImageSize(int cellSize);
    void RefreshButtons();
    int ToolbarWidth() const;
    int ToolbarHeight() const;
    /// Left and lower edge of a button inside the toolbar.
    int ButtonLeft(const QString &key) const;
    int ButtonBottom(const QString &key) const;
    /// Pops up the buttons that do not fit, at a screen position.
    void ShowChevronMenu(int x, int y);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

signals:
    /// -1: a right click, or a click that belongs to no button.
    void ButtonClick(int index);
    void DropDownPress(int index);

protected:
    void resizeEvent(QResizeEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;

private:
    struct Private;
    std::unique_ptr<Private> d;
};

} // namespace controls

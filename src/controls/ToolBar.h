#pragma once

#include <QString>
#include <QWidget>
#include <memory>

namespace controls {

class ToolBarButton;

/// Button styles, with the numbers of the toolbar control.
inline constexpr int kButtonSeparator = 1;
inline constexpr int kButtonDropDown = 8;
inline constexpr int kButtonAutoSize = 16;

/// A toolbar of keyed buttons. Buttons are counted from 0; unknown ones throw ControlError. Sizes are pixels.
///
/// Buttons that do not fit are not shown; ShowChevronMenu lists them. With the keyboard, Tab enters the toolbar at one
/// button, the arrow keys go on from there, and Down opens a drop-down. A click leaves the focus where it is.
class ToolBar : public QWidget
{
    Q_OBJECT
public:
    explicit ToolBar(QWidget *parent = nullptr);
    ~ToolBar() override;

    /// Strip of square cells, one for each glyph; a file "name@2x.ext" beside it serves high-resolution screens.
    /// Without a readable file the glyphs stay empty.
    void setImageFile(const QString &path);
    QString ImageFile() const;
    /// `cellSize` is the edge of a glyph.
    void CreateToolbar(int cellSize, bool textRight, bool textVisible);
    /// Appends a button. `glyph` is a cell of the strip, -1 for none; `style` a sum of the button styles.
    void AddButton(const QString &toolTip, int glyph, const QString &caption, int style, const QString &key);
    void RemoveButton(const QString &key);
    int ButtonCount() const;
    QString ButtonKey(int index) const;
    QString ButtonCaption(int index) const;
    bool ButtonVisible(int index) const;
    bool ButtonVisible(const QString &key) const;
    void setButtonVisible(const QString &key, bool visible);
    bool ButtonTextVisible(int index) const;
    bool ButtonTextVisible(const QString &key) const;
    void setButtonTextVisible(const QString &key, bool visible);
    bool ButtonEnabled(int index) const;
    void setButtonEnabled(int index, bool enabled);
    /// Caption beside the glyph (True) or below it.
    bool TextAlignRight() const;
    void setTextAlignRight(bool right);
    void SetImageSize(int cellSize);
    /// Measures the buttons anew.
    void RefreshButtons();
    /// Size that shows all visible buttons.
    int ToolbarWidth() const;
    int ToolbarHeight() const;
    /// Left and lower edge of a button inside the toolbar.
    int ButtonLeft(const QString &key) const;
    int ButtonBottom(const QString &key) const;
    /// Pops up the buttons that do not fit, at a screen position; a pick there is a click of the button.
    void ShowChevronMenu(int x, int y);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

signals:
    /// -1: a right click anywhere, or the menu key.
    void ButtonClick(int index);
    /// The arrow of a drop-down button was pressed.
    void DropDownPress(int index);

protected:
    void changeEvent(QEvent *event) override;
    void contextMenuEvent(QContextMenuEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    ToolBarButton &button(int index) const;
    ToolBarButton &button(const QString &key) const;
    void applyImages();
    void measure();
    void place();
    void updateTabStop();

    struct Private;
    std::unique_ptr<Private> d;
};

} // namespace controls

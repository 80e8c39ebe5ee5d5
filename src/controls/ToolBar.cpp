#include "controls/ToolBar.h"

#include "base/step.h"
#include "controls/StripImages.h"
#include "controls/ToolBarButton.h"

#include <QContextMenuEvent>
#include <QKeyEvent>
#include <QMenu>

namespace controls {

struct ToolBar::Private
{
    QString imageFile;
    StripImages images;
    bool imagesLoaded = false;
    ToolBarButton::Look look;
    bool textVisible = true;
    /// Children of the toolbar.
    std::vector<ToolBarButton *> buttons;
    QSize needed{0, 0};

    int indexOf(const ToolBarButton *button) const
    {
        const auto it = std::find(buttons.begin(), buttons.end(), button);
        return it == buttons.end() ? -1 : static_cast<int>(it - buttons.begin());
    }
};

ToolBar::ToolBar(QWidget *parent)
    : QWidget(parent)
    , d(std::make_unique<Private>())
{
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Preferred);
}

ToolBar::~ToolBar() = default;

ToolBarButton &ToolBar::button(int index) const
{
    if (index < 0 || index >= ButtonCount())
        throw ControlError("no such button");
    return *d->buttons[static_cast<size_t>(index)];
}

ToolBarButton &ToolBar::button(const QString &key) const
{
    for (ToolBarButton *each : d->buttons) {
        if (each->key() == key)
            return *each;
    }
    throw ControlError("no such button");
}

void ToolBar::setImageFile(const QString &path)
{
    d->imageFile = path;
    d->imagesLoaded = false;
    applyImages();
}

QString ToolBar::ImageFile() const
{
    return d->imageFile;
}

/// The strip is read when the first button wants a glyph.
void ToolBar::applyImages()
{
    if (d->buttons.empty())
        return;
    if (!std::exchange(d->imagesLoaded, true))
        d->images.load(d->imageFile);
    for (ToolBarButton *each : d->buttons)
        each->setIcon(d->images.icon(each->glyph()));
}

void ToolBar::CreateToolbar(int cellSize, bool textRight, bool textVisible)
{
    d->look = {cellSize, textRight};
    d->textVisible = textVisible;
    for (ToolBarButton *each : d->buttons)
        each->textVisible = textVisible;
    measure();
}

void ToolBar::AddButton(const QString &toolTip, int glyph, const QString &caption, int style, const QString &key)
{
    auto *added = new ToolBarButton(this, key, caption, glyph, style);
    // A link's name is nobody's markup.
    added->setToolTip(toolTip.toHtmlEscaped());
    added->textVisible = d->textVisible;
    d->buttons.push_back(added);
    if (!std::exchange(d->imagesLoaded, true))
        d->images.load(d->imageFile);
    added->setIcon(d->images.icon(glyph));
    connect(added, &QAbstractButton::clicked, this, [this, added] { emit ButtonClick(d->indexOf(added)); });
    connect(added, &ToolBarButton::dropDownPressed, this, [this, added] { emit DropDownPress(d->indexOf(added)); });
    measure();
}

void ToolBar::RemoveButton(const QString &key)
{
    ToolBarButton &gone = button(key);
    std::erase(d->buttons, &gone);
    gone.hide();
    // It may be the one whose click is being handled.
    gone.deleteLater();
    measure();
}

int ToolBar::ButtonCount() const
{
    return static_cast<int>(d->buttons.size());
}

QString ToolBar::ButtonKey(int index) const
{
    return button(index).key();
}

QString ToolBar::ButtonCaption(int index) const
{
    return button(index).caption();
}

bool ToolBar::ButtonVisible(int index) const
{
    return button(index).wanted;
}

bool ToolBar::ButtonVisible(const QString &key) const
{
    return button(key).wanted;
}

void ToolBar::setButtonVisible(const QString &key, bool visible)
{
    button(key).wanted = visible;
    measure();
}

bool ToolBar::ButtonTextVisible(int index) const
{
    return button(index).textVisible;
}

bool ToolBar::ButtonTextVisible(const QString &key) const
{
    return button(key).textVisible;
}

void ToolBar::setButtonTextVisible(const QString &key, bool visible)
{
    button(key).textVisible = visible;
    measure();
}

bool ToolBar::ButtonEnabled(int index) const
{
    return button(index).isEnabledTo(this);
}

void ToolBar::setButtonEnabled(int index, bool enabled)
{
    ToolBarButton &target = button(index);
    if (target.isSeparator())
        return;
    target.setEnabled(enabled);
    updateTabStop();
}

bool ToolBar::TextAlignRight() const
{
    return d->look.textRight;
}

void ToolBar::setTextAlignRight(bool right)
{
    d->look.textRight = right;
    measure();
}

void ToolBar::SetImageSize(int cellSize)
{
    d->look.cellSize = cellSize;
    measure();
}

void ToolBar::RefreshButtons()
{
    measure();
}

void ToolBar::measure()
{
    QSize needed(0, d->look.cellSize + 8);
    for (ToolBarButton *each : d->buttons) {
        each->setLook(d->look);
        if (!each->wanted)
            continue;
        const QSize size = each->sizeHint();
        needed = {needed.width() + size.width(), std::max(needed.height(), size.height())};
    }
    if (std::exchange(d->needed, needed) != needed)
        updateGeometry();
    place();
}

void ToolBar::place()
{
    int x = 0;
    bool full = false;
    ToolBarButton *lastSeparator = nullptr;
    for (ToolBarButton *each : d->buttons) {
        if (!each->wanted) {
            each->hide();
            continue;
        }
        const int needed = each->sizeHint().width();
        const int height = std::min(this->height(), d->needed.height());
        each->setGeometry(x, (this->height() - height) / 2, needed, height);
        // Nothing jumps over a button that does not fit, or the order would change.
        full = full || x + needed > width();
        each->setVisible(!full);
        if (!full)
            lastSeparator = each->isSeparator() ? each : nullptr;
        x += needed;
    }
    if (full && lastSeparator)
        lastSeparator->hide();
    updateTabStop();
}

/// Tab stops at one button only: the one that has the focus or had it last, else the first that can be used.
void ToolBar::updateTabStop()
{
    const auto usable = [this](const ToolBarButton *each) {
        return each->wanted && each->isEnabledTo(this) && !each->isHidden();
    };
    ToolBarButton *stop = nullptr;
    for (ToolBarButton *each : d->buttons) {
        if (usable(each) && (!stop || each->focusPolicy() != Qt::NoFocus))
            stop = each;
    }
    for (ToolBarButton *each : d->buttons) {
        if (each != stop)
            each->setFocusPolicy(Qt::NoFocus);
    }
    if (stop)
        stop->setFocusPolicy(Qt::TabFocus);
}

void ToolBar::keyPressEvent(QKeyEvent *event)
{
    std::vector<ToolBarButton *> usable;
    for (ToolBarButton *each : d->buttons) {
        if (each->isEnabledTo(this) && !each->isHidden())
            usable.push_back(each);
    }
    const auto current = std::find_if(usable.begin(), usable.end(), [](auto *each) { return each->hasFocus(); });
    if (current == usable.end()) {
        event->ignore();
        return;
    }
    auto next = current;
    switch (event->key()) {
    case Qt::Key_Left:
        next = current == usable.begin() ? usable.end() - 1 : current - 1;
        break;
    case Qt::Key_Right:
        next = current + 1 == usable.end() ? usable.begin() : current + 1;
        break;
    case Qt::Key_Home:
        next = usable.begin();
        break;
    case Qt::Key_End:
        next = usable.end() - 1;
        break;
    default:
        event->ignore();
        return;
    }
    (*current)->setFocusPolicy(Qt::NoFocus);
    (*next)->setFocusPolicy(Qt::TabFocus);
    (*next)->setFocus(Qt::TabFocusReason);
}

int ToolBar::ToolbarWidth() const
{
    return d->needed.width();
}

int ToolBar::ToolbarHeight() const
{
    return d->needed.height();
}

int ToolBar::ButtonLeft(const QString &key) const
{
    return button(key).x();
}

int ToolBar::ButtonBottom(const QString &key) const
{
    const ToolBarButton &target = button(key);
    return target.y() + target.height();
}

void ToolBar::ShowChevronMenu(int x, int y)
{
    auto *menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    for (ToolBarButton *each : d->buttons) {
        if (!each->wanted || !each->isHidden() || (each->isSeparator() && menu->isEmpty()))
            continue;
        if (each->isSeparator()) {
            menu->addSeparator();
            continue;
        }
        QString caption = each->caption();
        QAction *action = menu->addAction(each->icon(), caption.replace(u'&', QStringLiteral("&&")));
        action->setEnabled(each->isEnabledTo(this));
        connect(action, &QAction::triggered, each, &QAbstractButton::clicked);
    }
    if (menu->isEmpty())
        delete menu;
    else
        menu->popup(QPoint(x, y));
}

QSize ToolBar::sizeHint() const
{
    return d->needed;
}

QSize ToolBar::minimumSizeHint() const
{
    return {d->look.cellSize, d->needed.height()};
}

void ToolBar::changeEvent(QEvent *event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange)
        measure();
}

void ToolBar::mousePressEvent(QMouseEvent *event)
{
    if (event->button() == Qt::RightButton)
        emit ButtonClick(-1);
    else
        event->ignore();
}

void ToolBar::contextMenuEvent(QContextMenuEvent *event)
{
    // The mouse has been heard already.
    if (event->reason() == QContextMenuEvent::Keyboard)
        emit ButtonClick(-1);
    event->accept();
}

void ToolBar::resizeEvent(QResizeEvent *)
{
    place();
}

} // namespace controls

#include "controls/TabControl.h"

#include "base/step.h"
#include "controls/GlyphButton.h"
#include "controls/ImageList.h"
#include "controls/Texts.h"

#include <QAbstractButton>
#include <QHelpEvent>
#include <QPointer>
#include <QToolTip>
#include <algorithm>

namespace controls {

namespace {

/// Signs of the mouse events: buttons 1, 2, 4, 0 for any further one, and the sum of 1 Shift, 2 Ctrl, 4 Alt.
int buttonNumber(Qt::MouseButton button)
{
    switch (button) {
    case Qt::LeftButton:
        return 1;
    case Qt::RightButton:
        return 2;
    case Qt::MiddleButton:
        return 4;
    default:
        return 0;
    }
}

int shiftBits(Qt::KeyboardModifiers modifiers)
{
    return (modifiers & Qt::ShiftModifier ? 1 : 0) + (modifiers & Qt::ControlModifier ? 2 : 0) +
           (modifiers & Qt::AltModifier ? 4 : 0);
}

} // namespace

QString Tab::Caption() const
{
    return m_caption;
}

void Tab::setCaption(const QString &caption)
{
    if (m_caption == caption)
        return;
    m_caption = caption;
    m_control.captionChanged(*this);
}

QString Tab::ToolTipText() const
{
    return m_toolTip;
}

void Tab::setToolTipText(const QString &text)
{
    if (m_toolTip == text)
        return;
    m_toolTip = text;
    m_control.nameTab(m_control.indexOf(this));
}

void Tab::setIconIndex(int index)
{
    if (m_iconIndex == index)
        return;
    m_iconIndex = index;
    m_control.update(m_control.tabRect(m_control.indexOf(this)));
}

bool Tab::Selected() const
{
    const int index = m_control.indexOf(this);
    return index >= 0 && m_control.currentIndex() == index;
}

void Tab::setSelected(bool selected)
{
    if (selected)
        m_control.select(m_control.indexOf(this));
}

int Tab::Index() const
{
    return m_control.indexOf(this) + 1;
}

TabControl::TabControl(QWidget *parent)
    : QTabBar(parent)
{
    setAccessibleName(ownText(20204));
    setUsesScrollButtons(true);
    setExpanding(false);
    setAttribute(Qt::WA_Hover);
    // The tab that was used last takes the selection of a removed one until the program has activated a document.
    setSelectionBehaviorOnRemove(SelectPreviousTab);

    m_close = new GlyphButton(GlyphButton::Glyph::Close, ownText(20200), 16, this);
    m_close->hide();
    connect(m_close, &GlyphButton::clicked, this, &TabControl::closeSelected);
    connect(this, &QTabBar::currentChanged, this, &TabControl::userSelected);

    // QTabBar owns the two buttons that scroll it; where they take the strip is known after their click.
    const QList<QAbstractButton *> buttons = findChildren<QAbstractButton *>(Qt::FindDirectChildrenOnly);
    for (QAbstractButton *button : buttons) {
        const bool left = button->objectName() == QLatin1String("ScrollLeftButton");
        if (!left && button->objectName() != QLatin1String("ScrollRightButton"))
            continue;
        (left ? m_scrollLeft : m_scrollRight) = button;
        button->setAccessibleName(ownText(left ? 20210 : 20211));
        connect(button, &QAbstractButton::clicked, this, &TabControl::placeCloseButton);
    }
}

TabControl::~TabControl() = default;

int TabControl::Collection::Count() const
{
    return static_cast<int>(m_control.m_tabs.size());
}

Tab &TabControl::Collection::operator()(int n) const
{
    if (n < 1 || n > Count())
        throw ControlError("no such tab");
    return *m_control.m_tabs[static_cast<size_t>(n - 1)];
}

Tab &TabControl::Collection::Add(const QString &caption, int iconIndex)
{
    std::unique_ptr<Tab> tab(new Tab(m_control));
    tab->m_caption = caption;
    tab->m_iconIndex = iconIndex;
    m_control.measure(*tab);
    m_control.insert(Count(), std::move(tab));
    return *m_control.m_tabs.back();
}

void TabControl::Collection::Remove(int n)
{
    (*this)(n);
    m_control.take(n - 1);
}

Tab *TabControl::SelectedTab()
{
    const auto index = static_cast<size_t>(currentIndex());
    return index < m_tabs.size() ? m_tabs[index].get() : nullptr;
}

void TabControl::setImageList(const ImageList *images)
{
    m_images = images;
    measureAll();
}

int TabControl::indexOf(const Tab *tab) const
{
    for (size_t i = 0; i < m_tabs.size(); ++i) {
        if (m_tabs[i].get() == tab)
            return static_cast<int>(i);
    }
    return -1;
}

void TabControl::insert(int index, std::unique_ptr<Tab> tab)
{
    m_tabs.insert(m_tabs.begin() + index, std::move(tab));
    ++m_selecting;
    insertTab(index, QString());
    --m_selecting;
    nameTab(index);
    placeCloseButton();
}

std::unique_ptr<Tab> TabControl::take(int index)
{
    std::unique_ptr<Tab> tab = std::move(m_tabs[static_cast<size_t>(index)]);
    m_tabs.erase(m_tabs.begin() + index);
    ++m_selecting;
    removeTab(index);
    --m_selecting;
    placeCloseButton();
    return tab;
}

void TabControl::select(int index)
{
    ++m_selecting;
    setCurrentIndex(index);
    --m_selecting;
    placeCloseButton();
}

void TabControl::closeSelected()
{
    const int index = currentIndex();
    if (index < 0)
        return;
    std::unique_ptr<Tab> tab = take(index);
    const QPointer<TabControl> self(this);
    bool cancel = false;
    emit tabClose(*tab, cancel);
    if (cancel && self) {
        const int back = std::min(index, static_cast<int>(m_tabs.size()));
        insert(back, std::move(tab));
        select(back);
    }
}

/// An assistive tool has chosen a tab. That is a user's click like any other.
void TabControl::userSelected(int index)
{
    if (m_selecting == 0 && index >= 0 && index < count()) {
        placeCloseButton();
        const QPoint middle = tabRect(index).center();
        emit tabClick(*m_tabs[static_cast<size_t>(index)], 1, 0, middle.x(), middle.y());
    }
}

void TabControl::press(QMouseEvent *event)
{
    const QPointF point = event->position();
    const int index = tabAt(point.toPoint());
    const int button = buttonNumber(event->button());
    if (button == 0)
        return; // a side button, which people press to go back, must not pass for a right click and close a tab
    const int shift = shiftBits(event->modifiers());
    m_pressedEmpty = index < 0;
    m_pressed = m_pressedEmpty ? nullptr : m_tabs[static_cast<size_t>(index)].get();
    // The last statement of all: a handler may show a menu, close the tab or end the strip.
    if (m_pressed)
        emit tabClick(*m_tabs[static_cast<size_t>(index)], button, shift, point.x(), point.y());
    else
        emit barClick(button, shift, point.x(), point.y());
}

void TabControl::mousePressEvent(QMouseEvent *event)
{
    event->accept();
    press(event);
}

void TabControl::mouseMoveEvent(QMouseEvent *event)
{
    event->accept();
}

void TabControl::mouseReleaseEvent(QMouseEvent *event)
{
    event->accept();
}

void TabControl::mouseDoubleClickEvent(QMouseEvent *event)
{
    event->accept();
    const int index = tabAt(event->position().toPoint());
    const Tab *tab = index < 0 ? nullptr : m_tabs[static_cast<size_t>(index)].get();
    // The first click may have closed its tab, and what stands there now was never clicked: that is a first press.
    const bool sameTab = tab && tab == m_pressed;
    const bool sameEmpty = !tab && m_pressedEmpty;
    if (event->button() != Qt::LeftButton || !(sameTab || sameEmpty)) {
        press(event);
        return;
    }
    m_pressed = nullptr;
    m_pressedEmpty = false;
    if (tab)
        emit tabDoubleClick(*m_tabs[static_cast<size_t>(index)]);
    else
        emit barClick(1, 2, -1.0, -1.0);
}

/// The wheel scrolls a strip that is too long; it selects nothing.
void TabControl::wheelEvent(QWheelEvent *event)
{
    event->accept();
    if (!scrolls())
        return;
    const QPoint angle = event->angleDelta();
    m_wheel += std::abs(angle.x()) > std::abs(angle.y()) ? angle.x() : angle.y();
    for (; std::abs(m_wheel) >= QWheelEvent::DefaultDeltasPerStep;
         m_wheel -= m_wheel > 0 ? QWheelEvent::DefaultDeltasPerStep : -QWheelEvent::DefaultDeltasPerStep)
        static_cast<QAbstractButton *>(m_wheel > 0 ? m_scrollLeft : m_scrollRight)->click();
}

void TabControl::keyPressEvent(QKeyEvent *event)
{
    const bool left = event->key() == (isRightToLeft() ? Qt::Key_Right : Qt::Key_Left);
    const bool right = event->key() == (isRightToLeft() ? Qt::Key_Left : Qt::Key_Right);
    const int index = currentIndex() + (right ? 1 : left ? -1 : 0);
    if (index == currentIndex()) {
        event->ignore();
        return;
    }
    if (index >= 0 && index < count())
        emit tabClick(*m_tabs[static_cast<size_t>(index)], 1, 0, 0, 0);
}

bool TabControl::event(QEvent *event)
{
    if (event->type() == QEvent::ToolTip) {
        auto *help = static_cast<QHelpEvent *>(event);
        const int index = tabAt(help->pos());
        const QString text = index < 0 ? QString() : drawableToolTip(m_tabs[static_cast<size_t>(index)]->m_toolTip);
        QToolTip::showText(help->globalPos(), text, this, tabRect(index));
        return true;
    }
    if (event->type() == QEvent::HoverEnter || event->type() == QEvent::HoverMove)
        m_hot = tabAt(static_cast<QHoverEvent *>(event)->position().toPoint());
    else if (event->type() == QEvent::HoverLeave)
        m_hot = -1;
    return QTabBar::event(event); // which repaints the tabs under the pointer
}

} // namespace controls

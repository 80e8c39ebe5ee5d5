#include "controls/MenuBar.h"

#include "controls/FlatLook.h"

#include <QEvent>
#include <QMenu>
#include <QPaintEvent>
#include <QPainter>
#include <QStyle>
#include <QStyleOption>
#include <QToolButton>

namespace controls {

MenuBar::MenuBar(QWidget *parent)
    : QMenuBar(parent)
{
    setNativeMenuBar(false);
    // QMenuBar collects what does not fit behind this button. The collection is what the chevron shows; the button
    // itself would stand beside the chevron and say the same.
    if (QToolButton *button = extension())
        button->setMaximumSize(0, 0);
}

QToolButton *MenuBar::extension() const
{
    return findChild<QToolButton *>(QStringLiteral("qt_menubar_ext_button"), Qt::FindDirectChildrenOnly);
}

void MenuBar::ShowChevronMenu(int x, int y)
{
    if (!hiddenActions().isEmpty())
        extension()->menu()->popup(QPoint(x, y));
}

QList<QAction *> MenuBar::hiddenActions() const
{
    // The button's menu keeps its last content when the button goes.
    const QToolButton *button = extension();
    return button && !button->isHidden() && button->menu() ? button->menu()->actions() : QList<QAction *>();
}

QSize MenuBar::sizeHint() const
{
    // The base class asks for the width it has once it is laid out narrow; the band needs the width of all menus.
    QSize size = QMenuBar::sizeHint();
    int width = 2 * style()->pixelMetric(QStyle::PM_MenuBarHMargin, nullptr, this) +
                2 * style()->pixelMetric(QStyle::PM_MenuBarPanelWidth, nullptr, this);
    const int spacing = style()->pixelMetric(QStyle::PM_MenuBarItemSpacing, nullptr, this);
    for (QAction *action : actions()) {
        QStyleOptionMenuItem option;
        initStyleOption(&option, action);
        const QSize text = fontMetrics().size(Qt::TextShowMnemonic, action->text());
        width += style()->sizeFromContents(QStyle::CT_MenuBarItem, &option, text, this).width() + spacing;
    }
    size.setWidth(width);
    return size;
}

QSize MenuBar::minimumSizeHint() const
{
    return {24, sizeHint().height()};
}

void MenuBar::paintEvent(QPaintEvent *event)
{
    QPainter painter(this);
    const QList<QAction *> hidden = hiddenActions();
    int flags = Qt::AlignCenter | Qt::TextShowMnemonic | Qt::TextDontClip | Qt::TextSingleLine;
    if (!style()->styleHint(QStyle::SH_UnderlineShortcut, nullptr, this))
        flags |= Qt::TextHideMnemonic;
    for (QAction *action : actions()) {
        const QRect rect = actionGeometry(action);
        if (!rect.intersects(event->rect()) || hidden.contains(action))
            continue;
        const bool active = action == activeAction();
        paintFlatPanel(painter, rect, palette(), active && action->menu() && action->menu()->isVisible(), active);
        style()->drawItemText(&painter, rect, flags, palette(), action->isEnabled(), action->text(),
                              QPalette::WindowText);
    }
}

ToolBarHost::ToolBarHost(QWidget *parent)
    : QWidget(parent)
{}

void ToolBarHost::HostCapture(QWidget *toolbar)
{
    m_content = toolbar;
    toolbar->setParent(this);
    toolbar->setGeometry(rect());
    toolbar->show();
    updateGeometry();
}

void ToolBarHost::HostRefresh()
{
    m_tile = m_file.isEmpty() ? QPixmap() : QPixmap(m_file);
    update();
}

QSize ToolBarHost::sizeHint() const
{
    return m_content ? m_content->sizeHint() : QSize();
}

QSize ToolBarHost::minimumSizeHint() const
{
    return m_content ? m_content->minimumSizeHint() : QSize();
}

void ToolBarHost::paintEvent(QPaintEvent *)
{
    if (!m_tile.isNull())
        QPainter(this).drawTiledPixmap(rect(), m_tile);
}

void ToolBarHost::resizeEvent(QResizeEvent *)
{
    if (m_content)
        m_content->setGeometry(rect());
}

bool ToolBarHost::event(QEvent *event)
{
    // The content wants another size: pass the wish on.
    if (event->type() == QEvent::LayoutRequest)
        updateGeometry();
    return QWidget::event(event);
}

} // namespace controls

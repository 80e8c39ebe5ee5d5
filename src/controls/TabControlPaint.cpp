// The layout and the drawing of the tab strip.

#include "controls/GlyphButton.h"
#include "controls/ImageList.h"
#include "controls/TabControl.h"
#include "controls/Texts.h"

#include <QPaintEvent>
#include <QPainter>
#include <algorithm>
#include <cmath>

namespace controls {

namespace {

/// Pixels: free room left and right inside a tab, between its icon, caption and close button, and the edges of the two.
constexpr int kMargin = 7;
constexpr int kSpace = 5;
constexpr int kIcon = 16;
constexpr int kCloseEdge = 16;
/// A crowded tab keeps its icon and a few characters.
constexpr int kNarrow = 96;
/// The longest caption that the program writes has 53 characters; a tab draws no more than this of any.
constexpr int kCaptionLimit = 120;

QColor mixed(const QColor &a, const QColor &b, double partOfB)
{
    const auto mix = [&](int x, int y) { return static_cast<int>(std::lround(x + (y - x) * partOfB)); };
    return {mix(a.red(), b.red()), mix(a.green(), b.green()), mix(a.blue(), b.blue())};
}

} // namespace

/// Room for the close button is kept in every tab, so that a selection moves nothing.
void TabControl::measure(Tab &tab) const
{
    tab.m_line = drawableLine(tab.m_caption, kCaptionLimit);
    const int text = tab.m_line.isEmpty() ? 0 : fontMetrics().horizontalAdvance(tab.m_line) + kSpace + 1;
    tab.m_width = kMargin + (m_images ? kIcon : 0) + text + kSpace + kCloseEdge + kMargin - 3;
}

void TabControl::measureAll()
{
    for (const std::unique_ptr<Tab> &tab : m_tabs)
        measure(*tab);
    if (count() > 0)
        setTabText(0, QString()); // QTabBar lays out again
    updateGeometry();
    placeCloseButton();
}

bool TabControl::scrolls() const
{
    return m_scrollRight && m_scrollRight->isVisible();
}

/// A new caption lays the strip out only where that changes something. While the strip scrolls, all tabs are narrow
/// anyway; laying out would take a user who is looking for a tab back to the selected one at every title.
void TabControl::captionChanged(Tab &tab)
{
    const int before = tab.m_width;
    measure(tab);
    const int index = indexOf(&tab);
    if (index < 0)
        return;
    nameTab(index);
    const bool same =
        before == tab.m_width || (scrolls() && std::min(before, kNarrow) == std::min(tab.m_width, kNarrow));
    if (same) {
        update(tabRect(index));
    } else {
        setTabText(index, QString());
        placeCloseButton();
    }
}

void TabControl::nameTab(int index)
{
    if (index < 0)
        return;
    const Tab &tab = *m_tabs[static_cast<size_t>(index)];
    setAccessibleTabName(index, tab.m_toolTip.isEmpty() ? tab.m_line : drawableLine(tab.m_toolTip, kCaptionLimit * 4));
}

QSize TabControl::tabSizeHint(int index) const
{
    const auto at = static_cast<size_t>(index);
    return {at < m_tabs.size() ? m_tabs[at]->m_width : kNarrow, sizeHint().height()};
}

QSize TabControl::minimumTabSizeHint(int index) const
{
    const QSize wanted = tabSizeHint(index);
    return {std::min(wanted.width(), kNarrow), wanted.height()};
}

/// The strip takes the room that it is given; what is on it does not ask for any, so no tab lays out the window.
QSize TabControl::sizeHint() const
{
    return {4 * kNarrow, std::max(kIcon + 8, fontMetrics().height() + 8)};
}

QSize TabControl::minimumSizeHint() const
{
    return {kNarrow, sizeHint().height()};
}

void TabControl::tabLayoutChange()
{
    placeCloseButton();
}

void TabControl::changeEvent(QEvent *event)
{
    QTabBar::changeEvent(event);
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange)
        measureAll();
}

void TabControl::resizeEvent(QResizeEvent *event)
{
    QTabBar::resizeEvent(event);
    placeCloseButton();
}

void TabControl::showEvent(QShowEvent *event)
{
    QTabBar::showEvent(event);
    placeCloseButton();
}

/// QTabBar tells of a new layout but not of a new scroll position, so whoever sets off either calls this afterwards.
void TabControl::placeCloseButton()
{
    if (!m_close)
        return; // the layout of the constructor
    const QRect tab = tabRect(currentIndex());
    const QRect place(tab.right() - kMargin + 3 - kCloseEdge + 1, tab.top() + (tab.height() - kCloseEdge) / 2,
                      kCloseEdge, kCloseEdge);
    QRect seen = rect();
    if (scrolls())
        seen.setRight(std::min(m_scrollLeft->x(), m_scrollRight->x()) - 1);
    const bool fits = tab.width() >= 2 * kCloseEdge && seen.contains(place);
    if (fits)
        m_close->setGeometry(place);
    if (fits == m_close->isHidden())
        m_close->setVisible(fits);
}

void TabControl::paintTab(QPainter &painter, int index) const
{
    const Tab &tab = *m_tabs[static_cast<size_t>(index)];
    const bool selected = index == currentIndex();
    const QPalette &colours = palette();
    const QColor window = colours.color(QPalette::Window);
    const QColor ink = colours.color(QPalette::WindowText);
    const QRect area = tabRect(index);
    const QRect box = area.adjusted(0, selected ? 0 : 2, -1, 0);

    const bool hot = !selected && index == m_hot;
    const QColor line = mixed(window, ink, selected ? 0.45 : 0.28);
    const QColor fill = selected ? colours.color(QPalette::Base)
                                 : mixed(window, hot ? colours.color(QPalette::Base) : ink, hot ? 0.5 : 0.06);
    painter.fillRect(box, line);
    painter.fillRect(box.adjusted(1, 1, -1, 0), fill);
    if (selected)
        painter.fillRect(QRect(box.left() + 1, box.top() + 1, box.width() - 2, 2), colours.color(QPalette::Highlight));

    int left = area.left() + kMargin;
    int right = area.right() - kMargin;
    if (selected && !m_close->isHidden())
        right = m_close->x() - 3;
    const int middle = area.top() + 1 + area.height() / 2;
    if (m_images) {
        painter.drawPixmap(QRect(left, middle - kIcon / 2, kIcon, kIcon),
                           m_images->pixmap(tab.m_iconIndex, devicePixelRatioF()));
        left += kIcon + kSpace;
    }
    if (right > left) {
        const QRect text(left, middle - area.height() / 2, right - left, area.height());
        painter.setPen(selected ? colours.color(QPalette::Text) : ink);
        painter.drawText(text, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine,
                         fontMetrics().elidedText(tab.m_line, Qt::ElideRight, text.width()));
    }
    if (selected && hasFocus()) {
        QPen pen(ink, 1, Qt::DotLine);
        painter.setPen(pen);
        painter.drawRect(box.adjusted(3, 4, -4, -3));
    }
}

void TabControl::paintEvent(QPaintEvent *event)
{
    QPainter painter(this);
    const QRect dirty = event->rect();
    QColor base = mixed(palette().color(QPalette::Window), palette().color(QPalette::WindowText), 0.45);
    for (int i = 0; i < count(); ++i) {
        if (tabRect(i).intersects(dirty))
            paintTab(painter, i);
    }
    // The line that the tabs stand on; only the selected one is open to what lies below.
    const QRect open = tabRect(currentIndex());
    const QRect foot(dirty.left(), height() - 1, dirty.width(), 1);
    const QRegion closed =
        open.isValid() ? QRegion(foot) - QRect(open.left() + 1, height() - 1, open.width() - 3, 1) : QRegion(foot);
    for (const QRect &part : closed)
        painter.fillRect(part, base);
}

} // namespace controls

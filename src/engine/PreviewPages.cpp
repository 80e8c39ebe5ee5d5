#include "engine/PreviewPages.h"

#include "engine/PdfPages.h"

#include <QKeyEvent>
#include <QPainter>
#include <QScrollBar>
#include <QWheelEvent>
#include <algorithm>

namespace engine {

namespace {

/// Pixels between the sheets and around them.
constexpr int kGap = 16;
constexpr int kShadow = 3;
constexpr int kScrollStep = 40;
constexpr double kPixelsPerPoint = 96.0 / 72;
constexpr double kWheelZoom = 1.1;

} // namespace

PreviewPages::PreviewPages(QWidget *parent)
    : QAbstractScrollArea(parent)
{
    setFrameShape(QFrame::NoFrame);
    viewport()->setBackgroundRole(QPalette::Dark);
    viewport()->setAutoFillBackground(true);
    verticalScrollBar()->setSingleStep(kScrollStep);
    horizontalScrollBar()->setSingleStep(kScrollStep);
}

PreviewPages::~PreviewPages() = default;

void PreviewPages::setPages(std::unique_ptr<PdfPages> pages)
{
    const int page = m_current;
    m_pages = std::move(pages);
    m_drawn.clear();
    layOut();
    goTo(std::min(std::max(1, page), count()));
    emit pageChanged();
}

int PreviewPages::count() const
{
    return m_pages ? m_pages->count() : 0;
}

int PreviewPages::currentPage() const
{
    const int middle = verticalScrollBar()->value() + viewport()->height() / 2;
    const auto after =
        std::find_if(m_sheets.begin(), m_sheets.end(), [&](const QRect &sheet) { return sheet.top() > middle; });
    const int page = static_cast<int>(after - m_sheets.begin());
    return m_sheets.empty() ? 0 : std::max(1, page);
}

void PreviewPages::goTo(int page)
{
    if (page < 1 || page > static_cast<int>(m_sheets.size()))
        return;
    const QRect sheet = m_sheets[page - 1];
    // A sheet that fits stands in the middle, a larger one begins at the top.
    const int spare = std::max(2 * kGap, viewport()->height() - sheet.height());
    verticalScrollBar()->setValue(sheet.top() - spare / 2);
}

void PreviewPages::setFit(Fit fit)
{
    m_fit = fit;
    layOut();
}

void PreviewPages::setZoom(double zoom)
{
    m_fit = Fit::None;
    m_zoom = std::clamp(zoom, kSmallestZoom, kLargestZoom);
    layOut();
}

double PreviewPages::fittingZoom() const
{
    QSizeF largest;
    for (int i = 0; i < count(); ++i)
        largest = largest.expandedTo(m_pages->pointSize(i) * kPixelsPerPoint);
    if (m_fit == Fit::None || largest.isEmpty())
        return m_zoom;
    const QSize room = maximumViewportSize() - QSize(2 * kGap, 2 * kGap);
    // One page that fits has no scroll bar beside it; a column of pages does.
    const int bar = m_fit == Fit::Page && count() == 1 ? 0 : verticalScrollBar()->sizeHint().width();
    const double byWidth = (room.width() - bar) / largest.width();
    const double zoom = m_fit == Fit::Width ? byWidth : std::min(byWidth, room.height() / largest.height());
    return std::clamp(zoom, kSmallestZoom, kLargestZoom);
}

void PreviewPages::layOut()
{
    const double place = verticalScrollBar()->maximum() > 0
                             ? static_cast<double>(verticalScrollBar()->value()) / verticalScrollBar()->maximum()
                             : 0;
    m_zoom = fittingZoom();
    m_sheets.clear();
    int width = 0;
    int y = kGap;
    for (int i = 0; i < count(); ++i) {
        const QSize size = (m_pages->pointSize(i) * kPixelsPerPoint * m_zoom).toSize();
        m_sheets.emplace_back(QPoint(0, y), size);
        y += size.height() + kGap;
        width = std::max(width, size.width() + 2 * kGap);
    }
    const QSize room = viewport()->size();
    for (QRect &sheet : m_sheets)
        sheet.moveLeft((std::max(width, room.width()) - sheet.width()) / 2);
    verticalScrollBar()->setRange(0, std::max(0, y - room.height()));
    verticalScrollBar()->setPageStep(room.height());
    verticalScrollBar()->setValue(qRound(place * verticalScrollBar()->maximum()));
    horizontalScrollBar()->setRange(0, std::max(0, width - room.width()));
    horizontalScrollBar()->setPageStep(room.width());
    m_current = currentPage();
    viewport()->update();
    emit zoomChanged();
}

void PreviewPages::resizeEvent(QResizeEvent *event)
{
    QAbstractScrollArea::resizeEvent(event);
    layOut();
}

void PreviewPages::scrollContentsBy(int, int)
{
    viewport()->update();
    if (std::exchange(m_current, currentPage()) != m_current)
        emit pageChanged();
}

void PreviewPages::wheelEvent(QWheelEvent *event)
{
    if (!event->modifiers().testFlag(Qt::ControlModifier)) {
        QAbstractScrollArea::wheelEvent(event);
        return;
    }
    setZoom(event->angleDelta().y() > 0 ? m_zoom * kWheelZoom : m_zoom / kWheelZoom);
    event->accept();
}

void PreviewPages::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Home)
        goTo(1);
    else if (event->key() == Qt::Key_End)
        goTo(count());
    else
        QAbstractScrollArea::keyPressEvent(event);
}

QRect PreviewPages::sheetOnScreen(int index) const
{
    return m_sheets[index].translated(-horizontalScrollBar()->value(), -verticalScrollBar()->value());
}

void PreviewPages::paintEvent(QPaintEvent *)
{
    QPainter painter(viewport());
    for (int i = 0; i < static_cast<int>(m_sheets.size()); ++i) {
        if (sheetOnScreen(i).intersects(viewport()->rect()))
            paintSheet(painter, i);
        else
            m_drawn.remove(i);
    }
}

void PreviewPages::paintSheet(QPainter &painter, int index)
{
    const QRect sheet = sheetOnScreen(index);
    painter.fillRect(sheet.translated(kShadow, kShadow), palette().color(QPalette::Shadow));
    const double ratio = devicePixelRatioF();
    const QRect visible = sheet.intersected(viewport()->rect()).translated(-sheet.topLeft());
    const QRect pixels(visible.topLeft() * ratio, visible.size() * ratio);
    const Drawn &part = drawn(index, sheet.size() * ratio, pixels);
    painter.drawImage(QRectF(sheet.topLeft() + QPointF(part.clip.topLeft()) / ratio, QSizeF(part.clip.size()) / ratio),
                      part.image);
}

/// The visible part of a sheet, drawn with half a window around it so that scrolling finds it ready.
const PreviewPages::Drawn &PreviewPages::drawn(int index, const QSize &whole, const QRect &visible)
{
    Drawn &part = m_drawn[index];
    if (part.whole == whole && part.clip.contains(visible))
        return part;
    const int margin = viewport()->height() / 2;
    part.whole = whole;
    part.clip = visible.adjusted(-margin, -margin, margin, margin).intersected(QRect(QPoint(), whole));
    part.image = m_pages->render(index, whole, part.clip);
    return part;
}

} // namespace engine

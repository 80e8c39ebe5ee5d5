#include "controls/BandContainer.h"

#include "base/step.h"
#include "base/units.h"
#include "controls/BandLayout.h"
#include "controls/ChevronButton.h"
#include "controls/Texts.h"

#include <QEvent>
#include <QImageReader>
#include <QMouseEvent>
#include <QPainter>
#include <QPointer>
#include <QXmlStreamWriter>

namespace controls {

namespace {

/// Room left of a child: two lines of one pixel and the air around them. The handlers of the address and tab bands take
/// 10 and 7 pixels off a band's width for it, so it is no wider than 7.
constexpr int kGrip = 7;
constexpr int kChevron = 14;
/// Air above and below a child.
constexpr int kPadding = 1;
/// Least width of a child for which nothing else was said.
constexpr int kLeastChild = 24;
/// A band that is dragged so far out of the container gets a row of its own there.
constexpr int kDragOut = 8;

struct Band
{
    QPointer<QWidget> child;
    QPointer<QWidget> formerParent;
    QPointer<ChevronButton> chevron;
    QString caption;
    QString key;
    bool fixedSize = false;
    bool visible = true;
    int minHeight = 0;
    int minWidth = 0;
    /// The child's size as the program said it, and the size hint at that time: a hint that changes later is newer.
    QSize saidSize;
    QSize hintWhenSaid;
    QRect rect;
    QRect childRect;

    QSize idealSize() const
    {
        if (!child)
            return {0, 0};
        const QSize hint = child->sizeHint();
        return saidSize.isValid() && (hint == hintWhenSaid || !hint.isValid()) ? saidSize : hint;
    }
    /// Whether the child wants the width that it asks for, and something is hidden when it doesn't get that.
    bool wantsIdealWidth() const
    {
        if (!child || !child->sizeHint().isValid())
            return false;
        const QSizePolicy::Policy policy = child->sizePolicy().horizontalPolicy();
        return policy != QSizePolicy::Ignored && !(policy & QSizePolicy::ExpandFlag);
    }
};

QPixmap loadTile(const QString &file)
{
    if (file.isEmpty())
        return {};
    // Skins have an extension of their own.
    QImageReader reader(file);
    reader.setDecideFormatFromContent(true);
    return QPixmap::fromImage(reader.read());
}

} // namespace

struct BandContainer::Private
{
    std::vector<Band> bands;
    /// Places of the bands by index; hidden ones keep theirs.
    BandRows rows;
    QString file;
    QPixmap tile;
    bool dirty = true;
    int laidWidth = -1;
    int height = 0;

    /// The band that is being dragged, -1 for none, and where in it the mouse took hold.
    int dragged = -1;
    int grabX = 0;

    Band &at(int index)
    {
        if (index < 0 || index >= static_cast<int>(bands.size()))
            throw ControlError("no such band");
        return bands[static_cast<size_t>(index)];
    }
    /// Grip and caption.
    int leftOfChild(const Band &band, const QFontMetrics &metrics) const
    {
        const int caption = band.caption.isEmpty() ? 0 : metrics.horizontalAdvance(band.caption) + 6;
        return (band.fixedSize ? 0 : kGrip) + caption;
    }
    BandNeed needOf(const Band &band, const QFontMetrics &metrics) const
    {
        const QSize ideal = band.idealSize();
        const int left = leftOfChild(band, metrics);
        BandNeed need;
        need.visible = band.visible && band.child;
        need.fixedSize = band.fixedSize;
        need.height = std::max(ideal.height(), band.minHeight) + 2 * kPadding;
        need.width = left + std::max(ideal.width(), band.minWidth);
        need.minWidth = left + std::max(band.minWidth, std::min(kLeastChild, ideal.width())) +
                        (band.wantsIdealWidth() ? kChevron : 0);
        return need;
    }
    int gripAt(QPoint pos) const
    {
        for (size_t i = 0; i < bands.size(); ++i) {
            const Band &band = bands[i];
            if (band.visible && !band.fixedSize &&
                QRect(band.rect.topLeft(), QSize(kGrip, band.rect.height())).contains(pos))
                return static_cast<int>(i);
        }
        return -1;
    }
};

BandContainer::BandContainer(QWidget *parent)
    : QWidget(parent)
    , d(std::make_unique<Private>())
{
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    setMouseTracking(true);
}

BandContainer::~BandContainer() = default;

void BandContainer::setBackgroundBitmap(const QString &file)
{
    d->file = file;
    d->tile = loadTile(file);
    update();
}

QString BandContainer::BackgroundBitmap() const
{
    return d->file;
}

void BandContainer::AddBand(QWidget *child, const QString &caption, bool newRow, bool fixedSize, const QString &key)
{
    Band band;
    band.child = child;
    band.formerParent = child->parentWidget();
    band.caption = caption;
    band.key = key;
    band.fixedSize = fixedSize;
    if (!child->sizeHint().isValid())
        band.saidSize = child->size();
    const int index = static_cast<int>(d->bands.size());
    d->bands.push_back(std::move(band));
    d->rows.append(index, newRow);
    child->setParent(this);
    child->setVisible(true);
    d->dirty = true;
    if (isVisible())
        RecalculateLayout();
}

void BandContainer::setBandMinHeight(int index, int height)
{
    d->at(index).minHeight = height;
    d->dirty = true;
}

void BandContainer::setBandMinWidth(int index, int width)
{
    d->at(index).minWidth = width;
    d->dirty = true;
}

int BandContainer::BandIndexForKey(const QString &key) const
{
    for (size_t i = 0; i < d->bands.size(); ++i) {
        if (d->bands[i].key == key)
            return static_cast<int>(i);
    }
    return -1;
}

QString BandContainer::BandKey(int index) const
{
    return d->at(index).key;
}

int BandContainer::BandCount() const
{
    return static_cast<int>(d->bands.size());
}

bool BandContainer::BandVisible(int index) const
{
    return d->at(index).visible;
}

void BandContainer::setBandVisible(int index, bool visible)
{
    Band &band = d->at(index);
    if (band.visible == visible)
        return;
    band.visible = visible;
    if (band.child)
        band.child->setVisible(visible);
    if (band.chevron)
        band.chevron->hide();
    d->dirty = true;
    RecalculateLayout();
}

void BandContainer::SetBandChildSize(int index, int width, int height)
{
    Band &band = d->at(index);
    band.saidSize = QSize(width, height);
    band.hintWhenSaid = band.child ? band.child->sizeHint() : QSize();
    d->dirty = true;
}

void BandContainer::RecalculateLayout()
{
    if (!d->dirty && d->laidWidth == width())
        return;
    d->dirty = false;
    d->laidWidth = width();

    std::vector<BandNeed> needs;
    needs.reserve(d->bands.size());
    for (const Band &band : d->bands)
        needs.push_back(d->needOf(band, fontMetrics()));
    const int oldHeight = std::exchange(d->height, d->rows.layOut(needs, width()));

    std::vector<int> changed;
    for (int i = 0; i < BandCount(); ++i) {
        const BandNeed &need = needs[static_cast<size_t>(i)];
        if (need.visible && placeBand(i, need.rect))
            changed.push_back(i);
    }
    // Events only now: their handlers may ask for anything, and find the layout whole.
    for (const int index : changed)
        d->at(index).child->setGeometry(d->at(index).childRect);
    update();
    if (d->height != oldHeight) {
        updateGeometry();
        if (parentWidget() && !parentWidget()->layout())
            resize(width(), d->height);
        emit HeightChanged(d->height);
    }
    for (const int index : changed) {
        if (index < BandCount())
            emit BandChildResize(index, d->at(index).rect, d->at(index).childRect);
    }
}

bool BandContainer::placeBand(int index, const QRect &rect)
{
    Band &band = d->at(index);
    const QSize ideal = band.idealSize();
    QRect inner = rect.adjusted(d->leftOfChild(band, fontMetrics()), kPadding, 0, -kPadding);
    const bool cut = !band.fixedSize && band.wantsIdealWidth() && inner.width() < ideal.width();
    if (cut) {
        inner.setWidth(std::max(0, inner.width() - kChevron));
        chevronOf(index).setGeometry(inner.right() + 1, inner.top(), kChevron, inner.height());
    }
    if (band.chevron)
        band.chevron->setVisible(cut);
    const int height = std::min(inner.height(), std::max(ideal.height(), band.minHeight));
    const QRect childRect(inner.left(), inner.top() + (inner.height() - height) / 2, inner.width(), height);
    const bool changed = band.rect != rect || band.childRect != childRect;
    band.rect = rect;
    band.childRect = childRect;
    return changed;
}

QWidget &BandContainer::chevronOf(int index)
{
    Band &band = d->at(index);
    if (!band.chevron) {
        band.chevron = new ChevronButton(this);
        band.chevron->setAccessibleName(ownText(20230));
        band.chevron->setToolTip(ownText(20230));
        connect(band.chevron, &QAbstractButton::clicked, this, [this, index] {
            const QWidget *button = d->at(index).chevron;
            const QPoint corner = button->mapToGlobal(QPoint(0, 0));
            emit ChevronPushed(index, QRectF(toTwips(corner.x()), toTwips(corner.y()), toTwips(button->width()),
                                             toTwips(button->height())));
        });
    }
    return *band.chevron;
}

int BandContainer::BarHeight() const
{
    return d->height;
}

QString BandContainer::LayoutText() const
{
    QString text;
    QXmlStreamWriter xml(&text);
    xml.setAutoFormatting(true);
    xml.writeStartDocument();
    xml.writeStartElement(QStringLiteral("layout"));
    int row = 0;
    for (const std::vector<int> &places : d->rows.rows()) {
        for (const int index : places) {
            const Band &band = d->at(index);
            xml.writeEmptyElement(QStringLiteral("band"));
            xml.writeAttribute(QStringLiteral("key"), band.key);
            xml.writeAttribute(QStringLiteral("row"), QString::number(row));
            xml.writeAttribute(QStringLiteral("width"), QString::number(band.rect.width()));
            xml.writeAttribute(QStringLiteral("visible"), band.visible ? QStringLiteral("1") : QStringLiteral("0"));
        }
        ++row;
    }
    xml.writeEndElement();
    xml.writeEndDocument();
    return text;
}

void BandContainer::ResetBar()
{
    setBackgroundBitmap({});
}

void BandContainer::RemoveAllBands()
{
    for (Band &band : d->bands) {
        delete band.chevron;
        if (band.child) {
            band.child->hide();
            if (band.formerParent)
                band.child->setParent(band.formerParent);
        }
    }
    d->bands.clear();
    d->rows = {};
    d->dragged = -1;
    d->dirty = true;
    RecalculateLayout();
}

void BandContainer::DestroyBar()
{
    hide();
}

QSize BandContainer::sizeHint() const
{
    return {200, d->height};
}

QSize BandContainer::minimumSizeHint() const
{
    return {0, d->height};
}

bool BandContainer::event(QEvent *event)
{
    switch (event->type()) {
    case QEvent::LayoutRequest:
    case QEvent::FontChange:
    case QEvent::StyleChange:
    case QEvent::Show:
        d->dirty = true;
        RecalculateLayout();
        break;
    default:
        break;
    }
    return QWidget::event(event);
}

void BandContainer::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    if (!d->tile.isNull())
        painter.drawTiledPixmap(rect(), d->tile);

    QColor dark = palette().color(QPalette::WindowText);
    dark.setAlpha(60);
    QColor light = palette().color(QPalette::Light);
    light.setAlpha(160);
    QColor grip = palette().color(QPalette::WindowText);
    grip.setAlpha(95);
    for (const int y : d->rows.lines()) {
        painter.fillRect(0, y, width(), 1, dark);
        painter.fillRect(0, y + 1, width(), 1, light);
    }
    for (const Band &band : d->bands) {
        if (!band.visible || band.fixedSize)
            continue;
        const QRect lines(band.rect.left() + 2, band.rect.top() + 3, 1, band.rect.height() - 6);
        painter.fillRect(lines, grip);
        painter.fillRect(lines.translated(2, 0), grip);
        if (!band.caption.isEmpty())
            painter.drawText(band.rect.adjusted(kGrip, 0, 0, 0), Qt::AlignLeft | Qt::AlignVCenter, band.caption);
    }
}

void BandContainer::resizeEvent(QResizeEvent *)
{
    RecalculateLayout();
}

void BandContainer::mousePressEvent(QMouseEvent *event)
{
    const int index = event->button() == Qt::LeftButton ? d->gripAt(event->position().toPoint()) : -1;
    if (index < 0) {
        event->ignore();
        return;
    }
    d->dragged = index;
    d->grabX = event->position().toPoint().x() - d->at(index).rect.left();
}

void BandContainer::mouseMoveEvent(QMouseEvent *event)
{
    const QPoint pos = event->position().toPoint();
    if (d->dragged < 0) {
        if (d->gripAt(pos) >= 0)
            setCursor(Qt::SizeAllCursor);
        else
            unsetCursor();
        return;
    }
    bool moved = false;
    if (pos.y() < -kDragOut)
        moved = d->rows.moveToNewRow(d->dragged, true);
    else if (pos.y() > d->height + kDragOut)
        moved = d->rows.moveToNewRow(d->dragged, false);
    else
        moved = d->rows.drag(d->dragged, pos, pos.x() - d->grabX);
    if (moved) {
        d->dirty = true;
        RecalculateLayout();
    }
}

void BandContainer::mouseReleaseEvent(QMouseEvent *event)
{
    if (event->button() == Qt::LeftButton)
        d->dragged = -1;
}

} // namespace controls

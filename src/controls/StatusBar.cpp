#include "controls/StatusBar.h"

#include "base/step.h"
#include "controls/ImageList.h"
#include "controls/Texts.h"

#include <QHelpEvent>
#include <QPaintEvent>
#include <QPainter>
#include <QToolTip>
#include <algorithm>

namespace controls {

namespace {

/// Free pixels between two panels, at the ends of the bar, and between a panel's edge and its text.
constexpr int kGap = 3;
constexpr int kPadding = 4;
constexpr int kIconEdge = 16;
constexpr int kMinHeight = 22;
constexpr int kTextLimit = 500;

} // namespace

StatusBar::StatusBar(QWidget *parent)
    : QWidget(parent)
{
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    setAccessibleName(ownText(20206));
}

void StatusBar::AddPanel(int style, const QString &text, int icon, int minWidth, bool spring, const QString &key)
{
    m_panels.push_back({key, text, {}, style, icon, minWidth, spring, {}});
    layOut();
    update();
}

int StatusBar::PanelCount() const
{
    return static_cast<int>(m_panels.size());
}

const StatusBar::Panel &StatusBar::panel(int index) const
{
    if (index < 1 || index > PanelCount())
        throw ControlError("no such panel");
    return m_panels[static_cast<size_t>(index - 1)];
}

StatusBar::Panel &StatusBar::panel(int index)
{
    return const_cast<Panel &>(std::as_const(*this).panel(index));
}

int StatusBar::PanelIndex(const QString &key) const
{
    const auto found = std::find_if(m_panels.begin(), m_panels.end(), [&](const Panel &p) { return p.key == key; });
    if (found == m_panels.end())
        throw ControlError("no panel of that key");
    return static_cast<int>(found - m_panels.begin()) + 1;
}

QString StatusBar::PanelText(int index) const
{
    return panel(index).text;
}

QString StatusBar::PanelText(const QString &key) const
{
    return panel(PanelIndex(key)).text;
}

void StatusBar::setPanelText(int index, const QString &text)
{
    Panel &changed = panel(index);
    if (changed.text == text)
        return;
    changed.text = text;
    if (changed.spring)
        setAccessibleDescription(drawableLine(text, kTextLimit));
    else if (neededWidth(changed) > changed.rect.width())
        layOut();
    update(changed.rect);
}

void StatusBar::setPanelText(const QString &key, const QString &text)
{
    setPanelText(PanelIndex(key), text);
}

int StatusBar::PanelIcon(const QString &key) const
{
    return panel(PanelIndex(key)).icon;
}

void StatusBar::setPanelIcon(const QString &key, int icon)
{
    Panel &changed = panel(PanelIndex(key));
    if (changed.icon == icon)
        return;
    changed.icon = icon;
    update(changed.rect);
}

QString StatusBar::PanelToolTip(const QString &key) const
{
    return panel(PanelIndex(key)).toolTip;
}

void StatusBar::setPanelToolTip(const QString &key, const QString &text)
{
    panel(PanelIndex(key)).toolTip = text;
}

void StatusBar::RedrawPanel(const QString &key)
{
    update(panel(PanelIndex(key)).rect);
}

QRect StatusBar::PanelRect(int index) const
{
    return panel(index).rect;
}

void StatusBar::setImageList(const ImageList *images)
{
    m_images = images;
    update();
}

QSize StatusBar::sizeHint() const
{
    return {0, std::max(kMinHeight, fontMetrics().height() + 6)};
}

QSize StatusBar::minimumSizeHint() const
{
    return sizeHint();
}

/// A fixed panel is as wide as it was asked to be, or as its text needs.
int StatusBar::neededWidth(const Panel &panel) const
{
    int width = panel.minWidth;
    if (!panel.spring && !panel.text.isEmpty()) {
        const int icon = panel.icon >= 0 ? kIconEdge + kPadding : 0;
        width = std::max(width, fontMetrics().horizontalAdvance(drawableLine(panel.text, kTextLimit)) + icon +
                                    2 * kPadding + 2);
    }
    return width;
}

void StatusBar::layOut()
{
    int taken = 2 * kGap;
    int springs = 0;
    for (Panel &p : m_panels) {
        taken += kGap;
        if (p.spring) {
            ++springs;
        } else {
            // A panel that has grown for a text stays so: a clock must not push the others about.
            p.rect.setWidth(std::max(neededWidth(p), p.rect.width()));
            taken += p.rect.width();
        }
    }
    taken -= m_panels.empty() ? 0 : kGap;

    const int room = std::max(0, width() - taken);
    int x = kGap;
    bool moved = false;
    for (Panel &p : m_panels) {
        const QRect rect(x, 1, p.spring ? room / springs : p.rect.width(), height() - 2);
        moved |= rect != p.rect;
        p.rect = rect;
        x += rect.width() + kGap;
    }
    if (moved)
        update();
}

void StatusBar::paintPanel(QPainter &painter, int index)
{
    const Panel p = panel(index);
    if (p.style & kOwnerDraw) {
        painter.save();
        painter.setClipRect(p.rect);
        emit ownerDraw(&painter, index, p.rect);
        painter.restore();
        return;
    }

    QRect inner = p.rect;
    if (!(p.style & kNoBorders)) {
        // One line at the right end parts a panel from the next.
        QColor line = palette().color(QPalette::WindowText);
        line.setAlphaF(0.22F);
        painter.fillRect(QRect(p.rect.right(), p.rect.top() + 3, 1, p.rect.height() - 6), line);
        inner.adjust(kPadding, 0, -kPadding, 0);
    }
    if (m_images && p.icon >= 0) {
        const QRect place(p.text.isEmpty() ? inner.left() + std::max(0, (inner.width() - kIconEdge) / 2) : inner.left(),
                          inner.top() + (inner.height() - kIconEdge) / 2, kIconEdge, kIconEdge);
        painter.drawPixmap(place, m_images->pixmap(p.icon, devicePixelRatioF()));
        inner.setLeft(place.right() + 1 + kPadding);
    }
    if (!p.text.isEmpty() && inner.width() > 0) {
        painter.setPen(palette().color(QPalette::WindowText));
        const QString line = drawableLine(p.text, kTextLimit);
        painter.drawText(inner, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine,
                         fontMetrics().elidedText(line, Qt::ElideRight, inner.width()));
    }
}

void StatusBar::paintEvent(QPaintEvent *event)
{
    QPainter painter(this);
    for (int index = 1; index <= PanelCount(); ++index) {
        const QRect rect = panel(index).rect;
        if (rect.isValid() && event->region().intersects(rect))
            paintPanel(painter, index);
    }
}

void StatusBar::resizeEvent(QResizeEvent *)
{
    layOut();
}

int StatusBar::panelAt(const QPoint &point) const
{
    for (int index = 1; index <= PanelCount(); ++index) {
        if (panel(index).rect.contains(point))
            return index;
    }
    return 0;
}

void StatusBar::mouseDoubleClickEvent(QMouseEvent *event)
{
    if (event->button() != Qt::LeftButton)
        return;
    if (const int index = panelAt(event->position().toPoint()))
        emit panelDoubleClick(index);
}

bool StatusBar::event(QEvent *event)
{
    if (event->type() == QEvent::ToolTip) {
        auto *help = static_cast<QHelpEvent *>(event);
        QString text;
        QRect rect;
        if (const int index = panelAt(help->pos())) {
            const Panel &p = panel(index);
            rect = p.rect;
            if (p.style & kToolTips)
                text = p.toolTip;
            else if (fontMetrics().horizontalAdvance(drawableLine(p.text, kTextLimit)) > rect.width() - 2 * kPadding)
                text = p.text; // cut off in its panel
        }
        QToolTip::showText(help->globalPos(), drawableToolTip(text), this, rect);
        return true;
    }
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange) {
        updateGeometry();
        layOut();
    }
    return QWidget::event(event);
}

} // namespace controls

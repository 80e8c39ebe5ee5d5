#include "controls/GlyphButton.h"

#include <QPainter>

namespace controls {

GlyphButton::GlyphButton(Glyph glyph, const QString &name, int edge, QWidget *parent)
    : QAbstractButton(parent)
    , m_glyph(glyph)
    , m_edge(edge)
{
    setAccessibleName(name);
    setToolTip(name);
    setAttribute(Qt::WA_Hover);
    setFocusPolicy(Qt::NoFocus);
    setCursor(Qt::ArrowCursor);
    resize(sizeHint());
}

QSize GlyphButton::sizeHint() const
{
    return {m_edge, m_edge};
}

void GlyphButton::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    const bool hot = isEnabled() && (underMouse() || isDown());
    const QColor ink = palette().color(isEnabled() ? QPalette::Active : QPalette::Disabled, QPalette::WindowText);
    if (hot) {
        QColor fill = ink;
        fill.setAlphaF(isDown() ? 0.28F : 0.14F);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(Qt::NoPen);
        painter.setBrush(fill);
        painter.drawRoundedRect(rect(), 2, 2);
    }

    QColor line = ink;
    line.setAlphaF(hot ? 1.0F : 0.7F);
    // The sign stands in a square with an odd number of pixels, so that it has a middle one.
    const int side = (m_edge / 2) | 1;
    const QPoint corner(width() / 2 - side / 2, height() / 2 - side / 2);
    const QRectF box(corner.x() + 0.5, corner.y() + 0.5, side - 1, side - 1);
    painter.setPen(QPen(line, m_glyph == Glyph::Close ? 1.3 : 1.0, Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin));
    painter.setBrush(Qt::NoBrush);
    switch (m_glyph) {
    case Glyph::Close:
        painter.setRenderHint(QPainter::Antialiasing);
        painter.drawLine(box.topLeft(), box.bottomRight());
        painter.drawLine(box.topRight(), box.bottomLeft());
        break;
    case Glyph::Minimise:
        painter.setRenderHint(QPainter::Antialiasing, false);
        painter.fillRect(QRectF(box.left() - 0.5, box.bottom() - 1.5, side, 2), line);
        break;
    case Glyph::Restore: {
        painter.setRenderHint(QPainter::Antialiasing, false);
        const QRectF front(box.left(), box.top() + 2, box.width() - 2, box.height() - 2);
        painter.drawRect(front);
        painter.drawPolyline(QPolygonF{QPointF(box.left() + 2, box.top() + 1), QPointF(box.left() + 2, box.top()),
                                       box.topRight(), QPointF(box.right(), box.bottom() - 2),
                                       QPointF(box.right() - 1, box.bottom() - 2)});
        break;
    }
    }
}

} // namespace controls

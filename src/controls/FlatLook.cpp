#include "controls/FlatLook.h"

#include <QPainter>

namespace controls {

void paintFlatPanel(QPainter &painter, const QRect &rect, const QPalette &palette, bool pressed, bool hot)
{
    if (!pressed && !hot)
        return;
    QColor fill = palette.color(QPalette::Highlight);
    QColor line = fill;
    fill.setAlpha(pressed ? 80 : 36);
    line.setAlpha(pressed ? 220 : 150);
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(line, 1));
    painter.setBrush(fill);
    painter.drawRoundedRect(QRectF(rect).adjusted(0.5, 0.5, -0.5, -0.5), 2, 2);
    painter.restore();
}

void paintDropArrow(QPainter &painter, const QRect &rect, const QColor &color)
{
    // Five, three and one pixel: a triangle that is sharp at every whole scale.
    const QPoint middle = rect.center();
    for (int i = 0; i < 3; ++i)
        painter.fillRect(middle.x() - 2 + i, middle.y() - 1 + i, 5 - 2 * i, 1, color);
}

} // namespace controls

#pragma once

#include <QPalette>
#include <QRect>

class QPainter;

namespace controls {

/// The look of the flat buttons in the bands: nothing at rest, a tinted plate under the mouse or with the keyboard
/// focus, a stronger one while pressed. From the palette's highlight colour, so it suits light and dark.
void paintFlatPanel(QPainter &painter, const QRect &rect, const QPalette &palette, bool pressed, bool hot);

/// The small triangle that promises a menu, centred in `rect`.
void paintDropArrow(QPainter &painter, const QRect &rect, const QColor &color);

} // namespace controls

#include "engine/PageZoom.h"

#include <QKeyEvent>
#include <algorithm>
#include <array>

namespace engine {

namespace {

/// Steps as browsers have them: small ones near the page's own size, and no more than the engine can do.
constexpr std::array kSteps = {0.25, 1.0 / 3, 0.5,  2.0 / 3, 0.75, 0.8, 0.9, 1.0, 1.1,
                               1.25, 1.5,     1.75, 2.0,     2.5,  3.0, 4.0, 5.0};
/// The wheel leaves factors between the steps, and the engine rounds; this near to a step is on it.
constexpr double kNear = 0.01;

} // namespace

double zoomForKey(const QKeyEvent &event, double factor)
{
    // On many keyboards plus is the upper letter of another key.
    if ((event.modifiers() & ~(Qt::ShiftModifier | Qt::KeypadModifier)) != Qt::ControlModifier)
        return 0;
    switch (event.key()) {
    case Qt::Key_0:
        return 1;
    case Qt::Key_Plus:
    case Qt::Key_Equal: {
        const auto *next = std::upper_bound(kSteps.begin(), kSteps.end(), factor + kNear);
        return next == kSteps.end() ? kSteps.back() : *next;
    }
    case Qt::Key_Minus: {
        const auto *here = std::lower_bound(kSteps.begin(), kSteps.end(), factor - kNear);
        return here == kSteps.begin() ? kSteps.front() : *std::prev(here);
    }
    default:
        return 0;
    }
}

} // namespace engine

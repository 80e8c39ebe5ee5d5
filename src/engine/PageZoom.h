#pragma once

class QKeyEvent;

namespace engine {

/// The factor that a key sets when a page is shown with `factor` (1 is the page's own size, 0.25 to 5 are possible):
/// Ctrl and plus or minus lead to the next step, Ctrl and 0 back to 1. 0 for a key that means something else.
double zoomForKey(const QKeyEvent &event, double factor);

} // namespace engine

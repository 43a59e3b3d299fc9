// The event loop of the first thread.
#pragma once

class QWindow;

namespace ovrin::layer {

// Handles the window system's events, but no user's, until `window` has been exposed and so painted. A window system
// that never exposes it is not waited for longer than some seconds.
void WaitForExposure(QWindow &window);

} // namespace ovrin::layer

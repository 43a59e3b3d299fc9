// Repainting the frames that the main window draws around its fields.
#pragma once

#include "launcher/LauncherState.h"

namespace ovrin {

// Marks `rect` of the main window for repaint, with the few pixels around it that a frame may reach.
void InvalidateChrome(const LauncherState &state, RECT rect);

// Marks the frame of the field or list `control` for repaint, since its colour tells the focus. No other control has
// a frame.
void InvalidateFieldChrome(const LauncherState &state, HWND control);

} // namespace ovrin

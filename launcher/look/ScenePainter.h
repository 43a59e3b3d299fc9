// The backdrop of the window: cards, field frames and static texts, painted whole into a buffer each time.
#pragma once

#include "launcher/LauncherState.h"

namespace ovrin {

// The whole of WM_PAINT. Without a state the window is only validated.
void PaintLauncherWindow(HWND window, const LauncherState *state);

} // namespace ovrin

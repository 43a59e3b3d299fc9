// From a control's notification to the workflow behind it.
#pragma once

#include "launcher/LauncherState.h"

namespace ovrin {

// By the time it returns the window may have been destroyed.
void RouteCommand(HWND window, LauncherState &state, WORD id, WORD notification);

} // namespace ovrin

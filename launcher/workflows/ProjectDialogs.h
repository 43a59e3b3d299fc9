// The two commands that ask the platform's file dialog for a path.
#pragma once

#include "launcher/LauncherState.h"

namespace ovrin {

// Fills the location field from a folder dialog. Cancelled or failed: the field stays exactly as it is.
void BrowseForLocation(LauncherState &state);

// Opens a project file from anywhere; destroys `window` when the editor has been started.
void OpenProjectFromDialog(HWND window);

} // namespace ovrin

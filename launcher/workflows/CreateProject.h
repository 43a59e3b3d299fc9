// From the new-project form to a running editor: validate, refuse what is in the way, make the folder, hand over.
#pragma once

#include "launcher/LauncherState.h"

namespace ovrin {

// Destroys `window` when the editor has been started. On every other outcome the user has been told, and window and
// form stay as they were; the project's folder, once made, stays too.
void CreateProject(HWND window, LauncherState &state);

} // namespace ovrin

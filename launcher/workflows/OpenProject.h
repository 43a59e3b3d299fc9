// From a project file to a running editor.
#pragma once

#include "launcher/LauncherState.h"

#include <filesystem>

namespace ovrin {

// True if the editor was started; otherwise the user has been told.
[[nodiscard]] bool OpenProjectFile(HWND window, const std::filesystem::path &path);

// Opens the selected row; destroys `window` when the editor has been started. A project that turns out to be gone
// leaves the list and the file, which is cut to twelve.
void OpenSelectedProject(HWND window, LauncherState &state);

} // namespace ovrin

// From a project file to a running editor.
#pragma once

#include "launcher/LauncherState.h"

#include <filesystem>

namespace ovrin {

// False if the path is empty or seen to be absent. An entry that can't be tested (denied, network gone) counts as
// present: only what was seen to be gone is treated as gone.
[[nodiscard]] bool IsProjectPresent(const std::filesystem::path &path);

// True if the editor was started; otherwise the user has been told.
[[nodiscard]] bool OpenProjectFile(HWND window, const std::filesystem::path &path);

// Opens the selected row; destroys `window` when the editor has been started.
void OpenSelectedProject(HWND window, LauncherState &state);

} // namespace ovrin

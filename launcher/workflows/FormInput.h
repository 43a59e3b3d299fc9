// Reading the new-project form, and the location that it suggests.
#pragma once

#include "platform/text/WideText.h"
#include "platform/winapi/WinApi.h"

#include <filesystem>

namespace ovrin {

// The control's whole text up to its first zero unit; empty when it has none.
[[nodiscard]] WideText ReadFormText(HWND control);

// "Documents/OvrinProjects" under USERPROFILE, else "Projects" in the engine root. Neither tested nor created, and
// worked out anew each time. Raises what EnginePaths::GetEngineRoot raises.
[[nodiscard]] std::filesystem::path DefaultProjectLocation();

} // namespace ovrin

// Starting the editor beside the launcher, and the message box that all workflows share.
#pragma once

#include "platform/text/WideText.h"
#include "platform/winapi/WinApi.h"

#include <filesystem>
#include <optional>
#include <vector>

namespace ovrin {

struct LauncherMessage {
    const WideChar *title;
    const WideChar *text;
    UINT icon; // MB_ICONERROR, MB_ICONWARNING or MB_ICONINFORMATION
};

// Modal over `parent`, with one OK button.
void ShowLauncherMessage(HWND parent, const LauncherMessage &message);

// "OvrinEditor.exe" in the launcher's own folder; not tested. Raises what EnginePaths::GetExecutableDirectory raises.
[[nodiscard]] std::filesystem::path GetEditorPath();

// The path's text for the editor's command line. Nothing for a path that no text can stand for unchanged; the user
// has then been told that the launch failed.
[[nodiscard]] std::optional<WideText> EditorPathArgument(HWND parent, const std::filesystem::path &path);

// Starts the editor in its own folder and lets it go. False: it didn't start and the user has been told; never raises.
[[nodiscard]] bool LaunchEditor(HWND parent, const std::vector<WideText> &arguments);

} // namespace ovrin

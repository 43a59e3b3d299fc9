// The one record of the launcher's window, and the fixed ids of its controls.
// wWinMain owns it for the whole run; only the first thread touches it.
#pragma once

#include "core/recent/RecentProject.h"
#include "launcher/LauncherLayout.h"
#include "launcher/look/GdiHandles.h"
#include "platform/winapi/WinApi.h"

#include <cstdint>
#include <vector>

namespace ovrin {

namespace ControlId {
constexpr int projectName = 1001;
constexpr int location = 1002;
constexpr int browse = 1003;
constexpr int createProject = 1004;
constexpr int recentList = 1005;
constexpr int openSelected = 1006;
constexpr int openProject = 1007;
constexpr int removeMissing = 1008;
constexpr int quit = 1009;
constexpr int templateFace = 1010;
constexpr int templatePopup = 1011;
} // namespace ControlId

struct LauncherState {
    HWND mainWindow = nullptr; // null until WM_CREATE: before that a WM_SIZE has nothing to lay out
    HWND projectNameEdit = nullptr;
    HWND templateButton = nullptr; // the closed face of the template selector
    HWND templatePopup = nullptr;  // its open list
    HWND locationEdit = nullptr;
    HWND browseButton = nullptr;
    HWND createButton = nullptr;
    HWND recentList = nullptr;
    HWND openSelectedButton = nullptr;
    HWND openProjectButton = nullptr;
    HWND removeMissingButton = nullptr;
    HWND quitButton = nullptr;
    HWND hoveredControl = nullptr; // the button under the mouse, at most one

    // Made in WM_CREATE, released in WM_DESTROY.
    UniqueFont titleFont;
    UniqueFont bodyFont;
    UniqueFont labelFont;
    UniqueFont captionFont;
    UniqueBrush editBrush;
    UniqueBrush listBrush;

    LauncherLayout layout;
    std::vector<RecentProject> recentProjects; // row i of recentList is element i
    std::int32_t selectedTemplate = 0;         // row of the template table, 0 to 3; changed by a commit only
    bool templatePopupOpen = false;
};

} // namespace ovrin

// The window procedure of the launcher's one window.
#pragma once

#include "platform/winapi/WinApi.h"

namespace ovrin {

// The window's creation parameter is the LauncherState, which must outlive the window.
LRESULT CALLBACK LauncherWndProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) noexcept;

} // namespace ovrin

// The procedures in front of the controls' own: hover and focus of the buttons, focus and keys of the edits and lists.
// Their reference data is the LauncherState.
#pragma once

#include "platform/winapi/WinApi.h"

namespace ovrin {

LRESULT CALLBACK ButtonSubclassProc(HWND control, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR id,
                                    DWORD_PTR data) noexcept;
LRESULT CALLBACK InputSubclassProc(HWND control, UINT message, WPARAM wParam, LPARAM lParam, UINT_PTR id,
                                   DWORD_PTR data) noexcept;

} // namespace ovrin

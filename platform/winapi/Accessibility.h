// The name by which a screen reader announces a control that has no text of its own.
#pragma once

#include "platform/winapi/WinApi.h"

// Copies `name`. Without effect on a null window, and where the platform takes no such name.
void SetAccessibleName(HWND window, LPCWSTR name);

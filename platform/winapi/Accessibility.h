// The names by which a screen reader announces controls that have no text of their own.
#pragma once

#include "platform/winapi/WinApi.h"

#include <vector>

struct AccessibleName {
    HWND window;
    LPCWSTR name;
};

// Copies the names. Without effect on null windows, and where the platform takes no such names.
void SetAccessibleNames(const std::vector<AccessibleName> &names);

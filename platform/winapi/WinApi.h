// The platform interface that the whole system is written against: on Windows the system's own headers,
// elsewhere our subset with the same names, types, constants and results. Callers include this file alone.
#pragma once

#ifdef _WIN32

#ifndef NOMINMAX
#define NOMINMAX
#endif
#ifndef WIN32_LEAN_AND_MEAN
#define WIN32_LEAN_AND_MEAN
#endif

#include <windows.h>

#include <algorithm>
#include <commctrl.h>
#include <dwmapi.h>
#include <objbase.h>
#include <shellapi.h>
#include <shlobj.h>

// The system's drawing headers call min and max unqualified, which NOMINMAX takes away.
namespace Gdiplus {
using std::max;
using std::min;
} // namespace Gdiplus
#include <gdiplus.h>

// What is younger than MinGW's headers.
extern "C" WINBASEAPI HRESULT WINAPI SetThreadDescription(HANDLE thread, PCWSTR description);
#ifndef DWMWA_USE_IMMERSIVE_DARK_MODE
#define DWMWA_USE_IMMERSIVE_DARK_MODE 20
#endif
#ifndef DWMWA_WINDOW_CORNER_PREFERENCE
#define DWMWA_WINDOW_CORNER_PREFERENCE 33
#endif
#ifndef DWMWCP_ROUND
#define DWMWCP_ROUND 2
#endif

#else

#include "platform/winapi/subset/Types.h"

#include "platform/winapi/subset/Com.h"
#include "platform/winapi/subset/Controls.h"
#include "platform/winapi/subset/Gdi.h"
#include "platform/winapi/subset/GdiPlus.h"
#include "platform/winapi/subset/System.h"
#include "platform/winapi/subset/Window.h"

#endif

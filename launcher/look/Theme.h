// The launcher's one dark palette. COLORREF values: 0x00BBGGRR.
#pragma once

#include "platform/winapi/WinApi.h"

namespace ovrin::Theme {

constexpr COLORREF windowBase = 0x120C09;
constexpr COLORREF newProjectCard = 0x231914;
constexpr COLORREF recentCard = 0x1E1511;
constexpr COLORREF field = 0x160F0B; // also the background of both lists
constexpr COLORREF primaryText = 0xFBF5F1;
constexpr COLORREF mutedText = 0xB9A093;
constexpr COLORREF faintText = 0x8E796E;

} // namespace ovrin::Theme

// The launcher's one dark palette, and arithmetic on colours. COLORREF values: 0x00BBGGRR.
#pragma once

#include "platform/winapi/WinApi.h"

namespace ovrin {

namespace Theme {

constexpr COLORREF windowBase = 0x120C09;
constexpr COLORREF newProjectCard = 0x231914;
constexpr COLORREF recentCard = 0x1E1511;
constexpr COLORREF quietBorder = 0x4B3930; // of the cards and of the recent list's frame
constexpr COLORREF field = 0x160F0B;       // also the background of both lists
constexpr COLORREF fieldBorder = 0x5E493E;
constexpr COLORREF orange = 0x2C84F2;
constexpr COLORREF blue = 0xFF9C2E;
constexpr COLORREF primaryText = 0xFBF5F1;
constexpr COLORREF mutedText = 0xB9A093;
constexpr COLORREF faintText = 0x8E796E;

} // namespace Theme

// Opaque, in the order of the drawing library: 0xAARRGGBB.
[[nodiscard]] constexpr Gdiplus::ARGB ToArgb(COLORREF colour) {
    const COLORREF red = colour & 0xFFU, green = (colour >> 8U) & 0xFFU, blue = (colour >> 16U) & 0xFFU;
    return 0xFF000000U | red << 16U | green << 8U | blue;
}

// `amount` of the way from one colour to the other, 0 to 1. Fractions of a channel are cut off, not rounded.
[[nodiscard]] constexpr COLORREF MixColour(COLORREF from, COLORREF to, float amount) {
    COLORREF mixed = 0;
    for (unsigned shift = 0; shift <= 16; shift += 8) {
        const auto start = static_cast<float>((from >> shift) & 0xFFU);
        const auto end = static_cast<float>((to >> shift) & 0xFFU);
        const auto channel = static_cast<int>((end - start) * amount + start);
        mixed |= (static_cast<COLORREF>(channel) & 0xFFU) << shift;
    }
    return mixed;
}

} // namespace ovrin

// Every rectangle of the launcher's window, as a pure function of its client size.
#pragma once

#include "platform/winapi/WinApi.h"

#include <cstdint>

namespace ovrin {

// Client pixels; right and bottom are exclusive. All zero until the first computation.
struct LauncherLayout {
    RECT newProjectCardRect{};
    RECT newProjectTitleRect{};
    RECT nameLabelRect{};
    RECT nameFieldRect{};
    RECT nameEditRect{};
    RECT templateLabelRect{};
    RECT templateFieldRect{};
    RECT templateFaceRect{};
    RECT templatePopupRect{};
    RECT locationLabelRect{};
    RECT locationFieldRect{};
    RECT locationEditRect{};
    RECT browseButtonRect{};
    RECT createButtonRect{};
    RECT recentCardRect{};
    RECT recentTitleRect{};
    RECT recentSubtitleRect{};
    RECT recentFrameRect{};
    RECT recentListRect{};
    RECT emptyTextRect{};
    RECT openSelectedButtonRect{};
    RECT openProjectButtonRect{};
    RECT removeMissingButtonRect{};
    RECT quitButtonRect{};
    std::int32_t recentRowHeight = 64; // 72 after the first computation
};

// Of the template popup; the recent list's is part of the layout.
constexpr std::int32_t templateRowHeight = 40;

// Reads only the width and the height of `clientRect`. A small client gives inverted rectangles, as they are.
[[nodiscard]] LauncherLayout ComputeLauncherLayout(const RECT &clientRect);

} // namespace ovrin

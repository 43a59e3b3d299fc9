// Two rules of the start-up that need no platform.
#pragma once

#include "platform/winapi/WinApi.h"

#include <cstdint>

namespace ovrin {

// A launcher started minimised opens normally; every other value passes unchanged.
[[nodiscard]] constexpr int ResolveShowCommand(int showCommand) {
    return showCommand == SW_SHOWMINIMIZED ? SW_SHOWNORMAL : showCommand;
}

// Where a window of that extent is centred on the screen, truncated toward zero and never negative.
[[nodiscard]] constexpr std::int32_t CentredOrigin(std::int32_t screenExtent, std::int32_t windowExtent) {
    const std::int32_t origin = (screenExtent - windowExtent) / 2;
    return origin < 0 ? 0 : origin;
}

} // namespace ovrin

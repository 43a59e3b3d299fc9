// For tests alone: the toolkit's widget behind a window handle, and counts of what the layer's tables hold.
#pragma once

#include "platform/winapi/subset/Types.h"

#include <cstddef>

class QWidget;

namespace ovrin::layer {

// Null for a handle that is null or stale. A test drives the widget (or its window) with the toolkit's own test events.
QWidget *WidgetOf(HWND window);

// Objects that exist now. Stock objects and registered classes aren't counted: they last as long as the process.
struct LiveCounts {
    std::size_t windows = 0;
    std::size_t contexts = 0;
    std::size_t brushes = 0;
    std::size_t pens = 0;
    std::size_t fonts = 0;
    std::size_t bitmaps = 0;
    std::size_t shapes = 0;
    std::size_t comObjects = 0;

    bool operator==(const LiveCounts &) const = default;
};
LiveCounts CountLiveObjects();

} // namespace ovrin::layer

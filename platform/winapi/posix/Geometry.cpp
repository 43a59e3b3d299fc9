// Arithmetic on numbers and rectangles.
#include "platform/winapi/subset/Gdi.h"
#include "platform/winapi/subset/Window.h"

#include <cstdint>
#include <cstdlib>
#include <limits>

int MulDiv(int number, int numerator, int denominator) {
    if (denominator == 0) {
        return -1;
    }
    const std::int64_t product = std::int64_t{number} * numerator;
    const std::int64_t divisor = std::abs(std::int64_t{denominator});
    const std::int64_t magnitude = (std::abs(product) + divisor / 2) / divisor;
    if (magnitude > std::numeric_limits<int>::max()) {
        return -1;
    }
    return static_cast<int>((product < 0) != (denominator < 0) ? -magnitude : magnitude);
}

BOOL InflateRect(RECT *rect, int dx, int dy) {
    if (rect == nullptr) {
        return FALSE;
    }
    *rect = {rect->left - dx, rect->top - dy, rect->right + dx, rect->bottom + dy};
    return TRUE;
}

BOOL PtInRect(const RECT *rect, POINT point) {
    return rect != nullptr && point.x >= rect->left && point.x < rect->right && point.y >= rect->top &&
                   point.y < rect->bottom
               ? TRUE
               : FALSE;
}

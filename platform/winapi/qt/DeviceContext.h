// Device contexts over the toolkit's painters, and what the rest of the layer asks of drawing objects.
#pragma once

#include "platform/winapi/subset/Gdi.h"

#include <QColor>
#include <QFont>

class QPainter;

namespace ovrin::layer {

// A context over `painter` from here to the end of the scope; the painter must live longer.
class ContextScope {
public:
    explicit ContextScope(QPainter &painter);
    ContextScope(const ContextScope &) = delete;
    ContextScope &operator=(const ContextScope &) = delete;
    ~ContextScope();

    [[nodiscard]] HDC dc() const { return dc_; }
    [[nodiscard]] QColor TextColour() const;

private:
    HDC dc_;
};

// Invalid for a null or stale brush.
[[nodiscard]] QColor BrushColour(HBRUSH brush);

// The toolkit's default font for a null or stale font.
[[nodiscard]] QFont FontOf(HFONT font);

struct DrawingCounts {
    std::size_t contexts;
    std::size_t brushes;
    std::size_t pens;
    std::size_t fonts;
    std::size_t bitmaps;
    std::size_t shapes; // what smooth shapes are drawn with and on
};
[[nodiscard]] DrawingCounts CountDrawingObjects();

} // namespace ovrin::layer

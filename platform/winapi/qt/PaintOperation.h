// A painter for one drawing operation of a context: the widget's own, put back as it was, or one over the bitmap.
#pragma once

#include "platform/winapi/qt/GdiObjects.h"

#include <QPainter>
#include <optional>

namespace ovrin::layer {

class PaintOperation {
public:
    // Without smooth edges: they are whole pixels.
    explicit PaintOperation(const Context &context);
    PaintOperation(const PaintOperation &) = delete;
    PaintOperation &operator=(const PaintOperation &) = delete;
    ~PaintOperation();

    // False where there is nothing to draw on.
    explicit operator bool() const { return painter_ != nullptr; }
    QPainter *operator->() const { return painter_; }

private:
    std::optional<QPainter> own_;
    QPainter *painter_;
};

} // namespace ovrin::layer

// The records behind the pointers of the flat drawing library, and the tables that own them.
#pragma once

#include "platform/winapi/qt/HandleTable.h"
#include "platform/winapi/subset/Gdi.h"
#include "platform/winapi/subset/GdiPlus.h"

#include <QColor>
#include <QPainterPath>

namespace ovrin::layer {

struct ShapeGraphics {
    HDC dc = nullptr;
    bool smooth = false;
};

struct ShapePath {
    QPainterPath path;
    bool figureOpen = false; // what comes next is joined to it by a line
};

struct ShapePen {
    QColor colour;
    qreal width = 0;
};

struct ShapeBrush {
    QColor colour;
};

struct ShapeTables {
    HandleTable<Gdiplus::GpGraphics *, ShapeGraphics> graphics;
    HandleTable<Gdiplus::GpPath *, ShapePath> paths;
    HandleTable<Gdiplus::GpPen *, ShapePen> pens;
    HandleTable<Gdiplus::GpSolidFill *, ShapeBrush> brushes;
};
[[nodiscard]] ShapeTables &Shapes();

[[nodiscard]] std::size_t CountShapeObjects();

} // namespace ovrin::layer

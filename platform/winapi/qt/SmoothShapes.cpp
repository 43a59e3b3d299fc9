// The flat drawing library's shapes: paths of arcs, filled or outlined, and filled rectangles, in solid colours. The
// library counts coordinates from the middle of a pixel, the toolkit from its corner; only a filled rectangle covers
// whole pixels. Not here: transforms, clipping, images, text, gradients, dashes, other parts of a path. The quality of
// interpolation and of compositing is taken and makes no difference to opaque shapes.
#include "platform/winapi/qt/GdiObjects.h"
#include "platform/winapi/qt/PaintOperation.h"
#include "platform/winapi/qt/ShapeObjects.h"

namespace ovrin::layer {

ShapeTables &Shapes() {
    static ShapeTables tables;
    return tables;
}

std::size_t CountShapeObjects() {
    const ShapeTables &tables = Shapes();
    return tables.graphics.Count() + tables.paths.Count() + tables.pens.Count() + tables.brushes.Count();
}

} // namespace ovrin::layer

namespace Gdiplus::DllExports {

namespace {

using namespace ovrin::layer;

constexpr qreal pixelMiddle = 0.5;

template<typename Handle, typename Object>
GpStatus Give(HandleTable<Handle, Object> &table, Handle *handle, Object object) {
    if (handle == nullptr) {
        return InvalidParameter;
    }
    *handle = table.Add(std::make_unique<Object>(std::move(object)));
    return Ok;
}

template<typename Handle, typename Object>
GpStatus Take(HandleTable<Handle, Object> &table, const void *handle) {
    const bool found = Resolve(table, handle) != nullptr && table.Remove(handle) != nullptr;
    return found ? Ok : InvalidParameter;
}

// Calls `draw` with a painter, unless one of the objects isn't there.
template<typename Draw>
GpStatus DrawOn(const GpGraphics *graphics, bool complete, const Draw &draw) {
    const ShapeGraphics *target = Resolve(Shapes().graphics, graphics);
    const Context *context = target != nullptr ? Resolve(Tables().contexts, target->dc) : nullptr;
    if (context == nullptr || !complete) {
        return InvalidParameter;
    }
    const PaintOperation painter(*context);
    if (painter) {
        painter->setRenderHint(QPainter::Antialiasing, target->smooth);
        draw(*painter.operator->());
    }
    return Ok;
}

// The toolkit's own outline of an arc is off by up to a quarter of a pixel, which shows at its ends.
QPainterPath Outline(const QPainterPath &path, qreal width) {
    constexpr qreal error = 0.02;
    QPainterPathStroker stroker;
    stroker.setWidth(width);
    stroker.setCapStyle(Qt::FlatCap);
    stroker.setJoinStyle(Qt::MiterJoin);
    stroker.setCurveThreshold(error);
    return stroker.createStroke(path);
}

// So far only one value is asked for.
GpStatus TakeQuality(const GpGraphics *graphics, [[maybe_unused]] bool known) {
    assert(known);
    return Resolve(Shapes().graphics, graphics) != nullptr ? Ok : InvalidParameter;
}

} // namespace

GpStatus GdipCreateFromHDC(HDC dc, GpGraphics **graphics) {
    const bool present = Resolve(Tables().contexts, dc) != nullptr;
    return present ? Give(Shapes().graphics, graphics, {.dc = dc}) : InvalidParameter;
}

GpStatus GdipDeleteGraphics(GpGraphics *graphics) {
    return Take(Shapes().graphics, graphics);
}

GpStatus GdipSetSmoothingMode(GpGraphics *graphics, [[maybe_unused]] SmoothingMode mode) {
    assert(mode == SmoothingModeAntiAlias);
    ShapeGraphics *target = Resolve(Shapes().graphics, graphics);
    if (target == nullptr) {
        return InvalidParameter;
    }
    target->smooth = true;
    return Ok;
}

GpStatus GdipSetInterpolationMode(GpGraphics *graphics, InterpolationMode mode) {
    return TakeQuality(graphics, mode == InterpolationModeHighQualityBicubic);
}

GpStatus GdipSetCompositingQuality(GpGraphics *graphics, CompositingQuality quality) {
    return TakeQuality(graphics, quality == CompositingQualityHighQuality);
}

GpStatus GdipCreatePath([[maybe_unused]] GpFillMode mode, GpPath **path) {
    assert(mode == FillModeAlternate);
    return Give(Shapes().paths, path, {});
}

GpStatus GdipDeletePath(GpPath *path) {
    return Take(Shapes().paths, path);
}

GpStatus GdipAddPathArc(GpPath *path, REAL x, REAL y, REAL width, REAL height, REAL startAngle, REAL sweepAngle) {
    ShapePath *target = Resolve(Shapes().paths, path);
    if (target == nullptr) {
        return InvalidParameter;
    }
    const QRectF box(x, y, width, height);
    if (!std::exchange(target->figureOpen, true)) {
        target->path.arcMoveTo(box, -startAngle); // the toolkit turns the other way
    }
    target->path.arcTo(box, -startAngle, -sweepAngle);
    return Ok;
}

GpStatus GdipClosePathFigure(GpPath *path) {
    ShapePath *target = Resolve(Shapes().paths, path);
    if (target == nullptr) {
        return InvalidParameter;
    }
    target->path.closeSubpath();
    target->figureOpen = false;
    return Ok;
}

GpStatus GdipCreateSolidFill(ARGB colour, GpSolidFill **brush) {
    return Give(Shapes().brushes, brush, {QColor::fromRgba(colour)});
}

GpStatus GdipDeleteBrush(GpBrush *brush) {
    return Take(Shapes().brushes, brush);
}

GpStatus GdipCreatePen1(ARGB colour, REAL width, [[maybe_unused]] GpUnit unit, GpPen **pen) {
    assert(unit == UnitWorld && width > 0);
    return Give(Shapes().pens, pen, {QColor::fromRgba(colour), width});
}

GpStatus GdipDeletePen(GpPen *pen) {
    return Take(Shapes().pens, pen);
}

GpStatus GdipFillPath(GpGraphics *graphics, GpBrush *brush, GpPath *path) {
    const ShapeBrush *paint = Resolve(Shapes().brushes, brush);
    const ShapePath *shape = Resolve(Shapes().paths, path);
    return DrawOn(graphics, paint != nullptr && shape != nullptr, [&](QPainter &painter) {
        painter.translate(pixelMiddle, pixelMiddle);
        painter.fillPath(shape->path, paint->colour);
    });
}

GpStatus GdipDrawPath(GpGraphics *graphics, GpPen *pen, GpPath *path) {
    const ShapePen *line = Resolve(Shapes().pens, pen);
    const ShapePath *shape = Resolve(Shapes().paths, path);
    return DrawOn(graphics, line != nullptr && shape != nullptr, [&](QPainter &painter) {
        painter.translate(pixelMiddle, pixelMiddle);
        painter.fillPath(Outline(shape->path, line->width), line->colour);
    });
}

GpStatus GdipFillRectangle(GpGraphics *graphics, GpBrush *brush, REAL x, REAL y, REAL width, REAL height) {
    const ShapeBrush *paint = Resolve(Shapes().brushes, brush);
    return DrawOn(graphics, paint != nullptr, [&](QPainter &painter) {
        if (width > 0 && height > 0) {
            painter.fillRect(QRectF(x, y, width, height), paint->colour);
        }
    });
}

} // namespace Gdiplus::DllExports

// Solid brushes and pens, the one stock brush that is asked for, selection and deletion of drawing objects.
// An object that is selected can't be deleted, and a bitmap is selected in one memory context at a time.
// Not here: patterns, other styles of pen, regions, palettes, other stock objects.
#include "platform/winapi/qt/GdiObjects.h"

#include "platform/winapi/qt/DeviceContext.h"
#include "platform/winapi/qt/ShapeObjects.h"

namespace {

using namespace ovrin::layer;

template<typename Handle, typename Object>
Handle Exchange(const HandleTable<Handle, Object> &table, Handle &selected, HGDIOBJ object) {
    if (Object *old = table.Find(selected)) {
        --old->selections;
    }
    if (Object *next = table.Find(object)) {
        ++next->selections;
    }
    return std::exchange(selected, static_cast<Handle>(object));
}

HBITMAP ExchangeBitmap(Context &context, HGDIOBJ object) {
    const DrawingTables &tables = Tables();
    const bool elsewhere =
        object != context.bitmap && object != tables.onePixel && tables.bitmaps.Find(object)->selections > 0;
    if (context.painter != nullptr || elsewhere) {
        return nullptr;
    }
    return Exchange(tables.bitmaps, context.bitmap, object);
}

template<typename Handle, typename Object>
BOOL Delete(HandleTable<Handle, Object> &table, HGDIOBJ object) {
    const Object *found = table.Find(object);
    const bool selected = found != nullptr && found->selections > 0;
    assert(!selected && "an object that is still selected");
    return !selected && table.Remove(object) != nullptr;
}

bool IsStock(const DrawingTables &tables, HGDIOBJ object) {
    return object == tables.blackBrush || object == tables.whiteBrush || object == tables.blackPen ||
           object == tables.defaultFont || object == tables.onePixel;
}

} // namespace

namespace ovrin::layer {

DrawingTables &Tables() {
    static DrawingTables tables;
    return tables;
}

HDC AddContext(QPainter *painter, HBITMAP bitmap) {
    const DrawingTables &tables = Tables();
    auto context = std::make_unique<Context>();
    context->painter = painter;
    Exchange(tables.bitmaps, context->bitmap, bitmap);
    Exchange(tables.brushes, context->brush, tables.whiteBrush);
    Exchange(tables.pens, context->pen, tables.blackPen);
    Exchange(tables.fonts, context->font, tables.defaultFont);
    return Tables().contexts.Add(std::move(context));
}

void RemoveContext(HDC dc) {
    DrawingTables &tables = Tables();
    if (const auto context = tables.contexts.Remove(dc)) {
        Exchange(tables.bitmaps, context->bitmap, nullptr);
        Exchange(tables.brushes, context->brush, nullptr);
        Exchange(tables.pens, context->pen, nullptr);
        Exchange(tables.fonts, context->font, nullptr);
    }
}

QColor BrushColour(HBRUSH brush) {
    const Brush *found = Tables().brushes.Find(brush);
    return found != nullptr ? found->colour : QColor{};
}

DrawingCounts CountDrawingObjects() {
    constexpr std::size_t stockBrushes = 2, stockPens = 1, stockFonts = 1, stockBitmaps = 1;
    const DrawingTables &tables = Tables();
    return {.contexts = tables.contexts.Count(),
            .brushes = tables.brushes.Count() - stockBrushes,
            .pens = tables.pens.Count() - stockPens,
            .fonts = tables.fonts.Count() - stockFonts,
            .bitmaps = tables.bitmaps.Count() - stockBitmaps,
            .shapes = CountShapeObjects()};
}

} // namespace ovrin::layer

HBRUSH CreateSolidBrush(COLORREF colour) {
    return Tables().brushes.Add(std::make_unique<Brush>(Brush{ColourOf(colour)}));
}

HPEN CreatePen([[maybe_unused]] int style, int width, COLORREF colour) {
    assert(style == PS_SOLID && width > 0);
    return Tables().pens.Add(std::make_unique<Pen>(Pen{ColourOf(colour), width}));
}

HGDIOBJ GetStockObject([[maybe_unused]] int index) {
    assert(index == BLACK_BRUSH);
    return index == BLACK_BRUSH ? Tables().blackBrush : nullptr;
}

BOOL DeleteObject(HGDIOBJ object) {
    DrawingTables &tables = Tables();
    if (IsStock(tables, object)) {
        return TRUE; // as the platform answers; the object stays
    }
    return Delete(tables.brushes, object) || Delete(tables.pens, object) || Delete(tables.fonts, object) ||
           Delete(tables.bitmaps, object);
}

HGDIOBJ SelectObject(HDC dc, HGDIOBJ object) {
    const DrawingTables &tables = Tables();
    Context *context = Resolve(tables.contexts, dc);
    if (context == nullptr || object == nullptr) {
        return nullptr;
    }
    if (tables.brushes.Find(object) != nullptr) {
        return Exchange(tables.brushes, context->brush, object);
    }
    if (tables.pens.Find(object) != nullptr) {
        return Exchange(tables.pens, context->pen, object);
    }
    if (tables.fonts.Find(object) != nullptr) {
        return Exchange(tables.fonts, context->font, object);
    }
    return Resolve(tables.bitmaps, object) != nullptr ? ExchangeBitmap(*context, object) : nullptr;
}

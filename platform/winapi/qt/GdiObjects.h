// The records behind the handles of contexts, brushes, pens, fonts and bitmaps, and the tables that own them.
// Like all windows and drawing, on the first thread only.
#pragma once

#include "platform/winapi/qt/HandleTable.h"
#include "platform/winapi/subset/Gdi.h"

#include <QColor>
#include <QFont>
#include <QImage>
#include <cassert>
#include <memory>

class QPainter;

namespace ovrin::layer {

inline QColor ColourOf(COLORREF colour) {
    const auto channel = [colour](unsigned shift) { return static_cast<int>((colour >> shift) & 0xFFU); };
    return QColor::fromRgb(channel(0), channel(8), channel(16));
}

// `selections`: in how many contexts an object is selected now.
struct Brush {
    QColor colour;
    int selections = 0;
};

struct Pen {
    QColor colour;
    int width;
    int selections = 0;
};

struct Font {
    QFont font;
    int selections = 0;
};

struct Bitmap {
    QImage image;
    int selections = 0;
};

// Over a widget's painter, without a bitmap; or over a bitmap, without a painter of its own.
struct Context {
    QPainter *painter = nullptr;
    HBITMAP bitmap = nullptr;
    HBRUSH brush = nullptr;
    HPEN pen = nullptr;
    HFONT font = nullptr;
    COLORREF textColour = 0x000000;
    COLORREF backColour = 0xFFFFFF;
    int backMode = OPAQUE;
};

// With the stock objects, which a new context starts with; they are never deleted and not counted.
struct DrawingTables {
    HandleTable<HDC, Context> contexts;
    HandleTable<HBRUSH, Brush> brushes;
    HandleTable<HPEN, Pen> pens;
    HandleTable<HFONT, Font> fonts;
    HandleTable<HBITMAP, Bitmap> bitmaps;

    HBRUSH blackBrush = brushes.Add(std::make_unique<Brush>(Brush{Qt::black}));
    HBRUSH whiteBrush = brushes.Add(std::make_unique<Brush>(Brush{Qt::white}));
    HPEN blackPen = pens.Add(std::make_unique<Pen>(Pen{Qt::black, 1}));
    HFONT defaultFont = fonts.Add(std::make_unique<Font>());    // stands for the toolkit's font of the moment
    HBITMAP onePixel = bitmaps.Add(std::make_unique<Bitmap>()); // drawing on it would show nowhere: an empty image
};
[[nodiscard]] DrawingTables &Tables();

// Null for a null handle, as the platform has it; any other handle that isn't in the table is the caller's fault.
template<typename Handle, typename Object>
[[nodiscard]] Object *Resolve(const HandleTable<Handle, Object> &table, const void *handle) {
    Object *object = table.Find(handle);
    assert((object != nullptr || handle == nullptr) && "a stale handle, or one of another kind");
    return object;
}

// A context with the stock objects selected.
[[nodiscard]] HDC AddContext(QPainter *painter, HBITMAP bitmap);

// Lets go of what is selected; the handle is stale from here on.
void RemoveContext(HDC dc);

} // namespace ovrin::layer

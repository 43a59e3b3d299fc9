// Contexts over a widget's painter and over bitmaps in memory: colours, background mode, solid rectangles, plain
// copies. A bitmap has the pixel density of the context that it was made for, so that nothing is blurred on a dense
// screen. Not here: contexts of windows outside WM_PAINT, clipping, other raster operations, stretching, monochrome
// bitmaps.
#include "platform/winapi/qt/DeviceContext.h"

#include "platform/winapi/qt/GdiObjects.h"
#include "platform/winapi/qt/PaintOperation.h"

namespace ovrin::layer {

PaintOperation::PaintOperation(const Context &context) : painter_(context.painter) {
    if (Bitmap *bitmap = Tables().bitmaps.Find(context.bitmap); bitmap != nullptr && !bitmap->image.isNull()) {
        painter_ = &own_.emplace(&bitmap->image);
    }
    if (painter_ != nullptr) {
        painter_->save();
        painter_->setRenderHint(QPainter::Antialiasing, false);
    }
}

PaintOperation::~PaintOperation() {
    if (painter_ != nullptr) {
        painter_->restore();
    }
}

ContextScope::ContextScope(QPainter &painter) : dc_(AddContext(&painter, nullptr)) {}

ContextScope::~ContextScope() {
    RemoveContext(dc_);
}

QColor ContextScope::TextColour() const {
    const Context *context = Tables().contexts.Find(dc_);
    return context != nullptr ? ColourOf(context->textColour) : QColor{};
}

} // namespace ovrin::layer

namespace {

using namespace ovrin::layer;

constexpr COLORREF invalidColour = 0xFFFFFFFF;

Context *ContextOf(HDC dc) {
    return Resolve(Tables().contexts, dc);
}

qreal DensityOf(const Context &context) {
    if (context.painter != nullptr) {
        return context.painter->device()->devicePixelRatioF();
    }
    return Tables().bitmaps.Find(context.bitmap)->image.devicePixelRatio();
}

QImage BlackImage(QSizeF size, qreal density) {
    QImage image(QSizeF(size * density).toSize(), QImage::Format_RGB32);
    image.setDevicePixelRatio(density);
    image.fill(Qt::black);
    return image;
}

} // namespace

HDC CreateCompatibleDC(HDC dc) {
    const bool stale = ContextOf(dc) == nullptr && dc != nullptr;
    return stale ? nullptr : AddContext(nullptr, Tables().onePixel);
}

BOOL DeleteDC(HDC dc) {
    const Context *context = ContextOf(dc);
    assert((context == nullptr || context->painter == nullptr) && "a context that the platform gave");
    if (context == nullptr || context->painter != nullptr) {
        return FALSE;
    }
    RemoveContext(dc);
    return TRUE;
}

HBITMAP CreateCompatibleBitmap(HDC dc, int width, int height) {
    const Context *context = ContextOf(dc);
    if (context == nullptr || width <= 0 || height <= 0) {
        return nullptr;
    }
    assert(context->bitmap != Tables().onePixel && "the platform's result would be monochrome");
    QImage image = BlackImage(QSizeF(width, height), DensityOf(*context));
    return image.isNull() ? nullptr : Tables().bitmaps.Add(std::make_unique<Bitmap>(Bitmap{std::move(image)}));
}

BOOL BitBlt(HDC target, int x, int y, int width, int height, HDC source, int sourceX, int sourceY,
            [[maybe_unused]] DWORD operation) {
    const Context *to = ContextOf(target);
    const Context *from = ContextOf(source);
    assert(operation == SRCCOPY && (from == nullptr || from->bitmap != nullptr));
    if (to == nullptr || from == nullptr || from->bitmap == nullptr || operation != SRCCOPY) {
        return FALSE;
    }
    // A reference of its own: a copy within one bitmap reads what was there before.
    const QImage image = Tables().bitmaps.Find(from->bitmap)->image;
    const PaintOperation painter(*to);
    if (painter && !image.isNull() && width > 0 && height > 0) {
        const qreal density = image.devicePixelRatio();
        painter->drawImage(QRectF(x, y, width, height), image,
                           QRectF(sourceX * density, sourceY * density, width * density, height * density));
    }
    return TRUE;
}

int SetBkMode(HDC dc, int mode) {
    Context *context = ContextOf(dc);
    const bool known = mode == TRANSPARENT || mode == OPAQUE;
    return context != nullptr && known ? std::exchange(context->backMode, mode) : 0;
}

COLORREF SetTextColor(HDC dc, COLORREF colour) {
    Context *context = ContextOf(dc);
    return context != nullptr ? std::exchange(context->textColour, colour) : invalidColour;
}

COLORREF SetBkColor(HDC dc, COLORREF colour) {
    Context *context = ContextOf(dc);
    return context != nullptr ? std::exchange(context->backColour, colour) : invalidColour;
}

int FillRect(HDC dc, const RECT *rect, HBRUSH brush) {
    const Context *context = ContextOf(dc);
    const Brush *paint = Resolve(Tables().brushes, brush);
    if (context == nullptr || rect == nullptr || paint == nullptr) {
        return 0;
    }
    const QRect area(QPoint(rect->left, rect->top), QPoint(rect->right - 1, rect->bottom - 1));
    if (const PaintOperation painter(*context); painter && area.isValid()) {
        painter->fillRect(area, paint->colour);
    }
    return 1;
}

// Scopes that own drawing objects of the platform: each undoes exactly what it did.
#pragma once

#include "platform/winapi/WinApi.h"

#include <utility>

namespace ovrin {

// Owns a brush, font, pen or bitmap; it must not be selected into a context any more when it goes.
template<typename Handle>
class UniqueGdiObject {
public:
    UniqueGdiObject() = default;
    explicit UniqueGdiObject(Handle handle) noexcept : handle_(handle) {}
    UniqueGdiObject(UniqueGdiObject &&other) noexcept : handle_(std::exchange(other.handle_, nullptr)) {}
    UniqueGdiObject &operator=(UniqueGdiObject &&other) noexcept {
        reset(std::exchange(other.handle_, nullptr));
        return *this;
    }
    UniqueGdiObject(const UniqueGdiObject &) = delete;
    UniqueGdiObject &operator=(const UniqueGdiObject &) = delete;
    ~UniqueGdiObject() { reset(); }

    [[nodiscard]] Handle get() const noexcept { return handle_; }
    void reset(Handle handle = nullptr) noexcept {
        if (const Handle old = std::exchange(handle_, handle)) {
            DeleteObject(old);
        }
    }

private:
    Handle handle_ = nullptr;
};

using UniqueBrush = UniqueGdiObject<HBRUSH>;
using UniquePen = UniqueGdiObject<HPEN>;
using UniqueFont = UniqueGdiObject<HFONT>;
using UniqueBitmap = UniqueGdiObject<HBITMAP>;

// Keeps an object selected into a context and puts the old one back.
class SelectionScope {
public:
    SelectionScope(HDC dc, HGDIOBJ object) noexcept : dc_(dc), old_(SelectObject(dc, object)) {}
    SelectionScope(const SelectionScope &) = delete;
    SelectionScope &operator=(const SelectionScope &) = delete;
    ~SelectionScope() { SelectObject(dc_, old_); }

private:
    HDC dc_;
    HGDIOBJ old_;
};

// BeginPaint to EndPaint.
class PaintScope {
public:
    explicit PaintScope(HWND window) noexcept : window_(window), dc_(BeginPaint(window, &paint_)) {}
    PaintScope(const PaintScope &) = delete;
    PaintScope &operator=(const PaintScope &) = delete;
    ~PaintScope() { EndPaint(window_, &paint_); }

    [[nodiscard]] HDC dc() const noexcept { return dc_; }

private:
    HWND window_;
    PAINTSTRUCT paint_{};
    HDC dc_;
};

// A context in memory with a bitmap like the target's, to be copied out in one step.
class MemoryCanvas {
public:
    MemoryCanvas(HDC target, SIZE size) noexcept
        : dc_(CreateCompatibleDC(target)), bitmap_(CreateCompatibleBitmap(target, size.cx, size.cy)), size_(size),
          old_(SelectObject(dc_, bitmap_.get())) {}
    MemoryCanvas(const MemoryCanvas &) = delete;
    MemoryCanvas &operator=(const MemoryCanvas &) = delete;
    ~MemoryCanvas() {
        SelectObject(dc_, old_);
        bitmap_.reset();
        DeleteDC(dc_);
    }

    [[nodiscard]] HDC dc() const noexcept { return dc_; }
    void CopyTo(HDC target) const noexcept { BitBlt(target, 0, 0, size_.cx, size_.cy, dc_, 0, 0, SRCCOPY); }

private:
    HDC dc_;
    UniqueBitmap bitmap_;
    SIZE size_;
    HGDIOBJ old_;
};

// Smooth drawing on a context, which must live longer. What fails is noted and nothing more: a paint goes on with what
// remains.
class Graphics {
public:
    explicit Graphics(HDC dc) noexcept {
        Note(Gdiplus::DllExports::GdipCreateFromHDC(dc, &handle_));
        Note(Gdiplus::DllExports::GdipSetSmoothingMode(handle_, Gdiplus::SmoothingModeAntiAlias));
    }
    Graphics(const Graphics &) = delete;
    Graphics &operator=(const Graphics &) = delete;
    ~Graphics() { Gdiplus::DllExports::GdipDeleteGraphics(handle_); }

    [[nodiscard]] Gdiplus::GpGraphics *get() const noexcept { return handle_; }
    void Note(Gdiplus::GpStatus status) noexcept {
        if (firstFailure_ == Gdiplus::Ok) {
            firstFailure_ = status;
        }
    }
    [[nodiscard]] Gdiplus::GpStatus firstFailure() const noexcept { return firstFailure_; }

private:
    Gdiplus::GpGraphics *handle_ = nullptr;
    Gdiplus::GpStatus firstFailure_ = Gdiplus::Ok;
};

// Owns a path, pen or brush of smooth drawing; null where making it failed.
template<typename Object, auto Delete>
class UniqueShapeObject {
public:
    // `make` gives the object out through its argument; its status goes to `graphics`.
    template<typename Make>
    UniqueShapeObject(Graphics &graphics, const Make &make) noexcept {
        graphics.Note(make(&object_));
    }
    UniqueShapeObject(const UniqueShapeObject &) = delete;
    UniqueShapeObject &operator=(const UniqueShapeObject &) = delete;
    ~UniqueShapeObject() { Delete(object_); }

    [[nodiscard]] Object *get() const noexcept { return object_; }

private:
    Object *object_ = nullptr;
};

using UniquePath = UniqueShapeObject<Gdiplus::GpPath, &Gdiplus::DllExports::GdipDeletePath>;
using UniqueOutline = UniqueShapeObject<Gdiplus::GpPen, &Gdiplus::DllExports::GdipDeletePen>;
using UniqueFill = UniqueShapeObject<Gdiplus::GpSolidFill, &Gdiplus::DllExports::GdipDeleteBrush>;

} // namespace ovrin

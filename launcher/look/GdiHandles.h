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

} // namespace ovrin

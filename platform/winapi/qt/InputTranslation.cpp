#include "platform/winapi/qt/InputTranslation.h"

#include "platform/winapi/subset/Window.h"

#include <QFocusEvent>
#include <QKeyEvent>

#include <utility>

namespace ovrin::layer {

namespace {

constexpr WPARAM unassignedKey = 0xFF;

struct KeyPair {
    int toolkit;
    WPARAM virtualKey;
};

constexpr KeyPair keys[] = {
    {Qt::Key_Return, VK_RETURN}, {Qt::Key_Enter, VK_RETURN},  {Qt::Key_Escape, VK_ESCAPE}, {Qt::Key_Space, VK_SPACE},
    {Qt::Key_Tab, VK_TAB},       {Qt::Key_Up, VK_UP},         {Qt::Key_Down, VK_DOWN},     {Qt::Key_Left, VK_LEFT},
    {Qt::Key_Right, VK_RIGHT},   {Qt::Key_Home, VK_HOME},     {Qt::Key_End, VK_END},       {Qt::Key_PageUp, VK_PRIOR},
    {Qt::Key_PageDown, VK_NEXT}, {Qt::Key_Delete, VK_DELETE},
};

} // namespace

LPARAM PackPoint(const QPointF &point) {
    const QPoint pixel(static_cast<int>(point.x()), static_cast<int>(point.y()));
    return MAKELPARAM(static_cast<WORD>(pixel.x()), static_cast<WORD>(pixel.y()));
}

QPoint UnpackPoint(LPARAM packed) {
    const auto pair = static_cast<DWORD_PTR>(packed);
    return {static_cast<SHORT>(LOWORD(pair)), static_cast<SHORT>(HIWORD(pair))};
}

bool NotePress(HWND window) {
    static HWND last = nullptr;
    return std::exchange(last, window) == window;
}

WPARAM VirtualKey(const QKeyEvent &event) {
    for (const KeyPair &pair : keys) {
        if (pair.toolkit == event.key()) {
            return pair.virtualKey;
        }
    }
    return unassignedKey;
}

bool IsFocusChange(const QFocusEvent &event) {
    return event.reason() != Qt::PopupFocusReason && event.reason() != Qt::MenuBarFocusReason;
}

} // namespace ovrin::layer

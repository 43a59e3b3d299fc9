// The toolkit's input events in the platform's terms.
#pragma once

#include "platform/winapi/subset/Types.h"

#include <QPointF>

class QFocusEvent;
class QKeyEvent;

namespace ovrin::layer {

// Client pixels as two signed 16-bit values.
[[nodiscard]] LPARAM PackPoint(const QPointF &point);
[[nodiscard]] QPoint UnpackPoint(LPARAM packed);

// True if the press before this one was on the same window, without which no two presses are a double click: the first
// may have hidden the window that it was on.
bool NotePress(HWND window);

// Both Enter keys are VK_RETURN. Keys that nothing here asks for share one code that the platform leaves free.
[[nodiscard]] WPARAM VirtualKey(const QKeyEvent &event);

// A popup menu borrows the toolkit's focus, which is no change of focus to the platform.
[[nodiscard]] bool IsFocusChange(const QFocusEvent &event);

} // namespace ovrin::layer

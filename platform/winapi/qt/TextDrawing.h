// How a text is put into a box before it is drawn: its lines, and what stands in for what has no room.
#pragma once

#include "platform/winapi/subset/Types.h"

#include <QFontMetricsF>
#include <QStringList>

namespace ovrin::layer {

// The lines that DrawTextW draws for `text` in a box `width` pixels wide. A word wider than the box stays whole.
[[nodiscard]] QStringList FitText(const QString &text, const QFontMetricsF &metrics, int width, UINT format);

} // namespace ovrin::layer

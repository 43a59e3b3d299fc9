// Icons from the program's resources.
#pragma once

#include "platform/winapi/subset/Window.h"

#include <QIcon>

namespace ovrin::layer {

// An empty icon for a null handle.
[[nodiscard]] QIcon IconOf(HICON icon);

} // namespace ovrin::layer

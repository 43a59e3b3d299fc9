// Entries of the file system as objects, one or a list of them.
#pragma once

#include "platform/winapi/subset/Com.h"

#include <QString>
#include <QStringList>

#include <string>

namespace ovrin::layer {

// A new item; the caller owns its one reference. The path is a full one, in the system's bytes.
[[nodiscard]] IShellItem *NewShellItem(std::string path);

[[nodiscard]] IShellItemArray *NewShellItemArray(const QStringList &paths);

// The item's path in the toolkit's text. Empty for an item that can't give one.
[[nodiscard]] QString PathOf(IShellItem &item);

} // namespace ovrin::layer

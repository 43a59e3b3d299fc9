// The paths that the user has chosen, read from a dialog that has been closed.
#pragma once

#include "platform/dialogs/FileDialogRecords.h"
#include "platform/winapi/WinApi.h"

#include <string_view>

namespace ovrin {

// Exactly one path. `operation` names GetResult of the dialog's class, for a failure's text.
[[nodiscard]] FileDialogResult ReadOneSelection(IFileDialog &dialog, std::string_view operation);

// One path or more, in the dialog's order. One that can't be read fails the whole.
[[nodiscard]] FileDialogResult ReadAllSelections(IFileOpenDialog &dialog);

} // namespace ovrin

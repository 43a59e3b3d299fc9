// The drivers behind NativeFileDialog: each shows one dialog of the platform and gives a finished result. Which drivers
// are linked is the build's choice: those over COM, or those of a build that has no dialogs.
//
// A caller needs no COM set-up: a driver enters an apartment of the calling thread and leaves it again, whatever
// happens. The parent is the active window. Nothing is logged. Only an exhausted allocator raises.
#pragma once

#include "platform/dialogs/FileDialogRecords.h"

namespace ovrin {

[[nodiscard]] FileDialogResult RunFolderDialog(const FolderDialogRequest &request);
[[nodiscard]] FileDialogResult RunOpenDialog(const OpenFileDialogRequest &request, bool allowMultiple);
[[nodiscard]] FileDialogResult RunSaveDialog(const SaveFileDialogRequest &request);

} // namespace ovrin

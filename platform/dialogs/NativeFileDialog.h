// The platform's file dialogs. Each operation blocks the calling thread until the user has answered, and remembers
// nothing. A request that is refused and a platform that fails come back as a result, and as one line in the log.
#pragma once

#include "platform/dialogs/FileDialogRecords.h"

#include <optional>

namespace ovrin::NativeFileDialog {

// Accepted: exactly one path.
[[nodiscard]] FileDialogResult OpenFile(const OpenFileDialogRequest &request);

// Accepted: one path or more, in the order that the dialog reports them.
[[nodiscard]] FileDialogResult OpenFiles(const OpenFileDialogRequest &request);

// Accepted: exactly one path.
[[nodiscard]] FileDialogResult PickFolder(const FolderDialogRequest &request);

// Accepted: exactly one path; the user has agreed to overwrite what lies there. Nothing is written.
[[nodiscard]] FileDialogResult SaveFile(const SaveFileDialogRequest &request);

// Nothing unless the result was accepted.
[[nodiscard]] std::optional<std::filesystem::path> FirstPath(const FileDialogResult &result);

} // namespace ovrin::NativeFileDialog

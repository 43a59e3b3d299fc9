// The drivers of a build without a window system.
#include "platform/dialogs/ShellDialogs.h"

namespace ovrin {

namespace {

FileDialogResult Unavailable() {
    return {.status = FileDialogStatus::Unavailable,
            .paths = {},
            .message = "This program was built without a window system."};
}

} // namespace

FileDialogResult RunFolderDialog(const FolderDialogRequest & /*request*/) {
    return Unavailable();
}

FileDialogResult RunOpenDialog(const OpenFileDialogRequest & /*request*/, bool /*allowMultiple*/) {
    return Unavailable();
}

FileDialogResult RunSaveDialog(const SaveFileDialogRequest & /*request*/) {
    return Unavailable();
}

} // namespace ovrin

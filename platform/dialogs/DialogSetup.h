// What a dialog is given before it is shown.
#pragma once

#include "platform/dialogs/FileDialogRecords.h"
#include "platform/dialogs/FileTypeSpecTable.h"
#include "platform/winapi/WinApi.h"

#include <span>
#include <string_view>

namespace ovrin {

// The part that all requests share; refers to the request.
struct DialogContent {
    std::string_view title;
    const std::filesystem::path &defaultFolder;
    std::span<const FileDialogFilter> filters;
};

// Title, file types, starting folder. `fileTypes` takes the memory of the file types and has to outlive Show.
[[nodiscard]] FileDialogResult ConfigureDialog(IFileDialog &dialog, const DialogContent &content,
                                               FileTypeSpecTable &fileTypes);

// Default extension and suggested name.
[[nodiscard]] FileDialogResult ConfigureSaving(IFileDialog &dialog, const SaveFileDialogRequest &request);

} // namespace ovrin

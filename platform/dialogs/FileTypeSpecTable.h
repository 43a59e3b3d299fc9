// The memory behind a dialog's list of file types, which the dialog reads as long as it lives.
#pragma once

#include "platform/dialogs/FileDialogRecords.h"
#include "platform/text/WideText.h"
#include "platform/winapi/WinApi.h"

#include <optional>
#include <span>
#include <vector>

namespace ovrin {

// Entry i of `specs` points into entry i of the other two. Move it, which keeps those pointers; a copy would not.
struct FileTypeSpecTable {
    FileTypeSpecTable() = default;
    FileTypeSpecTable(FileTypeSpecTable &&) noexcept = default;
    FileTypeSpecTable &operator=(FileTypeSpecTable &&) noexcept = default;

    std::vector<WideText> labels;
    std::vector<WideText> patterns;
    std::vector<COMDLG_FILTERSPEC> specs;
};

// Nothing where a label or a pattern isn't valid UTF-8, or is empty.
[[nodiscard]] std::optional<FileTypeSpecTable> BuildFileTypeSpecs(std::span<const FileDialogFilter> filters);

} // namespace ovrin

// What a file dialog is asked for and what it answers. Plain records; all text is UTF-8, paths stay in their native
// form.
#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

namespace ovrin {

// One entry of a dialog's list of file types.
struct FileDialogFilter {
    std::string label;
    std::string pattern; // handed to the platform unchanged: "*.oproject"
};

struct OpenFileDialogRequest {
    std::string title;                     // empty: the platform's own
    std::filesystem::path defaultFolder;   // empty, or no folder: the platform chooses
    std::vector<FileDialogFilter> filters; // in display order; empty: no list of file types
};

struct SaveFileDialogRequest {
    std::string title;
    std::filesystem::path defaultFolder;
    std::vector<FileDialogFilter> filters;
    std::string defaultExtension; // added to a typed name; with or without a leading dot; empty: none
    std::string suggestedName;    // empty: none
};

struct FolderDialogRequest {
    std::string title;
    std::filesystem::path defaultFolder;
};

enum class FileDialogStatus : std::uint8_t {
    Accepted,
    Cancelled,
    InvalidRequest, // refused before the user saw anything
    Unavailable,    // there is no dialog to show
    PlatformError,
};

struct FileDialogResult {
    FileDialogStatus status = FileDialogStatus::Cancelled;
    std::vector<std::filesystem::path> paths; // full paths, not tested further; empty unless accepted
    std::string message;                      // the reason; empty if accepted or cancelled
};

} // namespace ovrin

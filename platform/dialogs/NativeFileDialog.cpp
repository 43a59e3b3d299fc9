#include "platform/dialogs/NativeFileDialog.h"

#include "core/logging/Logger.h"
#include "platform/dialogs/ShellDialogs.h"

#include <string_view>
#include <utility>

namespace ovrin::NativeFileDialog {

namespace {

using Fault = std::optional<std::string>;

Fault ValidateFilters(const std::vector<FileDialogFilter> &filters) {
    for (const FileDialogFilter &filter : filters) {
        if (filter.label.empty()) {
            return "File dialog filter label is empty.";
        }
        if (filter.pattern.empty()) {
            return "File dialog filter pattern is empty for '" + filter.label + "'.";
        }
    }
    return std::nullopt;
}

bool HoldsSeparator(std::string_view text) {
    return text.find_first_of("/\\") != std::string_view::npos;
}

Fault ValidateSaving(const SaveFileDialogRequest &request) {
    if (Fault fault = ValidateFilters(request.filters)) {
        return fault;
    }
    if (HoldsSeparator(request.defaultExtension)) {
        return "Default file extension contains a path separator.";
    }
    if (HoldsSeparator(request.suggestedName)) {
        return "Suggested file name must not contain a directory.";
    }
    return std::nullopt;
}

FileDialogResult ReportOutcome(FileDialogResult result) {
    switch (result.status) {
    case FileDialogStatus::Accepted:
    case FileDialogStatus::Cancelled: break;
    case FileDialogStatus::InvalidRequest:
    case FileDialogStatus::PlatformError: LogError("File dialog failed: " + result.message); break;
    case FileDialogStatus::Unavailable: LogWarn("File dialog unavailable: " + result.message); break;
    }
    return result;
}

// A faulty request never reaches the platform.
template<typename Run>
FileDialogResult RunUnlessFaulty(Fault fault, const Run &run) {
    if (fault) {
        return ReportOutcome({.status = FileDialogStatus::InvalidRequest, .paths = {}, .message = std::move(*fault)});
    }
    return ReportOutcome(run());
}

} // namespace

FileDialogResult OpenFile(const OpenFileDialogRequest &request) {
    return RunUnlessFaulty(ValidateFilters(request.filters), [&] { return RunOpenDialog(request, false); });
}

FileDialogResult OpenFiles(const OpenFileDialogRequest &request) {
    return RunUnlessFaulty(ValidateFilters(request.filters), [&] { return RunOpenDialog(request, true); });
}

FileDialogResult PickFolder(const FolderDialogRequest &request) {
    return ReportOutcome(RunFolderDialog(request));
}

FileDialogResult SaveFile(const SaveFileDialogRequest &request) {
    return RunUnlessFaulty(ValidateSaving(request), [&] { return RunSaveDialog(request); });
}

std::optional<std::filesystem::path> FirstPath(const FileDialogResult &result) {
    if (result.status != FileDialogStatus::Accepted || result.paths.empty()) {
        return std::nullopt;
    }
    return result.paths.front();
}

} // namespace ovrin::NativeFileDialog

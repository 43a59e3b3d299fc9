#include "core/paths/FileStatus.h"

#include "core/paths/FileStatusPlatform.h"
#include "core/paths/PathForm.h"
#include "platform/text/NarrowPath.h"
#include "platform/text/TextConversion.h"

#include <string>

namespace ovrin {

namespace {

std::string ErrorText(std::string_view operation, const std::filesystem::path &path, const std::error_code &code) {
    std::string text{operation};
    text += ": " + SystemText(code) + ": \"" + WideToUtf8(WideFromPathLenient(path)) + '"';
    return text;
}

// The library makes a text of its own, and one of our libraries raises over a path that isn't text: then the base has
// no path.
std::filesystem::filesystem_error LibraryError(const std::string &operation, const std::filesystem::path &path,
                                               const std::error_code &code) {
    try {
        return {operation, path, code};
    } catch (const std::system_error &) {
        return {operation, code};
    }
}

bool IsFolder(const std::filesystem::path &path) {
    std::error_code error;
    const auto status = QueryEntry(path, error);
    return status && status->isFolder;
}

void MakeMissingFolders(const std::filesystem::path &path, std::error_code &error) {
    const auto status = QueryEntry(path, error);
    if (status) {
        error = status->isFolder ? std::error_code() : NotAFolder();
        return;
    }
    if (!MeansAbsent(error)) {
        return;
    }
    error.clear();
    const std::filesystem::path parent = PathForm::ParentOf(path);
    if (!parent.empty() && parent != path) {
        MakeMissingFolders(parent, error);
    }
    if (!error) {
        MakeFolder(path, error);
    }
    // Another program may have been quicker, and a trailing dot or separator names the folder just made.
    if (error && IsFolder(path)) {
        error.clear();
    }
}

} // namespace

PathError::PathError(std::string_view operation, const std::filesystem::path &path, std::error_code code)
    : filesystem_error(LibraryError(std::string(operation), path, code)), text_(ErrorText(operation, path, code)) {}

bool PathExists(const std::filesystem::path &path) {
    std::error_code error;
    if (QueryEntry(path, error)) {
        return true;
    }
    if (!MeansAbsent(error)) {
        throw PathError("exists", path, error);
    }
    return false;
}

bool IsPathEmpty(const std::filesystem::path &path) {
    std::error_code error;
    const auto status = QueryEntry(path, error);
    const bool isEmpty = status && (status->isFolder ? IsFolderEmpty(path, error) : status->size == 0);
    if (error) {
        throw PathError("is_empty", path, error);
    }
    return isEmpty;
}

void CreateDirectoryChain(const std::filesystem::path &path) {
    std::error_code error;
    MakeMissingFolders(path, error);
    if (error) {
        throw PathError("create_directories", path, error);
    }
}

} // namespace ovrin

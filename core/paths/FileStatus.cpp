#include "core/paths/FileStatus.h"

#include "core/paths/FileStatusPlatform.h"
#include "core/paths/PathForm.h"
#include "platform/text/NarrowPath.h"
#include "platform/text/TextConversion.h"

#include <algorithm>
#include <string>
#include <vector>

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

// A chain of folders by its text: a location may have thousands of elements.
class FolderChain {
public:
    explicit FolderChain(const std::filesystem::path &path)
        : text_(path.native()), ends_(PathForm::EndsOfElements(path)) {}

    // Makes nothing where there is an error already.
    void MakeMissing(std::error_code &error) {
        // What lies under a folder that isn't there isn't there either, so halving finds the first one missing.
        const auto missing = std::partition_point(
            ends_.begin(), ends_.end(), [&](std::size_t end) { return !error && !IsMissing(FolderAt(end), error); });
        for (auto end = missing; end != ends_.end() && !error; ++end) {
            Make(FolderAt(*end), error);
        }
    }

private:
    [[nodiscard]] std::filesystem::path FolderAt(std::size_t end) const { return text_.substr(0, end); }

    // A folder that can't be asked about counts as there: what lies in it may be open all the same.
    static bool IsMissing(const std::filesystem::path &folder, std::error_code &error) {
        std::error_code query;
        const auto status = QueryEntry(folder, query);
        if (status && !status->isFolder) {
            error = NotAFolder();
        }
        return !status && MeansMissing(query);
    }

    // Another program may have been quicker, and a trailing dot names the folder just made.
    static void Make(const std::filesystem::path &folder, std::error_code &error) {
        MakeFolder(folder, error);
        if (error && IsFolder(folder)) {
            error.clear();
        }
    }

    std::filesystem::path::string_type text_;
    std::vector<std::size_t> ends_;
};

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

bool IsFolder(const std::filesystem::path &path) {
    std::error_code error;
    const auto status = QueryEntry(path, error);
    return status && status->isFolder;
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
    // Asked first: a path that is too long as a whole then makes no folder at all.
    if (!QueryEntry(path, error) && MeansMissing(error) && !path.empty()) {
        error = TooLongForFolder(path);
        FolderChain(path).MakeMissing(error);
    } else if (!error && !IsFolder(path)) {
        error = NotAFolder();
    }
    if (error) {
        throw PathError("create_directories", path, error);
    }
}

} // namespace ovrin

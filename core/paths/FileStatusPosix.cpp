#include "core/paths/FileStatusPlatform.h"

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <memory>
#include <sys/stat.h>

namespace ovrin {

namespace {

constexpr int absentCodes[] = {ENOENT, ENOTDIR, ENAMETOOLONG, EINVAL};

std::error_code LastError() {
    return {errno, std::system_category()};
}

} // namespace

std::optional<EntryStatus> QueryEntry(const std::filesystem::path &path, std::error_code &error) {
    struct stat status {};
    if (::stat(path.c_str(), &status) != 0) {
        error = LastError();
        return std::nullopt;
    }
    return EntryStatus{.isFolder = S_ISDIR(status.st_mode), .size = static_cast<std::uint64_t>(status.st_size)};
}

bool MeansAbsent(const std::error_code &error) {
    return std::ranges::find(absentCodes, error.value()) != std::end(absentCodes);
}

bool MeansMissing(const std::error_code &error) {
    return error.value() == ENOENT;
}

std::filesystem::path ResolveLinks(const std::filesystem::path &path, std::error_code &error) {
    const std::unique_ptr<char, decltype(&std::free)> resolved(::realpath(path.c_str(), nullptr), std::free);
    if (resolved == nullptr) {
        error = LastError();
        return {};
    }
    return resolved.get();
}

bool IsFolderEmpty(const std::filesystem::path &path, std::error_code &error) {
    const std::filesystem::directory_iterator first(path, error);
    return first == std::filesystem::directory_iterator();
}

std::error_code TooLongForFolder(const std::filesystem::path & /*path*/) {
    return {}; // the query for the whole path tells it
}

void MakeFolder(const std::filesystem::path &path, std::error_code &error) {
    constexpr mode_t everything = 0777; // less what the user's mask takes away
    if (::mkdir(path.c_str(), everything) != 0) {
        error = LastError();
    }
}

std::error_code NotAFolder() {
    return {ENOTDIR, std::system_category()};
}

std::string SystemText(const std::error_code &error) {
    return error.message();
}

} // namespace ovrin

// The questions and the one change that file status takes from the platform, with the platform's own error codes.
// An operation that succeeds leaves `error` as it was.
#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <system_error>

namespace ovrin {

struct EntryStatus {
    bool isFolder;
    std::uint64_t size; // of a file
};

// Follows symbolic links. Nothing on failure.
[[nodiscard]] std::optional<EntryStatus> QueryEntry(const std::filesystem::path &path, std::error_code &error);

[[nodiscard]] bool MeansAbsent(const std::error_code &error);

// Absent, and may be made: not a name that no folder can have.
[[nodiscard]] bool MeansMissing(const std::error_code &error);

// The path of an existing entry, absolute, without links and in normal form. Empty on failure.
[[nodiscard]] std::filesystem::path ResolveLinks(const std::filesystem::path &path, std::error_code &error);

// Meaningless on failure.
[[nodiscard]] bool IsFolderEmpty(const std::filesystem::path &path, std::error_code &error);

// The error of a path that is too long for a folder, where the system would tell it halfway down the chain only.
[[nodiscard]] std::error_code TooLongForFolder(const std::filesystem::path &path);

// One folder, in an existing one.
void MakeFolder(const std::filesystem::path &path, std::error_code &error);

// The code for something else in a folder's place.
[[nodiscard]] std::error_code NotAFolder();

// In UTF-8.
[[nodiscard]] std::string SystemText(const std::error_code &error);

} // namespace ovrin

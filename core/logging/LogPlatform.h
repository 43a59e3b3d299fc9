// The two things in which the platforms' C libraries differ for the logger.
#pragma once

#include <cstdio>
#include <ctime>
#include <filesystem>

namespace ovrin {

[[nodiscard]] std::tm LocalTime(std::time_t time);

enum class LogFileMode { Append, Truncate };

// A binary stream without a buffer that other processes may read and write meanwhile and that no started process
// inherits. Null where it can't be opened. The caller closes it.
[[nodiscard]] std::FILE *OpenLogFile(const std::filesystem::path &path, LogFileMode mode);

} // namespace ovrin

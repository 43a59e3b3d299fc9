#include "core/logging/LogPlatform.h"

namespace ovrin {

std::tm LocalTime(std::time_t time) {
    std::tm local{};
    localtime_r(&time, &local);
    return local;
}

std::FILE *OpenLogFile(const std::filesystem::path &path, LogFileMode mode) {
    // "e": closed in a started process.
    std::FILE *file = std::fopen(path.c_str(), mode == LogFileMode::Append ? "abe" : "wbe");
    if (file != nullptr) {
        std::setvbuf(file, nullptr, _IONBF, 0);
    }
    return file;
}

} // namespace ovrin

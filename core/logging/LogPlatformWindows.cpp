#include "core/logging/LogPlatform.h"

#include <share.h>

namespace ovrin {

std::tm LocalTime(std::time_t time) {
    std::tm local{};
    localtime_s(&local, &time);
    return local;
}

std::FILE *OpenLogFile(const std::filesystem::path &path, LogFileMode mode) {
    // "N": not inherited by a started process.
    std::FILE *file = _wfsopen(path.c_str(), mode == LogFileMode::Append ? L"abN" : L"wbN", _SH_DENYNO);
    if (file != nullptr) {
        std::setvbuf(file, nullptr, _IONBF, 0);
    }
    return file;
}

} // namespace ovrin

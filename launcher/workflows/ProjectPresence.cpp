#include "launcher/workflows/ProjectPresence.h"

#include "core/paths/FileStatus.h"

namespace ovrin {

bool IsProjectPresent(const std::filesystem::path &path) {
    try {
        return !path.empty() && PathExists(path);
    } catch (const std::filesystem::filesystem_error &) {
        return true;
    }
}

} // namespace ovrin

#include "core/paths/FileRewrite.h"
#include "core/paths/FileRewritePlatform.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#include <utility>

namespace ovrin {

namespace {

void AssignLast(std::error_code &error) {
    error.assign(errno, std::system_category());
}

bool IsOrdinary(int descriptor) {
    struct stat status {};
    return ::fstat(descriptor, &status) == 0 && S_ISREG(status.st_mode);
}

} // namespace

std::optional<OpenFile> OpenFile::Open(const std::filesystem::path &path) {
    constexpr mode_t everybody = 0666; // less what the user's mask takes away
    // A pipe or a terminal isn't waited for.
    const int descriptor = ::open(path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NONBLOCK | O_NOCTTY, everybody);
    if (descriptor < 0) {
        return std::nullopt;
    }
    OpenFile file(descriptor);
    return IsOrdinary(descriptor) ? std::optional(std::move(file)) : std::nullopt;
}

OpenFile::OpenFile(OpenFile &&other) noexcept : handle_(std::exchange(other.handle_, closed)) {}

OpenFile::~OpenFile() {
    std::error_code ignored;
    Close(ignored);
}

std::string OpenFile::ReadAll(std::error_code &error) const {
    constexpr std::size_t blockSize = 65536;
    std::string content;
    for (;;) {
        const std::size_t size = content.size();
        content.resize(size + blockSize);
        const ssize_t count =
            ::pread(static_cast<int>(handle_), content.data() + size, blockSize, static_cast<off_t>(size));
        content.resize(size + static_cast<std::size_t>(count > 0 ? count : 0));
        if (count == 0) {
            return content;
        }
        if (count < 0 && errno != EINTR) {
            AssignLast(error);
            return content;
        }
    }
}

// NOLINTBEGIN(readability-make-member-function-const): what they change is the file
void OpenFile::WriteAt(std::uint64_t offset, std::string_view bytes, std::error_code &error) {
    while (!bytes.empty()) {
        const ssize_t count =
            ::pwrite(static_cast<int>(handle_), bytes.data(), bytes.size(), static_cast<off_t>(offset));
        if (count < 0 && errno != EINTR) {
            return AssignLast(error);
        }
        const std::size_t written = count > 0 ? static_cast<std::size_t>(count) : 0;
        bytes.remove_prefix(written);
        offset += written;
    }
}

void OpenFile::SetSize(std::uint64_t size, std::error_code &error) {
    if (::ftruncate(static_cast<int>(handle_), static_cast<off_t>(size)) != 0) {
        AssignLast(error);
    }
}

void OpenFile::Flush(std::error_code &error) {
    if (::fsync(static_cast<int>(handle_)) != 0) {
        AssignLast(error);
    }
}
// NOLINTEND(readability-make-member-function-const)

void OpenFile::Close(std::error_code &error) {
    const auto descriptor = static_cast<int>(std::exchange(handle_, closed));
    if (descriptor >= 0 && ::close(descriptor) != 0) {
        AssignLast(error);
    }
}

std::string WithPlatformLineEnds(std::string_view text) {
    return std::string(text);
}

} // namespace ovrin

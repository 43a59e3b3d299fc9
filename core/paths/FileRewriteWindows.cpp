#include "core/paths/FileRewrite.h"
#include "core/paths/FileRewritePlatform.h"

#include "platform/winapi/WinApi.h"

#include <algorithm>
#include <utility>

namespace ovrin {

namespace {

constexpr std::size_t largestBlock = std::size_t{1} << 30U; // a call's count has 32 bits

void AssignLast(std::error_code &error) {
    error.assign(static_cast<int>(GetLastError()), std::system_category());
}

HANDLE ToHandle(std::intptr_t handle) {
    return reinterpret_cast<HANDLE>(handle);
}

OVERLAPPED At(std::uint64_t offset) {
    constexpr unsigned bitsOfHalf = 32;
    OVERLAPPED position{};
    position.Offset = static_cast<DWORD>(offset);
    position.OffsetHigh = static_cast<DWORD>(offset >> bitsOfHalf);
    return position;
}

} // namespace

std::optional<OpenFile> OpenFile::Open(const std::filesystem::path &path) {
    const HANDLE handle = CreateFileW(path.c_str(), GENERIC_READ | GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE,
                                      nullptr, OPEN_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (handle == INVALID_HANDLE_VALUE) {
        return std::nullopt;
    }
    OpenFile file(reinterpret_cast<Handle>(handle));
    return GetFileType(handle) == FILE_TYPE_DISK ? std::optional(std::move(file)) : std::nullopt;
}

OpenFile::OpenFile(OpenFile &&other) noexcept : handle_(std::exchange(other.handle_, closed)) {}

OpenFile::~OpenFile() {
    std::error_code ignored;
    Close(ignored);
}

std::string OpenFile::ReadAll(std::error_code &error) const {
    LARGE_INTEGER size{};
    if (GetFileSizeEx(ToHandle(handle_), &size) == 0) {
        AssignLast(error);
        return {};
    }
    std::string content(static_cast<std::size_t>(size.QuadPart), '\0');
    std::size_t done = 0;
    while (done < content.size()) {
        OVERLAPPED position = At(done);
        const auto wanted = static_cast<DWORD>(std::min(content.size() - done, largestBlock));
        DWORD count = 0;
        if (ReadFile(ToHandle(handle_), content.data() + done, wanted, &count, &position) == 0 || count == 0) {
            AssignLast(error);
            return {};
        }
        done += count;
    }
    return content;
}

void OpenFile::WriteAt(std::uint64_t offset, std::string_view bytes, std::error_code &error) {
    while (!bytes.empty()) {
        OVERLAPPED position = At(offset);
        DWORD count = 0;
        if (WriteFile(ToHandle(handle_), bytes.data(), static_cast<DWORD>(std::min(bytes.size(), largestBlock)), &count,
                      &position) == 0) {
            return AssignLast(error);
        }
        bytes.remove_prefix(count);
        offset += count;
    }
}

void OpenFile::SetSize(std::uint64_t size, std::error_code &error) {
    LARGE_INTEGER position{};
    position.QuadPart = static_cast<LONGLONG>(size);
    if (SetFilePointerEx(ToHandle(handle_), position, nullptr, FILE_BEGIN) == 0 ||
        SetEndOfFile(ToHandle(handle_)) == 0) {
        AssignLast(error);
    }
}

void OpenFile::Flush(std::error_code &error) {
    if (FlushFileBuffers(ToHandle(handle_)) == 0) {
        AssignLast(error);
    }
}

void OpenFile::Close(std::error_code &error) {
    const Handle handle = std::exchange(handle_, closed);
    if (handle != closed && CloseHandle(ToHandle(handle)) == 0) {
        AssignLast(error);
    }
}

std::string WithPlatformLineEnds(std::string_view text) {
    std::string lines;
    for (const char byte : text) {
        lines += byte == '\n' ? "\r\n" : std::string(1, byte);
    }
    return lines;
}

} // namespace ovrin

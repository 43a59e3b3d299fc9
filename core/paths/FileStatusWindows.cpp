// The library's own queries here lose the system's codes on their way through errno.
#include "core/paths/FileStatusPlatform.h"

#include "core/paths/PathForm.h"
#include "platform/text/TextConversion.h"
#include "platform/winapi/WinApi.h"

#include <algorithm>
#include <array>
#include <memory>
#include <type_traits>

namespace ovrin {

namespace {

constexpr DWORD absentCodes[] = {ERROR_FILE_NOT_FOUND, ERROR_PATH_NOT_FOUND, ERROR_BAD_NETPATH, ERROR_INVALID_NAME};

struct HandleCloser {
    void operator()(HANDLE handle) const noexcept { CloseHandle(handle); }
};
using UniqueFile = std::unique_ptr<std::remove_pointer_t<HANDLE>, HandleCloser>;

struct SearchCloser {
    void operator()(HANDLE handle) const noexcept { FindClose(handle); }
};
using UniqueSearch = std::unique_ptr<std::remove_pointer_t<HANDLE>, SearchCloser>;

void Assign(std::error_code &error, DWORD code) {
    error.assign(static_cast<int>(code), std::system_category());
}

EntryStatus StatusOf(DWORD attributes, DWORD sizeHigh, DWORD sizeLow) {
    constexpr unsigned bitsOfHalf = 32;
    return {.isFolder = (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0,
            .size = (std::uint64_t{sizeHigh} << bitsOfHalf) | sizeLow};
}

// Opening is the only way to what a link leads to. Null on failure.
UniqueFile OpenTarget(const std::filesystem::path &path, std::error_code &error) {
    const HANDLE handle =
        CreateFileW(path.c_str(), FILE_READ_ATTRIBUTES, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                    OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr);
    if (handle == INVALID_HANDLE_VALUE) {
        Assign(error, GetLastError());
        return nullptr;
    }
    return UniqueFile(handle);
}

std::optional<EntryStatus> QueryTarget(const std::filesystem::path &path, std::error_code &error) {
    const UniqueFile file = OpenTarget(path, error);
    if (file == nullptr) {
        return std::nullopt;
    }
    BY_HANDLE_FILE_INFORMATION status{};
    if (GetFileInformationByHandle(file.get(), &status) == 0) {
        Assign(error, GetLastError());
        return std::nullopt;
    }
    return StatusOf(status.dwFileAttributes, status.nFileSizeHigh, status.nFileSizeLow);
}

// The system answers in its unlimited form: `\\?\C:\x` and `\\?\UNC\server\share\x`.
std::wstring WithoutUnlimitedPrefix(std::wstring path) {
    constexpr std::wstring_view prefix = LR"(\\?\)";
    constexpr std::wstring_view networkPrefix = LR"(\\?\UNC\)";
    if (path.starts_with(networkPrefix)) {
        return path.replace(0, networkPrefix.size(), LR"(\\)");
    }
    return path.starts_with(prefix) ? path.substr(prefix.size()) : path;
}

bool IsDotName(const wchar_t *name) {
    return std::wstring_view(name) == L"." || std::wstring_view(name) == L"..";
}

} // namespace

std::optional<EntryStatus> QueryEntry(const std::filesystem::path &path, std::error_code &error) {
    WIN32_FILE_ATTRIBUTE_DATA status{};
    if (GetFileAttributesExW(path.c_str(), GetFileExInfoStandard, &status) == 0) {
        Assign(error, GetLastError());
        return std::nullopt;
    }
    if ((status.dwFileAttributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0) {
        return QueryTarget(path, error);
    }
    return StatusOf(status.dwFileAttributes, status.nFileSizeHigh, status.nFileSizeLow);
}

bool MeansAbsent(const std::error_code &error) {
    return std::ranges::find(absentCodes, static_cast<DWORD>(error.value())) != std::end(absentCodes);
}

bool MeansMissing(const std::error_code &error) {
    return error.value() == ERROR_FILE_NOT_FOUND || error.value() == ERROR_PATH_NOT_FOUND;
}

std::filesystem::path ResolveLinks(const std::filesystem::path &path, std::error_code &error) {
    const UniqueFile file = OpenTarget(path, error);
    if (file == nullptr) {
        return {};
    }
    std::wstring resolved(GetFinalPathNameByHandleW(file.get(), nullptr, 0, FILE_NAME_NORMALIZED), L'\0');
    const DWORD length = GetFinalPathNameByHandleW(file.get(), resolved.data(), static_cast<DWORD>(resolved.size()),
                                                   FILE_NAME_NORMALIZED);
    if (length == 0 || length >= resolved.size()) {
        Assign(error, GetLastError());
        return {};
    }
    resolved.resize(length);
    return PathForm::LexicallyNormal(WithoutUnlimitedPrefix(std::move(resolved)));
}

bool IsFolderEmpty(const std::filesystem::path &path, std::error_code &error) {
    WIN32_FIND_DATAW entry{};
    const HANDLE handle = FindFirstFileW(PathForm::Join(path, L"*").c_str(), &entry);
    if (handle == INVALID_HANDLE_VALUE) {
        // The root of a drive lists no dots, so that an empty one has nothing to find.
        if (GetLastError() != ERROR_FILE_NOT_FOUND) {
            Assign(error, GetLastError());
        }
        return true;
    }
    const UniqueSearch search(handle);
    bool found = true;
    while (found && IsDotName(entry.cFileName)) {
        found = FindNextFileW(handle, &entry) != 0;
    }
    if (!found && GetLastError() != ERROR_NO_MORE_FILES) {
        Assign(error, GetLastError());
    }
    return !found;
}

std::error_code TooLongForFolder(const std::filesystem::path &path) {
    constexpr std::size_t longestFolder = MAX_PATH - 13; // a folder must have room for a short file name
    constexpr std::wstring_view unlimited = LR"(\\?\)";
    std::error_code error;
    if (path.native().size() > longestFolder && !path.native().starts_with(unlimited)) {
        Assign(error, ERROR_FILENAME_EXCED_RANGE);
    }
    return error;
}

void MakeFolder(const std::filesystem::path &path, std::error_code &error) {
    if (CreateDirectoryW(path.c_str(), nullptr) == 0) {
        Assign(error, GetLastError());
    }
}

std::error_code NotAFolder() {
    return {ERROR_DIRECTORY, std::system_category()};
}

std::string SystemText(const std::error_code &error) {
    std::array<wchar_t, 1024> buffer{};
    const DWORD length =
        FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr,
                       static_cast<DWORD>(error.value()), 0, buffer.data(), static_cast<DWORD>(buffer.size()), nullptr);
    const std::wstring_view text(buffer.data(), length);
    const std::size_t last = text.find_last_not_of(L"\r\n ");
    return last == std::wstring_view::npos ? "Unknown Win32 error" : WideToUtf8(text.substr(0, last + 1));
}

} // namespace ovrin

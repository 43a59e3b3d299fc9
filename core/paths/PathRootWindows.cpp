#include "core/paths/PathRoot.h"

#include "platform/winapi/WinApi.h"

#include <algorithm>
#include <string>
#include <string_view>

namespace ovrin {

namespace {

constexpr std::wstring_view separators = L"\\/";

bool IsSeparatorAt(std::wstring_view text, std::size_t index) {
    return index < text.size() && separators.find(text[index]) != std::wstring_view::npos;
}

bool IsDriveAt(std::wstring_view text, std::size_t index) {
    const wchar_t letter = index < text.size() ? static_cast<wchar_t>(text[index] | 0x20) : L'\0';
    return letter >= L'a' && letter <= L'z' && index + 1 < text.size() && text[index + 1] == L':';
}

std::size_t EndOfElement(std::wstring_view text, std::size_t begin) {
    return std::min(text.find_first_of(separators, begin), text.size());
}

// The share belongs to the root; a server alone is one too.
std::size_t EndOfShare(std::wstring_view text, std::size_t begin) {
    const std::size_t endOfServer = EndOfElement(text, begin);
    const bool hasShare = endOfServer + 1 < text.size() && !IsSeparatorAt(text, endOfServer + 1);
    return hasShare ? EndOfElement(text, endOfServer + 1) : endOfServer;
}

bool IsDevicePrefix(std::wstring_view text) {
    return text.size() >= 4 && IsSeparatorAt(text, 0) && IsSeparatorAt(text, 1) &&
           (text[2] == L'?' || text[2] == L'.') && IsSeparatorAt(text, 3);
}

// Behind `\\?\` or `\\.\` stand a drive, a share after "UNC", or the name of a device.
std::size_t EndOfDevice(std::wstring_view text) {
    constexpr std::size_t prefix = 4;
    const std::size_t end = EndOfElement(text, prefix);
    const std::wstring_view device = text.substr(prefix, end - prefix);
    const bool isNetwork = (device == L"UNC" || device == L"unc") && end < text.size();
    return isNetwork ? EndOfShare(text, end + 1) : end;
}

std::size_t EndOfRootName(std::wstring_view text) {
    if (IsDevicePrefix(text)) {
        return EndOfDevice(text);
    }
    if (IsSeparatorAt(text, 0) && IsSeparatorAt(text, 1) && text.size() > 2 && !IsSeparatorAt(text, 2)) {
        return EndOfShare(text, 2);
    }
    return IsDriveAt(text, 0) ? 2 : 0;
}

bool IsDriveName(std::wstring_view rootName) {
    return IsDriveAt(rootName, 0);
}

} // namespace

RootedPath SplitRoot(const std::filesystem::path &path) {
    const std::wstring_view text = path.native();
    const std::size_t endOfName = EndOfRootName(text);
    const std::size_t endOfRoot = std::min(text.find_first_not_of(separators, endOfName), text.size());
    std::wstring name{text.substr(0, endOfName)};
    // A share has a root folder also where nothing follows its name.
    const bool hasRootFolder = endOfRoot > endOfName || (endOfName > 0 && !IsDriveName(name));
    std::wstring local{hasRootFolder ? L"\\" : L""};
    local += text.substr(endOfRoot);
    return {.rootName = std::move(name), .local = std::move(local)};
}

bool IsAbsolute(const RootedPath &path) {
    return !path.rootName.empty() && path.local.has_root_directory();
}

std::filesystem::path CurrentFolder(const std::filesystem::path::string_type &rootName, std::error_code &error) {
    const std::wstring query = rootName.empty() ? L"." : rootName;
    std::wstring folder(GetFullPathNameW(query.c_str(), 0, nullptr, nullptr), L'\0');
    const DWORD length = GetFullPathNameW(query.c_str(), static_cast<DWORD>(folder.size()), folder.data(), nullptr);
    if (length == 0 || length >= folder.size()) {
        error.assign(static_cast<int>(GetLastError()), std::system_category());
        return {};
    }
    folder.resize(length);
    return folder;
}

} // namespace ovrin

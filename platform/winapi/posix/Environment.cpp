// The process's environment. Names are compared exactly here, with their case. Not here: the whole block, expansion.
#include "platform/winapi/subset/System.h"

#include "platform/winapi/posix/NativeText.h"

#include <algorithm>
#include <cstdlib>

namespace {

std::optional<std::u16string> ReadVariable(LPCWSTR name) {
    const auto nativeName = ovrin::NativeFromWide(name);
    const char *value = nativeName ? std::getenv(nativeName->c_str()) : nullptr;
    return value == nullptr ? std::nullopt : ovrin::WideFromNative(value);
}

} // namespace

DWORD GetEnvironmentVariableW(LPCWSTR name, LPWSTR buffer, DWORD size) {
    const auto value = ReadVariable(name);
    if (!value) {
        return 0;
    }
    const auto length = static_cast<DWORD>(value->size());
    if (length >= size) {
        return length + 1;
    }
    std::copy_n(value->c_str(), length + 1, buffer);
    return length;
}

BOOL SetEnvironmentVariableW(LPCWSTR name, LPCWSTR value) {
    const auto nativeName = ovrin::NativeFromWide(name);
    if (!nativeName) {
        return FALSE;
    }
    if (value == nullptr) {
        return unsetenv(nativeName->c_str()) == 0 ? TRUE : FALSE;
    }
    const auto nativeValue = ovrin::NativeFromWide(value);
    return nativeValue && setenv(nativeName->c_str(), nativeValue->c_str(), 1) == 0 ? TRUE : FALSE;
}

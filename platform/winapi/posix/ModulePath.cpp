// The running program's own path. Not here: the paths of other modules.
#include "platform/winapi/subset/System.h"

#include "platform/winapi/posix/NativeText.h"

#include <algorithm>
#include <cassert>
#include <filesystem>

DWORD GetModuleFileNameW([[maybe_unused]] HMODULE module, LPWSTR buffer, DWORD size) {
    assert(module == nullptr);
    std::error_code error;
    const std::filesystem::path program = std::filesystem::read_symlink("/proc/self/exe", error);
    const auto text = ovrin::WideFromNative(program.native());
    if (error || !text || size == 0) {
        return 0;
    }
    const DWORD length = std::min(static_cast<DWORD>(text->size()), size - 1);
    std::copy_n(text->data(), length, buffer);
    buffer[length] = u'\0';
    // A cut path reports the whole size, its terminator included.
    return length < text->size() ? size : length;
}

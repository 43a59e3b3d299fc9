// The calling thread's id and name. Not here: other threads, priorities, a stack reserve.
#include "platform/winapi/subset/System.h"

#include "platform/winapi/posix/NativeText.h"

#include <cassert>
#include <pthread.h>
#include <unistd.h>

namespace {

constexpr std::size_t longestName = 15; // bytes
constexpr HRESULT failure = static_cast<HRESULT>(0x80004005);
constexpr std::intptr_t callingThread = -2;

constexpr bool IsTrail(char byte) {
    return (static_cast<unsigned char>(byte) & 0xC0U) == 0x80U;
}

std::string CutName(std::string name) {
    if (name.size() > longestName) {
        std::size_t end = longestName;
        while (end > 0 && IsTrail(name[end])) {
            --end;
        }
        name.resize(end);
    }
    return name;
}

} // namespace

HANDLE GetCurrentThread() {
    return reinterpret_cast<HANDLE>(callingThread); // NOLINT(performance-no-int-to-ptr): the platform's own mark
}

DWORD GetCurrentThreadId() {
    return static_cast<DWORD>(gettid());
}

HRESULT SetThreadDescription([[maybe_unused]] HANDLE thread, LPCWSTR description) {
    assert(thread == GetCurrentThread());
    const auto name = ovrin::NativeFromWide(description);
    return name && pthread_setname_np(pthread_self(), CutName(*name).c_str()) == 0 ? 0 : failure;
}

BOOL SetThreadStackGuarantee(ULONG * /*size*/) {
    return FALSE;
}

#include "core/logging/LogThread.h"

#include "platform/text/TextConversion.h"
#include "platform/winapi/WinApi.h"

#include <atomic>

namespace ovrin {

namespace {

// No destructor: a static object's may log after the thread's own objects have gone.
struct ThreadLogState {
    const SinkCallScope *sinkCall; // the innermost
    std::uint32_t threadLogId;
};

thread_local ThreadLogState threadState{};
std::atomic<std::uint32_t> nextThreadLogId{1};

constexpr ULONG stackReserve = 65536; // bytes

} // namespace

std::uint32_t CurrentThreadLogId() {
    ThreadLogState &state = threadState;
    if (state.threadLogId == 0) {
        state.threadLogId = nextThreadLogId.fetch_add(1, std::memory_order_relaxed);
    }
    return state.threadLogId;
}

void SetCurrentThreadName(std::string_view name) noexcept {
    try {
        ULONG reserve = stackReserve;
        SetThreadStackGuarantee(&reserve);
        const WideText description = Utf8ToWideLenient(name);
        if (!description.empty()) {
            SetThreadDescription(GetCurrentThread(), description.c_str());
        }
    } catch (...) { // NOLINT(bugprone-empty-catch): a name is only for the eye
    }
}

bool IsInSinkCall() {
    return threadState.sinkCall != nullptr;
}

bool IsInSinkCallOf(const void *owner) {
    const SinkCallScope *call = threadState.sinkCall;
    while (call != nullptr && call->owner_ != owner) {
        call = call->outer_;
    }
    return call != nullptr;
}

SinkCallScope::SinkCallScope(const void *owner) : owner_(owner), outer_(threadState.sinkCall) {
    threadState.sinkCall = this;
}

SinkCallScope::~SinkCallScope() {
    threadState.sinkCall = outer_;
}

} // namespace ovrin

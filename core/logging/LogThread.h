// What the logger knows about the calling thread.
#pragma once

#include <cstdint>
#include <string_view>

namespace ovrin {

// The calling thread's number in records: 1, 2, 3, ... in the order in which threads first asked. Never reused.
[[nodiscard]] std::uint32_t CurrentThreadLogId();

// Shows the UTF-8 name in the platform's tools, cut to what the platform holds, and asks for the stack reserve that
// handling a stack overflow needs. Best effort: never fails, never raises.
void SetCurrentThreadName(std::string_view name) noexcept;

// Whether the calling thread is inside a sink, or in the writing around it: of any logger, or of this owner's.
[[nodiscard]] bool IsInSinkCall();
[[nodiscard]] bool IsInSinkCallOf(const void *owner);

// The calling thread is inside a sink of this owner for the length of this scope. A sink of one logger may flush
// another.
class SinkCallScope {
public:
    explicit SinkCallScope(const void *owner);
    SinkCallScope(const SinkCallScope &) = delete;
    SinkCallScope &operator=(const SinkCallScope &) = delete;
    ~SinkCallScope();

private:
    friend bool IsInSinkCallOf(const void *owner);

    const void *owner_;
    const SinkCallScope *outer_;
};

} // namespace ovrin

#include "core/logging/LogClock.h"

#include "core/logging/LogPlatform.h"

#include <array>
#include <cstdio>
#include <string_view>

namespace ovrin {

namespace {

constexpr std::size_t clockTimeLength = 8;

// The thread's last conversion, since most records share their second with the one before. No destructor: a static
// object's may log after the thread's own objects have gone.
struct ConvertedSecond {
    std::time_t second;
    std::array<char, clockTimeLength + 1> text;
};
thread_local ConvertedSecond lastConverted{-1, {}};

std::string_view ClockTime() {
    ConvertedSecond &converted = lastConverted;
    const std::time_t now = std::time(nullptr);
    if (converted.second != now) {
        const std::tm local = LocalTime(now);
        std::strftime(converted.text.data(), converted.text.size(), "%H:%M:%S", &local);
        converted.second = now;
    }
    return {converted.text.data(), clockTimeLength};
}

} // namespace

std::string FormatClockTime() {
    return std::string(ClockTime());
}

void AssignClockTime(std::string &text) {
    text.assign(ClockTime());
}

std::string FormatFileTimestamp() {
    const std::tm local = LocalTime(std::time(nullptr));
    std::array<char, sizeof("20261123_140359")> text{};
    return {text.data(), std::strftime(text.data(), text.size(), "%Y%m%d_%H%M%S", &local)};
}

} // namespace ovrin

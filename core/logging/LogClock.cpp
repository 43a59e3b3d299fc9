#include "core/logging/LogClock.h"

#include "core/logging/LogPlatform.h"

#include <algorithm>
#include <ctime>

namespace ovrin {

namespace {

// The thread's last conversion, since most records share their second with the one before. No destructor: a static
// object's may log after the thread's own objects have gone.
struct ConvertedSecond {
    std::time_t second;
    ClockText text;
};
thread_local ConvertedSecond lastConverted{-1, {}};

ClockText ConvertToText(std::time_t time) {
    const std::tm local = LocalTime(time);
    std::array<char, std::tuple_size_v<ClockText> + 1> terminated{};
    std::strftime(terminated.data(), terminated.size(), "%H:%M:%S", &local);
    ClockText text{};
    std::copy_n(terminated.begin(), text.size(), text.begin());
    return text;
}

} // namespace

ClockText ClockTime() {
    ConvertedSecond &converted = lastConverted;
    const std::time_t now = std::time(nullptr);
    if (converted.second != now) {
        converted = {now, ConvertToText(now)};
    }
    return converted.text;
}

std::string FormatClockTime() {
    const ClockText text = ClockTime();
    return {text.data(), text.size()};
}

std::string FormatFileTimestamp() {
    const std::tm local = LocalTime(std::time(nullptr));
    std::array<char, sizeof("20261123_140359")> text{};
    return {text.data(), std::strftime(text.data(), text.size(), "%Y%m%d_%H%M%S", &local)};
}

} // namespace ovrin

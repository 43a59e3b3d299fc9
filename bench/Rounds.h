// A benchmark's command line: PROGRAM [ROUNDS].
#pragma once

#include <algorithm>
#include <charconv>
#include <cstdio>
#include <exception>
#include <string_view>
#include <system_error>
#include <vector>

namespace ovrin::bench {

// 0 where the text isn't a number from 1.
inline int ParseRounds(std::string_view text) {
    int rounds = 0;
    const auto parsed = std::from_chars(text.data(), text.data() + text.size(), rounds);
    return parsed.ec == std::errc() && parsed.ptr == text.data() + text.size() ? std::max(rounds, 0) : 0;
}

// The whole of main: gives the exit code.
inline int RunRounds(const char *program, const std::vector<const char *> &arguments, void (*run)(int rounds)) {
    constexpr int usual = 5;
    const int rounds = arguments.size() > 1 ? ParseRounds(arguments[1]) : usual;
    if (rounds == 0 || arguments.size() > 2) {
        std::fprintf(stderr, "usage: %s [ROUNDS]\n", program);
        return 2;
    }
    try {
        run(rounds);
    } catch (const std::exception &error) {
        std::fprintf(stderr, "%s: %s\n", program, error.what());
        return 1;
    }
    return 0;
}

} // namespace ovrin::bench

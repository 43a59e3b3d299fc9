#include "platform/text/TextConversion.h"
#include "platform/text/NarrowPath.h"
#include "platform/winapi/WinApi.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <string>
#include <system_error>

namespace ovrin {

namespace {

using namespace std::string_view_literals;
using namespace std::string_literals;

const WideText lost = WIDE("\uFFFD");
const WideText a = WIDE("a");
const WideText z = WIDE("z");

// How many U+FFFD stand for one malformed piece is the platform's business; on ours it is settled.
WideText Comparable(WideText text) {
#ifdef _WIN32
    text.erase(std::unique(text.begin(), text.end(),
                           [](WideChar left, WideChar right) { return left == right && left == lost[0]; }),
               text.end());
#endif
    return text;
}

TEST(Utf8ToWide, TakesWellFormedTextAndRejectsTheRestThatTheLenientFormRepairs) {
    const struct {
        const char *label;
        std::string_view bytes;
        WideText lenient;
        bool isValid = false;
    } cases[] = {
        {"every length", "a\xC3\xA9\xE2\x82\xAC\xF0\x9D\x84\x9E", WIDE("a\u00E9\u20AC\U0001D11E"), true},
        {"zero byte", "a\0z"sv, a + WideText(1, 0) + z, true},
        {"no lead byte", "\xFFz\x80z", lost + z + lost + z},
        {"cut at the end", "a\xE2\x82", a + lost},
        {"cut by text", "\xF0\x9D\x84z", lost + z},
        {"cut by a character", "\xE2\x82\xC3\xA9", lost + WIDE("\u00E9")},
        {"overlong in two bytes", "\xC0\xAFz", lost + lost + z},
        {"overlong in three", "\xE0\x80\xAFz", lost + lost + lost + z},
        {"overlong in four", "\xF0\x80\x80\xAF", lost + lost + lost + lost},
        {"surrogate", "\xED\xA0\x80z", lost + lost + lost + z},
        {"beyond the last character", "\xF4\x90\x80\x80", lost + lost + lost + lost},
    };
    for (const auto &each : cases) {
        EXPECT_EQ(Utf8ToWide(each.bytes), each.isValid ? each.lenient : WideText()) << each.label;
        EXPECT_EQ(Comparable(Utf8ToWideLenient(each.bytes)), Comparable(each.lenient)) << each.label;
    }
    EXPECT_TRUE(Utf8ToWide("").empty() && Utf8ToWideLenient("").empty() && WideToUtf8({}).empty());
}

TEST(WideToUtf8, ReplacesLoneSurrogatesAndKeepsZeroUnits) {
    const WideText high(1, WideChar{0xD834});
    const WideText low(1, WideChar{0xDD1E});
    const std::string replaced = "\xEF\xBF\xBD";
    EXPECT_EQ(WideToUtf8(high + low), "\xF0\x9D\x84\x9E");
    EXPECT_EQ(WideToUtf8(a + high), "a" + replaced);
    EXPECT_EQ(WideToUtf8(high + a), replaced + "a");
    EXPECT_EQ(WideToUtf8(low + high), replaced + replaced);
    EXPECT_EQ(WideToUtf8(WideText(2, 0)), "\0\0"s);
}

TEST(TextConversion, BringsBackEveryCharacter) {
    std::string all;
    for (unsigned character = 0; character <= 0xFFFF; ++character) {
        all += WideToUtf8(WideText(1, static_cast<WideChar>(character)));
    }
    for (unsigned pair = 0; pair <= 0xFFFFF; ++pair) {
        const WideChar units[] = {static_cast<WideChar>(0xD800 + (pair >> 10)),
                                  static_cast<WideChar>(0xDC00 + (pair & 0x3FF))};
        all += WideToUtf8({units, 2});
    }
    EXPECT_EQ(all.size(), 0x80U + 0x780U * 2 + 0xF800U * 3 + 0x100000U * 4);
    EXPECT_EQ(WideToUtf8(Utf8ToWide(all)), all);
}

TEST(TextConversion, FailsWhereTheBufferIsTooSmall) {
    WideChar units[2] = {};
    char bytes[3] = {};
    EXPECT_EQ(MultiByteToWideChar(CP_UTF8, 0, "ab\xC3\xA9", 4, units, 2), 0);
    EXPECT_EQ(MultiByteToWideChar(CP_UTF8, 0, "\xF0\x9D\x84\x9E", 4, units, 2), 2);
    EXPECT_EQ(WideCharToMultiByte(CP_UTF8, 0, WIDE("a\u20AC"), 2, bytes, 3, nullptr, nullptr), 0);
    EXPECT_EQ(WideCharToMultiByte(CP_UTF8, 0, WIDE("\u20AC"), 1, bytes, 3, nullptr, nullptr), 3);
}

TEST(NarrowPath, GivesBackTheTextAndRefusesWhatNoPathCanHold) {
    const WideText name = WIDE("Spiel \u00FC\u6F22\U0001D11E");
    EXPECT_EQ(WideFromPath(PathFromWide(name)), name);
    EXPECT_EQ(WideFromPathLenient(PathFromWide(name)), name);
    EXPECT_TRUE(PathFromWide({}).empty() && WideFromPath({}).empty());
    EXPECT_THROW(static_cast<void>(PathFromWide(a + WideText(1, 0) + z)), std::system_error);
}

#ifndef _WIN32
TEST(NarrowPath, NeverChangesAPathOfBytesOnTheWay) {
    const std::filesystem::path bytes = "/a/\xFF";
    EXPECT_THROW(static_cast<void>(PathFromWide(WideText(1, WideChar{0xD834}))), std::system_error);
    EXPECT_THROW(static_cast<void>(WideFromPath(bytes)), std::system_error);
    EXPECT_EQ(WideFromPathLenient(bytes), WIDE("/a/\uFFFD"));
}
#endif

} // namespace

} // namespace ovrin

// The small platform operations, held to the same results on the platform itself and on our layer.
#include "platform/text/WideText.h"
#include "platform/winapi/WinApi.h"

#include <gtest/gtest.h>
#include <limits>

namespace ovrin {

namespace {

TEST(MulDiv, RoundsHalfAwayFromZeroAndReportsOverflow) {
    constexpr int largest = std::numeric_limits<int>::max();
    const int cases[][4] = {{9, 96, 72, 12}, {1, 1, 2, 1},        {-1, 1, 2, -1},           {1, -1, 2, -1},
                            {1, 1, 3, 0},    {-9, 96, 96, -9},    {largest, 2, 2, largest}, {-5, -3, -2, -8},
                            {7, 5, 0, -1},   {largest, 2, 1, -1}, {-largest, 3, 2, -1},     {5, 1, -2, -3}};
    for (const auto &[number, numerator, denominator, expected] : cases) {
        EXPECT_EQ(MulDiv(number, numerator, denominator), expected) << number << '*' << numerator << '/' << denominator;
    }
}

TEST(Rectangles, ExcludeTheirRightAndBottomEdge) {
    RECT rect{10, 20, 30, 40};
    EXPECT_TRUE(InflateRect(&rect, -2, 3));
    EXPECT_TRUE(rect.left == 12 && rect.top == 17 && rect.right == 28 && rect.bottom == 43);
    EXPECT_TRUE(PtInRect(&rect, {12, 17}) && PtInRect(&rect, {27, 42}));
    EXPECT_FALSE(PtInRect(&rect, {28, 17}) || PtInRect(&rect, {12, 43}) || PtInRect(&rect, {11, 17}));
}

TEST(EnvironmentVariable, TellsItsSizeWithTheTerminatorAndItsLengthWithout) {
    const WideText value(700, WIDE('v'));
    WideText buffer(701, WIDE('?'));
    constexpr const WideChar *name = WIDE("OVRIN_TEST_VARIABLE");
    ASSERT_TRUE(SetEnvironmentVariableW(name, value.c_str()));
    EXPECT_EQ(GetEnvironmentVariableW(name, nullptr, 0), 701U);
    EXPECT_EQ(GetEnvironmentVariableW(name, buffer.data(), 700), 701U);
    EXPECT_EQ(GetEnvironmentVariableW(name, buffer.data(), 701), 700U);
    EXPECT_EQ(buffer, value + WideChar{0});
    ASSERT_TRUE(SetEnvironmentVariableW(name, WIDE("")));
    EXPECT_EQ(GetEnvironmentVariableW(name, nullptr, 0), 1U);
    ASSERT_TRUE(SetEnvironmentVariableW(name, nullptr));
    EXPECT_EQ(GetEnvironmentVariableW(name, nullptr, 0), 0U);
}

TEST(ModulePath, CutsAtTheBufferAndSaysSo) {
    WideText whole(4096, WideChar{0});
    const DWORD length = GetModuleFileNameW(nullptr, whole.data(), 4096);
    ASSERT_TRUE(length > 0 && length < 4096);
    WideText cut(length, WideChar{0});
    EXPECT_EQ(GetModuleFileNameW(nullptr, cut.data(), length), length);
    EXPECT_EQ(cut.substr(0, length - 1), whole.substr(0, length - 1));
    WideText exact(length + 1, WideChar{0});
    EXPECT_EQ(GetModuleFileNameW(nullptr, exact.data(), length + 1), length);
}

} // namespace

} // namespace ovrin

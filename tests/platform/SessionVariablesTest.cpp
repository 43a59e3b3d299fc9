#include "platform/winapi/posix/SessionVariables.h"
#include "tests/support/EnvironmentScope.h"

#include <cstdlib>
#include <gtest/gtest.h>

namespace ovrin::testing {

namespace {

TEST(SessionVariables, AreSuppliedOnlyWhereUnset) {
    using Value = std::optional<WideText>;
    const struct {
        const char *source = "";
        Value sourceValue;
        const char *target = "";
        Value before;
        const char *after = nullptr; // null: unset
    } cases[] = {
        {"HOME", WIDE("/h"), "USERPROFILE", {}, "/h"},
        {"HOME", WIDE("/h"), "USERPROFILE", WIDE(""), ""},
        {"HOME", {}, "USERPROFILE", {}, nullptr},
        {"HOME", {}, "APPDATA", {}, nullptr},
        {"XDG_CONFIG_HOME", WIDE("/c"), "APPDATA", {}, "/c"},
        {"XDG_CONFIG_HOME", WIDE("relative"), "APPDATA", {}, "/home/u/.config"},
        {"XDG_DATA_HOME", WIDE("/d"), "LOCALAPPDATA", {}, "/d"},
        {"XDG_DATA_HOME", {}, "LOCALAPPDATA", {}, "/home/u/.local/share"},
    };
    for (const auto &each : cases) {
        const EnvironmentScope home("HOME", WIDE("/home/u"));
        const EnvironmentScope configuration("XDG_CONFIG_HOME", {});
        const EnvironmentScope source(each.source, each.sourceValue);
        const EnvironmentScope target(each.target, each.before);
        SupplySessionVariables();
        EXPECT_STREQ(std::getenv(each.target), each.after) << each.source << " for " << each.target;
    }
}

} // namespace

} // namespace ovrin::testing

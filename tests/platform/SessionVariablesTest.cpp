#include "platform/winapi/posix/SessionVariables.h"
#include "tests/support/EnvironmentScope.h"

#include <cstdlib>
#include <gtest/gtest.h>

namespace ovrin::testing {

namespace {

using Value = std::optional<WideText>;

struct SessionCase {
    const char *label = "";
    const char *source = "";
    Value sourceValue;
    const char *target = "";
    Value before;
    const char *after = nullptr; // null: unset
};

TEST(SessionVariables, AreSuppliedOnlyWhereUnset) {
    const SessionCase cases[] = {
        {"profile", "HOME", WIDE("/h"), "USERPROFILE", {}, "/h"},
        {"one that is set stays", "HOME", WIDE("/h"), "USERPROFILE", WIDE("/p"), "/p"},
        {"an empty one stays empty", "HOME", WIDE("/h"), "USERPROFILE", WIDE(""), ""},
        {"without a home", "HOME", {}, "USERPROFILE", {}, nullptr},
        {"configuration", "XDG_CONFIG_HOME", WIDE("/c"), "APPDATA", {}, "/c"},
        {"configuration in the home", "XDG_CONFIG_HOME", {}, "APPDATA", {}, "/home/u/.config"},
        {"a relative folder counts as none", "XDG_CONFIG_HOME", WIDE("c"), "APPDATA", {}, "/home/u/.config"},
        {"data", "XDG_DATA_HOME", WIDE("/d"), "LOCALAPPDATA", {}, "/d"},
        {"data in the home", "XDG_DATA_HOME", WIDE(""), "LOCALAPPDATA", {}, "/home/u/.local/share"},
    };
    for (const SessionCase &each : cases) {
        const EnvironmentScope home("HOME", WIDE("/home/u"));
        const EnvironmentScope profile("USERPROFILE", {});
        const EnvironmentScope roaming("APPDATA", {});
        const EnvironmentScope local("LOCALAPPDATA", {});
        const EnvironmentScope source(each.source, each.sourceValue);
        const EnvironmentScope target(each.target, each.before);
        SupplySessionVariables();
        const char *value = std::getenv(each.target);
        EXPECT_STREQ(value, each.after) << each.label;
    }
}

} // namespace

} // namespace ovrin::testing

#include "core/paths/EnginePaths.h"

#include "tests/support/RunProbe.h"

#include <cstdlib>

namespace ovrin::testing {

namespace {

TEST(EnginePaths, AreFoundFromTheExecutablesPlace) {
    constexpr const char *marker = "CMakeLists.txt";
    const struct {
        const char *label;
        std::filesystem::path folder; // the executable's
        std::vector<std::filesystem::path> entries;
        std::filesystem::path root;
        std::filesystem::path asset; // where "x" is found
    } cases[] = {
        {"marker beside", "e", {"e/CMakeLists.txt", marker}, "e", "e/Assets/x"},
        {"version file alone", "e/f", {"Config/EngineVersion.json"}, "", "e/f/Assets/x"},
        {"a folder is a marker too", "e/f", {"e/CMakeLists.txt/"}, "e", "e/f/Assets/x"},
        {"seven above", "1/2/3/4/5/6/7", {marker}, "", "1/2/3/4/5/6/7/Assets/x"},
        {"eight above", "1/2/3/4/5/6/7/8", {marker, "Assets/x"}, "1/2/3/4/5/6", "1/2/3/4/5/6/7/8/Assets/x"},
        {"asset in the root only", "1/2/3", {marker, "Assets/x"}, "", "Assets/x"},
        {"asset above", "1/2/3", {marker, "Assets/x", "1/2/Assets/x"}, "", "1/2/Assets/x"},
        {"everywhere", "1/2", {marker, "Assets/x", "1/Assets/x", "1/2/Assets/x/"}, "", "1/2/Assets/x"},
        {"other scripts", "\u00E9 \u6F22", {"\u00E9 \u6F22/CMakeLists.txt"}, "\u00E9 \u6F22", "\u00E9 \u6F22/Assets/x"},
    };
    for (const auto &each : cases) {
        const TemporaryFolder tree;
        for (const auto &entry : each.entries) {
            tree.Make(entry);
        }
        const auto line = [&tree](const std::filesystem::path &relative) {
            const auto path = relative.empty() ? tree.Path() : (tree.Path() / relative).make_preferred();
            return WideToUtf8(WideFromPath(path)) + '\n';
        };
        const auto executable = tree.Make(each.folder / "probe.exe");
        std::filesystem::copy_file(OVRIN_PATHS_PROBE, executable, std::filesystem::copy_options::overwrite_existing);
        EXPECT_EQ(RunProbe(executable, std::filesystem::current_path(), {}),
                  line(each.folder / "probe.exe") + line(each.root) + line(each.asset))
            << each.label;
    }
}

TEST(UserSettingsDirectory, IsTheFirstThatHasAValue) {
    const std::filesystem::path fallback = EnginePaths::GetEngineRoot() / ".ovrin_user";
    const struct {
        const char *label;
        std::optional<WideText> own, roaming;
        std::filesystem::path expected;
    } cases[] = {
        {"own, unchanged and untested", WIDE("no/../such"), WIDE("roaming"), "no/../such"},
        {"an empty own counts as unset", WIDE(""), WIDE("roaming"), std::filesystem::path("roaming") / "OvrinEngine"},
        {"neither", {}, WIDE(""), fallback},
    };
    for (const auto &each : cases) {
        const EnvironmentScope own("OVRIN_USER_SETTINGS_DIR", each.own);
        const EnvironmentScope roaming("APPDATA", each.roaming);
        EXPECT_EQ(EnginePaths::GetUserSettingsDirectory(), each.expected) << each.label;
        EXPECT_EQ(EnginePaths::GetEditorPreferencesPath(), each.expected / "editor_preferences.cfg") << each.label;
        EXPECT_EQ(EnginePaths::GetGeneratedShadersDirectory(), each.expected / "GeneratedShaders") << each.label;
    }
    EXPECT_EQ(EnginePaths::GetContentDirectory(), EnginePaths::GetEngineRoot() / "Assets" / "Content");
    EXPECT_EQ(EnginePaths::GetExportsDirectory(), EnginePaths::GetEngineRoot() / "Assets" / "Exports");
}

TEST(EnvironmentValue, IsWholeAndNothingWhereUnsetEmptyOrMalformed) {
    const WideText longValue = WideText(700, WIDE('v')) + WIDE("\u6F22\U0001D11E");
    const EnvironmentScope set("OVRIN_TEST_\u00DC", longValue);
    const EnvironmentScope empty("OVRIN_TEST_EMPTY", WIDE(""));
    EXPECT_EQ(EnginePaths::GetEnvironmentValue("OVRIN_TEST_\u00DC"), longValue);
    for (const char *name : {"", "OVRIN_TEST_EMPTY", "OVRIN_TEST_UNSET", "\xFF"}) {
        EXPECT_FALSE(EnginePaths::GetEnvironmentValue(name) || EnginePaths::ReadEnvironmentVariable(name)) << name;
    }
    const EnvironmentScope local("LOCALAPPDATA", WIDE("local"));
    EXPECT_EQ(EnginePaths::GetLocalAppDataDirectory(), "local");
    const EnvironmentScope noLocal("LOCALAPPDATA", {});
    EXPECT_TRUE(EnginePaths::GetLocalAppDataDirectory().empty());
}

#ifndef _WIN32
TEST(EnvironmentValue, IsNothingForBytesThatAreNotText) {
    const EnvironmentScope restored("APPDATA", {});
    setenv("APPDATA", "/a/\xFF", 1);
    EXPECT_FALSE(EnginePaths::GetRoamingSettingsDirectory());
}
#endif

} // namespace

} // namespace ovrin::testing

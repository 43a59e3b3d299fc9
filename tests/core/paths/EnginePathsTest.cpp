#include "core/paths/EnginePaths.h"

#include "tests/support/RunProbe.h"

#include <cstdlib>
#include <sstream>

namespace ovrin::testing {

namespace {

struct Seen {
    std::filesystem::path executable;
    std::filesystem::path root;
    std::filesystem::path asset;
};

std::filesystem::path NextPath(std::istream &lines) {
    std::string line;
    std::getline(lines, line);
    return PathFromWide(Utf8ToWide(line));
}

// What a program at `executable` finds around itself.
Seen LookAround(const std::filesystem::path &executable) {
    std::filesystem::create_directories(executable.parent_path());
    std::filesystem::copy_file(OVRIN_PATHS_PROBE, executable);
    std::istringstream lines(RunProbe(executable, std::filesystem::current_path(), {}));
    std::filesystem::path first = NextPath(lines);
    std::filesystem::path second = NextPath(lines);
    return {.executable = std::move(first), .root = std::move(second), .asset = NextPath(lines)};
}

struct TreeCase {
    const char *label;
    std::filesystem::path folder; // the executable's
    std::vector<std::filesystem::path> entries;
    std::filesystem::path root;
    std::filesystem::path asset; // where "x" is found
};

TEST(EnginePaths, AreFoundFromTheExecutablesPlace) {
    constexpr const char *marker = "CMakeLists.txt";
    const TreeCase cases[] = {
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
    for (const TreeCase &each : cases) {
        const TemporaryFolder tree;
        for (const auto &entry : each.entries) {
            tree.Make(entry);
        }
        const auto at = [&tree](const std::filesystem::path &relative) {
            return relative.empty() ? tree.Path() : (tree.Path() / relative).make_preferred();
        };
        const std::filesystem::path executable = at(each.folder / "probe.exe");
        const Seen seen = LookAround(executable);
        EXPECT_EQ(seen.executable, executable) << each.label;
        EXPECT_EQ(seen.root, at(each.root)) << each.label;
        EXPECT_EQ(seen.asset, at(each.asset)) << each.label;
    }
}

struct SettingsCase {
    const char *label;
    std::optional<WideText> own;
    std::optional<WideText> roaming;
    std::filesystem::path expected;
};

TEST(UserSettingsDirectory, IsTheFirstThatHasAValue) {
    const std::filesystem::path fallback = EnginePaths::GetEngineRoot() / ".ovrin_user";
    const SettingsCase cases[] = {
        {"own, unchanged and untested", WIDE("no/../such"), WIDE("roaming"), "no/../such"},
        {"an empty own counts as unset", WIDE(""), WIDE("roaming"), std::filesystem::path("roaming") / "OvrinEngine"},
        {"empty and empty", WIDE(""), WIDE(""), fallback},
        {"unset and unset", {}, {}, fallback},
    };
    for (const SettingsCase &each : cases) {
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

#include "tests/core/recent/RecentListFixture.h"

#include <limits>

namespace ovrin::testing {

namespace {

using namespace RecentProjectStore;
using namespace std::string_literals;

TEST_F(RecentList, ReadsALineByItsFields) {
    const struct {
        const char *label;
        std::string line;
        Texts names = {"Name"};
        const char *path = "@/a"; // of the first
    } cases[] = {
        {"quotes and backslashes", R"("@/a" "a \"b\" \\ \c")", {R"(a "b" \ c)"}},
        {"white space before and between", " \t\"@/a\"\v\f \"Name\""},
        {"nothing between", R"("@/a""Name")"},
        {"text behind", R"("@/a" "Name" "more" x)"},
        {"a name that doesn't end", R"("@/a b.c.oproject" "Name)", {"a b.c"}, "@/a b.c.oproject"},
        {"an escape at the end", R"("@/a" "Name\)", {"a"}},
        {"without quotes", R"(@/a Na"me rest)", {R"(Na"me)"}},
        {"a foreign line end behind a word", "@/a\r", {"a"}},
        {"steps and doubled slashes", R"("@/x/..//./a" "Name")"},
        {"nothing", "", {}, "@/last"},
        {"blanks", " \t \r", {}, "@/last"},
        {"a path that doesn't end", R"("@/a)", {}, "@/last"},
        {"an escaped end", R"("@/a\")", {}, "@/last"},
        {"an empty path", R"("" "Name")", {}, "@/last"},
        {"a zero byte in the path", "\"@/a\0b\" \"Name\""s, {}, "@/last"},
        {"a byte that ends text files", "\"@/a\x1A\" \"\x1A\"", {"\x1A"}, "@/a\x1A"},
    };
    for (const auto &each : cases) {
        Write(each.line + "\n\n" + R"("@/last" "last")");
        Texts expected = each.names;
        expected.emplace_back("last");
        const Projects projects = LoadRecentProjects(0);
        EXPECT_EQ(NamesOf(projects), expected) << each.label;
        EXPECT_EQ(projects.at(0).path.generic_string(), WithFolder(each.path)) << each.label;
    }
}

TEST_F(RecentList, SurvivesWhateverTheFileHolds) {
    std::string bytes;
    for (int value = 0; value < 256; ++value) {
        bytes += static_cast<char>(value);
    }
    Write("\xEF\xBB\xBF\"@/marked\"\n" + bytes + "\n\"" + std::string(3U << 20U, 'x') + "\n" + std::string(1000, '\0') +
          "\n\"@/last\" \"" + std::string(1U << 20U, 'n') + '"');
    const Projects projects = LoadRecentProjects(0);
    ASSERT_FALSE(projects.empty());
    EXPECT_EQ(projects.back().name.size(), 1U << 20U);
    ASSERT_TRUE(SaveRecentProjects(projects));
    EXPECT_EQ(Load(), NamesOf(projects)); // what was understood once is understood again

    std::filesystem::remove(File());
    EXPECT_TRUE(Load().empty());
    std::filesystem::create_directory(File());
    EXPECT_TRUE(Load().empty());
}

TEST_F(RecentList, TakesTwoSpellingsOfAPathForOneProject) {
    const std::filesystem::path file = folder_.Make("Zap/Game.oproject");
    const std::pair<std::filesystem::path, bool> others[] = {
        {At("Zap") / "missing" / ".." / "." / "Game.oproject", true},
        {At("zAP/gAME.OPROJECT"), true},
        {file.generic_string(), true},
        {At("Zap/Game.oproject2"), false},
        {At(WIDE("Zap/Gam\u00C9.oproject")), false},
    };
    for (const auto &[other, isSame] : others) {
        EXPECT_EQ(RecentProjectKey(file) == RecentProjectKey(other), isSame) << other;
        const Projects list = NormalizeRecentProjects({{file, "first"}, {other, "second"}}, 0);
        EXPECT_EQ(NamesOf(list), isSame ? Texts{"first"} : (Texts{"first", "second"})) << other;
    }
    EXPECT_NE(RecentProjectKey(At(WIDE("\u00E9"))), RecentProjectKey(At(WIDE("\u00C9"))));
    EXPECT_EQ(RecentProjectKey({}), "");
    EXPECT_EQ(NormalizeProjectPath("no-such/x/.."), std::filesystem::path("no-such/").make_preferred());
    EXPECT_EQ(NormalizeProjectPath({}), std::filesystem::path());
}

TEST_F(RecentList, CountsInItsLimitWhatRemains) {
    Write("\"@/0\"\n\n\"@/x/../0\"\n\"@/1\"\n\"@/2\"\n\"@/3\"");
    EXPECT_EQ(Load(3), (Texts{"0", "1", "2"}));
    EXPECT_EQ(Load(std::numeric_limits<std::uint64_t>::max()).size(), 4U);
}

TEST_F(RecentList, IsSavedInItsOwnFormAndLoadsEqual) {
    const Projects projects = {{.path = At(WIDE("b/../Game \u00E9.oproject")), .name = "a \"b\" \\ \u6F22"},
                               {.path = At("c.d.oproject"), .name = ""},
                               {.path = At("C.D.oproject"), .name = "twice"},
                               {.path = {}, .name = "nowhere"}};
    ASSERT_TRUE(SaveRecentProjects(projects));
    const std::string second = "\"@/c.d.oproject\" \"c.d\"\n";
    const std::string narrow = NarrowFromPathLenient(WIDE("Game \u00E9.oproject"));
    EXPECT_EQ(Read(), "\"@/" + narrow + "\" \"a \\\"b\\\" \\\\ \u6F22\"\n" + second);
    const Projects loaded = LoadRecentProjects(0);
    EXPECT_EQ(NamesOf(loaded), (Texts{projects[0].name, "c.d"}));
    EXPECT_EQ(loaded[0].path, At(WIDE("Game \u00E9.oproject")));
    ASSERT_TRUE(SaveRecentProjects({loaded[1]}));
    EXPECT_EQ(Read(), second); // a shorter one leaves nothing of the longer behind
    ASSERT_TRUE(SaveRecentProjects({}));
    EXPECT_EQ(std::filesystem::file_size(File()), 0U);
}

TEST_F(RecentList, PutsARecordedProjectInFrontUnderItsNewName) {
    const Projects projects = SaveProjects(3);
    EXPECT_TRUE(RecordRecentProject(projects[2].path, "new name", 0));
    EXPECT_EQ(Load(), (Texts{"new name", "1", "2"}));
    EXPECT_TRUE(RecordRecentProject(At("x/../other.oproject"), "", 3));
    EXPECT_EQ(Load(), (Texts{"other", "new name", "1"}));
    EXPECT_FALSE(RecordRecentProject({}, "name", 0));
    EXPECT_EQ(Load().size(), 3U);
}

TEST_F(RecentList, IsCutOnlyWhereAListedProjectIsRemoved) {
    const Projects projects = SaveProjects(21);
    const auto time = std::filesystem::last_write_time(File()) - std::chrono::hours(1);
    std::filesystem::last_write_time(File(), time);
    EXPECT_TRUE(RemoveRecentProject(At("not listed"), 12));
    EXPECT_FALSE(RemoveRecentProject({}, 12));
    EXPECT_EQ(std::filesystem::last_write_time(File()), time);
    EXPECT_EQ(Load(), NamesOf(projects));
    EXPECT_TRUE(RemoveRecentProject(projects[20].path, 12));
    EXPECT_EQ(Load().size(), 12U);
    EXPECT_TRUE(RemoveRecentProject(projects[0].path, 0));
    EXPECT_EQ(Load().front(), "2");
}

TEST_F(RecentList, TellsInTheLogWhyItCannotBeSaved) {
    const Projects projects{{.path = "x", .name = "x"}};
    folder_.Make("file");
    folder_.Make("taken/recent_projects.cfg/");
    const struct {
        const char *settings, *beginning, *place;
    } cases[] = {
        {"file/settings", "[Warn] Failed to save recent projects: create_directories: ", "file/settings"},
        {"taken", "[Warn] Failed to open recent projects config for writing: ", "recent_projects.cfg"},
    };
    for (const auto &each : cases) {
        const EnvironmentScope settings("OVRIN_USER_SETTINGS_DIR", WideFromPath(At(each.settings)));
        const std::string line = FailureToSave(projects);
        EXPECT_TRUE(line.starts_with(each.beginning)) << line;
        EXPECT_NE(line.find(std::filesystem::path(each.place).make_preferred().string()), std::string::npos) << line;
    }
    const EnvironmentScope settings("OVRIN_USER_SETTINGS_DIR", WideFromPath(At("new/settings")));
    EXPECT_TRUE(SaveRecentProjects(projects));
    EXPECT_EQ(Load(), Texts{"x"}); // the missing folders were made
}

} // namespace

} // namespace ovrin::testing

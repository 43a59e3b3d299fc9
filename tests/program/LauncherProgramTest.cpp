// The launcher as a user meets it: a real process, its window, the mouse and the keyboard, and the editor that follows.
#include "tests/program/LauncherProgramFixture.h"

#include <fstream>

namespace ovrin::program {
namespace {

namespace fs = std::filesystem;

std::string Utf8(const fs::path &path) {
    const std::u8string text = path.u8string();
    return {text.begin(), text.end()};
}

std::size_t CountOf(const std::string &text, const std::string &part) {
    std::size_t count = 0;
    for (std::size_t at = text.find(part); at != std::string::npos; at = text.find(part, at + part.size())) {
        ++count;
    }
    return count;
}

TEST_F(LauncherProgram, CreatesAProjectByClicksAndStartsTheEditor) {
    PlaceSibling(Sibling::StandInEditor);
    Process launcher(Launcher(), home_);
    const Window window = WaitForLauncher(launcher);

    Click(window, At::templateFace);
    Click(window, At::templateRow[2]);
    Click(window, At::projectName);
    Type(u8"My First Game");
    Click(window, At::createProject);

    ExpectExitCode(launcher, 0);
    const auto report = [&] { return BytesOf(EditorLog()); };
    ASSERT_TRUE(WaitUntil([&] { return report().ends_with("project.\n"); })) << report();
    const fs::path file = DefaultLocation() / "My First Game" / "My First Game.oproject";
    EXPECT_TRUE(report().starts_with("Argument: --create-project\nArgument: " + Utf8(file) +
                                     "\nArgument: --project-name\nArgument: My First Game\n"
                                     "Argument: --project-template\nArgument: third_person\n"))
        << report();
    EXPECT_EQ(BytesOf(file), "name = My First Game\ntemplate = third_person\n");
}

struct EnterCase {
    const char *label;
    Position edit;
    std::u8string name;
    std::u8string folder; // under the default location
};

TEST_F(LauncherProgram, EnterInEitherEditStartsAnEditorThatOutlivesTheLauncher) {
    const EnterCase cases[] = {
        {"in the name, which has blanks at its ends and a dot", At::projectName, u8"  my.game ", u8"my.game"},
        {"in the location", At::location, u8"Game 2", u8"Game 2"},
    };
    PlaceSibling(Sibling::Probe);
    for (const EnterCase &tested : cases) {
        SCOPED_TRACE(tested.label);
        fs::remove(bin_ / "record");
        fs::remove(bin_ / "release");
        Process launcher(Launcher(), home_);
        const Window window = WaitForLauncher(launcher);
        Fill(window, At::projectName, tested.name);
        Click(window, tested.edit);
        PressEnter();

        ExpectExitCode(launcher, 0);
        EXPECT_TRUE(fs::is_directory(DefaultLocation() / tested.folder));
        EXPECT_TRUE(fs::is_empty(DefaultLocation() / tested.folder));
        const auto record = [&] { return BytesOf(bin_ / "record"); };
        ASSERT_TRUE(WaitUntil([&] { return record().ends_with('\n'); }));
        EXPECT_EQ(record(), "started with 6 arguments, the last blank, 0 descriptors\n");
        std::ofstream(bin_ / "release").flush();
        EXPECT_TRUE(WaitUntil([&] { return record().ends_with("released\n"); })) << "the editor has gone";
    }
}

TEST_F(LauncherProgram, ImpatientClicksStartOneEditor) {
    PlaceSibling(Sibling::StandInEditor);
    Process launcher(Launcher(), home_);
    const Window window = WaitForLauncher(launcher);
    Fill(window, At::projectName, u8"Game");
    Click(window, At::createProject, 4);
    ExpectExitCode(launcher, 0);
    ASSERT_TRUE(WaitUntil([&] { return BytesOf(EditorLog()).ends_with("project.\n"); }));
    EXPECT_EQ(CountOf(BytesOf(EditorLog()), "Command line: "), 1U);
}

// Each round is a launcher of its own: what one leaves in the list the next one shows.
TEST_F(LauncherProgram, OpensFromItsListWhatItsEditorsHaveRecorded) {
    PlaceSibling(Sibling::StandInEditor);
    const fs::path projects = folder_ / "projects"; // in letters that every file-name encoding has
    const auto fileOf = [&](const char *name) { return projects / name / (std::string(name) + ".oproject"); };
    const auto lastArgument = [&] {
        const std::string report = BytesOf(EditorLog());
        const std::size_t begin = report.rfind("Argument: ");
        return begin == std::string::npos ? report : report.substr(begin + 10, report.find('\n', begin) - begin - 10);
    };
    for (const char *name : {"First", "Second"}) {
        Process launcher(Launcher(), home_);
        const Window window = WaitForLauncher(launcher);
        Fill(window, At::projectName, fs::path(name).u8string());
        Fill(window, At::location, projects.u8string());
        Click(window, At::createProject);
        ExpectExitCode(launcher, 0);
        ASSERT_TRUE(WaitUntil([&] { return BytesOf(EditorLog()).ends_with("project.\n"); }));
        fs::rename(EditorLog(), folder_ / name);
    }
    const struct {
        const char *label;
        int clicks;         // on the second row; none leaves the first selected
        const char *opened; // the list was Second, First; each opening puts its project in front
    } rounds[] = {
        {"the first row is selected", 0, "Second"}, {"a double click", 2, "First"}, {"one click", 1, "Second"}};
    for (const auto &round : rounds) {
        SCOPED_TRACE(round.label);
        Process launcher(Launcher(), home_);
        const Window window = WaitForLauncher(launcher);
        if (round.clicks > 0) {
            Click(window, At::secondRecentRow, round.clicks);
        }
        if (round.clicks < 2) {
            Click(window, At::openSelected);
        }
        ExpectExitCode(launcher, 0);
        ASSERT_TRUE(WaitUntil([&] { return BytesOf(EditorLog()).ends_with("Opened the project.\n"); }));
        EXPECT_EQ(lastArgument(), Utf8(fileOf(round.opened)));
        fs::remove(EditorLog());
    }

    Process launcher(Launcher(), home_);
    const Window window = WaitForLauncher(launcher);
    fs::remove(fileOf("Second"));
    Click(window, At::openSelected);
    ExpectMessage(launcher, "Project Missing");
    Click(window, At::openSelected); // the row has gone, and the other is the first
    ExpectExitCode(launcher, 0);
    ASSERT_TRUE(WaitUntil([&] { return BytesOf(EditorLog()).ends_with("Opened the project.\n"); }));
    EXPECT_EQ(lastArgument(), Utf8(fileOf("First")));
}

struct SiblingCase {
    const char *label;
    Sibling sibling;
    const char *title;
};

TEST_F(LauncherProgram, StaysWithAMessageWhereTheEditorCannotBeStarted) {
    const SiblingCase cases[] = {
        {"nothing there", Sibling::Nothing, "Editor Missing"},
        {"a folder", Sibling::Folder, "Launch Failed"},
        {"not a program", Sibling::NotAProgram, "Launch Failed"},
#ifndef _WIN32
        {"not executable", Sibling::NotExecutable, "Launch Failed"},
#endif
    };
    Process launcher(Launcher(), home_);
    const Window window = WaitForLauncher(launcher);
    Fill(window, At::projectName, u8"Game");
    for (const SiblingCase &tested : cases) {
        SCOPED_TRACE(tested.label);
        PlaceSibling(tested.sibling);
        Click(window, At::createProject);
        ExpectMessage(launcher, tested.title);
        EXPECT_TRUE(fs::is_empty(DefaultLocation() / "Game"));
    }
    // The same launcher, the same form: all that was missing is the editor.
    PlaceSibling(Sibling::StandInEditor);
    Click(window, At::createProject);
    ExpectExitCode(launcher, 0);
    EXPECT_TRUE(WaitUntil([&] { return fs::exists(DefaultLocation() / "Game" / "Game.oproject"); }));
}

struct RefusalCase {
    const char *label;
    std::u8string name;
    fs::path location;
    const char *title;
};

TEST_F(LauncherProgram, RefusesWhatCannotBeMadeAndChangesNothing) {
    const fs::path file = folder_ / "file";
    std::ofstream(file) << "content";
    const fs::path used = folder_ / "used";
    fs::create_directories(used / "Game" / "inner");
    const fs::path fresh = folder_ / "fresh";
    const RefusalCase cases[] = {
        {"no name", u8" ", fresh, "Invalid Project Name"},
        {"a forbidden character", u8"a|b", fresh, "Invalid Project Name"},
        {"no location", u8"Game", u8" ", "Missing Project Location"},
        {"a folder in use", u8"Game", used, "Folder Not Empty"},
        {"a location that is a file", u8"Game", file, "Create Project Failed"},
        {"a read-only location", u8"Game", fs::absolute("/sys/ovrin"), "Create Project Failed"},
        {"a name too long", std::u8string(300, u8'n'), fresh, "Create Project Failed"},
    };
    PlaceSibling(Sibling::StandInEditor);
    for (const RefusalCase &tested : cases) {
        SCOPED_TRACE(tested.label);
        // One each: right after a message box Wine may move the focus once more, away from what is being typed.
        Process launcher(Launcher(), home_);
        const Window window = WaitForLauncher(launcher);
        Fill(window, At::projectName, tested.name);
        Fill(window, At::location, tested.location.u8string());
        Click(window, At::createProject);
        ExpectMessage(launcher, tested.title);
    }
    EXPECT_EQ(BytesOf(file), "content");
    EXPECT_TRUE(fs::is_empty(used / "Game" / "inner"));
    EXPECT_FALSE(fs::exists(EditorLog()));
}

TEST_F(LauncherProgram, SecondLauncherIsASecondWindowAndEachEndsByItself) {
    Process first(Launcher(), home_);
    const Window firstWindow = WaitForLauncher(first);
    Process second(Launcher(), home_);
    const Window secondWindow = WaitForLauncher(second);
    EXPECT_NE(firstWindow.id, secondWindow.id);

    CloseByCaption(secondWindow);
    ExpectExitCode(second, 0);
    EXPECT_EQ(first.ExitCode(), std::nullopt);
    Click(WaitForLauncher(first), At::quit);
    ExpectExitCode(first, 0);
}

} // namespace
} // namespace ovrin::program

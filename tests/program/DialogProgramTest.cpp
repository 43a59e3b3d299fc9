// Browse and Open Project... with the platform's own dialog, answered by keyboard.
#include "tests/program/LauncherProgramFixture.h"

#include <fstream>

namespace ovrin::program {
namespace {

namespace fs = std::filesystem;

constexpr const char *folderDialog = "Select Project Location";
constexpr const char *fileDialog = "Open Project";

class DialogProgram : public LauncherProgram {
protected:
    void SetUp() override {
        LauncherProgram::SetUp();
        if (!IsSkipped()) {
            PlaceSibling(Sibling::StandInEditor);
        }
    }

    // No command gets through to the launcher meanwhile, neither then nor later.
    static void Cancel(Process &launcher, Window window, Position button, const char *title) {
        Click(window, button);
        ASSERT_NE(WaitForBox(launcher, title).id, 0U);
        for (const Position command : {At::createProject, At::quit}) {
            Click(window, command);
            ASSERT_NE(WaitForBox(launcher, title).id, 0U);
        }
        PressEscape();
        ASSERT_TRUE(WaitUntil([&] { return !FindVisibleWindow(launcher, title); }));
        static_cast<void>(WaitForLauncher(launcher));
    }

    static void Choose(Process &launcher, Window window, Position button, const char *title, const fs::path &path) {
        Click(window, button);
        const Window dialog = WaitForBox(launcher, title);
        ASSERT_NE(dialog.id, 0U);
        ChooseInDialog(dialog, path);
        ASSERT_TRUE(WaitUntil([&] { return !FindVisibleWindow(launcher, title); }));
    }

    // The stand-in editor's arguments, one a line, once it has come to its end.
    [[nodiscard]] std::string WaitForReport() const {
        EXPECT_TRUE(WaitUntil([&] { return BytesOf(EditorLog()).ends_with("project.\n"); })) << BytesOf(EditorLog());
        return BytesOf(EditorLog());
    }

    static std::string Argument(const fs::path &path) {
        const std::u8string text = path.u8string();
        return "Argument: " + std::string(text.begin(), text.end()) + "\n";
    }
};

constexpr const char8_t *names[] = {u8"two words", u8"Мои игры & été", u8".dotted"};

TEST_F(DialogProgram, BrowseFillsTheLocationAndCancellingKeepsIt) {
    for (const char8_t *name : names) {
        const fs::path location = folder_ / name;
        SCOPED_TRACE(location.filename());
        fs::create_directories(location);
        Process launcher(Launcher(), home_);
        const Window window = WaitForLauncher(launcher);
        Choose(launcher, window, At::browse, folderDialog, location);
        static_cast<void>(WaitForLauncher(launcher));
        Fill(window, At::projectName, u8"Game"); // between the clicks on Browse: two at once would be a double click
        Cancel(launcher, window, At::browse, folderDialog);
        Click(window, At::createProject);
        ExpectExitCode(launcher, 0);
        const fs::path file = location / "Game" / "Game.oproject";
        EXPECT_TRUE(WaitForReport().starts_with("Argument: --create-project\n" + Argument(file))) << WaitForReport();
        EXPECT_TRUE(fs::exists(file));
        fs::remove(EditorLog());
    }
}

TEST_F(DialogProgram, OpenProjectStartsTheEditorWithTheChosenFile) {
    for (const char8_t *name : names) {
        const fs::path file = folder_ / name / (std::u8string(name) + u8".oproject");
        SCOPED_TRACE(file.filename());
        fs::create_directories(file.parent_path());
        std::ofstream(file) << "name = Game\n";
        Process launcher(Launcher(), home_);
        const Window window = WaitForLauncher(launcher);
        Cancel(launcher, window, At::openProject, fileDialog);
        Choose(launcher, window, At::openProject, fileDialog, file);
        ExpectExitCode(launcher, 0);
        EXPECT_TRUE(WaitForReport().starts_with("Argument: --project\n" + Argument(file))) << WaitForReport();
        fs::remove(EditorLog());
    }
}

} // namespace
} // namespace ovrin::program

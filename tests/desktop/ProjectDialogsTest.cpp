// Browse and Open Project... in the real window, with the user's answer to the dialog scripted.
#include "core/recent/RecentProjectStore.h"
#include "launcher/workflows/FormInput.h"
#include "platform/dialogs/ShellDialogs.h"
#include "platform/text/NarrowPath.h"
#include "tests/desktop/DesktopDriver.h"
#include "tests/desktop/Recorder.h"
#include "tests/desktop/Sandbox.h"

#include <gtest/gtest.h>
#include <new>
#include <optional>

namespace ovrin {

namespace {

namespace fs = std::filesystem;
using Answer = std::optional<FileDialogResult>; // none: memory doesn't suffice

Answer answer = FileDialogResult{}; // cancelled, for every other test
std::vector<std::string> dialogs;   // that were shown
fs::path start;                     // of the last one

FileDialogResult Show(const std::string &dialog, const fs::path &folder) {
    dialogs.push_back(dialog);
    start = folder;
    return answer ? *answer : throw std::bad_alloc();
}

} // namespace

FileDialogResult RunFolderDialog(const FolderDialogRequest &request) {
    return Show("folder: " + request.title, request.defaultFolder);
}
FileDialogResult RunOpenDialog(const OpenFileDialogRequest &request, bool allowMultiple) {
    std::string dialog = (allowMultiple ? "files: " : "file: ") + request.title;
    for (const FileDialogFilter &filter : request.filters) {
        dialog += ", " + filter.label + " " + filter.pattern;
    }
    return Show(dialog, request.defaultFolder);
}
FileDialogResult RunSaveDialog(const SaveFileDialogRequest &request) {
    return Show("save: " + request.title, request.defaultFolder);
}

namespace desktop {

namespace {

const Answer cancelled = FileDialogResult{};
const Answer failed = FileDialogResult{FileDialogStatus::PlatformError, {}, "scripted"};

Answer Accepted(const fs::path &path) {
    return FileDialogResult{FileDialogStatus::Accepted, {path}, ""};
}

// Clicks into the middle, and has one dialog come up.
void ClickFor(const std::string &dialog, HWND window, const RECT &button) {
    const POINT middle{(button.left + button.right) / 2, (button.top + button.bottom) / 2};
    dialogs.clear();
    PressMouse(window, middle);
    ReleaseMouse(window, middle);
    EXPECT_EQ(dialogs, std::vector{dialog});
}

TEST(Browse, StartsAtTheTrimmedTextElseAtTheDefaultAndChangesTheFieldOnlyWhereAFolderIsChosen) {
    const Sandbox sandbox;
    const fs::path chosen = sandbox.folder().Path() / "chosen";
    const WideText noPath(1, WideChar{0xD834}); // where paths are bytes
    const struct {
        WideText field;
        Answer answer;
        fs::path start;
    } cases[] = {
        {WIDE(""), Accepted(chosen), sandbox.DefaultLocation()},
        {WIDE(" /not there "), Accepted(chosen), "/not there"},
        {WIDE(" \t "), cancelled, sandbox.DefaultLocation()},
        {WIDE(" kept as it is "), cancelled, "kept as it is"},
        {WIDE(" kept "), failed, "kept"},
        {WIDE(" kept "), std::nullopt, "kept"},
        {noPath, cancelled, sizeof(fs::path::value_type) == 1 ? fs::path() : fs::path(noPath)},
    };
    RunLauncher([&](const LauncherRun &run) {
        SetWindowTextW(run.state.projectNameEdit, WIDE("  My Game "));
        for (const auto &each : cases) {
            SCOPED_TRACE(&each - cases);
            SetWindowTextW(run.state.locationEdit, each.field.c_str());
            answer = each.answer;
            ClickFor("folder: Select Project Location", run.window, run.state.layout.browseButtonRect);
            EXPECT_EQ(start, each.start);
            const bool isFilled = answer && !answer->paths.empty();
            EXPECT_EQ(ReadFormText(run.state.locationEdit), isFilled ? WideFromPath(chosen) : each.field);
            EXPECT_EQ(ReadFormText(run.state.projectNameEdit), WIDE("  My Game "));
        }
    });
    EXPECT_FALSE(fs::exists(chosen));
}

TEST(OpenProjectDialog, OpensTheChosenFileWithoutListingItAndStaysOtherwise) {
    const Sandbox sandbox;
    const fs::path project = sandbox.folder().Make("elsewhere/Game.oproject");
    const struct {
        Answer answer;
        int messages = 0;
        bool opens = false;
    } cases[] = {
        {cancelled},
        {failed},
        {std::nullopt},
        {Accepted(sandbox.folder().Path() / "gone.oproject"), 1},
        {Accepted(project), 0, true},
    };
    for (const auto &each : cases) {
        SCOPED_TRACE(&each - cases);
        RunLauncher([&](const LauncherRun &run) {
            int messages = 0;
            OnMessageBox([&](const MessageBoxSeen &) { ++messages; });
            answer = each.answer;
            const HWND window = run.window;
            ClickFor("file: Open Project, Ovrin Project *.oproject", window, run.state.layout.openProjectButtonRect);
            OnMessageBox(nullptr);
            EXPECT_EQ(start, sandbox.DefaultLocation());
            EXPECT_EQ(messages, each.messages);
            EXPECT_EQ(IsWindow(window) != FALSE, !each.opens);
            EXPECT_TRUE(PumpUntil([&] { return !each.opens || !sandbox.EditorCalls().empty(); }));
        });
    }
    EXPECT_EQ(sandbox.EditorCalls(), std::vector{"[--project][" + NarrowFromPath(project) + "]"});
    EXPECT_FALSE(fs::exists(RecentProjectStore::GetRecentProjectsPath()));
}

} // namespace

} // namespace desktop

} // namespace ovrin

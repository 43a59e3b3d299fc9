// Browse and Open Project... in the real window, with the user's answer to the dialog scripted.
#include "core/recent/RecentProjectStore.h"
#include "launcher/workflows/FormInput.h"
#include "platform/dialogs/ShellDialogs.h"
#include "platform/text/NarrowPath.h"
#include "tests/desktop/ScriptPlayer.h"

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

// What is seen of a click that has one dialog come up.
std::string ClickFor(const std::string &dialog, ScriptPlayer &player, const std::string &button) {
    dialogs.clear();
    std::string seen = player.Play("click " + button);
    EXPECT_EQ(dialogs, std::vector{dialog});
    return seen;
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
    RunLauncher([&](LauncherRun &run) {
        ScriptPlayer player{run, sandbox};
        SetWindowTextW(run.state->projectNameEdit, WIDE("  My Game "));
        for (const auto &each : cases) {
            SCOPED_TRACE(&each - cases);
            SetWindowTextW(run.state->locationEdit, each.field.c_str());
            answer = each.answer;
            ClickFor("folder: Select Project Location", player, "browse");
            EXPECT_EQ(start, each.start);
            const bool isFilled = answer && !answer->paths.empty();
            EXPECT_EQ(ReadFormText(run.state->locationEdit), isFilled ? WideFromPath(chosen) : each.field);
            EXPECT_EQ(ReadFormText(run.state->projectNameEdit), WIDE("  My Game "));
        }
    });
    EXPECT_FALSE(fs::exists(chosen));
}

TEST(OpenProjectDialog, OpensTheChosenFileWithoutListingItAndStaysOtherwise) {
    const Sandbox sandbox;
    const fs::path project = sandbox.folder().Make("elsewhere/Game.oproject");
    const struct {
        Answer answer;
        bool tellsOfMissing = false;
        bool opens = false;
    } cases[] = {
        {cancelled},
        {failed},
        {std::nullopt},
        {Accepted(sandbox.folder().Path() / "gone.oproject"), true},
        {Accepted(project), false, true},
    };
    for (const auto &each : cases) {
        SCOPED_TRACE(&each - cases);
        RunLauncher([&](LauncherRun &run) {
            ScriptPlayer player{run, sandbox};
            answer = each.answer;
            const HWND window = run.window;
            const std::string seen = ClickFor("file: Open Project, Ovrin Project *.oproject", player, "open");
            EXPECT_EQ(start, sandbox.DefaultLocation());
            EXPECT_EQ(seen.find("Project Missing") != std::string::npos, each.tellsOfMissing);
            EXPECT_EQ(IsWindow(window) != FALSE, !each.opens);
            if (each.opens) {
                player.Play("editors"); // ends with one of its own
            }
        });
    }
    const std::string opened = "[--project][" + NarrowFromPath(project) + "]";
    EXPECT_EQ(sandbox.EditorCalls(), (std::vector<std::string>{opened, "[last]"}));
    EXPECT_FALSE(fs::exists(RecentProjectStore::GetRecentProjectsPath()));
}

} // namespace

} // namespace desktop

} // namespace ovrin

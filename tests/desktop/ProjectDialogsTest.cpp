// Browse and Open Project... in the real window, with the user's answer to the dialog scripted.
#include "core/recent/RecentProjectStore.h"
#include "launcher/workflows/FormInput.h"
#include "platform/dialogs/ShellDialogs.h"
#include "platform/text/NarrowPath.h"
#include "platform/text/TextConversion.h"
#include "tests/desktop/ScriptPlayer.h"

#include <functional>
#include <gtest/gtest.h>
#include <iterator>
#include <new>
#include <optional>
#include <utility>

namespace ovrin {

namespace {

struct SeenRequest {
    std::string title;
    std::filesystem::path folder;
    std::vector<FileDialogFilter> filters;
    bool isForFolder;
};

std::vector<SeenRequest> requests;
std::function<FileDialogResult()> answer = [] { return FileDialogResult{}; }; // cancelled, for every other test

FileDialogResult Answer(SeenRequest request) {
    requests.push_back(std::move(request));
    return answer();
}

} // namespace

FileDialogResult RunFolderDialog(const FolderDialogRequest &request) {
    return Answer({request.title, request.defaultFolder, {}, true});
}
FileDialogResult RunOpenDialog(const OpenFileDialogRequest &request, bool allowMultiple) {
    EXPECT_FALSE(allowMultiple);
    return Answer({request.title, request.defaultFolder, request.filters, false});
}
FileDialogResult RunSaveDialog(const SaveFileDialogRequest & /*request*/) {
    ADD_FAILURE() << "nobody saves";
    return {};
}

namespace desktop {

namespace {

namespace fs = std::filesystem;

std::function<FileDialogResult()> Accept(const fs::path &path) {
    return [path] { return FileDialogResult{FileDialogStatus::Accepted, {path}, ""}; };
}
FileDialogResult Cancel() {
    return {};
}
FileDialogResult Fail() {
    return {FileDialogStatus::PlatformError, {}, "scripted"};
}
FileDialogResult RunOutOfMemory() {
    throw std::bad_alloc();
}

TEST(Browse, StartsAtTheTrimmedTextElseAtTheDefaultAndChangesTheFieldOnlyWhereAFolderIsChosen) {
    const Sandbox sandbox;
    const fs::path chosen = sandbox.folder().Path() / "chosen";
    const WideText loneSurrogate(1, WideChar{0xD834});
    const bool pathsAreBytes = sizeof(fs::path::value_type) == 1;
    const struct {
        const char *label;
        WideText field;
        std::function<FileDialogResult()> answer;
        fs::path start;
        bool fills = false;
    } cases[] = {
        {"nothing in the field", WIDE(""), Accept(chosen), sandbox.DefaultLocation(), true},
        {"blanks", WIDE(" \t "), Accept(chosen), sandbox.DefaultLocation(), true},
        {"blanks around a folder that isn't there", WIDE(" /not there "), Accept(chosen), "/not there", true},
        {"cancelled over blanks", WIDE("  "), Cancel, sandbox.DefaultLocation()},
        {"cancelled over text", WIDE(" kept as it is "), Cancel, "kept as it is"},
        {"failed", WIDE(" kept "), Fail, "kept"},
        {"no memory", WIDE(" kept "), RunOutOfMemory, "kept"},
        {"text that is no path where paths are bytes", loneSurrogate, Cancel,
         pathsAreBytes ? fs::path() : fs::path(loneSurrogate)},
    };
    RunLauncher([&](LauncherRun &run) {
        SetWindowTextW(run.state->projectNameEdit, WIDE("  My Game "));
        for (const auto &each : cases) {
            SCOPED_TRACE(each.label);
            SetWindowTextW(run.state->locationEdit, each.field.c_str());
            requests.clear();
            answer = each.answer;
            ScriptPlayer{run, sandbox}.Play("click browse");
            ASSERT_EQ(requests.size(), 1U);
            EXPECT_TRUE(requests[0].isForFolder);
            EXPECT_EQ(requests[0].title, "Select Project Location");
            EXPECT_EQ(requests[0].folder, each.start);
            EXPECT_EQ(WideToUtf8(ReadFormText(run.state->locationEdit)),
                      WideToUtf8(each.fills ? WideFromPath(chosen) : each.field));
            EXPECT_EQ(WideToUtf8(ReadFormText(run.state->projectNameEdit)), "  My Game ");
        }
    });
    EXPECT_FALSE(fs::exists(chosen));
}

TEST(OpenProjectDialog, OpensTheChosenFileWithoutListingItAndStaysOtherwise) {
    const Sandbox sandbox;
    const fs::path project = sandbox.folder().Make("elsewhere/Game.oproject");
    const struct {
        const char *label;
        std::function<FileDialogResult()> answer;
        bool tellsOfMissing;
        bool opens;
    } cases[] = {
        {"cancelled", Cancel, false, false},
        {"failed", Fail, false, false},
        {"no memory", RunOutOfMemory, false, false},
        {"gone meanwhile", Accept(sandbox.folder().Path() / "gone.oproject"), true, false},
        {"there", Accept(project), false, true},
    };
    for (const auto &each : cases) {
        SCOPED_TRACE(each.label);
        RunLauncher([&](LauncherRun &run) {
            requests.clear();
            answer = each.answer;
            const HWND window = run.window;
            ScriptPlayer player{run, sandbox};
            const std::string seen = player.Play("click open");
            ASSERT_EQ(requests.size(), 1U);
            EXPECT_FALSE(requests[0].isForFolder);
            EXPECT_EQ(requests[0].title, "Open Project");
            EXPECT_EQ(requests[0].folder, sandbox.DefaultLocation());
            ASSERT_EQ(requests[0].filters.size(), 1U);
            EXPECT_EQ(requests[0].filters[0].label, "Ovrin Project");
            EXPECT_EQ(requests[0].filters[0].pattern, "*.oproject");
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

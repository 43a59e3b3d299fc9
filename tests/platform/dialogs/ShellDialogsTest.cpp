// The drivers over a scripted COM: the order of their calls, and every road on which a run can end.
#include "platform/dialogs/ShellDialogs.h"
#include "platform/text/NarrowPath.h"
#include "platform/text/SystemErrorText.h"
#include "tests/platform/dialogs/ScriptedCom.h"
#include "tests/support/TemporaryFolder.h"

#include <algorithm>
#include <cctype>
#include <functional>
#include <gtest/gtest.h>
#include <new>
#include <span>
#include <string_view>

namespace ovrin {

namespace {

using testing::ComLines;
using testing::ComScript;
using testing::PlayCom;
using enum FileDialogStatus;
using Lines = std::vector<std::string>;
using Request = SaveFileDialogRequest; // every driver's fields

constexpr std::string_view drivers = "foms"; // folder, open one, open many, save
constexpr HRESULT denied = static_cast<HRESULT>(0x80070005);
constexpr HRESULT cancelledByUser = static_cast<HRESULT>(0x800704C7);

const Request &WholeRequest() {
    static const testing::TemporaryFolder folder;
    static const Request request{
        .title = "Title",
        .defaultFolder = folder.Path(),
        .filters = {{.label = "Project", .pattern = "*.p"}, {.label = "Text", .pattern = "*.t;*.m"}},
        .defaultExtension = ".txt",
        .suggestedName = "notes"};
    return request;
}

FileDialogResult RunDriver(char driver, const Request &from = WholeRequest()) {
    switch (driver) {
    case 'f': return RunFolderDialog({from.title, from.defaultFolder});
    case 's': return RunSaveDialog(from);
    default: return RunOpenDialog({from.title, from.defaultFolder, from.filters}, driver == 'm');
    }
}

// A line of a run that goes well.
struct Step {
    std::string drivers; // those that take it, by their letters
    std::string line;
    std::string failure{};    // what its failure is told as; empty: it doesn't matter whether it fails
    HRESULT ifNothing = S_OK; // the code told for success that gives nothing
    std::string givenBack{};  // the line that ends what it gave
};

// In order.
std::vector<Step> StepsOf(char driver) {
    const std::string folder = "SHCreateItemFromParsingName " + NarrowFromPath(WholeRequest().defaultFolder);
    std::vector<Step> steps = {
        {"foms", "CoInitializeEx 6 0", "CoInitializeEx", S_OK, "leave apartment"},
        {"fom", "CoCreateInstance open 1", "CoCreateInstance(CLSID_FileOpenDialog)", E_POINTER, "release dialog"},
        {"s", "CoCreateInstance save 1", "CoCreateInstance(CLSID_FileSaveDialog)", E_POINTER, "release dialog"},
        {"fom", "GetOptions", "IFileOpenDialog::GetOptions"},
        {"s", "GetOptions", "IFileSaveDialog::GetOptions"},
        {"f", "SetOptions 868", "IFileOpenDialog::SetOptions"},
        {"o", "SetOptions 1848", "IFileOpenDialog::SetOptions"},
        {"m", "SetOptions 1a48", "IFileOpenDialog::SetOptions"},
        {"s", "SetOptions 84a", "IFileSaveDialog::SetOptions"},
        {"foms", "SetTitle Title", "IFileDialog::SetTitle"},
        {"oms", "file type Project *.p", "", S_OK, "free file types"},
        {"oms", "file type Text *.t;*.m"},
        {"oms", "SetFileTypes", "IFileDialog::SetFileTypes"},
        {"oms", "SetFileTypeIndex 1"},
        {"foms", folder, "", S_OK, "release folder"},
        {"foms", "SetDefaultFolder folder"},
        {"foms", "SetFolder folder"},
        {"foms", "release folder"},
        {"s", "SetDefaultExtension txt", "IFileSaveDialog::SetDefaultExtension"},
        {"s", "SetFileName notes", "IFileSaveDialog::SetFileName"},
        {"foms", "active window"},
        {"fom", "Show 0x7", "IFileOpenDialog::Show"},
        {"s", "Show 0x7", "IFileSaveDialog::Show"},
        {"f", "GetResult", "IFileOpenDialog::GetResult", E_POINTER, "release item0"},
        {"s", "GetResult", "IFileSaveDialog::GetResult", E_POINTER, "release item0"},
        {"om", "GetResults", "IFileOpenDialog::GetResults", E_POINTER, "release array"},
        {"om", "GetCount", "IShellItemArray::GetCount", E_UNEXPECTED},
        {"om", "GetItemAt 0", "IShellItemArray::GetItemAt", E_POINTER, "release item0"},
        {"foms", "GetDisplayName 80058000 item0", "IShellItem::GetDisplayName", E_POINTER, "free text"},
        {"foms", "free text"},
        {"foms", "release item0"},
        {"om", "GetItemAt 1", "IShellItemArray::GetItemAt", E_POINTER, "release item1"},
        {"om", "GetDisplayName 80058000 item1", "IShellItem::GetDisplayName", E_POINTER, "free text"},
        {"om", "free text"},
        {"om", "release item1"},
        {"om", "GetItemAt 2", "IShellItemArray::GetItemAt", E_POINTER, "release item2"},
        {"om", "GetDisplayName 80058000 item2", "IShellItem::GetDisplayName", E_POINTER, "free text"},
        {"om", "free text"},
        {"om", "release item2"},
    };
    std::erase_if(steps, [&](const Step &step) { return step.drivers.find(driver) == std::string::npos; });
    return steps;
}

// These steps, then the end of what is held, the newest first.
Lines LinesOf(std::span<const Step> steps) {
    Lines lines;
    Lines held;
    for (const Step &step : steps) {
        lines.push_back(step.line);
        if (!held.empty() && held.back() == step.line) {
            held.pop_back();
        }
        if (!step.givenBack.empty()) {
            held.push_back(step.givenBack);
        }
    }
    lines.insert(lines.end(), held.rbegin(), held.rend());
    return lines;
}

// A run in which the step at that place goes so wrong: it ends there, or goes on without what the step would give.
Lines LinesOfFaulty(std::vector<Step> steps, std::size_t at, const ComScript &script) {
    const std::string givenBack = steps[at].givenBack;
    const auto next = steps.begin() + static_cast<std::ptrdiff_t>(at) + 1;
    auto goesOn = steps.end();
    if (!script.raises && steps[at].failure.empty()) {
        goesOn = givenBack.empty() ? next : std::ranges::find(next, goesOn, givenBack, &Step::line);
    }
    steps.erase(next, goesOn);
    Lines lines = LinesOf(steps);
    if (!givenBack.empty() && !script.gives) {
        lines.erase(lines.begin() + static_cast<std::ptrdiff_t>(at) + 1);
    }
    return lines;
}

void ExpectResult(const FileDialogResult &result, FileDialogStatus status, const std::string &message = "") {
    EXPECT_EQ(result.status, status);
    EXPECT_EQ(result.message, message);
    EXPECT_EQ(result.paths.empty(), status != Accepted);
}

void ExpectFailure(const FileDialogResult &result, const std::string &operation, HRESULT code) {
    ExpectResult(result, PlatformError, HResultFailureText(operation, static_cast<std::uint32_t>(code)));
}

void ExpectFaultyRun(char driver, std::size_t at, const ComScript &script) {
    const std::vector<Step> steps = StepsOf(driver);
    PlayCom(script);
    if (script.raises) {
        EXPECT_THROW(static_cast<void>(RunDriver(driver)), std::bad_alloc);
    } else if (steps[at].failure.empty()) {
        ExpectResult(RunDriver(driver), Accepted);
    } else {
        ExpectFailure(RunDriver(driver), steps[at].failure, script.result < 0 ? script.result : steps[at].ifNothing);
    }
    EXPECT_EQ(ComLines(), LinesOfFaulty(steps, at, script)) << script.result << script.gives << script.raises;
}

TEST(ShellDialogs, TakeTheirStepsInOrderAndGiveThePathsThatWereChosen) {
    for (const char driver : drivers) {
        SCOPED_TRACE(driver);
        PlayCom({});
        const FileDialogResult result = RunDriver(driver);
        ExpectResult(result, Accepted);
        EXPECT_EQ(ComLines(), LinesOf(StepsOf(driver)));
        EXPECT_EQ(result.paths.size(), std::ranges::count(ComLines(), "free text"));
        for (std::size_t index = 0; index < result.paths.size(); ++index) {
            EXPECT_EQ(WideFromPath(result.paths[index]), ComScript().chosen.at(index));
        }
    }
}

TEST(ShellDialogs, EndAtEachStepInItsOwnWords) {
    for (const char driver : drivers) {
        const std::vector<Step> steps = StepsOf(driver);
        for (std::size_t at = 0; at < steps.size(); ++at) {
            const auto &[of, line, failure, ifNothing, givenBack] = steps[at];
            SCOPED_TRACE(line + ", driver " + driver);
            if (std::islower(line.front()) != 0) {
                continue;
            }
            ExpectFaultyRun(driver, at, {.at = line, .result = denied});
            if (failure.empty() || ifNothing != S_OK) {
                ExpectFaultyRun(driver, at, {.at = line});
                ExpectFaultyRun(driver, at, {.at = line, .result = denied, .gives = true});
            }
            if (at > 0) { // before the first nothing is held
                ExpectFaultyRun(driver, at, {.at = line, .raises = true});
            }
        }
    }
}

TEST(ShellDialogs, HeedWhatThePlatformAnswers) {
    const struct {
        ComScript script;
        FileDialogStatus status;
        Lines lines; // among those of the run, together
    } cases[] = {
        {{.at = "CoInitializeEx", .result = S_FALSE}, Accepted, {"release dialog", "leave apartment"}},
        {{.at = "CoInitializeEx", .result = RPC_E_CHANGED_MODE}, PlatformError, {"CoInitializeEx 6 0"}},
        {{.options = 0xFFFFFFFF}, Accepted, {"GetOptions", "SetOptions ffffffff"}},
        {{.activeWindow = 0}, Accepted, {"active window", "foreground window", "Show 0x9"}},
        {{.activeWindow = 0, .foregroundWindow = 0}, Accepted, {"foreground window", "Show 0"}},
        {{.at = "Show", .result = cancelledByUser}, Cancelled, {"release dialog", "leave apartment"}},
        {{.at = "Show", .result = S_FALSE}, Accepted, {"Show 0x7"}},
    };
    for (const char driver : drivers) {
        for (const auto &each : cases) {
            SCOPED_TRACE(&each - cases);
            PlayCom(each.script);
            const FileDialogResult result = RunDriver(driver);
            EXPECT_EQ(result.status, each.status);
            EXPECT_EQ(result.message.empty(), each.status != PlatformError);
            EXPECT_NE(std::search(ComLines().begin(), ComLines().end(), each.lines.begin(), each.lines.end()),
                      ComLines().end());
        }
    }
}

TEST(ShellDialogs, RefuseTextThatIsNotUtf8BeforeTheUserSeesAnything) {
    static const std::string bad = "a\xFF";
    const struct {
        std::function<void(Request &)> spoil;
        std::string subject;
        std::string before; // the step that isn't taken any more
    } cases[] = {
        {[](Request &request) { request.title = bad; }, "File dialog title", "SetTitle Title"},
        {[](Request &request) { request.filters[1].label = bad; }, "File dialog filter", "file type Project *.p"},
        {[](Request &request) { request.filters[1].label = ""; }, "File dialog filter", "file type Project *.p"},
        {[](Request &request) { request.filters[1].pattern = bad; }, "File dialog filter", "file type Project *.p"},
        {[](Request &request) { request.defaultExtension = bad; }, "Default file extension", "SetDefaultExtension txt"},
        {[](Request &request) { request.defaultExtension = "."; }, "Default file extension", "SetDefaultExtension txt"},
        {[](Request &request) { request.suggestedName = bad; }, "Suggested file name", "SetFileName notes"},
    };
    const std::vector<Step> steps = StepsOf('s');
    for (const auto &each : cases) {
        SCOPED_TRACE(&each - cases);
        Request request = WholeRequest();
        each.spoil(request);
        PlayCom({});
        ExpectResult(RunDriver('s', request), InvalidRequest, each.subject + " is not valid UTF-8.");
        EXPECT_EQ(ComLines(), LinesOf({steps.begin(), std::ranges::find(steps, each.before, &Step::line)}));
    }
}

TEST(ShellDialogs, TakeOneDotFromTheExtensionAndAskForNothingThatIsEmpty) {
    for (const auto &[extension, line] : {std::pair{"..gz", "SetDefaultExtension .gz"},
                                          {"gz", "SetDefaultExtension gz"},
                                          {".tar.gz", "SetDefaultExtension tar.gz"},
                                          {"", "active window"}}) {
        PlayCom({});
        Request request;
        request.defaultExtension = extension;
        ExpectResult(RunDriver('s', request), Accepted);
        EXPECT_EQ(ComLines().at(4), line);
    }
}

constexpr bool pathsAreBytes = sizeof(std::filesystem::path::value_type) == 1;

TEST(ShellDialogs, StartInTheFolderOnlyWhereItIsOneThatTextCanName) {
    const testing::TemporaryFolder sandbox;
    std::vector<std::pair<std::filesystem::path, bool>> cases = {
        {sandbox.Path(), true},
        {sandbox.Make("ends with a separator/"), true},
        {sandbox.Path() / "missing", false},
        {sandbox.Make("file"), false},
        {sandbox.Path() / "file" / "below", false},
        {sandbox.Path() / std::string(300, 'x'), false},
        {sandbox.Path() / "loop" / "below", false}, // can't be asked about, where there are links
    };
    std::error_code noLinks;
    std::filesystem::create_symlink("loop", sandbox.Path() / "loop", noLinks);
    if (pathsAreBytes) {
        cases.emplace_back(sandbox.Make("\xFF/"), false);
    }
    for (const auto &[folder, isUsed] : cases) {
        SCOPED_TRACE(folder);
        PlayCom({});
        ExpectResult(RunFolderDialog({.title = "", .defaultFolder = folder}), Accepted);
        EXPECT_EQ(std::ranges::count(ComLines(), "SetFolder folder"), isUsed ? 1 : 0);
    }
}

// Where paths are bytes, not every text is a path; elsewhere it is.
TEST(ShellDialogs, GiveBackNoOtherPathThanTheOneChosen) {
    const WideText name = WIDE("/games/") + WideText(1, WideChar{0xD834});
    PlayCom({.chosen = {name}});
    const FileDialogResult result = RunFolderDialog({});
    if (pathsAreBytes) {
        ExpectFailure(result, "IShellItem::GetDisplayName", static_cast<HRESULT>(0x80070459));
    } else {
        ExpectResult(result, Accepted);
        EXPECT_EQ(WideFromPath(result.paths.at(0)), name);
    }
}

} // namespace

} // namespace ovrin

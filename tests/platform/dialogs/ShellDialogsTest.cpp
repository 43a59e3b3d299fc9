// The drivers over a scripted COM: the order of their calls, and every road on which a run can end.
#include "platform/dialogs/ShellDialogs.h"
#include "platform/text/NarrowPath.h"
#include "platform/text/SystemErrorText.h"
#include "tests/platform/dialogs/ScriptedCom.h"
#include "tests/support/TemporaryFolder.h"

#include <algorithm>
#include <functional>
#include <gtest/gtest.h>
#include <new>
#include <sstream>

namespace ovrin {

namespace {

using testing::Calls;
using testing::ComCalls;
using testing::PlayCom;

constexpr HRESULT denied = static_cast<HRESULT>(0x80070005);
constexpr HRESULT cancelledByUser = static_cast<HRESULT>(0x800704C7);

const testing::TemporaryFolder &StartFolder() {
    static const testing::TemporaryFolder folder;
    return folder;
}

std::string ShownStartFolder() {
    return NarrowFromPath(StartFolder().Path());
}

FolderDialogRequest FolderRequest() {
    return {.title = "Pick", .defaultFolder = StartFolder().Path()};
}

OpenFileDialogRequest OpenRequest() {
    return {.title = "Open",
            .defaultFolder = StartFolder().Path(),
            .filters = {{.label = "Project", .pattern = "*.p"}, {.label = "Text", .pattern = "*.txt;*.md"}}};
}

SaveFileDialogRequest SaveRequest() {
    return {.title = "Save",
            .defaultFolder = StartFolder().Path(),
            .filters = {{.label = "Text", .pattern = "*.txt"}},
            .defaultExtension = ".txt",
            .suggestedName = "notes"};
}

FileDialogResult RunFolder() {
    return RunFolderDialog(FolderRequest());
}
FileDialogResult RunOpen() {
    return RunOpenDialog(OpenRequest(), false);
}
FileDialogResult RunOpenMany() {
    return RunOpenDialog(OpenRequest(), true);
}
FileDialogResult RunSave() {
    return RunSaveDialog(SaveRequest());
}

const std::vector<WideText> three{WIDE("/games/one"), WIDE("/games/tw\u00F6"), WIDE("/games/three")};

// How a run ends that holds these, the newest first: "item array table dialog apartment".
Calls EndOf(const std::string &held) {
    Calls end;
    std::istringstream words(held);
    for (std::string word; words >> word;) {
        const bool isItem = word.starts_with("item");
        end.push_back(word == "apartment" ? "CoUninitialize"
                      : word == "table"   ? "free file types"
                      : isItem            ? "release item " + word.substr(4)
                                          : "release " + word);
    }
    return end;
}

// The calls of a run that goes well, up to the first one that begins so.
Calls CallsUpTo(const std::function<FileDialogResult()> &run, const std::string &call) {
    PlayCom({.chosen = three});
    static_cast<void>(run());
    const Calls &all = ComCalls();
    const auto found = std::ranges::find_if(all, [&](const std::string &each) { return each.starts_with(call); });
    EXPECT_NE(found, all.end()) << call;
    return {all.begin(), found == all.end() ? found : found + 1};
}

Calls operator+(Calls calls, const Calls &more) {
    calls.insert(calls.end(), more.begin(), more.end());
    return calls;
}

void ExpectFailure(const FileDialogResult &result, const std::string &operation, HRESULT code) {
    EXPECT_EQ(result.status, FileDialogStatus::PlatformError);
    EXPECT_TRUE(result.paths.empty());
    EXPECT_EQ(result.message, HResultFailureText(operation, static_cast<std::uint32_t>(code)));
}

TEST(ShellDialogs, CallThePlatformInOrderAndReleaseInTheOppositeOne) {
    const std::string folder = "SHCreateItemFromParsingName " + ShownStartFolder();
    const struct {
        const char *label;
        FileDialogResult (*run)();
        Calls calls;
        std::size_t paths;
    } cases[] = {
        {"a folder",
         RunFolder,
         {"CoInitializeEx 6", "CoCreateInstance 1 open", "GetOptions", "SetOptions 868", "SetTitle Pick", folder,
          "SetDefaultFolder", "SetFolder", "release folder", "GetActiveWindow", "Show 7", "GetResult",
          "GetDisplayName 80058000 of item 0", "CoTaskMemFree", "release item 0", "release dialog", "CoUninitialize"},
         1},
        {"many files",
         RunOpenMany,
         {"CoInitializeEx 6",
          "CoCreateInstance 1 open",
          "GetOptions",
          "SetOptions 1a48",
          "SetTitle Open",
          "SetFileTypes Project=*.p Text=*.txt;*.md",
          "SetFileTypeIndex 1",
          folder,
          "SetDefaultFolder",
          "SetFolder",
          "release folder",
          "GetActiveWindow",
          "Show 7",
          "GetResults",
          "GetCount",
          "GetItemAt 0",
          "GetDisplayName 80058000 of item 0",
          "CoTaskMemFree",
          "release item 0",
          "GetItemAt 1",
          "GetDisplayName 80058000 of item 1",
          "CoTaskMemFree",
          "release item 1",
          "GetItemAt 2",
          "GetDisplayName 80058000 of item 2",
          "CoTaskMemFree",
          "release item 2",
          "release array",
          "free file types",
          "release dialog",
          "CoUninitialize"},
         3},
        {"a file to save",
         RunSave,
         {"CoInitializeEx 6",
          "CoCreateInstance 1 save",
          "GetOptions",
          "SetOptions 84a",
          "SetTitle Save",
          "SetFileTypes Text=*.txt",
          "SetFileTypeIndex 1",
          folder,
          "SetDefaultFolder",
          "SetFolder",
          "release folder",
          "SetDefaultExtension txt",
          "SetFileName notes",
          "GetActiveWindow",
          "Show 7",
          "GetResult",
          "GetDisplayName 80058000 of item 0",
          "CoTaskMemFree",
          "release item 0",
          "free file types",
          "release dialog",
          "CoUninitialize"},
         1},
    };
    for (const auto &each : cases) {
        SCOPED_TRACE(each.label);
        PlayCom({.chosen = three});
        const FileDialogResult result = each.run();
        EXPECT_EQ(ComCalls(), each.calls);
        EXPECT_EQ(result.status, FileDialogStatus::Accepted);
        EXPECT_EQ(result.message, "");
        ASSERT_EQ(result.paths.size(), each.paths);
        for (std::size_t index = 0; index < each.paths; ++index) {
            EXPECT_EQ(WideFromPath(result.paths[index]), three[index]);
        }
    }
    EXPECT_EQ(CallsUpTo(RunOpen, "SetOptions").back(), "SetOptions 1848");
}

// A step that may go wrong: by a failing result, by success that gives nothing, by an exception. Without a label what
// the step gives is ignored.
struct Step {
    const char *call = "";
    const char *label = nullptr;
    const char *held = "";    // while it is called
    HRESULT ifNothing = S_OK; // the code told for success that gives nothing, where that can be
};

void ExpectStep(const std::function<FileDialogResult()> &run, const Step &step) {
    SCOPED_TRACE(step.call);
    const Calls ended = CallsUpTo(run, step.call) + EndOf(step.held);
    if (step.label != nullptr) {
        PlayCom({.at = step.call, .result = denied, .chosen = three});
        ExpectFailure(run(), step.label, denied);
        EXPECT_EQ(ComCalls(), ended);
    } else {
        const Calls whole = CallsUpTo(run, "CoUninitialize");
        PlayCom({.at = step.call, .result = denied, .chosen = three});
        EXPECT_EQ(run().status, FileDialogStatus::Accepted);
        const std::size_t missing = step.call == std::string("SHCreateItem") ? 3 : 0; // what is done with the item
        EXPECT_EQ(ComCalls().size(), whole.size() - missing);
    }
    if (step.ifNothing != S_OK) {
        PlayCom({.at = step.call, .givesNothing = true, .chosen = three});
        ExpectFailure(run(), step.label, step.ifNothing);
        EXPECT_EQ(ComCalls(), ended);
    }
    if (*step.held != '\0') {
        PlayCom({.at = step.call, .raises = true, .chosen = three});
        EXPECT_THROW(static_cast<void>(run()), std::bad_alloc);
        EXPECT_EQ(ComCalls(), ended);
    }
}

TEST(ShellDialogs, EndAFolderRunAtEachStepInItsOwnWords) {
    const Step steps[] = {
        {"CoInitializeEx", "CoInitializeEx", ""},
        {"CoCreateInstance", "CoCreateInstance(CLSID_FileOpenDialog)", "apartment", E_POINTER},
        {"GetOptions", "IFileOpenDialog::GetOptions", "dialog apartment"},
        {"SetOptions", "IFileOpenDialog::SetOptions", "dialog apartment"},
        {"SetTitle", "IFileDialog::SetTitle", "dialog apartment"},
        {"SHCreateItem", nullptr, "dialog apartment"},
        {"SetDefaultFolder", nullptr, "folder dialog apartment"},
        {"SetFolder", nullptr, "folder dialog apartment"},
        {"Show", "IFileOpenDialog::Show", "dialog apartment"},
        {"GetResult", "IFileOpenDialog::GetResult", "dialog apartment", E_POINTER},
        {"GetDisplayName", "IShellItem::GetDisplayName", "item0 dialog apartment", E_POINTER},
    };
    for (const Step &step : steps) {
        ExpectStep(RunFolder, step);
    }
}

TEST(ShellDialogs, EndAnOpenRunAtEachStepInItsOwnWords) {
    const Step steps[] = {
        {"CoInitializeEx", "CoInitializeEx", ""},
        {"CoCreateInstance", "CoCreateInstance(CLSID_FileOpenDialog)", "apartment", E_POINTER},
        {"GetOptions", "IFileOpenDialog::GetOptions", "dialog apartment"},
        {"SetOptions", "IFileOpenDialog::SetOptions", "dialog apartment"},
        {"SetTitle", "IFileDialog::SetTitle", "dialog apartment"},
        {"SetFileTypes", "IFileDialog::SetFileTypes", "table dialog apartment"},
        {"SetFileTypeIndex", nullptr, "table dialog apartment"},
        {"SHCreateItem", nullptr, "table dialog apartment"},
        {"SetDefaultFolder", nullptr, "folder table dialog apartment"},
        {"SetFolder", nullptr, "folder table dialog apartment"},
        {"Show", "IFileOpenDialog::Show", "table dialog apartment"},
        {"GetResults", "IFileOpenDialog::GetResults", "table dialog apartment", E_POINTER},
        {"GetCount", "IShellItemArray::GetCount", "array table dialog apartment", E_UNEXPECTED},
        {"GetItemAt 1", "IShellItemArray::GetItemAt", "array table dialog apartment", E_POINTER},
        {"GetDisplayName 80058000 of item 1", "IShellItem::GetDisplayName", "item1 array table dialog apartment",
         E_POINTER},
    };
    for (const Step &step : steps) {
        ExpectStep(RunOpen, step);
        ExpectStep(RunOpenMany, step);
    }
}

TEST(ShellDialogs, EndASaveRunAtEachStepInItsOwnWords) {
    const Step steps[] = {
        {"CoInitializeEx", "CoInitializeEx", ""},
        {"CoCreateInstance", "CoCreateInstance(CLSID_FileSaveDialog)", "apartment", E_POINTER},
        {"GetOptions", "IFileSaveDialog::GetOptions", "dialog apartment"},
        {"SetOptions", "IFileSaveDialog::SetOptions", "dialog apartment"},
        {"SetTitle", "IFileDialog::SetTitle", "dialog apartment"},
        {"SetFileTypes", "IFileDialog::SetFileTypes", "table dialog apartment"},
        {"SetFileTypeIndex", nullptr, "table dialog apartment"},
        {"SHCreateItem", nullptr, "table dialog apartment"},
        {"SetDefaultFolder", nullptr, "folder table dialog apartment"},
        {"SetFolder", nullptr, "folder table dialog apartment"},
        {"SetDefaultExtension", "IFileSaveDialog::SetDefaultExtension", "table dialog apartment"},
        {"SetFileName", "IFileSaveDialog::SetFileName", "table dialog apartment"},
        {"Show", "IFileSaveDialog::Show", "table dialog apartment"},
        {"GetResult", "IFileSaveDialog::GetResult", "table dialog apartment", E_POINTER},
        {"GetDisplayName", "IShellItem::GetDisplayName", "item0 table dialog apartment", E_POINTER},
    };
    for (const Step &step : steps) {
        ExpectStep(RunSave, step);
    }
}

TEST(ShellDialogs, TellCancellingFromFailing) {
    for (const auto run : {RunFolder, RunOpen, RunOpenMany, RunSave}) {
        PlayCom({.at = "Show", .result = cancelledByUser});
        const FileDialogResult result = run();
        EXPECT_EQ(result.status, FileDialogStatus::Cancelled);
        EXPECT_TRUE(result.paths.empty() && result.message.empty());
        EXPECT_EQ(ComCalls().back(), "CoUninitialize");
        PlayCom({.at = "Show", .result = S_FALSE});
        EXPECT_EQ(run().status, FileDialogStatus::Accepted);
    }
}

TEST(ShellDialogs, LeaveTheApartmentAsOftenAsTheyEnteredIt) {
    PlayCom({.at = "CoInitializeEx", .result = S_FALSE});
    EXPECT_EQ(RunFolder().status, FileDialogStatus::Accepted);
    EXPECT_EQ(std::ranges::count(ComCalls(), "CoUninitialize"), 1);
    PlayCom({.at = "CoInitializeEx", .result = RPC_E_CHANGED_MODE});
    ExpectFailure(RunFolder(), "CoInitializeEx", RPC_E_CHANGED_MODE);
    EXPECT_EQ(ComCalls(), Calls{"CoInitializeEx 6"});
}

TEST(ShellDialogs, KeepTheOptionsThatThePlatformHadSet) {
    PlayCom({.setOptions = 0x10000008});
    EXPECT_EQ(RunSave().status, FileDialogStatus::Accepted);
    EXPECT_EQ(ComCalls().at(3), "SetOptions 1000084a");
}

TEST(ShellDialogs, StandOverTheActiveWindowElseTheForegroundOneElseNone) {
    const struct {
        int active;
        int foreground;
        Calls calls;
    } cases[] = {
        {7, 9, {"GetActiveWindow", "Show 7"}},
        {0, 9, {"GetActiveWindow", "GetForegroundWindow", "Show 9"}},
        {0, 0, {"GetActiveWindow", "GetForegroundWindow", "Show 0"}},
    };
    for (const auto &each : cases) {
        PlayCom({.activeWindow = each.active, .foregroundWindow = each.foreground});
        static_cast<void>(RunFolderDialog({.title = "", .defaultFolder = {}}));
        const auto first = ComCalls().begin() + 4;
        EXPECT_EQ(Calls(first, first + std::ssize(each.calls)), each.calls);
    }
}

TEST(ShellDialogs, RefuseTextThatIsNotUtf8BeforeTheUserSeesAnything) {
    const std::string bad = "a\xFF";
    const struct {
        const char *label;
        std::function<void(SaveFileDialogRequest &)> spoil;
        std::string subject;
        const char *lastCall;
        const char *held;
    } cases[] = {
        {"title", [&](auto &request) { request.title = bad; }, "File dialog title", "SetOptions", "dialog apartment"},
        {"label", [&](auto &request) { request.filters.push_back({.label = bad, .pattern = "*"}); },
         "File dialog filter", "SetTitle", "dialog apartment"},
        {"pattern", [&](auto &request) { request.filters.push_back({.label = "a", .pattern = bad}); },
         "File dialog filter", "SetTitle", "dialog apartment"},
        {"extension", [&](auto &request) { request.defaultExtension = bad; }, "Default file extension",
         "release folder", "table dialog apartment"},
        {"lone dot", [&](auto &request) { request.defaultExtension = "."; }, "Default file extension", "release folder",
         "table dialog apartment"},
        {"name", [&](auto &request) { request.suggestedName = bad; }, "Suggested file name", "SetDefaultExtension",
         "table dialog apartment"},
    };
    for (const auto &each : cases) {
        SCOPED_TRACE(each.label);
        const Calls ended = CallsUpTo(RunSave, each.lastCall) + EndOf(each.held);
        SaveFileDialogRequest request = SaveRequest();
        each.spoil(request);
        PlayCom({});
        const FileDialogResult result = RunSaveDialog(request);
        EXPECT_EQ(result.status, FileDialogStatus::InvalidRequest);
        EXPECT_EQ(result.message, each.subject + " is not valid UTF-8.");
        EXPECT_EQ(ComCalls(), ended);
    }
}

TEST(ShellDialogs, TakeOneDotFromTheExtensionAndAskForNothingThatIsEmpty) {
    for (const auto &[extension, call] : {std::pair{"..gz", ".gz"}, {"gz", "gz"}, {".tar.gz", "tar.gz"}}) {
        PlayCom({});
        SaveFileDialogRequest request;
        request.defaultExtension = extension;
        EXPECT_EQ(RunSaveDialog(request).status, FileDialogStatus::Accepted);
        EXPECT_EQ(ComCalls().at(4), std::string("SetDefaultExtension ") + call);
    }
    PlayCom({});
    EXPECT_EQ(RunSaveDialog({}).status, FileDialogStatus::Accepted);
    EXPECT_EQ(ComCalls().at(3), "SetOptions 84a");
    EXPECT_EQ(ComCalls().at(4), "GetActiveWindow");
}

TEST(ShellDialogs, StartInTheFolderOnlyWhereItIsOne) {
    const testing::TemporaryFolder sandbox;
    std::filesystem::path withSeparator = sandbox.Path();
    withSeparator += "/";
    const struct {
        const char *label;
        std::filesystem::path folder;
        bool isUsed;
    } cases[] = {
        {"a folder", sandbox.Path(), true},
        {"a separator at the end", withSeparator, true},
        {"nothing there", sandbox.Path() / "missing", false},
        {"a file", sandbox.Make("file", "content"), false},
        {"below a file", sandbox.Path() / "file" / "inside", false},
        {"can't be asked about", sandbox.Path() / std::string(300, 'x'), false},
    };
    for (const auto &each : cases) {
        SCOPED_TRACE(each.label);
        PlayCom({});
        EXPECT_EQ(RunFolderDialog({.title = "", .defaultFolder = each.folder}).status, FileDialogStatus::Accepted);
        EXPECT_EQ(ComCalls().at(4).starts_with("SHCreateItem"), each.isUsed);
        EXPECT_EQ(std::ranges::count(ComCalls(), "SetFolder"), each.isUsed ? 1 : 0);
    }
    PlayCom({.at = "SHCreateItem", .givesNothing = true});
    EXPECT_EQ(RunFolder().status, FileDialogStatus::Accepted);
    EXPECT_EQ(std::ranges::count(ComCalls(), "SetDefaultFolder"), 0);
    PlayCom({.at = "SHCreateItem", .result = denied, .givesAnyway = true});
    EXPECT_EQ(RunFolder().status, FileDialogStatus::Accepted);
    EXPECT_EQ(std::ranges::count(ComCalls(), "SetDefaultFolder"), 0);
    EXPECT_EQ(std::ranges::count(ComCalls(), "release folder"), 1);
}

// Where paths are bytes, not every path is text and not every text a path; elsewhere each is the other.
TEST(ShellDialogs, NeitherHandOnNorGiveBackAPathThatWouldBeAnother) {
    constexpr bool pathsAreBytes = sizeof(std::filesystem::path::value_type) == 1;
    const WideText halfCharacter(1, WideChar{0xD834});
    PlayCom({.chosen = {WIDE("/games/") + halfCharacter}});
    const FileDialogResult result = RunFolder();
    if (!pathsAreBytes) {
        ASSERT_EQ(result.paths.size(), 1U);
        EXPECT_EQ(WideFromPath(result.paths[0]), WIDE("/games/") + halfCharacter);
        return;
    }
    ExpectFailure(result, "IShellItem::GetDisplayName", static_cast<HRESULT>(0x80070459));
    const testing::TemporaryFolder sandbox;
    PlayCom({});
    EXPECT_EQ(RunFolderDialog({.title = "", .defaultFolder = sandbox.Make("\xFF/")}).status,
              FileDialogStatus::Accepted);
    EXPECT_EQ(ComCalls().at(4), "GetActiveWindow");
}

} // namespace

} // namespace ovrin

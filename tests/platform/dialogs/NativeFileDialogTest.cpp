// The front over scripted drivers: what it refuses, what it hands on, and what it logs.
#include "platform/dialogs/NativeFileDialog.h"

#include "core/logging/Logger.h"
#include "platform/dialogs/ShellDialogs.h"

#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace ovrin {

namespace {

using enum FileDialogStatus;
using Lines = std::vector<std::string>;
using Request = SaveFileDialogRequest; // every operation's fields

FileDialogResult scriptedResult;
Lines driverCalls;

FileDialogResult Driver(const std::string &call) {
    driverCalls.push_back(call);
    return scriptedResult;
}

// What was logged since the last call, as "level message".
Lines TakeLog() {
    static std::uint64_t seen = 0;
    std::vector<LogRecord> records;
    seen = Logger::Instance().GetRecordsAfter(seen, records);
    Lines lines;
    for (const LogRecord &record : records) {
        EXPECT_EQ(record.category, LogCategory::General);
        EXPECT_TRUE(record.level == LogLevel::Error || record.level == LogLevel::Warning);
        lines.push_back((record.level == LogLevel::Error ? "error " : "warning ") + record.message);
    }
    return lines;
}

// Each validates what the one before does, and more.
enum Operation { PickFolder, OpenFile, OpenFiles, SaveFile, None };
const std::string calls[] = {"folder t", "one t", "many t", "save t"}; // that they come to

FileDialogResult Ask(Operation operation, const Request &from) {
    switch (operation) {
    case PickFolder: return NativeFileDialog::PickFolder({from.title, {}});
    case OpenFile: return NativeFileDialog::OpenFile({from.title, {}, from.filters});
    case OpenFiles: return NativeFileDialog::OpenFiles({from.title, {}, from.filters});
    default: return NativeFileDialog::SaveFile(from);
    }
}

// Asks with a driver that gives `scriptedResult`, which has to come back where there is no fault.
void ExpectAnswer(Operation operation, const Request &request, const std::string &fault, const Lines &log) {
    driverCalls.clear();
    const FileDialogResult result = Ask(operation, request);
    EXPECT_EQ(result.status, fault.empty() ? scriptedResult.status : InvalidRequest);
    EXPECT_EQ(result.paths, fault.empty() ? scriptedResult.paths : FileDialogResult().paths);
    EXPECT_EQ(result.message, fault.empty() ? scriptedResult.message : fault);
    EXPECT_EQ(driverCalls, fault.empty() ? Lines{calls[operation]} : Lines());
    EXPECT_EQ(TakeLog(), log);
}

TEST(NativeFileDialog, RefusesTheFirstFaultInOrderBeforeAnyDriverRuns) {
    const FileDialogFilter good{.label = "Text", .pattern = "txt"};
    const std::string label = "File dialog filter label is empty.";
    const std::string pattern = "File dialog filter pattern is empty for 'Its \"label\"'.";
    const std::string extension = "Default file extension contains a path separator.";
    const std::string name = "Suggested file name must not contain a directory.";
    const struct {
        std::vector<FileDialogFilter> filters;
        std::string extension;
        std::string name;
        Operation firstToRefuse = None;
        std::string fault{};
    } cases[] = {
        {{}, "", ""},
        {{good, good}, ".txt", "a.b:c"},
        {{{"\xFF", "\xFF"}}, "\xFF", "\xFF"}, // not UTF-8, which the driver finds
        {{good, {"", "x"}}, "", "", OpenFile, label},
        {{{"Its \"label\"", ""}, {}}, "", "", OpenFile, pattern},
        {{{}}, "/", "/", OpenFile, label},
        {{good}, "a/b", "a/b", SaveFile, extension},
        {{}, "\\", "", SaveFile, extension},
        {{}, "", "a/b", SaveFile, name},
        {{}, "x", "\\a", SaveFile, name},
    };
    scriptedResult = {Accepted, {"a", "b"}, ""};
    for (const auto &each : cases) {
        SCOPED_TRACE(&each - cases);
        for (const Operation operation : {PickFolder, OpenFile, OpenFiles, SaveFile}) {
            SCOPED_TRACE(operation);
            const std::string fault = operation < each.firstToRefuse ? "" : each.fault;
            ExpectAnswer(operation, {"t", "f", each.filters, each.extension, each.name}, fault,
                         fault.empty() ? Lines() : Lines{"error File dialog failed: " + fault});
        }
    }
}

TEST(NativeFileDialog, LogsAtMostOneLineAndGivesAFirstPathOfAnAcceptedResultOnly) {
    const struct {
        FileDialogResult result;
        Lines log;
        std::optional<std::filesystem::path> first;
    } cases[] = {
        {{Accepted, {"a", "b"}, ""}, {}, "a"},
        {{Accepted, {}, ""}, {}, {}},
        {{Cancelled, {"a"}, ""}, {}, {}},
        {{InvalidRequest, {"a"}, "why"}, {"error File dialog failed: why"}, {}},
        {{Unavailable, {"a"}, "why"}, {"warning File dialog unavailable: why"}, {}},
        {{PlatformError, {"a"}, "why"}, {"error File dialog failed: why"}, {}},
    };
    for (const auto &each : cases) {
        scriptedResult = each.result;
        for (const Operation operation : {PickFolder, OpenFile, OpenFiles, SaveFile}) {
            ExpectAnswer(operation, {"t", {}, {}, "", ""}, "", each.log);
        }
        EXPECT_EQ(NativeFileDialog::FirstPath(each.result), each.first);
    }
}

} // namespace

FileDialogResult RunFolderDialog(const FolderDialogRequest &request) {
    return Driver("folder " + request.title);
}
FileDialogResult RunOpenDialog(const OpenFileDialogRequest &request, bool allowMultiple) {
    return Driver((allowMultiple ? "many " : "one ") + request.title);
}
FileDialogResult RunSaveDialog(const SaveFileDialogRequest &request) {
    return Driver("save " + request.title);
}

} // namespace ovrin

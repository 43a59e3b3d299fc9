// The front over scripted drivers: what it refuses, what it hands on, and what it logs.
#include "platform/dialogs/NativeFileDialog.h"

#include "core/logging/Logger.h"
#include "platform/dialogs/ShellDialogs.h"

#include <functional>
#include <gtest/gtest.h>
#include <string>
#include <utility>
#include <vector>

namespace ovrin {

namespace {

FileDialogResult scriptedResult;
std::vector<std::string> driverCalls;

FileDialogResult Driver(std::string call) {
    driverCalls.push_back(std::move(call));
    return scriptedResult;
}

// What `act` adds to the log, as "level message".
std::vector<std::string> LinesOf(const std::function<void()> &act) {
    std::vector<LogRecord> records;
    const std::uint64_t before = Logger::Instance().GetRecordsAfter(0, records);
    act();
    records.clear();
    Logger::Instance().GetRecordsAfter(before, records);
    std::vector<std::string> lines;
    for (const LogRecord &record : records) {
        EXPECT_EQ(record.category, LogCategory::General);
        lines.push_back((record.level == LogLevel::Error     ? "error "
                         : record.level == LogLevel::Warning ? "warning "
                                                             : "other ") +
                        record.message);
    }
    return lines;
}

const FileDialogFilter good{.label = "Text", .pattern = "txt"};
const std::string labelFault = "File dialog filter label is empty.";
const std::string patternFault = "File dialog filter pattern is empty for 'Its \"label\"'.";
const std::string extensionFault = "Default file extension contains a path separator.";
const std::string nameFault = "Suggested file name must not contain a directory.";

struct RequestCase {
    const char *label;
    std::vector<FileDialogFilter> filters;
    std::string extension;
    std::string name;
    std::string openFault; // empty: reaches the driver
    std::string saveFault;
};

const RequestCase requestCases[] = {
    {"nothing at all", {}, "", "", "", ""},
    {"all fields", {good, good}, ".txt", "a.b:c", "", ""},
    {"not UTF-8 is for the driver to find", {{.label = "\xFF", .pattern = "\xFF"}}, "\xFF", "\xFF", "", ""},
    {"no label", {good, {.label = "", .pattern = "x"}}, "", "", labelFault, labelFault},
    {"label before pattern", {{.label = "", .pattern = ""}}, "", "", labelFault, labelFault},
    {"no pattern", {{.label = "Its \"label\"", .pattern = ""}, {}}, "", "", patternFault, patternFault},
    {"filter before extension and name", {{}}, "/", "/", labelFault, labelFault},
    {"extension before name", {good}, "a/b", "a/b", "", extensionFault},
    {"backslash in the extension", {}, "\\", "", "", extensionFault},
    {"slash in the name", {}, "", "a/b", "", nameFault},
    {"backslash in the name", {}, "x", "\\a", "", nameFault},
};

void ExpectRefusal(const FileDialogResult &result, const std::string &fault) {
    EXPECT_EQ(result.status, FileDialogStatus::InvalidRequest);
    EXPECT_TRUE(result.paths.empty());
    EXPECT_EQ(result.message, fault);
}

// Runs one operation whose driver would accept, and holds what comes back, what is logged and whether it was called.
void ExpectAnswer(const std::function<FileDialogResult()> &ask, const std::string &fault, const std::string &driver) {
    scriptedResult = {.status = FileDialogStatus::Accepted, .paths = {"a", "b"}, .message = ""};
    driverCalls.clear();
    FileDialogResult result;
    const auto lines = LinesOf([&] { result = ask(); });
    if (fault.empty()) {
        EXPECT_EQ(result.status, FileDialogStatus::Accepted);
        EXPECT_EQ(result.paths, scriptedResult.paths);
        EXPECT_TRUE(lines.empty());
        EXPECT_EQ(driverCalls, std::vector{driver});
    } else {
        ExpectRefusal(result, fault);
        EXPECT_EQ(lines, std::vector{"error File dialog failed: " + fault});
        EXPECT_TRUE(driverCalls.empty());
    }
}

TEST(NativeFileDialog, RefusesTheFirstFaultInOrderBeforeAnyDriverRuns) {
    for (const RequestCase &each : requestCases) {
        SCOPED_TRACE(each.label);
        const OpenFileDialogRequest open{.title = "t", .defaultFolder = "f", .filters = each.filters};
        const SaveFileDialogRequest save{.title = "t",
                                         .defaultFolder = "f",
                                         .filters = each.filters,
                                         .defaultExtension = each.extension,
                                         .suggestedName = each.name};
        ExpectAnswer([&] { return NativeFileDialog::OpenFile(open); }, each.openFault, "open one t");
        ExpectAnswer([&] { return NativeFileDialog::OpenFiles(open); }, each.openFault, "open many t");
        ExpectAnswer([&] { return NativeFileDialog::SaveFile(save); }, each.saveFault, "save t");
    }
    ExpectAnswer([] { return NativeFileDialog::PickFolder({.title = "t", .defaultFolder = {}}); }, "", "folder t");
}

TEST(NativeFileDialog, LogsAtMostOneLineAndHandsTheOutcomeOn) {
    const struct {
        FileDialogStatus status;
        std::vector<std::string> lines;
    } cases[] = {
        {FileDialogStatus::Cancelled, {}},
        {FileDialogStatus::InvalidRequest, {"error File dialog failed: why"}},
        {FileDialogStatus::Unavailable, {"warning File dialog unavailable: why"}},
        {FileDialogStatus::PlatformError, {"error File dialog failed: why"}},
    };
    const std::function<FileDialogResult()> operations[] = {
        [] { return NativeFileDialog::OpenFile({}); },
        [] { return NativeFileDialog::OpenFiles({}); },
        [] { return NativeFileDialog::PickFolder({}); },
        [] { return NativeFileDialog::SaveFile({}); },
    };
    for (const auto &each : cases) {
        scriptedResult = {.status = each.status, .paths = {}, .message = "why"};
        for (const auto &operation : operations) {
            FileDialogResult result;
            EXPECT_EQ(LinesOf([&] { result = operation(); }), each.lines);
            EXPECT_EQ(result.status, each.status);
            EXPECT_EQ(result.message, "why");
        }
    }
}

TEST(NativeFileDialog, GivesAFirstPathOfAnAcceptedResultOnly) {
    using enum FileDialogStatus;
    EXPECT_EQ(NativeFileDialog::FirstPath({.status = Accepted, .paths = {"a", "b"}, .message = ""}), "a");
    EXPECT_EQ(NativeFileDialog::FirstPath({.status = Accepted, .paths = {}, .message = ""}), std::nullopt);
    for (const FileDialogStatus status : {Cancelled, InvalidRequest, Unavailable, PlatformError}) {
        EXPECT_EQ(NativeFileDialog::FirstPath({.status = status, .paths = {"a"}, .message = ""}), std::nullopt);
    }
}

} // namespace

FileDialogResult RunFolderDialog(const FolderDialogRequest &request) {
    return Driver("folder " + request.title);
}
FileDialogResult RunOpenDialog(const OpenFileDialogRequest &request, bool allowMultiple) {
    return Driver((allowMultiple ? "open many " : "open one ") + request.title);
}
FileDialogResult RunSaveDialog(const SaveFileDialogRequest &request) {
    return Driver("save " + request.title);
}

} // namespace ovrin

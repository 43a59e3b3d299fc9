#include "core/logging/LogClock.h"
#include "core/logging/LogThread.h"
#include "core/logging/PackedRecords.h"
#include "core/logging/RecordHistory.h"
#include "core/logging/SessionFiles.h"
#include "core/logging/WrittenSequence.h"
#include "tests/support/EnvironmentScope.h"

#include <algorithm>
#include <ctime>
#include <gtest/gtest.h>
#include <span>
#include <thread>
#include <utility>

namespace ovrin::testing {

namespace {

using namespace std::string_view_literals;

constexpr ClockText someTime{'1', '4', ':', '0', '3', ':', '5', '9'};

TEST(LogLine, ShowsTheCategoryUnlessItIsGeneralAndTheMessageAsItIs) {
    const struct {
        LogLevel level;
        LogCategory category;
        std::string_view message, line;
    } cases[] = {
        {LogLevel::Warning, LogCategory::General, "text", "14:03:59 [Warn] text"},
        {LogLevel::Error, LogCategory::Render, "text", "14:03:59 [Error] [Render] text"},
        {LogLevel::Trace, LogCategory::Core, "", "14:03:59 [Trace] [Core] "},
        {LogLevel::Fatal, LogCategory::Physics, "\na\0\xFF\r\n"sv, "14:03:59 [Fatal] [Physics] \na\0\xFF\r\n"sv},
        {LogLevel::Off, static_cast<LogCategory>(10), "x", "14:03:59 [Log] [Unknown] x"},
    };
    LogRecord record; // keeps nothing of the case before
    for (const auto &each : cases) {
        const LogRecordView view{each.level, each.category, 7, 8, someTime, each.message};
        AssignRecord(record, view);
        EXPECT_EQ(FormatRecordLine(record), each.line);
        std::string text = "before\n";
        AppendRecordLine(text, view);
        EXPECT_EQ(text, "before\n" + std::string(each.line));
    }
}

// Of various lengths, some empty and a few huge.
std::string MessageOf(std::uint64_t sequence) {
    std::string message;
    message.append(sequence % 300 == 0 ? 200000 : sequence % 40, static_cast<char>('a' + sequence % 26));
    return message;
}

void Append(auto &records, std::uint64_t sequence, std::string_view message) {
    records.MakeRoom(message.size());
    records.Append({LogLevel::Info, LogCategory::Net, sequence, 3, someTime, message});
}

TEST(RecordHistory, GivesItsLastRecordsBehindAnySequence) {
    const std::pair<std::uint64_t, std::uint64_t> cases[] = {{3, 0},     {1, 700},    {5, 4},     {5, 5},
                                                             {999, 600}, {256, 1000}, {300, 1500}};
    for (const auto &[capacity, count] : cases) {
        SCOPED_TRACE(std::to_string(count) + " in " + std::to_string(capacity));
        RecordHistory history(capacity);
        for (std::uint64_t sequence = 1; sequence <= count; ++sequence) {
            Append(history, sequence, MessageOf(sequence));
        }
        const std::uint64_t oldest = count + 1 - std::min(count, capacity);
        for (const std::uint64_t after :
             {std::uint64_t{0}, oldest - 1, oldest, (oldest + count) / 2, count, count + 1}) {
            std::vector<LogRecord> records(1); // stays
            history.CopyAfter(after, records);
            std::uint64_t sequence = std::clamp(after + 1, oldest, count + 1) - 1;
            ASSERT_EQ(records.size(), 1 + count - sequence) << "behind " << after;
            for (const LogRecord &record : std::span(records).subspan(1)) {
                ASSERT_EQ(record.sequence, ++sequence);
                ASSERT_EQ(FormatRecordLine(record), "14:03:59 [Info] [Net] " + MessageOf(sequence));
            }
        }
    }
}

TEST(PackedRecords, KeepCommonMemoryAndGiveBackWhatIsHuge) {
    const struct {
        std::size_t count, messageSize;
        bool kept;
    } cases[] = {{1, 200, true}, {1000, 200, true}, {1, 1000000, false}, {1000, 5000, false}};
    for (const auto &each : cases) {
        PackedRecords records;
        for (std::size_t index = 0; index < each.count; ++index) {
            Append(records, index, std::string(each.messageSize, 'm'));
        }
        const char *const memory = records[0].message.data();
        records.Clear();
        EXPECT_TRUE(records.IsEmpty());
        Append(records, 9, "x"); // so short that it needs no memory where none is left
        EXPECT_EQ(records[0].message, "x");
        EXPECT_EQ(records[0].message.data() == memory, each.kept) << each.count << " of " << each.messageSize;
    }
}

TEST(WrittenSequence, WaitsForTheOldestBatch) {
    WrittenSequence written;
    for (const std::uint64_t first : {1, 4, 5, 10}) {
        written.Begin(first);
    }
    const struct { std::uint64_t first, last, value; } steps[] = {{5, 9, 0}, {1, 3, 3}, {10, 12, 3}, {4, 4, 12}};
    for (const auto &each : steps) {
        written.Finish(each.first, each.last);
        EXPECT_EQ(written.Value(), each.value) << each.first;
    }
}

TEST(FilePrefix, HoldsOnlyLettersDigitsAndTwoMarks) {
    const std::pair<std::string, const char *> cases[] = {
        {"", "OvrinEngine"},  {" ", "_"},         {"azAZ09-_", "azAZ09-_"}, {"../\\\"*?", "_______"},
        {"/:@[`{", "______"}, {"\xC3\xBC", "__"}, {{"a\0b", 3}, "a_b"},
    };
    for (const auto &[text, expected] : cases) {
        EXPECT_EQ(SanitizeFilePrefix(text), expected);
    }
}

std::string LibraryTime(const char *format) {
    const std::time_t now = std::time(nullptr);
    char text[20];
    return {text, std::strftime(text, sizeof(text), format, std::localtime(&now))}; // reads TZ anew
}

// Gives the library's time at which the other was told.
std::string ExpectLibraryTime(std::string (*tell)(), const char *format) {
    std::string before, told;
    do { // until no second ends in between
        before = LibraryTime(format);
        told = tell();
    } while (LibraryTime(format) != before);
    EXPECT_EQ(told, before);
    return before;
}

// Away from universal time, where the C library follows TZ.
TEST(LogClock, TellsTheLocalTimeAlsoWhenASecondHasEnded) {
    {
        const EnvironmentScope scope("TZ", WIDE("OVR-5:45"));
        std::thread([] { // each thread keeps its last second
            const std::string first = ExpectLibraryTime(FormatClockTime, "%H:%M:%S");
            while (ExpectLibraryTime(FormatClockTime, "%H:%M:%S") == first) {
            }
        })
            .join();
        ExpectLibraryTime(FormatFileTimestamp, "%Y%m%d_%H%M%S");
    }
    LibraryTime(""); // back in the tester's zone
}

TEST(LogThread, HasANumberOfItsOwnThatIsNeverReused) {
    const std::uint32_t own = CurrentThreadLogId();
    EXPECT_GE(own, 1U);
    std::uint32_t last = own;
    for (int count = 0; count < 2; ++count) {
        std::thread([&last] { EXPECT_GT(CurrentThreadLogId(), std::exchange(last, CurrentThreadLogId())); }).join();
    }
    EXPECT_EQ(CurrentThreadLogId(), own);
}

} // namespace

} // namespace ovrin::testing

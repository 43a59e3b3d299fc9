#include "tests/core/logging/LoggerTestSupport.h"

#include <limits>
#include <stdexcept>

namespace ovrin::testing {

namespace {

LoggerConfig Quiet() {
    return {.console = false};
}

// Lines without their time of day.
Texts WithoutTime(Texts lines) {
    for (std::string &line : lines) {
        line.erase(0, line.find('['));
    }
    return lines;
}

TEST(Logger, WritesOnTheCallersThreadUntilItIsStarted) {
    Logger logger(Quiet());
    const auto sink = std::make_shared<RecordingSink>();
    EXPECT_EQ(logger.AddSink(nullptr), 0U);
    EXPECT_EQ(logger.AddSink(sink), 1U);
    logger.Log(LogLevel::Warning, "text");
    logger.Log(LogCategory::Render, LogLevel::Fatal, std::string("a\nb\0c", 5));
    EXPECT_EQ(WithoutTime(sink->Lines()), (Texts{"[Warn] text", std::string("[Fatal] [Render] a\nb\0c", 22)}));
    EXPECT_EQ(sink->Threads(), std::vector(2, CurrentThreadLogId()));
    EXPECT_EQ(sink->FlushedCount(), 2U);
    EXPECT_FALSE(logger.IsWorkerRunning());
    EXPECT_TRUE(logger.GetSessionLogPath().empty());
}

TEST(Logger, DropsWhatIsBelowTheThresholdOrNoRecordWithoutATrace) {
    Logger logger(Quiet());
    logger.SetLevel(LogCategory::Net, LogLevel::Error);
    logger.Log(LogCategory::Net, LogLevel::Warning, "below");
    logger.Log(static_cast<LogCategory>(10), LogLevel::Error, "no category");
    logger.Log(static_cast<LogCategory>(255), LogLevel::Error, "no category");
    logger.SetAllLevels(LogLevel::Trace);
    logger.Log(LogLevel::Off, "no level");
    logger.Log(static_cast<LogLevel>(255), "no level");
    logger.Log(LogLevel::Trace, "seen");
    const auto records = logger.GetRecords();
    ASSERT_EQ(records.size(), 1U);
    EXPECT_EQ(records[0].message, "seen");
    EXPECT_EQ(records[0].sequence, 1U);
}

TEST(Logger, KeepsTheLastRecordsForItsReaders) {
    Logger logger({.console = false, .historyCapacity = 3});
    for (const char *message : {"1", "2", "3", "4", "5"}) {
        logger.Log(LogLevel::Info, message);
    }
    std::vector<LogRecord> records(1);
    EXPECT_EQ(logger.GetRecordsAfter(4, records), 5U);
    ASSERT_EQ(records.size(), 2U); // appended
    EXPECT_EQ(records[1].sequence, 5U);
    EXPECT_EQ(logger.GetRecordsAfter(5, records), 5U);
    EXPECT_EQ(records.size(), 2U);
    EXPECT_EQ(logger.GetRecords().front().message, "3");

    constexpr auto longest = std::numeric_limits<std::int64_t>::max();
    EXPECT_EQ(WithoutTime(logger.GetRecentLines(2, longest)), (Texts{"[Info] 4", "[Info] 5"}));
    EXPECT_EQ(logger.GetRecentLines(std::numeric_limits<std::uint64_t>::max(), 0).size(), 3U);
    EXPECT_EQ(logger.GetRecentLines(0, 0).size(), 0U);

    logger.ClearHistory();
    EXPECT_TRUE(logger.GetRecords().empty());
    logger.Log(LogLevel::Info, "6");
    EXPECT_EQ(logger.GetRecords().front().sequence, 6U);
}

TEST(Logger, GivesNoLinesWhileTheLockIsHeld) {
    Logger logger(Quiet());
    logger.Log(LogLevel::Info, "text");
    auto lock = LoggerTestAccess::LockOfQueue(logger);
    Texts lines{"untouched"};
    bool flushed = true;
    std::thread([&] {
        lines = logger.GetRecentLines(1, std::numeric_limits<std::int64_t>::min());
        flushed = logger.FlushFor(1);
    }).join();
    EXPECT_TRUE(lines.empty());
    EXPECT_FALSE(flushed);

    Semaphore begun;
    std::thread patient([&] {
        begun.Release();
        lines = logger.GetRecentLines(1, std::numeric_limits<std::int64_t>::max());
        flushed = logger.FlushFor(std::numeric_limits<std::int64_t>::max());
    });
    EXPECT_TRUE(begun.Acquire());
    for (int turn = 0; turn < 1000; ++turn) {
        std::this_thread::yield(); // so that it meets the lock held, most likely
    }
    lock.unlock();
    patient.join();
    EXPECT_EQ(lines.size(), 1U);
    EXPECT_TRUE(flushed);
}

TEST(Logger, TakesACapacityOfZeroAsOne) {
    Logger logger({.console = false, .startWorkerOnCreate = true, .queueCapacity = 0, .historyCapacity = 0});
    logger.Log(LogLevel::Info, "1");
    logger.Log(LogLevel::Info, "2");
    EXPECT_EQ(logger.GetRecords().size(), 1U);
    EXPECT_EQ(logger.GetRecords()[0].sequence, 2U);
}

TEST(LogSinks, AreServedInOrderWhateverTheyThrow) {
    Texts calls;
    Logger logger(Quiet());
    const auto note = [&calls](const char *name) {
        return std::make_shared<RecordingSink>([&calls, name](const LogRecord &) { calls.emplace_back(name); },
                                               [&calls, name] { calls.push_back(std::string(name) + " flush"); });
    };
    logger.AddSink(note("a"));
    const auto second = logger.AddSink(
        std::make_shared<RecordingSink>([](const LogRecord &) { throw 1; }, [] { throw std::runtime_error("flush"); }));
    logger.AddSink(note("c"));
    const auto last = logger.AddSink(note("d"));
    logger.Log(LogLevel::Info, "text");
    EXPECT_EQ(calls, (Texts{"a", "c", "d", "a flush", "c flush", "d flush"}));
    calls.clear();
    logger.RemoveSink(second);
    logger.RemoveSink(second);
    logger.RemoveSink(0);
    EXPECT_EQ(logger.AddSink(note("e")), last + 1);
    logger.Log(LogLevel::Info, "text");
    EXPECT_EQ(calls, (Texts{"a", "c", "d", "e", "a flush", "c flush", "d flush", "e flush"}));
}

TEST(LogSinks, ReachOnlyTheHistoryFromInsideWithoutAWorker) {
    Logger logger(Quiet());
    const auto other = std::make_shared<RecordingSink>();
    const auto say = [&logger] {
        logger.Log(LogLevel::Fatal, "from the sink");
        logger.Flush();
        EXPECT_FALSE(logger.FlushFor(1));
    };
    logger.AddSink(std::make_shared<RecordingSink>([say](const LogRecord &) { say(); }, say));
    logger.AddSink(other);
    logger.Log(LogLevel::Info, "text");
    EXPECT_EQ(other->Messages(), Texts{"text"});
    EXPECT_EQ(logger.GetRecords().size(), 3U);
}

TEST(LogSinks, MayRunAnotherLoggerToItsEnd) {
    const auto inner = std::make_shared<RecordingSink>();
    Logger logger(Quiet());
    logger.AddSink(std::make_shared<RecordingSink>([&inner](const LogRecord &) {
        Logger other({.console = false, .startWorkerOnCreate = true});
        other.AddSink(inner);
        other.Log(LogLevel::Info, "inner");
    }));
    logger.Log(LogLevel::Info, "outer");
    EXPECT_EQ(inner->Messages(), Texts{"inner"});
}

TEST(LogSinks, AreDroppedWhereTheyMayLog) {
    Logger logger(Quiet());
    struct Farewell : LogSink {
        explicit Farewell(Logger &loggerToUse) : logger(loggerToUse) {}
        Farewell(const Farewell &) = delete;
        Farewell &operator=(const Farewell &) = delete;
        ~Farewell() override { logger.Log(LogLevel::Info, "farewell"); }
        void Write(const LogRecord & /*record*/, std::string_view /*line*/) override {}
        void Flush() override {}
        Logger &logger;
    };
    const auto rest = std::make_shared<RecordingSink>();
    logger.AddSink(rest);
    logger.RemoveSink(logger.AddSink(std::make_shared<Farewell>(logger)));
    EXPECT_EQ(rest->Messages(), Texts{"farewell"});
    logger.AddSink(std::make_shared<Farewell>(logger)); // and at the logger's own end
}

TEST(LogQueue, MakesProducersWaitForRoomAndLosesNothing) {
    GatedLogger gated(1);
    gated.StallWorker();
    gated.Log("fills the queue");
    std::thread producer([&gated] { gated.Log("waits"); });
    WaitUntil([&] { return LoggerTestAccess::ProducersWaiting(gated.logger) == 1; });
    EXPECT_EQ(gated.logger.GetRecords().size(), 2U);
    gated.gate.Open();
    producer.join();
    gated.logger.Flush();
    EXPECT_EQ(gated.sink->Messages(), (Texts{"stop", "fills the queue", "waits"}));
    EXPECT_EQ(gated.sink->FlushedCount(), 3U);
}

TEST(LogQueue, LetsASinkPassWhenItIsFull) {
    Logger *logger = nullptr;
    GatedLogger gated(1, [&logger](const LogRecord &record) {
        if (record.message == "stop") {
            logger->Log(LogLevel::Info, "second");
            logger->Log(LogLevel::Fatal, "third"); // whose flush returns at once
        }
    });
    logger = &gated.logger;
    gated.StallWorker();
    gated.Log("first");
    gated.gate.Open();
    gated.logger.Flush(); // the first
    gated.logger.Flush(); // what the sink had queued by then
    EXPECT_EQ(gated.sink->Messages(), (Texts{"stop", "first", "second", "third"}));
}

TEST(LogQueue, HasWrittenAndFlushedAFatalRecordWhenLogReturns) {
    GatedLogger gated;
    gated.Log("before");
    gated.logger.Log(LogLevel::Fatal, "fatal");
    ASSERT_EQ(gated.sink->FlushedCount(), 2U);
    EXPECT_NE(gated.sink->Threads().back(), CurrentThreadLogId());
    gated.logger.StartWorker();
    gated.Log("goes on");
    gated.logger.Flush();
    EXPECT_EQ(gated.sink->Threads().back(), gated.sink->Threads().front()); // the same worker
}

} // namespace

} // namespace ovrin::testing

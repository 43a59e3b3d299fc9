#include "tests/core/logging/LoggerTestSupport.h"

#include <limits>

namespace ovrin::testing {

namespace {

constexpr auto longest = std::numeric_limits<std::int64_t>::max();

// Lines without their time of day.
Texts WithoutTime(Texts lines) {
    for (std::string &line : lines) {
        line.erase(0, line.find('['));
    }
    return lines;
}

TEST(Logger, WritesOnTheCallersThreadUntilItIsStarted) {
    WatchedLogger watched;
    EXPECT_EQ(watched.logger.AddSink(nullptr), 0U);
    watched.logger.Log(LogLevel::Warning, "text");
    watched.logger.Log(LogCategory::Render, LogLevel::Fatal, std::string("a\nb\0c", 5));
    const auto seen = watched.sink->Seen();
    EXPECT_EQ(WithoutTime(seen.lines), (Texts{"[Warn] text", std::string("[Fatal] [Render] a\nb\0c", 22)}));
    EXPECT_EQ(seen.threads, std::vector(2, CurrentThreadLogId()));
    EXPECT_EQ(seen.flushedCount, 2U);
    EXPECT_FALSE(watched.logger.IsWorkerRunning());
    EXPECT_TRUE(watched.logger.GetSessionLogPath().empty());
}

TEST(Logger, DropsWhatIsBelowTheThresholdOrNoRecordWithoutATrace) {
    Logger logger(quiet);
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
    EXPECT_EQ(logger.GetRecordsAfter(5, records), 5U);
    ASSERT_EQ(records.size(), 2U); // appended
    EXPECT_EQ(records[1].sequence, 5U);
    EXPECT_EQ(logger.GetRecords().front().message, "3");

    EXPECT_EQ(WithoutTime(logger.GetRecentLines(2, longest)), (Texts{"[Info] 4", "[Info] 5"}));
    EXPECT_EQ(logger.GetRecentLines(std::numeric_limits<std::uint64_t>::max(), 0).size(), 3U);
    EXPECT_TRUE(logger.GetRecentLines(0, 0).empty());

    logger.ClearHistory();
    EXPECT_TRUE(logger.GetRecords().empty());
    logger.Log(LogLevel::Info, "6");
    EXPECT_EQ(logger.GetRecords().front().sequence, 6U);
}

TEST(Logger, GivesNoLinesWhileTheLockIsHeld) {
    Logger logger(quiet);
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
        lines = logger.GetRecentLines(1, longest);
        flushed = logger.FlushFor(longest);
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
    const auto records = logger.GetRecords();
    ASSERT_EQ(records.size(), 1U);
    EXPECT_EQ(records[0].sequence, 2U);
}

TEST(LogSinks, AreServedInOrderWhateverTheyThrow) {
    Texts calls;
    Logger logger(quiet);
    const auto add = [&](const std::string &name) {
        return logger.AddSink(
            std::make_shared<RecordingSink>([&calls, name](const std::string &call) { calls.push_back(name + call); }));
    };
    EXPECT_EQ(add("a "), 1U);
    const auto second = logger.AddSink(std::make_shared<RecordingSink>([](const std::string &) { throw 1; }));
    add("c ");
    EXPECT_EQ(add("d "), 4U);
    logger.Log(LogLevel::Info, "text");
    EXPECT_EQ(calls, (Texts{"a text", "c text", "d text", "a flush", "c flush", "d flush"}));
    calls.clear();
    for (const std::uint64_t id : {second, second, std::uint64_t{0}}) {
        logger.RemoveSink(id);
    }
    EXPECT_EQ(add("e "), 5U);
    logger.Flush();
    EXPECT_EQ(calls, (Texts{"a flush", "c flush", "d flush", "e flush"}));
}

TEST(LogSinks, ReachOnlyTheirOwnLoggersHistoryFromInsideWithoutAWorkerButAllOfAnother) {
    const auto inner = std::make_shared<RecordingSink>([](const std::string &) {});
    WatchedLogger watched(quiet, [&inner](Logger &logger, const std::string & /*call*/) {
        logger.Log(LogLevel::Fatal, "from the sink");
        logger.Flush();
        EXPECT_FALSE(logger.FlushFor(1));
        Logger other(Queued()); // which the sink runs to its end
        other.AddSink(inner);
        other.Log(LogLevel::Info, "inner");
    });
    watched.Log("text");
    EXPECT_EQ(watched.sink->Seen().messages, Texts{"text"});
    EXPECT_EQ(watched.logger.GetRecords().size(), 3U); // the flush's too
    EXPECT_EQ(inner->Seen().messages, Texts(2, "inner"));
}

TEST(LogSinks, AreDroppedWhereTheyMayLog) {
    RecordingSink silent([](const std::string &) {});
    WatchedLogger watched;
    const auto addFarewell = [&] {
        const auto say = [&watched](const LogSink * /*sink*/) { watched.Log("farewell"); };
        return watched.logger.AddSink(std::shared_ptr<LogSink>(&silent, say));
    };
    watched.logger.RemoveSink(addFarewell());
    EXPECT_EQ(watched.sink->Seen().messages, Texts{"farewell"});
    addFarewell(); // and at the logger's own end
}

TEST(LogQueue, MakesProducersWaitForRoomButNoSinkAndLosesNothing) {
    WatchedLogger gated(Queued(1), [](Logger &logger, const std::string &message) {
        if (message == "stop") {
            logger.Log(LogLevel::Fatal, "from the sink"); // whose flush returns at once
        } else if (message == "fatal") {
            EXPECT_FALSE(logger.FlushFor(1)); // it runs out of time
        }
    });
    gated.StallWorker();
    gated.Log("fills the queue");
    std::thread producer([&gated] {
        gated.logger.Log(LogLevel::Fatal, "fatal");
        EXPECT_EQ(gated.sink->Seen().flushedCount, 4U);
    });
    gated.Await(&LoggerState::producersWaiting, 1U);
    EXPECT_EQ(gated.logger.GetRecords().size(), 2U);
    gated.gate.Open();
    producer.join();
    gated.logger.StartWorker(); // there is one
    gated.Log("goes on");
    gated.logger.Flush();
    const auto seen = gated.sink->Seen();
    EXPECT_EQ(seen.messages, (Texts{"stop", "fills the queue", "from the sink", "fatal", "goes on"}));
    EXPECT_EQ(seen.threads, std::vector(5, seen.threads[0]));
    EXPECT_NE(seen.threads[0], CurrentThreadLogId());
}

} // namespace

} // namespace ovrin::testing

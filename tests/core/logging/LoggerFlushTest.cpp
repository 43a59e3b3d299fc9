#include "tests/core/logging/LoggerTestSupport.h"

#include <atomic>

namespace ovrin::testing {

namespace {

using Access = LoggerTestAccess;

TEST(LogFlush, FlushesTheOutputsWithoutAWorkerAndNothingWithAnIdleOne) {
    Logger logger({.console = false});
    const auto sink = std::make_shared<RecordingSink>();
    logger.AddSink(sink);
    logger.Flush();
    EXPECT_EQ(sink->Flushes(), 1);
    EXPECT_TRUE(logger.FlushFor(0));
    EXPECT_EQ(sink->Flushes(), 2);
    logger.StartWorker();
    logger.Flush();
    EXPECT_EQ(sink->Flushes(), 2);
    logger.StopWorker();
    logger.StopWorker();
    logger.Shutdown();
    logger.Shutdown();
    EXPECT_EQ(sink->Flushes(), 4);
}

TEST(LogFlush, WithALimitWritesWhatNobodyTakes) {
    Logger logger({.console = false});
    const auto sink = std::make_shared<RecordingSink>();
    logger.AddSink(sink);
    Access::QueueWithoutWorker(logger, true);
    logger.Log(LogLevel::Info, "1");
    logger.Log(LogLevel::Info, "2");
    EXPECT_TRUE(sink->Messages().empty());
    EXPECT_TRUE(logger.FlushFor(0));
    EXPECT_EQ(sink->Messages(), (Texts{"1", "2"}));
    EXPECT_EQ(sink->Threads(), std::vector(2, CurrentThreadLogId()));
    logger.Flush(); // nothing newer: it returns
    Access::QueueWithoutWorker(logger, false);
}

TEST(LogFlush, WithALimitGivesUpOnAStalledWorkerAndHoldsNobodyElseUp) {
    GatedLogger gated(1);
    gated.StallWorker();
    gated.Log("taken by the flush");
    std::thread producer([&gated] { gated.Log("waits for room"); });
    WaitUntil([&] { return Access::ProducersWaiting(gated.logger) == 1; });
    std::thread flush([&gated] {
        gated.logger.Flush();
        EXPECT_GE(gated.sink->FlushedCount(), 1U) << "released before the older record was written";
    });
    WaitUntil([&] { return Access::DrainedWaiters(gated.logger) == 1; });

    EXPECT_FALSE(gated.logger.FlushFor(1));
    producer.join(); // the room that the flush made
    EXPECT_EQ(Access::Written(gated.logger), 0U);
    EXPECT_EQ(Access::DrainedWaiters(gated.logger), 1U);
    gated.gate.Open();
    flush.join();
    gated.logger.Flush();
    EXPECT_EQ(gated.sink->Messages(), (Texts{"stop", "waits for room"}));
    EXPECT_EQ(gated.logger.GetRecords().size(), 3U);
    EXPECT_EQ(Access::Written(gated.logger), 3U);
}

TEST(LogFlush, WithALimitRunsOutOfTimeInsideASink) {
    std::atomic<int> refused = 0;
    Logger *logger = nullptr;
    GatedLogger gated(16, [&](const LogRecord & /*record*/) { refused += logger->FlushFor(1) ? 0 : 1; });
    logger = &gated.logger;
    gated.Log("text");
    gated.logger.Flush();
    EXPECT_EQ(refused, 1);
}

TEST(LogStop, WritesEverythingExactlyOnce) {
    GatedLogger gated(2);
    gated.StallWorker();
    gated.Log("queued");
    std::thread stop([&gated] { gated.logger.StopWorker(); });
    WaitUntil([&] { return Access::StopRequested(gated.logger); });
    EXPECT_TRUE(gated.logger.IsWorkerRunning());
    gated.Log("during the stop"); // still queued: it returns
    std::thread producer([&gated] { gated.Log("waits for room"); });
    WaitUntil([&] { return Access::ProducersWaiting(gated.logger) == 1; });
    std::thread flush([&gated] { gated.logger.Flush(); });
    WaitUntil([&] { return Access::DrainedWaiters(gated.logger) == 1; });
    gated.logger.StartWorker(); // too early: there is one
    std::thread shutdown([&gated] { gated.logger.Shutdown(); });
    WaitUntil([&] { return Access::DrainedWaiters(gated.logger) == 2; });

    gated.gate.Open();
    for (std::thread *each : {&stop, &producer, &flush, &shutdown}) {
        each->join();
    }
    EXPECT_FALSE(gated.logger.IsWorkerRunning());
    gated.Log("direct");
    EXPECT_EQ(gated.sink->Messages(), (Texts{"stop", "queued", "during the stop", "waits for room", "direct"}));
    EXPECT_EQ(gated.sink->Threads().back(), CurrentThreadLogId());
    EXPECT_EQ(gated.sink->FlushedCount(), 5U);
}

// The worker's last batch is out with the sink inside it when more comes: that is the final drain's, on the thread that
// stops, and the sink logs again from there.
TEST(LogStop, LetsASinkLogDuringTheFinalDrainAndNobodyElse) {
    Gate last;
    Gate drain;
    Logger *logger = nullptr;
    std::atomic<std::size_t> readInside = 0;
    GatedLogger gated(1, [&](const LogRecord &record) {
        if (record.message == "last of the worker") {
            last.Stop();
        } else if (record.message == "drained") {
            logger->Log(LogLevel::Fatal, "from the sink");
            logger->StopWorker(); // its own stop: returns at once
            readInside = logger->GetRecords().size();
            drain.Stop();
        }
    });
    logger = &gated.logger;
    gated.StallWorker();
    gated.Log("last of the worker");
    std::uint32_t stopThread = 0;
    std::thread stop([&] {
        stopThread = CurrentThreadLogId();
        gated.logger.StopWorker();
    });
    WaitUntil([&] { return Access::StopRequested(gated.logger); });
    gated.gate.Open();
    last.AwaitArrival();
    gated.Log("drained");
    last.Open();
    drain.AwaitArrival();
    std::thread late([&gated] { gated.Log("late"); });
    WaitUntil([&] { return Access::ProducersWaiting(gated.logger) == 1; });
    drain.Open();
    stop.join();
    late.join();
    EXPECT_EQ(gated.sink->Messages(), (Texts{"stop", "last of the worker", "drained", "from the sink", "late"}));
    const auto threads = gated.sink->Threads();
    EXPECT_EQ(threads[2], stopThread);
    EXPECT_EQ(threads[3], stopThread);
    EXPECT_NE(threads[4], stopThread); // its own, on the direct road
    EXPECT_EQ(gated.sink->FlushedCount(), 5U);
    EXPECT_EQ(readInside, 4U);
}

TEST(LogStop, FromTheWorkersOwnThreadEndsInDirectMode) {
    Logger *logger = nullptr;
    GatedLogger gated(16, [&](const LogRecord &record) {
        if (record.message == "stop") {
            logger->StopWorker();
            logger->StopWorker();
        }
    });
    logger = &gated.logger;
    for (int round = 0; round < 2; ++round) {
        gated.StallWorker();
        gated.Log("queued before");
        gated.gate.Open();
        WaitUntil([&] { return !gated.logger.IsWorkerRunning(); });
        gated.Log("direct");
        EXPECT_EQ(gated.sink->Threads().back(), CurrentThreadLogId());
        EXPECT_EQ(gated.sink->Messages().size(), 3U * static_cast<unsigned>(round + 1));
        gated.logger.Flush();
        gated.logger.StartWorker();
    }
    gated.StallWorker();
    gated.gate.Open(); // the destructor waits for the end that the sink asks for
}

// A sink on the logging thread holds the outputs for which a worker that was started meanwhile waits.
TEST(LogStop, FromASinkOfTheDirectRoadDoesNotWaitForTheWorker) {
    Logger logger({.console = false});
    const auto sink = std::make_shared<RecordingSink>([&logger](const LogRecord &record) {
        if (record.message == "direct") {
            logger.StartWorker();
            std::thread([&logger] { logger.Log(LogLevel::Info, "queued"); }).join();
            logger.StopWorker();
            logger.StartWorker(); // too early again
        }
    });
    logger.AddSink(sink);
    logger.Log(LogLevel::Info, "direct");
    logger.StopWorker();
    EXPECT_FALSE(logger.IsWorkerRunning());
    EXPECT_EQ(sink->Messages(), (Texts{"direct", "queued"}));
}

} // namespace

} // namespace ovrin::testing

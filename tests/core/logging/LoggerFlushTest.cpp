#include "tests/core/logging/LoggerTestSupport.h"

#include <atomic>

namespace ovrin::testing {

namespace {

TEST(LogFlush, FlushesTheOutputsWithoutAWorkerAndNothingWithAnIdleOne) {
    WatchedLogger watched;
    watched.logger.Flush();
    EXPECT_TRUE(watched.logger.FlushFor(0));
    EXPECT_EQ(watched.sink->Seen().flushes, 2);
    watched.logger.StartWorker();
    watched.logger.Flush();
    EXPECT_EQ(watched.sink->Seen().flushes, 2);
    watched.logger.StopWorker();
    watched.logger.StopWorker();
    watched.logger.Shutdown();
    watched.logger.Shutdown();
    EXPECT_EQ(watched.sink->Seen().flushes, 4);
}

TEST(LogFlush, WithALimitWritesWhatNobodyTakes) {
    WatchedLogger watched;
    LoggerTestAccess::QueueWithoutWorker(watched.logger, true);
    watched.Log("1");
    watched.Log("2");
    EXPECT_TRUE(watched.sink->Seen().messages.empty());
    EXPECT_TRUE(watched.logger.FlushFor(0));
    EXPECT_EQ(watched.sink->Seen().messages, (Texts{"1", "2"}));
    EXPECT_EQ(watched.sink->Seen().threads, std::vector(2, CurrentThreadLogId()));
    watched.logger.Flush(); // nothing newer: it returns
    LoggerTestAccess::QueueWithoutWorker(watched.logger, false);
}

TEST(LogFlush, WithALimitGivesUpOnAStalledWorkerAndHoldsNobodyElseUp) {
    WatchedLogger gated(Queued(1));
    gated.StallWorker();
    gated.Log("taken by the flush");
    std::thread producer([&gated] { gated.Log("waits for room"); });
    gated.Await(&LoggerState::producersWaiting, 1U);
    std::thread flush([&gated] {
        gated.logger.Flush();
        EXPECT_GE(gated.sink->Seen().flushedCount, 1U) << "released before the older record was written";
    });
    gated.Await(&LoggerState::drainedWaiters, 1U);

    EXPECT_FALSE(gated.logger.FlushFor(1));
    producer.join(); // the room that the flush made
    EXPECT_EQ(gated.State().written, 0U);
    EXPECT_EQ(gated.State().drainedWaiters, 1U);
    gated.gate.Open();
    flush.join();
    gated.logger.Flush();
    EXPECT_EQ(gated.sink->Seen().messages, (Texts{"stop", "waits for room"}));
    EXPECT_EQ(gated.logger.GetRecords().size(), 3U);
    EXPECT_EQ(gated.State().written, 3U);
}

TEST(LogStop, WritesEverythingExactlyOnce) {
    WatchedLogger gated(Queued(2));
    gated.StallWorker();
    gated.Log("queued");
    std::thread stop([&gated] { gated.logger.StopWorker(); });
    gated.Await(&LoggerState::stopRequested, true);
    EXPECT_TRUE(gated.logger.IsWorkerRunning());
    gated.Log("during the stop"); // still queued: it returns
    std::thread producer([&gated] { gated.Log("waits for room"); });
    gated.Await(&LoggerState::producersWaiting, 1U);
    std::thread flush([&gated] { gated.logger.Flush(); });
    gated.Await(&LoggerState::drainedWaiters, 1U);
    gated.logger.StartWorker(); // too early: there is one
    std::thread shutdown([&gated] { gated.logger.Shutdown(); });
    gated.Await(&LoggerState::drainedWaiters, 2U);

    gated.gate.Open();
    for (std::thread *each : {&stop, &producer, &flush, &shutdown}) {
        each->join();
    }
    EXPECT_FALSE(gated.logger.IsWorkerRunning());
    gated.Log("direct");
    const auto seen = gated.sink->Seen();
    EXPECT_EQ(seen.messages, (Texts{"stop", "queued", "during the stop", "waits for room", "direct"}));
    EXPECT_EQ(seen.threads.back(), CurrentThreadLogId());
    EXPECT_EQ(seen.flushedCount, 5U);
}

// The worker's last batch is out with the sink inside it when more comes: that is the final drain's, on the thread that
// stops, and the sink logs again from there. The queue has room: it isn't what the late one waits for.
TEST(LogStop, LetsASinkLogDuringTheFinalDrainAndNobodyElse) {
    Gate last;
    Gate drain;
    std::size_t readInside = 0;
    WatchedLogger gated(Queued(2), [&](Logger &logger, const std::string &message) {
        if (message == "last of the worker") {
            last.Stop();
        } else if (message == "drained") {
            logger.Log(LogLevel::Fatal, "from the sink");
            logger.StopWorker(); // its own stop: returns at once
            readInside = logger.GetRecords().size();
            drain.Stop();
        }
    });
    gated.StallWorker();
    gated.Log("last of the worker");
    std::uint32_t stopThread = 0;
    std::thread stop([&] {
        stopThread = CurrentThreadLogId();
        gated.logger.StopWorker();
    });
    gated.Await(&LoggerState::stopRequested, true);
    gated.gate.Open();
    last.AwaitArrival();
    gated.Log("drained");
    last.Open();
    drain.AwaitArrival();
    std::thread late([&gated] { gated.Log("late"); });
    gated.Await(&LoggerState::producersWaiting, 1U);
    drain.Open();
    stop.join();
    late.join();
    const auto seen = gated.sink->Seen();
    EXPECT_EQ(seen.messages, (Texts{"stop", "last of the worker", "drained", "from the sink", "late"}));
    EXPECT_EQ(seen.threads[2], stopThread);
    EXPECT_EQ(seen.threads[3], stopThread);
    EXPECT_NE(seen.threads[4], stopThread); // its own, on the direct road
    EXPECT_EQ(seen.flushedCount, 5U);
    EXPECT_EQ(readInside, 4U);
}

TEST(LogStop, FromTheWorkersOwnThreadEndsInDirectMode) {
    WatchedLogger gated(Queued(), [](Logger &logger, const std::string &message) {
        if (message == "stop") {
            logger.StopWorker();
            logger.StopWorker();
        }
    });
    for (const std::size_t count : {3, 6}) {
        gated.StallWorker();
        gated.Log("queued before");
        gated.gate.Open();
        WaitUntil([&] { return !gated.logger.IsWorkerRunning(); });
        gated.Log("direct");
        EXPECT_EQ(gated.sink->Seen().threads.back(), CurrentThreadLogId());
        EXPECT_EQ(gated.sink->Seen().messages.size(), count);
        gated.logger.StartWorker();
    }
    gated.StallWorker();
    gated.gate.Open(); // the destructor waits for the end that the sink asks for
}

// A sink on the logging thread holds the outputs for which a worker that was started meanwhile waits.
TEST(LogStop, FromASinkOfTheDirectRoadDoesNotWaitForTheWorker) {
    WatchedLogger watched(quiet, [](Logger &logger, const std::string &message) {
        if (message == "direct") {
            logger.StartWorker();
            std::thread([&logger] { logger.Log(LogLevel::Info, "queued"); }).join();
            logger.StopWorker();
            logger.StartWorker(); // too early again
        }
    });
    watched.Log("direct");
    watched.logger.StopWorker();
    EXPECT_FALSE(watched.logger.IsWorkerRunning());
    EXPECT_EQ(watched.sink->Seen().messages, (Texts{"direct", "queued"}));
}

} // namespace

} // namespace ovrin::testing

// What the logger's tests share: a look at who waits, sinks that stop at a gate, and what was written to a file.
#pragma once

#include "core/logging/LogThread.h"
#include "core/logging/Logger.h"
#include "tests/support/TemporaryFolder.h"

#include <chrono>
#include <condition_variable>
#include <functional>
#include <gtest/gtest.h>
#include <mutex>
#include <thread>

namespace ovrin::testing {

using Texts = std::vector<std::string>;

inline constexpr std::chrono::seconds brokenAfter{60}; // only a broken program waits as long

// Reads the logger's own state, so that a test goes on only when a thread really waits.
struct LoggerTestAccess {
    struct State {
        std::uint32_t producersWaiting, drainedWaiters;
        std::uint64_t written;
        bool stopRequested;
    };
    static auto LockOfQueue(Logger &logger) { return std::unique_lock(logger.queueMutex_); }
    static State Of(Logger &logger) {
        const auto lock = LockOfQueue(logger);
        return {logger.producersWaiting_, logger.drainedWaiters_, logger.written_.Value(), logger.stopRequested_};
    }
    // As between the worker's end and the final drain: records are queued, and nobody takes them.
    static void QueueWithoutWorker(Logger &logger, bool on) {
        const auto lock = LockOfQueue(logger);
        logger.workerRunning_ = on;
    }
};

using LoggerState = LoggerTestAccess::State;

template<typename Condition>
void WaitUntil(const Condition &condition) {
    const auto end = std::chrono::steady_clock::now() + brokenAfter;
    while (!condition()) {
        ASSERT_LT(std::chrono::steady_clock::now(), end);
        std::this_thread::yield();
    }
}

// MinGW's library loses a wake-up of its own semaphores now and then.
class Semaphore {
public:
    void Release() {
        const std::lock_guard lock(mutex_);
        ++count_;
        released_.notify_one();
    }
    // False where only a broken program goes on.
    [[nodiscard]] bool Acquire() {
        std::unique_lock lock(mutex_);
        const bool acquired = released_.wait_for(lock, brokenAfter, [this] { return count_ > 0; });
        count_ -= acquired ? 1 : 0;
        return acquired;
    }

private:
    std::mutex mutex_;
    std::condition_variable released_;
    int count_ = 0;
};

// One thread stops in it until another lets it on.
class Gate {
public:
    void Stop() {
        reached_.Release();
        EXPECT_TRUE(open_.Acquire());
    }
    void AwaitArrival() { ASSERT_TRUE(reached_.Acquire()); }
    void Open() { open_.Release(); }

private:
    Semaphore reached_;
    Semaphore open_;
};

// Keeps what it was given; `onCall` runs inside the calls, with the message or with "flush".
class RecordingSink : public LogSink {
public:
    using OnCall = std::function<void(const std::string &)>;
    struct State {
        Texts messages, lines;
        std::vector<std::uint32_t> threads; // who wrote each message
        std::size_t flushedCount = 0;       // how many messages had been written at the last flush
        int flushes = 0;
    };

    explicit RecordingSink(OnCall onCall) : onCall_(std::move(onCall)) {}

    void Write(const LogRecord &record, std::string_view line) override {
        std::unique_lock lock(mutex_);
        state_.messages.push_back(record.message);
        state_.lines.emplace_back(line);
        state_.threads.push_back(CurrentThreadLogId());
        lock.unlock();
        onCall_(record.message);
    }
    void Flush() override {
        std::unique_lock lock(mutex_);
        state_.flushedCount = state_.messages.size();
        ++state_.flushes;
        lock.unlock();
        onCall_("flush");
    }
    [[nodiscard]] State Seen() const {
        const std::lock_guard lock(mutex_);
        return state_;
    }

private:
    mutable std::mutex mutex_;
    OnCall onCall_;
    State state_;
};

inline constexpr LoggerConfig quiet{.console = false};

constexpr LoggerConfig Queued(std::uint64_t capacity = 16) {
    return {.console = false, .startWorkerOnCreate = true, .queueCapacity = capacity};
}

// A logger with a sink that stops at the gate in the record with the message "stop".
struct WatchedLogger {
    using OnCall = std::function<void(Logger &, const std::string &)>;

    explicit WatchedLogger(
        const LoggerConfig &config = quiet, OnCall onCall = [](auto &&...) {})
        : logger(config),
          sink(std::make_shared<RecordingSink>([this, then = std::move(onCall)](const std::string &message) {
              if (message == "stop") {
                  gate.Stop();
              }
              then(logger, message);
          })) {
        logger.AddSink(sink);
    }

    void Log(std::string_view message) { logger.Log(LogLevel::Info, message); }
    // The worker holds a record and the outputs until the gate opens.
    void StallWorker() {
        Log("stop");
        gate.AwaitArrival();
    }
    [[nodiscard]] LoggerState State() { return LoggerTestAccess::Of(logger); }
    template<typename Value>
    void Await(Value LoggerState::*field, Value value) {
        WaitUntil([=, this] { return State().*field == value; });
    }

    Gate gate;
    Logger logger;
    std::shared_ptr<RecordingSink> sink;
};

} // namespace ovrin::testing

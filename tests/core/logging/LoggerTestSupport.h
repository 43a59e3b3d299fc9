// What the logger's tests share: a look at who waits, sinks that stop at a gate, and threads that are joined.
#pragma once

#include "core/logging/LogThread.h"
#include "core/logging/Logger.h"

#include <chrono>
#include <condition_variable>
#include <functional>
#include <gtest/gtest.h>
#include <mutex>
#include <thread>

namespace ovrin::testing {

inline constexpr std::chrono::seconds brokenAfter{60}; // only a broken program waits as long

// Reads the logger's own state, so that a test goes on only when a thread really waits.
struct LoggerTestAccess {
    template<typename Read>
    static auto Under(Logger &logger, const Read &read) {
        const std::lock_guard lock(logger.queueMutex_);
        return read(logger);
    }
    static auto ProducersWaiting(Logger &logger) {
        return Under(logger, [](Logger &each) { return each.producersWaiting_; });
    }
    static auto DrainedWaiters(Logger &logger) {
        return Under(logger, [](Logger &each) { return each.drainedWaiters_; });
    }
    static auto Written(Logger &logger) {
        return Under(logger, [](Logger &each) { return each.written_.Value(); });
    }
    static bool StopRequested(Logger &logger) {
        return Under(logger, [](Logger &each) { return each.stopRequested_; });
    }
    static auto LockOfQueue(Logger &logger) { return std::unique_lock(logger.queueMutex_); }
    static auto LockOfOutputs(Logger &logger) { return std::unique_lock(logger.outputMutex_); }
    // As between the worker's end and the final drain: records are queued, and nobody takes them.
    static void QueueWithoutWorker(Logger &logger, bool on) {
        Under(logger, [on](Logger &each) { return each.workerRunning_ = on; });
    }
};

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

// Keeps what it was given; `onWrite` and `onFlush` run inside the calls.
class RecordingSink : public LogSink {
public:
    using OnWrite = std::function<void(const LogRecord &)>;

    explicit RecordingSink(OnWrite onWrite = {}, std::function<void()> onFlush = {})
        : onWrite_(std::move(onWrite)), onFlush_(std::move(onFlush)) {}

    void Write(const LogRecord &record, std::string_view line) override {
        {
            const std::lock_guard lock(mutex_);
            messages_.push_back(record.message);
            lines_.emplace_back(line);
            threads_.push_back(CurrentThreadLogId());
        }
        if (onWrite_) {
            onWrite_(record);
        }
    }
    void Flush() override {
        {
            const std::lock_guard lock(mutex_);
            flushedCount_ = messages_.size();
            ++flushes_;
        }
        if (onFlush_) {
            onFlush_();
        }
    }

    using Texts = std::vector<std::string>;
    [[nodiscard]] Texts Messages() const { return Locked(messages_); }
    [[nodiscard]] Texts Lines() const { return Locked(lines_); }
    // Who wrote each message.
    [[nodiscard]] std::vector<std::uint32_t> Threads() const { return Locked(threads_); }
    // How many messages had been written at the last flush.
    [[nodiscard]] std::size_t FlushedCount() const { return Locked(flushedCount_); }
    [[nodiscard]] int Flushes() const { return Locked(flushes_); }

private:
    template<typename Value>
    Value Locked(const Value &value) const {
        const std::lock_guard lock(mutex_);
        return value;
    }

    mutable std::mutex mutex_;
    OnWrite onWrite_;
    std::function<void()> onFlush_;
    Texts messages_;
    Texts lines_;
    std::vector<std::uint32_t> threads_;
    std::size_t flushedCount_ = 0;
    int flushes_ = 0;
};

using Texts = RecordingSink::Texts;

// A quiet logger with a sink that stops at the gate in the record with the message "stop".
struct GatedLogger {
    explicit GatedLogger(std::uint64_t queueCapacity = 16, RecordingSink::OnWrite alsoOnWrite = {})
        : logger(
              {.console = false, .startWorkerOnCreate = true, .queueCapacity = queueCapacity, .historyCapacity = 64}),
          sink(std::make_shared<RecordingSink>([this, then = std::move(alsoOnWrite)](const LogRecord &record) {
              if (record.message == "stop") {
                  gate.Stop();
              }
              if (then) {
                  then(record);
              }
          })) {
        logger.AddSink(sink);
    }

    // The worker holds a record and the outputs until the gate opens.
    void StallWorker() {
        Log("stop");
        gate.AwaitArrival();
    }
    void Log(std::string_view message) { logger.Log(LogLevel::Info, message); }

    Gate gate;
    Logger logger;
    std::shared_ptr<RecordingSink> sink;
};

} // namespace ovrin::testing

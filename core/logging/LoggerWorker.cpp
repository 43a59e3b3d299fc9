// The queued road from the other end: the worker, the flushes, and the stop that loses no record between the two modes.
#include "core/logging/LogThread.h"
#include "core/logging/Logger.h"
#include "core/logging/TimedLock.h"
#include "platform/winapi/WinApi.h"

#include <utility>

namespace ovrin {

namespace {

// Counts a thread in for as long as it waits.
class WaitingScope {
public:
    explicit WaitingScope(std::uint32_t &count) : count_(count) { ++count_; }
    WaitingScope(const WaitingScope &) = delete;
    WaitingScope &operator=(const WaitingScope &) = delete;
    ~WaitingScope() { --count_; }

private:
    std::uint32_t &count_;
};

} // namespace

// A batch that has left the queue. At the end it counts as done with, whatever became of it: no flush waits for ever.
class Logger::BatchScope {
public:
    BatchScope(Logger &logger, RecordQueue &batch) : logger_(logger), batch_(batch) {}
    BatchScope(const BatchScope &) = delete;
    BatchScope &operator=(const BatchScope &) = delete;
    ~BatchScope() {
        if (batch_.IsEmpty()) {
            return;
        }
        QueueLock lock(logger_.queueMutex_);
        logger_.written_.Finish(batch_.Records().front().sequence, batch_.Records().back().sequence);
        const bool wakeFlushes = logger_.flushesWaiting_ > 0;
        lock.unlock();
        if (wakeFlushes) {
            logger_.drained_.notify_all();
        }
        batch_.Clear();
    }

private:
    Logger &logger_;
    RecordQueue &batch_;
};

void Logger::StartWorker() {
    const QueueLock lock(queueMutex_);
    if (workerRunning_ || worker_.joinable()) {
        return;
    }
    if (retiredWorker_.joinable()) {
        retiredWorker_.join(); // it has left the lock for the last time
    }
    worker_ = std::thread(&Logger::WorkerMain, this); // where that fails nothing has changed
    workerRunning_ = true;
    stopRequested_ = false;
}

bool Logger::IsWorkerRunning() const {
    const QueueLock lock(queueMutex_);
    return workerRunning_;
}

bool Logger::IsOnWorkerThread() const {
    return workerThreadId_ != 0 && workerThreadId_ == GetCurrentThreadId();
}

void Logger::WorkerMain() noexcept {
    SetCurrentThreadName("Ovrin Log Sink");
    {
        const QueueLock lock(queueMutex_);
        workerThreadId_ = GetCurrentThreadId();
    }
    RecordQueue batch;
    while (WriteNextBatch(batch)) {
    }
    QueueLock lock(queueMutex_);
    workerThreadId_ = 0;
    const bool isRetired = retiredWorker_.joinable();
    lock.unlock();
    if (isRetired) {
        FinishStop();
    }
}

// False after the last one. What comes during that one is left to the final drain: a worker that went on while anybody
// logs might never end.
bool Logger::WriteNextBatch(RecordQueue &batch) {
    QueueLock lock(queueMutex_);
    while (pending_.IsEmpty() && !stopRequested_) {
        workerWaits_ = true;
        workAvailable_.wait(lock);
    }
    workerWaits_ = false;
    const bool isLast = stopRequested_;
    TakePending(batch);
    lock.unlock();
    WriteTaken(batch);
    return !isLast;
}

// Needs the queue's lock and an empty batch, whose storage goes to the queue.
void Logger::TakePending(RecordQueue &batch) {
    if (pending_.IsEmpty()) {
        return;
    }
    written_.Begin(pending_.Records().front().sequence);
    std::swap(batch, pending_);
    if (producersWaiting_ > 0) {
        spaceAvailable_.notify_all();
    }
}

void Logger::WriteTaken(RecordQueue &batch) noexcept {
    const BatchScope scope(*this, batch);
    if (batch.IsEmpty()) {
        return;
    }
    try {
        const std::lock_guard lock(outputMutex_);
        outputs_.WriteRecords(batch.Records());
        outputs_.Flush();
    } catch (...) { // NOLINT(bugprone-empty-catch): no memory for the text; the outputs miss it and the worker goes on
    }
}

void Logger::Flush() {
    if (IsInSinkCall()) {
        return;
    }
    QueueLock lock(queueMutex_);
    if (workerRunning_ && !IsOnWorkerThread()) {
        const WaitingScope waiting(flushesWaiting_);
        drained_.wait(lock,
                      [this, target = lastQueuedSequence_] { return written_.Value() >= target || !workerRunning_; });
        return;
    }
    lock.unlock();
    const std::lock_guard outputLock(outputMutex_);
    outputs_.Flush();
}

bool Logger::FlushFor(std::int64_t timeoutMs) noexcept {
    try {
        const Deadline deadline = DeadlineAfter(timeoutMs);
        RecordQueue stolen;
        QueueLock lock(queueMutex_, std::defer_lock);
        if (!LockUntil(lock, deadline)) {
            return false;
        }
        const std::uint64_t target = lastQueuedSequence_;
        const auto isWritten = [this, target] { return written_.Value() >= target; };
        if (workerRunning_ && worker_.joinable() && !IsOnWorkerThread()) {
            const WaitingScope waiting(flushesWaiting_);
            drained_.wait_until(lock, deadline, isWritten);
        }
        if (!isWritten()) {
            TakePending(stolen);
        }
        lock.unlock();
        return WriteStolen(stolen, deadline);
    } catch (...) {
        return false;
    }
}

bool Logger::WriteStolen(RecordQueue &stolen, Deadline deadline) {
    const BatchScope scope(*this, stolen);
    QueueLock lock(outputMutex_, std::defer_lock);
    if (!LockUntil(lock, deadline)) {
        return false;
    }
    outputs_.WriteRecords(stolen.Records());
    outputs_.Flush();
    return true;
}

void Logger::StopWorker() {
    QueueLock lock(queueMutex_);
    if (IsOnWorkerThread()) {
        return RetireWorker();
    }
    if (!AwaitEndOfOtherStop(lock)) {
        return;
    }
    if (!worker_.joinable()) {
        std::thread retired = std::move(retiredWorker_);
        lock.unlock();
        if (retired.joinable()) {
            retired.join();
        }
        return;
    }
    stopRequested_ = true;
    std::thread worker = std::move(worker_);
    lock.unlock();
    workAvailable_.notify_all();
    worker.join();
    FinishStop();
}

// Needs the queue's lock. The worker can't wait for its own end; it finishes the stop by itself.
void Logger::RetireWorker() {
    if (worker_.joinable()) {
        stopRequested_ = true;
        retiredWorker_ = std::move(worker_);
    }
}

// False where the wait would never end: a sink that is called by that very stop.
bool Logger::AwaitEndOfOtherStop(QueueLock &lock) {
    if (stopRequested_ && IsInSinkCall()) {
        return false;
    }
    drained_.wait(lock, [this] { return !stopRequested_; });
    return true;
}

// The worker has ended. Producers wait until the last batch is out, so that the loop comes to an end, and then find the
// direct mode; no lock is held while the sinks are called, so that they may log.
void Logger::FinishStop() {
    RecordQueue rest;
    QueueLock lock(queueMutex_);
    finalDrain_ = true;
    while (!pending_.IsEmpty()) {
        TakePending(rest);
        lock.unlock();
        WriteTaken(rest);
        lock.lock();
    }
    workerRunning_ = false;
    stopRequested_ = false;
    finalDrain_ = false;
    lock.unlock();
    spaceAvailable_.notify_all();
    drained_.notify_all();
}

void Logger::Shutdown() {
    StopWorker();
    const std::lock_guard lock(outputMutex_);
    outputs_.Flush();
    outputs_.Files().Close();
}

} // namespace ovrin

// The queued road from the other end: the worker, the flushes, and the stop that loses no record between the two modes.
#include "core/logging/LogThread.h"
#include "core/logging/Logger.h"
#include "core/logging/SpinningLock.h"
#include "core/logging/TimedLock.h"
#include "platform/winapi/WinApi.h"

#include <algorithm>
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

// A thread that is woken while the lock is held goes to sleep again at once.
void UnlockAndNotify(std::unique_lock<std::timed_mutex> &lock, std::condition_variable_any &condition,
                     std::uint32_t waiting) {
    lock.unlock();
    if (waiting > 0) {
        condition.notify_all();
    }
}

bool IsCallingThread(const std::thread &thread) {
    return thread.get_id() == std::this_thread::get_id();
}

} // namespace

void Logger::StartWorker() {
    QueueLock lock(queueMutex_);
    if (workerRunning_ || worker_.joinable() || ends_) {
        return;
    }
    worker_ = std::thread(&Logger::WorkerMain, this); // where that fails nothing has changed
    workerRunning_ = true;
    stopRequested_ = false;
    JoinRetired(lock);
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
    QueueLock lock(queueMutex_);
    workerThreadId_ = GetCurrentThreadId();
    PackedRecords batch;
    bool isLast = false;
    // What comes during the last one is left to the final drain: a worker that went on while anybody logs might never
    // end.
    while (!isLast) {
        AwaitWork(lock);
        isLast = stopRequested_;
        WritePending(lock, batch);
    }
    if (std::ranges::any_of(retiredWorkers_, IsCallingThread)) {
        FinishStop(lock);
    }
}

void Logger::AwaitWork(QueueLock &lock) {
    while (pending_.IsEmpty() && !stopRequested_) {
        workerWaits_ = true;
        workAvailable_.wait(lock);
    }
    workerWaits_ = false;
}

// Needs the lock of the queue, which is free while the batch is written, and an empty batch, which is empty again.
void Logger::WritePending(QueueLock &lock, PackedRecords &batch) noexcept {
    if (pending_.IsEmpty()) {
        return;
    }
    TakePending(batch);
    UnlockAndNotify(lock, spaceAvailable_, producersWaiting_);
    try {
        const std::lock_guard outputLock(outputMutex_);
        outputs_.WriteRecords(batch);
        outputs_.Flush();
    } catch (...) { // NOLINT(bugprone-empty-catch): no memory for the text; the outputs miss it and the worker goes on
    }
    const std::uint64_t first = batch.FirstSequence();
    const std::uint64_t last = batch.LastSequence();
    batch.Clear();
    LockSpinning(lock);
    written_.Finish(first, last);
    if (drainedWaiters_ > 0) {
        UnlockAndNotify(lock, drained_, drainedWaiters_);
        LockSpinning(lock);
    }
}

// Needs the lock of the queue and an empty batch, whose memory goes to the queue. Whatever becomes of the batch, its
// end has to be noted in written_, or a flush waits for ever.
void Logger::TakePending(PackedRecords &batch) {
    written_.Begin(pending_.FirstSequence());
    std::swap(batch, pending_);
}

void Logger::Flush() {
    if (IsInSinkCall()) {
        return;
    }
    QueueLock lock(queueMutex_);
    if (workerRunning_ && !IsOnWorkerThread()) {
        const WaitingScope waiting(drainedWaiters_);
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
        PackedRecords stolen;
        QueueLock lock(queueMutex_, std::defer_lock);
        if (!LockUntil(lock, deadline)) {
            return false;
        }
        const std::uint64_t target = lastQueuedSequence_;
        const auto isWritten = [this, target] { return written_.Value() >= target; };
        if (workerRunning_ && worker_.joinable() && !IsOnWorkerThread()) {
            const WaitingScope waiting(drainedWaiters_);
            drained_.wait_until(lock, deadline, isWritten);
        }
        if (!isWritten() && !pending_.IsEmpty()) {
            written_.MakeRoom();
            TakePending(stolen);
        }
        UnlockAndNotify(lock, spaceAvailable_, producersWaiting_);
        const bool flushed = WriteStolen(stolen, deadline);
        if (!stolen.IsEmpty()) {
            lock.lock();
            written_.Finish(stolen.FirstSequence(), stolen.LastSequence());
            UnlockAndNotify(lock, drained_, drainedWaiters_);
        }
        return flushed;
    } catch (...) {
        return false;
    }
}

bool Logger::WriteStolen(const PackedRecords &stolen, Deadline deadline) noexcept {
    try {
        QueueLock lock(outputMutex_, std::defer_lock);
        if (!LockUntil(lock, deadline)) {
            return false;
        }
        outputs_.WriteRecords(stolen);
        outputs_.Flush();
        return true;
    } catch (...) {
        return false;
    }
}

void Logger::StopWorker() {
    QueueLock lock(queueMutex_);
    if (IsOnWorkerThread() || outputs_.IsBeingWritten()) {
        return RetireWorker();
    }
    AwaitEndOfOtherStop(lock);
    if (!worker_.joinable()) {
        return JoinRetired(lock);
    }
    stopRequested_ = true;
    std::thread worker = std::move(worker_);
    lock.unlock();
    workAvailable_.notify_all();
    worker.join();
    lock.lock();
    FinishStop(lock);
}

// Needs the lock of the queue. Whoever holds the outputs can't wait for the worker; it finishes the stop by itself.
void Logger::RetireWorker() {
    if (worker_.joinable()) {
        retiredWorkers_.push_back(std::move(worker_));
        stopRequested_ = true;
        workAvailable_.notify_all();
    }
}

// Needs the lock of the queue and gives it up: a thread's own objects may log when they go. Who holds the outputs
// leaves it to a later call, as does a retired worker's own object.
void Logger::JoinRetired(QueueLock &lock) {
    std::vector<std::thread> ended;
    if (!outputs_.IsBeingWritten() && std::ranges::none_of(retiredWorkers_, IsCallingThread)) {
        ended.swap(retiredWorkers_);
    }
    lock.unlock();
    for (std::thread &each : ended) {
        each.join();
    }
}

void Logger::AwaitEndOfOtherStop(QueueLock &lock) {
    const WaitingScope waiting(drainedWaiters_);
    drained_.wait(lock, [this] { return !stopRequested_; });
}

// Needs the lock of the queue and gives it up. The worker has ended. Producers wait until the last batch is out, so
// that the loop comes to an end, and then find the direct mode; no lock is held while the sinks are called, so that
// they may log.
void Logger::FinishStop(QueueLock &lock) {
    PackedRecords rest;
    finalDrain_ = true;
    while (!pending_.IsEmpty()) {
        WritePending(lock, rest);
    }
    workerRunning_ = false;
    stopRequested_ = false;
    finalDrain_ = false;
    workerThreadId_ = 0; // not before: the thread's own objects may have logged when they went
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

// The log service of a process: records are numbered, kept in a history, and written to the standard output, the
// session files and the registered sinks, by the thread that logs or, once a session has started, by a worker.
//
// Every operation is safe on any thread, but see LogSink for what a sink may call. Logging never reports a failure:
// what can't be written is missing from that output, and a record for which there is no memory is dropped.
#pragma once

#include "core/logging/LogLevels.h"
#include "core/logging/LogOutputs.h"
#include "core/logging/LogRecord.h"
#include "core/logging/PackedRecords.h"
#include "core/logging/RecordHistory.h"
#include "core/logging/TimedLock.h"
#include "core/logging/WrittenSequence.h"

#include <condition_variable>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <mutex>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

namespace ovrin {

namespace testing {
struct LoggerTestAccess; // tests wait by it until a thread really waits
}

struct LoggerConfig {
    bool console = true;                  // records also go to the standard output
    bool startWorkerOnCreate = false;     // the constructor starts the worker
    std::uint64_t queueCapacity = 16384;  // records waiting for the worker, at which producers wait; 0 counts as 1
    std::uint64_t historyCapacity = 8192; // records that the history holds; 0 counts as 1
};

class Logger {
public:
    // The process's own logger, made at the first call. At exit it shuts down and drops its sinks, but stays usable: a
    // record logged later, from a static destructor say, is written on the calling thread.
    [[nodiscard]] static Logger &Instance();

    explicit Logger(const LoggerConfig &config);
    Logger(const Logger &) = delete;
    Logger &operator=(const Logger &) = delete;
    // Shutdown. No other thread may be using the logger any more.
    ~Logger();

    // ---- Thresholds: plain bytes, no lock (see LogThresholds) ----

    [[nodiscard]] bool ShouldLog(LogCategory category, LogLevel level) const {
        return levels_.ShouldLog(category, level);
    }
    [[nodiscard]] LogLevel GetLevel(LogCategory category) const { return levels_.GetLevel(category); }
    void SetLevel(LogCategory category, LogLevel level) { levels_.SetLevel(category, level); }
    void SetAllLevels(LogLevel level) { levels_.SetAllLevels(level); }
    bool ApplyLevelConfiguration(std::string_view text) { return levels_.ApplyLevelConfiguration(text); }

    // ---- Logging ----

    // Below the threshold the message isn't even copied. With a worker the record is queued, and the call waits only
    // while the queue is full; without one it is written and flushed before the call returns. A Fatal record waits for
    // the worker as by Flush; it has no other effect. Raises nothing.
    void Log(LogCategory category, LogLevel level, std::string_view message) noexcept {
        if (ShouldLog(category, level)) {
            Accept(category, level, message);
        }
    }
    void Log(LogLevel level, std::string_view message) noexcept { Log(LogCategory::General, level, message); }

    // ---- Sinks: shared with the caller, served in the order of adding ----

    // Gives the sink's id, from 1; 0 for a null pointer, which isn't registered.
    std::uint64_t AddSink(const std::shared_ptr<LogSink> &sink);
    // No call of the sink is running when this returns. An unknown id does nothing.
    void RemoveSink(std::uint64_t id);

    // ---- The history: the last records, whether written or not ----

    // All of it, oldest first.
    [[nodiscard]] std::vector<LogRecord> GetRecords() const;
    // Appends the records with a higher sequence than the one given and gives the highest assigned so far, 0 if none:
    // handed back on the next call it shows a reader every record once, unless the history has dropped some.
    std::uint64_t GetRecordsAfter(std::uint64_t sequence, std::vector<LogRecord> &records) const;
    // The last `maxCount` lines, oldest first. Empty where the lock isn't free within `timeoutMs` milliseconds; 0 or
    // less allows one attempt. For a crash report: raises nothing, and gives what it could collect.
    [[nodiscard]] std::vector<std::string> GetRecentLines(std::uint64_t maxCount,
                                                          std::int64_t timeoutMs) const noexcept;
    // Numbering goes on.
    void ClearHistory();

    // ---- Session ----

    // Opens the session files in "Logs" of the user settings directory, applies OVRIN_LOG_LEVELS, and starts the
    // worker. While a session is open only the last two happen. A directory or file that can't be made is passed over
    // in silence. Raises std::system_error where the thread can't be created; the logger then writes directly.
    void Start(const std::string &prefix);
    // An empty directory means no files.
    void Start(const std::string &prefix, const std::filesystem::path &logDirectory);
    // Empty before the first session that could name its files; stays after Shutdown.
    [[nodiscard]] std::filesystem::path GetSessionLogPath() const;

    // Starts the worker unless it runs. Raises as Start does.
    void StartWorker();
    [[nodiscard]] bool IsWorkerRunning() const;

    // Returns when everything queued before this call has been written and flushed, however long that takes. Without a
    // worker it flushes the outputs. Inside a sink it returns at once.
    void Flush();

    // Waits no longer than `timeoutMs` milliseconds for the worker and the locks, and writes by itself what is queued
    // then; a batch that the worker holds may still be in its hands. False where a lock wasn't free in time: what the
    // call had taken from the queue is in the history only. For a crash handler: raises nothing. Inside a sink it runs
    // out of time.
    [[nodiscard]] bool FlushFor(std::int64_t timeoutMs) noexcept;

    // Ends the worker after everything queued is written; records then go out on the logging thread again. Inside a
    // sink it only asks for the end.
    void StopWorker();

    // StopWorker, then closes the session files. Sinks, history, thresholds and numbering stay, and Start begins a new
    // session.
    void Shutdown();

private:
    friend struct testing::LoggerTestAccess;
    using QueueLock = std::unique_lock<std::timed_mutex>;
    static constexpr std::size_t cacheLine = 64;

    void End();
    void ApplyEnvironment();

    // The road of one record.
    void Accept(LogCategory category, LogLevel level, std::string_view message) noexcept;
    void Dispatch(LogRecordView record);
    void WaitForRoom(QueueLock &lock);
    void WriteDirectly(const LogRecordView &record);

    // Batches out of the queue.
    void WritePending(QueueLock &lock, PackedRecords &batch) noexcept;
    void TakePending(PackedRecords &batch);
    [[nodiscard]] bool WriteStolen(const PackedRecords &stolen, Deadline deadline) noexcept;

    // The worker and its end.
    void WorkerMain() noexcept;
    void AwaitWork(QueueLock &lock);
    void RetireWorker();
    void JoinRetired(QueueLock &lock);
    void AwaitEndOfOtherStop(QueueLock &lock);
    void FinishStop(QueueLock &lock);
    [[nodiscard]] bool IsOnWorkerThread() const;

    const std::uint64_t queueCapacity_;
    LogThresholds levels_;

    // ---- The queue. Its lock is never held while anything is written, nor with outputMutex_. What every log call
    // touches comes first, away from the thresholds that every call reads. ----

    alignas(cacheLine) mutable std::timed_mutex queueMutex_; // guards everything down to outputMutex_
    std::uint64_t nextSequence_ = 1;
    std::uint64_t lastQueuedSequence_ = 0;
    bool workerRunning_ = false; // records go through pending_
    bool stopRequested_ = false; // from a stop's request to its end
    bool finalDrain_ = false;    // the worker has ended and the stop writes what is left: producers wait
    bool workerWaits_ = false;   // so that nobody else pays for a notification, as with the two below
    std::uint32_t producersWaiting_ = 0;
    PackedRecords pending_; // for the worker, oldest first
    RecordHistory history_;
    std::uint32_t drainedWaiters_ = 0;
    WrittenSequence written_;
    std::condition_variable_any workAvailable_;  // the worker waits
    std::condition_variable_any spaceAvailable_; // producers wait for room in pending_
    std::condition_variable_any drained_;        // flushes wait, and whoever waits for the end of another's stop
    std::thread worker_;
    std::vector<std::thread> retiredWorkers_; // stopped from within a sink; they end by themselves
    std::uint32_t workerThreadId_ = 0;        // the platform's, until the worker's stop is over
    bool ends_ = false;                       // nobody would wait for another worker

    // ---- The outputs ----

    mutable std::timed_mutex outputMutex_; // guards outputs_
    LogOutputs outputs_;
};

// ---- The process's logger, in category General ----

void LogInfo(const std::string &message);
void LogWarn(const std::string &message);
void LogError(const std::string &message);
void FlushLog();
void ShutdownLog();

} // namespace ovrin

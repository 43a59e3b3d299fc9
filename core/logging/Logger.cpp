#include "core/logging/Logger.h"

#include "core/logging/LogClock.h"
#include "core/logging/LogThread.h"
#include "core/logging/SpinningLock.h"
#include "core/logging/TimedLock.h"
#include "core/paths/EnginePaths.h"
#include "core/paths/PathForm.h"
#include "platform/text/NarrowPath.h"

#include <algorithm>
#include <cstdlib>
#include <optional>
#include <utility>

namespace ovrin {

Logger &Logger::Instance() {
    // Its storage is never given back: static objects log until the very end.
    static Logger *const logger = [] {
        auto *const made = new Logger(LoggerConfig{}); // NOLINT(cppcoreguidelines-owning-memory): see above
        static_cast<void>(std::atexit([] {
            // A sink that ends the process holds the outputs for good.
            if (!Instance().outputs_.IsBeingWritten()) {
                Instance().End();
            }
        }));
        return made;
    }();
    return *logger;
}

Logger::Logger(const LoggerConfig &config)
    : queueCapacity_(std::max<std::uint64_t>(config.queueCapacity, 1)),
      history_(std::max<std::uint64_t>(config.historyCapacity, 1)), outputs_(config.console) {
    if (config.startWorkerOnCreate) {
        StartWorker();
    }
}

Logger::~Logger() {
    End();
}

// The sinks go while there is still a logger, since they may use it once more.
void Logger::End() {
    {
        const QueueLock lock(queueMutex_);
        ends_ = true;
    }
    Shutdown();
    LogOutputs::Sinks dropped; // after the lock
    const std::lock_guard lock(outputMutex_);
    dropped = outputs_.RemoveAllSinks();
}

void Logger::Accept(LogCategory category, LogLevel level, std::string_view message) noexcept {
    try {
        Dispatch({.level = level,
                  .category = category,
                  .threadId = CurrentThreadLogId(),
                  .timestamp = ClockTime(),
                  .message = message});
    } catch (...) { // NOLINT(bugprone-empty-catch): no memory; a log call has nobody to tell
    }
}

void Logger::Dispatch(LogRecordView record) {
    QueueLock lock(queueMutex_, std::defer_lock);
    LockSpinning(lock);
    WaitForRoom(lock);
    const bool isQueued = workerRunning_;
    if (isQueued) {
        pending_.MakeRoom(record.message.size());
    }
    history_.MakeRoom(record.message.size());
    record.sequence = nextSequence_++;
    history_.Append(record);
    if (!isQueued) {
        lock.unlock();
        return WriteDirectly(record);
    }
    lastQueuedSequence_ = record.sequence;
    pending_.Append(record);
    const bool wakeWorker = std::exchange(workerWaits_, false);
    lock.unlock();
    if (wakeWorker) {
        workAvailable_.notify_one();
    }
    if (record.level == LogLevel::Fatal) {
        Flush();
    }
}

void Logger::WaitForRoom(QueueLock &lock) {
    const auto canGoOn = [this] { return !workerRunning_ || (pending_.Size() < queueCapacity_ && !finalDrain_); };
    // Neither may wait for what its own thread has to do.
    if (canGoOn() || IsInSinkCall() || IsOnWorkerThread()) {
        return;
    }
    ++producersWaiting_;
    spaceAvailable_.wait(lock, canGoOn);
    --producersWaiting_;
}

void Logger::WriteDirectly(const LogRecordView &record) {
    // The sink's own thread holds the outputs: its record stays in the history.
    if (IsInSinkCall()) {
        return;
    }
    const std::lock_guard lock(outputMutex_);
    outputs_.WriteRecord(record);
    outputs_.Flush();
}

std::uint64_t Logger::AddSink(const std::shared_ptr<LogSink> &sink) {
    if (sink == nullptr) {
        return 0;
    }
    const std::lock_guard lock(outputMutex_);
    return outputs_.AddSink(sink);
}

void Logger::RemoveSink(std::uint64_t id) {
    std::shared_ptr<LogSink> removed; // dropped after the lock
    const std::lock_guard lock(outputMutex_);
    removed = outputs_.RemoveSink(id);
}

std::vector<LogRecord> Logger::GetRecords() const {
    std::vector<LogRecord> records;
    GetRecordsAfter(0, records);
    return records;
}

std::uint64_t Logger::GetRecordsAfter(std::uint64_t sequence, std::vector<LogRecord> &records) const {
    const QueueLock lock(queueMutex_);
    history_.CopyAfter(sequence, records);
    return nextSequence_ - 1;
}

std::vector<std::string> Logger::GetRecentLines(std::uint64_t maxCount, std::int64_t timeoutMs) const noexcept {
    std::vector<std::string> lines;
    try {
        const Deadline deadline = DeadlineAfter(timeoutMs);
        QueueLock lock(queueMutex_, std::defer_lock);
        if (!LockUntil(lock, deadline)) {
            return lines;
        }
        const std::size_t count = std::min<std::uint64_t>(maxCount, history_.Size());
        history_.ForEach(history_.Size() - count, [&lines](const LogRecordView &record) {
            std::string line; // whole before it is seen
            AppendRecordLine(line, record);
            lines.push_back(std::move(line));
        });
    } catch (...) { // NOLINT(bugprone-empty-catch): what was collected so far is better than nothing
    }
    return lines;
}

void Logger::ClearHistory() {
    std::deque<PackedRecords> cleared; // freed after the lock
    const QueueLock lock(queueMutex_);
    cleared = history_.Clear();
}

void Logger::Start(const std::string &prefix) {
    std::filesystem::path directory;
    try {
        directory = PathForm::Join(EnginePaths::GetUserSettingsDirectory(), "Logs");
    } catch (...) { // NOLINT(bugprone-empty-catch): without a directory there are no files
    }
    Start(prefix, directory);
}

void Logger::Start(const std::string &prefix, const std::filesystem::path &logDirectory) {
    {
        const std::lock_guard lock(outputMutex_);
        SessionFiles &files = outputs_.Files();
        if (!files.IsOpen() && !logDirectory.empty()) {
            files.Open(prefix.empty() ? std::string(defaultLogTitle) : prefix, logDirectory);
        }
    }
    ApplyEnvironment();
    StartWorker();
}

void Logger::ApplyEnvironment() {
    const std::optional<WideText> value = EnginePaths::GetEnvironmentValue("OVRIN_LOG_LEVELS");
    if (!value) {
        return;
    }
    const std::string text = NarrowFromWideLenient(*value);
    if (!ApplyLevelConfiguration(text)) {
        Log(LogCategory::Core, LogLevel::Warning, "OVRIN_LOG_LEVELS contains an invalid entry: '" + text + "'.");
    }
}

std::filesystem::path Logger::GetSessionLogPath() const {
    const std::lock_guard lock(outputMutex_);
    return outputs_.Files().SessionPath();
}

void LogInfo(const std::string &message) {
    Logger::Instance().Log(LogLevel::Info, message);
}

void LogWarn(const std::string &message) {
    Logger::Instance().Log(LogLevel::Warning, message);
}

void LogError(const std::string &message) {
    Logger::Instance().Log(LogLevel::Error, message);
}

void FlushLog() {
    Logger::Instance().Flush();
}

void ShutdownLog() {
    Logger::Instance().Shutdown();
}

} // namespace ovrin

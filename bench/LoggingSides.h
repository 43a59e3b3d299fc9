// The two sides of the logging benchmark, with the same operations: each object is a started logger, stopped when it
// goes.
#pragma once

#include "core/logging/Logger.h"

#include <cstddef>
#include <filesystem>
#include <memory>
#include <mutex>
#include <semaphore>
#include <spdlog/async.h>
#include <spdlog/sinks/basic_file_sink.h>
#include <spdlog/sinks/ringbuffer_sink.h>
#include <string>
#include <string_view>
#include <system_error>
#include <unistd.h>
#include <vector>

namespace ovrin::bench {

constexpr std::size_t queueSize = 16384;
constexpr std::size_t historySize = 8192;
constexpr std::string_view message =
    "The renderer has loaded mesh 4711 with 128 triangles in 3.5 ms from the cache file";

// The temporary folder of the log files, gone at the end.
class Folder {
public:
    Folder() : path_(std::filesystem::temp_directory_path() / ("logging-bench-" + std::to_string(getpid()))) {}
    Folder(const Folder &) = delete;
    Folder &operator=(const Folder &) = delete;
    ~Folder() {
        std::error_code ignored;
        std::filesystem::remove_all(path_, ignored);
    }
    void Empty() const {
        std::filesystem::remove_all(path_);
        std::filesystem::create_directories(path_);
    }
    [[nodiscard]] std::string operator/(const char *name) const { return path_ / name; }

private:
    std::filesystem::path path_;
};

inline const Folder &LogFolder() {
    static const Folder folder;
    return folder;
}

enum class Road { Queued, Direct };

class Ours {
public:
    explicit Ours(Road road) {
        logger_.Start("bench", LogFolder() / "");
        if (road == Road::Direct) {
            logger_.StopWorker(); // each record is then flushed
        }
    }

    void Log() { logger_.Log(LogCategory::Render, LogLevel::Info, message); }
    void LogBelow() { logger_.Log(LogCategory::Render, LogLevel::Debug, message); }
    // Not Log behind the test: the compiler then lays this loop out as another one than LogBelow's, at twice the pace.
    void TestBelow() {
        if (logger_.ShouldLog(LogCategory::Render, LogLevel::Debug)) {
            Flush();
        }
    }
    void Flush() { logger_.Flush(); }

private:
    Logger logger_{{.console = false, .queueCapacity = queueSize, .historyCapacity = historySize}};
};

class FlushedSink : public spdlog::sinks::base_sink<std::mutex> {
public:
    FlushedSink() { set_level(spdlog::level::off); } // a flush comes all the same
    void Await() { flushed_.acquire(); }

private:
    void sink_it_(const spdlog::details::log_msg & /*message*/) override {}
    void flush_() override { flushed_.release(); }

    std::counting_semaphore<> flushed_{0};
};

class Theirs {
public:
    explicit Theirs(Road road) {
        std::vector<spdlog::sink_ptr> sinks = {
            std::make_shared<spdlog::sinks::basic_file_sink_mt>(LogFolder() / "theirs.log"),
            std::make_shared<spdlog::sinks::basic_file_sink_mt>(LogFolder() / "theirs.latest.log", true),
            std::make_shared<spdlog::sinks::ringbuffer_sink_mt>(historySize)};
        if (road == Road::Queued) {
            sinks.push_back(flushed_);
            pool_ = std::make_shared<spdlog::details::thread_pool>(queueSize, 1);
            logger_ = std::make_shared<spdlog::async_logger>("bench", sinks.begin(), sinks.end(), pool_,
                                                             spdlog::async_overflow_policy::block);
        } else {
            logger_ = std::make_shared<spdlog::logger>("bench", sinks.begin(), sinks.end());
            logger_->flush_on(spdlog::level::trace);
        }
        logger_->set_pattern("%H:%M:%S [%l] %v");
    }

    void Log() { logger_->log(spdlog::level::info, spdlog::string_view_t(message)); }
    void LogBelow() { logger_->log(spdlog::level::debug, spdlog::string_view_t(message)); }
    // On the queued road only.
    void Flush() {
        logger_->flush();
        flushed_->Await();
    }

private:
    std::shared_ptr<FlushedSink> flushed_ = std::make_shared<FlushedSink>();
    std::shared_ptr<spdlog::details::thread_pool> pool_;
    std::shared_ptr<spdlog::logger> logger_;
};

} // namespace ovrin::bench

// A program that does what its first argument names: most ways end it with a worker running and the log files in the
// folder that the second argument names.
#include "core/logging/Logger.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string_view>

namespace {

constexpr int sinksExitCode = 3;

class LogsAtExit {
public:
    explicit LogsAtExit(const char *message) : message_(message) {}
    LogsAtExit(const LogsAtExit &) = delete;
    LogsAtExit &operator=(const LogsAtExit &) = delete;
    ~LogsAtExit() {
        ovrin::LogError(message_);
        ovrin::FlushLog();
        static_cast<void>(ovrin::Logger::Instance().FlushFor(0));
        ovrin::ShutdownLog();
    }

private:
    const char *message_;
};

class ExitingSink : public ovrin::LogSink {
public:
    void Write(const ovrin::LogRecord &record, std::string_view /*line*/) override {
        if (record.message == "9") {
            std::exit(sinksExitCode); // NOLINT(concurrency-mt-unsafe): the end in a sink is what is tried
        }
    }
    void Flush() override {}
};

void LogSome() {
    for (int number = 0; number < 1000; ++number) {
        ovrin::LogInfo(std::to_string(number));
    }
}

// Another process that uses a log file while the logger has it open.
int AppendNote(const char *path) {
    const bool canRead = std::ifstream(path).peek() == '=';
    std::ofstream file(path, std::ios::binary | std::ios::app);
    return canRead && file << "a note\n" && file.flush() ? EXIT_SUCCESS : EXIT_FAILURE;
}

int LogOnFullDisk(const std::filesystem::path &disk) {
    ovrin::Logger &logger = ovrin::Logger::Instance();
    const std::filesystem::path filler = disk / "filler";
    logger.Start("probe", disk);
    ovrin::LogInfo("before");
    logger.Flush();
    std::ofstream(filler) << std::string(1U << 20U, 'x');
    const bool isFull = !(std::ofstream(disk / "more") << std::string(1U << 16U, 'x')).flush();
    ovrin::LogInfo(std::string(1U << 16U, '\n') + "full");
    logger.Flush();
    std::filesystem::remove(filler);
    std::filesystem::remove(disk / "more");
    ovrin::LogInfo("after");
    return isFull ? EXIT_SUCCESS : EXIT_FAILURE;
}

} // namespace

int main(int count, char **arguments) {
    if (count != 3) {
        return EXIT_FAILURE;
    }
    const std::string_view way = arguments[1];
    if (way == "append") {
        return AppendNote(arguments[2]);
    }
    if (way == "full disk") {
        return LogOnFullDisk(arguments[2]);
    }
    if (way == "static objects") {
        static const LogsAtExit goesLast("after the logger's end");
        ovrin::LogInfo("first use");
        static const LogsAtExit goesFirst("before the logger's end");
    }
    ovrin::Logger::Instance().Start("probe", arguments[2]);
    if (way == "exit in a sink") {
        ovrin::Logger::Instance().AddSink(std::make_shared<ExitingSink>());
        LogSome();
        ovrin::FlushLog();
    }
    LogSome();
    if (way == "exit") {
        std::exit(EXIT_SUCCESS); // NOLINT(concurrency-mt-unsafe): see above
    }
    return EXIT_SUCCESS;
}

// A program that does what its first argument names: most ways end it with a worker running and the log files in the
// folder that the second argument names.
#include "core/logging/Logger.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>

namespace {

constexpr int sinksExitCode = 3;

// What a static object with this function for its end logs when it goes.
using LogsAtExit = std::shared_ptr<const char>;

void LogAtExit(const char *message) {
    ovrin::LogError(message);
    ovrin::FlushLog();
    static_cast<void>(ovrin::Logger::Instance().FlushFor(0));
    ovrin::ShutdownLog();
}

struct ExitingSink : ovrin::LogSink {
    void Write(const ovrin::LogRecord &record, std::string_view /*line*/) override {
        if (record.message == "9") {
            std::exit(sinksExitCode); // NOLINT(concurrency-mt-unsafe): the end in a sink is what is tried
        }
    }
    void Flush() override {}
};

// Another process that uses a log file while the logger has it open.
int AppendNote(const char *path) {
    const bool canRead = std::ifstream(path).peek() == '=';
    std::ofstream file(path, std::ios::binary | std::ios::app);
    return canRead && file << "a note\n" && file.flush() ? EXIT_SUCCESS : EXIT_FAILURE;
}

int LogOnFullDisk(const std::filesystem::path &disk) {
    ovrin::Logger &logger = ovrin::Logger::Instance();
    logger.Start("probe", disk);
    ovrin::LogInfo("before");
    logger.Flush();
    std::ofstream(disk / "filler") << std::string(1U << 20U, 'x');
    const bool isFull = !(std::ofstream(disk / "more") << std::string(1U << 16U, 'x')).flush();
    ovrin::LogInfo(std::string(1U << 16U, '\n') + "full");
    logger.Flush();
    std::filesystem::remove(disk / "filler");
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
        static const LogsAtExit goesLast("after the logger's end", LogAtExit);
        ovrin::LogInfo("first use");
        static const LogsAtExit goesFirst("before the logger's end", LogAtExit);
    }
    ovrin::Logger &logger = ovrin::Logger::Instance();
    logger.Start("probe", arguments[2]);
    if (way == "exit in a sink") {
        logger.AddSink(std::make_shared<ExitingSink>());
    }
    for (int number = 0; number < 1000; ++number) {
        ovrin::LogInfo(std::to_string(number));
    }
    if (way == "exit in a sink") {
        logger.Flush(); // never comes back
    }
    if (way == "exit") {
        std::exit(EXIT_SUCCESS); // NOLINT(concurrency-mt-unsafe): see above
    }
    return EXIT_SUCCESS;
}

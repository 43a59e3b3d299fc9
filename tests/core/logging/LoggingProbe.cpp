// A program that ends in the way that its first argument names, with its log files in the folder that the second does.
#include "core/logging/Logger.h"

#include <cstdlib>
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

} // namespace

int main(int count, char **arguments) {
    if (count != 3) {
        return EXIT_FAILURE;
    }
    const std::string_view way = arguments[1];
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

// Everything at once, over and over: LoggerStress [ROUNDS]. Ends with 1 and a message where a record was
// lost, doubled or out of its thread's order.
//
// Every second round also flushes with a limit, which may discard records and write a newer batch first: there only
// doubled records count. The levels never change meanwhile: they are plain bytes.
#include "core/logging/Logger.h"
#include "tests/support/TemporaryFolder.h"

#include <cstdio>
#include <cstdlib>
#include <map>
#include <set>
#include <stdexcept>
#include <thread>

namespace ovrin::testing {

namespace {

constexpr int producerCount = 8;
constexpr int recordsEach = 40;
constexpr int callsEach = 12;
constexpr std::string_view answer = "answer";

// Which records came, and whether each producer's came in order. Called under the logger's own lock.
struct TallySink : LogSink {
    void Write(const LogRecord &record, std::string_view line) override {
        isDoubled = isDoubled || !line.ends_with(record.message) || !seen.insert(record.sequence).second;
        std::uint64_t &last = lastOfThread[record.threadId];
        isInOrder = isInOrder && record.sequence > last;
        last = record.sequence;
        throw std::runtime_error("write");
    }
    void Flush() override { throw std::runtime_error("flush"); }

    std::set<std::uint64_t> seen;
    std::map<std::uint32_t, std::uint64_t> lastOfThread;
    bool isDoubled = false;
    bool isInOrder = true;
};

// Answers now and then, but never an answer: that would have no end.
struct AnsweringSink : LogSink {
    explicit AnsweringSink(Logger &loggerToUse) : logger(loggerToUse) {}
    void Write(const LogRecord &record, std::string_view /*line*/) override {
        if (record.message != answer && record.sequence % 7 == 0) {
            logger.Log(LogCategory::Audio, LogLevel::Info, answer);
        }
    }
    void Flush() override { logger.Flush(); }

    Logger &logger;
};

class Round {
public:
    explicit Round(bool hasLimitedFlushes) : hasLimitedFlushes_(hasLimitedFlushes) {
        logger_.AddSink(tally_);
        logger_.AddSink(std::make_shared<AnsweringSink>(logger_));
    }

    // What went wrong, or nothing.
    [[nodiscard]] const char *Run() {
        for (int count = 0; count < producerCount; ++count) {
            Repeat(recordsEach, [this](int number) { Produce(number); });
        }
        Repeat(callsEach, [this](int /*number*/) { logger_.Flush(); });
        Repeat(callsEach, [this](int /*number*/) { logger_.Shutdown(); });
        Repeat(callsEach, [this](int /*number*/) { ChangeSinks(); });
        Repeat(callsEach, [this](int number) { Read(number); });
        Repeat(callsEach, [this](int /*number*/) { StartAndStop(); });
        for (int limit = 0; hasLimitedFlushes_ && limit < 2; ++limit) {
            Repeat(callsEach, [this, limit](int /*number*/) { static_cast<void>(logger_.FlushFor(limit)); });
        }
        threads_.clear(); // joins them
        logger_.Shutdown();
        return Judge();
    }

private:
    // Makes the call that often on a thread of its own.
    template<typename Call>
    void Repeat(int count, Call call) {
        threads_.emplace_back([count, call] {
            for (int number = 0; number < count; ++number) {
                call(number);
            }
        });
    }

    void Produce(int number) {
        logger_.Log(LogCategory::Net, number % 10 == 9 ? LogLevel::Fatal : LogLevel::Info,
                    "record " + std::string(static_cast<std::size_t>(number), '.'));
    }
    void ChangeSinks() {
        const auto sink = std::make_shared<TallySink>();
        const std::uint64_t id = logger_.AddSink(sink);
        std::this_thread::yield();
        logger_.RemoveSink(id);
        wrong_ = wrong_ || sink.use_count() != 1 || sink->isDoubled;
    }
    void Read(int number) {
        lastRead_ = logger_.GetRecordsAfter(lastRead_, records_);
        static_cast<void>(logger_.GetRecentLines(5, 1));
        if (number == callsEach / 2) {
            logger_.ClearHistory();
        }
    }
    void StartAndStop() {
        logger_.Start("stress", folder_.Path());
        std::this_thread::yield();
        logger_.StopWorker();
    }

    [[nodiscard]] const char *Judge() const {
        if (wrong_ || tally_->isDoubled) {
            return "a record came twice, or a sink was kept";
        }
        if (hasLimitedFlushes_) {
            return nullptr;
        }
        // Answers without a worker are in the history only.
        return !tally_->isInOrder                                               ? "a thread's records came out of order"
               : tally_->seen.size() < std::size_t{producerCount} * recordsEach ? "a record was lost"
                                                                                : nullptr;
    }

    bool hasLimitedFlushes_;
    bool wrong_ = false; // written by ChangeSinks alone, as the next two are by Read
    std::uint64_t lastRead_ = 0;
    std::vector<LogRecord> records_;
    TemporaryFolder folder_;
    std::shared_ptr<TallySink> tally_ = std::make_shared<TallySink>();
    Logger logger_{{.console = false, .queueCapacity = 16, .historyCapacity = 32}};
    std::vector<std::jthread> threads_;
};

} // namespace

} // namespace ovrin::testing

int main(int count, char **arguments) {
    const int rounds = count > 1 ? std::stoi(arguments[1]) : 100;
    for (int round = 0; round < rounds; ++round) {
        const char *fault = ovrin::testing::Round(round % 2 == 1).Run();
        if (fault != nullptr) {
            std::fprintf(stderr, "round %d: %s\n", round, fault);
            return EXIT_FAILURE;
        }
    }
    std::printf("%d rounds\n", rounds);
    return EXIT_SUCCESS;
}

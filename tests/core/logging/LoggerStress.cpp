// Everything at once, over and over: LoggerStress [ROUNDS]. Ends with 1 and a message where a record was
// lost, doubled or out of its thread's order.
//
// Every second round also flushes with a limit, which may discard records and write a newer batch first: there only
// doubled records count. The levels never change meanwhile: they are plain bytes.
#include "core/logging/Logger.h"
#include "tests/support/TemporaryFolder.h"

#include <algorithm>
#include <charconv>
#include <cstdio>
#include <cstdlib>
#include <iterator>
#include <map>
#include <set>
#include <stdexcept>
#include <thread>

namespace ovrin::testing {

namespace {

constexpr int producerCount = 8;
constexpr int recordsEach = 40;
constexpr int callsEach = 12;

// Which records came, and whether each producer's came in order. Called under the logger's own lock.
class TallySink : public LogSink {
public:
    void Write(const LogRecord &record, std::string_view line) override {
        if (!line.ends_with(record.message) || !seen_.insert(record.sequence).second) {
            doubled_ = true;
        }
        std::uint64_t &last = lastOfThread_[record.threadId];
        inOrder_ = inOrder_ && record.sequence > last;
        last = record.sequence;
    }
    void Flush() override {}

    [[nodiscard]] bool IsDoubled() const { return doubled_; }
    [[nodiscard]] bool IsInOrder() const { return inOrder_; }
    [[nodiscard]] const std::set<std::uint64_t> &Seen() const { return seen_; }

private:
    std::set<std::uint64_t> seen_;
    std::map<std::uint32_t, std::uint64_t> lastOfThread_;
    bool doubled_ = false;
    bool inOrder_ = true;
};

class ThrowingSink : public LogSink {
public:
    void Write(const LogRecord & /*record*/, std::string_view /*line*/) override { throw std::runtime_error("write"); }
    void Flush() override { throw std::runtime_error("flush"); }
};

constexpr std::string_view answer = "answer";

// Answers now and then, but never an answer: that would have no end.
class AnsweringSink : public LogSink {
public:
    explicit AnsweringSink(Logger &logger) : logger_(logger) {}
    void Write(const LogRecord &record, std::string_view /*line*/) override {
        if (record.message != answer && record.sequence % 7 == 0) {
            logger_.Log(LogCategory::Audio, LogLevel::Info, answer);
        }
    }
    void Flush() override { logger_.Flush(); }

private:
    Logger &logger_;
};

class Round {
public:
    explicit Round(bool hasLimitedFlushes) : hasLimitedFlushes_(hasLimitedFlushes) {
        logger_.AddSink(tally_);
        logger_.AddSink(std::make_shared<ThrowingSink>());
        logger_.AddSink(std::make_shared<AnsweringSink>(logger_));
    }

    [[nodiscard]] const char *Run() {
        {
            std::vector<std::jthread> threads;
            std::generate_n(std::back_inserter(threads), producerCount,
                            [this] { return std::jthread([this] { Produce(); }); });
            threads.emplace_back([this] { Repeat([this] { logger_.Flush(); }); });
            threads.emplace_back([this] { ChangeSinks(); });
            threads.emplace_back([this] { Read(); });
            threads.emplace_back([this] { StartAndStop(); });
            threads.emplace_back([this] { Repeat([this] { logger_.Shutdown(); }); });
            if (hasLimitedFlushes_) {
                threads.emplace_back([this] { FlushWithLimit(0); });
                threads.emplace_back([this] { FlushWithLimit(1); });
            }
        }
        logger_.Shutdown();
        return Judge();
    }

private:
    template<typename Call>
    static void Repeat(Call call) {
        for (int count = 0; count < callsEach; ++count) {
            call();
        }
    }

    void Produce() {
        for (int count = 0; count < recordsEach; ++count) {
            logger_.Log(LogCategory::Net, count % 10 == 9 ? LogLevel::Fatal : LogLevel::Info,
                        "record " + std::string(static_cast<std::size_t>(count), '.'));
        }
    }
    void ChangeSinks() {
        Repeat([this] {
            const auto sink = std::make_shared<TallySink>();
            const std::uint64_t id = logger_.AddSink(sink);
            std::this_thread::yield();
            logger_.RemoveSink(id);
            wrong_ = wrong_ || sink.use_count() != 1 || sink->IsDoubled();
        });
    }
    void Read() {
        std::vector<LogRecord> records;
        Repeat([this, &records, last = std::uint64_t{0}]() mutable { last = logger_.GetRecordsAfter(last, records); });
        static_cast<void>(logger_.GetRecentLines(5, 1));
        logger_.ClearHistory();
    }
    void StartAndStop() {
        Repeat([this] {
            logger_.Start("stress", folder_.Path());
            std::this_thread::yield();
            logger_.StopWorker();
        });
    }
    void FlushWithLimit(std::int64_t milliseconds) {
        Repeat([this, milliseconds] { static_cast<void>(logger_.FlushFor(milliseconds)); });
    }

    [[nodiscard]] const char *Judge() const {
        if (wrong_ || tally_->IsDoubled()) {
            return "a record came twice, or a sink was kept";
        }
        if (hasLimitedFlushes_) {
            return nullptr;
        }
        // Answers without a worker are in the history only.
        return !tally_->IsInOrder() ? "a thread's records came out of order"
               : tally_->Seen().size() < std::size_t{producerCount} * recordsEach ? "a record was lost"
                                                                                  : nullptr;
    }

    bool hasLimitedFlushes_;
    bool wrong_ = false; // written by ChangeSinks alone
    TemporaryFolder folder_;
    std::shared_ptr<TallySink> tally_ = std::make_shared<TallySink>();
    Logger logger_{{.console = false, .queueCapacity = 16, .historyCapacity = 32}};
};

int NumberFrom(const char *text) {
    int number = 0;
    std::from_chars(text, text + std::string_view(text).size(), number);
    return number;
}

} // namespace

} // namespace ovrin::testing

int main(int count, char **arguments) {
    const int rounds = count > 1 ? ovrin::testing::NumberFrom(arguments[1]) : 100;
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

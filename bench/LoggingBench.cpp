// The logger beside spdlog given equal work: a bounded blocking queue of 16,384 records and one worker, two files, and
// the last 8,192 records in memory. LoggingBench [ROUNDS]
//
// A program of its own and not a benchmark library's, since the two sides take turns within every measure, whole
// loggers come and go, and a call's median counts beside the mean. Shown are medians over the rounds, as times: a third
// of the time is three times the records. Neither side formats a message. spdlog's flush doesn't wait: a fourth sink,
// which no record reaches, tells when the flush is through. The folder is emptied before each turn.
#include "bench/LoggingSides.h"
#include "bench/Rounds.h"
#include "bench/Timing.h"

#include <algorithm>
#include <cstdio>
#include <functional>
#include <utility>
#include <vector>

namespace ovrin::bench {

namespace {

// Each measure gives one round's values for one side.

template<typename Side>
Values BelowThreshold() {
    Side side(Road::Queued);
    return TimeTinyCall([&side] { side.LogBelow(); });
}

Values BareTest() {
    Ours side(Road::Queued);
    return TimeTinyCall([&side] { side.TestBelow(); });
}

// Time and processor time of a record.
template<typename Side, int producers>
Values Sustained() {
    constexpr int records = 500'000;
    Side side(Road::Queued);
    const double processorTime = ProcessorTime();
    const auto start = Clock::now();
    RunTogether(producers, [&side] { return TimeEach(records / producers, [&side] { side.Log(); }); });
    side.Flush();
    return {Nanoseconds(Clock::now() - start) / records, (ProcessorTime() - processorTime) / records};
}

constexpr int burstSize = 10'000;
constexpr int bursts = 20;

// After a first one, which finds the memory that the others use.
template<typename Side, typename Burst>
Values RepeatBurst(const Burst &burst) {
    Side side(Road::Queued);
    Values results;
    for (int done = 0; done <= bursts; ++done) {
        const double result = burst(side);
        side.Flush();
        if (done > 0) {
            results.push_back(result);
        }
    }
    return results;
}

template<typename Side>
Values BurstMedian() {
    return {Median(RepeatBurst<Side>([](Side &side) {
        Values times(burstSize);
        auto last = Clock::now();
        for (double &time : times) {
            side.Log();
            const auto now = Clock::now();
            time = Nanoseconds(now - last);
            last = now;
        }
        return Median(times);
    }))};
}

template<typename Side, int producers>
Values BurstMean() {
    return {Mean(RepeatBurst<Side>([](Side &side) {
        return Mean(
            RunTogether(producers, [&side] { return TimeEach(burstSize / producers, [&side] { side.Log(); }); }));
    }))};
}

template<typename Side>
Values Direct() {
    Side side(Road::Direct);
    return {TimeEach(50'000, [&side] { side.Log(); })};
}

template<typename Side>
Values RecordAndFlush() {
    const OneProcessorScope onOneProcessor;
    Side side(Road::Queued);
    return {TimeEach(20'000, [&side] {
        side.Log();
        side.Flush();
    })};
}

// Each time in an empty folder: some file systems go to the disk where a file with content is cut to nothing.
template<typename Side>
Values StartAndStop() {
    Values times(51);
    for (double &time : times) {
        LogFolder().Empty();
        time = TimeEach(1, [] {
            Side side(Road::Queued);
            side.Log();
            side.Flush();
        });
    }
    return {Median(times)};
}

using Round = std::function<Values()>; // gives a value for each row

struct Row {
    const char *name;
    double wantedRatio; // at most
};

struct Measure {
    std::vector<Row> rows;
    Round ours;
    Round theirs;
};

const std::vector<Measure> measures = {
    {{{"call below the threshold, theirs: the bare test", 1.0}}, BelowThreshold<Ours>, BareTest},
    {{{"call below the threshold", 0.3}}, BelowThreshold<Ours>, BelowThreshold<Theirs>},
    {{{"sustained, 1 producer", 0.4}, {"its processor time", 0.5}}, Sustained<Ours, 1>, Sustained<Theirs, 1>},
    {{{"sustained, 4 producers", 0.2}, {"its processor time", 0.5}}, Sustained<Ours, 4>, Sustained<Theirs, 4>},
    {{{"burst, 1 producer, median", 0.75}}, BurstMedian<Ours>, BurstMedian<Theirs>},
    {{{"burst, 1 producer, mean", 0.75}}, BurstMean<Ours, 1>, BurstMean<Theirs, 1>},
    {{{"burst, 4 producers, mean", 0.6}}, BurstMean<Ours, 4>, BurstMean<Theirs, 4>},
    {{{"direct, each record flushed", 0.95}}, Direct<Ours>, Direct<Theirs>},
    {{{"record and flush, one processor", 1.2}}, RecordAndFlush<Ours>, RecordAndFlush<Theirs>},
    {{{"start, one record, stop", 0.25}}, StartAndStop<Ours>, StartAndStop<Theirs>},
};

double MedianOfRow(const std::vector<Values> &rounds, std::size_t row) {
    Values values;
    for (const Values &round : rounds) {
        values.push_back(round[row]);
    }
    return Median(std::move(values));
}

Values RunInEmptyFolder(const Round &round) {
    LogFolder().Empty();
    return round();
}

void Print(const Row &row, double ours, double theirs) {
    std::printf("%-50s %11.1f %11.1f %7.2f %7.2f\n", row.name, ours, theirs, ours / theirs, row.wantedRatio);
    std::fflush(stdout);
}

// The two sides take turns.
void Run(const Measure &measure, int rounds) {
    std::vector<Values> ours;
    std::vector<Values> theirs;
    for (int round = 0; round < rounds; ++round) {
        ours.push_back(RunInEmptyFolder(measure.ours));
        theirs.push_back(RunInEmptyFolder(measure.theirs));
    }
    for (std::size_t row = 0; row < measure.rows.size(); ++row) {
        Print(measure.rows[row], MedianOfRow(ours, row), MedianOfRow(theirs, row));
    }
}

void RunAll(int rounds) {
    std::printf("%-50s %11s %11s %7s %7s\n", "ns a record or call, medians", "ours", "theirs", "ratio", "wanted");
    for (const Measure &measure : measures) {
        Run(measure, rounds);
    }
}

} // namespace

} // namespace ovrin::bench

int main(int count, char **arguments) {
    return ovrin::bench::RunRounds("LoggingBench", {arguments, arguments + count}, ovrin::bench::RunAll);
}

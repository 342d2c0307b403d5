// What is measured, and which lines of the table it fills. A group is a set of benchmarks named
// "<group>/<who>" whose repetitions are run in turns, so that a change of the machine's load meets all of
// them alike.
#pragma once

#include <benchmark/benchmark.h>

#include <functional>
#include <string>
#include <vector>

namespace kxbench {

/// What a line compares.
enum class Limit {
    None,     ///< shown for information
    Ratio,    ///< ours / peer at most `limit`
    Speed,    ///< peer / ours at least `limit`, both in time
    Seconds,  ///< ours at most `limit`, whatever the peer takes
    Band,     ///< ours / peer within 1 +- `limit`
};

/// How a measured value is written.
enum class Show { Milliseconds, Microseconds, MillionsPerSecond, BytesPerCell };

struct Line {
    std::string work;
    std::string ours;  ///< the benchmark
    std::string peer;  ///< the one it is compared with; may be empty
    Limit kind = Limit::None;
    double limit = 0;
    Show show = Show::Milliseconds;
};

struct Group {
    std::string name;
    std::vector<Line> lines;
    std::function<void()> release;  ///< drops what the benchmarks shared; may be empty
};

using Plan = std::vector<Group>;

/// Names of counters that a benchmark sets.
constexpr const char* BytesPerCell = "bytes_per_cell";
constexpr const char* Items = "items";  ///< per iteration, for rates

/// A benchmark that keeps its own time, with so many iterations in each of so many repetitions.
template <class Run>
void measure(const std::string& name, int iterations, int repetitions, Run run) {
    auto* added = benchmark::RegisterBenchmark(name.c_str(), run);
    added->UseManualTime()->Iterations(iterations)->Unit(benchmark::kMillisecond);
    if (repetitions > 1) added->Repetitions(repetitions);
}

void planFill(Plan& plan);
void planWrites(Plan& plan);
void planRows(Plan& plan);
void planSort(Plan& plan);
void planFilter(Plan& plan);
void planAppend(Plan& plan);
void planMenus(Plan& plan);
void planComputed(Plan& plan);
void planEvaluator(Plan& plan);
void planFrames(Plan& plan);
void planEntry(Plan& plan);
void planLookup(Plan& plan);
void planSuggest(Plan& plan);
void planHistory(Plan& plan);
void planDrafts(Plan& plan);
void planClipboard(Plan& plan);
void planFind(Plan& plan);
void planSheet(Plan& plan);
}  // namespace kxbench

// Keeps what the benchmarks measured and makes the table of it.
#pragma once

#include <benchmark/benchmark.h>

#include <map>
#include <optional>
#include <ostream>
#include <string>
#include <vector>

#include "Plan.h"

namespace kxbench {

class Results : public benchmark::ConsoleReporter {
  public:
    Results() : ConsoleReporter(OO_Tabular) {}
    bool ReportContext(const Context& context) override;
    /// Keeps every repetition; prints one line per benchmark: the only repetition, or the median.
    void ReportRuns(const std::vector<Run>& runs) override;

    /// The table in Markdown: the lines for which something was measured.
    void writeTable(std::ostream& out, const Plan& plan) const;

  private:
    struct Samples {
        std::vector<double> seconds;  ///< per iteration
        std::map<std::string, std::vector<double>> counters;
    };
    std::optional<double> median(const std::string& benchmark, Show show) const;
    void writeLine(std::ostream& out, const Line& line) const;

    std::map<std::string, Samples> samples_;
    bool contextShown_ = false;
};
}  // namespace kxbench

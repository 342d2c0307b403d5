#include "Results.h"

#include <algorithm>
#include <cmath>
#include <cstdio>

namespace kxbench {
namespace {

double middle(std::vector<double> values) {
    std::sort(values.begin(), values.end());
    const std::size_t half = values.size() / 2;
    return values.size() % 2 ? values[half] : (values[half - 1] + values[half]) / 2;
}

std::string written(const char* format, double value) {
    char buffer[64];
    std::snprintf(buffer, sizeof buffer, format, value);
    return buffer;
}

/// Three digits, as far as they are worth something.
std::string digits(double value) {
    const double size = std::abs(value);
    if (size >= 100) return written("%.0f", value);
    if (size >= 10) return written("%.1f", value);
    return written(size >= 1 ? "%.2f" : "%.3f", value);
}

std::string shown(std::optional<double> value, Show show) {
    if (!value) return "-";
    switch (show) {
        case Show::Milliseconds:
            return digits(*value * 1e3) + " ms";
        case Show::Microseconds:
            return digits(*value * 1e6) + " us";
        case Show::MillionsPerSecond:
            return digits(1e-6 / *value) + " M/s";
        case Show::BytesPerCell:
            return digits(*value) + " B a cell";
    }
    return "-";
}

std::string demanded(const Line& line) {
    switch (line.kind) {
        case Limit::None:
            return "-";
        case Limit::Ratio:
            return "at most " + digits(line.limit);
        case Limit::Speed:
            return "at least " + digits(line.limit) + " x";
        case Limit::Seconds:
            return "at most " + digits(line.limit * 1e3) + " ms";
        case Limit::Band:
            return "within " + digits(line.limit * 100) + " %";
    }
    return "-";
}

bool isReached(const Line& line, double ours, std::optional<double> peer) {
    switch (line.kind) {
        case Limit::None:
            return true;
        case Limit::Ratio:
            return peer && ours <= *peer * line.limit;
        case Limit::Speed:
            return peer && *peer >= ours * line.limit;
        case Limit::Seconds:
            return ours <= line.limit;
        case Limit::Band:
            return peer && std::abs(ours / *peer - 1) <= line.limit;
    }
    return false;
}
}  // namespace

bool Results::ReportContext(const Context& context) {
    if (contextShown_) return true;
    contextShown_ = true;
    return ConsoleReporter::ReportContext(context);
}

void Results::ReportRuns(const std::vector<Run>& runs) {
    std::vector<Run> printed;
    for (const Run& run : runs) {
        const bool single = run.run_type == Run::RT_Iteration;
        if (single && !run.error_occurred) {
            Samples& samples = samples_[run.run_name.function_name];
            samples.seconds.push_back(run.real_accumulated_time / static_cast<double>(run.iterations));
            for (const auto& [name, counter] : run.counters) samples.counters[name].push_back(counter.value);
        }
        if (single ? run.repetitions <= 1 || run.error_occurred : run.aggregate_name == "median")
            printed.push_back(run);
    }
    if (!printed.empty()) ConsoleReporter::ReportRuns(printed);
}

std::optional<double> Results::median(const std::string& benchmark, Show show) const {
    const auto found = samples_.find(benchmark);
    if (found == samples_.end()) return {};
    const Samples& samples = found->second;
    const auto counter = [&](const char* name) -> std::optional<double> {
        const auto values = samples.counters.find(name);
        return values == samples.counters.end() ? std::optional<double>() : middle(values->second);
    };
    if (show == Show::BytesPerCell) return counter(BytesPerCell);
    const double time = middle(samples.seconds);
    return show == Show::MillionsPerSecond ? time / counter(Items).value_or(1) : time;
}

void Results::writeLine(std::ostream& out, const Line& line) const {
    const auto ours = median(line.ours, line.show);
    if (!ours) return;
    const auto peer = median(line.peer, line.show);
    if (!peer && line.kind == Limit::None) return;
    std::string ratio = "-";
    if (peer) ratio = line.kind == Limit::Speed ? digits(*peer / *ours) + " x" : digits(*ours / *peer);
    std::string reached = "-";
    if (line.kind != Limit::None) reached = isReached(line, *ours, peer) ? "yes" : "**NOT reached**";
    out << "| " << line.work << " | " << shown(ours, line.show) << " | " << shown(peer, line.show) << " | "
        << ratio << " | " << demanded(line) << " | " << reached << " |\n";
}

void Results::writeTable(std::ostream& out, const Plan& plan) const {
    out << "| Work | Ours | Peer | Ours / peer | Must reach | Reached |\n"
        << "|---|---|---|---|---|---|\n";
    for (const Group& group : plan)
        for (const Line& line : group.lines) writeLine(out, line);
}
}  // namespace kxbench

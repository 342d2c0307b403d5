// Measures the grid beside what a Qt programmer would take instead, and prints a table of ratios.
//
//     kx_bench_table --out FILE                    everything; the table goes to FILE too
//     kx_bench_table --benchmark_filter=fill       some of it, with the flags of Google Benchmark
//
// It judges, but a demand that is not reached does not fail the run.
#include <QApplication>
#include <cstring>
#include <fstream>
#include <iostream>
#include <sstream>
#include <string>
#include <vector>

#include "Machine.h"
#include "Plan.h"
#include "Results.h"

namespace {

using namespace kxbench;

struct Arguments {
    std::string out;
    std::vector<char*> forwarded;
};

Arguments read(int argc, char** argv) {
    static char interleaved[] = "--benchmark_enable_random_interleaving=true";
    Arguments arguments;
    for (int i = 0; i < argc; ++i) {
        if (std::strcmp(argv[i], "--out") == 0 && i + 1 < argc)
            arguments.out = argv[++i];
        else
            arguments.forwarded.push_back(argv[i]);
        if (i == 0) arguments.forwarded.push_back(interleaved);
    }
    return arguments;
}

Plan makePlan() {
    Plan plan;
    planFill(plan);
    planWrites(plan);
    planRows(plan);
    planSort(plan);
    planFilter(plan);
    planAppend(plan);
    planMenus(plan);
    planComputed(plan);
    planEvaluator(plan);
    planFrames(plan);
    planEntry(plan);
    planLookup(plan);
    planSuggest(plan);
    planHistory(plan);
    planDrafts(plan);
    planClipboard(plan);
    planFind(plan);
    planSheet(plan);
    return plan;
}

/// One group after the other, so that only the members of a group take turns and only one holds memory.
void runAll(const Plan& plan, Results& results) {
    const std::string filter = benchmark::GetBenchmarkFilter();
    if (!filter.empty()) benchmark::RunSpecifiedBenchmarks(&results, filter);
    for (const Group& group : plan) {
        if (filter.empty()) benchmark::RunSpecifiedBenchmarks(&results, "^" + group.name + "/");
        if (group.release) group.release();
    }
}

void write(std::ostream& out, const std::string& machine, const std::string& table) {
    out << "# Results\n\n"
        << "Written by `./kx bench`, which says in `bench/` what each line does. Values are medians of "
           "repetitions "
           "that\ntook turns in one run; only the ratios travel to other machines.\n\n"
        << machine << "\n"
        << table;
}
}  // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    Arguments arguments = read(argc, argv);
    auto count = static_cast<int>(arguments.forwarded.size());
    benchmark::Initialize(&count, arguments.forwarded.data());
    if (benchmark::ReportUnrecognizedArguments(count, arguments.forwarded.data())) return 1;

    QApplication application(count, arguments.forwarded.data());
    std::ostringstream machine;
    writeMachine(machine);
    const Plan plan = makePlan();
    Results results;
    runAll(plan, results);

    std::ostringstream table;
    results.writeTable(table, plan);
    write(std::cout << "\n", machine.str(), table.str());
    if (arguments.out.empty()) return 0;
    std::ofstream file(arguments.out);
    write(file, machine.str(), table.str());
    file.close();
    if (!file) std::cerr << "cannot write " << arguments.out << "\n";
    return file ? 0 : 1;
}

// Single writes into a table that is in use, and looks at totals.
#include <cmath>
#include <memory>
#include <vector>

#include "Contestants.h"
#include "Measure.h"
#include "Plan.h"
#include "Texts.h"

namespace kxbench {
namespace {

constexpr std::int32_t Rows = 100'000;
constexpr std::int32_t Cols = 20;
constexpr int Writes = 500'000;

/// Where the next write goes, and which text of the pool it brings.
struct Target {
    std::int32_t row;
    std::int32_t col;
    std::int32_t source;
};

const std::vector<Target>& targets() {
    static const std::vector<Target> all = [] {
        std::vector<Target> made;
        std::uint32_t random = 12345;
        const auto next = [&random](std::int32_t below) {
            random = random * 1'664'525 + 1'013'904'223;
            return static_cast<std::int32_t>((std::uint64_t{random} * static_cast<std::uint64_t>(below)) >>
                                             32);
        };
        for (int i = 0; i < Writes; ++i) made.push_back({next(Rows), next(Cols), next(1 << 20)});
        return made;
    }();
    return all;
}

/// Filled once and kept for all repetitions.
struct FilledWidget : OnWidget {
    FilledWidget() {
        define(grid, Cols);
        setRows(grid, Rows);
        fillCells(grid, Rows, Cols);
    }
};
struct FilledLean : OnLean {
    FilledLean() {
        model.resize(Rows, Cols);
        fillCells(model, Rows, Cols);
    }
};
struct FilledTableWidget {
    QTableWidget table;
    FilledTableWidget() {
        table.setRowCount(Rows);
        table.setColumnCount(Cols);
        fillCells(table, Rows, Cols);
    }
};

void releaseAll() {
    Shared<FilledWidget>::release();
    Shared<FilledLean>::release();
    Shared<FilledTableWidget>::release();
}

/// `write(target)` for all of them, and `after` in the same time.
template <class Prepare, class Write, class After>
void addRandom(const std::string& name, Prepare prepare, Write write, After after) {
    measure(name, 1, 9, [=](benchmark::State& state) {
        auto& contestant = prepare();
        const std::vector<Target>& all = targets();
        for (auto _ : state) {
            state.SetIterationTime(seconds([&] {
                for (const Target& target : all) write(contestant, target);
                after(contestant);
            }));
        }
        state.counters[Items] = Writes;
    });
}

void writeOurs(OnWidget& on, const Target& at) {
    const Texts& texts = Texts::instance();
    on.grid.SetCell(at.row + HeaderRows, at.col + HeaderCols, texts.utf8(at.source, at.col),
                    texts.utf8Tag(at.source, at.col));
}

void readTotals(OnWidget& on) {
    benchmark::DoNotOptimize(on.grid.ReadSum(FirstSummed + HeaderCols));
    benchmark::DoNotOptimize(on.grid.ReadSum(SecondSummed + HeaderCols));
}

void writeLean(OnLean& on, const Target& at) {
    const Texts& texts = Texts::instance();
    const QModelIndex index = on.model.index(at.row, at.col);
    on.model.setData(index, texts.text(at.source, at.col));
    on.model.setData(index, texts.tag(at.source, at.col), LeanModel::TagRole);
}

void writeTableWidget(FilledTableWidget& on, const Target& at) {
    const Texts& texts = Texts::instance();
    QTableWidgetItem* item = on.table.item(at.row, at.col);
    item->setText(texts.text(at.source, at.col));
    item->setData(LeanModel::TagRole, texts.tag(at.source, at.col));
}

void planRandom(Plan& plan) {
    addRandom("write_random/widget", Shared<FilledWidget>::get, writeOurs, readTotals);
    addRandom("write_random/lean", Shared<FilledLean>::get, writeLean, [](OnLean&) {});
    addRandom("write_random/QTableWidget", Shared<FilledTableWidget>::get, writeTableWidget,
              [](FilledTableWidget&) {});
    const std::string work = "random single writes, 100,000 x 20, two totals kept";
    plan.push_back({"write_random",
                    {{work + ", beside the lean model without totals", "write_random/widget",
                      "write_random/lean", Limit::Ratio, 1, Show::MillionsPerSecond},
                     {work + ", beside QTableWidget without totals", "write_random/widget",
                      "write_random/QTableWidget", Limit::None, 0, Show::MillionsPerSecond}},
                    {}});
}

// --- One write and the total that it changes.

constexpr int Looks = 20;

template <class Prepare, class Step>
void addSum(const std::string& name, Prepare prepare, Step step) {
    measure(name, Looks, 9, [=](benchmark::State& state) {
        auto& contestant = prepare();
        std::int32_t row = 0;
        for (auto _ : state) {
            row = (row + 7919) % Rows;
            state.SetIterationTime(seconds([&] { step(contestant, row); }));
        }
    });
}

void writeAndReadSum(OnWidget& on, std::int32_t row) {
    const std::int32_t col = SecondSummed + HeaderCols;
    on.grid.SetCell(row + HeaderRows, col, Texts::instance().utf8(row + 1, SecondSummed));
    benchmark::DoNotOptimize(on.grid.ReadSum(col));
}

/// What a program does that has only the texts.
void writeAndAddUp(OnLean& on, std::int32_t row) {
    on.model.setData(on.model.index(row, SecondSummed), Texts::instance().text(row + 1, SecondSummed));
    double sum = 0;
    for (std::int32_t r = 0; r < Rows; ++r)
        sum += on.model.data(on.model.index(r, SecondSummed)).toString().toDouble();
    benchmark::DoNotOptimize(QString::number(sum, 'g', 15));
}

void planSum(Plan& plan) {
    addSum("write_and_sum/widget", Shared<FilledWidget>::get, writeAndReadSum);
    addSum("write_and_sum/lean", Shared<FilledLean>::get, writeAndAddUp);
    plan.push_back(
        {"write_and_sum",
         {{"one SetCell and ReadSum of its column at 100,000 rows, beside adding up a lean model's texts",
           "write_and_sum/widget", "write_and_sum/lean", Limit::Seconds, 0.3e-3, Show::Milliseconds}},
         releaseAll});
}
}  // namespace

void planWrites(Plan& plan) {
    planRandom(plan);
    planSum(plan);
}
}  // namespace kxbench

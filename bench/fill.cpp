// Filling an empty table, text and tag of each cell, and what that takes of memory.
#include <memory>

#include "Contestants.h"
#include "Measure.h"
#include "Plan.h"
#include "Texts.h"

namespace kxbench {
namespace {

struct Size {
    std::int32_t rows;
    std::int32_t cols;
};

/// The columns as they come.
template <class Place>
struct FillPlain : Place {
    FillPlain(Size size) { leavePlain(this->grid, size.cols); }
    void fill(Size size) {
        setRows(this->grid, size.rows);
        fillCells(this->grid, size.rows, size.cols);
    }
};

/// The columns of an order form: each number and date is looked at, totals are kept.
struct FillOrder : OnWidget {
    FillOrder(Size size) { define(grid, size.cols); }
    void fill(Size size) {
        setRows(grid, size.rows);
        fillCells(grid, size.rows, size.cols);
    }
};

/// Both by columns: kxGrid::Fill.
struct FillColumnsPlain : OnWidget {
    FillColumnsPlain(Size size) { leavePlain(grid, size.cols); }
    void fill(Size size) {
        setRows(grid, size.rows);
        fillColumns(grid, size.rows, size.cols);
    }
};
struct FillColumnsOrder : OnWidget {
    FillColumnsOrder(Size size) { define(grid, size.cols); }
    void fill(Size size) {
        setRows(grid, size.rows);
        fillColumns(grid, size.rows, size.cols);
    }
};

/// Cell by cell, as a model that is in use is written; the view hears of each.
struct FillLean : OnLean {
    FillLean(Size) {}
    void fill(Size size) {
        model.resize(size.rows, size.cols);
        fillCells(model, size.rows, size.cols);
    }
};

/// All cells while the model is being reset, the fastest way: nobody hears of a single one.
struct FillLeanAtOnce : OnLean {
    FillLeanAtOnce(Size) {}
    void fill(Size size) {
        const Texts& texts = Texts::instance();
        model.refill(size.rows, size.cols, [&](std::int32_t r, std::int32_t c, LeanModel::Cell& cell) {
            cell.text = texts.text(r, c);
            cell.tag = texts.tag(r, c);
        });
    }
};

/// The same, column by column.
struct FillLeanColumns : OnLean {
    FillLeanColumns(Size) {}
    void fill(Size size) { fillColumns(model, size.rows, size.cols); }
};

struct FillStandard : OnStandardModel {
    FillStandard(Size) {}
    void fill(Size size) {
        fillCells(model, size.rows, size.cols);
        view.setModel(&model);
    }
};

struct FillTableWidget {
    QTableWidget table;
    FillTableWidget(Size) {}
    void fill(Size size) {
        table.setRowCount(size.rows);
        table.setColumnCount(size.cols);
        fillCells(table, size.rows, size.cols);
    }
};

template <class Contestant>
void add(const std::string& name, Size size, int repetitions) {
    measure(name, 1, repetitions, [size](benchmark::State& state) {
        for (auto _ : state) {
            returnFreedMemory();
            const std::size_t before = heapInUse();
            auto contestant = std::make_unique<Contestant>(size);
            state.SetIterationTime(seconds([&] { contestant->fill(size); }));
            const double cells = static_cast<double>(size.rows) * size.cols;
            state.counters[BytesPerCell] = static_cast<double>(heapInUse() - before) / cells;
        }
    });
}

/// Lines that compare `ours` with `peer`, who may take `most` of its time; 0 for information.
void addLines(Group& group, const std::string& work, const std::string& ours, const std::string& peer,
              double most) {
    const std::string prefix = group.name + "/";
    const Limit kind = most > 0 ? Limit::Ratio : Limit::None;
    group.lines.push_back({work, prefix + ours, prefix + peer, kind, most, Show::Milliseconds});
    group.lines.push_back({work + ": memory", prefix + ours, prefix + peer, kind, 0.45, Show::BytesPerCell});
}

void addGroup(Plan& plan, const std::string& name, const std::string& work, Size size, int repetitions,
              int heavyRepetitions) {
    Group group{name, {}, {}};
    add<FillPlain<OnWidget>>(name + "/widget", size, repetitions);
    add<FillPlain<OnDesk>>(name + "/desk", size, repetitions);
    add<FillOrder>(name + "/order", size, repetitions);
    add<FillColumnsPlain>(name + "/columns", size, repetitions);
    add<FillColumnsOrder>(name + "/order_columns", size, repetitions);
    add<FillLeanColumns>(name + "/lean_columns", size, repetitions);
    add<FillLeanAtOnce>(name + "/lean", size, repetitions);
    add<FillLean>(name + "/lean_by_cell", size, repetitions);
    add<FillStandard>(name + "/QStandardItemModel", size, heavyRepetitions);
    add<FillTableWidget>(name + "/QTableWidget", size, heavyRepetitions);
    addLines(group, work + ", beside the lean model", "widget", "lean", 0.65);
    addLines(group, work + " without a window, beside the lean model", "desk", "lean", 0.65);
    addLines(group, work + " by columns, beside the lean model", "columns", "lean", 0.45);
    addLines(group, work + " by columns, beside the lean model by columns", "columns", "lean_columns", 0);
    addLines(group, work + " into order columns, ReDraw True, beside the lean model", "order", "lean", 0.8);
    addLines(group, work + " into order columns by columns, ReDraw True, beside the lean model",
             "order_columns", "lean", 0.8);
    addLines(group, work + ", beside the lean model written cell by cell", "widget", "lean_by_cell", 0);
    addLines(group, work + ", beside QStandardItemModel", "widget", "QStandardItemModel", 0);
    addLines(group, work + ", beside QTableWidget", "widget", "QTableWidget", 0);
    plan.push_back(group);
}
}  // namespace

void planFill(Plan& plan) {
    addGroup(plan, "fill_100k", "fill 100,000 x 20", {100'000, 20}, 15, 3);
    addGroup(plan, "fill_1m", "fill 1,000,000 x 10", {1'000'000, 10}, 7, 1);
}
}  // namespace kxbench

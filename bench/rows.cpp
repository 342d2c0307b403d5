// Inserting and removing one row in the middle of many.
#include <memory>

#include "Contestants.h"
#include "Measure.h"
#include "Plan.h"

namespace kxbench {
namespace {

constexpr std::int32_t Cols = 10;
constexpr std::int32_t Million = 1'000'000;
constexpr std::int32_t HundredThousand = 100'000;

template <std::int32_t Rows>
struct FilledWidget : OnWidget {
    FilledWidget() {
        define(grid, Cols);
        setRows(grid, Rows);
        fillCells(grid, Rows, Cols);
        grid.AddVsRow.connect([](std::int32_t, bool& consent) { consent = true; });
    }
    static constexpr std::int32_t middle = Rows / 2;
};

template <std::int32_t Rows>
struct FilledLean : OnLean {
    FilledLean() {
        model.resize(Rows, Cols);
        fillCells(model, Rows, Cols);
    }
    static constexpr std::int32_t middle = Rows / 2;
};

void releaseAll() {
    Shared<FilledWidget<Million>>::release();
    Shared<FilledWidget<HundredThousand>>::release();
    Shared<FilledLean<Million>>::release();
    Shared<FilledLean<HundredThousand>>::release();
}

/// Times one call of `work`; `undo` puts things back outside of the time.
template <class Contestant, class Work, class Undo>
void add(const std::string& name, int iterations, Work work, Undo undo) {
    measure(name, iterations, 9, [=](benchmark::State& state) {
        Contestant& contestant = Shared<Contestant>::get();
        for (auto _ : state) {
            state.SetIterationTime(seconds([&] { work(contestant, Contestant::middle); }));
            undo(contestant, Contestant::middle);
        }
    });
}

template <std::int32_t Rows>
void addOurs(const std::string& insert, const std::string& remove, const std::string& adder) {
    using Ours = FilledWidget<Rows>;
    const auto insertRow = [](Ours& on, std::int32_t at) { on.grid.Grid().InsertRow(at); };
    const auto removeRow = [](Ours& on, std::int32_t at) { on.grid.Grid().RemoveRow(at); };
    add<Ours>(insert, 100, insertRow, removeRow);
    add<Ours>(remove, 100, removeRow, insertRow);
    add<Ours>(
        adder, 100, [](Ours& on, std::int32_t at) { on.grid.AddRow(at, true, false); }, removeRow);
}

template <std::int32_t Rows>
void addLean(const std::string& insert, const std::string& remove, int iterations) {
    using Lean = FilledLean<Rows>;
    const auto insertRow = [](Lean& on, std::int32_t at) { on.model.insertRows(at, 1); };
    const auto removeRow = [](Lean& on, std::int32_t at) { on.model.removeRows(at, 1); };
    add<Lean>(insert, iterations, insertRow, removeRow);
    add<Lean>(remove, iterations, removeRow, insertRow);
}

Line line(const std::string& work, const std::string& ours, const std::string& peer) {
    return {work, ours, peer, Limit::Seconds, 0.1e-3, Show::Milliseconds};
}
}  // namespace

void planRows(Plan& plan) {
    addOurs<Million>("rows_1m/insert", "rows_1m/remove", "rows_1m/AddRow");
    addLean<Million>("rows_1m/lean_insert", "rows_1m/lean_remove", 2);
    addLean<HundredThousand>("rows_1m/lean_insert_100k", "rows_1m/lean_remove_100k", 5);
    const std::string middle = " in the middle of 1,000,000 x 10";
    const std::string tenth = ", beside the lean model at 100,000 rows";
    const std::string same = ", beside the lean model";
    plan.push_back({"rows_1m",
                    {line("insert one row" + middle + tenth, "rows_1m/insert", "rows_1m/lean_insert_100k"),
                     line("insert one row" + middle + same, "rows_1m/insert", "rows_1m/lean_insert"),
                     line("remove one row" + middle + tenth, "rows_1m/remove", "rows_1m/lean_remove_100k"),
                     line("remove one row" + middle + same, "rows_1m/remove", "rows_1m/lean_remove"),
                     line("row adder" + middle + same, "rows_1m/AddRow", "rows_1m/lean_insert")},
                    releaseAll});
}
}  // namespace kxbench

// Painting a screenful after a jump to a random row.
#include <QScrollBar>

#include "Contestants.h"
#include "Measure.h"
#include "Plan.h"
#include "Stage.h"

namespace kxbench {
namespace {

constexpr std::int32_t Thousand = 1'000;
constexpr std::int32_t Million = 1'000'000;
constexpr int FramesPerRepetition = 5;
constexpr int Repetitions = 61;

template <std::int32_t Rows>
struct ShownWidget : OnWidget {
    ShownWidget() {
        define(grid, ShownCols);
        setRows(grid, Rows);
        fillCells(grid, Rows, ShownCols);
        show(widget);
    }
    QWidget& painted() { return *widget.focusProxy(); }
    void scrollTo(std::int32_t row) { grid.Grid().TopRow(row + HeaderRows); }
    std::int32_t top() { return grid.Grid().TopRow(); }
};

/// Scrolled by rows alone, so that the same cells are painted as without frozen columns.
struct ShownFrozen : ShownWidget<Thousand> {
    ShownFrozen() { grid.FrozenCols(3); }
};

template <std::int32_t Rows>
struct ShownLean : OnLean {
    ShownLean() {
        model.resize(Rows, ShownCols);
        fillCells(model, Rows, ShownCols);
        show(view);
    }
    QWidget& painted() { return *view.viewport(); }
    void scrollTo(std::int32_t row) { view.verticalScrollBar()->setValue(row); }
    std::int32_t top() { return view.rowAt(0); }
};

struct ShownTableWidget {
    QTableWidget table;
    ShownTableWidget() {
        table.setRowCount(Thousand);
        table.setColumnCount(ShownCols);
        fillCells(table, Thousand, ShownCols);
        show(table);
    }
    QWidget& painted() { return *table.viewport(); }
    void scrollTo(std::int32_t row) { table.verticalScrollBar()->setValue(row); }
    std::int32_t top() { return table.rowAt(0); }
};

/// A paint may be asked for in one turn of the event loop, and come in the next.
constexpr int Turns = 4;

template <class Contestant>
void add(const std::string& name, std::int32_t rows) {
    measure(name, FramesPerRepetition, Repetitions, [rows](benchmark::State& state) {
        Contestant& shown = Shared<Contestant>::get();
        const PaintCount paints(shown.painted());
        static std::uint32_t random = 4711;
        int frames = 0;
        for (auto _ : state) {
            std::int32_t row = shown.top();
            while (std::abs(row - shown.top()) < 60) {
                random = random * 1'664'525 + 1'013'904'223;
                row = static_cast<std::int32_t>((random >> 8) % static_cast<std::uint32_t>(rows - 60));
            }
            state.SetIterationTime(seconds([&] {
                shown.scrollTo(row);
                ++frames;
                for (int turn = 0; turn < Turns && paints.count() < frames; ++turn) settle();
            }));
        }
        if (paints.count() < frames) state.SkipWithError("a frame was not painted");
    });
}

void releaseAll() {
    Shared<ShownWidget<Thousand>>::release();
    Shared<ShownWidget<Million>>::release();
    Shared<ShownFrozen>::release();
    Shared<ShownLean<Thousand>>::release();
    Shared<ShownLean<Million>>::release();
    Shared<ShownTableWidget>::release();
}
}  // namespace

void planFrames(Plan& plan) {
    add<ShownWidget<Thousand>>("frame/widget_1k", Thousand);
    add<ShownWidget<Million>>("frame/widget_1m", Million);
    add<ShownFrozen>("frame/frozen_1k", Thousand);
    add<ShownLean<Thousand>>("frame/lean_1k", Thousand);
    add<ShownLean<Million>>("frame/lean_1m", Million);
    add<ShownTableWidget>("frame/QTableWidget_1k", Thousand);
    const std::string work = "frame, 1600 x 1000, 820 cells, scrolled at random, ";
    const auto line = [](const std::string& what, const char* ours, const char* peer, Limit kind,
                         double limit) { return Line{what, ours, peer, kind, limit, Show::Milliseconds}; };
    plan.push_back({"frame",
                    {line(work + "1,000 rows, beside the table view", "frame/widget_1k", "frame/lean_1k",
                          Limit::Ratio, 0.4),
                     line(work + "1,000,000 rows, beside the table view", "frame/widget_1m", "frame/lean_1m",
                          Limit::Ratio, 0.4),
                     line(work + "1,000,000 rows, beside the grid itself at 1,000 rows", "frame/widget_1m",
                          "frame/widget_1k", Limit::Band, 0.05),
                     line(work + "1,000 rows, three columns frozen, beside the grid itself with none",
                          "frame/frozen_1k", "frame/widget_1k", Limit::Ratio, 1.1),
                     line(work + "1,000 rows, beside QTableWidget", "frame/widget_1k",
                          "frame/QTableWidget_1k", Limit::None, 0)},
                    releaseAll});
}
}  // namespace kxbench

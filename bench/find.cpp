// Looking for a text that is in one cell, near the end, beside a loop over the strings of a model, and beside one over
// texts that lie one after the other and are nothing but that.
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include "Contestants.h"
#include "Measure.h"
#include "Plan.h"
#include "Texts.h"

namespace kxbench {
namespace {

constexpr std::int32_t Rows = 1'000'000;
constexpr std::int32_t Cols = 10;
constexpr std::int32_t FoundRow = Rows - 10;
constexpr std::int32_t FoundCol = 1;
const std::string Rare = "rare one";

struct Filled : OnDesk {
    Filled() {
        define(grid, Cols);
        setRows(grid, Rows);
        fillCells(grid, Rows, Cols);
        grid.SetCell(FoundRow + HeaderRows, FoundCol + HeaderCols, "a rare one, here", "");
    }
    /// As the bar does: the match is shown, and all are counted.
    void run(bool matchCase) {
        kxVsGrid::Finder& find = grid.Find();
        find.Rule({.text = Rare, .wholeCell = false, .matchCase = matchCase, .thisColumn = false});
        while (find.Work()) {
        }
        if (find.State().count != 1) throw std::runtime_error("the text was not found once");
        find.End();
    }
};

struct LeanCells : OnLean {
    LeanCells() {
        model.resize(Rows, Cols);
        fillCells(model, Rows, Cols);
        model.setData(model.index(FoundRow, FoundCol), QStringLiteral("a rare one, here"));
    }
    void run() const {
        const QString rare = QString::fromStdString(Rare);
        std::size_t found = 0;
        for (const LeanModel::Cell& cell : model.cells())
            if (cell.text.contains(rare)) ++found;
        if (found != 1) throw std::runtime_error("the text was not found once");
    }
};

/// Texts alone, row by row.
struct LeanTexts {
    std::vector<std::string> cells;
    LeanTexts() {
        const Texts& texts = Texts::instance();
        cells.reserve(static_cast<std::size_t>(Rows) * Cols);
        for (std::int32_t r = 0; r < Rows; ++r)
            for (std::int32_t c = 0; c < Cols; ++c) cells.emplace_back(texts.utf8(r, c));
        cells[static_cast<std::size_t>(FoundRow) * Cols + FoundCol] = "a rare one, here";
    }
    void run() const {
        std::size_t found = 0;
        for (const std::string& cell : cells)
            if (cell.find(Rare) != std::string::npos) ++found;
        if (found != 1) throw std::runtime_error("the text was not found once");
    }
};

void release() {
    Shared<Filled>::release();
    Shared<LeanCells>::release();
    Shared<LeanTexts>::release();
}

template <class Run>
void add(const std::string& name, Run run) {
    measure(name, 1, 9, [run](benchmark::State& state) {
        run();  // the first one also makes what it looks through
        for (auto _ : state) state.SetIterationTime(seconds(run));
    });
}
}  // namespace

void planFind(Plan& plan) {
    add("find_1m/case", [] { Shared<Filled>::get().run(true); });
    add("find_1m/fold", [] { Shared<Filled>::get().run(false); });
    add("find_1m/lean", [] { Shared<LeanCells>::get().run(); });
    add("find_1m/texts", [] { Shared<LeanTexts>::get().run(); });
    const std::string what = "find a rare text in 1,000,000 x 10";
    plan.push_back({"find_1m",
                    {{what + ", beside a loop over the lean model's strings", "find_1m/case", "find_1m/lean",
                      Limit::Ratio, 1.0, Show::Milliseconds},
                     {what + " whatever its case, beside the same loop", "find_1m/fold", "find_1m/lean",
                      Limit::Ratio, 1.0, Show::Milliseconds},
                     {what + ", beside a loop over std::strings that are nothing else", "find_1m/case",
                      "find_1m/texts", Limit::None, 0, Show::Milliseconds}},
                    release});
}
}  // namespace kxbench

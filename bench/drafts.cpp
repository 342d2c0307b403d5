// What comes back of a draft: an order of 10,000 lines, from bytes in memory, beside filling the same table.
#include <memory>
#include <stdexcept>
#include <string>

#include "Contestants.h"
#include "Measure.h"
#include "Plan.h"
#include "kxVsGrid/Draft.h"

namespace kxbench {
namespace {

constexpr std::int32_t Rows = 10'000;
constexpr std::int32_t Cols = 10;

struct EmptyTable : OnDesk {
    EmptyTable() {
        leavePlain(grid, Cols);
        setRows(grid, Rows);
    }
};

/// Of a table that was filled before it began; all of it is in its slices.
const std::string& draft() {
    static const std::string bytes = [] {
        EmptyTable table;
        fillCells(table.grid, Rows, Cols);
        std::string kept;
        kxVsGrid::Draft writer(table.grid.Grid(), [&kept](std::string_view more) {
            kept += more;
            return true;
        });
        writer.begin("order", "1");
        while (writer.writeSlice()) {
        }
        if (!writer.whole()) throw std::runtime_error("the draft is not whole");
        return kept;
    }();
    return bytes;
}

template <class Work>
void add(const std::string& name, Work work) {
    measure(name, 1, 9, [work](benchmark::State& state) {
        draft();
        for (auto _ : state) {
            const auto table = std::make_unique<EmptyTable>();
            state.SetIterationTime(seconds([&] { work(table->grid); }));
            if (table->grid.RawText(Rows, Cols).empty()) state.SkipWithError("nothing came");
        }
    });
}
}  // namespace

void planDrafts(Plan& plan) {
    add("drafts/recover", [](kxVsGrid::kxGrid& grid) { grid.Recover(draft(), false); });
    add("drafts/fill", [](kxVsGrid::kxGrid& grid) { fillCells(grid, Rows, Cols); });
    plan.push_back({"drafts",
                    {{"recover an order of 10,000 x 10 cells from its draft, beside filling it",
                      "drafts/recover", "drafts/fill", Limit::None, 0, Show::Milliseconds}},
                    {}});
}
}  // namespace kxbench

// A host that keeps a computed column: it hears of every cell of a column with tags and writes the one beside
// it, while both are summed and the total row is shown. Beside it the same fill that nobody hears of.
#include <charconv>
#include <memory>
#include <string>
#include <vector>

#include "Contestants.h"
#include "Measure.h"
#include "Plan.h"

namespace kxbench {
namespace {

constexpr std::int32_t Rows = 80'000;
constexpr std::int32_t Cols = 10;
constexpr std::int32_t Quantity = FirstSummed + HeaderCols;
constexpr std::int32_t Amount = SecondSummed + HeaderCols;
constexpr double Price = 2.5;

struct Order : OnDesk {
    explicit Order(bool computes) {
        define(grid, Cols);
        setRows(grid, Rows);
        for (std::int32_t r = 0; r < Rows; ++r) {
            quantities_.push_back(std::to_string(r % 997 + 1));
            tags_.push_back("line " + std::to_string(r));
        }
        if (computes)
            grid.CellChanged.connect([this](std::int32_t row, std::int32_t col) {
                if (col == Quantity) compute(row);
            });
    }
    void fill() {
        for (std::int32_t r = 0; r < Rows; ++r) {
            const auto i = static_cast<std::size_t>(r);
            grid.SetCell(r + HeaderRows, Quantity, quantities_[i], tags_[i]);
        }
        benchmark::DoNotOptimize(grid.ReadSum(Quantity));
        benchmark::DoNotOptimize(grid.ReadSum(Amount));
    }
    bool done(bool computes) const {
        return grid.Grid().Text(Rows, Quantity) == quantities_.back() &&
               grid.Grid().Text(Rows, Amount).empty() != computes;
    }

  private:
    void compute(std::int32_t row) {
        char text[32];
        const double amount = grid.Grid().CellNumber(row, Quantity) * Price;
        const auto end = std::to_chars(std::begin(text), std::end(text), amount).ptr;
        grid.SetCell(row, Amount, {text, static_cast<std::size_t>(end - text)});
    }

    std::vector<std::string> quantities_;
    std::vector<std::string> tags_;
};

void add(const std::string& name, bool computes) {
    measure(name, 1, 9, [computes](benchmark::State& state) {
        for (auto _ : state) {
            const auto order = std::make_unique<Order>(computes);
            state.SetIterationTime(seconds([&] { order->fill(); }));
            if (!order->done(computes)) state.SkipWithError("the column was not filled");
        }
    });
}
}  // namespace

void planComputed(Plan& plan) {
    add("computed/listener", true);
    add("computed/nobody", false);
    plan.push_back({"computed",
                    {{"fill a column of 80,000 rows, a listener writes the one beside it, beside the same "
                      "without a listener",
                      "computed/listener", "computed/nobody", Limit::Ratio, 3, Show::Milliseconds}},
                    {}});
}
}  // namespace kxbench

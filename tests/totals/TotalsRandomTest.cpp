// Random work on a small grid, compared with totals that are added up at once, wherever the rules have them
// recomputed, and nowhere else. How often somebody looks at the total row must not matter.
#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <optional>
#include <string>
#include <vector>

#include "kit/PlacedGrid.h"
#include "kit/Random.h"

namespace kxVsGrid::testing {
namespace {

constexpr std::int32_t First = 2, Last = 4;  // the columns at work

/// The number with at most two decimals, all of them or those that are needed; values are quarters.
std::string plain(double value, bool allDecimals) {
    const long long hundredths = std::llround(std::fabs(value) * 100);
    std::string text = std::to_string(hundredths / 100);
    std::string decimals = std::to_string(100 + hundredths % 100).substr(1);
    if (!allDecimals)
        while (!decimals.empty() && decimals.back() == '0') decimals.pop_back();
    if (!decimals.empty()) text += '.' + decimals;
    return value < 0 && hundredths != 0 ? '-' + text : text;
}

class RandomTotals : public PlacedGrid, public ::testing::WithParamInterface<unsigned> {
  protected:
    RandomTotals() : dice(0, GetParam()) {
        for (std::int32_t col = First; col <= Last; ++col) summed(col);
        grid.SumRow(true);
        redraw(true);
        resized(8);
    }

    std::int32_t roll(std::int32_t from, std::int32_t to) {
        return static_cast<std::int32_t>(dice.between(from, to));
    }
    std::int32_t anyRow() { return roll(0, vs().Rows() - 1); }
    std::int32_t anyCol() { return roll(First, Last); }
    std::string anyText() {
        switch (roll(0, 5)) {
            case 0:
                return "";
            case 1:
                return "abc";
            case 2:
                return "0";
            default:
                return plain(roll(-4000, 4000) * 0.25, false);
        }
    }
    std::string anyFormat() {
        return std::vector<std::string>{"", "0", "0.00"}[static_cast<std::size_t>(roll(0, 2))];
    }

    // --- The slow twin.
    double shownNumber(std::int32_t row, std::int32_t col) {
        const double value = std::atof(vs().Text(row, col).c_str());
        return vs().ColFormat(col) == "0" ? std::round(value) : value;
    }
    void recompute(std::int32_t col) {
        if (!column(col).b是否合计数据()) return;
        double total = 0;
        for (std::int32_t row = vs().FixedRows(); row < vs().Rows(); ++row) total += shownNumber(row, col);
        totals[static_cast<std::size_t>(col)] = total;
    }
    void recomputeAll() {
        for (std::int32_t col = First; col <= Last; ++col) recompute(col);
    }
    std::string expected(std::int32_t col) {
        const std::optional<double> total = totals[static_cast<std::size_t>(col)];
        if (!total) return "";
        const std::string format = vs().ColFormat(col);
        return format == "0" ? plain(std::round(*total), false) : plain(*total, format == "0.00");
    }

    // --- The work.
    void redraw(bool on) {
        grid.ReDraw(on);
        if (!on) return;
        for (auto& total : totals) total.reset();
        recomputeAll();
    }
    void resized(std::int32_t count) {
        grid.Rows(count);
        recomputeAll();
    }
    std::string step(bool definitionsToo) {
        const std::int32_t row = anyRow();
        const std::int32_t col = anyCol();
        switch (roll(0, definitionsToo ? 13 : 12)) {
            case 0:
            case 1:
            case 2: {
                const std::string given = anyText();
                grid.SetCell(row, col, given);
                if (grid.ReDraw()) recompute(col);
                return "SetCell " + std::to_string(row) + ' ' + std::to_string(col) + ' ' + given;
            }
            case 3:
            case 4: {
                const std::string given = anyText();
                vs().Text(row, col, given);
                return "Text " + std::to_string(row) + ' ' + std::to_string(col) + ' ' + given;
            }
            case 5: {
                const bool on = roll(0, 2) != 0;
                redraw(on);
                return on ? "ReDraw True" : "ReDraw False";
            }
            case 6:
                vs().InsertRow(std::max(row, vs().FixedRows()));
                return "InsertRow";
            case 7:
                if (row >= vs().FixedRows() && vs().Rows() > vs().FixedRows() + 1) vs().RemoveRow(row);
                return "RemoveRow " + std::to_string(row);
            case 8: {
                const std::int32_t count = roll(4, 12);
                resized(count);
                return "Rows " + std::to_string(count);
            }
            case 9: {
                const bool moves = row != grid.Row();
                grid.Row(row);
                if (moves) recomputeAll();
                return "Row " + std::to_string(row);
            }
            case 10:
                grid.ColFormat(col, anyFormat());
                return "ColFormat " + std::to_string(col) + " \"" + vs().ColFormat(col) + '"';
            case 11:
                grid.AddRow(std::max(row, vs().FixedRows()), false, roll(0, 1) != 0);
                recomputeAll();
                return "AddRow " + std::to_string(row);
            case 12:
                vs().ClearText(row, row);
                return "ClearText " + std::to_string(row);
            default:
                column(col).b是否合计数据(roll(0, 1) != 0);
                return "sums " + std::to_string(col);
        }
    }
    void work(bool definitionsToo) {
        std::string story = "seed " + std::to_string(dice.seed());
        for (int i = 0; i < 200; ++i) {
            story += '\n' + step(definitionsToo);
            if (roll(0, 3) != 0) continue;
            for (std::int32_t col = First; col <= Last; ++col)
                ASSERT_EQ(grid.ReadSum(col), expected(col)) << "column " << col << ", " << story;
        }
        EXPECT_EQ(boxes(), Nothing);
    }

    kit::Random dice;
    std::vector<std::optional<double>> totals = std::vector<std::optional<double>>(10);
};

TEST_P(RandomTotals, AreWhatTheRulesSay) {
    work(false);
}

TEST_P(RandomTotals, AreWhatTheRulesSayWhenColumnsBeginAndCeaseToBeSummed) {
    work(true);
}

INSTANTIATE_TEST_SUITE_P(Seed, RandomTotals, ::testing::Range(1u, 21u));
}  // namespace
}  // namespace kxVsGrid::testing

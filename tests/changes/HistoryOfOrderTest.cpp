// Undo and redo of rows that have changed places.
#include <functional>
#include <string>
#include <vector>

#include "changes/HistoryOfAGrid.h"
#include "kit/Random.h"

namespace kxVsGrid::testing {
namespace {

class HistoryOfAnOrder : public HistoryOfAGrid {
  protected:
    HistoryOfAnOrder() {
        for (std::int32_t row = 1; row < 6; ++row)
            vs().Text(row, 1, std::string(1, static_cast<char>('a' + row - 1)));
    }
    std::string order() {
        std::string texts;
        for (std::int32_t row = 1; row < vs().Rows(); ++row)
            texts += text(row, 1).empty() ? "-" : text(row, 1);
        return texts;
    }
    void inAStep(const std::function<void()>& work) {
        const auto step = grid.Step("排序");
        work();
    }
};

TEST_F(HistoryOfAnOrder, PutsRowsBackWhereTheyStood) {
    std::vector<std::int32_t> rows;
    std::vector<std::int32_t> cols;
    grid.Changes().After.connect([&](const StepChanges& changes) {
        rows.assign(changes.rows.begin(), changes.rows.end());
        cols.assign(changes.cols.begin(), changes.cols.end());
    });
    vs().RowHeight(2, 700);
    vs().CellBackColor(2, 3, 5U);
    const RowId second = vs().IdOf(2);
    vs().Select(2, 1);
    inAStep([&] { vs().Reorder(2, std::vector<std::int32_t>{4, 3, 2}); });
    EXPECT_EQ(order(), "adcbe");
    EXPECT_EQ(rows, (std::vector<std::int32_t>{2, 3, 4}));
    EXPECT_TRUE(cols.empty());
    EXPECT_TRUE(history().Undo());
    EXPECT_EQ(order(), "abcde");
    EXPECT_EQ(vs().RowHeight(2), 700);
    EXPECT_EQ(vs().CellBackColor(2, 3), 5U);
    EXPECT_EQ(vs().RowOf(second), 2);
    EXPECT_EQ(vs().Row(), 2);
    EXPECT_EQ(rows, (std::vector<std::int32_t>{2, 3, 4}));
    EXPECT_EQ(history().RedoName(), "排序");
    EXPECT_TRUE(history().Redo());
    EXPECT_EQ(order(), "adcbe");
    EXPECT_EQ(vs().RowOf(second), 4);
}

TEST_F(HistoryOfAnOrder, GoesToTheRowsThatChangedPlaces) {
    vs().Select(1, 3);
    inAStep([&] { vs().MoveRows(4, 1, 3); });
    EXPECT_TRUE(history().Undo());
    EXPECT_EQ(vs().Row(), 3);
    EXPECT_EQ(vs().Col(), 3);
}

TEST_F(HistoryOfAnOrder, IsThatOfBeforeWhateverElseTheStepDid) {
    inAStep([&] {
        vs().Text(1, 1, "A");
        vs().MoveRows(1, 1, 5);
        vs().RemoveRow(2);
        vs().InsertRow(1);
        vs().Text(1, 1, "n");
        vs().MoveRows(1, 2, 3);
        vs().Text(2, 1, "E");
    });
    const std::string after = order();
    EXPECT_TRUE(history().Undo());
    EXPECT_EQ(order(), "abcde");
    EXPECT_TRUE(history().Redo());
    EXPECT_EQ(order(), after);
}

TEST_F(HistoryOfAnOrder, IsRightAlsoWhereARowCameAndWent) {
    inAStep([&] {
        vs().InsertRow(4);
        vs().Text(4, 1, "n");
        vs().Reorder(2, std::vector<std::int32_t>{4, 3, 2});  // the one in the middle stays
        EXPECT_EQ(order(), "ancbde");
        vs().RemoveRow(2);
    });
    EXPECT_EQ(order(), "acbde");
    EXPECT_TRUE(history().Undo());
    EXPECT_EQ(order(), "abcde");
    EXPECT_TRUE(history().Redo());
    EXPECT_EQ(order(), "acbde");
}

TEST_F(HistoryOfAnOrder, PassesOverRowsThatHaveGoneAndLeavesThoseThatCame) {
    inAStep([&] { vs().Reorder(1, std::vector<std::int32_t>{5, 4, 3, 2, 1}); });
    {
        const auto span = grid.Unrecorded();
        vs().RemoveRow(2);
        vs().InsertRow(3);
        vs().Text(3, 1, "n");
        vs().MoveRows(1, 1, 2);
    }
    EXPECT_EQ(order(), "cenba");
    EXPECT_TRUE(history().Undo());
    EXPECT_EQ(order(), "abnce");
}

TEST_F(HistoryOfAnOrder, IsTakenBackWithItsStep) {
    key(1, 2, "7");
    auto step = grid.Step("taken back");
    vs().MoveRows(1, 2, 4);
    vs().Text(1, 1, "other");
    EXPECT_TRUE(step.takeBack());
    EXPECT_EQ(order(), "abcde");
    vs().MoveRows(5, 1, 1);
    step.close();
    EXPECT_EQ(order(), "eabcd");
    EXPECT_TRUE(history().Undo());
    EXPECT_EQ(order(), "abcde");
    EXPECT_EQ(history().UndoName(), "录入");
}

/// Of a great many rows few change places.
class HistoryOfALongOrder : public HistoryOfAnOrder {
  protected:
    static constexpr std::int32_t Rows = 5000;
    HistoryOfALongOrder() {
        grid.Rows(Rows);
        for (std::int32_t row = 1; row < Rows; ++row) vs().Text(row, 1, std::to_string(row));
    }
    std::vector<std::string> all() {
        std::vector<std::string> texts;
        for (std::int32_t row = 1; row < vs().Rows(); ++row) texts.push_back(text(row, 1));
        return texts;
    }
    std::vector<std::int32_t> swapped(std::int32_t one, std::int32_t other) {
        std::vector<std::int32_t> from;
        for (std::int32_t row = one; row <= other; ++row)
            from.push_back(row == one ? other : row == other ? one : row);
        return from;
    }
};

TEST_F(HistoryOfALongOrder, PutsRowsBackFromFarAway) {
    std::size_t told = 0;
    grid.Changes().After.connect([&](const StepChanges& changes) { told = changes.rows.size(); });
    const auto before = all();
    history().Limit(20'000);  // to name all rows takes more
    inAStep([&] {
        vs().MoveRows(3, 2, 4800);
        vs().Reorder(10, swapped(10, 4990));
        vs().Text(4990, 1, "ten");
        vs().MoveRows(4700, 4, 1);
        vs().InsertRow(2000);
        vs().RemoveRow(1);
    });
    EXPECT_GT(told, 4900U);
    const auto after = all();
    EXPECT_TRUE(history().Undo());
    EXPECT_EQ(all(), before);
    EXPECT_TRUE(history().Redo());
    EXPECT_EQ(all(), after);
    EXPECT_TRUE(history().Undo());
    EXPECT_EQ(all(), before);
}

TEST_F(HistoryOfALongOrder, FindsThePlaceByTheNeighbourThatIsThere) {
    inAStep([&] { vs().MoveRows(3, 2, 4800); });
    {
        const auto span = grid.Unrecorded();
        vs().RemoveRow(3);  // the first below the two
        vs().InsertRow(1);
        vs().RemoveRow(vs().Rows() - 1);
    }
    EXPECT_TRUE(history().Undo());
    EXPECT_EQ(text(2, 1) + text(3, 1) + text(4, 1) + text(5, 1) + text(6, 1), "12346");
}

TEST_F(HistoryOfALongOrder, LeadsBackAndForthThroughAnyMoves) {
    kit::Random dice;
    const auto roll = [&](std::int32_t from, std::int32_t to) {
        return static_cast<std::int32_t>(dice.between(from, to));
    };
    std::vector<std::vector<std::string>> states{all()};
    for (int n = 0; n < 40; ++n) {
        inAStep([&] {
            vs().Text(1, 2, std::to_string(n));  // each step is one
            for (int i = roll(1, 4); i > 0; --i) {
                const std::int32_t at = roll(1, vs().Rows() - 60);
                const std::int32_t count = roll(1, 50);
                if (dice.oneIn(4)) vs().InsertRow(at);
                if (dice.oneIn(4)) vs().RemoveRow(at);
                if (dice.oneIn(4)) vs().Text(at, 1, "n" + std::to_string(n));
                if (dice.oneIn(2))
                    vs().MoveRows(at, count, roll(1, vs().Rows() - count));
                else if (at < 3000)
                    vs().Reorder(at, swapped(at, roll(at + 1100, vs().Rows() - 1)));
            }
        });
        states.push_back(all());
    }
    for (std::size_t n = states.size() - 1; n > 0; --n) {
        ASSERT_TRUE(history().Undo());
        ASSERT_EQ(all(), states[n - 1]) << n;
    }
    for (std::size_t n = 1; n < states.size(); ++n) {
        ASSERT_TRUE(history().Redo());
        ASSERT_EQ(all(), states[n]) << n;
    }
}

TEST_F(HistoryOfALongOrder, GoesToTheRowThatWasMoved) {
    vs().Select(9, 1);
    inAStep([&] { vs().MoveRows(4500, 1, 2); });
    EXPECT_TRUE(history().Undo());
    EXPECT_EQ(vs().Row(), 4500);
    EXPECT_EQ(vs().Col(), 1);
}
}  // namespace
}  // namespace kxVsGrid::testing

// A host that keeps an array beside the grid follows it by what each step tells.
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "kit/Dice.h"
#include "kit/Random.h"
#include "kxVsGrid/headless/Desk.h"
#include "kxVsGrid/kxVsGrid.h"

namespace kxVsGrid::testing {
namespace {

using Places = std::vector<std::int32_t>;

class GridWithAnArrayBeside : public ::testing::Test {
  protected:
    GridWithAnArrayBeside() {
        grid.FormatString("行号|品名    |数量    ");
        for (std::int16_t col = 1; col <= 2; ++col) {
            grid.VsCtrl(col)->bIsEditable(true);
            grid.Options(col).sortable(true);
        }
        grid.VsCtrl(2)->iType(flexDTDouble);
        grid.Rows(7);
        grid.ReDraw(true);
        const char* const names[] = {"d", "a", "c", "b", "e", "f"};
        for (std::int32_t row = 1; row < 7; ++row) grid.Grid().Text(row, 1, names[row - 1]);
        desk.focusGrid();
        after_ = grid.Changes().After.connect(
            [this](const StepChanges& step) { from.assign(step.from.begin(), step.from.end()); });
    }

    headless::Desk desk;
    kxGrid& grid = desk.place();
    Places from{-7};

  private:
    ScopedConnection after_;
};

TEST_F(GridWithAnArrayBeside, HearsWhereEachRowOfASortStoodBefore) {
    grid.Grid().Select(1, 1);
    EXPECT_TRUE(desk.run(Command::SortUp));
    EXPECT_EQ(from, (Places{0, 2, 4, 3, 1, 5, 6}));
    EXPECT_TRUE(desk.run(Command::Undo));
    EXPECT_EQ(from, (Places{0, 4, 1, 3, 2, 5, 6}));
}

TEST_F(GridWithAnArrayBeside, HearsOfNoOrderWhereNoneHasChanged) {
    grid.Grid().Select(2, 1);
    EXPECT_TRUE(desk.run(Command::AppendRow));
    EXPECT_EQ(from, Places{});
}

TEST_F(GridWithAnArrayBeside, HearsOfRowsThatCameAndWentBeforeAndAfterTheOrderChanged) {
    {
        const ChangeStep step = grid.Step("换");
        grid.Grid().InsertRow(2);
        grid.Grid().RemoveRow(1);
        grid.Grid().MoveRows(5, 1, 1);
        grid.Grid().InsertRow(7);
        grid.Grid().RemoveRow(4);
    }
    EXPECT_EQ(from, (Places{0, 5, -1, 2, 4, 6, -1}));
}

TEST_F(GridWithAnArrayBeside, HearsOfRowsThatWentOneByOneBeforeTheOrderChanged) {
    grid.Rows(12);
    {
        const ChangeStep step = grid.Step("换");
        grid.Grid().RemoveRow(5);
        grid.Grid().RemoveRow(4);
        grid.Grid().RemoveRow(4);
        grid.Grid().MoveRows(4, 1, 1);
    }
    EXPECT_EQ(from, (Places{0, 7, 1, 2, 3, 8, 9, 10, 11}));
}

TEST_F(GridWithAnArrayBeside, HearsOfAnOrderThatWasTakenBackAsOfTheOldOne) {
    {
        const ChangeStep step = grid.Step("换");
        grid.Grid().Text(1, 2, "1");
        {
            ChangeStep inner = grid.Step("里");
            grid.Grid().MoveRows(5, 1, 1);
            inner.takeBack();
        }
    }
    EXPECT_EQ(from, (Places{0, 1, 2, 3, 4, 5, 6}));
}

TEST(ListenersOfSteps, WhoComesInTheMiddleOfANewOrderIsToldThatAnythingMayHaveChanged) {
    headless::Desk desk;
    kxGrid& grid = desk.place();
    grid.Rows(7);
    bool known = true;
    ScopedConnection after;
    {
        const ChangeStep step = grid.Step("换");
        grid.Grid().InsertRow(2);
        after = grid.Changes().After.connect([&](const StepChanges& told) { known = told.known; });
        grid.Grid().MoveRows(5, 1, 1);
    }
    EXPECT_FALSE(known);
}

/// Every row knows by its text in the first column who it is.
TEST_F(GridWithAnArrayBeside, FollowsRandomStepsAndTheirUndo) {
    std::vector<std::string> beside;
    const auto read = [&] {
        std::vector<std::string> texts;
        for (std::int32_t row = 0; row < grid.Rows(); ++row) texts.push_back(grid.Grid().Text(row, 1));
        return texts;
    };
    beside = read();
    int orders = 0;
    const ScopedConnection after = grid.Changes().After.connect([&](const StepChanges& step) {
        ASSERT_TRUE(step.known);
        const std::vector<std::string> now = read();
        if (!step.from.empty()) {
            ++orders;
            ASSERT_EQ(step.from.size(), now.size());
            for (std::size_t row = 0; row < now.size(); ++row) {
                const std::int32_t old = step.from[row];
                if (old < 0) continue;
                ASSERT_EQ(now[row], beside[static_cast<std::size_t>(old)]) << row;
            }
        }
        beside = now;
    });
    kit::Dice dice;
    for (int act = 0; act < 400; ++act) {
        const std::int32_t last = grid.Rows() - 1;
        const auto row = [&] { return dice.between(1, last); };
        switch (dice.between(0, 5)) {
            case 0:
                grid.Grid().Select(row(), 2);
                desk.run(dice.oneIn(2) ? Command::SortUp : Command::SortDown);
                break;
            case 1:
                desk.run(Command::Undo);
                break;
            case 2:
                desk.run(Command::Redo);
                break;
            default: {
                const ChangeStep step = grid.Step("乱");
                for (int part = dice.between(1, 4); part > 0; --part) {
                    const std::int32_t end = grid.Rows() - 1;
                    const std::int32_t a = dice.between(1, end);
                    const std::int32_t b = dice.between(1, end);
                    if (dice.oneIn(3))
                        grid.Grid().InsertRow(a);
                    else if (end > 5 && dice.oneIn(2))
                        grid.Grid().RemoveRow(a);
                    else
                        grid.Grid().MoveRows(a, 1, b);
                }
            }
        }
    }
    EXPECT_GT(orders, 50);
}
}  // namespace
}  // namespace kxVsGrid::testing

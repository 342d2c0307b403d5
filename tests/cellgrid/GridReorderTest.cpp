// Rows that change places: what goes along, who hears of it, and what is refused.
#include <gtest/gtest.h>

#include <numeric>
#include <span>
#include <string>
#include <vector>

#include "MoveLog.h"
#include "kxVsGrid/CellGrid.h"

namespace kxVsGrid {
namespace {

using Places = std::vector<std::int32_t>;

/// Rows 1 to 19 of data, whose texts name them.
class RowsThatChangePlaces : public ::testing::Test {
  protected:
    RowsThatChangePlaces() {
        grid.Rows(20);
        for (std::int32_t r = 1; r < 20; ++r) grid.Text(r, 1, std::to_string(r));
        grid.RowsReordered.connect([this](std::int32_t first, std::span<const std::int32_t> from) {
            std::string line = std::to_string(first) + ":";
            for (const std::int32_t row : from) line += " " + std::to_string(row);
            told.push_back(line + (grid.Text(first, 1) == std::to_string(from[0]) ? "" : ", not done"));
        });
    }
    std::string texts(std::int32_t first, std::int32_t last) const {
        std::string line;
        for (std::int32_t r = first; r <= last; ++r) line += grid.Text(r, 1) + " ";
        return line;
    }
    std::string refusal(std::int32_t first, const Places& from) {
        try {
            grid.Reorder(first, from);
        } catch (const GridError& error) {
            return error.what();
        }
        return "none";
    }
    std::string refusalToMove(std::int32_t first, std::int32_t count, std::int32_t to) {
        try {
            grid.MoveRows(first, count, to);
        } catch (const GridError& error) {
            return error.what();
        }
        return "none";
    }

    CellGrid grid;
    std::vector<std::string> told;
};

TEST_F(RowsThatChangePlaces, StandInTheOrderThatIsGiven) {
    grid.Reorder(3, Places{5, 3, 4});
    EXPECT_EQ(texts(1, 7), "1 2 5 3 4 6 7 ");
    EXPECT_EQ(told, (std::vector<std::string>{"3: 5 3 4"}));
}

TEST_F(RowsThatChangePlaces, AreToldWithoutThoseAtTheEndsThatStay) {
    grid.Reorder(1, Places{1, 2, 5, 4, 3, 6, 7});
    EXPECT_EQ(texts(1, 7), "1 2 5 4 3 6 7 ");
    EXPECT_EQ(told, (std::vector<std::string>{"3: 5 4 3"}));
}

TEST_F(RowsThatChangePlaces, TellNothingWhereNoneGoesElsewhere) {
    grid.takeDamage();
    grid.Reorder(3, Places{3, 4, 5});
    grid.Reorder(3, Places{});
    grid.MoveRows(3, 4, 3);
    grid.MoveRows(3, 0, 7);
    EXPECT_TRUE(told.empty());
    EXPECT_FALSE(grid.takeDamage().all);
}

TEST_F(RowsThatChangePlaces, MoveTogetherUpAndDown) {
    grid.MoveRows(3, 2, 6);
    EXPECT_EQ(texts(1, 9), "1 2 5 6 7 3 4 8 9 ");
    grid.MoveRows(6, 2, 3);
    EXPECT_EQ(texts(1, 9), "1 2 3 4 5 6 7 8 9 ");
    grid.MoveRows(18, 2, 1);
    EXPECT_EQ(texts(1, 4), "18 19 1 2 ");
    grid.MoveRows(1, 1, 19);
    EXPECT_EQ(texts(17, 19), "16 17 18 ");
    EXPECT_EQ(told.front(), "3: 5 6 7 3 4");
}

TEST_F(RowsThatChangePlaces, TakeAllThatBelongsToThemAlong) {
    grid.Data(4, 2, "tag");
    grid.ComputedText(4, 3, [] { return "computed"; });
    grid.CellAlignment(4, 2, flexAlignRightTop);
    grid.CellForeColor(4, 2, 1U);
    grid.CellBackColor(4, 9, 2U);
    grid.RowHeight(4, 700);
    grid.RowHidden(4, true);
    grid.MergeRow(4, true);
    const RowId id = grid.IdOf(4);
    const std::int64_t height = grid.TotalHeight();
    grid.MoveRows(4, 1, 15);
    EXPECT_EQ(grid.Data(15, 2), "tag");
    EXPECT_EQ(grid.Text(15, 3), "computed");
    EXPECT_EQ(grid.CellAlignment(15, 2), flexAlignRightTop);
    EXPECT_EQ(grid.CellForeColor(15, 2), 1U);
    EXPECT_EQ(grid.CellBackColor(15, 9), 2U);
    EXPECT_EQ(grid.RowHeight(15), 700);
    EXPECT_TRUE(grid.RowHidden(15));
    EXPECT_TRUE(grid.MergeRow(15));
    EXPECT_EQ(grid.RowOf(id), 15);
    EXPECT_EQ(grid.KnownId(15), id);
    EXPECT_EQ(grid.KnownId(4), RowId::None);
    EXPECT_EQ(grid.Text(4, 3), "");
    EXPECT_EQ(grid.CellBackColor(4, 9), std::nullopt);
    EXPECT_EQ(grid.RowHeight(4), CellGrid::DefaultRowHeight);
    EXPECT_FALSE(grid.RowHidden(4));
    EXPECT_FALSE(grid.MergeRow(4));
    EXPECT_EQ(grid.TotalHeight(), height);
}

TEST_F(RowsThatChangePlaces, AreNumberedByWhereTheyStand) {
    grid.NumberRows();
    grid.Text(4, 0, "own");
    grid.MoveRows(4, 1, 6);
    EXPECT_EQ(grid.Text(4, 0), "4");
    EXPECT_EQ(grid.Text(5, 0), "5");
    EXPECT_EQ(grid.Text(6, 0), "own");
    EXPECT_EQ(grid.ColumnSum(0), 190 - 6);
}

TEST_F(RowsThatChangePlaces, AreFollowedByTheCurrentCellWithoutEventsOrScrolling) {
    grid.Resize(5000, 1500);
    grid.Select(5, 2);
    grid.TopRow(4);
    test::MoveLog log(grid);
    int scrolled = 0;
    grid.AfterScroll.connect([&](auto...) { ++scrolled; });
    grid.MoveRows(5, 1, 17);
    EXPECT_EQ(grid.Row(), 17);
    EXPECT_EQ(grid.Col(), 2);
    EXPECT_EQ(grid.TopRow(), 4);
    EXPECT_EQ(log.take(), std::vector<std::string>{});
    EXPECT_EQ(scrolled, 0);
    EXPECT_TRUE(grid.takeDamage().all);
    grid.MoveRows(3, 1, 17);
    EXPECT_EQ(grid.Row(), 16);
}

TEST_F(RowsThatChangePlaces, CarryTheTargetOfAMoveAlong) {
    test::MoveLog log(grid);
    Connection once = grid.LeaveCell.connect([&] {
        once.disconnect();
        grid.MoveRows(7, 1, 2);
        grid.MoveRows(1, 1, 3);
    });
    EXPECT_TRUE(grid.Select(7, 3));
    EXPECT_EQ(grid.Row(), 1);
    EXPECT_EQ(grid.Text(1, 1), "7");
    EXPECT_EQ(log.take(), (std::vector<std::string>{"Before 1,1 -> 7,3", "Leave 1,1", "Enter 1,3",
                                                    "RowColChange", "After 3,1 -> 1,3", "SelChange"}));
}

TEST_F(RowsThatChangePlaces, AreRefusedUnlessEachIsNamedOnce) {
    const std::string before = texts(1, 19);
    EXPECT_EQ(refusal(0, {1, 0}), "CellGrid.Reorder: 0 is no data row");
    EXPECT_EQ(refusal(-1, {0, -1}), "CellGrid.Reorder: -1 is no data row");
    EXPECT_EQ(refusal(21, {}), "CellGrid.Reorder: 21 is no data row");
    EXPECT_EQ(refusal(19, {20, 19}), "CellGrid.Reorder: 2 rows are more than there are");
    EXPECT_EQ(refusal(3, {3, 6, 4}), "CellGrid.Reorder: 6 is none of the rows that change places");
    EXPECT_EQ(refusal(3, {2, 3, 4}), "CellGrid.Reorder: 2 is none of the rows that change places");
    EXPECT_EQ(refusal(3, {5, 4, 5}), "CellGrid.Reorder: 5 is named twice");
    EXPECT_EQ(refusal(20, {}), "none");
    EXPECT_EQ(refusalToMove(0, 1, 4), "CellGrid.MoveRows: 0 is no data row");
    EXPECT_EQ(refusalToMove(4, 1, 0), "CellGrid.MoveRows: 0 is no place for the rows");
    EXPECT_EQ(refusalToMove(4, 2, 19), "CellGrid.MoveRows: 19 is no place for the rows");
    EXPECT_EQ(refusalToMove(4, -1, 5), "CellGrid.MoveRows: -1 is negative");
    EXPECT_EQ(refusalToMove(19, 2, 5), "CellGrid.MoveRows: 2 rows are more than there are");
    EXPECT_EQ(texts(1, 19), before);
    EXPECT_TRUE(told.empty());
}

TEST(ManyRowsThatChangePlaces, AreReversedAndTheirLooksWithThem) {
    CellGrid grid;
    grid.Rows(200'001);
    for (std::int32_t r = 1; r <= 200'000; r += 2) {
        grid.Text(r, 1, std::to_string(r));
        grid.CellForeColor(r, 1, static_cast<std::uint32_t>(r % 3));
        grid.RowHeight(r, 200 + r % 5);
    }
    Places from(200'000);
    std::iota(from.rbegin(), from.rend(), 1);
    grid.Reorder(1, from);
    for (std::int32_t r = 1; r <= 200'000; ++r) {
        const std::int32_t old = 200'001 - r;
        const bool odd = old % 2 == 1;
        ASSERT_EQ(grid.Text(r, 1), odd ? std::to_string(old) : "");
        ASSERT_EQ(grid.CellForeColor(r, 1).value_or(9), odd ? static_cast<std::uint32_t>(old % 3) : 9);
        ASSERT_EQ(grid.RowHeight(r), odd ? 200 + old % 5 : CellGrid::DefaultRowHeight);
    }
}

TEST(ManyRowsThatChangePlaces, CostNothingWhereTheyWereNeverWritten) {
    CellGrid grid;
    grid.Rows(CellGrid::MaxRows);
    grid.Text(CellGrid::MaxRows - 1, 1, "last");
    grid.MoveRows(CellGrid::MaxRows - 1, 1, CellGrid::MaxRows - 5);
    EXPECT_EQ(grid.Text(CellGrid::MaxRows - 5, 1), "last");
}
}  // namespace
}  // namespace kxVsGrid

// Rows that change places under the control: the editor, what works on a row, and the totals follow.
#include <new>
#include <string>
#include <vector>

#include "grid/FailingAllocator.h"
#include "kit/PlacedGrid.h"

namespace kxVsGrid::testing {
namespace {

class ReorderedRows : public PlacedGrid {
  protected:
    ReorderedRows() {
        grid.Cols(6);
        column(2).iType(flexDTDouble);
        summed(2);
        grid.DeleteVsRow.connect([](std::int32_t, bool& consent) { consent = true; });
        setUp();
        for (std::int32_t row = 1; row < 6; ++row) grid.SetCell(row, 1, std::to_string(row));
        desk.focusGrid();
    }
};

TEST_F(ReorderedRows, AreFollowedByACommitThatTheyInterrupt) {
    grid.ValidData.connect([this](std::int16_t&) {
        if (text(4, 1) == "4") vs().MoveRows(2, 1, 4);
    });
    vs().Select(2, 1);
    desk.type("typed").press(Key::Enter);
    EXPECT_EQ(text(4, 1), "typed");
    EXPECT_EQ(text(2, 1), "3");
}

TEST_F(ReorderedRows, AreFollowedByACommandThatAsksAboutARow) {
    grid.DeleteVsRow.connect([this](std::int32_t, bool&) { vs().MoveRows(2, 1, 4); });
    vs().Select(2, 1);
    desk.press(Key::Delete);
    EXPECT_EQ(text(1, 1) + text(2, 1) + text(3, 1) + text(4, 1), "1345");
}

TEST_F(ReorderedRows, AreAddedUpAnew) {
    grid.SetCell(1, 2, "10000000000000000");
    grid.SetCell(2, 2, "1");
    grid.SetCell(3, 2, "-10000000000000000");
    EXPECT_EQ(grid.ReadSum(2), "0");
    vs().MoveRows(2, 1, 3);
    EXPECT_EQ(grid.ReadSum(2), "1");
}

/// All that belongs to the rows of a grid.
std::vector<std::string> rowsOf(CellGrid& cells) {
    std::vector<std::string> rows;
    for (std::int32_t r = 0; r < cells.Rows(); ++r) {
        std::string line = cells.Text(r, 1) + " " + cells.Data(r, 2) + " " + cells.Text(r, 3);
        for (const std::int64_t number : {static_cast<std::int64_t>(cells.CellForeColor(r, 1).value_or(99)),
                                          static_cast<std::int64_t>(cells.CellBackColor(r, 4).value_or(99)),
                                          std::int64_t{cells.RowHeight(r)}, std::int64_t{cells.RowHidden(r)},
                                          std::int64_t{cells.MergeRow(r)}, std::int64_t{r == cells.Row()},
                                          static_cast<std::int64_t>(cells.KnownId(r))})
            line += " " + std::to_string(number);
        rows.push_back(line);
    }
    return rows;
}

TEST(ReorderedRowsShortOfMemory, AreAllAsTheyWereOrAllDone) {
    bool failed = true;
    std::size_t failures = 0;
    for (std::size_t point = 1; failed && point < 1000; ++point) {
        SCOPED_TRACE(point);
        CellGrid cells;
        cells.Rows(300);
        for (std::int32_t r = 1; r < 300; r += 3) {
            if (r < 200) cells.Text(r, 1, std::to_string(r));
            cells.CellForeColor(r, 1, static_cast<std::uint32_t>(r % 7));
            cells.RowHeight(r, 200 + r);
            cells.MergeRow(r, true);
        }
        cells.Data(5, 2, "tag");
        cells.ComputedText(5, 3, [] { return "computed"; });
        cells.CellBackColor(5, 4, 3U);
        cells.RowHidden(8, true);
        for (const std::int32_t r : {5, 7, 250}) cells.IdOf(r);
        cells.Select(5, 1);
        const std::vector<std::string> before = rowsOf(cells);
        const std::int64_t height = cells.TotalHeight();
        bool refused = false;  // what only saves memory may fail unseen
        {
            const FailingAllocation failing(point);
            try {
                cells.MoveRows(4, 30, 260);
            } catch (const std::bad_alloc&) {
                refused = true;
            }
            failed = failing.failed();
        }
        EXPECT_EQ(rowsOf(cells) == before, refused);
        EXPECT_EQ(cells.TotalHeight(), height);
        failures += refused;
        if (refused) cells.MoveRows(4, 30, 260);
        cells.MoveRows(260, 30, 4);
        EXPECT_EQ(rowsOf(cells), before);
        if (::testing::Test::HasFailure()) return;
    }
    EXPECT_FALSE(failed);
    EXPECT_GT(failures, 10U);
}
}  // namespace
}  // namespace kxVsGrid::testing

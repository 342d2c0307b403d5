// A host that changes the grid from inside the events of the change that is under way: everything is read
// afresh after an event, and what is under way ends with a grid that fits together.
#include <cstdint>
#include <memory>

#include "kit/PlacedGrid.h"

namespace kxVsGrid::testing {
namespace {

class Reentry : public PlacedGrid {
  protected:
    void expectToFitTogether() {
        EXPECT_EQ(sum().Cols(), vs().Cols());
        EXPECT_NO_THROW(grid.VsCtrl(static_cast<std::int16_t>(grid.Cols())));
        EXPECT_THROW(grid.VsCtrl(static_cast<std::int16_t>(grid.Cols() + 1)), GridError);
        EXPECT_LT(grid.Row(), grid.Rows());
        EXPECT_LT(grid.Col(), grid.Cols());
        EXPECT_GE(grid.Rows(), grid.FixedRows() + 5);
        EXPECT_EQ(boxes(), Nothing);
        grid.SetCell(1, 1, "text", "tag");
        EXPECT_EQ(grid.ReadCell(1, 1, true), "text");
    }
    /// Does something once, at the first entry of a cell.
    template <class Act>
    void onceOnEntry(Act act) {
        grid.EnterCell.connect([act, done = false]() mutable {
            if (done) return;
            done = true;
            act();
        });
    }
};

TEST_F(Reentry, OfTheRowCountFromALostRow) {
    for (std::int32_t col = 0; col < 10; ++col) column(col).b是否设列颜色(true);
    grid.Rows(20);
    vs().Select(15, 3);
    desk.clear();
    onceOnEntry([this] { grid.Rows(12); });
    grid.Rows(8);
    EXPECT_EQ(grid.Rows(), 12);
    EXPECT_EQ(reported(), (Lines{"Rows", "Rows"}));
    EXPECT_EQ(text(11, 0), "11");
    EXPECT_EQ(vs().CellForeColor(11, 3), color(0));
    expectToFitTogether();
}

TEST_F(Reentry, OfFewerRowsFromALostRow) {
    grid.Rows(20);
    vs().Select(15, 3);
    onceOnEntry([this] { vs().Rows(2); });
    grid.Rows(12);
    EXPECT_EQ(grid.Rows(), 6);
    expectToFitTogether();
}

TEST_F(Reentry, OfTheColumnCountFromALostColumn) {
    summed(2);
    grid.FormatString("行号|货号|数量|单价|金额|备注|甲|乙|丙|丁");
    vs().Select(2, 8);
    desk.clear();
    onceOnEntry([this] { grid.Cols(3); });
    grid.Cols(6);
    EXPECT_EQ(grid.Cols(), 3);
    EXPECT_EQ(grid.FormatString(), "行号|货号|数量");
    EXPECT_EQ(reported(), (Lines{"Cols", "Cols"}));
    expectToFitTogether();
}

TEST_F(Reentry, OfMoreColumnsFromALostColumn) {
    vs().Select(2, 8);
    onceOnEntry([this] { grid.Cols(14); });
    grid.Cols(6);
    EXPECT_EQ(grid.Cols(), 14);
    expectToFitTogether();
}

TEST_F(Reentry, OfTheDefinitionsFromALostColumn) {
    auto ours = std::make_shared<cVsControl>();
    vs().Select(2, 8);
    onceOnEntry([&] { grid.SetVsControl(ours); });
    grid.Cols(6);
    EXPECT_EQ(grid.VsCtrl(5), ours);
    expectToFitTogether();
}

TEST_F(Reentry, OfClearFromACellThatIsWritten) {
    summed(2);
    setUp();
    grid.CellChanged.connect([this](std::int32_t row, std::int32_t) {
        if (row == 4) grid.Clear();
    });
    grid.SetCell(4, 2, "5");
    EXPECT_EQ(boxes(), Nothing);
    EXPECT_EQ(text(4, 2), "");
    EXPECT_EQ(grid.ReadSum(2), "0");
    expectToFitTogether();
}

TEST_F(Reentry, OfClearFromAMove) {
    grid.RowColChange.connect([this] {
        if (grid.Row() == 4) grid.Clear();
    });
    vs().Select(4, 3);
    EXPECT_EQ(grid.Rows(), 6);
    EXPECT_EQ(grid.Row(), 0);
    expectToFitTogether();
}

TEST_F(Reentry, OfTheSetUpFromACellThatIsWritten) {
    summed(2);
    grid.SumRow(true);
    grid.CellChanged.connect([this](std::int32_t, std::int32_t) {
        if (!grid.ReDraw()) grid.ReDraw(true);
    });
    grid.SetCell(1, 2, "5", "tag");
    EXPECT_EQ(grid.ReadSum(2), "5");
    expectToFitTogether();
}

TEST_F(Reentry, OfReDrawFromACellThatIsWritten) {
    summed(2);
    setUp();
    grid.SetCell(1, 2, "5");
    auto once = grid.CellChanged.connect([this](std::int32_t, std::int32_t) { grid.ReDraw(false); });
    grid.SetCell(2, 2, "7");
    EXPECT_EQ(grid.ReadSum(2), "5") << "the flag is looked at after the cell was written";
    once.disconnect();
    grid.ReDraw(true);
    EXPECT_EQ(grid.ReadSum(2), "12");
}

TEST_F(Reentry, OfTheReadsOfTheHostChangesNothing) {
    summed(2);
    setUp();
    Lines seen;
    grid.CellChanged.connect([&](std::int32_t row, std::int32_t col) {
        seen.push_back(grid.ReadCell(row, col, true) + '|' + grid.ReadCell(row, col) + '|' +
                       grid.ReadSum(col));
    });
    grid.SetCell(1, 2, "5", "t");
    grid.SetCell(2, 2, "6");
    EXPECT_EQ(seen, (Lines{"|t|0", "5|t|0", "6||5"}));
    EXPECT_EQ(grid.ReadSum(2), "11");
}

TEST_F(Reentry, OfNewListenersHearsTheNextEvent) {
    int heardByTheNew = 0;
    grid.CellChanged.connect([&](std::int32_t, std::int32_t) {
        grid.CellChanged.connect([&](std::int32_t, std::int32_t) { ++heardByTheNew; });
    });
    grid.SetCell(1, 1, "a");
    EXPECT_EQ(heardByTheNew, 0);
    grid.SetCell(1, 1, "b");
    EXPECT_EQ(heardByTheNew, 1);
}

TEST_F(Reentry, OfAMoveThatTheHostRefusesKeepsTheCell) {
    grid.BeforeRowColChange.connect(
        [](std::int32_t, std::int32_t, std::int32_t newRow, std::int32_t, bool& cancel) {
            if (newRow == 3) cancel = true;
        });
    grid.Row(3);
    EXPECT_EQ(grid.Row(), 1);
    EXPECT_EQ(heard(), asks(1, 1, 3, 1));
    grid.Row(4);
    EXPECT_EQ(heard(), moves(1, 1, 4, 1));
}
}  // namespace
}  // namespace kxVsGrid::testing

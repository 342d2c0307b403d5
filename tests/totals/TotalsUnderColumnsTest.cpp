// Totals stand under their columns, however the grid is scrolled and set up.
#include "kit/SettingsTest.h"
#include "kxVsGrid/MemoryBag.h"

namespace kxVsGrid::testing {
namespace {

class TotalsUnderColumns : public PlacedGrid {
  protected:
    TotalsUnderColumns() {
        grid.Cols(20);
        grid.Rows(40);
        summed(12);
        setUp();
        desk.scrollTo(1, 8);
    }
    void expectUnderTheirColumns(const char* what) {
        EXPECT_EQ(sum().LeftCol(), vs().LeftCol()) << what;
        for (std::int32_t col = 0; col < grid.Cols(); ++col)
            EXPECT_EQ(sum().CellRect(0, col).left, vs().CellRect(1, col).left) << what << ", column " << col;
    }
};

TEST_F(TotalsUnderColumns, AfterASetUp) {
    ASSERT_EQ(vs().LeftCol(), 8);
    grid.ReDraw(true);
    EXPECT_EQ(vs().LeftCol(), 8);
    expectUnderTheirColumns("ReDraw");
}

TEST_F(TotalsUnderColumns, AfterSettingsAreRead) {
    MemoryBag bag;
    grid.WriteProperties(bag);
    grid.ReadProperties(bag);
    ASSERT_GT(vs().LeftCol(), 1);
    expectUnderTheirColumns("read");
    grid.ReDraw(false);
    desk.scrollTo(1, 6);
    grid.ReadProperties(bag);
    expectUnderTheirColumns("read while ReDraw is off");
}

TEST_F(TotalsUnderColumns, AfterAReadThatFails) {
    grid.FixedCols(3);
    MemoryBag bag;
    bag.Write("Cols", 20);
    bag.Write("FixedCols", 1);
    bag.Write("BackColor", "no number");
    grid.ReadProperties(bag);
    EXPECT_EQ(desk.messages().size(), 1u);
    grid.InitProperties();
    EXPECT_NO_THROW(grid.Cols(2));
    EXPECT_EQ(sum().Cols(), 2);
    grid.Cols(20);
    grid.ReDraw(true);
    desk.scrollTo(1, 9);
    expectUnderTheirColumns("healed");
}

TEST_F(TotalsUnderColumns, AfterColumnsAreFixedOrChangeTheirWidth) {
    grid.FixedCols(3);
    expectUnderTheirColumns("FixedCols");
    desk.scrollTo(1, 19);
    grid.ColWidth(19, 3000);
    expectUnderTheirColumns("ColWidth");
    grid.ColHidden(10, true);
    expectUnderTheirColumns("ColHidden");
    desk.resize(5000, 4000);
    expectUnderTheirColumns("resized");
    grid.Cols(9);
    expectUnderTheirColumns("fewer columns");
}

TEST(TotalRow, HasOneRowFromTheBeginning) {
    headless::Desk desk;
    kxGrid grid(desk);
    EXPECT_EQ(grid.Grid_Sum().Rows(), 1);
    EXPECT_EQ(grid.Grid_Sum().FixedRows(), 0);
    EXPECT_EQ(grid.SumRowHeight(), 300);
    EXPECT_EQ(grid.ReadSum(1), "");
    EXPECT_EQ(desk.messages().size(), 0u);
}
}  // namespace
}  // namespace kxVsGrid::testing

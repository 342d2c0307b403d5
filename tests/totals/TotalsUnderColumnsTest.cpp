// Totals stand under their columns, however the grid is scrolled and set up.
#include "kit/Dice.h"
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

TEST_F(TotalsUnderColumns, HoweverColumnsAreFrozenSizedAndScrolled) {
    kit::Dice dice;
    grid.Rows(9);
    for (int step = 0; step < 400 && !HasFailure(); ++step) {
        SCOPED_TRACE("step " + std::to_string(step));
        const std::int32_t cols = std::max(grid.Cols(), 1);
        switch (dice.between(0, 9)) {
            case 0:
                grid.FrozenCols(dice.between(0, 7));
                break;
            case 1:
                grid.FixedCols(dice.between(0, std::min(3, grid.Cols())));
                break;
            case 2:
                desk.resize(dice.between(0, 12'000), dice.between(1000, 6000));
                break;
            case 3:
                vs().userColWidth(dice.between(0, cols - 1),
                                  50 * dice.between(1, 60));  // as the clerk drags it
                break;
            case 4:
                grid.Cols(std::max(grid.FixedCols(), dice.between(1, 24)));
                grid.ReDraw(true);
                break;
            case 5:
                column(dice.between(0, cols - 1)).bIsVisible(dice.oneIn(2));
                grid.ReDraw(true);
                break;
            case 6:
                dice.oneIn(2) ? vs().InsertRow(vs().Rows()) : grid.Rows(dice.between(2, 30));
                break;
            case 7:
                desk.scrollBy(dice.between(-2000, 2000), 0);
                break;
            default:
                desk.scrollTo(dice.between(0, 30), dice.between(0, 24));
        }
        EXPECT_EQ(sum().StillCols(), vs().StillCols());
        expectUnderTheirColumns("random");
    }
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

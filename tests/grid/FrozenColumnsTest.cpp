// Columns that do not scroll: the clerk works in them as in any other, and the total row goes along.
#include "kit/PlacedGrid.h"

namespace kxVsGrid::testing {
namespace {

/// Twenty columns of 1000 in a control of 9000, two of them frozen beside the row numbers.
class FrozenColumns : public PlacedGrid {
  protected:
    FrozenColumns() {
        grid.Cols(20);
        grid.Rows(40);
        summed(2);
        setUp();
        grid.FrozenCols(2);
        desk.focusGrid();
    }
    void expectTotalsUnderTheirColumns(const char* what) {
        EXPECT_EQ(sum().StillCols(), vs().StillCols()) << what;
        for (std::int32_t col = 0; col < grid.Cols(); ++col)
            EXPECT_EQ(sum().CellRect(0, col).left, vs().CellRect(1, col).left) << what << ", column " << col;
    }
};

TEST_F(FrozenColumns, AreTypedIntoWhileTheViewIsScrolledFarAway) {
    desk.scrollTo(1, 12);
    desk.click(3, 2);
    EXPECT_EQ(grid.Col(), 2);
    desk.type("12");
    ASSERT_TRUE(desk.editor().visible);
    EXPECT_EQ(desk.editor().rect, vs().CellRect(3, 2));
    EXPECT_EQ(desk.editor().rect.left, 2000);
    EXPECT_EQ(vs().LeftCol(), 12);
    desk.press(Key::Enter);
    EXPECT_EQ(text(3, 2), "12");
    EXPECT_EQ(grid.ReadSum(2), "12");
}

TEST_F(FrozenColumns, AreLeftForTheFirstScrolledOneWhichComesIntoView) {
    desk.scrollTo(1, 12);
    desk.click(3, 1);
    desk.press(Key::Tab);
    EXPECT_EQ(grid.Col(), 2);
    EXPECT_EQ(vs().LeftCol(), 12);
    desk.press(Key::Tab);
    EXPECT_EQ(grid.Col(), 3);
    EXPECT_EQ(vs().LeftCol(), 3);
}

TEST_F(FrozenColumns, KeepTheEditorWhereItIsWhenTheyBeginAndCeaseToBeThat) {
    desk.scrollTo(1, 3);
    desk.click(3, 5);
    desk.type("ab");
    grid.FrozenCols(6);
    ASSERT_TRUE(desk.editor().visible);
    EXPECT_EQ(desk.editor().text, "ab");
    EXPECT_EQ(desk.editor().rect, vs().CellRect(3, 5));
    grid.FrozenCols(0);
    ASSERT_TRUE(desk.editor().visible);
    EXPECT_EQ(desk.editor().rect, vs().CellRect(3, 5));
}

TEST_F(FrozenColumns, KeepTheEditorOverItsCellWhileTheControlIsResized) {
    desk.scrollTo(1, 12);
    desk.click(3, 2);
    desk.type("ab");
    desk.resize(3200, 6000);
    EXPECT_EQ(vs().StillCols(), 1);
    ASSERT_TRUE(desk.editor().visible);
    EXPECT_EQ(desk.editor().rect, vs().CellRect(3, 2));
    desk.resize(9000, 6000);
    EXPECT_EQ(desk.editor().rect, (Rect{2000, 900, 1000, 300}));
}

TEST_F(FrozenColumns, HaveTheirTotalsUnderThem) {
    expectTotalsUnderTheirColumns("at the start");
    desk.scrollTo(1, 12);
    expectTotalsUnderTheirColumns("scrolled");
    grid.FrozenCols(5);
    expectTotalsUnderTheirColumns("more of them");
    grid.FrozenCols(0);
    expectTotalsUnderTheirColumns("none");
    grid.FrozenCols(3);
    grid.FixedCols(2);
    expectTotalsUnderTheirColumns("other fixed ones");
    desk.resize(4200, 6000);
    EXPECT_EQ(vs().StillCols(), 2);
    expectTotalsUnderTheirColumns("a narrow view");
    setUp();
    expectTotalsUnderTheirColumns("set up");
    grid.Cols(4);
    expectTotalsUnderTheirColumns("fewer columns");
    desk.resize(9000, 6000);
    EXPECT_EQ(vs().StillCols(), 4);
    expectTotalsUnderTheirColumns("all of them");
}

TEST_F(FrozenColumns, HaveTheirTotalsUnderThemWhenRowsBringAScrollBar) {
    grid.Rows(4);
    desk.resize(6000, 6000);
    grid.FrozenCols(4);
    ASSERT_EQ(vs().StillCols(), 5);
    desk.scrollTo(1, 12);
    for (int i = 0; i < 30; ++i) vs().InsertRow(2);
    EXPECT_EQ(vs().StillCols(), 4);
    expectTotalsUnderTheirColumns("inserted");
    for (int i = 0; i < 30; ++i) vs().RemoveRow(2);
    EXPECT_EQ(vs().StillCols(), 5);
    expectTotalsUnderTheirColumns("removed");
}

TEST_F(FrozenColumns, HaveTheirTotalsUnderThemWhileFingersScroll) {
    desk.scrollBy(1250, 100);
    EXPECT_EQ(vs().LeftOffset(), 250);
    EXPECT_EQ(vs().TopOffset(), 100);
    expectTotalsUnderTheirColumns("by less than a column");
    desk.scrollBy(10, 0);
    EXPECT_EQ(sum().LeftOffset(), 260);
    expectTotalsUnderTheirColumns("by ten");
    desk.scrollBy(100'000, 0);
    expectTotalsUnderTheirColumns("to the end");
    EXPECT_EQ(sum().TopOffset(), 0);
}

TEST_F(FrozenColumns, LeaveTheCaptionInTheFirstOfThem) {
    EXPECT_EQ(sum().Text(0, 1), "合计");
    EXPECT_EQ(sum().CellBackColor(0, 1), color(LightGrey));
}

TEST_F(FrozenColumns, LiftTheTotalRowWhenTheFirstScrolledColumnIsOutOfView) {
    grid.Cols(9);
    grid.Rows(5);
    for (std::int32_t col = 0; col < 9; ++col) grid.ColWidth(col, 900);
    desk.resize(9000, 6000);
    EXPECT_EQ(grid.totalRowRect().top, LayoutSizes::LowTop);
    grid.FrozenCols(8);
    desk.resize(9000, 6001);
    EXPECT_EQ(grid.totalRowRect().top, LayoutSizes::LowTop + 1);  // all stand still
    grid.FrozenCols(2);
    vs().ColHidden(3, true);
    desk.resize(9000, 6000);
    EXPECT_EQ(grid.totalRowRect().top, LayoutSizes::HighTop);
    vs().ColHidden(3, false);
    vs().ColHidden(1, true);  // a frozen one is no sign of anything
    desk.resize(9000, 6001);
    EXPECT_EQ(grid.totalRowRect().top, LayoutSizes::LowTop + 1);
}

TEST_F(FrozenColumns, AreReportedToNobodyAndStoredNowhere) {
    reported();
    grid.FrozenCols(4);
    EXPECT_EQ(reported(), Nothing);
    EXPECT_THROW(grid.FrozenCols(-1), GridError);
    EXPECT_EQ(grid.FrozenCols(), 4);
}
}  // namespace
}  // namespace kxVsGrid::testing

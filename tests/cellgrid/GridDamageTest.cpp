// What of the picture is no longer right.
#include <gtest/gtest.h>

#include "kxVsGrid/CellGrid.h"

namespace kxVsGrid {
namespace {

class Picture : public ::testing::Test {
  protected:
    Picture() {
        grid.Rows(101);
        grid.Resize(5300, 3255);
        grid.onDamage([this] { ++asked; });
        grid.takeDamage();
        asked = 0;
    }
    void expectAll() {
        const CellGrid::Damage damage = grid.takeDamage();
        EXPECT_TRUE(damage.all);
        EXPECT_TRUE(damage.rects.empty());
    }
    void expectRects(const std::vector<Rect>& rects) {
        const CellGrid::Damage damage = grid.takeDamage();
        EXPECT_FALSE(damage.all);
        EXPECT_EQ(damage.rects, rects);
    }

    CellGrid grid;
    int asked = 0;
};

TEST_F(Picture, IsDamagedAltogetherAtFirst) {
    CellGrid fresh;
    EXPECT_TRUE(fresh.takeDamage().all);
}

TEST_F(Picture, IsCleanOnceItsDamageIsTaken) {
    expectRects({});
}

TEST_F(Picture, IsDamagedWhereACellIsWritten) {
    grid.Text(2, 3, "x");
    expectRects({{3000, 600, 1000, 300}});
    grid.CellBackColor(2, 3, 5);
    expectRects({{3000, 600, 1000, 300}});
    grid.ComputedText(2, 3, [] { return std::string("y"); });
    expectRects({{3000, 600, 1000, 300}});
}

TEST_F(Picture, StaysRightWhenNothingShownChanges) {
    grid.Data(2, 3, "hidden");
    grid.Text(2, 3, "");
    grid.Text(50, 3, "below");
    grid.Text(2, 8, "to the right");
    grid.TopRow(50);
    grid.takeDamage();
    grid.Text(2, 3, "above");
    grid.CellBackColor(20, 3, 5);
    expectRects({});
    grid.Text(0, 2, "caption");
    expectRects({{2000, 0, 1000, 300}});
}

TEST_F(Picture, IsDamagedAtTheOldAndTheNewCurrentCellAndAtTheirHeaders) {
    grid.Select(2, 2);
    expectRects({{0, 300, 1000, 300},
                 {1000, 0, 1000, 300},
                 {1000, 300, 1000, 300},
                 {0, 600, 1000, 300},
                 {2000, 0, 1000, 300},
                 {2000, 600, 1000, 300}});
    grid.ShowCursor(false);
    grid.takeDamage();
    grid.Select(3, 3);
    expectRects({});
}

TEST_F(Picture, IsDamagedAlongTheRowsWhereWholeRowsAreSelected) {
    grid.SelectsRows(true);
    grid.takeDamage();
    grid.Select(2, 2);
    expectRects({{0, 300, 5000, 300}, {0, 600, 5000, 300}});
}

TEST_F(Picture, IsDamagedAltogetherByScrollsSizesAndCounts) {
    const std::vector<std::function<void()>> changes{
        [&] { grid.TopRow(5); },
        [&] { grid.LeftCol(2); },
        [&] { grid.ColWidth(1, 500); },
        [&] { grid.ColHidden(1, true); },
        [&] { grid.RowHeight(1, 500); },
        [&] { grid.RowHidden(1, true); },
        [&] { grid.Rows(90); },
        [&] { grid.Rows(91); },
        [&] { grid.Cols(9); },
        [&] { grid.InsertRow(3); },
        [&] { grid.RemoveRow(3); },
        [&] { grid.FixedRows(2); },
        [&] { grid.FixedCols(2); },
        [&] { grid.Resize(5000, 3000); },
        [&] { grid.BottomStrip(330); },
        [&] { grid.ScrollBars(false); },
        [&] { grid.PaintColumn(1, 1, 5, 1, 1); },
        [&] { grid.ColFormat(1, "0.0"); },
        [&] { grid.ColAlignment(1, flexAlignRightTop); },
        [&] { grid.ColDataType(1, flexDTBoolean); },
        [&] { grid.BackColor(7); },
        [&] { grid.ForeColorFixed(7); },
        [&] { grid.Appearance(0); },
        [&] { grid.NumberRows(); },
        [&] { grid.ClearText(1, 2); },
        [&] { grid.damageAll(); },
    };
    for (std::size_t i = 0; i < changes.size(); ++i) {
        SCOPED_TRACE("change " + std::to_string(i));
        changes[i]();
        expectAll();
    }
}

TEST_F(Picture, AsksOnceForAPaintUntilItsDamageIsTaken) {
    grid.Text(2, 3, "x");
    grid.Text(3, 3, "x");
    grid.TopRow(5);
    EXPECT_EQ(asked, 1);
    grid.takeDamage();
    EXPECT_EQ(asked, 1);
    grid.Text(6, 3, "y");
    EXPECT_EQ(asked, 2);
}

TEST_F(Picture, HoldsItsDamageBackWhilePaintingIsOff) {
    grid.Redraw(0);
    grid.Text(2, 3, "x");
    grid.TopRow(5);
    expectRects({});
    EXPECT_EQ(asked, 0);
    grid.Redraw(2);
    EXPECT_EQ(grid.Redraw(), 2);
    EXPECT_EQ(asked, 1);
    expectAll();
}

TEST_F(Picture, AsksAgainForDamageThatNobodyCouldTake) {
    grid.Text(2, 3, "x");
    grid.Redraw(0);
    expectRects({});
    grid.Redraw(1);
    EXPECT_EQ(asked, 2);
    expectAll();
}

TEST_F(Picture, IsNotDamagedByTurningPaintingOffAndOn) {
    grid.Redraw(0);
    grid.Redraw(1);
    EXPECT_EQ(asked, 0);
    expectRects({});
}

TEST_F(Picture, IsDamagedAltogetherByVeryManyCells) {
    grid.Resize(11'000, 30'600);
    grid.takeDamage();
    for (std::int32_t row = 1; row < 101; ++row) grid.Text(row, 1, "x");
    expectAll();
}

TEST_F(Picture, TellsACellOnceThatIsWrittenAgainAndAgain) {
    for (int i = 0; i < 1000; ++i) grid.Text(2, 3, std::to_string(i));
    expectRects({{3000, 600, 1000, 300}});
}
}  // namespace
}  // namespace kxVsGrid

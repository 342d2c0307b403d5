// Scrolling by twips, as fingers on a touchpad do.
#include <gtest/gtest.h>

#include <limits>
#include <string>
#include <vector>

#include "cellgrid/FrameReader.h"
#include "kit/PrintTo.h"

namespace kxVsGrid {
namespace {

/// 101 rows of 300 and 10 columns of 1000 in a view of 5300 x 3255: ten rows and five columns, bars apart.
class ScrolledByTwips : public ::testing::Test {
  protected:
    ScrolledByTwips() {
        grid.Rows(101);
        grid.Resize(5300, 3255);
        grid.SelectsRanges(true);
        grid.AfterScroll.connect([this](int top, int left, int newTop, int newLeft) {
            told.push_back(pair("", top, left) + pair(" -> ", newTop, newLeft));
        });
        grid.OffsetChanged.connect([this](int top, int left, int newTop, int newLeft) {
            told.push_back(pair("offset ", top, left) + pair(" -> ", newTop, newLeft));
        });
    }
    static std::string pair(const std::string& before, int a, int b) {
        return before + std::to_string(a) + "," + std::to_string(b);
    }
    void expectPlace(std::int32_t top, std::int32_t topOffset, std::int32_t left,
                     std::int32_t leftOffset) const {
        EXPECT_EQ(pair("", grid.TopRow(), grid.TopOffset()), pair("", top, topOffset));
        EXPECT_EQ(pair("", grid.LeftCol(), grid.LeftOffset()), pair("", left, leftOffset));
    }
    void key(Key code, std::int16_t shift = 0) { grid.keyDown(static_cast<std::int16_t>(code), shift); }
    using Lines = std::vector<std::string>;

    CellGrid grid;
    Lines told;
};

TEST_F(ScrolledByTwips, RowsAndColumnsAreCut) {
    grid.ScrollBy(400, 100);
    expectPlace(1, 100, 1, 400);
    EXPECT_EQ(grid.CellRect(1, 1), (Rect{600, 200, 1000, 300}));
    EXPECT_EQ(grid.CellRect(0, 0), (Rect{0, 0, 1000, 300}));
    EXPECT_TRUE(grid.RowIsVisible(1));
    EXPECT_TRUE(grid.RowIsVisible(10));
    grid.ScrollBy(700, 500);
    expectPlace(3, 0, 2, 100);
    grid.ScrollBy(-200, -1);
    expectPlace(2, 299, 1, 900);
    EXPECT_EQ(told, (Lines{"offset 0,0 -> 100,400", "1,1 -> 3,2", "3,2 -> 2,1"}));
    grid.ScrollBy(0, 0);
    EXPECT_EQ(told.size(), 3u);
}

TEST_F(ScrolledByTwips, TheViewEndsAtBothEnds) {
    grid.BottomStrip(330);
    grid.ScrollBy(1'000'000, 1'000'000);
    EXPECT_EQ(grid.CellRect(100, 9).bottom(), grid.ClientHeight() - 330);
    EXPECT_EQ(grid.CellRect(100, 9).right(), grid.ClientWidth());
    expectPlace(93, 30, 6, 0);
    told.clear();
    grid.ScrollBy(1, 1);
    EXPECT_EQ(told, Lines{});
    grid.ScrollBy(-1'000'000, -1'000'000);
    expectPlace(1, 0, 1, 0);
    constexpr std::int32_t Most = std::numeric_limits<std::int32_t>::max();
    constexpr std::int32_t Least = std::numeric_limits<std::int32_t>::min();
    grid.ScrollBy(Most, Most);
    expectPlace(93, 30, 6, 0);
    grid.ScrollBy(Least, Least);
    expectPlace(1, 0, 1, 0);
}

TEST_F(ScrolledByTwips, AViewThatAPutHasBroughtFurtherStaysThere) {
    grid.BottomStrip(330);
    grid.TopRow(1000);
    expectPlace(94, 0, 1, 0);
    grid.ScrollBy(0, 100);
    expectPlace(94, 0, 1, 0);
    grid.ScrollBy(0, -100);
    expectPlace(93, 200, 1, 0);
}

TEST_F(ScrolledByTwips, ATallLastRowIsSeenToItsEnd) {
    grid.RowHeight(100, 9000);
    grid.ScrollBy(0, 1'000'000);
    EXPECT_EQ(grid.TopRow(), 100);
    EXPECT_EQ(grid.CellRect(100, 1).bottom(), grid.ClientHeight());
    grid.RowHeight(100, 300);
    EXPECT_EQ(grid.TopOffset(), 0);
    EXPECT_EQ(grid.TopRow(), 92);
}

TEST_F(ScrolledByTwips, HiddenRowsAreNothingHoweverManyThereAre) {
    grid.Rows(100'000'000);
    grid.FilterRows(10, std::vector<bool>(90'000, true));
    grid.ScrollBy(0, 9 * 300 + 10);
    expectPlace(90'010, 10, 1, 0);
    grid.ScrollBy(0, -20);
    expectPlace(9, 290, 1, 0);
    grid.RowHidden(9, true);
    EXPECT_EQ(grid.TopOffset(), 0);
    grid.ScrollBy(0, 2'000'000'000);
    EXPECT_EQ(grid.TopRow(), 90'010 + 6'666'666);
}

TEST_F(ScrolledByTwips, EveryPutShowsWholeRowsAndColumns) {
    grid.ScrollBy(400, 100);
    grid.TopRow(1);
    expectPlace(1, 0, 1, 400);
    grid.LeftCol(1);
    expectPlace(1, 0, 1, 0);
    grid.ScrollBy(400, 700);
    grid.ScrollTo(3, 1);
    expectPlace(3, 0, 1, 0);
    grid.ScrollTo(5, 2, 120, 80);
    expectPlace(5, 120, 2, 80);
    grid.ScrollTo(5, 2, 300, 1000);
    expectPlace(5, 0, 2, 0);
    grid.ScrollTo(5, 2, -1, -1);
    expectPlace(5, 0, 2, 0);
}

TEST_F(ScrolledByTwips, TheViewGoesBackToWhereItWas) {
    grid.ScrollBy(400, 100);
    grid.TopRow(50);
    grid.ScrollBack();
    expectPlace(1, 100, 1, 400);
    grid.ScrollBack();
    expectPlace(50, 0, 1, 400);
}

TEST_F(ScrolledByTwips, ARowThatIsShownWhollyMovesNothing) {
    grid.ScrollBy(400, 100);
    told.clear();
    grid.BringRowIntoView(2, grid.ClientHeight());
    grid.BringRowIntoView(9, grid.ClientHeight());
    grid.BringColIntoView(4, grid.ClientWidth());
    EXPECT_EQ(told, Lines{});
    EXPECT_EQ(grid.TopRowToShow(9, grid.ClientHeight()), 1);
    grid.BringRowIntoView(1, grid.ClientHeight());
    expectPlace(1, 0, 1, 400);
    grid.BringColIntoView(1, grid.ClientWidth());
    expectPlace(1, 0, 1, 0);
    grid.ScrollBy(400, 100);
    grid.BringRowIntoView(10, grid.ClientHeight());
    expectPlace(2, 0, 1, 400);
    grid.BringColIntoView(5, grid.ClientWidth());
    expectPlace(2, 0, 2, 0);
}

TEST_F(ScrolledByTwips, KeysAndPressesShowTheirCellWholly) {
    grid.Select(2, 2);
    grid.ScrollBy(400, 100);
    key(Key::Up);
    expectPlace(1, 0, 1, 400);
    key(Key::Left);
    expectPlace(1, 0, 1, 0);
    grid.ScrollBy(400, 100);
    grid.mouseDown(LeftButton, 0, 1300, 350);
    EXPECT_EQ(pair("", grid.Row(), grid.Col()), "1,1");
    expectPlace(1, 0, 1, 0);
    grid.ScrollBy(400, 100);
    grid.mouseDown(LeftButton, 0, 2300, 850);
    EXPECT_EQ(pair("", grid.Row(), grid.Col()), "3,2");
    expectPlace(1, 100, 1, 400);
}

TEST_F(ScrolledByTwips, TheWheelShowsWholeRows) {
    grid.ScrollBy(0, 700);
    expectPlace(3, 100, 1, 0);
    grid.wheel(2);
    expectPlace(5, 0, 1, 0);
    grid.ScrollBy(0, 100);
    grid.wheel(-1);
    expectPlace(5, 0, 1, 0);
    grid.ScrollBy(0, 100);
    grid.wheel(-3);
    expectPlace(3, 0, 1, 0);
}

TEST_F(ScrolledByTwips, APickListGoesToTheBeginningOfItsColumnFirst) {
    grid.SelectsRows(true);
    grid.ScrollBy(1400, 100);
    key(Key::Left);
    expectPlace(1, 100, 2, 0);
    grid.ScrollBy(400, 0);
    key(Key::Right);
    expectPlace(1, 100, 3, 0);
}

TEST_F(ScrolledByTwips, PointsUnderHeadersAreTheirs) {
    grid.FrozenCols(1);
    grid.ScrollBy(400, 100);
    EXPECT_EQ(grid.HitTest(500, 250).row, 0);
    EXPECT_EQ(grid.HitTest(1900, 350).col, 1);
    EXPECT_EQ(grid.HitTest(2100, 350).col, 2);
    EXPECT_EQ(grid.HitTest(2100, 350).row, 1);
    EXPECT_EQ(grid.HitTest(2100, 550).row, 2);
    EXPECT_EQ(grid.HitTest(2030, 100).part, GridHit::Part::ColumnEdge);
    EXPECT_EQ(grid.HitTest(2030, 100).col, 1);
    EXPECT_EQ(grid.HitTest(2580, 100).col, 2);
}

TEST_F(ScrolledByTwips, ADragBackShowsTheCutRowFirst) {
    grid.ScrollBy(0, 700);
    grid.mouseDown(LeftButton, 0, 1500, 1400);
    grid.mouseMove(LeftButton, 0, 1500, 100);
    EXPECT_EQ(grid.RowSel(), 3);
    expectPlace(3, 0, 1, 0);
    grid.mouseMove(LeftButton, 0, 1500, 100);
    EXPECT_EQ(grid.RowSel(), 2);
    expectPlace(2, 0, 1, 0);
}

TEST_F(ScrolledByTwips, TheCutStaysThroughChangesThatLeaveRoomForIt) {
    grid.ScrollBy(400, 700);
    grid.ColWidth(8, 1200);
    grid.Resize(5400, 3300);
    grid.InsertRow(50);
    expectPlace(3, 100, 1, 400);
    grid.RowHeight(3, 80);
    EXPECT_EQ(grid.TopOffset(), 0);
    grid.FixedCols(2);
    EXPECT_EQ(pair("", grid.LeftCol(), grid.LeftOffset()), "2,0");
}

TEST_F(ScrolledByTwips, FrozenColumnsLieOverWhatIsCut) {
    grid.FrozenCols(1);
    grid.BackColor(0x111111);
    for (std::int32_t col = 0; col < 10; ++col)
        grid.CellBackColor(1, col, 0xC0 + static_cast<std::uint32_t>(col));
    grid.CellBackColor(0, 2, 0xA2);
    grid.Select(1, 2);
    grid.ScrollBy(400, 100);
    const FrameReader frame(grid);
    EXPECT_EQ(frame.fillAt(1900, 350), 0xC1u);
    EXPECT_EQ(frame.fillAt(2100, 350), 0xC2u);
    EXPECT_EQ(frame.fillAt(1900, 100), grid.BackColorFixed());
    EXPECT_EQ(frame.fillAt(2100, 100), 0xA2u);
    EXPECT_EQ(frame.fillAt(500, 350), 0xC0u);
    // the outline of the current cell, too
    std::size_t focus = 0;
    std::size_t header = 0;
    for (std::size_t i = 0; i < frame.items().size(); ++i) {
        if (frame.items()[i].kind == FrameItem::Kind::Focus) focus = i;
        if (frame.items()[i].kind == FrameItem::Kind::Fill && frame.items()[i].rect.contains(1500, 100))
            header = i;
    }
    EXPECT_LT(focus, header);
    grid.TopRow(1);
    grid.LeftCol(2);
    EXPECT_EQ(FrameReader(grid).items().back().kind, FrameItem::Kind::Focus);
}

TEST_F(ScrolledByTwips, ACellIsDamagedWhereItIs) {
    grid.ScrollBy(400, 100);
    grid.takeDamage();
    grid.Text(3, 2, "x");
    EXPECT_EQ(grid.takeDamage().rects, (std::vector<Rect>{{1600, 800, 1000, 300}}));
}
}  // namespace
}  // namespace kxVsGrid

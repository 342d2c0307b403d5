// The keys that move about the grid.
#include <gtest/gtest.h>

#include "MoveLog.h"
#include "kxVsGrid/CellGrid.h"

namespace kxVsGrid {
namespace {

/// 101 rows and 10 columns; nine data rows and four data columns fit into the view.
class Keys : public ::testing::Test {
  protected:
    Keys() {
        grid.Rows(101);
        grid.Resize(5300, 3255);
    }
    bool press(Key key, int shift = 0) {
        return grid.keyDown(static_cast<std::int16_t>(key), static_cast<std::int16_t>(shift));
    }
    std::string at() const { return test::MoveLog::cell(grid.Row(), grid.Col()); }

    CellGrid grid;
};

TEST_F(Keys, MoveByOneRowOrColumn) {
    grid.Select(5, 5);
    EXPECT_TRUE(press(Key::Right));
    EXPECT_EQ(at(), "5,6");
    EXPECT_TRUE(press(Key::Down));
    EXPECT_EQ(at(), "6,6");
    EXPECT_TRUE(press(Key::Left));
    EXPECT_EQ(at(), "6,5");
    EXPECT_TRUE(press(Key::Up));
    EXPECT_EQ(at(), "5,5");
}

TEST_F(Keys, RaiseTheWholeSeriesOfEvents) {
    test::MoveLog log(grid);
    press(Key::Down);
    EXPECT_EQ(log.take(), test::MoveLog::whole("1,1", "2,1"));
}

TEST_F(Keys, StopAtTheEdgesAndDoNotEnterTheFixedArea) {
    EXPECT_FALSE(press(Key::Left));
    EXPECT_FALSE(press(Key::Up));
    EXPECT_EQ(at(), "1,1");
    grid.Select(100, 9);
    grid.TopRow(100);
    grid.LeftCol(9);
    EXPECT_FALSE(press(Key::Right));
    EXPECT_FALSE(press(Key::Down));
    EXPECT_FALSE(press(Key::PageDown));
    EXPECT_EQ(at(), "100,9");
}

TEST_F(Keys, LeadOutOfTheFixedArea) {
    grid.Select(0, 0);
    EXPECT_FALSE(press(Key::Left));
    EXPECT_TRUE(press(Key::Right));
    EXPECT_EQ(at(), "0,1");
    EXPECT_TRUE(press(Key::Down));
    EXPECT_EQ(at(), "1,1");
}

TEST_F(Keys, StepOverHiddenRowsAndColumns) {
    grid.ColHidden(2, true);
    grid.ColWidth(3, 0);
    grid.RowHidden(2, true);
    press(Key::Right);
    press(Key::Down);
    EXPECT_EQ(at(), "3,4");
    press(Key::Left);
    press(Key::Up);
    EXPECT_EQ(at(), "1,1");
    grid.ColHidden(1, true);
    grid.ColHidden(9, true);
    press(Key::End);
    EXPECT_EQ(at(), "1,8");
    press(Key::Home);
    EXPECT_EQ(at(), "1,4");
}

TEST_F(Keys, GoToTheEndsOfTheRow) {
    grid.Select(5, 5);
    EXPECT_TRUE(press(Key::End));
    EXPECT_EQ(at(), "5,9");
    EXPECT_TRUE(press(Key::Home));
    EXPECT_EQ(at(), "5,1");
}

TEST_F(Keys, GoToTheCornersWithCtrl) {
    EXPECT_TRUE(press(Key::End, CtrlKey));
    EXPECT_EQ(at(), "100,9");
    EXPECT_TRUE(press(Key::Home, CtrlKey));
    EXPECT_EQ(at(), "1,1");
}

TEST_F(Keys, PageByTheRowsThatFit) {
    press(Key::PageDown);
    EXPECT_EQ(at(), "10,1");
    press(Key::PageDown);
    EXPECT_EQ(at(), "19,1");
    press(Key::PageUp);
    EXPECT_EQ(at(), "10,1");
    press(Key::PageUp);
    EXPECT_EQ(at(), "1,1");
    grid.BottomStrip(600);
    press(Key::PageDown);
    EXPECT_EQ(at(), "8,1");
}

TEST_F(Keys, PageToTheLastAndFirstRowAndByOneRowAtLeast) {
    grid.Select(98, 1);
    press(Key::PageDown);
    EXPECT_EQ(at(), "100,1");
    grid.Select(3, 1);
    press(Key::PageUp);
    EXPECT_EQ(at(), "1,1");
    grid.RowHeight(2, 9000);
    press(Key::PageDown);
    EXPECT_EQ(at(), "2,1");
    press(Key::PageDown);
    EXPECT_EQ(at(), "3,1");
    press(Key::PageUp);
    EXPECT_EQ(at(), "2,1");
}

TEST_F(Keys, BringTheCellIntoView) {
    press(Key::End, CtrlKey);
    EXPECT_EQ(grid.TopRow(), 92);
    EXPECT_EQ(grid.LeftCol(), 6);
    press(Key::Home, CtrlKey);
    EXPECT_EQ(grid.TopRow(), 1);
    EXPECT_EQ(grid.LeftCol(), 1);
    grid.BottomStrip(330);
    grid.Select(6, 1);
    press(Key::Down);
    EXPECT_EQ(grid.TopRow(), 1);
    press(Key::Down);
    EXPECT_EQ(grid.TopRow(), 2);
}

TEST_F(Keys, LeaveTheViewWhenTheMoveIsCancelled) {
    grid.BeforeRowColChange.connect([](int, int, int, int, bool& cancel) { cancel = true; });
    press(Key::End, CtrlKey);
    EXPECT_EQ(at(), "1,1");
    EXPECT_EQ(grid.TopRow(), 1);
}

TEST_F(Keys, AreRaisedFirstAndAreUsedUpWhenAListenerZeroesThem) {
    std::vector<int> codes;
    grid.KeyDown.connect([&](std::int16_t& code, std::int16_t shift) {
        codes.push_back(code);
        codes.push_back(shift);
        if (code == 40) code = 0;
    });
    EXPECT_TRUE(press(Key::Down, ShiftKey));
    EXPECT_EQ(at(), "1,1");
    EXPECT_TRUE(press(Key::Right));
    EXPECT_EQ(at(), "1,2");
    EXPECT_EQ(codes, (std::vector<int>{40, 1, 39, 0}));
}

TEST_F(Keys, ThatMeanNothingHereDoNothing) {
    EXPECT_FALSE(press(Key::Enter));
    EXPECT_FALSE(press(Key::Insert));
    EXPECT_FALSE(press(Key::Down, AltKey));
    EXPECT_EQ(at(), "1,1");
}

TEST_F(Keys, HaveNowhereToGoWithoutColumnsOrDataRows) {
    grid.Cols(0);
    EXPECT_FALSE(press(Key::Down));
    grid.Cols(2);
    grid.Rows(1);
    EXPECT_FALSE(press(Key::Down));
    EXPECT_FALSE(press(Key::PageDown));
    EXPECT_EQ(at(), "0,0");
}

TEST_F(Keys, OnlyScrollSidewaysWhereWholeRowsAreSelected) {
    grid.SelectsRows(true);
    test::MoveLog log(grid);
    EXPECT_TRUE(press(Key::Right));
    EXPECT_EQ(grid.LeftCol(), 2);
    EXPECT_TRUE(press(Key::Left));
    EXPECT_EQ(grid.LeftCol(), 1);
    EXPECT_FALSE(press(Key::Left));
    EXPECT_EQ(log.take(), std::vector<std::string>{});
    EXPECT_TRUE(press(Key::Down));
    EXPECT_EQ(at(), "2,1");
}

TEST_F(Keys, FromRowToRowDoNotScrollSidewaysWhereWholeRowsAreSelected) {
    grid.SelectsRows(true);
    grid.Select(1, 3);
    grid.LeftCol(1);
    grid.Resize(2500, 1500);
    EXPECT_TRUE(press(Key::Down));
    EXPECT_TRUE(press(Key::PageDown));
    EXPECT_EQ(grid.LeftCol(), 1);
    EXPECT_TRUE(press(Key::End));
    EXPECT_GT(grid.LeftCol(), 1);
}

TEST_F(Keys, ThatAreCharactersAreRaisedAsSuch) {
    std::vector<int> characters;
    grid.KeyPress.connect([&](std::int16_t& ascii) { characters.push_back(ascii); });
    grid.keyPress(13);
    grid.keyPress(65);
    EXPECT_EQ(characters, (std::vector<int>{13, 65}));
}
}  // namespace
}  // namespace kxVsGrid

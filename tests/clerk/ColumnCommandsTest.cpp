// Whole columns: hidden and shown, fitted, frozen.
#include "clerk/ColumnTest.h"

namespace kxVsGrid::testing {
namespace {

using HiddenColumns = ColumnTest;
using FittedColumns = ColumnTest;
using FreezeCommand = ColumnTest;

// --- Hiding

TEST_F(HiddenColumns, AreTheCurrentOne) {
    at(2, Name);
    EXPECT_TRUE(desk.run(Command::HideColumn));
    EXPECT_EQ(hidden(), (Cols{Name}));
    EXPECT_EQ(changes, 1);
    expectTotalsFollow();
}

TEST_F(HiddenColumns, AreLeftByTheCurrentCellInOneMove) {
    at(2, Name);
    HostLog log(grid);
    desk.run(Command::HideColumn);
    EXPECT_TRUE(isAt(2, Quantity));
    int moves = 0;
    for (const std::string& entry : log.lines()) moves += entry.starts_with("BeforeRowColChange") ? 1 : 0;
    EXPECT_EQ(moves, 1);
}

TEST_F(HiddenColumns, AtTheRightEndAreLeftToTheLeft) {
    at(2, Remark);
    desk.run(Command::HideColumn);
    EXPECT_TRUE(isAt(2, Quantity));
}

TEST_F(HiddenColumns, StayWhereTheHostKeepsTheCurrentCell) {
    at(2, Name);
    grid.BeforeRowColChange.connect([](auto, auto, auto, auto, bool& cancel) { cancel = true; });
    EXPECT_FALSE(desk.run(Command::HideColumn));
    EXPECT_EQ(hidden(), Cols{});
    EXPECT_EQ(changes, 0);
}

TEST_F(HiddenColumns, AreThoseThatAreSelectedWhole) {
    at(1, Code);
    grid.Grid().SelectCols(Name, Quantity);
    desk.run(Command::HideColumn);
    EXPECT_EQ(hidden(), (Cols{Name, Quantity}));
    EXPECT_TRUE(isAt(1, Code));
    EXPECT_EQ(changes, 1);
}

TEST_F(HiddenColumns, AreNeverTheLastOneThatIsShown) {
    grid.Grid().SelectCols(Code, Remark);
    EXPECT_FALSE(grid.CanRun(Command::HideColumn));
    EXPECT_FALSE(desk.run(Command::HideColumn));
    grid.Grid().SelectCols(Code, Quantity);
    EXPECT_TRUE(desk.run(Command::HideColumn));
    EXPECT_TRUE(isAt(1, Remark));
    EXPECT_FALSE(grid.CanRun(Command::HideColumn));
    EXPECT_EQ(hidden(), (Cols{Code, Name, Quantity}));
}

TEST_F(HiddenColumns, WaitForARefusedText) {
    refuseCodes();
    at(1, Code);
    desk.type("x");
    EXPECT_FALSE(desk.run(Command::HideColumn));
    EXPECT_TRUE(desk.editor().refused);
    EXPECT_EQ(desk.editor().text, "x");
    EXPECT_EQ(hidden(), Cols{});
}

TEST_F(HiddenColumns, AreCommittedFirst) {
    at(1, Name);
    desk.type("x");
    EXPECT_TRUE(desk.run(Command::HideColumn));
    EXPECT_EQ(text(1, Name), "x");
    EXPECT_FALSE(desk.editor().visible);
}

TEST_F(HiddenColumns, AreNoStepAndNoChangeOfTheDocument) {
    grid.Editable(false);
    at(1, Name);
    EXPECT_TRUE(desk.run(Command::HideColumn));
    grid.Editable(true);
    EXPECT_FALSE(grid.CanRun(Command::Undo));
    EXPECT_FALSE(grid.bIsDirty());
}

TEST_F(HiddenColumns, AreShownAgainAllAtOnce) {
    EXPECT_FALSE(grid.CanRun(Command::ShowColumns));
    grid.Grid().SelectCols(Name, Quantity);
    desk.run(Command::HideColumn);
    EXPECT_TRUE(grid.CanRun(Command::ShowColumns));
    EXPECT_TRUE(desk.run(Command::ShowColumns));
    EXPECT_EQ(hidden(), Cols{});
    EXPECT_EQ(changes, 2);
    EXPECT_FALSE(grid.CanRun(Command::ShowColumns));
    expectTotalsFollow();
}

TEST_F(HiddenColumns, OfTheHostAreNotTheClerks) {
    grid.ColHidden(Remark, true);
    EXPECT_FALSE(grid.CanRun(Command::ShowColumns));
    at(1, Name);
    desk.run(Command::HideColumn);
    desk.run(Command::ShowColumns);
    EXPECT_EQ(hidden(), (Cols{Remark}));
    desk.run(Command::HideColumn);
    grid.ColHidden(Quantity, true);
    EXPECT_EQ(hidden(), (Cols{Quantity, Remark}));
    EXPECT_FALSE(grid.CanRun(Command::ShowColumns)) << "he has hidden it for good";
}

TEST_F(HiddenColumns, StaySoThroughASetUp) {
    at(1, Name);
    desk.run(Command::HideColumn);
    grid.ReDraw(true);
    EXPECT_EQ(hidden(), (Cols{Name}));
    expectTotalsFollow();
    EXPECT_TRUE(desk.run(Command::ShowColumns));
    EXPECT_EQ(hidden(), Cols{});
}

TEST_F(HiddenColumns, ThatTheDefinitionHidesMeanwhileAreTheHosts) {
    at(1, Name);
    desk.run(Command::HideColumn);
    grid.VsCtrl(Name)->bIsVisible(false);
    grid.ReDraw(true);
    EXPECT_FALSE(grid.CanRun(Command::ShowColumns));
    EXPECT_EQ(hidden(), (Cols{Name}));
}

TEST_F(HiddenColumns, GoWithTheirNumber) {
    at(1, Remark);
    desk.run(Command::HideColumn);
    grid.Cols(Remark);
    grid.Cols(Count);
    EXPECT_FALSE(grid.CanRun(Command::ShowColumns));
    EXPECT_EQ(hidden(), Cols{});
}

TEST_F(HiddenColumns, MayEndTheControl) {
    at(1, Name);
    grid.Layout().Changed.connect([this] { desk.remove(grid); });
    desk.run(Command::HideColumn);
    SUCCEED();
}

TEST_F(HiddenColumns, MayEndTheControlByTheMove) {
    at(1, Name);
    grid.RowColChange.connect([this] { desk.remove(grid); });
    desk.run(Command::HideColumn);
    SUCCEED();
}

// --- Widths. A narrow character is 100 twips wide, a wide one 200; 90 and a pixel stand beside them.

constexpr std::int32_t Beside = 105;

TEST_F(FittedColumns, AreAsWideAsTheirWidestText) {
    at(1, Remark);
    grid.SetCell(2, Remark, "twelve chars");
    EXPECT_TRUE(desk.run(Command::FitColumn));
    EXPECT_EQ(grid.ColWidth(Remark), 1200 + Beside);
    EXPECT_EQ(grid.ColSample(Remark), "");
    EXPECT_EQ(changes, 1);
    expectTotalsFollow();
}

TEST_F(FittedColumns, AreAsWideAsTheirHeader) {
    at(1, Remark);
    desk.run(Command::FitColumn);
    EXPECT_EQ(grid.ColWidth(Remark), 400 + Beside);
}

TEST_F(FittedColumns, ShowNumbersAsTheyAreFormatted) {
    at(1, Quantity);
    grid.ColFormat(Quantity, "#,##0.00");
    grid.SetCell(1, Quantity, "1234567");
    desk.run(Command::FitColumn);
    EXPECT_EQ(grid.ColWidth(Quantity), 1200 + Beside) << "1,234,567.00";
}

TEST_F(FittedColumns, HaveRoomForTheTotalThatIsShown) {
    at(1, Quantity);
    grid.VsCtrl(Quantity)->b是否合计数据(true);
    grid.ReDraw(true);
    grid.SetCell(1, Quantity, "99999");
    desk.run(Command::FitColumn);
    EXPECT_EQ(grid.ColWidth(Quantity), 500 + Beside);
    grid.SumRow(true);
    desk.run(Command::FitColumn);
    EXPECT_EQ(grid.ColWidth(Quantity), 600 + Beside) << "100049";
}

TEST_F(FittedColumns, TakeNoNoteOfHiddenRows) {
    at(1, Remark);
    grid.SetCell(2, Remark, "twelve chars");
    grid.SetCell(3, Remark, "fourteen chars");
    grid.Grid().RowHidden(2, true);
    grid.Grid().RowFiltered(3, true);
    desk.run(Command::FitColumn);
    EXPECT_EQ(grid.ColWidth(Remark), 400 + Beside);
}

TEST_F(FittedColumns, AreWideEnoughToBePressed) {
    grid.SetCell(0, Remark, "");
    at(1, Remark);
    desk.run(Command::FitColumn);
    EXPECT_EQ(grid.ColWidth(Remark), 300);
}

TEST_F(FittedColumns, TakeNoMoreThanHalfOfTheView) {
    at(1, Remark);
    grid.SetCell(1, Remark, std::string(100'000, 'x'));
    desk.run(Command::FitColumn);
    EXPECT_EQ(grid.ColWidth(Remark), grid.Grid().ClientWidth() / 2);
    desk.resize(2000, 2000);
    desk.run(Command::FitColumn);
    EXPECT_EQ(grid.ColWidth(Remark), 3000);
}

TEST_F(FittedColumns, OfBooleansHaveRoomForTheirBox) {
    grid.VsCtrl(Remark)->iType(flexDTBoolean);
    grid.ReDraw(true);
    grid.SetCell(0, Remark, "");
    grid.SetCell(1, Remark, "a text that is not shown");
    at(1, Remark);
    desk.run(Command::FitColumn);
    EXPECT_EQ(grid.ColWidth(Remark), std::max(300, desk.checkBoxSide() + Beside));
}

TEST_F(FittedColumns, AreThoseThatAreSelectedWhole) {
    grid.Grid().SelectCols(Name, Quantity);
    EXPECT_TRUE(desk.run(Command::FitColumn));
    EXPECT_EQ(grid.ColWidth(Name), 400 + Beside);
    EXPECT_EQ(grid.ColWidth(Quantity), 400 + Beside);
}

TEST_F(FittedColumns, AreFittedOnAReadOnlyGridToo) {
    grid.Editable(false);
    at(1, Name);
    EXPECT_TRUE(desk.run(Command::FitColumn));
}

TEST_F(FittedColumns, FindTheWidestOfVeryManyTexts) {
    grid.Rows(20'001);
    for (std::int32_t row = 1; row <= 20'000; ++row) grid.Grid().Text(row, Remark, std::to_string(row * 7));
    grid.Grid().Text(11'111, Remark, "最宽的一格");  // fifteen bytes
    grid.Grid().Text(17'000, Remark, "sixteen letters.");
    at(1, Remark);
    desk.run(Command::FitColumn);
    EXPECT_EQ(grid.ColWidth(Remark), 1600 + Beside);
}

TEST_F(FittedColumns, TellTheHostAsADragDoes) {
    std::vector<std::int32_t> resized;
    grid.Grid().AfterUserResize.connect([&](std::int32_t row, std::int32_t col) {
        EXPECT_EQ(row, -1);
        resized.push_back(col);
    });
    at(1, Name);
    desk.run(Command::FitColumn);
    EXPECT_EQ(resized, (Cols{Name}));
}

TEST_F(FittedColumns, MayEndTheControl) {
    grid.Grid().SelectCols(Name, Quantity);
    grid.Grid().AfterUserResize.connect([this](auto, auto) { desk.remove(grid); });
    desk.run(Command::FitColumn);
    SUCCEED();
}

/// Both presses of a double click on the right edge of a column.
void pressEdgeTwice(headless::Desk& desk, kxGrid& grid, std::int32_t col) {
    const Rect cell = grid.Grid().CellRect(0, col);
    const std::int32_t x = grid.gridRect().left + cell.right() - 15;
    const std::int32_t y = grid.gridRect().top + cell.top + cell.height / 2;
    desk.mouseDown(LeftButton, 0, x, y).mouseUp(LeftButton, 0, x, y);
    const auto input = grid.input();
    input->doubleClick(LeftButton, 0, x, y);
    input->mouseMove(LeftButton, 0, x + 300, y);
    input->mouseUp(LeftButton, 0, x + 300, y);
}

TEST_F(FittedColumns, AreThoseWhoseEdgeIsPressedTwice) {
    at(1, Code);
    int clicks = 0;
    grid.DblClick.connect([&] { ++clicks; });
    int resized = 0;
    grid.Grid().AfterUserResize.connect([&](auto, auto) { ++resized; });
    pressEdgeTwice(desk, grid, Name);
    EXPECT_EQ(grid.ColWidth(Name), 400 + Beside);
    EXPECT_EQ(changes, 1) << "the first press has dragged nothing";
    EXPECT_EQ(resized, 2);
    EXPECT_EQ(clicks, 0);
    EXPECT_TRUE(isAt(1, Code));
    expectTotalsFollow();
}

TEST_F(FittedColumns, StayAsWideAsTheirTextWhenAnEdgeIsPressedOnly) {
    const std::string sample = grid.ColSample(Name);
    const Rect cell = grid.Grid().CellRect(0, Name);
    const std::int32_t x = grid.gridRect().left + cell.right() - 15;
    desk.mouseDown(LeftButton, 0, x, 100).mouseUp(LeftButton, 0, x, 100);
    EXPECT_EQ(grid.ColSample(Name), sample);
    EXPECT_EQ(changes, 0);
}

TEST_F(FittedColumns, AreAsWideAsTheirTextAgainAfterAWidthThatHappenedToBeTheSame) {
    const std::string sample = grid.ColSample(Name);
    desk.dragColumn(Name, grid.ColWidth(Name));
    EXPECT_EQ(grid.ColSample(Name), "");
    EXPECT_EQ(changes, 0);
    grid.Layout().Reset();
    EXPECT_EQ(grid.ColSample(Name), sample);
}

// --- Frozen columns

TEST_F(FreezeCommand, AreThoseUpToTheCurrentOne) {
    at(1, Name);
    EXPECT_EQ(grid.Commands().Caption(Command::Freeze), "冻结到此列");
    EXPECT_TRUE(desk.run(Command::Freeze));
    EXPECT_EQ(grid.FrozenCols(), 2);
    EXPECT_EQ(changes, 1);
}

TEST_F(FreezeCommand, AreReleasedWhereJustTheseAreFrozen) {
    at(1, Name);
    desk.run(Command::Freeze);
    EXPECT_EQ(grid.Commands().Caption(Command::Freeze), "取消冻结");
    at(1, Quantity);
    EXPECT_EQ(grid.Commands().Caption(Command::Freeze), "冻结到此列");
    desk.run(Command::Freeze);
    EXPECT_EQ(grid.FrozenCols(), 3);
    desk.run(Command::Freeze);
    EXPECT_EQ(grid.FrozenCols(), 0);
}

TEST_F(FreezeCommand, TellWhoShowsTheCaption) {
    at(1, Name);
    std::string caption;
    grid.Commands().Changed.connect([&] { caption = grid.Commands().Caption(Command::Freeze); });
    desk.run(Command::Freeze);
    EXPECT_EQ(caption, "取消冻结");
    at(1, Quantity);
    EXPECT_EQ(caption, "冻结到此列");
}

TEST_F(FreezeCommand, LeaveRoomForThoseThatScroll) {
    at(1, Remark);
    grid.ColWidth(Remark, 20'000);
    EXPECT_FALSE(grid.CanRun(Command::Freeze));
    EXPECT_FALSE(desk.run(Command::Freeze));
    grid.FrozenCols(4);
    EXPECT_TRUE(desk.run(Command::Freeze)) << "to end it";
    EXPECT_EQ(grid.FrozenCols(), 0);
}

TEST_F(FreezeCommand, WorkOnAReadOnlyGrid) {
    grid.Editable(false);
    at(1, Name);
    EXPECT_TRUE(desk.run(Command::Freeze));
    grid.Editable(true);
    EXPECT_FALSE(grid.CanRun(Command::Undo));
}
}  // namespace
}  // namespace kxVsGrid::testing

#include "kxVsGrid/Frame.h"

#include <gtest/gtest.h>

#include "cellgrid/FrameReader.h"

namespace kxVsGrid {
namespace {

using Kind = FrameItem::Kind;

TEST(Frame, HasTheSizeOfTheView) {
    FilledGrid grid(6, 4, 3500, 2000);
    const Frame frame = makeFrame(grid);
    EXPECT_EQ(frame.width, 3500);
    EXPECT_EQ(frame.height, 2000);
}

TEST(Frame, IsEmptyForAViewWithoutASize) {
    FilledGrid grid(6, 4, 0, 0);
    EXPECT_TRUE(makeFrame(grid).items.empty());
}

TEST(Frame, ShowsEveryCellThatHasAText) {
    FilledGrid grid(6, 4, 3500, 1800);
    grid.Text(2, 2, "");
    const FrameReader frame(grid);
    for (std::int32_t row = 0; row < 6; ++row)
        for (std::int32_t col = 0; col < 4; ++col)
            EXPECT_EQ(frame.text(row, col), grid.Text(row, col)) << row << "," << col;
    EXPECT_FALSE(frame.showsText(2, 2));
    EXPECT_EQ(frame.count(Kind::Text), 23u);
}

TEST(Frame, PlacesTextsInTheirCellsWithASmallMargin) {
    FilledGrid grid(6, 4, 3500, 1800);
    const FrameReader frame(grid);
    const auto* item = frame.find(Kind::Text, 2, 1);
    ASSERT_TRUE(item);
    EXPECT_EQ(item->rect, (Rect{500 + 45, 600, 1000 - 90, 300}));
}

TEST(Frame, ClipsALongTextToItsCell) {
    FilledGrid grid(6, 4, 3500, 1800);
    grid.Text(1, 1, std::string(500, 'x'));
    grid.Text(1, 2, "");
    const FrameReader frame(grid);
    EXPECT_EQ(frame.find(Kind::Text, 1, 1)->rect, (Rect{545, 300, 910, 300}));
    EXPECT_EQ(frame.text(1, 1).size(), 500u);
}

TEST(Frame, ShowsNoTextInAColumnTooNarrowForTheMargins) {
    FilledGrid grid(6, 4, 3500, 1800);
    grid.ColWidth(2, 90);
    EXPECT_FALSE(FrameReader(grid).showsText(1, 2));
    grid.ColWidth(2, 91);
    EXPECT_TRUE(FrameReader(grid).showsText(1, 2));
}

TEST(Frame, ShowsDataCellsAsTheColumnsFormatShowsThem) {
    FilledGrid grid(6, 4, 3500, 1800);
    grid.ColFormat(1, "#,##0.00");
    grid.Text(1, 1, "1234.5");
    EXPECT_EQ(FrameReader(grid).text(1, 1), "1,234.50");
}

TEST(Frame, ShowsRowNumbersAndComputedTexts) {
    CellGrid grid;
    grid.Resize(3500, 1800);
    grid.NumberRows();
    grid.ColFormat(2, "0.00");
    grid.ComputedText(3, 2, [] { return std::string("17.5"); });
    const FrameReader frame(grid);
    EXPECT_EQ(frame.text(1, 0), "1");
    EXPECT_EQ(frame.text(4, 0), "4");
    EXPECT_EQ(frame.text(3, 2), "17.50");
}

TEST(Frame, FormatsTheHeaderColumnsOfDataRowsButNoFixedRows) {
    FilledGrid grid(6, 4, 3500, 1800);
    for (std::int32_t col = 0; col < 2; ++col) {
        grid.ColFormat(col, "00");
        grid.Text(0, col, "7");
        grid.Text(1, col, "7");
    }
    const FrameReader frame(grid);
    EXPECT_EQ(frame.text(0, 0), "7");
    EXPECT_EQ(frame.text(0, 1), "7");
    EXPECT_EQ(frame.text(1, 0), "07");
    EXPECT_EQ(frame.text(1, 1), "07");
}

TEST(Frame, AlignsTextsAsTheirCellsDo) {
    FilledGrid grid(6, 4, 3500, 1800);
    grid.ColAlignment(1, flexAlignRightCenter);
    grid.FixedAlignment(1, flexAlignCenterCenter);
    grid.CellAlignment(2, 1, flexAlignLeftTop);
    grid.ColAlignment(2, flexAlignGeneral);
    grid.Text(1, 2, "12");
    grid.Text(2, 2, "ab");
    const FrameReader frame(grid);
    EXPECT_EQ(frame.find(Kind::Text, 1, 1)->alignment, flexAlignRightCenter);
    EXPECT_EQ(frame.find(Kind::Text, 0, 1)->alignment, flexAlignCenterCenter);
    EXPECT_EQ(frame.find(Kind::Text, 2, 1)->alignment, flexAlignLeftTop);
    EXPECT_EQ(frame.find(Kind::Text, 1, 2)->alignment, flexAlignRightCenter);
    EXPECT_EQ(frame.find(Kind::Text, 2, 2)->alignment, flexAlignLeftCenter);
}

TEST(Frame, DrawsCheckMarksInsteadOfTextsInBooleanColumns) {
    FilledGrid grid(6, 4, 3500, 1800);
    grid.ColDataType(2, flexDTBoolean);
    grid.Text(1, 2, "-1");
    grid.Text(2, 2, "0");
    grid.Text(3, 2, "");
    grid.Text(4, 2, "yes");
    grid.Text(5, 2, "2 of 3");
    const FrameReader frame(grid);
    const bool checked[] = {true, false, false, false, true};
    for (std::int32_t row = 1; row < 6; ++row) {
        const auto* mark = frame.find(Kind::CheckMark, row, 2);
        ASSERT_TRUE(mark) << row;
        EXPECT_EQ(mark->checked, checked[row - 1]) << row;
        EXPECT_EQ(mark->rect, grid.CellRect(row, 2));
        EXPECT_FALSE(frame.showsText(row, 2)) << row;
    }
    EXPECT_EQ(frame.count(Kind::CheckMark), 5u);
}

TEST(Frame, ShowsTheCaptionOfABooleanColumnAsText) {
    FilledGrid grid(6, 4, 3500, 1800);
    grid.ColDataType(2, flexDTBoolean);
    grid.Text(0, 2, "已审");
    const FrameReader frame(grid);
    EXPECT_EQ(frame.text(0, 2), "已审");
    EXPECT_FALSE(frame.find(Kind::CheckMark, 0, 2));
}

TEST(Frame, OutlinesTheCurrentCellLast) {
    FilledGrid grid(6, 4, 3500, 1800);
    grid.Select(3, 2);
    const FrameReader frame(grid, {.focused = true});
    ASSERT_EQ(frame.count(Kind::Focus), 1u);
    const FrameItem& focus = frame.items().back();
    EXPECT_EQ(focus.kind, Kind::Focus);
    EXPECT_EQ(focus.rect, grid.CellRect(3, 2));
    EXPECT_EQ(focus.row, 3);
    EXPECT_EQ(focus.col, 2);
}

TEST(Frame, OutlinesTheCurrentCellInAnotherColorWithoutTheFocus) {
    FilledGrid grid(6, 4, 3500, 1800);
    EXPECT_EQ(FrameReader(grid, {.focused = true}).items().back().color, 0x8000000Du);
    EXPECT_EQ(FrameReader(grid, {.focused = false}).items().back().color, 0x80000010u);
}

TEST(Frame, MarksTheHeadersOfTheCurrentCell) {
    FilledGrid grid(6, 4, 3500, 1800);
    grid.Select(3, 2);
    const FrameReader frame(grid);
    EXPECT_EQ(frame.fillOf(3, 0), 0x80000014u);
    EXPECT_EQ(frame.fillOf(0, 2), 0x80000014u);
    EXPECT_EQ(frame.fillOf(2, 0), grid.BackColorFixed());
    EXPECT_EQ(frame.fillOf(0, 1), grid.BackColorFixed());
    EXPECT_EQ(frame.fillOf(0, 0), grid.BackColorFixed());
    EXPECT_EQ(frame.fillOf(3, 2), grid.BackColor());
}

TEST(Frame, DoesNotShowTheCurrentCellWhereTheGridHasNoCursor) {
    FilledGrid grid(6, 4, 3500, 1800);
    grid.ShowCursor(false);
    grid.SelectsRows(true);
    const FrameReader frame(grid, {.focused = true});
    EXPECT_EQ(frame.count(Kind::Focus), 0u);
    EXPECT_EQ(frame.fillOf(1, 0), grid.BackColorFixed());
    EXPECT_EQ(frame.fillOf(1, 1), grid.BackColor());
}

TEST(Frame, DoesNotOutlineACurrentCellInTheFixedArea) {
    FilledGrid grid(6, 4, 3500, 1800);
    grid.Select(0, 2);
    const FrameReader frame(grid, {.focused = true});
    EXPECT_EQ(frame.count(Kind::Focus), 0u);
    EXPECT_EQ(frame.fillOf(0, 2), grid.BackColorFixed());
}

TEST(Frame, DoesNotOutlineACurrentCellThatIsScrolledAway) {
    FilledGrid grid(60, 4, 3500, 1800);
    grid.Select(2, 1);
    grid.TopRow(20);
    EXPECT_EQ(FrameReader(grid, {.focused = true}).count(Kind::Focus), 0u);
}

TEST(Frame, LeavesTheTextUnderAnOpenEditorOut) {
    FilledGrid grid(6, 4, 3500, 1800);
    grid.Select(3, 2);
    const FrameReader frame(grid, {.focused = true, .editorOpen = true});
    EXPECT_FALSE(frame.showsText(3, 2));
    EXPECT_TRUE(frame.showsText(3, 1));
    EXPECT_TRUE(FrameReader(grid).showsText(3, 2));
}

TEST(Frame, HighlightsTheWholeCurrentRowOfAPickList) {
    FilledGrid grid(6, 4, 3500, 1800);
    grid.SelectsRows(true);
    grid.Select(3, 2);
    grid.CellBackColor(3, 1, 0x00FF00);
    grid.CellForeColor(3, 1, 0x0000FF);
    const FrameReader frame(grid);
    for (std::int32_t col = 0; col < 4; ++col) {
        EXPECT_EQ(frame.fillOf(3, col), 0x8000000Du) << col;
        EXPECT_EQ(frame.textColor(3, col), 0x8000000Eu) << col;
        EXPECT_EQ(frame.fillOf(2, col), col == 0 ? grid.BackColorFixed() : grid.BackColor()) << col;
    }
    EXPECT_EQ(frame.fillOf(0, 2), grid.BackColorFixed());
    EXPECT_EQ(frame.count(Kind::Focus), 0u);
}

TEST(Frame, HighlightsNoHeaderRowOfAPickList) {
    FilledGrid grid(6, 4, 3500, 1800);
    grid.SelectsRows(true);
    grid.Select(0, 1);
    const FrameReader frame(grid);
    EXPECT_EQ(frame.fillOf(0, 1), grid.BackColorFixed());
    EXPECT_EQ(frame.textColor(0, 1), grid.ForeColorFixed());
}

TEST(Frame, IsTheSameWhenItsMemoryIsUsedAgain) {
    FilledGrid large(60, 10, 9000, 9000);
    FilledGrid small(3, 3, 3000, 1500);
    small.ColDataType(1, flexDTBoolean);
    Frame frame;
    for (CellGrid* grid :
         {static_cast<CellGrid*>(&large), static_cast<CellGrid*>(&small), static_cast<CellGrid*>(&large)}) {
        makeFrame(frame, *grid);
        const Frame fresh = makeFrame(*grid);
        ASSERT_EQ(frame.items.size(), fresh.items.size());
        for (std::size_t i = 0; i < fresh.items.size(); ++i) {
            EXPECT_EQ(frame.items[i].kind, fresh.items[i].kind);
            EXPECT_EQ(frame.items[i].rect, fresh.items[i].rect);
            EXPECT_EQ(frame.items[i].text, fresh.items[i].text);
            EXPECT_EQ(frame.items[i].checked, fresh.items[i].checked);
            EXPECT_EQ(frame.items[i].alignment, fresh.items[i].alignment);
            EXPECT_EQ(frame.items[i].color, fresh.items[i].color);
        }
    }
}
}  // namespace
}  // namespace kxVsGrid

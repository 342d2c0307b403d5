// Texts, data and looks of cells, and what is raised when they change.
#include <gtest/gtest.h>

#include "kxVsGrid/CellGrid.h"

namespace kxVsGrid {
namespace {

class Cells : public ::testing::Test {
  protected:
    Cells() {
        grid.CellChanged.connect([this](std::int32_t r, std::int32_t c) {
            changed.push_back(std::to_string(r) + "," + std::to_string(c));
        });
    }
    using Lines = std::vector<std::string>;

    CellGrid grid;
    Lines changed;
};

TEST_F(Cells, AnswerTheTextAndDataThatWereWritten) {
    grid.Text(1, 2, "螺丝");
    grid.Data(1, 2, "A001");
    EXPECT_EQ(grid.Text(1, 2), "螺丝");
    EXPECT_EQ(grid.Data(1, 2), "A001");
    EXPECT_EQ(grid.Text(1, 3), "");
    EXPECT_EQ(grid.Data(1, 3), "");
}

TEST_F(Cells, TakeTextAndDataInOneStepDataFirst) {
    grid.CellChanged.connect([this](std::int32_t r, std::int32_t c) {
        changed.push_back(grid.Text(r, c) + "/" + grid.Data(r, c));
    });
    EXPECT_TRUE(grid.Cell(1, 2, "螺丝", "A001"));
    EXPECT_EQ(changed, (Lines{"1,2", "/A001", "1,2", "螺丝/A001"}));
    changed.clear();
    EXPECT_TRUE(grid.Cell(1, 2, "螺丝", "A001"));
    EXPECT_TRUE(changed.empty());
}

TEST_F(Cells, TakeNothingInOneStepWhereThereIsNoCell) {
    for (const auto& [row, col] : {std::pair{-1, 0}, {0, -1}, {6, 0}, {0, 10}})
        EXPECT_FALSE(grid.Cell(row, col, "x", "y")) << row << ", " << col;
    EXPECT_TRUE(changed.empty());
}

TEST_F(Cells, LoseTheTextOfOneStepWhenAListenerOfTheDataTakesTheCellAway) {
    grid.CellChanged.connect([this](std::int32_t, std::int32_t) { grid.Rows(2); });
    EXPECT_FALSE(grid.Cell(5, 1, "text", "data"));
    EXPECT_EQ(grid.Rows(), 2);
    EXPECT_EQ(changed, (Lines{"5,1"}));
}

TEST_F(Cells, HoldTextsOfEverySize) {
    for (const std::size_t size : {0, 1, 2, 3, 4, 5, 6, 7, 8, 14, 15, 100, 1023, 1024, 1025, 100'000}) {
        const std::string text(size, 'x');
        grid.Text(1, 1, text);
        grid.Data(1, 1, text);
        ASSERT_EQ(grid.Text(1, 1), text) << size;
        ASSERT_EQ(grid.Data(1, 1), text) << size;
    }
}

TEST_F(Cells, KeepBytesOfZeroAndBytesThatAreNoText) {
    const std::string bytes("a\0b\xff\xc0", 5);
    grid.Text(1, 1, bytes);
    EXPECT_EQ(grid.Text(1, 1), bytes);
}

TEST_F(Cells, MayBeWrittenFromTheirOwnText) {
    grid.Text(1, 1, "a text that is too long for a slot");
    std::string copy = grid.Text(1, 1);
    grid.Text(1, 1, std::string_view(copy).substr(2));
    EXPECT_EQ(grid.Text(1, 1), "text that is too long for a slot");
}

TEST_F(Cells, TellOfEveryChangeOfTextAndData) {
    grid.Text(1, 2, "a");
    grid.Data(1, 2, "b");
    grid.Text(3, 4, "c");
    EXPECT_EQ(changed, (Lines{"1,2", "1,2", "3,4"}));
}

TEST_F(Cells, TellNothingWhenTheStoredValueStays) {
    for (const char* const text : {"a", "12345678", "a text that is too long for a slot"}) {
        grid.Text(1, 2, text);
        grid.Data(1, 2, text);
        changed.clear();
        grid.Text(1, 2, text);
        grid.Data(1, 2, text);
        EXPECT_EQ(changed, Lines{}) << text;
    }
    grid.Text(3, 3, "");
    grid.Data(3, 3, "");
    EXPECT_EQ(changed, Lines{});
}

TEST_F(Cells, TellNothingOfFormatsColoursAndSizes) {
    grid.ColFormat(1, "0.00");
    grid.CellBackColor(1, 1, 3);
    grid.CellAlignment(1, 1, flexAlignRightTop);
    grid.ColWidth(1, 30);
    grid.RowHeight(1, 30);
    grid.PaintColumn(2, 0, 5, 1, 2);
    EXPECT_EQ(changed, Lines{});
}

TEST_F(Cells, TellNothingWhenTheyComeAndGoWithRowsAndColumns) {
    grid.Text(5, 9, "gone");
    changed.clear();
    grid.Rows(3);
    grid.Rows(9);
    grid.Cols(3);
    grid.Cols(9);
    grid.InsertRow(1);
    grid.RemoveRow(2);
    EXPECT_EQ(changed, Lines{});
}

TEST_F(Cells, LoseTextsAndDataAndKeepTheirLooksWhenCleared) {
    for (std::int32_t row = 0; row < 6; ++row) {
        grid.Text(row, 1, "text");
        grid.Data(row, 2, "data");
        grid.CellBackColor(row, 1, 5);
        grid.CellAlignment(row, 1, flexAlignRightTop);
    }
    changed.clear();
    grid.ClearText(2, 4);
    for (std::int32_t row = 0; row < 6; ++row) {
        const bool kept = row < 2 || row > 4;
        EXPECT_EQ(grid.Text(row, 1), kept ? "text" : "");
        EXPECT_EQ(grid.Data(row, 2), kept ? "data" : "");
        EXPECT_EQ(grid.CellBackColor(row, 1), 5U);
        EXPECT_EQ(grid.CellAlignment(row, 1), flexAlignRightTop);
    }
    EXPECT_EQ(changed, Lines{});
}

TEST_F(Cells, TellColourZeroFromNoColour) {
    EXPECT_EQ(grid.CellForeColor(1, 1), std::nullopt);
    grid.CellForeColor(1, 1, 0);
    grid.CellBackColor(1, 1, 0);
    EXPECT_EQ(grid.CellForeColor(1, 1), 0U);
    EXPECT_EQ(grid.CellBackColor(1, 1), 0U);
    grid.CellForeColor(1, 1, std::nullopt);
    EXPECT_EQ(grid.CellForeColor(1, 1), std::nullopt);
    EXPECT_EQ(grid.CellBackColor(1, 1), 0U);
}

TEST_F(Cells, ArePaintedByTheColumnAndKeepTheirAlignment) {
    grid.CellAlignment(2, 3, flexAlignRightTop);
    grid.PaintColumn(3, 1, 4, 7, std::nullopt);
    EXPECT_EQ(grid.CellForeColor(0, 3), std::nullopt);
    EXPECT_EQ(grid.CellForeColor(1, 3), 7U);
    EXPECT_EQ(grid.CellForeColor(4, 3), 7U);
    EXPECT_EQ(grid.CellForeColor(5, 3), std::nullopt);
    EXPECT_EQ(grid.CellForeColor(2, 4), std::nullopt);
    EXPECT_EQ(grid.CellAlignment(2, 3), flexAlignRightTop);
}

TEST_F(Cells, StayAsTheyAreWhenARangeOfNoRowsIsPaintedOrCleared) {
    grid.Text(3, 1, "text");
    grid.PaintColumn(1, 6, 5, 1, 1);
    grid.ClearText(4, 3);
    EXPECT_EQ(grid.CellForeColor(5, 1), std::nullopt);
    EXPECT_EQ(grid.Text(3, 1), "text");
}

TEST_F(Cells, PreferTheirOwnAlignmentToTheColumns) {
    grid.ColAlignment(1, flexAlignCenterTop);
    grid.FixedAlignment(1, flexAlignCenterCenter);
    EXPECT_EQ(grid.EffectiveAlignment(2, 1), flexAlignCenterTop);
    EXPECT_EQ(grid.EffectiveAlignment(0, 1), flexAlignCenterCenter);
    grid.CellAlignment(2, 1, flexAlignRightBottom);
    grid.CellAlignment(0, 1, flexAlignLeftTop);
    EXPECT_EQ(grid.EffectiveAlignment(2, 1), flexAlignRightBottom);
    EXPECT_EQ(grid.EffectiveAlignment(0, 1), flexAlignLeftTop);
    grid.ColAlignment(1, flexAlignLeftCenter);
    EXPECT_EQ(grid.CellAlignment(2, 1), flexAlignRightBottom);
}

TEST_F(Cells, AlignNumbersToTheRightAndAllElseToTheLeftWhereNothingWasSaid) {
    grid.Text(1, 1, "12.5");
    grid.Text(2, 1, "12.5kg");
    EXPECT_EQ(grid.EffectiveAlignment(1, 1), flexAlignRightCenter);
    EXPECT_EQ(grid.EffectiveAlignment(2, 1), flexAlignLeftCenter);
    EXPECT_EQ(grid.EffectiveAlignment(3, 1), flexAlignLeftCenter);
    grid.ColAlignment(1, static_cast<mEmflexAlign>(77));
    EXPECT_EQ(grid.EffectiveAlignment(1, 1), flexAlignRightCenter);
    EXPECT_EQ(grid.ColAlignment(1), static_cast<mEmflexAlign>(77));
}

TEST_F(Cells, ShowTheirTextInTheFormatOfTheColumnButNotInFixedRows) {
    grid.ColFormat(1, "#,##0.00");
    grid.Text(0, 1, "1234.5");
    grid.Text(1, 1, "1234.5");
    grid.Text(2, 1, "none");
    EXPECT_EQ(grid.DisplayText(0, 1), "1234.5");
    EXPECT_EQ(grid.DisplayText(1, 1), "1,234.50");
    EXPECT_EQ(grid.DisplayText(2, 1), "none");
    EXPECT_EQ(grid.DisplayText(3, 1), "");
    EXPECT_EQ(grid.Text(1, 1), "1234.5");
    EXPECT_EQ(grid.ColFormat(1), "#,##0.00");
    grid.ColFormat(1, "");
    EXPECT_EQ(grid.DisplayText(1, 1), "1234.5");
}

TEST_F(Cells, AskForAComputedTextAtEveryLook) {
    int asked = 0;
    grid.ColFormat(2, "0.0");
    grid.ComputedText(1, 2, [&] { return std::to_string(++asked); });
    EXPECT_EQ(asked, 0);
    EXPECT_EQ(grid.Text(1, 2), "1");
    EXPECT_EQ(grid.DisplayText(1, 2), "2.0");
    grid.InsertRow(1);
    EXPECT_EQ(grid.Text(2, 2), "3");
    EXPECT_EQ(changed, Lines{});
}

TEST_F(Cells, AskNoMoreOnceATextIsWritten) {
    grid.ComputedText(1, 2, [] { return std::string("computed"); });
    grid.Text(1, 2, "");
    EXPECT_EQ(grid.Text(1, 2), "");
    EXPECT_EQ(changed, Lines{});
    grid.ComputedText(1, 2, [] { return std::string("computed"); });
    grid.Text(1, 2, "written");
    EXPECT_EQ(grid.Text(1, 2), "written");
    EXPECT_EQ(changed, Lines{"1,2"});
}

TEST_F(Cells, LetGoOfWhatAComputedTextHeldOn) {
    const auto held = std::make_shared<int>(7);
    const auto compute = [held] { return std::to_string(*held); };
    grid.ComputedText(1, 2, compute);
    grid.ComputedText(2, 2, compute);
    grid.ComputedText(3, 2, compute);
    grid.ComputedText(4, 2, compute);
    grid.Text(1, 2, "written");
    grid.RemoveRow(2);
    grid.ComputedText(2, 2, [] { return std::string("other"); });
    EXPECT_EQ(grid.Text(3, 2), "7");
    grid.Cols(2);
    EXPECT_EQ(held.use_count(), 2);  // the test's own two
}

TEST_F(Cells, AreEmptyWhenNothingComputesThemAnyMore) {
    grid.ComputedText(1, 2, [] { return std::string("computed"); });
    grid.ComputedText(1, 2, nullptr);
    EXPECT_EQ(grid.Text(1, 2), "");
}

TEST_F(Cells, MayOverwriteThemselvesWhileTheyCompute) {
    grid.ComputedText(1, 2, [this] {
        grid.Text(1, 2, "settled");
        return std::string("a text that is long enough to live on the heap");
    });
    EXPECT_EQ(grid.Text(1, 2), "a text that is long enough to live on the heap");
    EXPECT_EQ(grid.Text(1, 2), "settled");
}

TEST_F(Cells, KeepDataTypesAndMergeSettingsAsGiven) {
    grid.ColDataType(3, flexDTBoolean);
    grid.MergeCol(3, true);
    grid.MergeCells(flexMergeFixedOnly);
    grid.Text(1, 3, "-1");
    EXPECT_EQ(grid.ColDataType(3), flexDTBoolean);
    EXPECT_TRUE(grid.MergeCol(3));
    EXPECT_FALSE(grid.MergeCol(4));
    EXPECT_EQ(grid.MergeCells(), flexMergeFixedOnly);
    EXPECT_EQ(grid.DisplayText(1, 3), "-1");
}
TEST(CellGridComputedText, GoesWithItsRowButIsNotToldWhere) {
    CellGrid grid;
    grid.Cols(3);
    grid.Rows(6);
    grid.Text(2, 1, "second");
    grid.ComputedText(3, 1, [&grid] { return "after " + grid.Text(2, 1); });
    grid.InsertRow(2);
    EXPECT_EQ(grid.Text(3, 1), "second");
    EXPECT_EQ(grid.Text(4, 1), "after ") << "row 2 is another one now";
}
}  // namespace
}  // namespace kxVsGrid

// What a selection gives to the clipboard.
#include <optional>
#include <string>

#include "clerk/BlockTest.h"

namespace kxVsGrid::testing {
namespace {

class BlockCopier : public BlockTest {
  protected:
    BlockCopier() {
        for (int row = 1; row <= 3; ++row) content(row);
        at(1, 1);
    }
    std::string copied(Command command = Command::Copy) {
        desk.clipboard("");
        EXPECT_TRUE(run(command));
        return desk.clipboard();
    }
};

TEST_F(BlockCopier, GetsTabsBetweenCellsAndLineFeedsBetweenRows) {
    choose(1, 1, 2, 3);
    EXPECT_EQ(copied(), "t11\tt12\tt13\nt21\tt22\tt23");
}

TEST_F(BlockCopier, GetsYesAndNoOfCheckBoxesWhichComeBackAsTheyWere) {
    typed(2, flexDTBoolean);
    fill(1, 2, "-1");
    fill(2, 2, "0");
    fill(3, 2, "");
    fill(4, 2, "1");
    choose(1, 1, 4, 2);
    EXPECT_EQ(copied(), "t11\t是\nt21\t否\nt31\t\n\t是");
    EXPECT_TRUE(desk.clipboardContent().text.find("是") != std::string::npos);
    const std::string words = desk.clipboard();
    at(2, 1);
    run(Command::Paste);
    EXPECT_EQ(texts(2, 2, 5, 2), "-1/0//1") << "the grid's own form has what is stored";
    desk.clipboard(words);
    at(1, 1);
    run(Command::Paste);
    EXPECT_EQ(texts(1, 2, 4, 2), "-1/0//-1");
    at(2, 2);
    EXPECT_EQ(copied(), "否");
}

TEST_F(BlockCopier, GetsTheCurrentCellWhereNothingIsSelected) {
    at(2, 4);
    EXPECT_EQ(copied(), "t24");
}

TEST_F(BlockCopier, GetsTheSameFromWhicheverCornerItSelected) {
    choose(2, 3, 1, 1);
    EXPECT_EQ(copied(), "t11\tt12\tt13\nt21\tt22\tt23");
}

TEST_F(BlockCopier, GetsASingleCellsTextAsItIs) {
    fill(1, 1, "a\t\"b\"\nc");
    at(1, 1);
    EXPECT_EQ(copied(), "a\t\"b\"\nc");
}

TEST_F(BlockCopier, GetsAnEmptyTextOfAnEmptyCell) {
    at(5, 1);
    desk.clipboard("before");
    run(Command::Copy);
    EXPECT_EQ(desk.clipboard(), "");
}

TEST_F(BlockCopier, GetsQuotesOnlyWhereACellNeedsThem) {
    fill(1, 1, "a\tb");
    fill(1, 2, "c\nd");
    fill(2, 1, "plain, with; signs");
    fill(2, 2, " blank ");
    choose(1, 1, 2, 2);
    EXPECT_EQ(copied(), "\"a\tb\"\t\"c\nd\"\nplain, with; signs\t blank ");
}

TEST_F(BlockCopier, GetsDisplayedTexts) {
    column(2).iType(flexDTDouble);
    grid.ColFormat(2, "#,##0.00");
    fill(1, 2, "1234.5");
    fill(2, 2, "-7");
    choose(1, 1, 2, 2);
    EXPECT_EQ(copied(), "t11\t1,234.50\nt21\t-7.00");
}

TEST_F(BlockCopier, LeavesHiddenRowsAndColumnsOut) {
    grid.ColHidden(2, true);
    grid.Grid().RowHidden(2, true);
    choose(1, 1, 3, 3);
    EXPECT_EQ(copied(), "t11\tt13\nt31\tt33");
}

TEST_F(BlockCopier, LeavesRowsWithoutHeightOutAsHiddenOnes) {
    grid.Grid().RowHeight(2, 0);
    choose(1, 1, 3, 3);
    EXPECT_EQ(copied(), "t11\tt12\tt13\nt31\tt32\tt33");
}

TEST_F(BlockCopier, LeavesColumnsWithoutWidthOutAsHiddenOnes) {
    grid.ColWidth(2, 0);
    choose(1, 1, 2, 3);
    EXPECT_EQ(copied(), "t11\tt13\nt21\tt23");
}

TEST_F(BlockCopier, GetsTheFilledRowsOfEverythingInAGridOfAHundredMillion) {
    rows(CellGrid::MaxRows);
    grid.Grid().SelectAll();
    EXPECT_EQ(copied(), "t11\tt12\tt13\tt14\tt15\nt21\tt22\tt23\tt24\tt25\nt31\tt32\tt33\tt34\tt35");
    grid.Grid().SelectAll();
    EXPECT_TRUE(run(Command::ClearCells));
    expectEmpty(1);
    EXPECT_EQ(report().written, 15);
}

TEST_F(BlockCopier, KeepsNumbersAsTheyAreStoredInTheirOwnColumnAlone) {
    column(2).iType(flexDTDouble);
    column(3).iType(flexDTDouble);
    grid.ColFormat(2, "0.0");
    fill(1, 2, "1.234");
    choose(1, 1, 1, 2);
    copied();
    at(4, 1);
    run(Command::Paste);
    EXPECT_EQ(text(4, 2), "1.234");
    at(5, 2);
    run(Command::Paste);
    EXPECT_EQ(text(5, 3), "1.2") << "what can be seen, in another one";
}

TEST_F(BlockCopier, MovesCellsWithTheirTagsByCuttingAndPasting) {
    takesCodes(1);
    knowCodes([](const std::string&) { return std::optional<std::string>("name"); });
    choose(1, 1, 2, 2);
    EXPECT_TRUE(run(Command::Cut));
    at(4, 1);
    EXPECT_TRUE(run(Command::Paste));
    EXPECT_EQ(texts(4, 1, 5, 2), "t11|t12/t21|t22");
    EXPECT_EQ(tags(4, 1, 5, 2), "d11|d12/d21|d22");
    EXPECT_EQ(texts(1, 1, 2, 2), "|/|");
}

TEST_F(BlockCopier, HasNothingToGetOfHiddenCellsAlone) {
    choose(2, 1, 2, 3);
    grid.Grid().RowHidden(2, true);
    desk.clipboard("before");
    const bool done = run(Command::Copy);
    EXPECT_FALSE(done && desk.clipboard() != "before") << desk.clipboard();
}

TEST_F(BlockCopier, GetsEachCellOfMergedOnes) {
    for (int row = 1; row <= 2; ++row)
        for (int col = 1; col <= 2; ++col) fill(row, col, "same");
    grid.Grid().MergeCells(flexMergeFixedOnly);
    grid.MergeRow(1, true);
    grid.MergeCol(1, true);
    choose(1, 1, 2, 2);
    EXPECT_EQ(copied(), "same\tsame\nsame\tsame");
}

TEST_F(BlockCopier, GetsWholeColumnsDownToTheLastRowThatHoldsSomething) {
    rows(100'000);
    grid.Grid().SelectCols(2, 3);
    EXPECT_EQ(copied(), "t12\tt13\nt22\tt23\nt32\tt33");
    grid.Grid().SelectCols(3, 3);
    EXPECT_EQ(copied(), "t13\nt23\nt33");
}

TEST_F(BlockCopier, GetsEmptyCellsOfACellSelection) {
    choose(3, 4, 5, 5);
    EXPECT_EQ(copied(), "t34\tt35\n\t\n\t");
}

TEST_F(BlockCopier, GetsWholeRowsWithAllShownColumns) {
    grid.ColHidden(4, true);
    grid.Grid().SelectRows(2, 3);
    EXPECT_EQ(copied(), "t21\tt22\tt23\tt25\nt31\tt32\tt33\tt35");
}

TEST_F(BlockCopier, GetsCaptionsAboveWhenItAsksForThem) {
    grid.FormatString("no|one|two|three|four|five");
    choose(1, 2, 2, 3);
    EXPECT_EQ(copied(Command::CopyWithHeaders), "two\tthree\nt12\tt13\nt22\tt23");
    EXPECT_EQ(copied(Command::Copy), "t12\tt13\nt22\tt23");
}

TEST_F(BlockCopier, GetsTheShownOnesOfSeveralFixedRows) {
    grid.FixedRows(3);
    grid.Grid().Text(0, 1, "upper");
    grid.Grid().Text(1, 1, "hidden");
    grid.Grid().Text(2, 1, "lower");
    grid.Grid().RowHidden(1, true);
    at(3, 1);
    EXPECT_EQ(copied(Command::CopyWithHeaders), "upper\nlower\nt31");
}

TEST_F(BlockCopier, LeavesTheCaptionsOfHiddenColumnsOut) {
    grid.FormatString("no|one|two|three|four|five");
    grid.ColHidden(2, true);
    choose(1, 1, 1, 3);
    EXPECT_EQ(copied(Command::CopyWithHeaders), "one\tthree\nt11\tt13");
}

TEST_F(BlockCopier, PutsTheControlsOwnFormBesideTheText) {
    choose(1, 1, 2, 2);
    copied();
    const ClipboardContent content = desk.clipboardContent();
    EXPECT_EQ(content.text, "t11\tt12\nt21\tt22");
    EXPECT_FALSE(content.block.empty());
    EXPECT_FALSE(content.headers);
    EXPECT_NE(content.block.find("d22"), std::string::npos);
    copied(Command::CopyWithHeaders);
    EXPECT_TRUE(desk.clipboardContent().headers);
}

TEST_F(BlockCopier, ChangesNothingAndTellsTheHostNothing) {
    choose(1, 1, 3, 3);
    const Lines before = wholeOf(grid);
    copied();
    copied(Command::CopyWithHeaders);
    EXPECT_EQ(heard(), Lines());
    EXPECT_EQ(wholeOf(grid), before);
    EXPECT_TRUE(reports.empty());
    EXPECT_EQ(grid.Grid().Selected(), (CellRange{1, 1, 3, 3}));
}

TEST_F(BlockCopier, CopiesFromAReadOnlyGridAndFromReadOnlyColumns) {
    grid.Editable(false);
    readOnly(1);
    choose(1, 1, 1, 2);
    EXPECT_EQ(copied(), "t11\tt12");
}

TEST_F(BlockCopier, HasBackByPastingWhateverTextsThereAre) {
    const Lines awkward{"\"",          "\"\"",  "a\"b",   "\"a\"", "a\tb",        "=1+1",
                        "\"a\tb\"\"c", "'text", "货\"号", ",",     "a\"\tb\"c\"", "\\n"};
    for (const std::string& text : awkward) {
        fill(1, 1, text, "tag");
        fill(1, 2, "next");
        choose(1, 1, 1, 2);
        const std::string content = copied();
        at(4, 4);
        EXPECT_TRUE(paste(content)) << content;
        EXPECT_EQ(texts(4, 4, 4, 5), text + "|next") << content;
    }
}

TEST_F(BlockCopier, HasASingleCellsTextBackInOneCell) {
    column(1).b是否编辑多行(true);
    for (const char* cell : {"a\nb", "a\tb", "\"quoted\"", "a\t\"b\"\nc"}) {
        SCOPED_TRACE(cell);
        fill(1, 1, cell);
        fill(2, 1, "");
        fill(3, 1, "stays");
        at(1, 1);
        run(Command::Copy);
        at(2, 1);
        run(Command::Paste);
        EXPECT_EQ(text(2, 1), cell);
        EXPECT_EQ(text(3, 1), "stays");
    }
}

TEST_F(BlockCopier, HasLineEndsBackInAColumnOfSeveralLines) {
    column(4).b是否编辑多行(true);
    fill(1, 4, "one\ntwo\n\nthree");
    choose(1, 4, 2, 5);
    const std::string content = copied();
    at(4, 4);
    EXPECT_TRUE(paste(content));
    EXPECT_EQ(text(4, 4), "one\ntwo\n\nthree");
    EXPECT_EQ(text(5, 4), "t24");
}

TEST_F(BlockCopier, CutsByCopyingAndThenEmptying) {
    choose(1, 1, 2, 2);
    desk.clipboard("");
    EXPECT_TRUE(run(Command::Cut));
    EXPECT_EQ(desk.clipboard(), "t11\tt12\nt21\tt22");
    EXPECT_EQ(texts(1, 1, 2, 2), "|/|");
    EXPECT_EQ(tags(1, 1, 2, 2), "|/|");
    EXPECT_EQ(report().command, Command::Cut);
    expectCounts(4, 0, 0, 0);
    undo();
    expectContent(1, 1);
    expectContent(2, 2);
}

TEST_F(BlockCopier, CutsOnlyWhatCanBeEmptied) {
    readOnly(2);
    lock([](std::int32_t row, std::int32_t col) { return row == 2 && col == 1; });
    grid.ColHidden(3, true);
    choose(1, 1, 2, 4);
    EXPECT_TRUE(run(Command::Cut));
    EXPECT_EQ(desk.clipboard(), "t11\tt12\tt14\nt21\tt22\tt24");
    EXPECT_EQ(texts(1, 1, 2, 4), "|t12|t13|/t21|t22|t23|");
    expectCounts(3, 0, 3, 0);
    EXPECT_FALSE(desk.tips().empty());
}
}  // namespace
}  // namespace kxVsGrid::testing

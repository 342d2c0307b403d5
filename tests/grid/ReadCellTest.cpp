// ReadCell and ReadSum: what they answer, the editor that ReadCell commits, the box they show.
#include <cstdint>
#include <limits>
#include <stdexcept>
#include <string>
#include <vector>

#include "kit/PlacedGrid.h"

namespace kxVsGrid::testing {
namespace {

class ReadCell : public PlacedGrid {};

TEST_F(ReadCell, AnswersTheTagUnlessAskedForTheText) {
    grid.SetCell(1, 2, "name", "code");
    EXPECT_EQ(grid.ReadCell(1, 2), "code");
    EXPECT_EQ(grid.ReadCell(1, 2, false), "code");
    EXPECT_EQ(grid.ReadCell(1, 2, true), "name");
}

TEST_F(ReadCell, AnswersTheTextAsTheColumnShowsIt) {
    grid.ColFormat(2, "#,##0.00");
    grid.SetCell(1, 2, "1234.5", "1234.5");
    EXPECT_EQ(grid.ReadCell(1, 2, true), "1,234.50");
    EXPECT_EQ(grid.ReadCell(1, 2), "1234.5");
    EXPECT_EQ(text(1, 2), "1234.5");
}

TEST_F(ReadCell, AnswersCaptionsAndRowNumbers) {
    grid.FormatString("行号|货号");
    grid.Rows(8);
    EXPECT_EQ(grid.ReadCell(0, 1, true), "货号");
    EXPECT_EQ(grid.ReadCell(1, 0, true), "1");
    EXPECT_EQ(grid.ReadCell(7, 0, true), "7");
    EXPECT_EQ(grid.ReadCell(7, 0), "");
}

TEST_F(ReadCell, AnswersNothingOutsideTheGrid) {
    constexpr auto Far = std::numeric_limits<std::int32_t>::max();
    constexpr auto Low = std::numeric_limits<std::int32_t>::min();
    grid.SetCell(5, 9, "last", "tag");
    for (const Cell cell : std::vector<Cell>{
             {6, 1}, {1, 10}, {6, 10}, {-1, 1}, {1, -1}, {Far, 1}, {1, Far}, {Low, 1}, {1, Low}}) {
        EXPECT_EQ(grid.ReadCell(cell.row, cell.col), "") << cell;
        EXPECT_EQ(grid.ReadCell(cell.row, cell.col, true), "") << cell;
    }
    EXPECT_EQ(boxes(), Nothing);
}

TEST_F(ReadCell, RaisesNothingWhileTheEditorIsHidden) {
    grid.SetCell(1, 2, "name", "code");
    heard();
    grid.ReadCell(1, 2, true);
    EXPECT_EQ(heard(), Nothing);
    EXPECT_EQ(desk.reports(), Nothing);
    EXPECT_FALSE(grid.bIsDirty());
}

TEST_F(ReadCell, CommitsTheOpenEditorFirst) {
    typeInto(1, 1, "typed");
    grid.TextTag("code");
    EXPECT_EQ(grid.ReadCell(1, 1, true), "typed");
    EXPECT_EQ(heard(), changed(1, 1) + changed(1, 1) + edited(1, 1));
    EXPECT_EQ(grid.ReadCell(1, 1), "code");
    EXPECT_FALSE(desk.editor().visible);
    EXPECT_TRUE(grid.bIsDirty());
}

TEST_F(ReadCell, CommitsTheOpenEditorAlsoForACellOutsideTheGrid) {
    typeInto(1, 1, "typed");
    EXPECT_EQ(grid.ReadCell(6, 1, true), "");
    EXPECT_EQ(heard(), changed(1, 1) + edited(1, 1));
}

TEST_F(ReadCell, InAfterEditDoesNotCommitAgain) {
    std::string seen;
    grid.AfterEdit.connect([&](std::int32_t row, std::int32_t col) { seen = grid.ReadCell(row, col, true); });
    typeInto(1, 1, "typed");
    EXPECT_TRUE(grid.IsValid());
    EXPECT_EQ(seen, "typed");
    EXPECT_EQ(heard(), changed(1, 1) + edited(1, 1));
}

TEST_F(ReadCell, LeavesARefusedTextAlone) {
    refusesCodes(1);
    typeInto(1, 1, "X9");
    EXPECT_FALSE(grid.ValidTextData());
    heard();
    desk.clear();
    EXPECT_EQ(grid.ReadCell(1, 1, true), "");
    EXPECT_EQ(heard(), Nothing);
    EXPECT_EQ(boxes(), Nothing);
    EXPECT_EQ(desk.editor().text, "X9");
}

TEST_F(ReadCell, ShowsTheErrorOfItsCommitAndAnswersNothing) {
    grid.SetCell(2, 2, "text", "tag");
    auto failing = grid.AfterEdit.connect(Boom());
    typeInto(1, 1, "typed");
    EXPECT_EQ(grid.ReadCell(2, 2, true), "");
    EXPECT_EQ(boxes(), Lines{"错误：|16|CellErrorboom"});
    failing.disconnect();
    desk.clear();
    EXPECT_EQ(grid.ReadCell(2, 2, true), "text");
    EXPECT_EQ(boxes(), Nothing);
}

TEST_F(ReadCell, ShowsTheErrorOfATextThatCannotBeComputed) {
    vs().ComputedText(2, 2, []() -> std::string { throw std::runtime_error("boom"); });
    EXPECT_EQ(grid.ReadCell(2, 2, true), "");
    EXPECT_EQ(boxes(), Lines{"错误：|16|CellErrorboom"});
    desk.clear();
    grid.SetCell(2, 2, "text");
    desk.clear();
    EXPECT_EQ(grid.ReadCell(2, 2, true), "text");
    EXPECT_EQ(boxes(), Nothing);
}

class ReadSum : public PlacedGrid {};

TEST_F(ReadSum, AnswersTheTotalAsItIsShown) {
    summed(2);
    grid.ColFormat(2, "#,##0.00");
    setUp();
    grid.SetCell(1, 2, "1234.5");
    EXPECT_EQ(grid.ReadSum(2), "1,234.50");
}

TEST_F(ReadSum, AnswersTheCaptionOfTheTotalRow) {
    setUp();
    EXPECT_EQ(grid.ReadSum(1), "合计");
    EXPECT_EQ(grid.ReadSum(0), "");
    EXPECT_EQ(grid.ReadSum(2), "");
}

TEST_F(ReadSum, AnswersNothingOutsideTheGrid) {
    setUp();
    EXPECT_EQ(grid.ReadSum(10), "");
    EXPECT_EQ(grid.ReadSum(-1), "");
    EXPECT_EQ(grid.ReadSum(std::numeric_limits<std::int32_t>::max()), "");
    EXPECT_EQ(boxes(), Nothing);
}

TEST_F(ReadSum, AnswersNothingBeforeAnySetUp) {
    for (std::int32_t col = 0; col < grid.Cols(); ++col) EXPECT_EQ(grid.ReadSum(col), "");
    EXPECT_EQ(boxes(), Nothing);
}

TEST_F(ReadSum, AnswersNothingWhenTheTotalRowHasOnlyFixedRows) {
    setUp();
    sum().FixedRows(1);
    EXPECT_EQ(grid.ReadSum(1), "");
    EXPECT_EQ(boxes(), Nothing);
    sum().FixedRows(0);
    EXPECT_EQ(grid.ReadSum(1), "合计");
}

TEST_F(ReadSum, AnswersWhatTheHostHasWrittenThere) {
    setUp();
    sum().Text(0, 4, "备注");
    EXPECT_EQ(grid.ReadSum(4), "备注");
}

TEST_F(ReadSum, CommitsNothing) {
    setUp();
    typeInto(1, 1, "typed");
    grid.ReadSum(1);
    EXPECT_EQ(heard(), Nothing);
    EXPECT_TRUE(desk.editor().visible);
}

TEST_F(ReadSum, ShowsTheErrorAndAnswersNothing) {
    setUp();
    sum().ComputedText(0, 3, []() -> std::string { throw std::runtime_error("boom"); });
    EXPECT_EQ(grid.ReadSum(3), "");
    EXPECT_EQ(boxes(), Lines{"错误：|16|CellErrorboom"});
    EXPECT_EQ(grid.ReadSum(1), "合计");
}
class RawText : public PlacedGrid {};

TEST_F(RawText, IsTheTextBehindTheFormat) {
    grid.ColFormat(2, "#,##0.00");
    grid.SetCell(1, 2, "1234.5", "tag");
    EXPECT_EQ(grid.ReadCell(1, 2, true), "1,234.50");
    EXPECT_EQ(grid.RawText(1, 2), "1234.5");
}

TEST_F(RawText, CommitsWhatIsBeingTyped) {
    typeInto(1, 1, "typed");
    EXPECT_EQ(grid.RawText(1, 1), "typed");
    EXPECT_FALSE(desk.editor().visible);
    EXPECT_EQ(named(heard(), "AfterEdit"), edited(1, 1));
}

TEST_F(RawText, IsEmptyOutsideTheGrid) {
    EXPECT_EQ(grid.RawText(-1, 1), "");
    EXPECT_EQ(grid.RawText(1, grid.Cols()), "");
    EXPECT_EQ(grid.RawText(grid.Rows(), 1), "");
    EXPECT_EQ(boxes(), Nothing);
}

TEST_F(RawText, ShowsTheErrorAndAnswersNothing) {
    vs().ComputedText(1, 3, []() -> std::string { throw std::runtime_error("boom"); });
    EXPECT_EQ(grid.RawText(1, 3), "");
    EXPECT_EQ(boxes(), Lines{"错误：|16|CellErrorboom"});
}
}  // namespace
}  // namespace kxVsGrid::testing

// What a pasted text has to pass before it stands in a cell, and what a refused one leaves.
#include <optional>
#include <string>
#include <tuple>
#include <vector>

#include "clerk/BlockTest.h"

namespace kxVsGrid::testing {
namespace {

/// Pastes beside a cell of a plain column, so that it is always a block.
class CheckedPaster : public BlockTest {
  protected:
    CheckedPaster() { column(2).iType(flexDTDouble); }
    /// What the cell of a column holds when `typed` has been pasted into it beside another cell.
    std::string after(std::int32_t col, const std::string& typed) {
        at(2, col);
        paste(quoted(typed) + "\nbelow");
        return text(2, col);
    }
    static std::string quoted(const std::string& text) {
        if (text.find_first_of("\t\r\n\"") == std::string::npos) return text;
        std::string all = "\"";
        for (const char c : text) all += c == '"' ? "\"\"" : std::string(1, c);
        return all + '"';
    }
    /// One refused cell with its reason in mark and report, and no box.
    void expectRefused(std::int32_t row, std::int32_t col, std::string_view typed) {
        ASSERT_FALSE(reports.empty());
        const PasteReport last = report();
        const PasteReport::Refusal* found = nullptr;
        for (const auto& refusal : last.refusals)
            if (refusal.row == grid.Grid().IdOf(row) && refusal.col == col) found = &refusal;
        ASSERT_NE(found, nullptr) << typed;
        EXPECT_EQ(found->cells, 1);
        EXPECT_EQ(found->text, typed);
        EXPECT_NE(found->reason, "");
        ASSERT_TRUE(problemAt(row, col)) << typed;
        EXPECT_EQ(grid.Mark(row, col)->text, found->reason);
        EXPECT_TRUE(desk.messages().empty());
        EXPECT_FALSE(open());
    }
};

TEST_F(CheckedPaster, HasExpressionsEvaluatedInNumberColumns) {
    EXPECT_EQ(after(2, "12*3"), "36");
    EXPECT_EQ(after(2, " 7 "), "7");
    EXPECT_EQ(after(2, "-2.50"), "-2.5");
    EXPECT_EQ(after(2, "0"), "0");
    EXPECT_EQ(after(2, ""), "");
}

TEST_F(CheckedPaster, IsRefusedADateInANumberColumnThoughItWouldBeAnExpression) {
    fill(2, 2, "5");
    for (const char* date : {"2026/12/5", "2026-12-05", "2026-13-45", "1999/1/1"}) {
        EXPECT_EQ(after(2, date), "5") << date;
        expectRefused(2, 2, date);
        EXPECT_EQ(grid.Mark(2, 2)->text, "是日期，不是数字。");
    }
    EXPECT_EQ(after(2, "2026-12"), "2014");
    EXPECT_EQ(after(2, "2026-12/5"), "2023.6");
    EXPECT_EQ(after(2, "26-12-5"), "9");
    EXPECT_EQ(after(2, "12026-12-5"), "12009");
    EXPECT_EQ(after(1, "2026-12-05"), "2026-12-05");
    at(2, 2);
    desk.type("2026-12-5").press(Key::Enter);
    EXPECT_EQ(text(2, 2), "2009");
}

TEST_F(CheckedPaster, IsRefusedWhatIsNoExpressionAndKeepsTheNumberAndItsTag) {
    fill(2, 2, "5", "five");
    EXPECT_EQ(after(2, "abc"), "5");
    EXPECT_EQ(tag(2, 2), "five");
    EXPECT_EQ(text(3, 2), "") << "'below' is no number either";
    expectCounts(0, 0, 0, 2);
    expectRefused(2, 2, "abc");
    expectRefused(3, 2, "below");
}

TEST_F(CheckedPaster, HasGroupsReadWhereTheFormatGroups) {
    grid.ColFormat(2, "#,##0.00");
    EXPECT_EQ(after(2, "1,234.5"), "1234.5");
    EXPECT_EQ(after(2, "1,234,567"), "1234567");
    EXPECT_EQ(after(2, "12,34"), "1234567");
    expectRefused(2, 2, "12,34");
}

TEST_F(CheckedPaster, IsRefusedGroupsElsewhere) {
    EXPECT_EQ(after(2, "1,234.5"), "");
    expectRefused(2, 2, "1,234.5");
}

TEST_F(CheckedPaster, HasTextsTrimmedInTextColumns) {
    EXPECT_EQ(after(1, "  a b  "), "a b");
    EXPECT_EQ(after(1, "   "), "");
}

TEST_F(CheckedPaster, HasBooleansTakenInTheirForms) {
    typed(3, flexDTBoolean);
    const std::vector<std::pair<std::string, std::string>> Forms{{"-1", "-1"}, {"1", "-1"}, {"True", "-1"},
                                                                 {"是", "-1"}, {"0", "0"},  {"False", "0"},
                                                                 {"否", "0"},  {"", ""}};
    for (const auto& [given, stored] : Forms) {
        fill(2, 3, stored == "0" ? "-1" : "0");
        EXPECT_EQ(after(3, given), stored) << given;
    }
    for (const char* given : {"2", "yes", "x", "-1x"}) {
        fill(2, 3, "-1");
        EXPECT_EQ(after(3, given), "-1") << given;
        expectRefused(2, 3, given);
    }
}

TEST_F(CheckedPaster, HasCharactersCountedNotBytes) {
    column(1).iLimitLength(3);
    EXPECT_EQ(after(1, "货号甲"), "货号甲");
    EXPECT_EQ(after(1, "abcd"), "货号甲");
    expectRefused(2, 1, "abcd");
    EXPECT_TRUE(problemAt(3, 1)) << "'below' is too long as well";
}

TEST_F(CheckedPaster, HasBlanksForLineEndsInColumnsOfOneLine) {
    EXPECT_EQ(after(1, "a\nb\r\nc"), "a b c");
    column(1).b是否编辑多行(true);
    EXPECT_EQ(after(1, "a\nb"), "a\nb");
}

TEST_F(CheckedPaster, IsHeldToTheRulesOfColumns) {
    grid.Options(2).largest(100);
    grid.Options(2).mostDecimals(1);
    EXPECT_EQ(after(2, "99.5"), "99.5");
    EXPECT_EQ(after(2, "101"), "99.5");
    expectRefused(2, 2, "101");
    EXPECT_EQ(after(2, "1.25"), "99.5");
    expectRefused(2, 2, "1.25");
    EXPECT_EQ(after(2, "50*2"), "100");
    EXPECT_FALSE(problemAt(2, 2)) << "what was written ends the problem";
}

TEST_F(CheckedPaster, HearsTheHostsRuleInItsOwnWords) {
    grid.Options(1).accepts([](std::int32_t, std::string_view text) {
        return text == "no" ? std::string("why not") : std::string();
    });
    EXPECT_EQ(after(1, "yes"), "yes");
    EXPECT_EQ(after(1, "no"), "yes");
    expectRefused(2, 1, "no");
    EXPECT_EQ(grid.Mark(2, 1)->text, "why not");
}

TEST_F(CheckedPaster, RepeatsNothingWhereTextsMayNotRepeat) {
    grid.Options(1).mayRepeat(false);
    at(1, 1);
    paste("a\nb\na");
    EXPECT_EQ(texts(1, 1, 3, 1), "a/b/");
    expectRefused(3, 1, "a");
}

TEST_F(CheckedPaster, HasDatesBroughtIntoTheColumnsForm) {
    column(3).i有效性判断(1);
    column(3).i字段有效性判断类型(ij日期型);
    EXPECT_EQ(after(3, "2011/2/3"), "2011-02-03");
    EXPECT_EQ(tag(2, 3), "2011-02-03");
    EXPECT_EQ(after(3, "2011-2-30"), "2011-02-03");
    expectRefused(2, 3, "2011-2-30");
}

TEST_F(CheckedPaster, IsNotCheckedWhereTheColumnDoesNotAskForIt) {
    column(3).i字段有效性判断类型(ij编码型);
    EXPECT_EQ(after(3, "nobody knows it"), "nobody knows it");
    EXPECT_EQ(named(heard(), "TxtValidBmS"), Lines());
}

TEST_F(CheckedPaster, HasTheNameOfACodeForItsTag) {
    takesCodes(1);
    knowCodes();
    at(2, 1);
    paste("A1\nA2");
    EXPECT_EQ(texts(2, 1, 3, 1), "A1/A2");
    EXPECT_EQ(tags(2, 1, 3, 1), "货 A1/货 A2");
    column(1).i帮助返回值显示类型(iText记Name);
    at(2, 1);
    paste("A3\nA4");
    EXPECT_EQ(texts(2, 1, 3, 1), "货 A3/货 A4");
    EXPECT_EQ(tags(2, 1, 3, 1), "A3/A4");
}

TEST_F(CheckedPaster, KeepsTheCellOfARefusedCode) {
    takesCodes(1);
    knowCodes();
    column(1).s错误提示信息("no such code");
    content(2);
    at(2, 1);
    paste("B1\nA2");
    EXPECT_EQ(texts(2, 1, 3, 1), "t21/A2");
    EXPECT_EQ(tags(2, 1, 3, 1), "d21/货 A2");
    expectCounts(1, 0, 0, 1);
    expectRefused(2, 1, "B1");
    EXPECT_EQ(grid.Mark(2, 1)->text, "no such code");
    EXPECT_FALSE(desk.tips().empty());
}

TEST_F(CheckedPaster, HasEqualCodesAskedOnceInOnePasteAndColumn) {
    takesCodes(1);
    takesCodes(3);
    knowCodes();
    log.clear();
    at(1, 1);
    paste("A1\tx\tA1\nA1\ty\tA1\nB1\tz\tA2\nB1\tw\tA1");
    EXPECT_EQ(named(heard(), "TxtValidBmS").size(), 4U) << "A1 and B1 there, A1 and A2 here";
    EXPECT_EQ(texts(1, 1, 4, 3), "A1||A1/A1||A1/||A2/||A1") << "the middle column takes numbers";
    expectCounts(6, 0, 0, 6);
    at(4, 1);
    paste("A1\nA1");
    EXPECT_EQ(named(heard(), "TxtValidBmS").size(), 1U) << "another paste asks again";
}

TEST_F(CheckedPaster, IsNotAskedForACodeThatTheCellHasAlready) {
    takesCodes(1);
    fill(2, 1, "old", "tag");
    fill(3, 1, "old", "tag");
    at(2, 1);
    paste("old\nold");
    EXPECT_EQ(heard(), Lines());
    expectCounts(0, 2, 0, 0);
}

TEST_F(CheckedPaster, EmptiesTheTagWithTheText) {
    content(2);
    content(3);
    at(2, 3);
    paste("\t\n\tx");
    EXPECT_EQ(texts(2, 3, 3, 4), "|/|x");
    EXPECT_EQ(tags(2, 3, 3, 4), "|/|d34");
    expectCounts(4, 0, 0, 0);
}

TEST_F(CheckedPaster, TakesThePairOfTheCheckForAnEmptyCodeToo) {
    takesCodes(1);
    knowCodes([](const std::string& code) { return std::optional("name of " + code); });
    content(2);
    content(3);
    at(2, 1);
    paste("\n\nA1");
    EXPECT_EQ(texts(2, 1, 4, 1), "//A1");
    EXPECT_EQ(tags(2, 1, 4, 1), "name of /name of /name of A1");
}

TEST_F(CheckedPaster, TakesThePairOfTheCheckForAClearedCodeToo) {
    takesCodes(1);
    knowCodes([](const std::string& code) { return std::optional("name of " + code); });
    content(2);
    at(2, 1);
    run(Command::ClearCells);
    EXPECT_EQ(text(2, 1), "");
    EXPECT_EQ(tag(2, 1), "name of ");
}

TEST_F(CheckedPaster, KeepsItsZeros) {
    at(2, 2);
    paste("0\n0.0");
    EXPECT_EQ(texts(2, 2, 3, 2), "0/0");
    expectCounts(2, 0, 0, 0);
}

TEST_F(CheckedPaster, ListsAThousandRefusalsAndCountsThemAll) {
    rows(1'202);
    std::string lines;
    for (int i = 0; i < 1'100; ++i) lines += "x\n";
    at(1, 2);
    paste(lines);
    expectCounts(0, 0, 0, 1'100);
    EXPECT_EQ(report().refusals.size(), PasteReport::MostListed);
}

TEST_F(CheckedPaster, EndsTheProblemOfACellThatIsWrittenAfterAll) {
    EXPECT_EQ(after(2, "x"), "");
    EXPECT_TRUE(problemAt(2, 2));
    EXPECT_EQ(after(2, "5"), "5");
    EXPECT_FALSE(problemAt(2, 2));
}

/// A single value on one closed cell, which the editor takes over when it is refused.
class SingleValuePaster : public CheckedPaster {};

TEST_F(SingleValuePaster, WritesWhatIsAccepted) {
    at(2, 2);
    EXPECT_TRUE(paste("2+3"));
    EXPECT_EQ(text(2, 2), "5");
    EXPECT_FALSE(open());
    EXPECT_EQ(heard(), changed(2, 2) + edited(2, 2));
    expectCounts(1, 0, 0, 0);
}

TEST_F(SingleValuePaster, FindsTheRefusedTextInTheEditor) {
    fill(2, 2, "5", "five");
    at(2, 2);
    paste("abc");
    ASSERT_TRUE(open());
    EXPECT_EQ(desk.editor().text, "abc");
    EXPECT_EQ(desk.focusOwner(), FocusPlace::Editor);
    EXPECT_EQ(text(2, 2), "5");
    EXPECT_EQ(grid.Mark(2, 2), nullptr);
    EXPECT_TRUE(desk.messages().empty());
    EXPECT_TRUE(reports.empty());
    desk.press(Key::Escape);
    EXPECT_EQ(text(2, 2), "5");
    EXPECT_EQ(tag(2, 2), "five");
    EXPECT_FALSE(grid.bIsDirty());
}

TEST_F(SingleValuePaster, IsToldAtTheEditorWhyTheValueWasRefused) {
    at(2, 2);
    paste("2026-13-45");
    ASSERT_TRUE(open());
    EXPECT_EQ(desk.editor().text, "2026-13-45");
    ASSERT_FALSE(desk.tips().empty());
    EXPECT_EQ(desk.tips().back(), "是日期，不是数字。");
}

TEST_F(SingleValuePaster, HasNothingCutOffByTheLimitOfTheColumn) {
    column(1).iLimitLength(3);
    fill(2, 1, "old", "tag");
    at(2, 1);
    EXPECT_TRUE(paste("数量单价"));
    EXPECT_FALSE(open());
    EXPECT_EQ(text(2, 1), "old");
    EXPECT_EQ(tag(2, 1), "tag");
    EXPECT_EQ(desk.tips(), std::vector<std::string>{"最多 3 个字。"});
    EXPECT_EQ(grid.Mark(2, 1), nullptr);
    EXPECT_FALSE(grid.bIsDirty());
    paste("数量单");
    EXPECT_EQ(text(2, 1), "数量单");
}

TEST_F(SingleValuePaster, FindsARefusedCodeInTheEditor) {
    takesCodes(1);
    at(2, 1);
    paste("B1");
    ASSERT_TRUE(open());
    EXPECT_EQ(desk.editor().text, "B1");
    EXPECT_TRUE(desk.messages().empty());
    EXPECT_EQ(grid.Mark(2, 1), nullptr);
}

TEST_F(SingleValuePaster, DoesNothingOnACellThatCannotBeEdited) {
    readOnly(3);
    lock([](std::int32_t row, std::int32_t col) { return row == 2 && col == 4; });
    for (const int col : {3, 4}) {
        at(2, col);
        const Lines before = wholeOf(grid);
        EXPECT_FALSE(paste("x"));
        EXPECT_FALSE(open());
        EXPECT_EQ(wholeOf(grid), before);
        EXPECT_EQ(named(heard(), "CellChanged"), Lines());
    }
}

TEST_F(SingleValuePaster, LeavesABooleanThatRefusesAsItIs) {
    typed(3, flexDTBoolean);
    fill(2, 3, "-1");
    at(2, 3);
    paste("perhaps");
    EXPECT_FALSE(open());
    EXPECT_EQ(text(2, 3), "-1");
    EXPECT_TRUE(desk.messages().empty());
    EXPECT_EQ(desk.tips(), std::vector<std::string>{"只能是 是 或 否。"});
}

TEST_F(SingleValuePaster, IsMarkedWhereSeveralCellsAreSelected) {
    choose(2, 2, 3, 2);
    paste("abc");
    EXPECT_FALSE(open());
    expectRefused(2, 2, "abc");
    expectRefused(3, 2, "abc");
}

TEST_F(SingleValuePaster, TakesALineEndAtTheEndForNoSecondValue) {
    at(2, 2);
    paste("abc\r\n");
    ASSERT_TRUE(open());
    EXPECT_EQ(desk.editor().text, "abc");
}
}  // namespace
}  // namespace kxVsGrid::testing

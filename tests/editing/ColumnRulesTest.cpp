// The rules of a column judge what a clerk enters, before the field check, and refuse it in its way.
#include <limits>
#include <stdexcept>

#include "kit/ClerkTest.h"
#include "kit/Life.h"
#include "kit/PrintTo.h"

namespace kxVsGrid::testing {
namespace {

class ColumnRules : public ClerkTest {
  protected:
    ColumnOptions& rules(std::int32_t col) { return grid.Options(col); }
    /// Types a text over the cell and presses Enter; answers what the clerk is told, empty for nothing.
    std::string enter(std::int32_t row, std::int32_t col, std::string_view entered) {
        desk.press(Key::Escape).clear();
        at(row, col);
        desk.press(Key::Space);
        entered.empty() ? desk.press(Key::Back) : desk.type(entered);
        desk.press(Key::Enter);
        if (desk.messages().empty()) return {};
        EXPECT_EQ(desk.messages().size(), 1U);
        return desk.messages().front().text;
    }
};

TEST_F(ColumnRules, AreNoneAtFirst) {
    const ColumnOptions& none = rules(2);
    EXPECT_EQ(none.mostDecimals(), std::nullopt);
    EXPECT_EQ(none.smallest(), std::nullopt);
    EXPECT_EQ(none.largest(), std::nullopt);
    EXPECT_EQ(none.pattern(), "");
    EXPECT_TRUE(none.mayRepeat());
    EXPECT_FALSE(none.accepts());
    EXPECT_EQ(enter(1, 2, "x"), "");
    EXPECT_EQ(enter(2, 2, "x"), "");
}

TEST_F(ColumnRules, AreThoseOfTheColumnsThatThereAre) {
    EXPECT_NO_THROW(rules(0));
    EXPECT_NO_THROW(rules(5));
    EXPECT_THROW(rules(6), GridError);
    EXPECT_THROW(rules(-1), GridError);
}

TEST_F(ColumnRules, LiveAsLongAsTheirColumn) {
    rules(2).smallest(0);
    rules(4).smallest(0);
    grid.Cols(9);
    EXPECT_EQ(rules(4).smallest(), 0);
    grid.Cols(4);
    grid.Cols(6);
    EXPECT_EQ(rules(2).smallest(), 0);
    EXPECT_EQ(rules(4).smallest(), std::nullopt);
}

TEST_F(ColumnRules, LimitTheDecimals) {
    typed(2, flexDTDouble);
    rules(2).mostDecimals(2);
    EXPECT_EQ(enter(1, 2, "1.234"), "小数最多 2 位。");
    EXPECT_EQ(text(1, 2), "");
    EXPECT_EQ(enter(1, 2, "1.23"), "");
    EXPECT_EQ(text(1, 2), "1.23");
    EXPECT_EQ(enter(2, 2, "1/3"), "小数最多 2 位。") << "the value counts, not what was typed";
    EXPECT_EQ(enter(2, 2, "0.1+0.2"), "");
    EXPECT_EQ(enter(3, 2, "1.500"), "");
    rules(2).mostDecimals(0);
    EXPECT_EQ(enter(4, 2, "0.5"), "不能有小数。");
    EXPECT_EQ(enter(4, 2, "5"), "");
    EXPECT_THROW(rules(2).mostDecimals(-1), GridError);
    EXPECT_EQ(rules(2).mostDecimals(), 0);
}

TEST_F(ColumnRules, LimitTheNumber) {
    typed(2, flexDTDouble);
    rules(2).smallest(0);
    rules(2).largest(99.5);
    EXPECT_EQ(enter(1, 2, "-1"), "不能小于 0。");
    EXPECT_EQ(enter(1, 2, "100"), "不能大于 99.5。");
    EXPECT_EQ(enter(1, 2, "50*2"), "不能大于 99.5。");
    EXPECT_EQ(enter(1, 2, "0"), "");
    EXPECT_EQ(enter(1, 2, "99.5"), "");
    EXPECT_THROW(rules(2).smallest(std::numeric_limits<double>::quiet_NaN()), GridError);
    EXPECT_THROW(rules(2).largest(std::numeric_limits<double>::infinity()), GridError);
}

TEST_F(ColumnRules, JudgeNumbersInTextColumnsAndLeaveOtherTextsAlone) {
    typed(2, flexDTString);
    rules(2).smallest(10);
    EXPECT_EQ(enter(1, 2, "9"), "不能小于 10。");
    EXPECT_EQ(enter(1, 2, "A9"), "");
    EXPECT_EQ(enter(1, 2, "11"), "");
}

TEST_F(ColumnRules, MatchTheWholeText) {
    typed(2, flexDTString);
    rules(2).pattern("[A-Z]{2}\\d{3}");
    EXPECT_EQ(enter(1, 2, "AB12"), "不符合规定的格式。");
    EXPECT_EQ(enter(1, 2, "AB1234"), "不符合规定的格式。");
    EXPECT_EQ(enter(1, 2, "AB123"), "");
    EXPECT_EQ(enter(2, 2, " AB123 "), "") << "what is stored is trimmed";
    rules(2).pattern("");
    EXPECT_EQ(enter(3, 2, "?"), "");
}

TEST_F(ColumnRules, MatchChineseTextsByTheirCharacters) {
    rules(2).pattern("..");
    EXPECT_EQ(enter(1, 2, "螺栓"), "");
    EXPECT_EQ(enter(1, 2, "螺"), "不符合规定的格式。");
    rules(2).pattern("[一-龥]+库(甲|乙)?");
    EXPECT_EQ(enter(2, 2, "主库"), "");
    EXPECT_EQ(enter(2, 2, "分库乙"), "");
    EXPECT_EQ(enter(2, 2, "A库"), "不符合规定的格式。");
    rules(2).pattern(".");
    EXPECT_EQ(enter(3, 2, "𠮷"), "") << "beyond the first 65536 code points";
}

TEST_F(ColumnRules, TellTheHostOfABadPattern) {
    rules(2).pattern("a+");
    try {
        rules(2).pattern("[a");
        FAIL();
    } catch (const GridError& error) {
        EXPECT_NE(std::string(error.what()).find("[a"), std::string::npos) << error.what();
    }
    EXPECT_EQ(rules(2).pattern(), "a+");
    EXPECT_EQ(enter(1, 2, "aaa"), "");
    EXPECT_EQ(enter(1, 2, "b"), "不符合规定的格式。");
}

TEST_F(ColumnRules, MatchNoTextThatIsTooLong) {
    rules(2).pattern("(a|b)*");
    const std::string longest(ColumnOptions::LongestMatched, 'a');
    EXPECT_TRUE(rules(2).matches(longest));
    EXPECT_FALSE(rules(2).matches(longest + "a"));
}

TEST_F(ColumnRules, ForbidWhatAnotherRowHas) {
    rules(2).mayRepeat(false);
    EXPECT_EQ(enter(3, 2, "A1"), "");
    EXPECT_EQ(enter(5, 2, "A1"), "与第 3 行重复。");
    EXPECT_EQ(enter(1, 2, "A1"), "与第 3 行重复。");
    EXPECT_EQ(enter(1, 2, "A2"), "");
    EXPECT_EQ(enter(2, 3, "A1"), "") << "another column";
    EXPECT_EQ(enter(3, 2, "A1"), "") << "its own row";
    EXPECT_EQ(enter(3, 2, ""), "");
    EXPECT_EQ(enter(1, 2, ""), "") << "empty cells may repeat";
    EXPECT_EQ(enter(5, 2, "A1"), "");
}

TEST_F(ColumnRules, CompareStoredTexts) {
    typed(2, flexDTDouble);
    grid.ColFormat(2, "0.00");
    rules(2).mayRepeat(false);
    EXPECT_EQ(enter(1, 2, "6*7"), "");
    EXPECT_EQ(enter(2, 2, "42.0"), "与第 1 行重复。");
    grid.FixedRows(2);
    EXPECT_EQ(enter(2, 2, "42.0"), "") << "a header does not count";
}

TEST_F(ColumnRules, CompareTheCodeThatATextIsRewrittenAs) {
    knowCodes([](const std::string& typedCode) { return std::optional("货 " + typedCode.substr(0, 1)); });
    takesCodes(2);
    column(2).i帮助返回值显示类型(iText记Name);
    rules(2).mayRepeat(false);
    EXPECT_EQ(enter(1, 2, "A1"), "");
    EXPECT_EQ(text(1, 2), "货 A");
    EXPECT_EQ(enter(2, 2, "A2"), "与第 1 行重复。");
    EXPECT_EQ(desk.editor().text, "A2");
    EXPECT_EQ(text(2, 2), "");
}

TEST_F(ColumnRules, EndWithTheHostsOwn) {
    std::vector<std::string> asked;
    rules(2).mostDecimals(0);
    rules(2).accepts([&](std::int32_t row, std::string_view entered) {
        asked.push_back(std::to_string(row) + ":" + std::string(entered));
        return entered == "7" ? std::string("七不行。") : std::string();
    });
    typed(2, flexDTDouble);
    EXPECT_EQ(enter(1, 2, "3+4"), "七不行。");
    EXPECT_EQ(enter(1, 2, "0.5"), "不能有小数。");
    EXPECT_EQ(enter(2, 2, "8"), "");
    EXPECT_EQ(enter(2, 2, ""), "");
    EXPECT_EQ(asked, (std::vector<std::string>{"1:7", "2:8", "2:"}));
}

TEST_F(ColumnRules, LetEmptyTextsPassButForTheHostsOwn) {
    typed(2, flexDTDouble);
    ColumnOptions& all = rules(2);
    all.mostDecimals(0);
    all.smallest(5);
    all.largest(9);
    all.pattern("\\d");
    all.mayRepeat(false);
    EXPECT_EQ(enter(1, 2, "6"), "");
    EXPECT_EQ(enter(1, 2, ""), "");
    EXPECT_EQ(text(1, 2), "");
    all.accepts([](std::int32_t, std::string_view) { return std::string("不行。"); });
    fill(1, 2, "6");
    EXPECT_EQ(enter(1, 2, ""), "不行。");
    EXPECT_EQ(text(1, 2), "6");
}

TEST_F(ColumnRules, RefuseAsTheFieldCheckDoes) {
    rules(2).pattern("\\d+");
    fill(1, 2, "1", "tag");
    at(1, 2);
    desk.press(Key::Space).type("abc");
    heard();
    desk.press(Key::Enter);
    EXPECT_EQ(desk.messages(),
              (std::vector{MessageBox{"不符合规定的格式。", MessageBox::Information, "提示："}}));
    EXPECT_EQ(heard(), Lines{});
    EXPECT_EQ(text(1, 2), "1");
    EXPECT_EQ(tag(1, 2), "tag");
    EXPECT_TRUE(desk.editor().refused);
    EXPECT_EQ(desk.editor().text, "abc");
    EXPECT_EQ(desk.editor().selLength, 3U);
    EXPECT_EQ(desk.focusOwner(), FocusPlace::Editor);
    desk.press(Key::Enter).focusElsewhere().focusGrid();
    EXPECT_EQ(desk.messages().size(), 1U) << "locked until it is changed";
    desk.type("9").press(Key::Enter);
    EXPECT_EQ(text(1, 2), "9");
    EXPECT_EQ(desk.messages().size(), 1U);
}

TEST_F(ColumnRules, StandBeforeTheFieldCheck) {
    knowCodes();
    takesCodes(2);
    rules(2).pattern("A.");
    EXPECT_EQ(enter(1, 2, "B1"), "不符合规定的格式。");
    EXPECT_EQ(named(heard(), "TxtValidBmS"), Lines{}) << "the host is not asked";
    EXPECT_EQ(enter(1, 2, "A1"), "");
    EXPECT_EQ(tag(1, 2), "货 A1");
}

TEST_F(ColumnRules, DoNotJudgeTheTextThatTheCellHadOnEntry) {
    fill(1, 2, "old");
    rules(2).pattern("\\d+");
    rules(2).accepts([](std::int32_t, std::string_view) { return std::string("不行。"); });
    at(1, 2);
    desk.press(Key::Space).press(Key::Enter);
    EXPECT_TRUE(desk.messages().empty());
    EXPECT_EQ(current(), (Cell{1, 3}));
}

TEST_F(ColumnRules, LeaveARefusedExpressionToItself) {
    typed(2, flexDTDouble);
    rules(2).accepts([](std::int32_t, std::string_view) -> std::string {
        ADD_FAILURE() << "there is nothing to judge";
        return {};
    });
    fill(1, 2, "5");
    EXPECT_EQ(enter(1, 2, "1+"), "");
    EXPECT_EQ(text(1, 2), "");
    EXPECT_TRUE(desk.editor().refused);
}

TEST_F(ColumnRules, DoNotJudgeWhatCodeWrites) {
    rules(2).pattern("\\d+");
    grid.SetCell(1, 2, "abc");
    EXPECT_EQ(text(1, 2), "abc");
    EXPECT_TRUE(desk.messages().empty());
}

TEST_F(ColumnRules, JudgeWhatWasChosenInAHelp) {
    column(2).b是否提供帮助(true);
    column(2).i帮助类型(ih日期型);
    rules(2).pattern("2000.*");
    at(1, 2);
    desk.onDialog([](headless::CalendarDialog& dialog) {
        dialog.day(2011, 2, 3);
        dialog.Ok();
    });
    desk.press(Key::F2).press(Key::Enter);
    ASSERT_EQ(desk.messages().size(), 1U);
    EXPECT_EQ(desk.messages().front().text, "不符合规定的格式。");
    EXPECT_EQ(text(1, 2), "");
}

TEST_F(ColumnRules, JudgeTurnedOverCells) {
    typed(2, flexDTBoolean);
    rules(2).accepts([](std::int32_t row, std::string_view entered) {
        return row == 1 && entered == "-1" ? std::string("先填数量。") : std::string();
    });
    at(1, 2);
    desk.press(Key::Space);
    EXPECT_EQ(desk.messages(), (std::vector{MessageBox{"先填数量。", MessageBox::Information, "提示："}}));
    EXPECT_EQ(text(1, 2), "");
    EXPECT_EQ(heard(), Lines{});
    EXPECT_EQ(desk.focusOwner(), FocusPlace::Grid);
    at(2, 2);
    desk.press(Key::Space);
    EXPECT_EQ(text(2, 2), "-1");
    EXPECT_EQ(desk.messages().size(), 1U);
}

TEST_F(ColumnRules, MayGoElsewhere) {
    typed(2, flexDTBoolean);
    for (const std::int32_t col : {2, 3})
        rules(col).accepts([&](std::int32_t, std::string_view) {
            grid.Row(4);
            return std::string();
        });
    at(1, 2);
    desk.press(Key::Space);
    EXPECT_EQ(text(1, 2), "");
    EXPECT_EQ(text(4, 2), "");
    EXPECT_EQ(enter(1, 3, "x"), "");
    EXPECT_EQ(text(1, 3), "");
    EXPECT_FALSE(open());
}

TEST_F(ColumnRules, MayPutOtherRulesAsTheyAreAsked) {
    rules(2).accepts([this](std::int32_t, std::string_view) {
        rules(2).accepts({});
        grid.Cols(4);
        return std::string("不行。");
    });
    EXPECT_EQ(enter(1, 2, "x"), "不行。");
    desk.type("y").press(Key::Enter);
    EXPECT_EQ(text(1, 2), "y");
}

TEST_F(ColumnRules, MayFail) {
    rules(2).accepts([](std::int32_t, std::string_view) -> std::string { throw std::runtime_error("no"); });
    at(1, 2);
    desk.type("x");
    EXPECT_THROW(desk.press(Key::Enter), std::runtime_error);
    EXPECT_EQ(desk.editor().text, "x");
    EXPECT_EQ(text(1, 2), "");
    rules(2).accepts({});
    desk.press(Key::Enter);
    EXPECT_EQ(text(1, 2), "x");
}

TEST(ControlThatGoesAsARuleIsAsked, LeavesTheDeskInOrder) {
    for (const auto type : {flexDTEmpty, flexDTBoolean}) {
        headless::Desk desk;
        kxGrid& stays = desk.place();
        kxGrid& goes = desk.place();
        goes.VsCtrl(1)->iType(type);
        goes.ReDraw(true);
        desk.focusGrid();
        bool gone = false;
        goes.Options(1).accepts([&](std::int32_t, std::string_view) {
            gone = true;
            desk.remove(goes);
            return std::string("不行。");
        });
        if (type != flexDTBoolean) desk.type("x");
        const bool opened = desk.editor().visible;
        opened ? goes.input()->key({static_cast<std::int16_t>(Key::Enter), 0, "\r"})
               : goes.input()->key({static_cast<std::int16_t>(Key::Space), 0, " "});
        EXPECT_TRUE(gone);
        EXPECT_TRUE(desk.messages().empty());
        kit::expectKeyedAsEver(desk, stays);
    }
}
}  // namespace
}  // namespace kxVsGrid::testing

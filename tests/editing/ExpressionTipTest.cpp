// A refused expression says why and where, in a tip at the editor.
#include "kit/ClerkTest.h"

namespace kxVsGrid::testing {
namespace {

constexpr std::int32_t Counted = 2;

class ExpressionTip : public ClerkTest {
  protected:
    ExpressionTip() { typed(Counted, flexDTDouble); }

    std::string tipOf(std::string_view typedText) {
        openAt(2, Counted);
        desk.type(typedText).press(Key::Enter);
        EXPECT_TRUE(open()) << typedText;
        std::string tip = desk.editor().tip;
        desk.press(Key::Escape);
        return tip;
    }
};

TEST_F(ExpressionTip, NamesThePlaceAndTheReason) {
    const std::pair<const char*, const char*> tips[] = {
        {"1+*2", "第 3 个字符：此处应为数字"},      {"1+", "第 3 个字符：此处应为数字"},
        {"(1+)", "第 4 个字符：此处应为数字"},      {"()", "第 2 个字符：此处应为数字"},
        {"2*(3+4", "第 3 个字符：括号不配对"},      {"3+4)", "第 4 个字符：括号不配对"},
        {"1.2.3", "第 4 个字符：多余的小数点"},     {"12a", "第 3 个字符：无法识别“a”"},
        {"1+②", "第 3 个字符：无法识别“②”"},        {"货1", "第 1 个字符：无法识别“货”"},
        {"1\u00a0", "第 2 个字符：无法识别的字符"}, {"1+8/0+2", "第 5 个字符：除数为零"},
        {"8/(2-2)*3", "第 3 个字符：除数为零"},     {"0^-1", "第 4 个字符：除数为零"},
        {"(1-3)^0.5", "第 7 个字符：负数不能开方"}, {"10^400", "第 4 个字符：数值太大"},
    };
    for (const auto& [text, tip] : tips) EXPECT_EQ(tipOf(text), tip) << text;
    EXPECT_EQ(desk.messages(), std::vector<MessageBox>{});
}

TEST_F(ExpressionTip, CountsTheCharactersAsTheClerkSeesThem) {
    EXPECT_EQ(tipOf("  1 + * 2"), "第 7 个字符：此处应为数字");
    EXPECT_EQ(tipOf(" 1+ "), "第 4 个字符：此处应为数字");
    grid.ColFormat(Counted, "#,##0.00");
    EXPECT_EQ(tipOf(" 1+1,234"), "第 5 个字符：无法识别“,”") << "only a number by itself may be grouped";
}

TEST_F(ExpressionTip, NamesTheSeparatorThatStandsWrong) {
    grid.ColFormat(Counted, "#,##0.00");
    const std::string reason = " 个字符：千位逗号的位置不对";
    const std::pair<const char*, const char*> places[] = {
        {"1,5", "2"},  {"1,23", "2"},      {"1,2345", "2"},   {"1,234,5", "6"}, {"1,,234", "2"},
        {"1,", "2"},   {"1,234.5,6", "8"}, {"1234,567", "5"}, {",123", "1"},    {"-,123", "2"},
        {"-1,5", "3"}, {"  1,5", "4"},     {"1,5%", "2"},     {"，", "1"},      {"１，２３４，５", "6"},
    };
    for (const auto& [text, place] : places)
        EXPECT_EQ(tipOf(text), "第 " + std::string(place) + reason) << text;
    EXPECT_EQ(tipOf("1,234.5.6"), "第 8 个字符：多余的小数点");
    EXPECT_EQ(tipOf("1,234a"), "第 2 个字符：无法识别“,”") << "no number by itself";
    grid.ColFormat(Counted, "0.00");
    EXPECT_EQ(tipOf("1,234"), "第 2 个字符：无法识别“,”") << "this column has none";
}

TEST_F(ExpressionTip, NamesThePercentSignThatHasNoUse) {
    EXPECT_EQ(tipOf("12%"), "第 3 个字符：此栏不用百分号");
    EXPECT_EQ(tipOf("1+12％"), "第 5 个字符：此栏不用百分号");
    grid.ColFormat(Counted, "#,##0");
    EXPECT_EQ(tipOf("1,234%"), "第 6 个字符：此栏不用百分号");
    grid.ColFormat(Counted, "0.0%");
    EXPECT_EQ(tipOf("1+12%"), "第 5 个字符：百分号只能写在单个数的末尾");
    EXPECT_EQ(tipOf("12%%"), "第 3 个字符：百分号只能写在单个数的末尾");
    EXPECT_EQ(tipOf("%"), "第 1 个字符：百分号只能写在单个数的末尾");
    EXPECT_EQ(tipOf("1.2.3%"), "第 4 个字符：多余的小数点");
    EXPECT_EQ(tipOf("1,234%"), "第 2 个字符：无法识别“,”");
}

TEST_F(ExpressionTip, IsShownOnceAtTheEditorWhichKeepsTheKeyboard) {
    openAt(2, Counted);
    desk.type("1+*2").press(Key::Enter).press(Key::Enter).press(Key::Down);
    EXPECT_EQ(desk.tips(), (Lines{"第 3 个字符：此处应为数字"}));
    EXPECT_EQ(desk.focusOwner(), FocusPlace::Editor);
    EXPECT_TRUE(desk.editor().refused);
    EXPECT_EQ(desk.editor().text, "1+*2");
    EXPECT_EQ(grid.editorView().tip, desk.editor().tip);
}

TEST_F(ExpressionTip, GoesWhenTheTextChanges) {
    openAt(2, Counted);
    desk.type("1+*2").press(Key::Enter).press(Key::Back);
    EXPECT_EQ(desk.editor().tip, "");
    desk.type("2").press(Key::Tab);
    EXPECT_EQ(desk.tips().size(), 2u) << "refused again";
    grid.Text("5");
    EXPECT_EQ(desk.editor().tip, "");
}

TEST_F(ExpressionTip, StaysWhileOnlyTheCaretMoves) {
    openAt(2, Counted);
    desk.type("1+*2").press(Key::Enter).press(Key::Home);
    EXPECT_NE(desk.editor().tip, "");
}

TEST_F(ExpressionTip, GoesWhenTheEditorCloses) {
    openAt(2, Counted);
    desk.type("1+").press(Key::Enter).press(Key::Escape);
    EXPECT_EQ(grid.editorView().tip, "");
    desk.press(Key::Space);
    EXPECT_EQ(desk.editor().tip, "");
    desk.type("1+").press(Key::Enter);
    grid.Grid().Select(4, 1);
    EXPECT_EQ(grid.editorView().tip, "");
}

TEST_F(ExpressionTip, GoesWhenTheKeyboardLeaves) {
    openAt(2, Counted);
    desk.type("1+").press(Key::Enter).focusElsewhere();
    EXPECT_TRUE(open());
    EXPECT_EQ(desk.editor().tip, "");
    desk.focusGrid();
    EXPECT_EQ(desk.focusOwner(), FocusPlace::Editor);
    desk.press(Key::Enter);
    EXPECT_NE(desk.editor().tip, "");
}

TEST_F(ExpressionTip, IsShownWhenAPressElsewhereIsHeldBack) {
    openAt(2, Counted);
    desk.type("1+").click(4, 1);
    EXPECT_EQ(desk.editor().tip, "第 3 个字符：此处应为数字");
    EXPECT_EQ(desk.focusOwner(), FocusPlace::Editor);
}

TEST_F(ExpressionTip, IsNotShownForTextsThatACheckRefuses) {
    column(3).i有效性判断(1);
    column(3).i字段有效性判断类型(ij编码型);
    openAt(2, 3);
    desk.type("x9").press(Key::Enter);
    EXPECT_TRUE(desk.editor().refused);
    EXPECT_EQ(desk.tips(), Lines{});
}
}  // namespace
}  // namespace kxVsGrid::testing

// ValidTextData: the rules that a value must not be empty or zero, then the commit.
#include "kit/ClerkTest.h"

namespace kxVsGrid::testing {
namespace {

class ValidTextData : public ClerkTest {
  protected:
    void rule(gEmNotAllowEmptyType rule) {
        column(2).sName("数量");
        column(2).i是否允许为空(rule);
    }
    void expectRefused(std::string_view message) {
        desk.clear();
        EXPECT_FALSE(grid.ValidTextData());
        ASSERT_EQ(desk.messages().size(), 1u);
        EXPECT_EQ(desk.messages()[0], (MessageBox{std::string(message), 64, "提示："}));
    }
    void expectAccepted() {
        desk.clear();
        EXPECT_TRUE(grid.ValidTextData());
        EXPECT_TRUE(desk.messages().empty());
    }
};

TEST_F(ValidTextData, WithoutARuleCommitsAnOpenEditor) {
    openAt(2, 2);
    desk.type("abc");
    heard();
    expectAccepted();
    EXPECT_EQ(heard(), changed(2, 2) + edited(2, 2));
    EXPECT_FALSE(open());
}

TEST_F(ValidTextData, WithoutARuleIsTrueForAHiddenEditorWithoutACommit) {
    at(2, 2);
    expectAccepted();
    EXPECT_EQ(heard(), Lines{});
    EXPECT_FALSE(grid.bIsDirty());
}

TEST_F(ValidTextData, RefusesAnEmptyTagWhenTheFieldMustNotBeEmpty) {
    rule(i字段不能为空);
    openAt(2, 2);
    for (const char* empty : {"", "   "}) {
        grid.Text("abc");
        grid.TextTag(empty);
        heard();
        expectRefused("数量不能为空!");
        EXPECT_EQ(heard(), Lines{});
        EXPECT_TRUE(open());
        EXPECT_EQ(text(2, 2), "");
        EXPECT_EQ(desk.focusOwner(), FocusPlace::Editor);
    }
    grid.TextTag("0");
    expectAccepted();
    EXPECT_EQ(tag(2, 2), "0");
}

TEST_F(ValidTextData, LooksAtTheTagAndNotAtTheText) {
    rule(i字段不能为空);
    openAt(2, 2);
    grid.Text("");
    grid.TextTag("A001");
    expectAccepted();
}

TEST_F(ValidTextData, RefusesAZeroTagWhenTheFieldMustNotBeZero) {
    rule(i字段不能为零);
    openAt(2, 2);
    for (const char* zero : {"0.00", "", "abc", "0", " 0 ", "-0", "   ", "0abc", ".", "0,5"}) {
        grid.TextTag(zero);
        expectRefused("数量不能为零!");
        EXPECT_TRUE(open()) << zero;
    }
    EXPECT_EQ(heard(), Lines{});
}

TEST_F(ValidTextData, AcceptsAnyOtherNumberWhenTheFieldMustNotBeZero) {
    rule(i字段不能为零);
    for (const char* number : {"0.01", "-1", " 5 ", "12abc", "1e-3"}) {
        openAt(2, 2);
        grid.TextTag(number);
        expectAccepted();
        EXPECT_EQ(tag(2, 2), number);
    }
}

TEST_F(ValidTextData, ChecksTheTagOfTheEnteredCellWhileTheEditorIsHidden) {
    rule(i字段不能为空);
    at(2, 2);
    expectRefused("数量不能为空!");
    EXPECT_FALSE(open());
    fill(3, 2, "螺栓", "A001");
    at(3, 2);
    expectAccepted();
}

TEST_F(ValidTextData, GivesTheEditorTheFocusBack) {
    rule(i字段不能为空);
    openAt(2, 2);
    bool asked = false;
    desk.type("abc");
    desk.select(1);
    asked = grid.ValidTextData();
    EXPECT_FALSE(asked);
    EXPECT_EQ(desk.focusOwner(), FocusPlace::Editor);
    EXPECT_EQ(desk.editor().text, "abc");
}

TEST_F(ValidTextData, TakesTheRuleOfTheCurrentColumn) {
    rule(i字段不能为空);
    at(2, 3);
    expectAccepted();
    at(2, 2);
    expectRefused("数量不能为空!");
}

TEST_F(ValidTextData, KnowsNoOtherRules) {
    column(2).i是否允许为空(static_cast<gEmNotAllowEmptyType>(3));
    openAt(2, 2);
    expectAccepted();
}

TEST_F(ValidTextData, IsNotAskedByEnterOrByLeavingTheCell) {
    rule(i字段不能为空);
    openAt(2, 2);
    desk.type("abc").press(Key::Enter);
    EXPECT_EQ(text(2, 2), "abc");
    EXPECT_TRUE(desk.messages().empty());
    openAt(3, 2);
    desk.type("abc");
    grid.Row(4);
    EXPECT_EQ(text(3, 2), "abc");
    EXPECT_TRUE(desk.messages().empty());
}

TEST_F(ValidTextData, IsWhatIsValidAnswers) {
    rule(i字段不能为零);
    at(2, 2);
    EXPECT_FALSE(grid.IsValid());
    EXPECT_EQ(desk.messages().size(), 1u);
    fill(3, 2, "1", "1");
    at(3, 2);
    EXPECT_TRUE(grid.IsValid());
}

}  // namespace
}  // namespace kxVsGrid::testing

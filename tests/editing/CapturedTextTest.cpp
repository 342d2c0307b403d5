// Which text counts as the one that a cell had on entry: a commit and a default text make it anew, a write of
// the host does not.
#include "kit/ClerkTest.h"

namespace kxVsGrid::testing {
namespace {

class CapturedText : public ClerkTest {
  protected:
    /// Column 1 shows the names of its codes. The names themselves are no codes.
    CapturedText() {
        takesCodes(1);
        column(1).i帮助返回值显示类型(iText记Name);
        knowCodes([](const std::string& typed) -> std::optional<std::string> {
            if (typed != "01" && typed != "02") return {};
            return typed == "01" ? "主仓" : "副仓";
        });
    }
    std::size_t checks() { return named(heard(), "TxtValidBmS").size(); }
    /// Types over the current cell and commits where it stands.
    void enter(std::string_view typed) {
        desk.type(typed);
        heard();
        EXPECT_TRUE(grid.ValidTextData());
    }
    void expectUnchangedPasses() {
        heard();
        desk.press(Key::Space).press(Key::Enter);
        EXPECT_FALSE(open());
        EXPECT_TRUE(desk.messages().empty());
        EXPECT_EQ(checks(), 0u);
    }
};

TEST_F(CapturedText, IsWhatTheCheckHasMadeOfIt) {
    desk.type("01").focusElsewhere();
    EXPECT_EQ(text(1, 1), "主仓");
    desk.focusGrid();
    expectUnchangedPasses();
    EXPECT_EQ(tag(1, 1), "01");
}

TEST_F(CapturedText, IsWhatADefaultHasPutIntoTheEnteredCell) {
    column(1).sDefaultText_Name("主仓");
    column(1).sDefaultText_Code("01");
    desk.press(Key::Down);
    EXPECT_EQ(text(2, 1), "主仓");
    expectUnchangedPasses();
    EXPECT_EQ(tag(2, 1), "01");
}

TEST_F(CapturedText, IsWhatADefaultHasPutIntoANewRow) {
    column(1).sDefaultText_Name("主仓");
    column(1).sDefaultText_Code("01");
    grid.AddRow(grid.Rows(), true, false);
    EXPECT_EQ(text(6, 1), "主仓");
    expectUnchangedPasses();
}

TEST_F(CapturedText, ThatIsTypedAgainAfterAnotherIsCheckedEachTime) {
    column(1).i帮助返回值显示类型(iText记Code);
    for (const char* const code : {"01", "02", "01", "02"}) {
        enter(code);
        EXPECT_EQ(checks(), 1u) << code;
        EXPECT_EQ(text(1, 1), code);
        EXPECT_EQ(tag(1, 1), code[1] == '1' ? "主仓" : "副仓");
    }
    enter("02");
    EXPECT_EQ(checks(), 0u);
}

TEST_F(CapturedText, IsNotThatOfAHostThatWritesTheCurrentCell) {
    column(1).i帮助返回值显示类型(iText记Code);
    enter("01");
    grid.SetCell(1, 1, "02", "副仓");
    enter("02");
    EXPECT_EQ(checks(), 1u);
    EXPECT_EQ(tag(1, 1), "副仓");
}

TEST_F(CapturedText, IsNotThatOfARefusedCommit) {
    desk.type("99").press(Key::Enter);
    ASSERT_EQ(checks(), 1u);
    desk.press(Key::Down);
    EXPECT_EQ(checks(), 1u);
    EXPECT_TRUE(open());
}

}  // namespace
}  // namespace kxVsGrid::testing

// The length limit of a column: it stops typing, and nothing else.
#include "kit/ClerkTest.h"

namespace kxVsGrid::testing {
namespace {

class LengthLimit : public ClerkTest {
  protected:
    LengthLimit() { column(1).iLimitLength(3); }
};

TEST_F(LengthLimit, StopsTypingAtTheLastCharacter) {
    desk.type("abcdef");
    EXPECT_EQ(desk.editor().text, "abc");
    desk.press(Key::Enter);
    EXPECT_EQ(text(1, 1), "abc");
}

TEST_F(LengthLimit, CountsCharactersAndNotBytes) {
    desk.type("数量单价");
    EXPECT_EQ(desk.editor().text, "数量单");
    desk.press(Key::Escape);
    desk.type("a😀b😀");
    EXPECT_EQ(desk.editor().text, "a😀b");
}

TEST_F(LengthLimit, LetsSelectedCharactersBeReplaced) {
    desk.type("abc");
    desk.select(1, 1);
    desk.type("xy");
    EXPECT_EQ(desk.editor().text, "axc");
}

TEST_F(LengthLimit, LeavesRoomAgainAfterADeletion) {
    desk.type("abc").press(Key::Back).type("de");
    EXPECT_EQ(desk.editor().text, "abd");
}

TEST_F(LengthLimit, DoesNotCutTextsSetByCode) {
    openAt(1, 1);
    grid.Text("abcdef");
    EXPECT_EQ(desk.editor().text, "abcdef");
    desk.press(Key::Enter);
    EXPECT_EQ(text(1, 1), "abcdef");
}

TEST_F(LengthLimit, DoesNotCutTheTextOfTheCell) {
    fill(1, 1, "abcdef");
    openAt(1, 1);
    EXPECT_EQ(desk.editor().text, "abcdef");
    desk.select(6);
    desk.type("g");
    EXPECT_EQ(desk.editor().text, "abcdef");
    desk.select(0, 6);
    desk.type("g");
    EXPECT_EQ(desk.editor().text, "g");
}

TEST_F(LengthLimit, IsThatOfTheCurrentColumn) {
    column(2).iLimitLength(1);
    at(1, 2);
    desk.type("abc");
    EXPECT_EQ(desk.editor().text, "a");
    desk.press(Key::Escape);
    at(1, 3);
    desk.type("abcdef");
    EXPECT_EQ(desk.editor().text, "abcdef");
}

}  // namespace
}  // namespace kxVsGrid::testing

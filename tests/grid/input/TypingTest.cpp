// Characters and control keys on the closed grid: they open the editor over the current cell.
#include "kit/ClerkTest.h"

namespace kxVsGrid::testing {
namespace {

class Typing : public ClerkTest {};

TEST_F(Typing, OpensTheEditorWithTheTypedCharacter) {
    desk.type("a");
    EXPECT_EQ(heard(), opens());
    EXPECT_TRUE(open());
    EXPECT_EQ(desk.editor().text, "a");
    EXPECT_EQ(desk.editor().selStart, 1u);
    EXPECT_EQ(desk.editor().selLength, 0u);
    EXPECT_EQ(desk.focusOwner(), FocusPlace::Editor);
    EXPECT_EQ(text(1, 1), "");
}

TEST_F(Typing, GoesOnInTheOpenedEditor) {
    desk.type("A001");
    EXPECT_EQ(heard(), opens());
    EXPECT_EQ(desk.editor().text, "A001");
    EXPECT_EQ(grid.Text(), "A001");
}

TEST_F(Typing, ReplacesTheTextOfTheCellButKeepsItsTag) {
    fill(1, 1, "螺栓", "A001");
    desk.type("x");
    EXPECT_EQ(desk.editor().text, "x");
    EXPECT_EQ(desk.editor().tag, "A001");
    EXPECT_EQ(text(1, 1), "螺栓");
}

TEST_F(Typing, TakesCharactersOfAnyScript) {
    desk.type("品");
    EXPECT_EQ(heard(), opens());
    EXPECT_EQ(desk.editor().text, "品");
    EXPECT_EQ(desk.editor().selStart, 1u);
    desk.type("名é😀");
    EXPECT_EQ(desk.editor().text, "品名é😀");
    EXPECT_EQ(desk.editor().selStart, 4u);
}

TEST_F(Typing, OnTheLastRowAsksForARowFirst) {
    at(5, 2);
    desk.type("a");
    EXPECT_EQ(heard(), asksForRow(5, false) + opens());
    EXPECT_EQ(grid.Rows(), 6);
    EXPECT_EQ(desk.editor().text, "a");
}

TEST_F(Typing, OnTheLastRowAppendsARowWithTheHostsConsent) {
    consentToRows();
    at(5, 2);
    desk.type("a");
    EXPECT_EQ(heard(), asksForRow(5, false) + opens());
    EXPECT_EQ(grid.Rows(), 7);
    EXPECT_EQ(current(), (Cell{5, 2}));
    EXPECT_EQ(desk.editor().text, "a");
}

TEST_F(Typing, AsksOncePerOpeningOfTheEditor) {
    at(5, 2);
    desk.type("abc");
    EXPECT_EQ(heard(), asksForRow(5, false) + opens());
}

TEST_F(Typing, BeforeTheLastRowAsksNothing) {
    at(4, 2);
    desk.type("a");
    EXPECT_EQ(heard(), opens());
}

TEST_F(Typing, InAReadOnlyColumnIsDropped) {
    readOnly(2);
    at(5, 2);
    desk.type("ab ");
    desk.press(Key::Back);
    desk.press(Key::Escape);
    EXPECT_EQ(heard(), Lines{});
    EXPECT_FALSE(open());
    EXPECT_EQ(desk.focusOwner(), FocusPlace::Grid);
    EXPECT_TRUE(desk.messages().empty());
}

TEST_F(Typing, InAGridThatIsNotEditableIsDropped) {
    grid.Editable(false);
    at(5, 2);
    desk.type("a ");
    EXPECT_EQ(heard(), Lines{});
    EXPECT_FALSE(open());
}

TEST_F(Typing, OnAFixedRowIsIgnored) {
    at(0, 2);
    desk.type("a");
    EXPECT_EQ(heard(), Lines{});
    EXPECT_FALSE(open());
}

TEST_F(Typing, OnAFixedRowIsIgnoredAlsoWhenItIsTheLastRow) {
    grid.Grid().Rows(1);
    at(0, 2);
    desk.type("a");
    EXPECT_EQ(heard(), Lines{});
}

TEST_F(Typing, InAFixedColumnOpensNothing) {
    at(2, 0);
    desk.type("a");
    EXPECT_EQ(heard(), Lines{});
    EXPECT_FALSE(open());
}

TEST_F(Typing, InAHiddenOrVeryNarrowColumnOpensNothing) {
    at(2, 2);
    grid.ColHidden(2, true);
    log.clear();
    desk.type("a");
    EXPECT_EQ(named(heard(), "BeforeTextEdit"), Lines{});
    EXPECT_FALSE(open());
    at(2, 3);
    grid.ColWidth(3, 15);
    log.clear();
    desk.type("a");
    EXPECT_EQ(named(heard(), "BeforeTextEdit"), Lines{});
    EXPECT_FALSE(open());
}

class ControlKeys : public ClerkTest {
  protected:
    void expectOpenWithTheCellSelected(std::string_view content) {
        EXPECT_EQ(heard(), opens());
        const headless::SeenEditor editor = desk.editor();
        EXPECT_TRUE(editor.visible);
        EXPECT_EQ(editor.text, content);
        EXPECT_EQ(editor.selStart, 0u);
        EXPECT_EQ(editor.selLength, content.size());
        EXPECT_EQ(desk.focusOwner(), FocusPlace::Editor);
    }
};

TEST_F(ControlKeys, ABlankOpensTheEditorWithTheTextSelected) {
    fill(1, 1, "A001");
    desk.type(" ");
    expectOpenWithTheCellSelected("A001");
}

TEST_F(ControlKeys, BackspaceOpensTheEditorWithTheTextSelected) {
    fill(1, 1, "A001");
    desk.press(Key::Back);
    expectOpenWithTheCellSelected("A001");
}

TEST_F(ControlKeys, EscapeOpensTheEditorWithTheTextSelected) {
    fill(1, 1, "A001");
    desk.press(Key::Escape);
    expectOpenWithTheCellSelected("A001");
}

TEST_F(ControlKeys, ACtrlLetterOpensTheEditorWithTheTextSelected) {
    fill(1, 1, "A001");
    desk.press(static_cast<std::int16_t>('B'), CtrlKey);
    expectOpenWithTheCellSelected("A001");
}

TEST_F(ControlKeys, OnTheLastRowAskForNoRow) {
    consentToRows();
    at(5, 2);
    desk.press(Key::Back);
    EXPECT_EQ(heard(), opens());
    EXPECT_EQ(grid.Rows(), 6);
}

TEST_F(ControlKeys, OnAFixedRowOpenNothing) {
    at(0, 2);
    desk.press(Key::Back);
    desk.type(" ");
    EXPECT_EQ(heard(), Lines{});
    EXPECT_FALSE(open());
}

TEST_F(ControlKeys, WithoutACharacterDoNothing) {
    for (const int code : {112, 115, 116, 123, 16, 17, 18, 20}) desk.press(static_cast<std::int16_t>(code));
    EXPECT_EQ(heard(), Lines{});
    EXPECT_FALSE(open());
}

TEST_F(ControlKeys, InTheOpenEditorNeverReachTheGridAsACharacter) {
    desk.type("abc");
    heard();
    desk.press(Key::Escape);
    EXPECT_FALSE(open());
    EXPECT_EQ(heard(), Lines{});
    desk.type("abc");
    heard();
    desk.press(Key::Enter);
    EXPECT_EQ(heard(), changed(1, 1) + edited(1, 1) + moves(1, 1, 1, 2));
}

class EngineKeys : public ClerkTest {
  protected:
    /// What is left of a character that the engine reports.
    std::int16_t after(std::int16_t ascii) { return grid.Grid().keyPress(ascii); }
};

TEST_F(EngineKeys, EnterIsSwallowedWhereItMoves) {
    EXPECT_EQ(after(13), 0);
    EXPECT_EQ(current(), (Cell{1, 2}));
}

TEST_F(EngineKeys, EnterIsSwallowedAlsoWhereItFindsNoCell) {
    readOnly(5);
    at(5, 4);
    EXPECT_EQ(after(13), 0);
    EXPECT_EQ(current(), (Cell{5, 4}));
}

TEST_F(EngineKeys, AreLeftToTheGridInAReadOnlyColumn) {
    readOnly(1);
    EXPECT_EQ(after(13), 13);
    EXPECT_EQ(after(97), 97);
    EXPECT_EQ(heard(), Lines{});
}

TEST_F(EngineKeys, AreLeftToTheGridWhenItIsNotEditable) {
    grid.Editable(false);
    log.clear();
    EXPECT_EQ(after(13), 13);
    EXPECT_EQ(heard(), Lines{});
}

TEST_F(EngineKeys, BelowZeroCountAsPrintable) {
    at(5, 1);
    after(-10000);
    EXPECT_EQ(heard(), asksForRow(5, false) + opens());
    EXPECT_TRUE(open());
}

}  // namespace
}  // namespace kxVsGrid::testing

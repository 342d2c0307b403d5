// The commands of the way back, by key, on a closed cell and in the editor.
#include <string>

#include "kit/PlacedGrid.h"

namespace kxVsGrid::testing {
namespace {

class ClerkWhoUndoes : public PlacedGrid {
  protected:
    ClerkWhoUndoes() {
        grid.Cols(5);
        column(2).iType(flexDTDouble);
        setUp();
        desk.focusGrid();
        vs().Select(1, 1);
    }
    void key(std::int32_t row, std::int32_t col, std::string_view typed) {
        vs().Select(row, col);
        desk.type(typed).press(Key::Enter);
    }
    void undo() { desk.press('Z', CtrlKey); }
    void redo() { desk.press('Y', CtrlKey); }
    bool open() { return desk.editor().visible; }
};

TEST_F(ClerkWhoUndoes, HasTheTextOfBeforeBackAndTheCursorThere) {
    key(1, 1, "a");
    key(2, 1, "b");
    vs().Select(4, 3);
    undo();
    EXPECT_EQ(text(2, 1), "");
    EXPECT_EQ(vs().Row(), 2);
    EXPECT_EQ(vs().Col(), 1);
    undo();
    EXPECT_EQ(text(1, 1), "");
    redo();
    EXPECT_EQ(text(1, 1), "a");
    desk.press('Z', CtrlKey + ShiftKey);
    EXPECT_EQ(text(2, 1), "b");
    EXPECT_FALSE(open());
}

TEST_F(ClerkWhoUndoes, OpensNoEditorWhenThereIsNothingToUndo) {
    undo();
    redo();
    EXPECT_FALSE(open());
}

TEST_F(ClerkWhoUndoes, KeepsWhatOtherControlLettersDo) {
    desk.press('Q', CtrlKey);
    EXPECT_TRUE(open());
    desk.press(Key::Escape);
    desk.press('Z', CtrlKey + AltKey);
    EXPECT_TRUE(open());
}

TEST_F(ClerkWhoUndoes, IsNotMetByTheCharacterButByTheKey) {
    key(1, 1, "a");
    vs().Select(1, 1);
    desk.type("\x1a");
    EXPECT_EQ(text(1, 1), "a");
}

TEST_F(ClerkWhoUndoes, TakesBackInTheEditorWhatWasTypedThereFirst) {
    key(1, 1, "a");
    vs().Select(1, 1);
    desk.type("xy");
    undo();
    undo();
    ASSERT_TRUE(open());
    EXPECT_EQ(desk.editor().text, "a");
    EXPECT_EQ(text(1, 1), "a");
    undo();
    EXPECT_FALSE(open());
    EXPECT_EQ(text(1, 1), "");
    EXPECT_EQ(desk.focusOwner(), FocusPlace::Grid);
}

TEST_F(ClerkWhoUndoes, BringsBackInTheEditorWhatWasTakenBackThere) {
    key(1, 1, "a");
    key(2, 1, "b");
    vs().Select(2, 1);
    undo();
    desk.press(Key::F2);
    desk.type("x");
    undo();
    redo();
    ASSERT_TRUE(open());
    EXPECT_EQ(desk.editor().text, "x");
}

TEST_F(ClerkWhoUndoes, LosesNeitherTextNorRedoByOneRedoTooMany) {
    key(1, 1, "a");
    key(2, 1, "b");
    vs().Select(2, 1);
    undo();
    desk.press(Key::F2);
    desk.type("x");
    undo();
    redo();
    redo();
    EXPECT_TRUE(open());
    EXPECT_EQ(desk.editor().text, "x");
    EXPECT_FALSE(desk.run(Command::Redo));
    EXPECT_FALSE(grid.CanRun(Command::Redo));
    desk.press(Key::Escape);
    desk.press('Y', CtrlKey);
    EXPECT_EQ(text(2, 1), "b");
}

TEST_F(ClerkWhoUndoes, RedoesFromAnEditorThatNothingWasTypedInto) {
    key(1, 1, "a");
    undo();
    desk.press(Key::F2);
    ASSERT_TRUE(open());
    redo();
    EXPECT_FALSE(open());
    EXPECT_EQ(text(1, 1), "a");
}

TEST_F(ClerkWhoUndoes, HasARefusedExpressionsNumberBackFromTheOpenEditor) {
    key(1, 2, "5");
    vs().Select(1, 2);
    desk.type("3*").press(Key::Enter);
    ASSERT_TRUE(desk.editor().refused);
    ASSERT_EQ(text(1, 2), "");
    undo();
    undo();
    EXPECT_EQ(desk.editor().text, "5");
    undo();
    EXPECT_FALSE(open());
    EXPECT_EQ(text(1, 2), "5");
}

TEST_F(ClerkWhoUndoes, LeavesTheGridsStepsAloneWhileComposing) {
    key(1, 1, "a");
    desk.compose("ni");
    undo();
    EXPECT_EQ(text(1, 1), "a");
    desk.commitComposition("你");
}

TEST_F(ClerkWhoUndoes, CannotUndoOnAReadOnlyGrid) {
    key(1, 1, "a");
    grid.Editable(false);
    EXPECT_FALSE(grid.CanRun(Command::Undo));
    undo();
    EXPECT_EQ(text(1, 1), "a");
    EXPECT_FALSE(desk.run(Command::Undo));
}

TEST_F(ClerkWhoUndoes, CommitsWhatIsBeingTypedBeforeAMenusUndo) {
    key(1, 1, "a");
    vs().Select(1, 1);
    desk.type("b");
    EXPECT_TRUE(desk.run(Command::Undo));
    EXPECT_FALSE(open());
    EXPECT_EQ(text(1, 1), "a");
    EXPECT_TRUE(grid.CanRun(Command::Redo));
    EXPECT_TRUE(grid.Run(Command::Redo));
    EXPECT_EQ(text(1, 1), "b");
}

TEST_F(ClerkWhoUndoes, IsToldWhatUndoWouldUndoAndWhenItHasChanged) {
    int changes = 0;  // other commands become possible and impossible as the clerk moves about
    const auto ways = [&] {
        return grid.Commands().Caption(Command::Undo) + grid.Commands().Caption(Command::Redo) +
               (grid.CanRun(Command::Undo) ? "u" : "") + (grid.CanRun(Command::Redo) ? "r" : "");
    };
    std::string told = ways();
    grid.Commands().Changed.connect([&] { changes += std::exchange(told, ways()) != told; });
    EXPECT_EQ(grid.Commands().Caption(Command::Undo), "撤销");
    key(1, 1, "a");
    EXPECT_EQ(grid.Commands().Caption(Command::Undo), "撤销“录入”");
    EXPECT_EQ(grid.Commands().Caption(Command::Redo), "重做");
    EXPECT_EQ(changes, 1);
    vs().Select(3, 3);
    EXPECT_EQ(changes, 1);
    undo();
    EXPECT_EQ(grid.Commands().Caption(Command::Redo), "重做“录入”");
    EXPECT_EQ(changes, 2);
    grid.History().Forget();
    EXPECT_EQ(changes, 3);
    EXPECT_FALSE(grid.CanRun(Command::Redo));
}

TEST_F(ClerkWhoUndoes, IsToldThatAReadOnlyGridUndoesNothing) {
    key(1, 1, "a");
    int changes = 0;
    grid.Commands().Changed.connect([&] { ++changes; });
    grid.Editable(false);
    EXPECT_EQ(changes, 1);
    grid.Editable(true);
    EXPECT_EQ(changes, 2);
    EXPECT_TRUE(grid.CanRun(Command::Undo));
}

TEST_F(ClerkWhoUndoes, HasKeysThatEachLeadToOneCommand) {
    constexpr auto Closed = CommandKey::Where::ClosedCell;
    for (const CommandKey& key : defaultKeys()) {
        EXPECT_EQ(grid.Commands().Of(key.code, key.shift, Closed), key.command) << keyText(key);
        const auto withMore = static_cast<std::int16_t>(key.shift ^ AltKey);
        EXPECT_EQ(grid.Commands().Of(key.code, withMore, Closed), std::nullopt) << keyText(key);
    }
    for (const Command command : allCommands()) {
        EXPECT_FALSE(captionOf(command).empty());
        EXPECT_EQ(commandNamed(nameOf(command)), command);
    }
}
}  // namespace
}  // namespace kxVsGrid::testing

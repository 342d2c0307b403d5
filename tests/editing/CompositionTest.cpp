// An input method at work: composing opens the editor, keys wait until it is done, and what was composed is
// committed once.
#include "kit/ClerkTest.h"

namespace kxVsGrid::testing {
namespace {

class Composition : public ClerkTest {};

TEST_F(Composition, OnAClosedCellOpensTheEditor) {
    desk.compose("pin");
    EXPECT_EQ(heard(), opens());
    EXPECT_TRUE(open());
    EXPECT_EQ(desk.focusOwner(), FocusPlace::Grid);
    desk.commitComposition("品");
    EXPECT_EQ(heard(), Lines{});
    EXPECT_EQ(desk.editor().text, "品");
    EXPECT_EQ(grid.Text(), "品");
    EXPECT_EQ(desk.editor().selStart, 1u);
    EXPECT_EQ(desk.focusOwner(), FocusPlace::Editor);
}

TEST_F(Composition, ReplacesTheTextOfAClosedCell) {
    fill(1, 1, "old", "tag");
    desk.compose("p");
    desk.compose("pi");
    desk.compose("pin");
    desk.commitComposition("品");
    EXPECT_EQ(desk.editor().text, "品");
    EXPECT_EQ(desk.editor().tag, "tag");
    EXPECT_EQ(text(1, 1), "old");
    EXPECT_EQ(heard(), opens());
}

TEST_F(Composition, OnTheLastRowAsksForARowFirst) {
    consentToRows();
    at(5, 1);
    desk.compose("pin");
    EXPECT_EQ(heard(), asksForRow(5, false) + opens());
    EXPECT_EQ(grid.Rows(), 7);
    desk.commitComposition("品");
    EXPECT_EQ(heard(), Lines{});
    EXPECT_EQ(desk.editor().text, "品");
}

TEST_F(Composition, IsFollowedByMoreTypingAndACommit) {
    desk.compose("pin").commitComposition("品");
    desk.compose("ming").commitComposition("名");
    desk.type("1");
    heard();
    desk.press(Key::Enter);
    EXPECT_EQ(heard(), changed(1, 1) + edited(1, 1) + moves(1, 1, 1, 2));
    EXPECT_EQ(text(1, 1), "品名1");
}

TEST_F(Composition, LetsNoKeyActWhileItIsUnderWay) {
    at(2, 2);
    desk.compose("pin");
    heard();
    for (Key key : {Key::Enter, Key::Escape, Key::Down, Key::Up, Key::Left, Key::Right, Key::Tab, Key::F2,
                    Key::Insert, Key::Delete, Key::Back, Key::Space}) {
        desk.press(key);
        EXPECT_EQ(heard(), Lines{}) << static_cast<int>(key);
        EXPECT_TRUE(open()) << static_cast<int>(key);
        EXPECT_EQ(current(), (Cell{2, 2})) << static_cast<int>(key);
    }
    EXPECT_EQ(desk.leftControl(), 0);
    EXPECT_EQ(grid.Rows(), 6);
    desk.commitComposition("品");
    EXPECT_EQ(desk.editor().text, "品");
}

TEST_F(Composition, TellsTheControlNoTextWhileItIsUnderWay) {
    fill(1, 1, "old");
    desk.compose("pin");
    EXPECT_EQ(grid.Text(), "old");
    desk.commitComposition("品");
    EXPECT_EQ(grid.Text(), "品");
}

TEST_F(Composition, InTheOpenEditorGoesInAtTheCaret) {
    desk.type("ab");
    desk.select(1);
    heard();
    desk.compose("pin");
    EXPECT_EQ(heard(), Lines{});
    desk.press(Key::Enter);
    EXPECT_TRUE(open());
    desk.commitComposition("品");
    EXPECT_EQ(desk.editor().text, "a品b");
    EXPECT_EQ(desk.editor().selStart, 2u);
    EXPECT_EQ(heard(), Lines{});
}

TEST_F(Composition, InTheOpenEditorReplacesTheSelection) {
    desk.type("abc");
    desk.select(0, 2);
    desk.compose("pin").commitComposition("品");
    EXPECT_EQ(desk.editor().text, "品c");
}

TEST_F(Composition, ThatIsDroppedLeavesAnEditorItOpenedWithTheTextSelected) {
    fill(1, 1, "old");
    desk.compose("pin");
    desk.commitComposition("");
    EXPECT_TRUE(open());
    EXPECT_EQ(desk.editor().text, "old");
    EXPECT_EQ(desk.editor().selStart, 0u);
    EXPECT_EQ(desk.editor().selLength, 3u);
    EXPECT_EQ(text(1, 1), "old");
    EXPECT_FALSE(grid.bIsDirty());
}

TEST_F(Composition, ThatIsDroppedBringsBackTextAndSelection) {
    desk.type("abc");
    desk.select(1, 2);
    desk.compose("pin");
    desk.compose("pinm");
    desk.commitComposition("");
    EXPECT_EQ(desk.editor().text, "abc");
    EXPECT_EQ(desk.editor().selStart, 1u);
    EXPECT_EQ(desk.editor().selLength, 2u);
    EXPECT_EQ(grid.Text(), "abc");
}

TEST_F(Composition, IsCommittedOnceWhenTheClerkLeaves) {
    desk.compose("pin");
    heard();
    desk.focusElsewhere();
    EXPECT_EQ(heard(), changed(1, 1) + edited(1, 1));
    EXPECT_EQ(text(1, 1), "pin");
    EXPECT_FALSE(open());
}

TEST_F(Composition, IsCommittedOnceWhenTheClerkLeavesTheOpenEditor) {
    desk.type("a");
    desk.compose("pin");
    heard();
    desk.focusElsewhere();
    EXPECT_EQ(heard(), changed(1, 1) + edited(1, 1));
    EXPECT_EQ(text(1, 1), "apin");
}

TEST_F(Composition, IsCommittedOnceWhenTheClerkPressesInAnotherCell) {
    desk.compose("pin");
    heard();
    desk.click(3, 3);
    EXPECT_EQ(named(heard(), "AfterEdit"), edited(1, 1));
    EXPECT_EQ(text(1, 1), "pin");
    EXPECT_EQ(current(), (Cell{3, 3}));
}

TEST_F(Composition, OpensNothingInAReadOnlyColumn) {
    readOnly(1);
    desk.compose("pin");
    EXPECT_FALSE(open());
    desk.commitComposition("品");
    EXPECT_FALSE(open());
    EXPECT_EQ(heard(), Lines{});
}

TEST_F(Composition, OpensNothingInTheFixedArea) {
    at(0, 2);
    desk.compose("pin").commitComposition("品");
    EXPECT_EQ(heard(), Lines{});
    at(2, 0);
    desk.compose("pin").commitComposition("品");
    EXPECT_EQ(heard(), Lines{});
    EXPECT_FALSE(open());
}

TEST_F(Composition, OpensAndTogglesNothingInABooleanColumn) {
    typed(1, flexDTBoolean);
    desk.compose("pin").commitComposition("品");
    EXPECT_FALSE(open());
    EXPECT_EQ(text(1, 1), "");
    EXPECT_EQ(named(heard(), "AfterEdit"), Lines{});
}

TEST_F(Composition, OpensNothingInAGridThatIsNotEditable) {
    grid.Editable(false);
    log.clear();
    desk.compose("pin").commitComposition("品");
    EXPECT_EQ(heard(), Lines{});
    EXPECT_FALSE(open());
}

}  // namespace
}  // namespace kxVsGrid::testing

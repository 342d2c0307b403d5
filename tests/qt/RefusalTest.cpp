// A refused text under the keys of a clerk: one box, everything stays, the first change re-arms the check.
#include "qt/Boxes.h"
#include "qt/CheckedWindow.h"

namespace kxVsGrid::qt::testing {
namespace {

struct Keystroke {
    const char* name;
    Qt::Key key;
    Qt::KeyboardModifiers modifiers = Qt::NoModifier;
    Qt::Key first = Qt::Key_unknown;  ///< puts the caret where the key leaves the cell
};

const Keystroke committing[] = {{"Enter", Qt::Key_Return},
                                {"Enter of the keypad", Qt::Key_Enter, Qt::KeypadModifier},
                                {"Tab", Qt::Key_Tab},
                                {"Shift+Tab", Qt::Key_Backtab, Qt::ShiftModifier},
                                {"Up", Qt::Key_Up},
                                {"Down", Qt::Key_Down},
                                {"Left", Qt::Key_Left, Qt::NoModifier, Qt::Key_Home},
                                {"Right", Qt::Key_Right, Qt::NoModifier, Qt::Key_End}};

void strike(CheckedWindow& w, const Keystroke& stroke) {
    if (stroke.first != Qt::Key_unknown) w.press(stroke.first);
    w.press(stroke.key, stroke.modifiers);
    w.settle();
}
}  // namespace

TEST(Refusal, ShowsOneBoxAndStaysForEveryKeyThatCommits) {
    for (const Keystroke& stroke : committing) {
        SCOPED_TRACE(stroke.name);
        CheckedWindow w;
        Boxes boxes;
        w.fill(2, Date, "2011-02-30");
        strike(w, stroke);
        EXPECT_EQ(boxes.count(), 1U);
        w.expectAllSelected("2011-02-30");
        EXPECT_EQ(w.current(), "2,5");
        EXPECT_EQ(w.text(2, Date), "");
        EXPECT_EQ(w.edited, 0);
    }
}

TEST(Refusal, IsNotRepeatedByEnter) {
    CheckedWindow w;
    Boxes boxes;
    w.refuseCode();
    for (int i = 0; i < 3; ++i) {
        w.press(Qt::Key_Return);
        w.settle();
        w.expectAllSelected("B9");
    }
    EXPECT_EQ(boxes.count(), 1U);
    EXPECT_EQ(w.asked, 1);
    EXPECT_EQ(w.current(), "1,1");
}

TEST(Refusal, IsRepeatedByEveryOtherKeyThatCommits) {
    for (const Keystroke& stroke : committing) {
        if (stroke.key == Qt::Key_Return || stroke.key == Qt::Key_Enter) continue;
        SCOPED_TRACE(stroke.name);
        CheckedWindow w;
        Boxes boxes;
        w.refuseCode();
        w.grid().Grid().Select(1, Code);
        strike(w, stroke);
        // at the first column Left belongs to the text box
        EXPECT_EQ(boxes.count(), stroke.key == Qt::Key_Left ? 1U : 2U);
        EXPECT_TRUE(w.editorShown());
        EXPECT_EQ(w.current(), "1,1");
    }
}

TEST(Refusal, EndsWithTheFirstChangeWhicheverItIs) {
    const struct {
        const char* name;
        void (*change)(CheckedWindow& w);
        const char* text;
    } changes[] = {
        {"a character", [](CheckedWindow& w) { w.type("C"); }, "C"},
        {"Backspace",
         [](CheckedWindow& w) {
             w.press(Qt::Key_End);
             w.press(Qt::Key_Backspace);
         },
         "B"},
        {"Delete",
         [](CheckedWindow& w) {
             w.press(Qt::Key_Home);
             w.press(Qt::Key_Delete);
         },
         "9"},
        {"an input method", [](CheckedWindow& w) { w.compose({}, "品"); }, "品"},
        {"the same text again", [](CheckedWindow& w) { w.type("B9"); }, "B9"},
    };
    for (const auto& change : changes) {
        SCOPED_TRACE(change.name);
        CheckedWindow w;
        Boxes boxes;
        w.refuseCode();
        change.change(w);
        EXPECT_EQ(w.editorText(), change.text);
        EXPECT_FALSE(w.grid().editorView().refused);
        w.press(Qt::Key_Return);
        w.settle();
        EXPECT_EQ(boxes.count(), 2U);
        EXPECT_EQ(w.asked, 2);
        w.expectAllSelected(change.text);
    }
}

TEST(Refusal, IsNotEndedByCaretAndSelection) {
    CheckedWindow w;
    Boxes boxes;
    w.refuseCode();
    for (const Qt::Key key : {Qt::Key_Home, Qt::Key_End, Qt::Key_Left}) w.press(key);
    w.press(Qt::Key_A, Qt::ControlModifier);
    w.press(Qt::Key_Return);
    EXPECT_EQ(boxes.count(), 1U);
    EXPECT_TRUE(w.grid().editorView().refused);
}

TEST(Refusal, IsReplacedByWhatAnInputMethodComposes) {
    CheckedWindow w;
    Boxes boxes;
    w.refuseCode();
    w.compose("A");
    w.press(Qt::Key_Return);  // belongs to the input method
    EXPECT_EQ(boxes.count(), 1U);
    w.compose({}, "A品");
    EXPECT_EQ(w.editorText(), "A品");
    w.press(Qt::Key_Return);
    EXPECT_FALSE(w.editorShown());
    EXPECT_EQ(w.text(1, Code), "A品");
    EXPECT_EQ(boxes.count(), 1U);
}

TEST(Refusal, IsLeftByEscWithTheCellAsItWas) {
    CheckedWindow w;
    Boxes boxes;
    w.refuseCode();
    w.press(Qt::Key_Escape);
    w.settle();
    EXPECT_FALSE(w.editorShown());
    EXPECT_EQ(w.text(1, Code), "A001");
    EXPECT_TRUE(w.view().hasFocus());
    w.press(Qt::Key_Down);
    EXPECT_EQ(w.current(), "2,1");
    EXPECT_EQ(boxes.count(), 1U);
}

TEST(Refusal, OfADateIsCorrectedAndGoesOn) {
    CheckedWindow w;
    Boxes boxes;
    w.fill(1, Date, "2011-02-30");
    w.press(Qt::Key_Return);
    w.settle();
    w.expectAllSelected("2011-02-30");
    w.type("2011-2-3");
    w.press(Qt::Key_Return);
    EXPECT_EQ(w.text(1, Date), "2011-02-03");
    EXPECT_EQ(w.current(), "1,6");
    EXPECT_EQ(w.edited, 1);
    EXPECT_EQ(boxes.count(), 1U);
}

TEST(Refusal, LeavesTheRefusedTextToUndo) {
    CheckedWindow w;
    Boxes boxes;
    w.refuseCode();
    w.type("C");
    w.press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(w.editorText(), "B9");
    EXPECT_FALSE(w.grid().editorView().refused);
}
}  // namespace kxVsGrid::qt::testing

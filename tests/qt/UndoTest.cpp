// Undo and redo at the widget: by key, from the editor, by the actions of a window.
#include <QAction>
#include <QLineEdit>

#include "qt/Window.h"

namespace kxVsGrid::qt::testing {
namespace {

void keyed(Window& w, std::int32_t row, const QString& text) {
    w.focusCell(row, Code);
    w.type(text);
    w.press(Qt::Key_Return);
}
}  // namespace

TEST(Undo, HasItsKeysOnAClosedCell) {
    Window w;
    keyed(w, 1, "a");
    keyed(w, 2, "b");
    w.press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(w.text(2, Code), "A002");
    EXPECT_FALSE(w.editorShown());
    w.press(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(w.text(2, Code), "b");
    w.press(Qt::Key_Z, Qt::ControlModifier);
    w.press(Qt::Key_Y, Qt::ControlModifier);
    EXPECT_EQ(w.text(2, Code), "b");
}

TEST(Undo, IsTheTextBoxsOwnUntilItsTextIsAsOnOpening) {
    Window w;
    keyed(w, 1, "a");
    w.focusCell(1, Code);
    w.type("xy");
    while (w.editorText() != "a") {
        const QString before = w.editorText();
        w.press(Qt::Key_Z, Qt::ControlModifier);
        ASSERT_TRUE(w.editorShown());
        ASSERT_NE(w.editorText(), before);
    }
    EXPECT_EQ(w.text(1, Code), "a");
    w.press(Qt::Key_Y, Qt::ControlModifier);
    ASSERT_TRUE(w.editorShown());
    EXPECT_NE(w.editorText(), "a");
    while (w.editorText() != "a") w.press(Qt::Key_Z, Qt::ControlModifier);
    w.press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_FALSE(w.editorShown());
    EXPECT_EQ(w.text(1, Code), "A001");
    EXPECT_TRUE(w.view().hasFocus());
}

TEST(UndoAction, FollowsWhatCanBeUndone) {
    Window w;
    QAction* undo = w.widget->action(Command::Undo);
    QAction* redo = w.widget->action(Command::Redo);
    EXPECT_EQ(undo, w.widget->action(Command::Undo));
    EXPECT_FALSE(undo->isEnabled());
    EXPECT_EQ(undo->text(), "撤销");
    EXPECT_EQ(undo->shortcuts(), QList<QKeySequence>{QKeySequence("Ctrl+Z")});
    EXPECT_EQ(redo->shortcuts(), (QList<QKeySequence>{QKeySequence("Ctrl+Y"), QKeySequence("Ctrl+Shift+Z")}));
    keyed(w, 1, "a");
    EXPECT_TRUE(undo->isEnabled());
    EXPECT_EQ(undo->text(), "撤销“录入”");
    EXPECT_EQ(undo->iconText(), "撤销");
    undo->trigger();
    EXPECT_EQ(w.text(1, Code), "A001");
    EXPECT_FALSE(undo->isEnabled());
    EXPECT_TRUE(redo->isEnabled());
    EXPECT_EQ(redo->text(), "重做“录入”");
    w.grid().Editable(false);
    EXPECT_FALSE(redo->isEnabled());
}

TEST(UndoAction, TakesNoKeyFromTheGridOrItsEditor) {
    Window w;
    w.widget->window()->addAction(w.widget->action(Command::Undo));
    w.widget->window()->addAction(w.widget->action(Command::Redo));
    keyed(w, 1, "a");
    w.focusCell(1, Code);
    w.type("x");
    w.press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_TRUE(w.editorShown());
    EXPECT_EQ(w.editorText(), "a");
    EXPECT_EQ(w.text(1, Code), "a");
    w.press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_FALSE(w.editorShown());
    EXPECT_EQ(w.text(1, Code), "A001");
}
}  // namespace kxVsGrid::qt::testing

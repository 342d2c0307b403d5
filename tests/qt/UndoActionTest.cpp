// The actions of undo and redo in a host's window: other fields with the keyboard, menus that outlive the
// widget, widgets that go while an action is carried out, and the keys in the editor's corners.
#include <QAction>
#include <QLineEdit>
#include <QMenu>
#include <QPlainTextEdit>
#include <QToolBar>
#include <QToolButton>
#include <memory>

#include "qt/Window.h"

namespace kxVsGrid::qt::testing {
namespace {

struct WindowWithActions : Window {
    WindowWithActions() {
        undo = widget->action(Command::Undo);
        redo = widget->action(Command::Redo);
        window.addAction(undo);
        window.addAction(redo);
    }
    void keyed(std::int32_t row, std::int32_t col, const QString& typed) {
        focusCell(row, col);
        type(typed);
        press(Qt::Key_Return);
    }
    void ctrlZ() { press(Qt::Key_Z, Qt::ControlModifier); }
    QAction* undo;
    QAction* redo;
};
}  // namespace

TEST(UndoActions, LeaveTheirKeysToAnotherFieldOfTheWindow) {
    WindowWithActions w;
    w.keyed(3, Code, "a");
    w.before->setFocus();
    w.type("xy");
    w.ctrlZ();
    EXPECT_EQ(w.before->text(), "");
    EXPECT_EQ(w.text(3, Code), "a");
    w.press(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(w.before->text(), "xy");
    EXPECT_EQ(w.text(3, Code), "a");
}

TEST(UndoActions, LeaveCtrlYToAnotherFieldOfTheWindow) {
    WindowWithActions w;
    w.keyed(3, Code, "a");
    w.undo->trigger();
    w.before->setFocus();
    w.type("xy");
    w.ctrlZ();
    w.press(Qt::Key_Y, Qt::ControlModifier);
    EXPECT_EQ(w.text(3, Code), "");
    EXPECT_EQ(w.before->text(), "xy");
}

TEST(UndoActions, WorkFromAToolBarWhileAnotherFieldHasTheKeyboard) {
    WindowWithActions w;
    w.keyed(3, Code, "a");
    QToolBar bar;
    bar.addAction(w.undo);
    w.before->setFocus();
    w.undo->trigger();
    EXPECT_EQ(w.text(3, Code), "");
    EXPECT_TRUE(w.before->hasFocus());
    w.redo->trigger();
    EXPECT_EQ(w.text(3, Code), "a");
    EXPECT_TRUE(w.before->hasFocus());
}

TEST(UndoActions, CommitAndUndoWhatIsTypedInAnOpenEditor) {
    WindowWithActions w;
    w.keyed(3, Code, "a");
    w.focusCell(4, Code);
    w.type("b");
    ASSERT_TRUE(w.editorShown());
    w.undo->trigger();
    EXPECT_FALSE(w.editorShown());
    EXPECT_EQ(w.text(4, Code), "");
    EXPECT_EQ(w.text(3, Code), "a");
    EXPECT_TRUE(w.view().hasFocus());
    w.redo->trigger();
    EXPECT_EQ(w.text(4, Code), "b");
}

/// The action can undo nothing that stands; what is typed could be.
TEST(UndoActions, CommitWhatIsTypedFirstOfAll) {
    WindowWithActions w;
    w.focusCell(4, Code);
    w.type("b");
    ASSERT_TRUE(w.editorShown());
    w.ctrlZ();
    w.ctrlZ();
    EXPECT_EQ(w.text(4, Code), "");
}

TEST(UndoActions, LeaveARefusedDateInTheEditor) {
    WindowWithActions w;
    w.grid().VsCtrl(Remark)->i有效性判断(1);
    w.grid().VsCtrl(Remark)->i字段有效性判断类型(ij编码型);
    w.grid().VsCtrl(Remark)->b是否编辑多行(false);
    w.keyed(3, Code, "a");
    w.grid().TxtValidBmS.connect([](const std::string&, const std::string&, const std::string&,
                                    const std::string&, std::string& code, std::string& name) {
        code = "known";
        name = "known";
    });
    w.focusCell(4, Remark);
    w.type("b");
    w.undo->trigger();
    EXPECT_EQ(w.text(4, Remark), "");
    EXPECT_EQ(w.text(3, Code), "a");
}

TEST(UndoActions, GoFromMenusWithTheWidget) {
    QMenu menu;
    QPointer<QAction> undo;
    {
        WindowWithActions w;
        menu.addAction(w.undo);
        menu.addAction(w.redo);
        undo = w.undo;
        w.keyed(3, Code, "a");
        EXPECT_EQ(menu.actions().size(), 2);
        delete w.widget;
        w.widget = nullptr;
        EXPECT_TRUE(undo.isNull());
        EXPECT_TRUE(menu.actions().isEmpty());
    }
    EXPECT_TRUE(menu.actions().isEmpty());
}

TEST(UndoActions, MayEndTheWidgetWhileTheyAreCarriedOut) {
    for (int what = 0; what < 4; ++what) {
        SCOPED_TRACE(what);
        auto w = std::make_unique<WindowWithActions>();
        QMenu menu;
        menu.addAction(w->undo);
        w->keyed(3, Code, "a");
        w->focusCell(5, Quantity);
        const auto end = [&] {
            delete w->widget;
            w->widget = nullptr;
        };
        if (what == 0) w->grid().CellChanged.connect([&](std::int32_t, std::int32_t) { end(); });
        if (what == 1) w->grid().RowColChange.connect(end);
        if (what == 2) w->grid().Commands().Changed.connect(end);
        if (what == 3) w->grid().Changes().After.connect([&](const StepChanges&) { end(); });
        w->undo->trigger();
        EXPECT_EQ(w->widget, nullptr);
        EXPECT_TRUE(menu.actions().isEmpty());
        w->before->setFocus();
        w->ctrlZ();
    }
}

TEST(UndoActions, MayEndTheWidgetByTheirKey) {
    for (int what = 0; what < 3; ++what) {
        SCOPED_TRACE(what);
        auto w = std::make_unique<WindowWithActions>();
        w->keyed(3, Code, "a");
        w->focusCell(3, Code);
        if (what == 1) w->press(Qt::Key_F2);
        if (what == 2) w->focusCell(5, Quantity);
        w->grid().CellChanged.connect([&](std::int32_t, std::int32_t) {
            delete w->widget;
            w->widget = nullptr;
        });
        w->ctrlZ();
        EXPECT_EQ(w->widget, nullptr);
    }
}

TEST(UndoActions, MayBeDeletedByTheHost) {
    WindowWithActions w;
    w.keyed(3, Code, "a");
    delete w.undo;
    w.keyed(4, Code, "b");
    w.ctrlZ();
    EXPECT_EQ(w.text(4, Code), "");
    QAction* fresh = w.widget->action(Command::Undo);
    ASSERT_NE(fresh, nullptr);
    EXPECT_TRUE(fresh->isEnabled());
    fresh->trigger();
    EXPECT_EQ(w.text(3, Code), "");
}

TEST(UndoActions, AreDisabledWhileAHostsStepIsOpenOnlyUntilItEnds) {
    WindowWithActions w;
    w.keyed(3, Code, "a");
    {
        const auto step = w.grid().Step("载入");
        w.grid().SetCell(4, Code, "x");
        w.undo->trigger();
        EXPECT_EQ(w.text(4, Code), "x");
    }
    EXPECT_TRUE(w.undo->isEnabled());
    EXPECT_EQ(w.undo->text(), "撤销“载入”");
    w.undo->trigger();
    EXPECT_EQ(w.text(4, Code), "");
    EXPECT_EQ(w.text(3, Code), "a");
}

TEST(UndoActions, ShowAnAmpersandOfTheHostsName) {
    WindowWithActions w;
    {
        const auto step = w.grid().Step("A&B");
        w.grid().SetCell(4, Code, "x");
    }
    EXPECT_EQ(w.undo->text(), "撤销“A&&B”");
}

TEST(UndoActions, AreTheTextBoxsOwnInSeveralLines) {
    WindowWithActions w;
    w.keyed(3, Code, "a");
    w.focusCell(4, Remark);
    w.type("x");
    w.press(Qt::Key_Return);
    w.type("y");
    ASSERT_EQ(w.editorText(), "x\ny");
    for (int presses = 0; w.editorShown() && !w.editorText().isEmpty() && presses < 9; ++presses) w.ctrlZ();
    ASSERT_TRUE(w.editorShown());
    EXPECT_EQ(w.text(3, Code), "a");
    w.ctrlZ();
    EXPECT_FALSE(w.editorShown());
    EXPECT_EQ(w.text(3, Code), "");
    EXPECT_TRUE(w.view().hasFocus());
}

TEST(UndoActions, LeaveACompositionAlone) {
    WindowWithActions w;
    w.keyed(3, Code, "a");
    w.focusCell(4, Code);
    w.compose("ni");
    w.ctrlZ();
    EXPECT_EQ(w.text(3, Code), "a");
    w.compose("", "你");
    EXPECT_EQ(w.grid().Text(), "你");
    w.press(Qt::Key_Return);
    EXPECT_EQ(w.text(4, Code), "你");
    w.ctrlZ();
    EXPECT_EQ(w.text(4, Code), "");
    EXPECT_EQ(w.text(3, Code), "a");
}

TEST(UndoActions, EndACompositionWhenAMenuUndoes) {
    WindowWithActions w;
    w.keyed(3, Code, "a");
    w.focusCell(4, Code);
    w.compose("ni");
    w.undo->trigger();
    Window::settle();
    w.compose("", "你");
    if (w.editorShown()) w.press(Qt::Key_Return);
    while (w.grid().History().Undo()) {
    }
    EXPECT_EQ(w.text(3, Code) + w.text(4, Code), "");
}

TEST(UndoActions, ToggleAndUndoABoxByKeys) {
    WindowWithActions w;
    w.focusCell(3, Paid);
    w.press(Qt::Key_Space);
    ASSERT_EQ(w.text(3, Paid), "-1");
    EXPECT_EQ(w.undo->text(), "撤销“勾选”");
    w.ctrlZ();
    EXPECT_EQ(w.text(3, Paid), "");
    w.press(Qt::Key_Y, Qt::ControlModifier);
    EXPECT_EQ(w.text(3, Paid), "-1");
}

TEST(UndoActions, WorkWithTheKeysOfACapsLockedKeyboard) {
    WindowWithActions w;
    w.keyed(3, Code, "a");
    w.keyed(4, Code, "b");
    // Caps lock changes the text that the key brings, not the key.
    QKeyEvent press(QEvent::KeyPress, Qt::Key_Z, Qt::ControlModifier, QString());
    QApplication::sendEvent(&w.view(), &press);
    EXPECT_EQ(w.text(4, Code), "");
    QKeyEvent character(QEvent::KeyPress, Qt::Key_unknown, Qt::NoModifier, QStringLiteral("\x1a"));
    QApplication::sendEvent(&w.view(), &character);
    EXPECT_EQ(w.text(3, Code), "a");
}
}  // namespace kxVsGrid::qt::testing

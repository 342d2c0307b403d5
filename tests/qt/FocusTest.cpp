// Where the keyboard is, what is told of it, and what leaving does.
#include <QMenu>
#include <QMessageBox>
#include <QTimer>

#include "qt/Window.h"
#include "qt/view/Scale.h"

namespace kxVsGrid::qt::testing {

TEST(Focus, GoesToTheGridByTab) {
    Window w;
    w.before->setFocus();
    QTest::keyClick(w.before, Qt::Key_Tab);
    EXPECT_TRUE(w.view().hasFocus());
    EXPECT_TRUE(w.grid().IsActive());
}

TEST(Focus, FollowsTheTabOrderThatTheHostSets) {
    Window w;
    QWidget::setTabOrder(w.after, w.widget);
    QWidget::setTabOrder(w.widget, w.before);
    w.after->setFocus();
    QTest::keyClick(w.after, Qt::Key_Tab);
    EXPECT_TRUE(w.view().hasFocus());
    w.grid().Grid().Select(1, Code);
    w.press(Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_TRUE(w.after->hasFocus());
}

TEST(Focus, MovesFromOneGridToAnotherByAPress) {
    Window w;
    auto* second = new kxGridWidget(&w.window);
    w.window.layout()->addWidget(second);
    second->grid().FormatString("n|a|b");
    second->show();
    w.settle();
    w.focusCell(1, Code);
    w.type("new");
    const QPoint cell = Scale(*second).pixels(second->grid().Grid().CellRect(2, 2)).center();
    QTest::mouseClick(second->focusProxy(), Qt::LeftButton, Qt::NoModifier, cell);
    EXPECT_EQ(w.text(1, Code), "new");
    EXPECT_FALSE(w.editorShown());
    EXPECT_FALSE(w.grid().IsActive());
    EXPECT_TRUE(second->grid().IsActive());
    EXPECT_EQ(second->grid().Row(), 2);
}

TEST(Focus, GoesToTheGridThroughTheWidget) {
    Window w;
    w.widget->setFocus();
    EXPECT_TRUE(w.view().hasFocus());
    EXPECT_EQ(w.grid().input()->focus(), FocusPlace::Grid);
}

TEST(Focus, GoesFromCellToCellByTabAndLeavesAfterTheLast) {
    Window w;
    w.grid().Rows(6);
    w.focusCell(5, Date);
    w.press(Qt::Key_Tab);
    EXPECT_EQ(w.current(), "5,6");
    while (w.widget->isAncestorOf(&focused())) {
        const std::string before = w.current();
        w.press(Qt::Key_Tab);
        if (w.current() == before) break;
    }
    EXPECT_TRUE(w.after->hasFocus());
    EXPECT_FALSE(w.grid().IsActive());
}

TEST(Focus, LeavesBackwardsFromTheFirstCell) {
    Window w;
    w.focusCell(1, Code);
    w.press(Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_TRUE(w.before->hasFocus());
}

TEST(Focus, LeavesBackwardsOutOfTheOpenEditorAfterACommit) {
    Window w;
    w.focusCell(1, Code);
    w.type("k");
    w.press(Qt::Key_Backtab, Qt::ShiftModifier);
    EXPECT_TRUE(w.before->hasFocus());
    EXPECT_EQ(w.text(1, Code), "k");
    EXPECT_FALSE(w.editorShown());
}

TEST(Focus, LostToAnotherControlCommitsOnce) {
    Window w;
    int edits = 0;
    w.grid().AfterEdit.connect([&](std::int32_t, std::int32_t) { ++edits; });
    w.focusCell(1, Code);
    w.type("new");
    QTest::mouseClick(w.after, Qt::LeftButton);
    w.after->setFocus();
    EXPECT_EQ(edits, 1);
    EXPECT_EQ(w.text(1, Code), "new");
    EXPECT_TRUE(w.after->hasFocus());
    EXPECT_FALSE(w.grid().IsActive());
}

namespace {

/// Something is typed when another window comes in front.
class InterruptedTyping : public Window {
  public:
    InterruptedTyping() {
        other_.show();
        settle();
        QApplication::setActiveWindow(&window);
        focusCell(1, Code);
        type("new");
        QApplication::setActiveWindow(&other_);
    }

  private:
    QWidget other_;
};
}  // namespace

TEST(Focus, LostToAnotherWindowCommitsNothing) {
    InterruptedTyping w;
    w.settle();
    EXPECT_TRUE(w.editorShown());
    EXPECT_TRUE(w.grid().IsActive());
    EXPECT_EQ(w.text(1, Code), "A001");
    QApplication::setActiveWindow(&w.window);
    w.settle();
    EXPECT_TRUE(w.editor().hasFocus());
    EXPECT_EQ(w.editorText(), "new");
}

TEST(Focus, GivenAwayByCodeWhileAnotherWindowIsInFrontIsLost) {
    InterruptedTyping w;
    w.after->setFocus();
    QApplication::setActiveWindow(&w.window);
    w.settle();
    EXPECT_TRUE(w.after->hasFocus());
    EXPECT_FALSE(w.grid().IsActive());
    EXPECT_EQ(w.text(1, Code), "new");
}

TEST(Focus, LostToAMenuCommitsNothing) {
    Window w;
    w.focusCell(1, Code);
    w.type("new");
    QMenu menu(&w.window);
    menu.addAction("x");
    menu.popup(QPoint(10, 10));
    w.settle();
    EXPECT_TRUE(w.editorShown());
    EXPECT_EQ(w.text(1, Code), "A001");
    menu.close();
    w.settle();
    EXPECT_TRUE(w.editor().hasFocus());
}

TEST(Focus, StaysWithTheEditorAfterARefusedEnter) {
    Window w;
    w.focusCell(1, Quantity);
    w.type("abc");
    w.press(Qt::Key_Enter);
    EXPECT_TRUE(w.editorShown());
    EXPECT_TRUE(w.editor().hasFocus());
    EXPECT_TRUE(w.grid().editorView().refused);
}

TEST(Focus, OfARefusedTextGoesWhereTheClerkPutsIt) {
    Window w;
    w.focusCell(1, Quantity);
    w.type("abc");
    w.after->setFocus();
    EXPECT_TRUE(w.editorShown());
    EXPECT_TRUE(w.after->hasFocus());
    w.click(3, Code);
    EXPECT_TRUE(w.editorShown());
    EXPECT_EQ(w.current(), "1,3");
}

TEST(Focus, LostIntoABoxOfTheHostsGoesOnToWhereTheClerkPutIt) {
    Window w;
    int edits = 0;
    w.grid().AfterEdit.connect([&](std::int32_t, std::int32_t) {
        ++edits;
        QTimer::singleShot(0, [] { QApplication::activeModalWidget()->close(); });
        QMessageBox(QMessageBox::Information, "t", "x", QMessageBox::Ok, &w.window).exec();
    });
    w.focusCell(1, Code);
    w.type("new");
    w.after->setFocus();
    QApplication::setActiveWindow(&w.window);  // which a window manager does when the box has gone
    w.settle();
    EXPECT_EQ(edits, 1);
    EXPECT_TRUE(w.after->hasFocus());
    EXPECT_FALSE(w.grid().IsActive());
    EXPECT_FALSE(w.editorShown());
}

TEST(Focus, NeverTouchesAnotherControlWhileTheEditorCloses) {
    Window w;
    int visits = 0;
    QObject::connect(qApp, &QApplication::focusChanged, w.widget, [&](QWidget*, QWidget* now) {
        if (now == w.before || now == w.after) ++visits;
    });
    w.focusCell(1, Code);
    w.type("x");
    w.press(Qt::Key_Enter);
    EXPECT_EQ(visits, 0);
    EXPECT_TRUE(w.view().hasFocus());
}

TEST(Focus, KeepsTheSelectionOfTheEditorThatWaits) {
    Window w;
    w.focusCell(1, Quantity);
    w.type("1+");
    w.press(Qt::Key_Home, Qt::ShiftModifier);
    ASSERT_EQ(w.grid().editorView().selLength, 2U);
    w.after->setFocus();
    ASSERT_TRUE(w.editorShown());
    EXPECT_EQ(w.grid().editorView().selStart, 2U);  // the refusal put the caret to the end
    w.editor().setFocus();
    EXPECT_EQ(w.grid().input()->focus(), FocusPlace::Editor);
}
}  // namespace kxVsGrid::qt::testing

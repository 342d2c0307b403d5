// Tips: a line of text beside a cell, which stands until the clerk goes on.
#include "qt/Tip.h"

#include <QClipboard>
#include <QLabel>
#include <QToolTip>
#include <stdexcept>

#include "qt/Boxes.h"
#include "qt/Menus.h"

namespace kxVsGrid::qt::testing {
namespace {

/// The tip that can be read, wherever it is; nullptr while there is none.
QLabel* tip(const QString& text) {
    for (QWidget* widget : QApplication::allWidgets())
        if (auto* label = qobject_cast<QLabel*>(widget); label && label->isVisible() && label->text() == text)
            return label;
    return nullptr;
}

/// A clerk whose fill of a column breaks off, and who closes the box of it by Enter.
class BrokenOffFill {
  public:
    BrokenOffFill() {
        w.grid().CellChanged.connect([](std::int32_t row, std::int32_t) {
            if (row == 3) throw std::runtime_error("host");
        });
        w.grid().Rows(8);
        w.grid().SetCell(1, Code, "A001");
        w.focusCell(1, Code);
        Menus menus(chooseCopies);
        rightClick(w, 1, Code);
        Window::settle();
    }

    Window w;
    Boxes boxes;
    const QString text = "填充中断，还有 5 个单元格未填充。";
};
}  // namespace

TEST(Tip, SaysThatTheEndOfAPastedTextDidNotFitIntoTheEditor) {
    const QString said = "最多 3 个字，后面的没有粘贴。";
    for (const bool severalLines : {false, true}) {
        Window w;
        w.grid().VsCtrl(Code)->iLimitLength(3);
        w.grid().VsCtrl(Code)->b是否编辑多行(severalLines);
        w.focusCell(3, Code);
        w.type("a");
        QApplication::clipboard()->setText("数量");
        w.press(Qt::Key_V, Qt::ControlModifier);
        EXPECT_EQ(w.editorText(), "a数量");
        EXPECT_EQ(tip(said), nullptr);
        w.press(Qt::Key_Left, Qt::ShiftModifier);
        QApplication::clipboard()->setText("单价");
        w.press(Qt::Key_V, Qt::ControlModifier);
        EXPECT_EQ(w.editorText(), "a数单");
        EXPECT_NE(tip(said), nullptr) << severalLines;
        w.type("x");
        EXPECT_EQ(w.editorText(), "a数单");
        Window::settle();
        EXPECT_EQ(tip(said), nullptr);
    }
}

TEST(Tip, SaysWhyAValuePastedOnAClosedCellWasRefused) {
    Window w;
    w.grid().VsCtrl(Code)->iLimitLength(3);
    w.focusCell(1, Code);
    const std::string before = w.text(1, Code);
    QApplication::clipboard()->setText("数量单价");
    w.press(Qt::Key_V, Qt::ControlModifier);
    EXPECT_FALSE(w.editorShown());
    EXPECT_EQ(w.text(1, Code), before);
    EXPECT_NE(tip("最多 3 个字。"), nullptr);
    w.focusCell(1, Quantity);
    QApplication::clipboard()->setText("2026/12/5");
    w.press(Qt::Key_V, Qt::ControlModifier);
    EXPECT_TRUE(w.editorShown());
    EXPECT_NE(tip("是日期，不是数字。"), nullptr);
}

TEST(Tip, OfABrokenOffFillIsReadOnceItsBoxIsClosed) {
    BrokenOffFill fill;
    ASSERT_EQ(fill.boxes.count(), 1U);
    ASSERT_TRUE(waitUntil([&] { return fill.w.window.isActiveWindow(); }));
    EXPECT_TRUE(waitUntil([&] { return tip(fill.text) != nullptr; }));
    QEvent activated(QEvent::WindowActivate);
    QApplication::sendEvent(&fill.w.window, &activated);
    Window::settle();
    ASSERT_NE(tip(fill.text), nullptr) << "the window became active again";
    const QRect below(fill.w.view().mapTo(&fill.w.window, fill.w.cell(1, Code).bottomLeft()), QSize(1, 1));
    EXPECT_LE((tip(fill.text)->geometry().topLeft() - below.topLeft()).manhattanLength(), 6);
    EXPECT_TRUE(fill.w.window.rect().contains(tip(fill.text)->geometry()));
    fill.w.picture("tip-of-a-broken-off-fill");
}

TEST(Tip, GoesWithTheNextKeyAndTakesNothingOfIt) {
    BrokenOffFill fill;
    ASSERT_TRUE(waitUntil([&] { return tip(fill.text) != nullptr; }));
    EXPECT_EQ(QApplication::focusWidget(), &fill.w.view());
    fill.w.type("7");
    EXPECT_EQ(tip(fill.text), nullptr);
    EXPECT_EQ(fill.w.editorText(), "7");
}

TEST(Tip, GoesWithTheNextPressWhichGoesThroughIt) {
    BrokenOffFill fill;
    ASSERT_TRUE(waitUntil([&] { return tip(fill.text) != nullptr; }));
    fill.w.click(2, Code);
    EXPECT_EQ(tip(fill.text), nullptr);
    EXPECT_EQ(fill.w.current(), "2,1");
}

TEST(Tip, GoesWithItsWindowAndDoesNotComeBackWithIt) {
    BrokenOffFill fill;
    ASSERT_TRUE(waitUntil([&] { return tip(fill.text) != nullptr; }));
    fill.w.window.hide();
    fill.w.window.show();
    Window::settle();
    EXPECT_EQ(tip(fill.text), nullptr);
}

TEST(Tip, StaysWhileAKeyIsHeldDown) {
    BrokenOffFill fill;
    ASSERT_TRUE(waitUntil([&] { return tip(fill.text) != nullptr; }));
    QKeyEvent held(QEvent::KeyPress, Qt::Key_Shift, Qt::ShiftModifier, {}, true);
    QApplication::sendEvent(&fill.w.view(), &held);
    EXPECT_NE(tip(fill.text), nullptr);
}

TEST(Tip, ShowsItsTextAsItIsWithinItsWindow) {
    Window w;
    const QString text = "A & B <b>" + QString(300, 'x') + " " + QString(300, 'y');
    const QRect corner(w.window.mapToGlobal(w.window.rect().bottomRight()), QSize(10, 10));
    new Tip(*w.widget, corner, text);
    QLabel* shown = tip(text);
    ASSERT_NE(shown, nullptr);
    EXPECT_EQ(shown->textFormat(), Qt::PlainText);
    EXPECT_TRUE(w.window.rect().contains(shown->geometry().topLeft()));
    EXPECT_GE(shown->geometry().left(), 0);
    EXPECT_LE(shown->geometry().right(), w.window.rect().right());
}
}  // namespace kxVsGrid::qt::testing

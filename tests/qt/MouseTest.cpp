// Presses, double clicks, the wheel, dragging.
#include <QHelpEvent>
#include <QMessageBox>
#include <QTimer>
#include <QToolTip>
#include <QWheelEvent>

#include "qt/Window.h"

namespace kxVsGrid::qt::testing {
namespace {

void turnWheel(QWidget& widget, const QPoint& angle, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    const QPointF at = widget.rect().center();
    QWheelEvent event(at, widget.mapToGlobal(at), QPoint(), angle, Qt::NoButton, modifiers, Qt::NoScrollPhase,
                      false);
    QApplication::sendEvent(&widget, &event);
}
}  // namespace

TEST(Mouse, PressMovesTheCellAndTakesTheKeyboard) {
    Window w;
    w.click(3, Quantity);
    EXPECT_EQ(w.current(), "3,3");
    EXPECT_TRUE(w.view().hasFocus());
    EXPECT_FALSE(w.editorShown());
}

TEST(Mouse, PressCommitsTheOpenEditorFirst) {
    Window w;
    w.focusCell(1, Code);
    w.type("new");
    w.click(3, Quantity);
    EXPECT_EQ(w.text(1, Code), "new");
    EXPECT_EQ(w.current(), "3,3");
    EXPECT_TRUE(w.view().hasFocus());
}

TEST(Mouse, PressIsHeldBackByARefusedText) {
    Window w;
    w.focusCell(1, Quantity);
    w.type("1+");
    w.click(3, Code);
    EXPECT_EQ(w.current(), "1,3");
    EXPECT_TRUE(w.editorShown());
    EXPECT_TRUE(w.editor().hasFocus());
}

TEST(Mouse, DoubleClickOpensTheEditor) {
    Window w;
    int clicks = 0;
    int doubles = 0;
    w.grid().Click.connect([&] { ++clicks; });
    w.grid().DblClick.connect([&] { ++doubles; });
    w.doubleClick(1, Code);
    ASSERT_TRUE(w.editorShown());
    EXPECT_EQ(w.editorText(), "A001");
    EXPECT_EQ(w.grid().editorView().selLength, 4U);
    EXPECT_EQ(doubles, 1);
    EXPECT_GE(clicks, 1);
}

TEST(Mouse, SingleClickOnABooleanCellOnlyMoves) {
    Window w;
    w.click(2, Paid);
    EXPECT_EQ(w.text(2, Paid), "");
    w.doubleClick(2, Paid);
    EXPECT_EQ(w.text(2, Paid), "-1");
}

TEST(Mouse, RightPressMovesThereAndIsTold) {
    Window w;
    std::int16_t button = 0;
    w.grid().MouseDown.connect([&](std::int16_t b, std::int16_t, float, float, bool& cancel) {
        button = b;
        cancel = true;
    });
    w.focusCell(1, Code);
    QTest::mouseClick(&w.view(), Qt::RightButton, Qt::NoModifier, w.at(3, Quantity));
    EXPECT_EQ(button, RightButton);
    EXPECT_EQ(w.current(), "3," + std::to_string(Quantity));
}

TEST(Mouse, PressOnTheTotalRowDoesNothing) {
    Window w;
    w.focusCell(1, Code);
    Rect totals = w.grid().totalRowRect();
    const QPoint middle(w.at(1, Quantity).x(), (totals.top + totals.height / 2) / 15);
    QTest::mouseClick(&w.view(), Qt::LeftButton, Qt::NoModifier, middle);
    EXPECT_EQ(w.current(), "1,1");
}

TEST(Mouse, WheelScrollsThreeRowsForANotch) {
    Window w;
    turnWheel(w.view(), {0, -120});
    EXPECT_EQ(w.grid().Grid().TopRow(), 4);
    turnWheel(w.view(), {0, 120});
    EXPECT_EQ(w.grid().Grid().TopRow(), 1);
}

TEST(Mouse, WheelAddsUpSmallTurns) {
    Window w;
    for (int i = 0; i < 7; ++i) turnWheel(w.view(), {0, -15});
    EXPECT_EQ(w.grid().Grid().TopRow(), 1);
    turnWheel(w.view(), {0, -15});
    EXPECT_EQ(w.grid().Grid().TopRow(), 4);
}

TEST(Mouse, WheelGoesSidewaysWithShift) {
    Window w;
    w.grid().ColWidth(Code, 20'000);
    w.settle();
    turnWheel(w.view(), {0, -120}, Qt::ShiftModifier);
    EXPECT_EQ(w.grid().Grid().TopRow(), 1);
    EXPECT_EQ(w.grid().Grid().LeftCol(), Code + 1);
    turnWheel(w.view(), {0, 120}, Qt::ShiftModifier);
    EXPECT_EQ(w.grid().Grid().LeftCol(), Code);
}

TEST(Mouse, WheelDoesNotScrollAwayFromTheOpenEditor) {
    Window w;
    w.focusCell(1, Code);
    w.type("x");
    turnWheel(w.editor(), {0, -120});
    EXPECT_EQ(w.grid().Grid().TopRow(), 1);
    EXPECT_EQ(w.editor().geometry(), w.cell(1, Code));
}

TEST(Mouse, DragsAColumnsEdge) {
    Window w;
    int resized = 0;
    w.grid().Grid().AfterUserResize.connect([&](std::int32_t, std::int32_t col) { resized = col; });
    const QRect header = w.cell(0, Code);
    const QPoint edge(header.right(), header.center().y());
    const std::int32_t before = w.grid().ColWidth(Code);
    QTest::mouseMove(&w.view(), edge);
    EXPECT_EQ(w.view().cursor().shape(), Qt::SplitHCursor);
    QTest::mousePress(&w.view(), Qt::LeftButton, Qt::NoModifier, edge);
    QMouseEvent move(QEvent::MouseMove, edge + QPoint(20, 0), w.view().mapToGlobal(edge + QPoint(20, 0)),
                     Qt::NoButton, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&w.view(), &move);
    QTest::mouseRelease(&w.view(), Qt::LeftButton, Qt::NoModifier, edge + QPoint(20, 0));
    EXPECT_EQ(resized, Code);
    EXPECT_NEAR(w.grid().ColWidth(Code), before + 300, 15);
    QTest::mouseMove(&w.view(), w.at(3, Code));
    EXPECT_EQ(w.view().cursor().shape(), Qt::ArrowCursor);
}

TEST(Mouse, RestingOnATextThatDoesNotFitShowsItInFull) {
    Window w;
    w.grid().Grid().Text(3, Code, "a text that is <much> too long for its cell");
    for (const std::int32_t row : {1, 3}) {
        const QPoint at = w.at(row, Code);
        QHelpEvent event(QEvent::ToolTip, at, w.view().mapToGlobal(at));
        QApplication::sendEvent(&w.view(), &event);
        EXPECT_EQ(QToolTip::text().contains("too long"), row == 3);
    }
    QToolTip::hideText();
}

TEST(Mouse, PressWhoseCommitOpensABoxStillMovesTheCell) {
    Window w;
    w.grid().AfterEdit.connect([&](std::int32_t, std::int32_t) {
        QTimer::singleShot(0, [] { QApplication::activeModalWidget()->close(); });
        QMessageBox(QMessageBox::Information, "t", "x", QMessageBox::Ok, &w.window).exec();
    });
    w.focusCell(1, Code);
    w.type("new");
    w.click(3, Quantity);
    EXPECT_EQ(w.text(1, Code), "new");
    EXPECT_EQ(w.current(), "3,3");
    QApplication::setActiveWindow(&w.window);  // which a window manager does when the box has gone
    w.settle();
    EXPECT_TRUE(w.view().hasFocus());
    EXPECT_FALSE(w.editorShown());
}

TEST(ScrollBars, AreShownAsTheGridDecides) {
    Window w;
    EXPECT_EQ(w.bar(Qt::Vertical).isVisible(), w.grid().Grid().VerticalBarShown());
    EXPECT_TRUE(w.bar(Qt::Vertical).isVisible());
    EXPECT_EQ(w.bar(Qt::Horizontal).isVisible(), w.grid().Grid().HorizontalBarShown());
    w.grid().Rows(6);
    w.settle();
    EXPECT_EQ(w.bar(Qt::Vertical).isVisible(), w.grid().Grid().VerticalBarShown());
    EXPECT_FALSE(w.bar(Qt::Vertical).isVisible());
}

TEST(ScrollBars, ScrollTheGrid) {
    Window w;
    w.bar(Qt::Vertical).setValue(5);
    EXPECT_EQ(w.grid().Grid().TopRow(), 5);
    w.grid().Grid().TopRow(9);
    w.settle();
    EXPECT_EQ(w.bar(Qt::Vertical).value(), 9);
}

TEST(ScrollBars, GoBackWhenTheGridStaysWithItsEditor) {
    Window w;
    w.focusCell(1, Code);
    w.type("x");
    w.bar(Qt::Vertical).setValue(5);
    EXPECT_EQ(w.grid().Grid().TopRow(), 1);
    EXPECT_EQ(w.bar(Qt::Vertical).value(), 1);
}
}  // namespace kxVsGrid::qt::testing

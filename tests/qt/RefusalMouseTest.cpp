// A refused text under presses in the grid itself.
#include <QScrollArea>
#include <QToolButton>

#include "qt/InterruptedClick.h"

namespace kxVsGrid::qt::testing {

TEST(RefusalUnderTheMouse, LeavesEverythingWhereItIsWhenAnotherCellIsPressed) {
    for (const Release when : releases) {
        CheckedWindow w;
        int told = 0;
        w.grid().MouseDown.connect([&](std::int16_t, std::int16_t, float, float, bool&) { ++told; });
        w.grid().Click.connect([&] { ++told; });
        w.grid().DblClick.connect([&] { ++told; });
        w.fill(1, Code, "B9");
        const InterruptedClick click(w.view(), w.at(3, Quantity), when);
        EXPECT_EQ(click.boxes.texts(), QStringList{"没有这个货号！"});
        EXPECT_EQ(w.asked, 1);
        EXPECT_EQ(told, 0);
        expectNothingMoved(w);
    }
}

TEST(RefusalUnderTheMouse, IsNotRepeatedByAnythingPressedInTheGrid) {
    CheckedWindow w;
    Boxes boxes;
    w.refuseCode();
    const std::int32_t width = w.grid().ColWidth(Code);
    const QRect header = w.cell(0, Code);
    const QPoint edge(header.right(), header.center().y());
    const int totals = w.view().height() - 30;
    for (const QPoint& at : {w.at(3, Quantity), w.at(2, Paid), w.at(0, Name), w.at(2, Number), edge,
                             QPoint(w.at(1, Name).x(), totals)}) {
        SCOPED_TRACE(std::to_string(at.x()) + "," + std::to_string(at.y()));
        screen::click(w.view(), at);
        expectNothingMoved(w);
        screen::doubleClick(w.view(), at);
        expectNothingMoved(w);
        screen::press(w.view(), at);
        screen::move(w.view(), at + QPoint(25, 25));
        screen::release(w.view(), at + QPoint(25, 25));
        expectNothingMoved(w);
    }
    EXPECT_EQ(w.grid().ColWidth(Code), width);
    EXPECT_EQ(w.text(2, Paid), "");
    EXPECT_EQ(boxes.count(), 1U);
    EXPECT_EQ(w.asked, 1);
}

TEST(RefusalUnderTheMouse, KeepsItsPlaceUnderWheelAndScrollBars) {
    CheckedWindow w;
    Boxes boxes;
    w.refuseCode();
    turnWheel(w.view());
    turnWheel(w.editor());
    QScrollBar& bar = w.bar(Qt::Vertical);
    ASSERT_TRUE(bar.isVisible());
    screen::click(bar, QPoint(bar.width() / 2, bar.height() - bar.width() / 2));
    screen::click(bar, QPoint(bar.width() / 2, bar.height() / 2));
    w.settle();
    EXPECT_EQ(bar.value(), 1);
    EXPECT_EQ(w.editor().geometry(), w.cell(1, Code));
    expectNothingMoved(w);
    EXPECT_EQ(boxes.count(), 1U);
}

TEST(RefusalUnderTheMouse, LetsTheClerkWorkInTheTextItself) {
    CheckedWindow w;
    Boxes boxes;
    w.refuseCode("B9 B9");
    screen::click(w.editor(), QPoint(5, w.editor().height() / 2));
    EXPECT_EQ(w.grid().editorView().selLength, 0U);
    EXPECT_TRUE(w.grid().editorView().refused);
    w.press(Qt::Key_Delete);
    EXPECT_EQ(w.editorText(), "9 B9");
    EXPECT_FALSE(w.grid().editorView().refused);
    EXPECT_EQ(boxes.count(), 1U);
}

TEST(RefusalUnderTheMouse, EndsAndThePressIsDelivered) {
    CheckedWindow w;
    Boxes boxes;
    w.refuseCode();
    w.type("A4");
    screen::click(w.view(), w.at(3, Quantity));
    EXPECT_EQ(w.text(1, Code), "A4");
    EXPECT_EQ(w.current(), "3,3");
    EXPECT_TRUE(w.view().hasFocus());
    EXPECT_EQ(boxes.count(), 1U);
}

TEST(RefusalUnderTheMouse, HoldsInsideAScrollAreaThatTakesTheFocusByAPress) {
    for (const Release when : releases) {
        CheckedWindow w;
        auto* area = new QScrollArea;
        delete w.window.layout()->replaceWidget(w.widget, area);
        area->setWidget(w.widget);
        area->setWidgetResizable(true);
        w.settle();
        w.fill(1, Code, "B9");
        const InterruptedClick click(w.view(), w.at(3, Quantity), when);
        EXPECT_EQ(click.boxes.count(), 1U);
        expectNothingMoved(w);
        w.type("A4");
        screen::click(w.view(), w.at(3, Quantity));
        EXPECT_EQ(w.text(1, Code), "A4");
        EXPECT_EQ(w.current(), "3,3");
        EXPECT_TRUE(w.view().hasFocus());
    }
}

TEST(FocusLoss, IsNoPressOnTheGridsOwnBarsAndButtonInsideAScrollArea) {
    CheckedWindow w;
    Boxes boxes;
    auto* area = new QScrollArea;
    delete w.window.layout()->replaceWidget(w.widget, area);
    area->setWidget(w.widget);
    area->setWidgetResizable(true);
    w.grid().VsCtrl(Code)->b是否提供帮助(true);
    w.settle();
    w.fill(1, Code, "B9");
    auto* help = w.widget->findChild<QToolButton*>();
    ASSERT_TRUE(help != nullptr && help->isVisible());
    ASSERT_TRUE(w.bar(Qt::Vertical).isVisible());
    for (QWidget* own : {static_cast<QWidget*>(&w.bar(Qt::Vertical)), static_cast<QWidget*>(help)}) {
        screen::click(*own);
        w.settle();
        EXPECT_EQ(QApplication::focusWidget(), &w.editor());
        EXPECT_EQ(w.editorText(), "B9");
        EXPECT_EQ(w.asked, 0);
        EXPECT_TRUE(w.grid().IsActive());
    }
    EXPECT_EQ(boxes.count(), 1U);  // nobody answers the help
    screen::click(*w.save);
    EXPECT_EQ(w.asked, 1);
    EXPECT_EQ(boxes.count(), 2U);
}

TEST(BoxOfTheHosts, DuringAPressInTheGridTakesItNoRelease) {
    for (const Release when : releases) {
        CheckedWindow w;
        int clicks = 0;
        w.grid().Click.connect([&] { ++clicks; });
        w.grid().AfterEdit.connect([&](std::int32_t, std::int32_t) {
            QMessageBox(QMessageBox::Information, "t", "x", QMessageBox::Ok, &w.window).exec();
        });
        const QRect header = w.cell(0, Code);
        const QPoint edge(header.right(), header.center().y());
        w.fill(1, Code, "A4");
        {
            const InterruptedClick click(w.view(), w.at(3, Quantity), when);
            EXPECT_EQ(click.boxes.count(), 1U);
        }
        EXPECT_EQ(w.current(), "3,3");
        EXPECT_EQ(clicks, 1);
        // the edge of a column is not dragged on without a button
        QApplication::setActiveWindow(&w.window);
        w.fill(1, Code, "A5");
        const std::int32_t width = w.grid().ColWidth(Code);
        {
            const InterruptedClick click(w.view(), edge, when);
            EXPECT_EQ(click.boxes.count(), 1U);
        }
        screen::move(w.view(), edge + QPoint(40, 0));
        EXPECT_EQ(w.grid().ColWidth(Code), width);
    }
}
}  // namespace kxVsGrid::qt::testing

// A refused text when the keyboard goes to another control of the window, and when it only seems to.
#include <QComboBox>
#include <QMenu>
#include <QWindow>

#include "qt/InterruptedClick.h"
#include "qt/view/Scale.h"

namespace kxVsGrid::qt::testing {

// --- To another control of the window

TEST(RefusalOnFocusLoss, TakesTheKeyboardBackAndHoldsThePressBack) {
    for (const Release when : releases) {
        CheckedWindow w;
        w.fill(1, Code, "B9");
        MouseLog log(*w.after);
        const InterruptedClick click(*w.after, w.after->rect().center(), when);
        EXPECT_EQ(click.boxes.count(), 1U);
        EXPECT_EQ(w.asked, 1);
        expectNothingMoved(w);
        EXPECT_EQ(log.events, QStringList{});
        screen::move(*w.after, QPoint(3, 3));
        EXPECT_EQ(log.events, QStringList{});
    }
}

TEST(RefusalOnFocusLoss, IsNotRepeatedWhenTheClerkInsists) {
    for (const Release when : releases) {
        CheckedWindow w;
        w.fill(1, Code, "B9");
        const InterruptedClick click(*w.after, w.after->rect().center(), when);
        MouseLog log(*w.after);
        screen::click(*w.after);
        EXPECT_EQ(log.events, (QStringList{"press", "release"}));
        EXPECT_TRUE(w.after->hasFocus());
        EXPECT_FALSE(w.grid().IsActive());
        EXPECT_TRUE(w.editorShown());
        EXPECT_EQ(click.boxes.count(), 1U);
        // back at the grid everything is still where it was
        screen::click(w.view(), w.at(3, Quantity));
        expectNothingMoved(w);
        EXPECT_EQ(click.boxes.count(), 1U);
    }
}

TEST(RefusalOnFocusLoss, LeavesNoButtonDownAndClicksNone) {
    for (const Release when : releases) {
        CheckedWindow w;
        w.fill(1, Code, "B9");
        const InterruptedClick click(*w.save, w.save->rect().center(), when);
        EXPECT_EQ(click.boxes.count(), 1U);
        EXPECT_FALSE(w.save->isDown());
        EXPECT_EQ(w.saved, 0);
        expectNothingMoved(w);
        w.type("A4");
        screen::click(*w.save);
        EXPECT_EQ(w.saved, 1);
        EXPECT_EQ(w.text(1, Code), "A4");
        EXPECT_FALSE(w.save->isDown());
    }
}

TEST(RefusalOnFocusLoss, OpensNoListOfAComboBox) {
    CheckedWindow w;
    auto* choice = new QComboBox;
    choice->addItems({"a", "b"});
    choice->setFocusPolicy(Qt::StrongFocus);
    w.window.layout()->addWidget(choice);
    w.settle();
    w.fill(1, Code, "B9");
    const InterruptedClick click(*choice, choice->rect().center(), Release::WhileTheBoxIsOpen);
    EXPECT_EQ(click.boxes.count(), 1U);
    EXPECT_EQ(QApplication::activePopupWidget(), nullptr);
    expectNothingMoved(w);
}

TEST(RefusalOnFocusLoss, TurnsNoComboBoxThatTheWheelIsOver) {
    CheckedWindow w;
    Boxes boxes;
    QComboBox choice(&w.window);
    choice.addItems({"a", "b"});
    choice.show();
    w.fill(1, Code, "B9");
    choice.setFocus(Qt::MouseFocusReason);  // as the wheel of a real mouse does
    turnWheel(choice);
    w.settle();
    EXPECT_EQ(choice.currentIndex(), 0);
    EXPECT_EQ(boxes.count(), 1U);
    expectNothingMoved(w);
    turnWheel(choice);
    EXPECT_EQ(choice.currentIndex(), 1);
}

TEST(RefusalOnFocusLoss, OpensNoContextMenuOfAnotherControl) {
    for (const bool late : {false, true}) {
        CheckedWindow w;
        int menus = 0;
        w.save->setContextMenuPolicy(Qt::CustomContextMenu);
        QObject::connect(w.save, &QWidget::customContextMenuRequested, w.save, [&] { ++menus; });
        QWindow* window = w.window.windowHandle();
        const QPoint at = w.save->mapTo(&w.window, w.save->rect().center());
        Boxes boxes([&](QMessageBox& box) {
            if (!late) QTest::mouseRelease(window, Qt::RightButton, {}, at);
            Boxes::enter(box);
        });
        w.fill(1, Code, "B9");
        QTest::mousePress(window, Qt::RightButton, {}, at);
        if (late) QTest::mouseRelease(window, Qt::RightButton, {}, at);
        w.settle();
        EXPECT_EQ(boxes.count(), 1U);
        EXPECT_EQ(menus, 0);
        expectNothingMoved(w);
        QTest::mousePress(window, Qt::RightButton, {}, at);
        QTest::mouseRelease(window, Qt::RightButton, {}, at);
        EXPECT_EQ(menus, 1);
    }
}

TEST(RefusalOnFocusLoss, ToAnotherGridHoldsThePressThereBack) {
    for (const Release when : releases) {
        CheckedWindow w;
        auto* second = new kxGridWidget(&w.window);
        w.window.layout()->addWidget(second);
        second->grid().FormatString("n|a|b");
        second->grid().SumRow(true);
        w.window.resize(640, 560);
        w.settle();
        int told = 0;
        second->grid().MouseDown.connect([&](std::int16_t, std::int16_t, float, float, bool&) { ++told; });
        second->grid().Click.connect([&] { ++told; });
        const QPoint cell = Scale(*second).pixels(second->grid().Grid().CellRect(2, 2)).center();
        const QPoint totals = Scale(*second).pixels(second->grid().totalRowRect()).center();
        w.fill(1, Code, "B9");
        screen::click(*second->focusProxy(), totals);
        EXPECT_EQ(w.asked, 0);
        EXPECT_EQ(QApplication::focusWidget(), &w.editor());
        const InterruptedClick click(*second->focusProxy(), cell, when);
        EXPECT_EQ(click.boxes.count(), 1U);
        expectNothingMoved(w);
        EXPECT_EQ(second->grid().Row(), 1);
        EXPECT_EQ(told, 0);
        w.type("A4");
        screen::click(*second->focusProxy(), cell);
        EXPECT_EQ(w.text(1, Code), "A4");
        EXPECT_EQ(second->grid().Row(), 2);
        EXPECT_GE(told, 2);
        EXPECT_TRUE(second->focusProxy()->hasFocus());
    }
}

TEST(RefusalOnFocusLoss, ByCodeTakesTheKeyboardBackAndHoldsNoLaterPressBack) {
    for (const Qt::FocusReason reason : {Qt::OtherFocusReason, Qt::MouseFocusReason, Qt::TabFocusReason}) {
        CheckedWindow w;
        Boxes boxes;
        w.fill(1, Code, "B9");
        w.after->setFocus(reason);
        w.settle();
        EXPECT_EQ(boxes.count(), 1U);
        expectNothingMoved(w);
        screen::click(*w.save);
        EXPECT_EQ(w.saved, 1);
    }
}

TEST(RefusalOnFocusLoss, OfAnExpressionShowsNoBoxAndDeliversThePress) {
    CheckedWindow w;
    Boxes boxes;
    w.fill(1, Quantity, "1+");
    screen::click(*w.save);
    EXPECT_EQ(w.saved, 1);
    EXPECT_TRUE(w.save->hasFocus());
    EXPECT_TRUE(w.editorShown());
    EXPECT_EQ(boxes.count(), 0U);
}

TEST(RefusalOnFocusLoss, OfSeveralLinesTakesTheKeyboardBack) {
    CheckedWindow w;
    w.fill(2, Remark, "aX");
    const InterruptedClick click(*w.save, w.save->rect().center(), Release::WhileTheBoxIsOpen);
    EXPECT_EQ(click.boxes.count(), 1U);
    w.expectAllSelected("aX");
    EXPECT_EQ(w.saved, 0);
}

TEST(FocusLoss, OfAGoodTextCommitsOnceAndClicksTheButtonOnce) {
    CheckedWindow w;
    Boxes boxes;
    w.fill(1, Code, "A4");
    screen::click(*w.save);
    EXPECT_EQ(w.edited, 1);
    EXPECT_EQ(w.asked, 1);
    EXPECT_EQ(w.saved, 1);
    EXPECT_TRUE(w.save->hasFocus());
    EXPECT_EQ(w.text(1, Code), "A4");
    EXPECT_EQ(boxes.count(), 0U);
}

TEST(BoxOfTheHosts, DuringAFocusLossLosesNoClick) {
    for (const Release when : releases) {
        CheckedWindow w;
        w.grid().AfterEdit.connect([&](std::int32_t, std::int32_t) {
            QMessageBox(QMessageBox::Information, "t", "x", QMessageBox::Ok, &w.window).exec();
        });
        w.fill(1, Code, "A4");
        MouseLog log(*w.save);
        const InterruptedClick click(*w.save, w.save->rect().center(), when);
        EXPECT_EQ(click.boxes.count(), 1U);
        EXPECT_EQ(log.events, (QStringList{"press", "release"}));
        EXPECT_EQ(w.saved, 1);
        EXPECT_FALSE(w.save->isDown());
        EXPECT_EQ(w.edited, 1);
        EXPECT_FALSE(w.editorShown());
    }
}

// --- A host that saves

namespace {

/// Asks the grid as a host does before it saves.
void checkOnSave(CheckedWindow& w, int& accepted) {
    QObject::connect(w.save, &QPushButton::clicked, w.save,
                     [&] { accepted += w.grid().ValidTextData() ? 1 : 0; });
}
}  // namespace

TEST(SaveButton, ShowsExactlyOneBoxForARefusedText) {
    for (const Release when : releases) {
        for (const Qt::FocusPolicy policy : {Qt::StrongFocus, Qt::NoFocus}) {
            CheckedWindow w;
            int accepted = 0;
            checkOnSave(w, accepted);
            w.save->setFocusPolicy(policy);
            w.fill(1, Code, "B9");
            const InterruptedClick click(*w.save, w.save->rect().center(), when);
            EXPECT_EQ(click.boxes.count(), 1U);
            EXPECT_EQ(accepted, 0);
            EXPECT_FALSE(w.save->isDown());
            expectNothingMoved(w);
        }
    }
}

TEST(SaveButton, ShowsExactlyOneBoxForARefusedTextWhenItsShortcutIsTyped) {
    CheckedWindow w;
    Boxes boxes;
    int accepted = 0;
    checkOnSave(w, accepted);
    w.fill(1, Code, "B9");
    QTest::keyClick(w.window.windowHandle(), Qt::Key_S, Qt::AltModifier);
    EXPECT_TRUE(waitUntil([&] { return w.saved == 1; }));
    w.settle();
    EXPECT_EQ(boxes.count(), 1U);
    EXPECT_EQ(accepted, 0);
    EXPECT_FALSE(w.save->isDown());
    expectNothingMoved(w);
}

TEST(SaveButton, SavesTheCorrectedText) {
    CheckedWindow w;
    int accepted = 0;
    checkOnSave(w, accepted);
    w.fill(1, Code, "B9");
    const InterruptedClick click(*w.save, w.save->rect().center(), Release::WhileTheBoxIsOpen);
    w.type("A4");
    screen::click(*w.save);
    EXPECT_EQ(accepted, 1);
    EXPECT_EQ(w.text(1, Code), "A4");
    EXPECT_EQ(click.boxes.count(), 1U);
}

TEST(SaveButton, InTheMenuShowsExactlyOneBox) {
    CheckedWindow w;
    Boxes boxes;
    int accepted = 0;
    checkOnSave(w, accepted);
    QAction* document = w.menus->actions()[0];
    QObject::connect(document->menu()->actions()[0], &QAction::triggered, w.save, &QPushButton::click);
    w.fill(1, Code, "B9");
    screen::click(*w.menus, w.menus->actionGeometry(document).center());
    w.settle();
    ASSERT_EQ(QApplication::activePopupWidget(), document->menu());
    EXPECT_EQ(boxes.count(), 0U);
    EXPECT_EQ(w.asked, 0);
    QTest::keyClick(document->menu()->windowHandle(), Qt::Key_Down);
    QTest::keyClick(document->menu()->windowHandle(), Qt::Key_Return);
    w.settle();
    EXPECT_EQ(w.saved, 1);
    EXPECT_EQ(boxes.count(), 1U);
    EXPECT_EQ(accepted, 0);
    expectNothingMoved(w);
}

// --- No loss of the focus

TEST(NoFocusLoss, IsASwitchToAnotherWindowAndBack) {
    for (const bool refused : {false, true}) {
        CheckedWindow w;
        Boxes boxes;
        QWidget other;
        other.show();
        w.settle();
        QApplication::setActiveWindow(&w.window);
        if (refused)
            w.refuseCode();
        else
            w.fill(1, Code, "B9");
        const int asked = w.asked;
        for (int i = 0; i < 2; ++i) {
            QApplication::setActiveWindow(&other);
            w.settle();
            EXPECT_TRUE(w.grid().IsActive());
            QApplication::setActiveWindow(&w.window);
            w.settle();
        }
        EXPECT_EQ(w.asked, asked);
        EXPECT_EQ(boxes.count(), refused ? 1U : 0U);
        EXPECT_EQ(QApplication::focusWidget(), &w.editor());
        EXPECT_EQ(w.editorText(), "B9");
        if (refused) expectNothingMoved(w);
    }
}

TEST(NoFocusLoss, IsAMenuOrTheMenuBar) {
    for (const bool refused : {false, true}) {
        CheckedWindow w;
        Boxes boxes;
        if (refused)
            w.refuseCode();
        else
            w.fill(1, Code, "B9");
        const int asked = w.asked;
        w.menus->setFocus(Qt::MenuBarFocusReason);
        w.settle();
        EXPECT_TRUE(w.grid().IsActive());
        w.editor().setFocus(Qt::MenuBarFocusReason);
        QAction* document = w.menus->actions()[0];
        screen::click(*w.menus, w.menus->actionGeometry(document).center());
        w.settle();
        ASSERT_NE(QApplication::activePopupWidget(), nullptr);
        EXPECT_TRUE(w.grid().IsActive());
        QTest::keyClick(document->menu()->windowHandle(), Qt::Key_Escape);
        w.settle();
        w.menus->setActiveAction(nullptr);
        w.editor().setFocus(Qt::MenuBarFocusReason);
        EXPECT_EQ(w.asked, asked);
        EXPECT_EQ(boxes.count(), refused ? 1U : 0U);
        EXPECT_TRUE(w.editorShown());
        EXPECT_EQ(w.editorText(), "B9");
    }
}
}  // namespace kxVsGrid::qt::testing

// The control's menus as real ones: opened by mouse and by keys, chosen from, left.
#include "qt/Menus.h"

#include <QClipboard>
#include <QInputDialog>
#include <QMouseEvent>

#include "qt/ContextMenu.h"

namespace kxVsGrid::qt::testing {

TEST(Menus, PopUpWhereTheMousePressedWithTheItemsThatAreShown) {
    Window w;
    w.focusCell(1, Code);
    Menus menus([](QMenu&) {});
    rightClick(w, 2, Code);
    ASSERT_EQ(menus.seen.size(), 1U);
    EXPECT_EQ(menus.seen[0],
              (QStringList{"新增行", "复制行", "插入行", "复制插入行", "-", "删除行", "-", "填充列"}));
    EXPECT_LE((menus.place - w.view().mapToGlobal(w.at(2, Code))).manhattanLength(), 2);
    EXPECT_EQ(w.current(), "2,1");
}

TEST(Menus, FillTheColumnThatWasPressed) {
    Window w;
    w.grid().SetCell(2, Quantity, "1");
    w.focusCell(1, Code);
    Menus menus([](QMenu& menu) {
        QMenu* fills = item(menu, "填充列").menu();
        ASSERT_NE(fills, nullptr);
        menu.setActiveAction(fills->menuAction());
        QTest::keyClick(&menu, Qt::Key_Right);
        QTest::keyClick(fills, Qt::Key_C);
    });
    rightClick(w, 2, Quantity);
    EXPECT_EQ(w.text(1, Quantity), "1234.5") << "above the pressed cell";
    EXPECT_EQ(w.text(3, Quantity), "1.00");
    EXPECT_EQ(w.text(3, Code), "");
}

TEST(Menus, DeleteTheRowWhoseNumberWasPressedAndKeepTheColumn) {
    Window w;
    for (int row = 1; row < 4; ++row) w.grid().SetCell(row, Code, "A" + std::to_string(row));
    w.focusCell(1, Quantity);
    w.grid().DeleteVsRow.connect([](std::int32_t, bool& consent) { consent = true; });
    Menus menus([](QMenu& menu) { chooseByKeys(menu, "删除行"); });
    rightClick(w, 3, 0);
    EXPECT_EQ(w.text(2, Code), "A2");
    EXPECT_EQ(w.text(3, Code), "");
    EXPECT_EQ(w.current(), "3," + std::to_string(Quantity));
}

TEST(Menus, StandOverTheCurrentCellWhereAHeaderWasPressed) {
    Window w;
    w.focusCell(2, Code);
    Menus menus([](QMenu&) {});
    rightClick(w, 0, Quantity);
    EXPECT_EQ(menus.seen.size(), 1U);
    EXPECT_EQ(w.current(), "2,1");
}

TEST(Menus, CommitWhatIsBeingTypedElsewhere) {
    Window w;
    w.focusCell(1, Code);
    w.type("A7");
    Menus menus([](QMenu&) {});
    rightClick(w, 3, Quantity);
    EXPECT_EQ(menus.seen.size(), 1U);
    EXPECT_EQ(w.text(1, Code), "A7");
    EXPECT_EQ(w.current(), "3," + std::to_string(Quantity));
}

TEST(Menus, StayAwayFromACellThatCannotBecomeTheCurrentOne) {
    Window w;
    w.focusCell(1, Quantity);
    w.type("1+");
    Menus menus([](QMenu&) {});
    rightClick(w, 3, Code);
    EXPECT_TRUE(menus.seen.empty()) << "the text is refused";
    w.press(Qt::Key_Escape);
    w.grid().BeforeRowColChange.connect([](auto, auto, auto, auto, bool& cancel) { cancel = true; });
    rightClick(w, 3, Code);
    EXPECT_TRUE(menus.seen.empty()) << "the host keeps the cell";
    EXPECT_EQ(w.current(), "1," + std::to_string(Quantity));
}

TEST(Menus, LeftByEscDoNothingAndLeaveTheKeyboardWithTheGrid) {
    Window w;
    w.focusCell(1, Code);
    const std::int32_t rows = w.grid().Rows();
    Menus menus([](QMenu& menu) { QTest::keyClick(&menu, Qt::Key_Escape); });
    rightClick(w, 1, Code);
    EXPECT_EQ(menus.seen.size(), 1U);
    EXPECT_EQ(w.grid().Rows(), rows);
    EXPECT_EQ(w.window.focusWidget(), &w.view());
}

TEST(Menus, CarryOutWhatIsChosenByKeys) {
    Window w;
    w.focusCell(1, Code);
    const std::int32_t rows = w.grid().Rows();
    Menus menus([](QMenu& menu) { chooseByKeys(menu, "新增行"); });
    rightClick(w, 1, Code);
    EXPECT_EQ(w.grid().Rows(), rows + 1);
}

TEST(Menus, OpenByTheMenuKeyAndByShiftF10UnderTheCurrentCell) {
    const struct {
        Qt::Key key;
        Qt::KeyboardModifiers modifiers;
    } ways[] = {{Qt::Key_Menu, Qt::NoModifier}, {Qt::Key_F10, Qt::ShiftModifier}};
    for (const auto& way : ways) {
        Window w;
        w.focusCell(2, Code);
        Menus menus([](QMenu&) {});
        w.press(way.key, way.modifiers);
        ASSERT_EQ(menus.seen.size(), 1U) << way.key;
        const QRect cell = w.cell(2, Code);
        EXPECT_NEAR(menus.place.y(), w.view().mapToGlobal(cell.bottomLeft()).y(), 2) << way.key;
    }
}

TEST(Menus, FillFromASubmenuByItsMnemonic) {
    Window w;
    w.grid().SetCell(1, Quantity, "1");
    w.focusCell(1, Quantity);
    Menus menus([](QMenu& menu) {
        QMenu* fills = item(menu, "填充列").menu();
        ASSERT_NE(fills, nullptr);
        menu.setActiveAction(fills->menuAction());
        QTest::keyClick(&menu, Qt::Key_Right);
        QTest::keyClick(fills, Qt::Key_S);
    });
    rightClick(w, 1, Quantity);
    EXPECT_EQ(w.text(2, Quantity), "2");
    EXPECT_EQ(w.text(3, Quantity), "3");
}

TEST(Menus, AskForTheNumberOfRowsInARealBox) {
    Window w;
    w.focusCell(1, Code);
    const std::int32_t rows = w.grid().Rows();
    QString asked;
    Menus menus([&](QMenu& menu) {
        whenOpen<QInputDialog>([&](QInputDialog& box) {
            asked = box.windowTitle() + "/" + box.labelText() + "/" + box.textValue();
            box.setTextValue("3");
            box.accept();
        });
        chooseByKeys(menu, "新增..行");
    });
    rightClick(w, 1, Code, Qt::ControlModifier);
    EXPECT_EQ(asked, "新增行/录入需要新增的行数/5");
    EXPECT_EQ(w.grid().Rows(), rows + 3);
}

TEST(Menus, AddNoRowWhenTheBoxIsLeftByEsc) {
    Window w;
    w.focusCell(1, Code);
    const std::int32_t rows = w.grid().Rows();
    bool left = false;
    Menus menus([&](QMenu& menu) {
        whenOpen<QInputDialog>([&](QInputDialog& box) {
            QTest::keyClick(&box, Qt::Key_Escape);
            left = !box.isVisible();
        });
        chooseByKeys(menu, "插入..行");
    });
    rightClick(w, 1, Code, Qt::ControlModifier);
    EXPECT_TRUE(left);
    EXPECT_EQ(w.grid().Rows(), rows);
}

TEST(Menus, AreKeptAwayByAHostThatCancelsThePress) {
    Window w;
    w.focusCell(1, Code);
    bool cancels = true;
    w.grid().MouseDown.connect(
        [&](std::int16_t, std::int16_t, float, float, bool& cancel) { cancel = cancels; });
    Menus menus([](QMenu&) {});
    rightClick(w, 1, Code);
    w.press(Qt::Key_Menu);
    EXPECT_TRUE(menus.seen.empty());
    cancels = false;
    rightClick(w, 1, Code);
    EXPECT_EQ(menus.seen.size(), 1U);
}

TEST(Menus, ShowTheWaitCursorWhileAColumnIsFilled) {
    Window w;
    w.grid().SetCell(1, Quantity, "1");
    w.focusCell(1, Quantity);
    int waiting = 0;
    w.grid().CellChanged.connect([&](std::int32_t, std::int32_t) {
        const QCursor* cursor = QGuiApplication::overrideCursor();
        if (cursor != nullptr && cursor->shape() == Qt::WaitCursor) ++waiting;
    });
    Menus menus(chooseCopies);
    rightClick(w, 1, Quantity);
    EXPECT_EQ(w.text(w.grid().Rows() - 1, Quantity), "1.00");
    EXPECT_GT(waiting, 0);
    EXPECT_EQ(QGuiApplication::overrideCursor(), nullptr);
}

TEST(Menus, DrawNoSeparatorFirstLastOrBesideAnother) {
    Window w;
    const Menu plan{"menu", "", "items", {{1, "-"}, {2, "a"}, {3, "-"}, {4, "-"}, {5, "b"}, {6, "-"}}, {}};
    std::vector<bool> drawn;
    Menus menus([&](QMenu& menu) {
        for (QAction* action : menu.actions()) drawn.push_back(!menu.actionGeometry(action).isEmpty());
    });
    EXPECT_FALSE(chooseFrom(plan, {}, w.widget, w.widget->mapToGlobal(QPoint(20, 20))));
    EXPECT_EQ(drawn, (std::vector<bool>{false, true, true, false, true, false}));
}

TEST(Menus, OfferOnlyTheClipboardWhereNothingCanBeChanged) {
    Window w;
    w.grid().SetCell(1, Code, "A001");
    w.grid().Editable(false);
    w.focusCell(1, Code);
    Menus menus([](QMenu& menu) { chooseByKeys(menu, "复制单元格"); });
    rightClick(w, 1, Code);
    EXPECT_EQ(menus.seen, (std::vector<QStringList>{{"复制单元格"}}));
    EXPECT_EQ(QApplication::clipboard()->text(), "A001");
}

TEST(Menus, SurviveAHostThatDestroysTheWidgetWhileTheyAreOpen) {
    Window w;
    w.focusCell(1, Code);
    Menus menus([&](QMenu&) { delete w.widget; });
    const QPointF at = w.at(1, Code);
    QMouseEvent press(QEvent::MouseButtonPress, at, w.view().mapToGlobal(at), Qt::RightButton,
                      Qt::RightButton, Qt::NoModifier);
    QApplication::sendEvent(&w.view(), &press);  // no release follows: its target has gone
    EXPECT_EQ(menus.seen.size(), 1U);
}
}  // namespace kxVsGrid::qt::testing

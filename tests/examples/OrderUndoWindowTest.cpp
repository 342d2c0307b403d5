// The window with undo: menu and toolbar, what a save writes, and when it asks before the order goes.
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMenuBar>
#include <QToolBar>
#include <QToolButton>

#include "OrderEntry.h"
#include "kit/Random.h"

using kxVsGrid::Command;

namespace {
class UndoneOrder : public OrderEntry {
  protected:
    QAction* action(Command command) { return window->gridWidget().action(command); }

    QMenu* menu(const QString& title) {
        for (QAction* one : window->menuBar()->actions())
            if (one->text() == title) return one->menu();
        return nullptr;
    }

    /// Three lines: codes, quantities.
    void typeLines() {
        play({"type K0002", "key Enter", "type 100001", "key Enter", "type 3", "key Enter", "type 100002",
              "key Enter", "type 5", "key Enter", "type 100003", "key Enter", "type 7", "key Enter"});
    }
    void go(int row, OrderColumn::Column col) {
        play({"key F7"});
        grid().Grid().Select(row, col);
    }
    QString title() { return window->windowTitle(); }
};
}  // namespace

TEST_F(UndoneOrder, IsOfferedInMenuAndToolbarByTheNameOfTheStep) {
    open();
    QMenu* const edit = menu("编辑(&E)");
    ASSERT_NE(edit, nullptr);
    EXPECT_EQ(edit->actions().mid(0, 2), (QList<QAction*>{action(Command::Undo), action(Command::Redo)}));
    const auto* tools = window->findChild<QToolBar*>();
    for (const Command command : {Command::Undo, Command::Redo}) {
        EXPECT_TRUE(tools->actions().contains(action(command)));
        EXPECT_FALSE(action(command)->icon().isNull());
        EXPECT_FALSE(action(command)->icon().pixmap(18, 18).isNull());
        EXPECT_FALSE(action(command)->isEnabled());
    }
    typeLines();
    EXPECT_TRUE(action(Command::Undo)->isEnabled());
    EXPECT_TRUE(action(Command::Undo)->text().contains("录入") ||
                action(Command::Undo)->text().contains("默认值"))
        << action(Command::Undo)->text().toStdString();
    EXPECT_TRUE(action(Command::Undo)->toolTip().contains("Ctrl+Z"))
        << action(Command::Undo)->toolTip().toStdString();
    EXPECT_EQ(action(Command::Undo)->iconText(), QString("撤销"));
}

TEST_F(UndoneOrder, ComesBackByKeyByMenuAndByButton) {
    open();
    typeOrder();
    go(1, OrderColumn::Quantity);
    play({"type 40", "key Tab"});
    const Order before = window->onScreen();
    play({"key Ctrl+Z"});
    EXPECT_EQ(cell(1, OrderColumn::Quantity), QString("36"));
    EXPECT_EQ(cell(1, OrderColumn::Amount), QString("90.00"));
    const auto* totals = window->findChild<QLabel*>("totals");
    EXPECT_TRUE(totals->text().contains("90.00")) << totals->text().toStdString();
    play({"key Ctrl+Y"});
    EXPECT_TRUE(window->onScreen() == before);
    action(Command::Undo)->trigger();
    EXPECT_EQ(cell(1, OrderColumn::Quantity), QString("36"));
    for (QToolButton* button : window->findChildren<QToolButton*>())
        if (button->defaultAction() == action(Command::Redo)) QTest::mouseClick(button, Qt::LeftButton);
    EXPECT_TRUE(window->onScreen() == before);
}

TEST_F(UndoneOrder, LeavesTheTextsOfTheHeadAlone) {
    open();
    typeOrder();
    const Order before = window->onScreen();
    window->header().focus(OrderHeader::Field::Number);
    play({"key End", "type 9", "key Ctrl+Z"});
    EXPECT_EQ(window->header().number(), QString("XS-20261120-001"));
    play({"key Ctrl+Z", "key Ctrl+Z"});
    EXPECT_TRUE(window->onScreen() == before);
}

TEST_F(UndoneOrder, IsNotRedoneByTheKeysOfAFieldOfTheHead) {
    open();
    typeOrder();
    go(1, OrderColumn::Quantity);
    play({"type 40", "key Tab", "key Ctrl+Z"});
    const Order before = window->onScreen();
    for (const auto field :
         {OrderHeader::Field::Number, OrderHeader::Field::Date, OrderHeader::Field::Customer}) {
        window->header().focus(field);
        play({"key Ctrl+Y", "key Ctrl+Shift+Z"});
        EXPECT_TRUE(window->onScreen() == before);
    }
    play({"key F7", "key Ctrl+Shift+Z"});
    EXPECT_EQ(cell(1, OrderColumn::Quantity), QString("40"));
}

TEST_F(UndoneOrder, ThatIsApprovedStaysAsItIs) {
    open();
    typeOrder();
    answers.agrees = true;
    play({"key F9"});
    const Order closed = window->onScreen();
    ASSERT_TRUE(closed.approved);
    EXPECT_FALSE(action(Command::Undo)->isEnabled());
    play({"key F7", "key Ctrl+Z"});
    EXPECT_TRUE(window->onScreen() == closed);
}

TEST_F(UndoneOrder, IsForgottenWithTheNextOneAndWithAnOpenedOne) {
    open();
    typeOrder();
    ASSERT_TRUE(window->save());
    play({"key Ctrl+N"});
    EXPECT_FALSE(action(Command::Undo)->isEnabled());
    EXPECT_FALSE(action(Command::Redo)->isEnabled());
    play({"key Ctrl+O"});
    EXPECT_FALSE(action(Command::Undo)->isEnabled());
    EXPECT_EQ(cell(1, OrderColumn::Amount), QString("90.00"));
    play({"key Ctrl+Z"});
    EXPECT_EQ(cell(1, OrderColumn::Amount), QString("90.00"));
}

TEST_F(UndoneOrder, IsStillPossibleAfterSavingAndIsUnsavedThen) {
    open();
    typeOrder();
    go(1, OrderColumn::Quantity);
    play({"type 40", "key Ctrl+S"});
    ASSERT_FALSE(window->hasUnsavedWork()) << window->message().toStdString();
    play({"key Ctrl+Z"});
    EXPECT_EQ(cell(1, OrderColumn::Quantity), QString("36"));
    EXPECT_TRUE(window->hasUnsavedWork());
    EXPECT_TRUE(window->isWindowModified());
    play({"key Ctrl+Y"});
    EXPECT_FALSE(window->hasUnsavedWork());
    EXPECT_FALSE(window->isWindowModified());
    play({"key Ctrl+Z", "key Ctrl+S"});
    Database database(databaseFile());
    EXPECT_EQ(value(database, "SELECT quantity_milli FROM order_line").toInt(), 36000);
}

// --- What a save writes.

TEST_F(UndoneOrder, IsSavedByTheLinesThatDiffer) {
    open();
    typeLines();
    ASSERT_TRUE(window->save()) << answers.problems.join('\n').toStdString();
    Database database(databaseFile());
    watchLines(database);
    go(2, OrderColumn::Quantity);
    play({"type 6", "key Enter", "key Ctrl+S"});
    EXPECT_EQ(linesWritten(database), QStringList("changed 100002 6000"));
    // One line goes, another one comes at the end.
    answers.agrees = true;
    go(1, OrderColumn::Code);
    play({"key Delete"});
    go(3, OrderColumn::Code);
    play({"type 100005", "key Enter", "type 2", "key Enter", "key Ctrl+S"});
    EXPECT_EQ(linesWritten(database).mid(1),
              (QStringList{"removed 100001 3000", "moved 100002 1", "moved 100003 2", "added 100005 2000"}));
    EXPECT_TRUE(OrderStore(database).load(window->onScreen().id) == window->onScreen());
    // Both again.
    while (action(Command::Undo)->isEnabled()) action(Command::Undo)->trigger();
    while (action(Command::Redo)->isEnabled()) action(Command::Redo)->trigger();
    EXPECT_FALSE(window->hasUnsavedWork());
    const qsizetype before = linesWritten(database).size();
    ASSERT_TRUE(window->save());
    EXPECT_EQ(linesWritten(database).size(), before);
}

TEST_F(UndoneOrder, IsSavedAsItStandsWhateverWasUndoneInBetween) {
    open();
    typeLines();
    ASSERT_TRUE(window->save()) << answers.problems.join('\n').toStdString();
    answers.agrees = true;
    go(1, OrderColumn::Code);
    play({"key Delete", "key Ctrl+S"});
    play({"key Ctrl+Z", "key Ctrl+S"});
    Database database(databaseFile());
    EXPECT_TRUE(OrderStore(database).load(1) == window->onScreen());
    EXPECT_EQ(window->onScreen().lines.size(), 3u);
    EXPECT_EQ(value(database, "SELECT goods_code FROM order_line WHERE line_no = 1").toString(),
              QString("100001"));
}

TEST_F(UndoneOrder, IsInTheDatabaseAsItIsOnTheScreenWheneverItIsSaved) {
    for (std::uint32_t turn = 0; turn < 3; ++turn) {
        kxVsGrid::kit::Random random(20261121, turn);
        QFile::remove(databaseFile());
        open();
        typeOrder();
        Database database(databaseFile());
        const OrderStore store(database);
        const auto change = [&] {
            const auto row = static_cast<std::int32_t>(random.between(1, 8));
            const auto step = grid().Step("改动");
            if (random.oneIn(3)) {
                grid().SetCell(row, OrderColumn::Code, std::to_string(random.between(100001, 100009)));
                grid().SetCell(row, OrderColumn::Quantity, std::to_string(random.between(1, 99)));
            } else if (random.oneIn(3)) {
                grid().SetCell(row, OrderColumn::Remark, random.oneIn(2) ? "" : std::to_string(row));
            } else if (random.oneIn(2)) {
                grid().Grid().InsertRow(row);
            } else if (grid().Rows() > 10) {
                grid().Grid().RemoveRow(row);
            }
        };
        int saves = 0;
        for (int act = 0; act < 120; ++act) {
            const auto kind = random.between(0, 9);
            if (kind < 4) {
                change();
            } else if (kind < 7) {
                grid().Run(Command::Undo);
            } else if (kind < 9) {
                grid().Run(Command::Redo);
            } else if (window->save()) {
                ++saves;
                ASSERT_TRUE(store.load(1) == window->onScreen());
            }
            answers.problems.clear();
            if (window->onScreen().id == 0) continue;
            const bool same = store.load(1)->lines == window->onScreen().lines;
            ASSERT_EQ(window->hasUnsavedWork(), !same) << act;
        }
        EXPECT_GE(saves, 3);
        window.reset();
    }
}

TEST_F(UndoneOrder, OfWhichNothingCanBeToldIsSavedWhole) {
    open();
    typeLines();
    ASSERT_TRUE(window->save());
    Database database(databaseFile());
    watchLines(database);
    grid().Cols(grid().Cols() + 1);
    grid().Cols(grid().Cols() - 1);
    EXPECT_TRUE(window->hasUnsavedWork());
    ASSERT_TRUE(window->save()) << answers.problems.join('\n').toStdString();
    EXPECT_EQ(linesWritten(database).size(), 6);
    EXPECT_FALSE(window->hasUnsavedWork());
    EXPECT_TRUE(OrderStore(database).load(1) == window->onScreen());
}

TEST_F(UndoneOrder, ThatCouldNotBeSavedIsSavedByTheSameLinesLater) {
    open();
    typeLines();
    ASSERT_TRUE(window->save());
    Database database(databaseFile());
    go(2, OrderColumn::Quantity);
    play({"type 6", "key Enter"});
    database.run(
        "test",
        "CREATE TRIGGER full BEFORE UPDATE ON order_line BEGIN SELECT RAISE(ABORT, 'disk is full'); END");
    EXPECT_FALSE(window->save());
    EXPECT_TRUE(window->hasUnsavedWork());
    EXPECT_TRUE(action(Command::Undo)->isEnabled());
    database.run("test", "DROP TRIGGER full");
    watchLines(database);
    EXPECT_TRUE(window->save());
    EXPECT_EQ(linesWritten(database), QStringList("changed 100002 6000"));
}

TEST_F(UndoneOrder, ThatSomebodyElseSavedMeanwhileIsNeitherWrittenNorLost) {
    open();
    typeLines();
    ASSERT_TRUE(window->save());
    Database database(databaseFile());
    OrderStore store(database);
    Order there = *store.load(1);
    there.lines[0].remark = "别人";
    store.save(there);
    go(2, OrderColumn::Quantity);
    play({"type 6", "key Enter"});
    const Order here = window->onScreen();
    watchLines(database);
    EXPECT_FALSE(window->save());
    EXPECT_TRUE(answers.asked.value(0).contains("已被别处修改")) << answers.asked.join('\n').toStdString();
    EXPECT_EQ(linesWritten(database), QStringList());
    EXPECT_TRUE(store.load(1) == there);
    EXPECT_TRUE(window->onScreen() == here);
    EXPECT_TRUE(window->hasUnsavedWork());
    answers.agrees = true;
    EXPECT_TRUE(window->save());
    EXPECT_TRUE(store.load(1) == there);
    EXPECT_TRUE(store.load(2) == window->onScreen());
    // What was kept beside is an order of its own from now on.
    play({"key Ctrl+Z", "key Ctrl+S"});
    EXPECT_TRUE(store.load(1) == there);
    EXPECT_TRUE(store.load(2) == window->onScreen());
}

// --- When the window asks.

TEST_F(UndoneOrder, IsLeftWithoutAQuestion) {
    open();
    play({"key F7", "type 100001", "key Enter", "type 3", "key Enter", "key F7"});
    EXPECT_TRUE(window->hasUnsavedWork());
    while (action(Command::Undo)->isEnabled()) play({"key Ctrl+Z"});
    EXPECT_FALSE(window->hasUnsavedWork());
    EXPECT_FALSE(window->isWindowModified());
    play({"key Ctrl+N"});
    EXPECT_TRUE(answers.asked.isEmpty()) << answers.asked.join('\n').toStdString();
    EXPECT_TRUE(window->close());
    EXPECT_TRUE(answers.asked.isEmpty());
}

TEST_F(UndoneOrder, WhoseCellsWereOnlyVisitedIsLeftWithoutAQuestion) {
    open();
    play({"key F7", "key Down", "key Tab", "key Enter", "key Enter", "key Down"});
    EXPECT_NE(cell(2, OrderColumn::Delivery), QString());
    EXPECT_TRUE(window->close());
    EXPECT_TRUE(answers.asked.isEmpty());
}

TEST_F(UndoneOrder, WithATextInAnOpenEditorIsNotLeftWithoutAQuestion) {
    open();
    play({"key F7"});
    grid().Grid().Select(1, OrderColumn::Remark);
    play({"type 送货前电话联系"});
    ASSERT_TRUE(grid().editorView().visible);
    EXPECT_FALSE(window->close());
    EXPECT_EQ(answers.asked.size(), 1);
    EXPECT_EQ(cell(1, OrderColumn::Remark), QString("送货前电话联系"));
}

TEST_F(UndoneOrder, WithAnEditorThatHoldsTheCellsOwnTextIsLeftWithoutAQuestion) {
    open();
    typeOrder();
    ASSERT_TRUE(window->save());
    go(1, OrderColumn::Remark);
    play({"key Space"});
    ASSERT_TRUE(grid().editorView().visible);
    EXPECT_TRUE(window->close());
    EXPECT_TRUE(answers.asked.isEmpty());
}

TEST_F(UndoneOrder, WithARefusedTextIsNotLeftWithoutAQuestion) {
    open();
    play({"key F7", "type 999999", "key Enter", "key Enter"});
    ASSERT_TRUE(grid().editorView().visible);
    EXPECT_FALSE(window->close());
    EXPECT_EQ(answers.asked.size(), 1);
}

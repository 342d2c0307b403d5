// The window with blocks of cells: menus, what is selected, what was not written, marks, the order of lines.
#include <QClipboard>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QTreeWidget>
#include <map>

#include "OrderEntry.h"
#include "RefusedList.h"

using kxVsGrid::CellMark;
using kxVsGrid::Command;

namespace {
class BlockEntry : public OrderEntry {
  protected:
    QAction* action(Command command) { return window->gridWidget().action(command); }
    RefusedList* refused() { return window->findChild<RefusedList*>("refused"); }
    QTreeWidget* list() { return refused()->findChild<QTreeWidget*>(); }
    QString totals() { return window->findChild<QLabel*>("totals")->text(); }
    QString state() { return window->findChild<QLabel*>("state")->text(); }
    QStringList inMenu(const QString& title) {
        QStringList result;
        for (const QAction* one : window->menuBar()->actions())
            if (one->text() == title)
                for (const QAction* item : one->menu()->actions()) result << item->text();
        return result;
    }
    /// By keys: to a data cell.
    void go(int row, int col) {
        QStringList script{"key F7", "key Ctrl+Home", "key Home"};
        for (int i = 1; i < row; ++i) script << "key Down";
        for (int i = 1; i < col; ++i) script << "key Right";
        play(script);
        ASSERT_EQ(grid().Row(), row);
        ASSERT_EQ(grid().Col(), col);
    }
    void pasteAt(int row, int col, const QString& text) {
        QApplication::clipboard()->setText(text);
        go(row, col);
        play({"key Ctrl+V"});
    }
    QAction* itemOf(const QString& text) {
        for (QAction* one : window->findChildren<QAction*>())
            if (one->text() == text) return one;
        return nullptr;
    }
    /// The message in the status bar is red.
    bool warns() { return !window->findChild<QLabel*>("message")->styleSheet().isEmpty(); }
    bool isMarked(int row, int col) {
        const CellMark* const mark = grid().Mark(row, col);
        return mark && mark->kind == CellMark::Kind::Problem;
    }
    void chooseCustomer() { play({"type K0002", "key Enter"}); }
    QStringList row(int index) {
        QStringList texts;
        const QTreeWidgetItem* const item = list()->topLevelItem(index);
        for (int col = 0; item && col < list()->columnCount(); ++col) texts << item->text(col);
        return texts;
    }

    const QString fiveLines =
        "100001\t\t\t\t3\n100017\t\t\t\t1,200\n100034\t\t\t\t2*5\n100050\t\t\t\t8\n999999\t\t\t\t4\n";
};
}  // namespace

TEST_F(BlockEntry, OffersTheCommandsInItsMenusWithKeysThatNobodyElseHas) {
    open();
    const QStringList edit = inMenu("编辑(&E)");
    EXPECT_EQ(edit.mid(3), (QStringList{"剪切", "复制", "复制（带标题）", "粘贴", "清除内容", "全选", "",
                                        "向下填充", "向右填充", "复制上一格", "今天的日期", "", "查找…",
                                        "查找下一个", "查找上一个", "替换…"}));
    EXPECT_EQ(inMenu("行(&L)"), (QStringList{"插入行", "新增行", "复制行", "删除行", "", "上移一行",
                                             "下移一行", "", "升序排列", "降序排列", "恢复原来的顺序", "",
                                             "筛选…", "取消筛选", "", "转到行…", "下一个问题"}));
    std::map<QKeySequence, QString> owners;
    for (const QAction* one : window->findChildren<QAction*>())
        for (const QKeySequence& keys : one->shortcuts()) {
            EXPECT_TRUE(owners.emplace(keys, one->text()).second)
                << keys.toString().toStdString() << ": " << one->text().toStdString() << ", "
                << owners[keys].toStdString();
        }
    EXPECT_EQ(owners[QKeySequence("Ctrl+D")], QString("向下填充"));
    EXPECT_EQ(owners[QKeySequence("Ctrl+Shift+D")], QString("删除订单(&D)…"));
    EXPECT_EQ(owners[QKeySequence("F3")], QString("仓库(&W)"));
    EXPECT_EQ(owners[QKeySequence("Ctrl+F3")], QString("查找下一个"));
}

TEST_F(BlockEntry, OffersTheClipboardAtTheEndOfTheContextMenuOfTheGrid) {
    open();
    chooseCustomer();
    QStringList items;
    kxVsGrid::kit::whenOpen<QMenu>([&](QMenu& menu) {
        for (const QAction* one : menu.actions())
            if (!one->isSeparator()) items << one->text();
        menu.close();
    });
    play({"key Shift+F10"});
    EXPECT_EQ(items.mid(items.size() - 4), (QStringList{"剪切", "复制", "粘贴", "下一个问题"}));
}

TEST_F(BlockEntry, FillsDownByCtrlDAndDeletesNoOrder) {
    open();
    typeOrder();
    go(2, OrderColumn::Code);
    play({"key Ctrl+D"});
    EXPECT_EQ(cell(2, OrderColumn::Code), QString("100001"));
    EXPECT_EQ(cell(2, OrderColumn::Name), cell(1, OrderColumn::Name));
    EXPECT_TRUE(answers.asked.isEmpty());
}

TEST_F(BlockEntry, TakesAPastedOrderMarksTheUnknownCodeAndListsIt) {
    open();
    chooseCustomer();
    pasteAt(1, OrderColumn::Code, fiveLines);
    for (int row = 1; row <= 4; ++row) {
        EXPECT_FALSE(cell(row, OrderColumn::Name).isEmpty()) << row;
        EXPECT_FALSE(cell(row, OrderColumn::Amount).isEmpty()) << row;
        EXPECT_FALSE(cell(row, OrderColumn::Warehouse).isEmpty()) << row;
        EXPECT_FALSE(isMarked(row, OrderColumn::Code)) << row;
    }
    EXPECT_EQ(cell(2, OrderColumn::Quantity), QString("1,200"));
    EXPECT_EQ(cell(3, OrderColumn::Quantity), QString("10"));
    EXPECT_EQ(cell(5, OrderColumn::Code), QString());
    EXPECT_TRUE(isMarked(5, OrderColumn::Code));
    EXPECT_TRUE(window->message().contains("未通过 1 格")) << window->message().toStdString();
    ASSERT_TRUE(refused()->isVisible());
    EXPECT_EQ(row(0), (QStringList{"5", "货号", "999999", "商品目录中没有这个货号,请更正。"}));
    EXPECT_TRUE(grid().IsActive()) << "the list takes no keyboard";
}

TEST_F(BlockEntry, LeadsFromTheListToTheCellAndLosesWhatIsPutRight) {
    open();
    chooseCustomer();
    pasteAt(1, OrderColumn::Code, fiveLines);
    go(1, OrderColumn::Code);
    play({"key Shift+F8", "key Enter"});
    EXPECT_TRUE(grid().IsActive());
    EXPECT_EQ(grid().Row(), 5);
    EXPECT_EQ(grid().Col(), OrderColumn::Code);
    play({"type 100101", "key Enter"});
    EXPECT_FALSE(isMarked(5, OrderColumn::Code));
    EXPECT_TRUE(kxVsGrid::kit::waitUntil([&] { return !refused()->isVisible(); }));
    play({"key Ctrl+S"});
    EXPECT_FALSE(window->hasUnsavedWork()) << window->message().toStdString();
    Database database(databaseFile());
    EXPECT_EQ(OrderStore(database).load(1)->lines.size(), 5u);
}

TEST_F(BlockEntry, ClosesTheListByEscAndKeepsTheMarks) {
    open();
    chooseCustomer();
    pasteAt(1, OrderColumn::Code, fiveLines);
    play({"key Shift+F8", "key Esc"});
    EXPECT_FALSE(refused()->isVisible());
    EXPECT_TRUE(grid().IsActive());
    go(1, OrderColumn::Code);
    play({"key F8"});
    EXPECT_EQ(grid().Row(), 5);
    play({"key Ctrl+N"});
    answers.leave = Questions::Leave::Discard;
    play({"key Ctrl+N"});
    EXPECT_FALSE(isMarked(5, OrderColumn::Code));
}

TEST_F(BlockEntry, TakesTheMarksAwayWithTheListWhenTheClerkSaysSo) {
    open();
    chooseCustomer();
    pasteAt(1, OrderColumn::Code, fiveLines);
    auto* button = refused()->findChild<QPushButton*>("clearMarks");
    QTest::mouseClick(button, Qt::LeftButton);
    EXPECT_FALSE(isMarked(5, OrderColumn::Code));
    EXPECT_FALSE(refused()->isVisible());
}

TEST_F(BlockEntry, TellsWhatLiesBeyondTheLastColumn) {
    open();
    chooseCustomer();
    pasteAt(1, OrderColumn::Entered, "2026-11-20 08:00:00\tx\ty");
    ASSERT_TRUE(refused()->isVisible());
    EXPECT_EQ(row(0), (QStringList{"", "", "2 格", "超出最后一列。"}));
    play({"key Shift+F8", "key Enter"});
    EXPECT_EQ(list()->topLevelItemCount(), 1);
}

TEST_F(BlockEntry, AddsUpWhatIsSelectedUntilTheSelectionEnds) {
    open();
    chooseCustomer();
    pasteAt(1, OrderColumn::Code, fiveLines);
    const QString ofOrder = totals();
    EXPECT_TRUE(ofOrder.startsWith("共 5 行")) << ofOrder.toStdString();
    go(1, OrderColumn::Quantity);
    play({"key Shift+Down", "key Shift+Down"});
    EXPECT_EQ(totals(),
              QString("选中 3 格,有内容 3 格    数字 3 个  合计 1,213  平均 404.333  最小 3  最大 1,200"));
    play({"key Ctrl+C", "key Down"});
    EXPECT_EQ(totals(), ofOrder);
    EXPECT_EQ(QApplication::clipboard()->text(), QString("3\n1,200\n10"));
    go(1, OrderColumn::Code);
    play({"key Shift+Down"});
    EXPECT_TRUE(totals().startsWith("选中 2 格,有内容 2 格")) << totals().toStdString();
}

TEST_F(BlockEntry, AddsUpAnewWhenWhatIsSelectedChanges) {
    open();
    chooseCustomer();
    pasteAt(1, OrderColumn::Code, fiveLines);
    go(1, OrderColumn::Quantity);
    play({"key Shift+Down", "key Shift+Down", "key Ctrl+D"});
    EXPECT_TRUE(totals().contains("合计 9 ")) << totals().toStdString();
    play({"key Ctrl+X"});
    EXPECT_EQ(totals(), QString("选中 3 格,有内容 0 格"));
}

TEST_F(BlockEntry, MarksAllThatKeepsTheOrderFromBeingSavedAndSaysHowMany) {
    open();
    chooseCustomer();
    pasteAt(1, OrderColumn::Code, "100001\n100017\n100034");
    go(1, OrderColumn::Quantity);
    play({"type 3", "key Enter", "key Ctrl+S"});
    EXPECT_EQ(window->onScreen().id, 0);
    EXPECT_EQ(window->message(),
              QString("第 2 行的数量不能为零,订单没有保存;有问题的格子共 2 个,按 F8 逐个查看"));
    EXPECT_TRUE(isMarked(2, OrderColumn::Quantity));
    EXPECT_TRUE(isMarked(3, OrderColumn::Quantity));
    play({"type 5", "key Enter", "key F8"});
    EXPECT_FALSE(isMarked(2, OrderColumn::Quantity));
    EXPECT_EQ(grid().Row(), 3);
    EXPECT_EQ(grid().Col(), OrderColumn::Quantity);
    play({"type 7", "key Enter", "key Ctrl+S"});
    EXPECT_FALSE(window->hasUnsavedWork()) << window->message().toStdString();
}

TEST_F(BlockEntry, SavesLinesInTheOrderThatTheyWereMovedInto) {
    open();
    chooseCustomer();
    pasteAt(1, OrderColumn::Code, fiveLines.section('\n', 0, 2));
    ASSERT_TRUE(window->save()) << window->message().toStdString();
    Database database(databaseFile());
    watchLines(database);
    go(3, OrderColumn::Code);
    play({"key Alt+Up"});
    EXPECT_EQ(state(), QString("未保存"));
    EXPECT_TRUE(window->isWindowModified());
    play({"key Ctrl+Z"});
    EXPECT_EQ(state(), QString("已保存"));
    play({"key Ctrl+Y", "key Ctrl+S"});
    EXPECT_EQ(state(), QString("已保存"));
    EXPECT_EQ(linesWritten(database), (QStringList{"moved 100034 2", "moved 100017 3"}));
    const qint64 id = window->onScreen().id;
    play({"key Ctrl+N"});
    ASSERT_TRUE(window->openOrder(id));
    EXPECT_EQ(cell(1, OrderColumn::Code), QString("100001"));
    EXPECT_EQ(cell(2, OrderColumn::Code), QString("100034"));
    EXPECT_EQ(cell(3, OrderColumn::Code), QString("100017"));
}

TEST_F(BlockEntry, SavesLinesThatWerePastedBetweenOthers) {
    open();
    chooseCustomer();
    pasteAt(1, OrderColumn::Code, "100001\t\t\t\t1\n100017\t\t\t\t2\n");
    ASSERT_TRUE(window->save()) << window->message().toStdString();
    go(2, OrderColumn::Code);
    play({"key Ctrl++", "key Ctrl++"});
    pasteAt(2, OrderColumn::Code, "100034\t\t\t\t3\n100050\t\t\t\t4\n");
    ASSERT_TRUE(window->save()) << window->message().toStdString();
    Database database(databaseFile());
    QStringList codes;
    const Order stored = OrderStore(database).load(window->onScreen().id).value_or(Order());
    for (const OrderLine& line : stored.lines) codes << line.code;
    EXPECT_EQ(codes, (QStringList{"100001", "100034", "100050", "100017"}));
}

TEST_F(BlockEntry, DeletesSelectedRowsAfterOneQuestion) {
    open();
    chooseCustomer();
    pasteAt(1, OrderColumn::Code, fiveLines);
    answers.agrees = true;
    go(1, OrderColumn::Code);
    grid().Grid().SelectRows(1, 4);
    play({"key Ctrl+-"});
    EXPECT_TRUE(kxVsGrid::kit::waitUntil([&] { return !answers.asked.isEmpty(); }));
    EXPECT_EQ(answers.asked, QStringList("删除选中的 4 行?"));
    EXPECT_EQ(window->onScreen().lines.size(), 1u);
}

TEST_F(BlockEntry, OpensTheClosedListAgainForAsLongAsSomethingIsOpen) {
    open();
    chooseCustomer();
    EXPECT_TRUE(inMenu("查看(&V)").contains("没有写入的内容(&R)"));
    EXPECT_FALSE(inMenu("转到(&G)").contains("没有写入的内容(&R)"));
    EXPECT_FALSE(itemOf("没有写入的内容(&R)")->isEnabled());
    pasteAt(1, OrderColumn::Code, fiveLines);
    EXPECT_TRUE(itemOf("没有写入的内容(&R)")->isEnabled());
    play({"key Shift+F8", "key Esc"});
    EXPECT_FALSE(refused()->isVisible());
    EXPECT_TRUE(itemOf("没有写入的内容(&R)")->isEnabled());
    itemOf("没有写入的内容(&R)")->trigger();
    ASSERT_TRUE(refused()->isVisible());
    EXPECT_TRUE(list()->hasFocus());
    EXPECT_EQ(row(0).at(2), QString("999999"));
    play({"key Esc"});
    go(5, OrderColumn::Code);
    play({"type 100101", "key Enter"});
    EXPECT_TRUE(kxVsGrid::kit::waitUntil([&] { return !itemOf("没有写入的内容(&R)")->isEnabled(); }));
    play({"key Shift+F8"});
    EXPECT_FALSE(refused()->isVisible());
}

TEST_F(BlockEntry, AddsToTheListWhatALaterBlockLeavesOpen) {
    open();
    chooseCustomer();
    pasteAt(1, OrderColumn::Code, fiveLines);
    pasteAt(1, OrderColumn::Quantity, "x\n4\ny");
    ASSERT_EQ(list()->topLevelItemCount(), 3);
    EXPECT_EQ(row(0).mid(0, 3), (QStringList{"5", "货号", "999999"}));
    EXPECT_EQ(row(1).mid(0, 3), (QStringList{"1", "数量", "x"}));
    EXPECT_EQ(row(2).mid(0, 3), (QStringList{"3", "数量", "y"}));
    pasteAt(1, OrderColumn::Quantity, "5\n6\nz");
    ASSERT_EQ(list()->topLevelItemCount(), 2);
    EXPECT_EQ(row(0).mid(0, 3), (QStringList{"5", "货号", "999999"}));
    EXPECT_EQ(row(1).mid(0, 3), (QStringList{"3", "数量", "z"}));
}

TEST_F(BlockEntry, TakesTheKeysOfTheGridWhileTheListHasTheKeyboard) {
    open();
    chooseCustomer();
    pasteAt(1, OrderColumn::Code, fiveLines);
    play({"key Shift+F8", "key Ctrl+C"});
    EXPECT_EQ(QApplication::clipboard()->text(), QString("5\t货号\t999999\t商品目录中没有这个货号,请更正。"));
    play({"key Ctrl+Z"});
    EXPECT_TRUE(window->onScreen().lines.empty());
    EXPECT_FALSE(isMarked(5, OrderColumn::Code));
    EXPECT_TRUE(kxVsGrid::kit::waitUntil([&] { return !refused()->isVisible(); }));
    EXPECT_TRUE(grid().IsActive()) << "the keyboard does not go with the list";
    play({"key Ctrl+Y"});
    EXPECT_EQ(window->onScreen().lines.size(), 5u);
    EXPECT_TRUE(isMarked(5, OrderColumn::Code));
}

TEST_F(BlockEntry, LeadsToTheNextProblemFromTheList) {
    open();
    chooseCustomer();
    pasteAt(1, OrderColumn::Code, fiveLines);
    play({"key Shift+F8", "key F8"});
    EXPECT_TRUE(grid().IsActive());
    EXPECT_EQ(grid().Row(), 5);
    EXPECT_EQ(grid().Col(), OrderColumn::Code);
    EXPECT_TRUE(refused()->isVisible());
}

TEST_F(BlockEntry, RedoesFromTheListWhileSomethingIsInIt) {
    open();
    chooseCustomer();
    pasteAt(1, OrderColumn::Code, fiveLines);
    go(1, OrderColumn::Quantity);
    play({"type 9", "key Enter", "key Shift+F8", "key Ctrl+Z"});
    EXPECT_EQ(cell(1, OrderColumn::Quantity), QString("3"));
    EXPECT_TRUE(list()->hasFocus());
    play({"key Ctrl+Y"});
    EXPECT_EQ(cell(1, OrderColumn::Quantity), QString("9"));
    EXPECT_TRUE(list()->hasFocus());
}

TEST_F(BlockEntry, WarnsOfWhatWasRefusedAloneAndSaysNothingOfABlockThatWasUndone) {
    open();
    chooseCustomer();
    pasteAt(1, OrderColumn::Code, "100001\n100017\n");
    EXPECT_EQ(window->message(), QString("已写入 2 格"));
    play({"key Ctrl+Z"});
    EXPECT_EQ(window->message(), QString());
    pasteAt(1, OrderColumn::Code, "100001\t螺栓\n100017\t螺母\n");
    EXPECT_EQ(window->message(), QString("写入 2 格，跳过只读 2 格。"));
    EXPECT_FALSE(warns());
    grid().Grid().SelectRange(1, OrderColumn::Code, 2, OrderColumn::Name);
    play({"key Ctrl+X"});
    EXPECT_TRUE(window->message().startsWith("已清除 2 格")) << window->message().toStdString();
    EXPECT_FALSE(warns());
    pasteAt(1, OrderColumn::Code, "4711\n4712\n");
    EXPECT_TRUE(warns());
}

TEST_F(BlockEntry, SaysNothingOfTheRefusedSaveOnceTheOrderIsSaved) {
    open();
    chooseCustomer();
    pasteAt(1, OrderColumn::Code, "100001\n");
    play({"key Ctrl+S", "key Enter"});
    EXPECT_TRUE(warns());
    go(1, OrderColumn::Quantity);
    play({"type 5", "key Enter", "key Ctrl+S"});
    EXPECT_TRUE(window->message().contains("已保存")) << window->message().toStdString();
    EXPECT_FALSE(warns());
}

TEST_F(BlockEntry, LosesItsMarksWhenItIsApproved) {
    open();
    chooseCustomer();
    pasteAt(1, OrderColumn::Code, "100001\t\t\t\t1\n");
    pasteAt(1, OrderColumn::Unit, "担\t2");
    ASSERT_TRUE(isMarked(1, OrderColumn::Unit));
    answers.agrees = true;
    ASSERT_TRUE(window->approveOrder()) << window->message().toStdString();
    EXPECT_FALSE(isMarked(1, OrderColumn::Unit));
    EXPECT_FALSE(refused()->isVisible());
}

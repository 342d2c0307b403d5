// Approved orders: closed in the window, opened again, and what others may have done to them meanwhile.
#include <QClipboard>
#include <QDateEdit>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>

#include "CustomerBox.h"
#include "OrderEntry.h"

namespace {
class ApprovedOrder : public OrderEntry {
  protected:
    void openAndType() {
        open();
        typeOrder();
        answers.agrees = true;
    }
    void approve() {
        openAndType();
        play({"key F9"});
        ASSERT_TRUE(window->onScreen().approved) << window->message().toStdString();
    }
    // Right click at a cell, then the item by keyboard; answers what the menu offered.
    QStringList choose(int row, OrderColumn::Column col, const QString& text) {
        QStringList offered;
        grid().Grid().Select(row, col);
        auto* view = QApplication::focusWidget();
        kxVsGrid::kit::whenOpen<QMenu>([&](QMenu& menu) {
            for (QAction* action : menu.actions()) {
                if (action->isSeparator()) continue;
                offered << action->text();
                if (action->text() == text) menu.setActiveAction(action);
            }
            QTest::keyClick(&menu, Qt::Key_Return);
            if (menu.isVisible()) menu.close();
        });
        const kxVsGrid::Rect place = grid().Grid().CellRect(row, col);
        QTest::mouseClick(view, Qt::RightButton, {},
                          QPoint(place.left + 60, place.top + 60) / (1440 / view->logicalDpiX()));
        QCoreApplication::processEvents();
        return offered;
    }

    using OfTheControl = QStringList;
    const QStringList OfTheHost{"剪切", "复制", "粘贴", "下一个问题"};  // at the end of each menu
};
}  // namespace

TEST_F(ApprovedOrder, IsSavedAndClosedAfterAQuestion) {
    open();
    typeOrder();
    play({"key F9"});
    EXPECT_EQ(answers.asked, QStringList("保存并审核订单 XS-20261120-001?审核后不能再修改。"));
    EXPECT_FALSE(window->onScreen().approved);
    EXPECT_TRUE(window->hasUnsavedWork());
    answers.agrees = true;
    play({"key F9"});
    EXPECT_EQ(window->message(), QString("订单 XS-20261120-001 已审核"));
    EXPECT_FALSE(window->hasUnsavedWork());
    Database database(databaseFile());
    EXPECT_TRUE(OrderStore(database).load(1) == window->onScreen());
    EXPECT_EQ(value(database, "SELECT is_approved FROM sales_order").toInt(), 1);
}

TEST_F(ApprovedOrder, IsNotMadeOfAnOrderThatCannotBeSaved) {
    open();
    answers.agrees = true;
    EXPECT_FALSE(window->approveOrder());
    EXPECT_TRUE(answers.problems.value(0).contains("客户"));
    typeOrder();
    play({"key F7", "key Down", "key Home", "type 100002", "key Enter", "type 0", "key Enter", "key F9",
          "key Enter"});
    EXPECT_EQ(window->message(), QString("第 2 行的数量不能为零,订单没有保存"));
    EXPECT_FALSE(window->onScreen().approved);
    EXPECT_EQ(window->onScreen().id, 0);
}

TEST_F(ApprovedOrder, CannotBeChangedSavedOrDeleted) {
    approve();
    const Order closed = window->onScreen();
    play({"key F7", "key Home", "type 9", "key Insert", "key Delete", "key Ctrl+S"});
    EXPECT_EQ(window->message(), QString("订单 XS-20261120-001 已审核"));
    for (const char* keys : {"Ctrl+S", "Ctrl+Shift+D", "F9"})
        for (const QAction* action : window->findChildren<QAction*>())
            if (action->shortcut() == QKeySequence(keys)) {
                EXPECT_FALSE(action->isEnabled()) << keys;
            }
    const auto* badge = window->findChild<QLabel*>("state");
    EXPECT_EQ(badge->text(), QString("已审核"));
    EXPECT_TRUE(badge->styleSheet().contains("background"));
    EXPECT_LT(badge->width(), 200) << "a badge, not a bar";
    EXPECT_FALSE(window->save());
    EXPECT_EQ(window->message(), QString("订单 XS-20261120-001 已审核,不能修改"));
    play({"key F6", "key End", "type x", "key Backspace", "key Down", "key Shift+Tab", "key Up",
          "key Ctrl+Shift+D", "key F9"});
    EXPECT_EQ(answers.asked.size(), 1);
    EXPECT_TRUE(window->onScreen() == closed);
    EXPECT_FALSE(window->hasUnsavedWork());
    EXPECT_TRUE(window->header().findChild<QLineEdit*>("number")->isReadOnly());
    EXPECT_TRUE(window->close());
    EXPECT_EQ(answers.asked.size(), 1);
    Database database(databaseFile());
    EXPECT_TRUE(OrderStore(database).load(1) == closed);
}

TEST_F(ApprovedOrder, IsReadOnlyAtOnceWhenItIsOpenedFromTheList) {
    approve();
    play({"key Ctrl+N"});
    EXPECT_TRUE(grid().Editable());
    EXPECT_FALSE(window->header().findChild<CustomerBox*>("customer")->isReadOnly());
    play({"key Ctrl+O"});
    EXPECT_TRUE(window->onScreen().approved);
    EXPECT_FALSE(grid().Editable());
    EXPECT_EQ(choose(1, OrderColumn::Quantity, "复制单元格"), OfTheControl("复制单元格") + OfTheHost);
    EXPECT_EQ(QApplication::clipboard()->text(), QString("36"));
}

TEST_F(ApprovedOrder, LeavesTheNextOrderEditable) {
    approve();
    play({"key Ctrl+N"});
    typeOrder();
    EXPECT_EQ(choose(1, OrderColumn::Quantity, "复制行").size(), 8 + OfTheHost.size());
    EXPECT_EQ(window->onScreen().lines.size(), 2u);
    play({"key Ctrl+S"});
    EXPECT_FALSE(window->hasUnsavedWork()) << window->message().toStdString();
    EXPECT_FALSE(window->onScreen().approved);
    EXPECT_EQ(window->onScreen().lines.at(1).amount, 9000);
}

TEST_F(ApprovedOrder, LeavesTheNextOrderItsPresets) {
    approve();
    play({"key Ctrl+N"});
    EXPECT_EQ(cell(1, OrderColumn::Warehouse), QString("主仓库"));
    EXPECT_EQ(cell(1, OrderColumn::Delivery), QString("2026-11-27"));
    EXPECT_FALSE(window->hasUnsavedWork());
}

TEST_F(ApprovedOrder, BySomebodyElseCanBeKeptAsANewOne) {
    openAndType();
    ASSERT_TRUE(window->save());
    Database database(databaseFile());
    OrderStore store(database);
    Order there = *store.load(1);
    store.approve(there);
    play({"key F7", "key Left", "type 五金仓", "key Enter", "key Ctrl+S"});
    EXPECT_TRUE(answers.asked.value(0).contains("审核")) << answers.asked.join('\n').toStdString();
    EXPECT_EQ(window->header().number(), QString("XS-20261120-002"));
    EXPECT_FALSE(window->onScreen().approved);
    EXPECT_EQ(window->onScreen().lines.at(0).warehouse, QString("五金仓"));
    EXPECT_TRUE(store.load(1) == there);
    EXPECT_TRUE(store.load(2) == window->onScreen());
}

TEST_F(ApprovedOrder, IsNotMadeOfWhatSomebodyElseHasChanged) {
    openAndType();
    ASSERT_TRUE(window->save());
    Database database(databaseFile());
    OrderStore store(database);
    Order there = *store.load(1);
    store.save(there);
    EXPECT_FALSE(window->approveOrder());
    EXPECT_TRUE(answers.problems.value(0).contains("没有审核")) << answers.problems.join('\n').toStdString();
    EXPECT_TRUE(grid().Editable());
    EXPECT_FALSE(store.load(1)->approved);
}

TEST_F(ApprovedOrder, IsNotMadeOfACopyThatWasKeptBesideWhatSomebodyElseHasApproved) {
    openAndType();
    ASSERT_TRUE(window->save());
    Database database(databaseFile());
    OrderStore store(database);
    Order there = *store.load(1);
    store.approve(there);
    play({"key F7", "key Left", "type 五金仓", "key Enter", "key F9"});
    EXPECT_EQ(answers.asked.size(), 2) << answers.asked.join('\n').toStdString();
    EXPECT_EQ(window->onScreen().number, QString("XS-20261120-002"));
    EXPECT_FALSE(window->hasUnsavedWork());
    EXPECT_TRUE(grid().Editable());
    EXPECT_FALSE(store.load(2)->approved);
}

TEST_F(ApprovedOrder, IsShownAsItWasSavedWhateverStoodOnTheScreenBefore) {
    open();
    typeOrder();
    play({"key F7", "key Down", "key Down"});
    grid().Grid().Select(3, OrderColumn::Remark);
    play({"type 运费另计", "key Enter"});
    answers.agrees = true;
    play({"key F9"});
    const Order closed = window->onScreen();
    ASSERT_TRUE(closed.approved);
    ASSERT_EQ(closed.lines.size(), 2u);
    play({"key Ctrl+N"});
    grid().Rows(100);
    grid().Grid().Select(99, OrderColumn::Remark);
    play({"key F7", "key Delete"});
    answers.leave = Questions::Leave::Discard;
    ASSERT_TRUE(window->openOrder(1));
    Database database(databaseFile());
    EXPECT_TRUE(OrderStore(database).load(1) == window->onScreen());
    EXPECT_FALSE(window->hasUnsavedWork());
    for (int row = 3; row < grid().Rows(); ++row)
        for (int col = 1; col < OrderColumn::ColumnCount; ++col)
            EXPECT_EQ(cell(row, static_cast<OrderColumn::Column>(col)), "") << row << ',' << col;
}

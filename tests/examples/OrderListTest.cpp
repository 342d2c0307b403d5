#include <QApplication>
#include <QHeaderView>
#include <QLineEdit>
#include <QTableWidget>
#include <QTest>

#include "OrderListDialog.h"
#include "Scratch.h"

namespace {
class OrderList : public Scratch {
  protected:
    OrderList() {
        for (int i = 1; i <= 3; ++i) {
            Order one = order(QString("A-%1").arg(i), {line("100001", 1000 * i, 123456)});
            one.customer = i;
            store.save(one);
            ids.push_back(one.id);
        }
    }

    void open() {
        dialog = std::make_unique<OrderListDialog>(store);
        dialog->show();
        QApplication::setActiveWindow(dialog.get());
        search = dialog->findChild<QLineEdit*>("search");
        table = dialog->findChild<QTableWidget*>("orders");
    }

    Database database{madeDatabase()};
    OrderStore store{database};
    std::vector<qint64> ids;
    std::unique_ptr<OrderListDialog> dialog;
    QLineEdit* search = nullptr;
    QTableWidget* table = nullptr;
};
}  // namespace

TEST_F(OrderList, OffersTheNewestOrderFirst) {
    open();
    ASSERT_EQ(table->rowCount(), 3);
    EXPECT_EQ(table->item(0, 0)->text(), QString("A-3"));
    EXPECT_EQ(table->item(0, 4)->text(), QString("3,703.68"));
    EXPECT_EQ(dialog->chosen(), ids[2]);
}

TEST_F(OrderList, FollowsTheArrowsWhileTheSearchFieldHasTheKeyboard) {
    open();
    QTest::keyClick(search, Qt::Key_Down);
    EXPECT_EQ(dialog->chosen(), ids[1]);
    QTest::keyClick(search, Qt::Key_Return);
    EXPECT_EQ(dialog->result(), static_cast<int>(QDialog::Accepted));
}

TEST_F(OrderList, IsNarrowedByWhatIsTyped) {
    open();
    QTest::keyClicks(search, "A-1");
    EXPECT_EQ(table->rowCount(), 1);
    EXPECT_EQ(dialog->chosen(), ids[0]);
    QTest::keyClicks(search, "xyz");
    EXPECT_EQ(dialog->chosen(), std::nullopt);
    QTest::keyClick(search, Qt::Key_Return);
    EXPECT_TRUE(dialog->isVisible());
}

TEST_F(OrderList, IsNarrowedByTheRemarksOfLines) {
    Order remarked = order("B-1", {line("100001", 1000, 100)});
    remarked.customer = 1;
    remarked.lines[0].remark = "急件";
    store.save(remarked);
    open();
    search->insert("急件");
    ASSERT_EQ(table->rowCount(), 1);
    EXPECT_EQ(table->item(0, 0)->text(), QString("B-1"));
}

TEST_F(OrderList, IsSortedByAPressOnAHeader) {
    open();
    QTest::keyClick(search, Qt::Key_Down);
    const auto press = [this](int column) {
        QHeaderView* header = table->horizontalHeader();
        const QPoint at(header->sectionViewportPosition(column) + header->sectionSize(column) / 2, 5);
        QTest::mouseClick(header->viewport(), Qt::LeftButton, Qt::NoModifier, at);
    };
    const auto numbers = [this] {
        QStringList all;
        for (int row = 0; row < table->rowCount(); ++row) all << table->item(row, 0)->text();
        return all;
    };
    press(4);
    EXPECT_EQ(numbers(), QStringList({"A-1", "A-2", "A-3"})) << "by the amount, not by its text";
    EXPECT_EQ(dialog->chosen(), ids[1]);
    press(4);
    EXPECT_EQ(numbers(), QStringList({"A-3", "A-2", "A-1"}));
    press(0);
    EXPECT_EQ(numbers(), QStringList({"A-1", "A-2", "A-3"}));
    QTest::keyClicks(search, "A");
    EXPECT_EQ(numbers(), QStringList({"A-1", "A-2", "A-3"})) << "also when the list is narrowed";
    EXPECT_EQ(table->currentRow(), 0) << "a search chooses the first one";
    press(0);
    EXPECT_EQ(table->currentRow(), 2);
    press(0);
    EXPECT_EQ(numbers(), QStringList({"A-3", "A-2", "A-1"})) << "newest first again";
    EXPECT_EQ(table->currentRow(), 2) << "the same one is chosen";
}

TEST_F(OrderList, SaysWhichOrdersAreApproved) {
    Order approved = *store.load(ids[1]);
    store.approve(approved);
    open();
    EXPECT_EQ(table->item(1, 5)->text(), QString("已审核"));
    EXPECT_EQ(table->item(0, 5)->text(), QString());
}

TEST_F(OrderList, ThatCannotBeReadIsAnError) {
    database.run("test", "DROP TABLE sales_order");
    EXPECT_THROW(OrderListDialog{store}, DatabaseError);
}

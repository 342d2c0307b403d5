// What is suggested in the cells of an order, as a clerk keys it.
#include <QListView>

#include "OrderEntry.h"
#include "OrderSheet.h"

using namespace Qt::StringLiterals;

namespace {

class OrderSuggested : public OrderEntry {
  protected:
    OrderSuggested() {
        open();
        QTest::keyClicks(QApplication::focusWidget(), "K0017");
        press(Qt::Key_Return);
    }
    /// The grid's own list, beside that of the customer's field.
    QListView* shownList() {
        for (QListView* one : window->findChildren<QListView*>("suggestions"))
            if (one->isVisible()) return one;
        return nullptr;
    }
    QStringList suggested() {
        QStringList texts;
        if (QListView* shown = shownList())
            for (int row = 0; row < shown->model()->rowCount(); ++row)
                texts += shown->model()->index(row, 0).data().toString();
        return texts;
    }
    void press(Qt::Key key) { QTest::keyClick(QApplication::focusWidget(), key); }
    void type(const QString& text) { play({u"type "_s + text}); }
    QString cell(int col, int row = 1) { return QString::fromStdString(grid().Grid().Text(row, col)); }
    void go(int col) {
        grid().Grid().Select(1, col);
        window->findChild<kxVsGrid::qt::kxGridWidget*>()->setFocus();
    }
};

TEST_F(OrderSuggested, AGoodIsTakenByItsInitialsAndFillsItsLine) {
    type("ljls");
    ASSERT_FALSE(suggested().isEmpty());
    const QModelIndex top = shownList()->model()->index(0, 0);
    const QString first = top.data().toString();
    const QString note = top.data(Qt::AccessibleDescriptionRole).toString();
    press(Qt::Key_Down);
    press(Qt::Key_Return);
    EXPECT_EQ(shownList(), nullptr);
    EXPECT_EQ(cell(OrderColumn::Code), first);
    EXPECT_NE(cell(OrderColumn::Name), "");
    EXPECT_TRUE(note.startsWith(cell(OrderColumn::Name))) << note.toStdString();
    EXPECT_NE(cell(OrderColumn::Spec), "");
    EXPECT_NE(cell(OrderColumn::Unit), "");
    EXPECT_NE(cell(OrderColumn::Price), "");
    EXPECT_EQ(grid().Grid().Col(), OrderColumn::Quantity);
}

TEST_F(OrderSuggested, AGoodIsFoundByTheBeginningOfItsCodeAndByItsName) {
    type("10000");
    EXPECT_EQ(suggested().value(0), "100001");
    press(Qt::Key_Escape);
    press(Qt::Key_Escape);
    type(u"螺栓"_s);
    ASSERT_FALSE(suggested().isEmpty());
    EXPECT_TRUE(
        shownList()->model()->index(0, 0).data(Qt::AccessibleDescriptionRole).toString().contains(u"螺栓"_s));
}

TEST_F(OrderSuggested, AWholeCodeIsTakenAsItIsTypedWithOneEnter) {
    type("100001");
    press(Qt::Key_Return);
    EXPECT_EQ(cell(OrderColumn::Code), "100001");
    EXPECT_NE(cell(OrderColumn::Name), "");
    EXPECT_EQ(grid().Grid().Col(), OrderColumn::Quantity);
}

TEST_F(OrderSuggested, WarehousesAreFoundByCodeNameOrInitials) {
    type("100001");
    press(Qt::Key_Return);
    for (const QString& typed : {u"wjc"_s, u"五金"_s}) {
        go(OrderColumn::Warehouse);
        type(typed);
        EXPECT_EQ(suggested(), QStringList{u"五金仓"_s}) << typed.toStdString();
        press(Qt::Key_Return);
        EXPECT_EQ(cell(OrderColumn::Warehouse), u"五金仓"_s);
        grid().SetCell(1, OrderColumn::Warehouse, "");
    }
}

class OrderSuggestions : public OrderSheet {
  protected:
    std::vector<Goods> allGoods() override {
        ++reads;
        if (fails) throw DatabaseError({}, {}, {});
        return goods;
    }
    std::optional<Goods> editGoods(const QString&) override {
        goods.push_back({"A2", "乙", "", "个", 100, "y"});
        return goods.back();
    }

    std::vector<Goods> goods{{"A1", "甲", "", "个", 100, "j"}};
    int reads = 0;
    bool fails = true;
};

TEST_F(OrderSuggestions, AreThoseOfTheGoodsAsTheyAreNowAndNoneWhileTheDatabaseFails) {
    at(1, OrderColumn::Code);
    desk.type("A");
    EXPECT_TRUE(desk.suggestions().texts.empty());
    fails = false;
    desk.press(kxVsGrid::Key::Escape).type("A");
    EXPECT_EQ(desk.suggestions().texts, std::vector<std::string>{"A1"});
    desk.press(kxVsGrid::Key::Escape).press(kxVsGrid::Key::Escape).type("j");
    EXPECT_EQ(desk.suggestions().texts, std::vector<std::string>{"A1"});
    EXPECT_EQ(reads, 2);
    desk.onDialog([](kxVsGrid::headless::LookupDialog& list) {
        list.Edit();
        list.press(kxVsGrid::Key::Escape);
    });
    desk.press(kxVsGrid::Key::F2);
    desk.press(kxVsGrid::Key::Escape).press(kxVsGrid::Key::Escape).type("A");
    EXPECT_EQ(desk.suggestions().texts, (std::vector<std::string>{"A1", "A2"}));
}

TEST_F(OrderSuggested, UnitsAreSuggested) {
    type("100001");
    press(Qt::Key_Return);
    go(OrderColumn::Unit);
    type(u"平"_s);
    EXPECT_EQ(suggested(), QStringList{u"平方米"_s});
    press(Qt::Key_Return);
    EXPECT_EQ(cell(OrderColumn::Unit), u"平方米"_s);
    go(OrderColumn::Unit);
    type("pfm");
    EXPECT_EQ(suggested(), QStringList{u"平方米"_s});
}
}  // namespace

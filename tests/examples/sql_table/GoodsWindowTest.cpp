// The window of the goods table, with real keys.
#include "GoodsWindow.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QTest>

#include "kit/WhenOpen.h"

namespace sql_table {
namespace {

class GoodsWindowTest : public testing::Test {
  protected:
    enum Column : std::int32_t { Number, Id, Code, Name, Unit, Price };

    GoodsWindowTest() {
        database = QSqlDatabase::addDatabase("QSQLITE", "goods");
        database.setDatabaseName(":memory:");
        EXPECT_TRUE(openGoods(database, 600));
        window = std::make_unique<GoodsWindow>(database);
        window->show();
        EXPECT_TRUE(kxVsGrid::kit::waitUntil([&] { return window->isActiveWindow(); }));
    }
    ~GoodsWindowTest() override {
        window.reset();
        database = {};
        QSqlDatabase::removeDatabase("goods");
    }
    void type(std::int32_t row, std::int32_t col, const QString& text) {
        window->grid().Grid().Select(row, col);
        for (const QChar letter : text) QTest::keyClicks(window->focusWidget(), letter);
        QTest::keyClick(window->focusWidget(), Qt::Key_Return);
    }
    QString ask(const QString& statement) {
        QSqlQuery query(database);
        EXPECT_TRUE(query.exec(statement) && query.next());
        return query.value(0).toString();
    }

    QSqlDatabase database;
    std::unique_ptr<GoodsWindow> window;
};

TEST_F(GoodsWindowTest, ARowIsStoredWhenItIsLeft) {
    EXPECT_TRUE(kxVsGrid::kit::waitUntil([&] { return window->sheet().whole(); }));
    type(2, Price, "12.345");
    window->grid().Grid().Select(3, Code);
    EXPECT_EQ(ask("SELECT price FROM goods WHERE id = 2"), "12.35");
    const std::int32_t spare = window->grid().Rows() - 1;
    EXPECT_EQ(spare, 601);
    type(spare, Code, "N1");
    type(spare, Name, "new");
    window->grid().Grid().Select(1, Code);
    EXPECT_EQ(ask("SELECT name FROM goods WHERE code = 'N1' AND stock = 0"), "new");
    EXPECT_EQ(window->grid().Grid().Text(spare, Price + 1), "0") << "what the table made of it";
    EXPECT_EQ(window->message(), "");
}

TEST_F(GoodsWindowTest, WhatTheTableRefusesIsToldAndPutBack) {
    const auto before = window->grid().Grid().Text(2, Code);
    type(2, Code, "100001");
    window->grid().Grid().Select(4, Code);
    EXPECT_EQ(window->grid().Grid().Text(2, Code), before);
    EXPECT_TRUE(window->message().contains("UNIQUE")) << window->message().toStdString();
    EXPECT_TRUE(window->close());
}

TEST_F(GoodsWindowTest, AsksBeforeItGivesUpARowThatIsNotStored) {
    window->sheet().fetchAll();
    type(window->grid().Rows() - 1, Code, "N1");
    kxVsGrid::kit::whenOpen<QMessageBox>([](QMessageBox& box) { box.button(QMessageBox::No)->click(); });
    EXPECT_FALSE(window->close());
    kxVsGrid::kit::whenOpen<QMessageBox>([](QMessageBox& box) { box.button(QMessageBox::Yes)->click(); });
    EXPECT_TRUE(window->close());
}
}  // namespace
}  // namespace sql_table

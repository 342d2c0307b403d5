#include "Database.h"

#include <QDir>
#include <QFile>
#include <QSet>

#include "Catalogue.h"
#include "SampleData.h"
#include "Scratch.h"

namespace {
class DatabaseFile : public Scratch {
  protected:
    static QString failure(const QString& file) {
        try {
            Database(file).open();
        } catch (const DatabaseError& error) {
            return error.text();
        }
        return "opened";
    }
};
}  // namespace

TEST_F(DatabaseFile, IsCreatedWithTwoHundredCustomersAndFiveThousandGoods) {
    Database database(databaseFile());
    database.open();
    EXPECT_EQ(value(database, "SELECT COUNT(*) FROM customer").toInt(), 200);
    EXPECT_EQ(value(database, "SELECT COUNT(*) FROM goods").toInt(), 5000);
    EXPECT_EQ(value(database, "SELECT COUNT(*) FROM warehouse").toInt(), 6);
    EXPECT_TRUE(QFile::exists(databaseFile()));
}

TEST_F(DatabaseFile, KeepsItsContentsWhenItIsOpenedAgain) {
    {
        Database database(databaseFile());
        database.run("test", "UPDATE goods SET name = '新名称' WHERE code = '100001'");
    }
    Database again(databaseFile());
    EXPECT_EQ(Catalogue(again).goods("100001")->name, QString("新名称"));
    EXPECT_EQ(value(again, "SELECT COUNT(*) FROM goods").toInt(), 5000);
}

TEST_F(DatabaseFile, IsCreatedInAFolderThatDoesNotExistYet) {
    const QString file = path("data/orders/orders.sqlite");
    Database(file).open();
    EXPECT_TRUE(QFile::exists(file));
}

TEST_F(DatabaseFile, ThatCannotBeOpenedIsReportedWithFileAndCause) {
    const QString text = failure(QDir::tempPath());  // a folder
    EXPECT_TRUE(text.contains(QDir::tempPath())) << text.toStdString();
    EXPECT_TRUE(text.contains("unable to open database file")) << text.toStdString();
}

TEST_F(DatabaseFile, BelowAFileIsReportedWithFileAndCause) {
    QFile blocker(path("blocker"));
    ASSERT_TRUE(blocker.open(QIODevice::WriteOnly));
    const QString text = failure(path("blocker/orders.sqlite"));
    EXPECT_TRUE(text.contains(path("blocker/orders.sqlite"))) << text.toStdString();
    EXPECT_TRUE(text.contains("无法创建文件夹")) << text.toStdString();
}

TEST_F(DatabaseFile, ThatIsSomethingElseIsReportedAndLeftAlone) {
    const QByteArray letter = "Dear customer, this is no database at all.";
    QFile file(databaseFile());
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));
    file.write(letter);
    file.close();
    EXPECT_TRUE(failure(databaseFile()).contains("文件不是数据库"));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    EXPECT_EQ(file.readAll(), letter);
}

TEST_F(DatabaseFile, OfANewerProgramIsRefused) {
    {
        Database database(databaseFile());
        database.run("test", "PRAGMA user_version = 99");
    }
    EXPECT_TRUE(failure(databaseFile()).contains("99"));
}

TEST_F(DatabaseFile, CanBeOpenedOnceTheObstacleIsGone) {
    ASSERT_TRUE(QDir().mkpath(databaseFile()));
    Database database(databaseFile());
    EXPECT_THROW(database.open(), DatabaseError);
    EXPECT_FALSE(database.isOpen());
    ASSERT_TRUE(QDir().rmdir(databaseFile()));
    database.open();
    EXPECT_TRUE(database.isOpen());
}

TEST(SampleData, IsTheSameEveryTime) {
    const std::vector<SampleGoods> once = sampleGoods();
    const std::vector<SampleGoods> twice = sampleGoods();
    ASSERT_EQ(once.size(), 5000u);
    for (std::size_t i = 0; i < once.size(); ++i) {
        ASSERT_EQ(once[i].name + once[i].spec + once[i].unit, twice[i].name + twice[i].spec + twice[i].unit);
        ASSERT_EQ(once[i].priceCents, twice[i].priceCents);
    }
}

TEST(SampleData, NamesEveryGoodsAndCustomerOnce) {
    QSet<QString> goods;
    for (const SampleGoods& one : sampleGoods()) {
        goods << one.name + '|' + one.spec;
        ASSERT_FALSE(one.unit.isEmpty() || one.pinyin.isEmpty() || one.spec.isEmpty())
            << one.code.toStdString();
        ASSERT_FALSE(one.spec.contains('{') || one.spec.contains('|')) << one.spec.toStdString();
        ASSERT_GT(one.priceCents, 0) << one.code.toStdString();
    }
    EXPECT_EQ(goods.size(), 5000);
    QSet<QString> customers;
    for (const SampleCustomer& one : sampleCustomers()) customers << one.name;
    EXPECT_EQ(customers.size(), 200);
}

TEST(SampleData, NumbersGoodsFrom100001) {
    const std::vector<SampleGoods> goods = sampleGoods();
    EXPECT_EQ(goods.front().code, QString("100001"));
    EXPECT_EQ(goods.back().code, QString("105000"));
}

TEST_F(DatabaseFile, FindsGoodsByCodeNameOrInitials) {
    Database database(madeDatabase());
    const Catalogue catalogue(database);
    const Goods first = *catalogue.goods("100001");
    EXPECT_EQ(catalogue.goods("999999"), std::nullopt);
    EXPECT_EQ(catalogue.goodsStartingWith("100001", 10).size(), 1u);
    EXPECT_EQ(catalogue.goodsStartingWith(first.name, 10).front().name, first.name);
    EXPECT_TRUE(catalogue.goodsStartingWith("bxgljls", 10).front().name.startsWith("不锈钢六角螺栓"));
    EXPECT_TRUE(catalogue.goodsStartingWith("%", 10).empty());
}

#include "Database.h"

#include <QDir>
#include <QFile>
#include <QSet>
#include <QSqlError>

#include "Catalogue.h"
#include "OrderStore.h"
#include "SampleData.h"
#include "Scratch.h"

namespace {
// The file as it is, without what opening it through the program does.
class DatabaseConnection {
  public:
    explicit DatabaseConnection(const QString& file)
        : database_(QSqlDatabase::addDatabase("QSQLITE", "raw")) {
        database_.setDatabaseName(file);
        EXPECT_TRUE(database_.open());
    }
    ~DatabaseConnection() {
        database_ = {};
        QSqlDatabase::removeDatabase("raw");
    }
    DatabaseConnection(const DatabaseConnection&) = delete;
    DatabaseConnection& operator=(const DatabaseConnection&) = delete;

    void run(const QString& statement) {
        QSqlQuery query(database_);
        EXPECT_TRUE(query.exec(statement)) << query.lastError().text().toStdString();
    }
    QVariant value(const QString& statement) {
        QSqlQuery query(database_);
        return query.exec(statement) && query.next() ? query.value(0) : QVariant();
    }

  private:
    QSqlDatabase database_;
};

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

    /// A file as the program's first version left it, with order 7 of one line.
    void makeEarlierLayout() {
        DatabaseConnection connection(madeDatabase());
        connection.run("DROP TABLE order_line");
        connection.run("ALTER TABLE sales_order DROP COLUMN is_approved");
        connection.run(
            "CREATE TABLE order_line (order_id INTEGER NOT NULL REFERENCES sales_order (id) ON DELETE "
            "CASCADE,"
            " line_no INTEGER NOT NULL, goods_code TEXT NOT NULL, goods_name TEXT NOT NULL, spec TEXT NOT "
            "NULL,"
            " unit TEXT NOT NULL, quantity_milli INTEGER, price_cents INTEGER, amount_cents INTEGER,"
            " warehouse TEXT NOT NULL, delivery_date TEXT, is_gift INTEGER NOT NULL, remark TEXT NOT NULL,"
            " PRIMARY KEY (order_id, line_no))");
        connection.run("INSERT INTO sales_order VALUES (7, 'A-7', '2026-02-20', 1, 1)");
        connection.run(
            "INSERT INTO order_line VALUES (7, 1, '100001', '螺栓', 'M8', '个', 5000, 300, 1500, '主仓库',"
            " '2026-02-28', 0, '旧行')");
        connection.run("PRAGMA user_version = 1");
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

TEST_F(DatabaseFile, OfTheEarlierLayoutIsUpgradedAndKeepsItsOrders) {
    makeEarlierLayout();
    Database database(databaseFile());
    EXPECT_EQ(value(database, "PRAGMA user_version").toInt(), 4);
    OrderStore store(database);
    Order old = *store.load(7);
    ASSERT_EQ(old.lines.size(), 1u);
    EXPECT_EQ(old.lines[0].remark, QString("旧行"));
    EXPECT_EQ(old.lines[0].amount, 1500);
    EXPECT_EQ(old.lines[0].slot, QString());
    EXPECT_FALSE(old.lines[0].entered.isValid());
    EXPECT_FALSE(old.approved);
    old.lines[0].slot = "2026-02-28 下午";
    store.save(old);
    EXPECT_TRUE(store.load(7) == old);
}

TEST_F(DatabaseFile, OfTheSecondLayoutIsUpgradedAndItsOrdersCanBeApproved) {
    {
        DatabaseConnection connection(madeDatabase());
        connection.run("ALTER TABLE sales_order DROP COLUMN is_approved");
        connection.run("INSERT INTO sales_order VALUES (7, 'A-7', '2026-02-20', 1, 1)");
        connection.run("PRAGMA user_version = 2");
    }
    Database database(databaseFile());
    OrderStore store(database);
    Order old = *store.load(7);
    EXPECT_FALSE(old.approved);
    store.approve(old);
    EXPECT_TRUE(store.load(7)->approved);
}

TEST_F(DatabaseFile, OfTheThirdLayoutIsUpgradedAndItsLinesKeepTheirOrderUnderIdsOfTheirOwn) {
    {
        DatabaseConnection connection(madeDatabase());
        connection.run("DROP TABLE order_line");
        connection.run(
            "CREATE TABLE order_line (order_id INTEGER NOT NULL REFERENCES sales_order (id) ON DELETE "
            "CASCADE,"
            " line_no INTEGER NOT NULL, goods_code TEXT NOT NULL, goods_name TEXT NOT NULL, spec TEXT NOT "
            "NULL,"
            " unit TEXT NOT NULL, quantity_milli INTEGER, price_cents INTEGER, amount_cents INTEGER,"
            " warehouse TEXT NOT NULL, delivery_date TEXT, is_gift INTEGER NOT NULL, remark TEXT NOT NULL,"
            " delivery_slot TEXT, entered_at TEXT, PRIMARY KEY (order_id, line_no))");
        connection.run("INSERT INTO sales_order VALUES (7, 'A-7', '2026-02-20', 1, 1, 1)");
        for (const char* line : {"2, 'b'", "3, 'c'", "1, 'a'"})
            connection.run("INSERT INTO order_line VALUES (7, " + QString(line) +
                           ", '螺栓', 'M8', '个', 5000, 300, 1500, '主仓库', '2026-02-28', 1, '旧行',"
                           " '2026-02-28 下午', '2026-02-01 08:05:09')");
        connection.run("PRAGMA user_version = 3");
    }
    Database database(databaseFile());
    OrderStore store(database);
    const Order old = *store.load(7);
    EXPECT_TRUE(old.approved);
    QStringList codes;
    QSet<qint64> ids;
    for (const OrderLine& line : old.lines) {
        codes << line.code;
        ids << line.id;
        EXPECT_EQ(line.slot, QString("2026-02-28 下午"));
        EXPECT_EQ(timeText(line.entered), QString("2026-02-01 08:05:09"));
        EXPECT_TRUE(line.gift);
    }
    EXPECT_EQ(codes, (QStringList{"a", "b", "c"}));
    EXPECT_EQ(ids.size(), 3);
    EXPECT_FALSE(ids.contains(0));
}

TEST_F(DatabaseFile, IsUpgradedOnceOnly) {
    makeEarlierLayout();
    Database(databaseFile()).open();
    EXPECT_EQ(failure(databaseFile()), QString("opened"));
}

TEST_F(DatabaseFile, ThatCannotBeUpgradedIsReportedAndLeftAlone) {
    makeEarlierLayout();
    {
        DatabaseConnection connection(databaseFile());
        connection.run("ALTER TABLE order_line ADD COLUMN entered_at TEXT");
    }
    const QString text = failure(databaseFile());
    EXPECT_TRUE(text.contains("升级数据库失败")) << text.toStdString();
    EXPECT_TRUE(text.contains(databaseFile())) << text.toStdString();
    EXPECT_TRUE(text.contains("duplicate column name: entered_at")) << text.toStdString();
    DatabaseConnection connection(databaseFile());
    EXPECT_EQ(connection.value("PRAGMA user_version").toInt(), 1);
    EXPECT_EQ(connection
                  .value("SELECT COUNT(*) FROM pragma_table_info('order_line')"
                         " WHERE name = 'delivery_slot'")
                  .toInt(),
              0);
    EXPECT_EQ(connection.value("SELECT remark FROM order_line").toString(), QString("旧行"));
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

TEST_F(DatabaseFile, ConfirmsACodeOfAnyQueryByItsFields) {
    Database database(madeDatabase());
    const Catalogue catalogue(database);
    const auto found = catalogue.find("SELECT code, name FROM goods", "code", "name", "100001");
    ASSERT_TRUE(found);
    EXPECT_EQ(found->code, QString("100001"));
    EXPECT_EQ(found->name, catalogue.goods("100001")->name);
    EXPECT_EQ(catalogue.find("SELECT code, name FROM warehouse", "code", "name", "C01")->name,
              QString("主仓库"));
    EXPECT_FALSE(catalogue.find("SELECT code, name FROM goods", "code", "name", "' OR '1' = '1"));
}

TEST_F(DatabaseFile, FindsAWarehouseByItsCodeInAnyCaseOrByItsName) {
    Database database(madeDatabase());
    const Catalogue catalogue(database);
    for (const char* typed : {"C01", "c01", "主仓库"}) {
        const auto found = catalogue.warehouse(typed);
        ASSERT_TRUE(found) << typed;
        EXPECT_EQ(found->code, QString("C01"));
        EXPECT_EQ(found->name, QString("主仓库"));
    }
    EXPECT_FALSE(catalogue.warehouse("主"));
    EXPECT_FALSE(catalogue.warehouse(""));
}

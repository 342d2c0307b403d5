#include "OrderStore.h"

#include "Scratch.h"

namespace {
class StoredOrders : public Scratch {
  protected:
    Database database{madeDatabase()};
    OrderStore store{database};

    int count(const QString& table) { return value(database, "SELECT COUNT(*) FROM " + table).toInt(); }

    /// An order of four lines.
    Order savedOrder() {
        Order saved = order("A-1", {line("100001", 1000, 100), line("100002", 2000, 100),
                                    line("100003", 3000, 100), line("100004", 4000, 100)});
        store.save(saved);
        return saved;
    }
};
}  // namespace

TEST_F(StoredOrders, ComeBackAsTheyWereSaved) {
    OrderLine full = line("100001", 12345, 678);
    full.spec = "M8×40";
    full.unit = "个";
    full.warehouse = "主仓库";
    full.delivery = QDate(2026, 2, 28);
    full.slot = "2026-02-28 下午";
    full.entered = QDateTime(QDate(2026, 2, 1), QTime(8, 5, 9));
    full.gift = true;
    full.remark = "加急 'quoted' %1";
    OrderLine note;
    note.remark = "运费另计";
    Order saved = order("A-1", {full, note});
    store.save(saved);
    EXPECT_NE(saved.id, 0);
    EXPECT_TRUE(store.load(saved.id) == saved);
}

TEST_F(StoredOrders, KeepAnEmptyQuantityApartFromZero) {
    OrderLine without = line("100001", 0, 0);
    without.quantity.reset();
    without.amount.reset();
    Order saved = order("A-1", {without, line("100002", 0, 500)});
    store.save(saved);
    const Order back = *store.load(saved.id);
    EXPECT_EQ(back.lines[0].quantity, std::nullopt);
    EXPECT_EQ(back.lines[0].price, 0);
    EXPECT_EQ(back.lines[1].quantity, 0);
    EXPECT_EQ(back.lines[1].amount, 0);
}

TEST_F(StoredOrders, AddUpToTheCent) {
    Order saved = order("A-1", {});
    for (int i = 0; i < 1000; ++i) saved.lines.push_back(line("100001", 1000, 10));  // a thousand times 0.10
    store.save(saved);
    EXPECT_EQ(store.load(saved.id)->total(), 10000);
    EXPECT_EQ(store.list({}, 10).front().total, 10000);
}

TEST_F(StoredOrders, AreReplacedNotDoubledBySavingAgain) {
    Order saved = order("A-1", {line("100001", 1000, 100), line("100002", 1000, 100)});
    store.save(saved);
    saved.lines.pop_back();
    saved.number = "A-2";
    store.save(saved);
    EXPECT_EQ(count("sales_order"), 1);
    EXPECT_EQ(count("order_line"), 1);
    EXPECT_TRUE(store.load(saved.id) == saved);
}

TEST_F(StoredOrders, AreSavedByTheLinesThatHaveChangedAlone) {
    Order saved = savedOrder();
    watchLines(database);
    LineChanges changes;
    changes.changed = {saved.lines[3].id};
    saved.lines[3].quantity = 5000;
    store.save(saved, changes);
    EXPECT_EQ(linesWritten(database), QStringList("changed 100004 5000"));
    EXPECT_TRUE(store.load(saved.id) == saved);
    EXPECT_EQ(saved.version, 2);
}

TEST_F(StoredOrders, WithAnotherHeadAloneWriteNoLine) {
    Order saved = savedOrder();
    watchLines(database);
    saved.customer = 2;
    store.save(saved, {});
    EXPECT_EQ(linesWritten(database), QStringList());
    EXPECT_TRUE(store.load(saved.id) == saved);
}

TEST_F(StoredOrders, KeepTheirLinesInOrderWhereOnesComeAndGo) {
    Order saved = savedOrder();
    watchLines(database);
    LineChanges changes;
    changes.removed = {saved.lines[0].id};
    changes.added = true;
    const qint64 last = saved.lines[3].id;
    saved.lines.erase(saved.lines.begin());
    saved.lines.insert(saved.lines.begin() + 1, {line("7", 7, 7), line("8", 8, 8)});
    store.save(saved, changes);
    EXPECT_EQ(linesWritten(database), (QStringList{"removed 100001 1000", "moved 100002 1", "moved 100003 4",
                                                   "moved 100004 5", "added 7 7", "added 8 8"}));
    EXPECT_TRUE(store.load(saved.id) == saved);
    EXPECT_EQ(saved.lines[4].id, last);
    EXPECT_EQ(value(database, "SELECT group_concat(line_no) FROM (SELECT line_no FROM order_line ORDER BY 1)")
                  .toString(),
              QString("1,2,3,4,5"));
}

TEST_F(StoredOrders, OfWhichAnythingMayHaveChangedAreWrittenWhole) {
    Order saved = savedOrder();
    watchLines(database);
    LineChanges changes;
    changes.unknown = true;
    saved.lines.pop_back();
    store.save(saved, changes);
    EXPECT_EQ(linesWritten(database).size(), 7);
    EXPECT_TRUE(store.load(saved.id) == saved);
}

TEST_F(StoredOrders, AreNotChangedByAnOlderVersionLineByLineEither) {
    Order here = savedOrder();
    Order there = *store.load(here.id);
    store.save(there, {});
    watchLines(database);
    const Order before = here;
    LineChanges changes;
    changes.removed = {here.lines[0].id};
    here.lines.erase(here.lines.begin());
    EXPECT_THROW(store.save(here, changes), OrderChanged);
    EXPECT_EQ(linesWritten(database), QStringList());
    EXPECT_EQ(here.version, before.version);
    EXPECT_TRUE(store.load(there.id) == there);
}

TEST_F(StoredOrders, WhoseLineHasGoneBehindTheirBackAreNotSaved) {
    Order saved = savedOrder();
    database.run("test", "DELETE FROM order_line WHERE goods_code = '100002'");
    LineChanges changes;
    changes.changed = {saved.lines[1].id};
    saved.number = "A-9";
    EXPECT_THROW(store.save(saved, changes), OrderChanged);
    EXPECT_EQ(store.load(saved.id)->number, QString("A-1"));
}

TEST_F(StoredOrders, StayWholeWhenSavingFailsHalfWay) {
    Order saved = order("A-1", {line("100001", 1000, 100), line("100002", 2000, 100)});
    store.save(saved);
    database.run("test",
                 "CREATE TRIGGER full BEFORE INSERT ON order_line WHEN NEW.line_no = 3"
                 " BEGIN SELECT RAISE(ABORT, 'disk is full'); END");
    Order changed = saved;
    changed.number = "A-9";
    changed.lines = {line("1", 1, 1), line("2", 2, 2), line("3", 3, 3)};
    const Order before = changed;
    try {
        store.save(changed);
        FAIL() << "the third line cannot be written";
    } catch (const DatabaseError& error) {
        EXPECT_TRUE(error.text().contains("disk is full")) << error.what();
        EXPECT_TRUE(error.text().contains(databaseFile())) << error.what();
    }
    EXPECT_TRUE(changed == before);
    EXPECT_TRUE(store.load(saved.id) == saved);
}

TEST_F(StoredOrders, LeaveNoTraceOfANewOrderThatFailed) {
    database.run(
        "test",
        "CREATE TRIGGER full BEFORE INSERT ON order_line BEGIN SELECT RAISE(ABORT, 'disk is full'); END");
    Order fresh = order("A-1", {line("100001", 1000, 100)});
    EXPECT_THROW(store.save(fresh), DatabaseError);
    EXPECT_EQ(fresh.id, 0);
    EXPECT_EQ(count("sales_order"), 0);
}

TEST_F(StoredOrders, CanBeSavedAgainAfterAFailure) {
    Order fresh = order("A-1", {line("100001", 1000, 100)});
    database.run(
        "test",
        "CREATE TRIGGER full BEFORE INSERT ON order_line BEGIN SELECT RAISE(ABORT, 'disk is full'); END");
    EXPECT_THROW(store.save(fresh), DatabaseError);
    database.run("test", "DROP TRIGGER full");
    store.save(fresh);
    EXPECT_TRUE(store.load(fresh.id) == fresh);
}

TEST_F(StoredOrders, RefuseANumberThatIsTaken) {
    Order first = order("A-1", {line("100001", 1000, 100)});
    Order second = first;
    store.save(first);
    try {
        store.save(second);
        FAIL() << "the number is taken";
    } catch (const DatabaseError& error) {
        EXPECT_TRUE(error.isDuplicate());
    }
    EXPECT_EQ(count("sales_order"), 1);
}

TEST_F(StoredOrders, AreNotOverwrittenByAnOlderVersion) {
    Order here = order("A-1", {line("100001", 1000, 100)});
    store.save(here);
    Order there = *store.load(here.id);
    there.lines.push_back(line("100002", 1000, 100));
    store.save(there);
    EXPECT_THROW(store.save(here), OrderChanged);
    EXPECT_THROW(store.remove(here), OrderChanged);
    EXPECT_EQ(store.load(here.id)->lines.size(), 2u);
}

TEST_F(StoredOrders, AreDeletedWithTheirLines) {
    Order saved = order("A-1", {line("100001", 1000, 100)});
    store.save(saved);
    store.remove(saved);
    EXPECT_EQ(store.load(saved.id), std::nullopt);
    EXPECT_EQ(count("order_line"), 0);
}

TEST_F(StoredOrders, ThatAreApprovedAreNeitherSavedNorRemovedNorApprovedAgain) {
    Order saved = order("A-1", {line("100001", 1000, 100)});
    store.save(saved);
    store.approve(saved);
    EXPECT_TRUE(saved.approved);
    EXPECT_TRUE(store.load(saved.id) == saved);
    EXPECT_TRUE(store.list({}, 10).front().approved);
    const Order closed = saved;
    saved.lines.clear();
    EXPECT_THROW(store.save(saved), OrderChanged);
    EXPECT_THROW(store.remove(saved), OrderChanged);
    EXPECT_THROW(store.approve(saved), OrderChanged);
    EXPECT_TRUE(store.load(saved.id) == closed);
}

TEST_F(StoredOrders, AreNotApprovedInAnOlderVersion) {
    Order here = order("A-1", {line("100001", 1000, 100)});
    store.save(here);
    Order there = *store.load(here.id);
    store.save(there);
    EXPECT_THROW(store.approve(here), OrderChanged);
    EXPECT_FALSE(here.approved);
    EXPECT_FALSE(store.load(here.id)->approved);
}

TEST_F(StoredOrders, AreListedNewestFirstAndFoundByNumberOrCustomer) {
    Order old = order("A-1", {line("100001", 1000, 100)});
    old.date = QDate(2026, 1, 5);
    Order recent = order("B-2", {});
    recent.customer = 2;
    store.save(old);
    store.save(recent);
    ASSERT_EQ(store.list({}, 10).size(), 2u);
    EXPECT_EQ(store.list({}, 10).front().number, QString("B-2"));
    EXPECT_EQ(store.list({}, 1).size(), 1u);
    ASSERT_EQ(store.list("A-", 10).size(), 1u);
    EXPECT_EQ(store.list("A-", 10).front().lines, 1);
    const QString customer = value(database, "SELECT name FROM customer WHERE id = 2").toString();
    EXPECT_EQ(store.list(customer, 10).front().number, QString("B-2"));
}

TEST_F(StoredOrders, AreNumberedDayByDay) {
    const QDate day(2026, 11, 20);
    EXPECT_EQ(store.nextNumber(day), QString("XS-20261120-001"));
    Order first = order(store.nextNumber(day), {});
    store.save(first);
    EXPECT_EQ(store.nextNumber(day), QString("XS-20261120-002"));
    EXPECT_EQ(store.nextNumber(day.addDays(1)), QString("XS-20261121-001"));
}

TEST_F(StoredOrders, CannotBeSavedWhileAnotherProgramHoldsTheDatabase) {
    Order saved = order("A-1", {line("100001", 1000, 100)});
    database.run("test", "PRAGMA busy_timeout = 1");
    Database other(databaseFile());
    other.run("test", "BEGIN EXCLUSIVE");
    try {
        store.save(saved);
        FAIL() << "the other program has not finished";
    } catch (const DatabaseError& error) {
        EXPECT_TRUE(error.text().contains("database is locked")) << error.what();
    }
    other.run("test", "ROLLBACK");
    store.save(saved);
    EXPECT_TRUE(store.load(saved.id) == saved);
}

// What may be wrong with the database of an order that is being keyed, and with what it holds.
#include <QDateEdit>
#include <QFileInfo>
#include <QLabel>
#include <QMessageBox>
#include <QWheelEvent>

#include "OrderEntry.h"
#ifdef Q_OS_UNIX
#include <unistd.h>
#endif

namespace {
/// A file that may not be written to, also where the tests run as a user who may write to everything.
class WriteProtected {
  public:
    explicit WriteProtected(const QString& file) : file_(file) {
        QFile::setPermissions(file, QFile::ReadOwner | QFile::ReadGroup | QFile::ReadOther);
#ifdef Q_OS_UNIX
        constexpr uid_t Nobody = 65534;
        QFile::setPermissions(QFileInfo(file).path(), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner |
                                                          QFile::ReadGroup | QFile::ExeGroup |
                                                          QFile::ReadOther | QFile::ExeOther);
        if (geteuid() == 0) isRoot_ = seteuid(Nobody) == 0;
#endif
    }
    ~WriteProtected() {
        end();
    }
    WriteProtected(const WriteProtected&) = delete;
    WriteProtected& operator=(const WriteProtected&) = delete;

    void end() {
#ifdef Q_OS_UNIX
        if (isRoot_) isRoot_ = seteuid(0) != 0;
#endif
        QFile::setPermissions(file_, QFile::ReadOwner | QFile::WriteOwner);
    }

  private:
    QString file_;
    bool isRoot_ = false;
};

constexpr QFile::Permissions Others = QFile::ReadGroup | QFile::WriteGroup | QFile::ExeGroup |
                                      QFile::ReadOther | QFile::WriteOther | QFile::ExeOther;
}  // namespace

TEST_F(OrderEntry, AReadOnlyDatabaseIsToldAtStartAndWrittenToOnceItCanBe) {
    const QString file = madeDatabase();
    WriteProtected protection(file);
    open(file);
    ASSERT_EQ(answers.problems.size(), 1);
    ASSERT_TRUE(answers.problems[0].contains("只读")) << answers.problems[0].toStdString();
    EXPECT_TRUE(window->message().contains("只读")) << window->message().toStdString();
    typeOrder();
    EXPECT_FALSE(window->save());
    EXPECT_TRUE(answers.problems.value(1).contains("数据库是只读的"))
        << answers.problems.join('\n').toStdString();
    EXPECT_EQ(cell(1, OrderColumn::Quantity), QString("36"));
    protection.end();
    EXPECT_TRUE(window->save()) << answers.problems.join('\n').toStdString();
    Database database(file);
    EXPECT_FALSE(database.isReadOnly());
    EXPECT_EQ(OrderStore(database).list({}, 10).front().total, 9000);
}

TEST_F(OrderEntry, TheSecondOfTwoOrdersWithOneNumberGetsTheNextOneAndTheClerkIsTold) {
    open();
    typeOrder();
    ASSERT_EQ(window->header().number(), QString("XS-20261120-001"));
    Database database(databaseFile());
    OrderStore store(database);
    for (const char* number : {"XS-20261120-001", "XS-20261120-002"}) {
        Order other = order(number, {line("100001", 1000, 100)});
        store.save(other);
    }
    EXPECT_TRUE(window->save()) << answers.problems.join('\n').toStdString();
    EXPECT_EQ(window->header().number(), QString("XS-20261120-003"));
    EXPECT_EQ(answers.told,
              QStringList("单号 XS-20261120-001 已被另一张订单使用,本单改为 XS-20261120-003。"));
    EXPECT_TRUE(window->message().contains("XS-20261120-003"));
    EXPECT_FALSE(window->hasUnsavedWork());
    EXPECT_EQ(store.list({}, 10).size(), 3u);
}

TEST_F(OrderEntry, ANumberThatTheClerkChoseIsNotChangedForHim) {
    open();
    typeOrder();
    Database database(databaseFile());
    Order other = order("A-1", {line("100001", 1000, 100)});
    OrderStore(database).save(other);
    window->header().findChild<QLineEdit*>("number")->setText("A-1");
    EXPECT_FALSE(window->save());
    EXPECT_TRUE(answers.problems.value(0).contains("编号已经存在"))
        << answers.problems.join('\n').toStdString();
    EXPECT_EQ(window->header().number(), QString("A-1"));
    EXPECT_EQ(QApplication::focusWidget()->objectName(), QString("number"));
}

TEST_F(OrderEntry, TheWheelOverAFieldWithoutTheKeyboardChangesNothing) {
    open();
    auto* date = window->header().findChild<QDateEdit*>("date");
    const auto turn = [&] {
        for (int tick = 0; tick < 3; ++tick) {
            QWheelEvent wheel(QPointF(5, 5), date->mapToGlobal(QPointF(5, 5)), {}, {0, 120}, Qt::NoButton,
                              Qt::NoModifier, Qt::NoScrollPhase, false);
            QApplication::sendEvent(date, &wheel);
        }
    };
    turn();
    EXPECT_EQ(window->header().date(), QDate(2026, 11, 20));
    EXPECT_EQ(window->header().number(), QString("XS-20261120-001"));
    EXPECT_EQ(QApplication::focusWidget()->objectName(), QString("customer"));
    date->setFocus();
    turn();
    EXPECT_NE(window->header().date(), QDate(2026, 11, 20));
}

TEST_F(OrderEntry, WhatTheDatabaseHoldsIsNeverMarkup) {
    const QString markup = "<img src='file:///secret.png'>";
    {
        Database database(madeDatabase());
        database.run("test", "UPDATE customer SET contact = ?, phone = '1' WHERE code = 'K0002'", {markup});
    }
    open(databaseFile());
    play({"type K0002", "key Enter"});
    const auto* contact = window->header().findChild<QLabel*>("contact");
    EXPECT_TRUE(contact->text().contains(markup));
    for (const QLabel* label : window->findChildren<QLabel*>())
        if (label->buddy() == nullptr && label->text().contains('<')) {
            EXPECT_EQ(label->textFormat(), Qt::PlainText) << label->text().toStdString();
        }
    window->header().findChild<QLineEdit*>("number")->setText(markup);
    EXPECT_FALSE(window->save());
    for (const char* name : {"message", "state", "totals"})
        EXPECT_EQ(window->findChild<QLabel*>(name)->textFormat(), Qt::PlainText) << name;
    const QString tip = window->findChild<QLabel*>("message")->toolTip();
    EXPECT_FALSE(tip.contains("<img")) << tip.toStdString();
}

TEST_F(OrderEntry, BoxesShowTheirTextsAsTheyAre) {
    open();
    Questions real;
    int seen = 0;
    const auto plain = [&](QMessageBox& box) {
        ++seen;
        EXPECT_EQ(box.textFormat(), Qt::PlainText);
        box.reject();
    };
    const std::function<void()> asks[] = {[&] { real.unsavedWork(window.get(), "<b>x</b>"); },
                                          [&] { real.confirm(window.get(), "<b>x</b>", "y"); },
                                          [&] { real.problem(window.get(), "<b>x</b>"); },
                                          [&] { real.information(window.get(), "t", "<b>x</b>"); }};
    for (const auto& ask : asks) {
        kxVsGrid::kit::whenOpen<QMessageBox>(plain);
        ask();
    }
    EXPECT_EQ(seen, 4);
}

TEST_F(OrderEntry, InMemoryTakesOrdersAndLeavesNoFile) {
    open(":memory:");
    EXPECT_TRUE(answers.problems.isEmpty()) << answers.problems.join('\n').toStdString();
    typeOrder();
    EXPECT_TRUE(window->save()) << answers.problems.join('\n').toStdString();
    play({"key Ctrl+N"});
    EXPECT_EQ(window->header().number(), QString("XS-20261120-002"));
    play({"key Ctrl+O"});
    EXPECT_EQ(cell(1, OrderColumn::Amount), QString("90.00"));
    EXPECT_FALSE(QFile::exists(":memory:"));
}

TEST_F(OrderEntry, StartsWithTwelveRows) {
    open();
    EXPECT_EQ(grid().Rows() - grid().FixedRows(), 12);
}

TEST_F(OrderEntry, FilesAndFoldersAreTheUsersAlone) {
    const QString file = path("data/orders/orders.sqlite");
    Database database(file);
    database.open();
    for (const QString& made : {file, path("data"), path("data/orders")}) {
        EXPECT_FALSE(QFile::permissions(made) & Others) << made.toStdString();
        EXPECT_TRUE(QFile::permissions(made) & QFile::WriteOwner) << made.toStdString();
    }
}

TEST_F(OrderEntry, ErrorsAreToldByTheirNumbers) {
    Database database(madeDatabase());
    const auto failure = [&](const QString& statement, const QVariantList& values) {
        try {
            database.run("test", statement, values);
        } catch (const DatabaseError& error) {
            return std::pair(error.code(), error.text());
        }
        return std::pair(0, QString());
    };
    const auto twice = failure("INSERT INTO warehouse (code, name) VALUES ('X', '主仓库')", {});
    EXPECT_EQ(twice.first, 2067);
    EXPECT_TRUE(twice.second.contains("编号已经存在")) << twice.second.toStdString();
    const auto primary = failure("INSERT INTO warehouse (code, name) VALUES ('C01', 'X')", {});
    EXPECT_EQ(primary.first, 1555);
    const auto reference = failure(
        "INSERT INTO sales_order (number, order_date, customer_id, version) VALUES ('A', '', 999999, 1)", {});
    EXPECT_EQ(reference.first, 787);
    EXPECT_TRUE(reference.second.contains("引用的资料不存在")) << reference.second.toStdString();
    // A text that says something else than the number.
    database.run("test",
                 "CREATE TRIGGER t BEFORE DELETE ON warehouse BEGIN"
                 " SELECT RAISE(ABORT, 'UNIQUE constraint failed'); END");
    const auto raised = failure("DELETE FROM warehouse", {});
    EXPECT_FALSE(raised.second.contains("编号已经存在")) << raised.second.toStdString();
    EXPECT_FALSE(DatabaseError("a", "f", "UNIQUE constraint failed", raised.first).isDuplicate());
}

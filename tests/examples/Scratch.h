// A folder and a database file that go with the test.
#pragma once

#include <gtest/gtest.h>

#include <QFile>
#include <QTemporaryDir>

#include "Database.h"
#include "Order.h"

inline void PrintTo(const QString& text, std::ostream* out) {
    *out << text.toStdString();
}

class Scratch : public testing::Test {
  protected:
    QString path(const QString& name) const { return folder_.filePath(name); }
    QString databaseFile() const { return path("orders.sqlite"); }
    /// A database as it is at first use, without the time that making one takes.
    QString madeDatabase() const {
        static const QTemporaryDir master;
        const QString original = master.filePath("master.sqlite");
        if (!QFile::exists(original)) Database(original).open();
        QFile::copy(original, databaseFile());
        return databaseFile();
    }

    /// The only value of a query.
    static QVariant value(Database& database, const QString& query) {
        QSqlQuery found = database.run("test", query);
        return found.next() ? found.value(0) : QVariant();
    }

    static OrderLine line(const QString& code, Thousandths quantity, Cents price) {
        OrderLine result;
        result.code = code;
        result.name = "螺栓";
        result.quantity = quantity;
        result.price = price;
        result.amount = amountOf(quantity, price);
        return result;
    }

    static Order order(const QString& number, std::vector<OrderLine> lines) {
        Order result;
        result.number = number;
        result.date = QDate(2026, 11, 20);
        result.customer = 1;
        result.lines = std::move(lines);
        return result;
    }

  private:
    QTemporaryDir folder_;
};

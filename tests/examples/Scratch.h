// A folder and a database file that go with the test.
#pragma once

#include <gtest/gtest.h>

#include <QFile>
#include <QStringList>
#include <QTemporaryDir>
#include <utility>

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

    /// From now on linesWritten() tells what is written to the lines of orders.
    static void watchLines(Database& database) {
        database.run("test", "CREATE TABLE written (what TEXT)");
        const std::pair<const char*, const char*> acts[] = {
            {"INSERT ON order_line", "'added ' || NEW.goods_code || ' ' || NEW.quantity_milli"},
            {"DELETE ON order_line", "'removed ' || OLD.goods_code || ' ' || OLD.quantity_milli"},
            {"UPDATE OF line_no ON order_line", "'moved ' || NEW.goods_code || ' ' || NEW.line_no"},
            {"UPDATE OF goods_code ON order_line",
             "'changed ' || NEW.goods_code || ' ' || NEW.quantity_milli"},
        };
        int number = 0;
        for (const auto& [act, what] : acts)
            database.run("test",
                         QString("CREATE TRIGGER watch%1 AFTER %2 BEGIN INSERT INTO written VALUES (%3); END")
                             .arg(QString::number(++number), act, what));
    }
    static QStringList linesWritten(Database& database) {
        QStringList all;
        QSqlQuery found = database.run("test", "SELECT what FROM written ORDER BY rowid");
        while (found.next()) all << found.value(0).toString();
        return all;
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

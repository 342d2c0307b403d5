// Orders in the database. Each call is one transaction; all throw DatabaseError and leave the database as it
// was.
#pragma once

#include <optional>

#include "Database.h"
#include "Order.h"

/// One entry of the list of orders.
struct OrderSummary {
    qint64 id = 0;
    QString number;
    QDate date;
    QString customer;
    int lines = 0;
    Cents total = 0;
    bool approved = false;
};

/// The order was saved, approved or deleted by somebody else since it was read.
class OrderChanged : public DatabaseError {
  public:
    using DatabaseError::DatabaseError;
};

class OrderStore {
  public:
    explicit OrderStore(Database& database) : database_(database) {}

    /// Nothing when it is gone.
    std::optional<Order> load(qint64 id) const;
    /// Inserts a new order or replaces the one with its id, with all lines; sets version and all ids once
    /// everything is written.
    void save(Order& order);
    /// The same, where the lines differ from those in the database by no more than the changes: only those
    /// are written, and the place of lines that have come to stand elsewhere.
    void save(Order& order, const LineChanges& changes);
    void remove(const Order& order);
    /// Closes the order as it was saved last: it can be neither saved nor removed any more.
    void approve(Order& order);
    /// Newest first; those whose number, customer or remark of a line contains the text, at most `most`.
    std::vector<OrderSummary> list(const QString& text, int most) const;
    /// The next free number of a day: XS-20261120-001.
    QString nextNumber(const QDate& date) const;

  private:
    void expectOne(const QSqlQuery& written, const QString& attempt) const;
    void writeHead(Order& order, const QString& attempt);
    void writeAllLines(Order& order, const QString& attempt);
    void writeChanges(Order& order, const LineChanges& changes, const QString& attempt);
    void placeLines(const Order& order, const QString& attempt);
    qint64 insertLine(const Order& order, std::size_t index, const QString& attempt);
    void updateLine(const Order& order, const OrderLine& line, const QString& attempt);
    void removeLine(const Order& order, qint64 line, const QString& attempt);

    Database& database_;
};

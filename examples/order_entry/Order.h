// A sales order as it is kept and compared: what is on the screen, without the screen.
#pragma once

#include <QDate>
#include <QString>
#include <optional>
#include <vector>

#include "Decimal.h"

struct OrderLine {
    QString code;
    QString name;
    QString spec;
    QString unit;
    std::optional<Thousandths> quantity;
    std::optional<Cents> price;
    std::optional<Cents> amount;
    QString warehouse;
    QDate delivery;  ///< invalid: none
    bool gift = false;
    QString remark;

    bool operator==(const OrderLine&) const = default;

    /// A line that says nothing is not kept. Warehouse and delivery date alone say nothing: every row that
    /// the clerk merely passes through gets them from the row above.
    bool isEmpty() const {
        return code.isEmpty() && name.isEmpty() && spec.isEmpty() && unit.isEmpty() && !quantity && !price &&
               !gift && remark.isEmpty();
    }
};

struct Order {
    qint64 id = 0;    ///< 0: not saved yet
    int version = 0;  ///< counts the saves
    QString number;
    QDate date;
    qint64 customer = 0;  ///< 0: none chosen
    std::vector<OrderLine> lines;

    bool operator==(const Order&) const = default;

    Cents total() const {
        Cents sum = 0;
        for (const OrderLine& line : lines) sum += line.amount.value_or(0);
        return sum;
    }
};

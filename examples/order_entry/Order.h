// A sales order as it is kept and compared: what is on the screen, without the screen.
#pragma once

#include <QDate>
#include <QDateTime>
#include <QString>
#include <optional>
#include <vector>

#include "Decimal.h"

/// A moment as the grid and the database write it: "2026-11-20 08:05:09".
inline const char16_t* const TimeForm = u"yyyy-MM-dd HH:mm:ss";

inline QString timeText(const QDateTime& moment) {
    return moment.toString(QString::fromUtf16(TimeForm));
}

/// Invalid for any other text.
inline QDateTime timeOf(const QString& text) {
    return QDateTime::fromString(text, QString::fromUtf16(TimeForm));
}

struct OrderLine {
    qint64 id = 0;  ///< 0: not saved yet
    QString code;
    QString name;
    QString spec;
    QString unit;
    std::optional<Thousandths> quantity;
    std::optional<Cents> price;
    std::optional<Cents> amount;
    QString warehouse;
    QDate delivery;  ///< invalid: none
    QString slot;    ///< date and half of the day: "2026-11-27 上午"; empty: none
    bool gift = false;
    QString remark;
    QDateTime entered;  ///< when the line was keyed, to the second; invalid: not known

    bool operator==(const OrderLine&) const = default;

    /// A line that says nothing is not kept. Warehouse, delivery date and half day alone say nothing: every
    /// row that the clerk merely passes through gets the preset ones.
    bool isEmpty() const {
        return code.isEmpty() && name.isEmpty() && spec.isEmpty() && unit.isEmpty() && !quantity && !price &&
               !gift && remark.isEmpty();
    }
};

/// What has become of an order's lines since they were saved, beside those that were not saved at all.
struct LineChanges {
    bool unknown = false;  ///< anything may have changed
    bool added = false;    ///< there are lines without an id
    bool moved = false;    ///< lines have changed places
    std::vector<qint64> changed;
    std::vector<qint64> removed;

    bool none() const { return !unknown && !added && !moved && changed.empty() && removed.empty(); }
};

struct Order {
    qint64 id = 0;    ///< 0: not saved yet
    int version = 0;  ///< counts the saves
    QString number;
    QDate date;
    qint64 customer = 0;    ///< 0: none chosen
    bool approved = false;  ///< closed: nothing changes any more
    std::vector<OrderLine> lines;

    bool operator==(const Order&) const = default;

    /// The same number, date and customer.
    bool hasHeadOf(const Order& other) const {
        return number == other.number && date == other.date && customer == other.customer;
    }

    Cents total() const {
        Cents sum = 0;
        for (const OrderLine& line : lines) sum += line.amount.value_or(0);
        return sum;
    }
};

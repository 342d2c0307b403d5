#include "OrderStore.h"

#include <map>
#include <set>
#include <utility>

using namespace Qt::StringLiterals;

namespace {
QVariant orNull(const std::optional<std::int64_t>& value) {
    return value ? QVariant::fromValue<qint64>(*value) : QVariant(QMetaType::fromType<qint64>());
}

QVariant orNull(const QDate& date) {
    return date.isValid() ? QVariant(date.toString(Qt::ISODate)) : QVariant(QMetaType::fromType<QString>());
}

QVariant orNull(const QDateTime& moment) {
    return moment.isValid() ? QVariant(timeText(moment)) : QVariant(QMetaType::fromType<QString>());
}

// An empty text that stands for nothing.
QVariant orNull(const QString& text) {
    return text.isEmpty() ? QVariant(QMetaType::fromType<QString>()) : QVariant(text);
}

// A null QString would be stored as NULL.
QVariant filled(const QString& text) {
    return text.isNull() ? u""_s : text;
}

std::optional<std::int64_t> number(const QVariant& value) {
    if (value.isNull()) return std::nullopt;
    return value.toLongLong();
}

/// In the order of lineOf() and valuesOf().
constexpr const char16_t* LineColumns =
    u"goods_code, goods_name, spec, unit, quantity_milli, price_cents, amount_cents, warehouse, "
    u"delivery_date,"
    " is_gift, remark, delivery_slot, entered_at";

QVariantList valuesOf(const OrderLine& line) {
    return {filled(line.code),     filled(line.name),  filled(line.spec),   filled(line.unit),
            orNull(line.quantity), orNull(line.price), orNull(line.amount), filled(line.warehouse),
            orNull(line.delivery), line.gift ? 1 : 0,  filled(line.remark), orNull(line.slot),
            orNull(line.entered)};
}

OrderLine lineOf(const QSqlQuery& row) {
    OrderLine line;
    line.id = row.value(13).toLongLong();
    line.code = row.value(0).toString();
    line.name = row.value(1).toString();
    line.spec = row.value(2).toString();
    line.unit = row.value(3).toString();
    line.quantity = number(row.value(4));
    line.price = number(row.value(5));
    line.amount = number(row.value(6));
    line.warehouse = row.value(7).toString();
    line.delivery = QDate::fromString(row.value(8).toString(), Qt::ISODate);
    line.gift = row.value(9).toBool();
    line.remark = row.value(10).toString();
    line.slot = row.value(11).toString();
    line.entered = timeOf(row.value(12).toString());
    return line;
}
}  // namespace

std::optional<Order> OrderStore::load(qint64 id) const {
    const QString attempt = u"读取订单"_s;
    QSqlQuery head =
        database_.run(attempt,
                      u"SELECT id, version, number, order_date, customer_id, is_approved FROM sales_order"
                      " WHERE id = ?"_s,
                      {id});
    if (!head.next()) return std::nullopt;
    Order order;
    order.id = head.value(0).toLongLong();
    order.version = head.value(1).toInt();
    order.number = head.value(2).toString();
    order.date = QDate::fromString(head.value(3).toString(), Qt::ISODate);
    order.customer = head.value(4).toLongLong();
    order.approved = head.value(5).toBool();
    QSqlQuery lines = database_.run(
        attempt,
        u"SELECT %1, id FROM order_line WHERE order_id = ? ORDER BY line_no"_s.arg(QStringView(LineColumns)),
        {id});
    while (lines.next()) order.lines.push_back(lineOf(lines));
    return order;
}

void OrderStore::save(Order& order) {
    LineChanges all;
    all.unknown = true;
    save(order, all);
}

void OrderStore::save(Order& order, const LineChanges& changes) {
    const QString attempt = u"保存订单 "_s + order.number;
    const bool whole = order.id == 0 || changes.unknown;
    Order saved = order;
    Transaction transaction(database_, attempt);
    writeHead(saved, attempt);
    if (whole)
        writeAllLines(saved, attempt);
    else
        writeChanges(saved, changes, attempt);
    transaction.commit();
    order = std::move(saved);
}

void OrderStore::writeHead(Order& order, const QString& attempt) {
    const QVariantList values = {filled(order.number), order.date.toString(Qt::ISODate), order.customer,
                                 order.version + 1};
    if (order.id == 0) {
        order.id = database_
                       .run(attempt,
                            u"INSERT INTO sales_order (number, order_date, customer_id, version)"
                            " VALUES (?, ?, ?, ?)"_s,
                            values)
                       .lastInsertId()
                       .toLongLong();
    } else {
        const QSqlQuery written =
            database_.run(attempt,
                          u"UPDATE sales_order SET number = ?, order_date = ?, customer_id = ?,"
                          " version = ? WHERE id = ? AND version = ? AND is_approved = 0"_s,
                          values + QVariantList{order.id, order.version});
        expectOne(written, attempt);
    }
    ++order.version;
}

void OrderStore::writeAllLines(Order& order, const QString& attempt) {
    database_.run(attempt, u"DELETE FROM order_line WHERE order_id = ?"_s, {order.id});
    for (std::size_t i = 0; i < order.lines.size(); ++i) order.lines[i].id = insertLine(order, i, attempt);
}

void OrderStore::writeChanges(Order& order, const LineChanges& changes, const QString& attempt) {
    for (const qint64 removed : changes.removed) removeLine(order, removed, attempt);
    const std::set<qint64> changed(changes.changed.begin(), changes.changed.end());
    for (const OrderLine& line : order.lines)
        if (changed.contains(line.id)) updateLine(order, line, attempt);
    placeLines(order, attempt);
    for (std::size_t i = 0; i < order.lines.size(); ++i)
        if (order.lines[i].id == 0) order.lines[i].id = insertLine(order, i, attempt);
}

// Lines are numbered from 1 without gaps. What stands in the database is asked: another program may number
// otherwise.
void OrderStore::placeLines(const Order& order, const QString& attempt) {
    QSqlQuery found =
        database_.run(attempt, u"SELECT id, line_no FROM order_line WHERE order_id = ?"_s, {order.id});
    std::map<qint64, int> numbers;
    while (found.next()) numbers.emplace(found.value(0).toLongLong(), found.value(1).toInt());
    QVariantList moved;
    QVariantList places;
    for (std::size_t i = 0; i < order.lines.size(); ++i) {
        const int number = static_cast<int>(i) + 1;
        const auto before = numbers.find(order.lines[i].id);
        if (before == numbers.end() || before->second == number) continue;
        places << number;
        moved << order.lines[i].id;
    }
    if (!moved.isEmpty())
        database_.runForEach(attempt, u"UPDATE order_line SET line_no = ? WHERE id = ?"_s, {places, moved});
}

qint64 OrderStore::insertLine(const Order& order, std::size_t index, const QString& attempt) {
    const QVariantList place = {order.id, static_cast<qint64>(index) + 1};
    return database_
        .run(attempt,
             u"INSERT INTO order_line (order_id, line_no, %1)"
             " VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?)"_s.arg(QStringView(LineColumns)),
             place + valuesOf(order.lines[index]))
        .lastInsertId()
        .toLongLong();
}

void OrderStore::updateLine(const Order& order, const OrderLine& line, const QString& attempt) {
    const QSqlQuery written = database_.run(
        attempt,
        u"UPDATE order_line SET (%1) = (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?) WHERE id = ? AND order_id = ?"_s
            .arg(QStringView(LineColumns)),
        valuesOf(line) + QVariantList{line.id, order.id});
    expectOne(written, attempt);
}

void OrderStore::removeLine(const Order& order, qint64 line, const QString& attempt) {
    const QSqlQuery removed =
        database_.run(attempt, u"DELETE FROM order_line WHERE id = ? AND order_id = ?"_s, {line, order.id});
    expectOne(removed, attempt);
}

void OrderStore::remove(const Order& order) {
    const QString attempt = u"删除订单 "_s + order.number;
    Transaction transaction(database_, attempt);
    const QSqlQuery removed =
        database_.run(attempt, u"DELETE FROM sales_order WHERE id = ? AND version = ? AND is_approved = 0"_s,
                      {order.id, order.version});
    expectOne(removed, attempt);
    transaction.commit();
}

void OrderStore::approve(Order& order) {
    const QString attempt = u"审核订单 "_s + order.number;
    Transaction transaction(database_, attempt);
    const QSqlQuery approved = database_.run(attempt,
                                             u"UPDATE sales_order SET is_approved = 1, version = ?"
                                             " WHERE id = ? AND version = ? AND is_approved = 0"_s,
                                             {order.version + 1, order.id, order.version});
    expectOne(approved, attempt);
    transaction.commit();
    ++order.version;
    order.approved = true;
}

void OrderStore::expectOne(const QSqlQuery& written, const QString& attempt) const {
    if (written.numRowsAffected() != 1)
        throw OrderChanged(attempt, database_.file(), u"订单在打开之后已被别处修改、审核或删除"_s);
}

std::vector<OrderSummary> OrderStore::list(const QString& text, int most) const {
    const QVariant wanted = filled(text);
    QSqlQuery found = database_.run(
        u"读取订单列表"_s,
        u"SELECT o.id, o.number, o.order_date, c.name, COUNT(l.line_no), COALESCE(SUM(l.amount_cents), 0),"
        " o.is_approved"
        " FROM sales_order o JOIN customer c ON c.id = o.customer_id"
        " LEFT JOIN order_line l ON l.order_id = o.id"
        " WHERE instr(o.number, ?) > 0 OR instr(c.name, ?) > 0 OR instr(c.pinyin, lower(?)) > 0"
        " OR EXISTS (SELECT 1 FROM order_line r WHERE r.order_id = o.id AND instr(r.remark, ?) > 0)"
        " GROUP BY o.id ORDER BY o.order_date DESC, o.number DESC LIMIT ?"_s,
        {wanted, wanted, wanted, wanted, most});
    std::vector<OrderSummary> result;
    while (found.next())
        result.push_back({found.value(0).toLongLong(), found.value(1).toString(),
                          QDate::fromString(found.value(2).toString(), Qt::ISODate),
                          found.value(3).toString(), found.value(4).toInt(), found.value(5).toLongLong(),
                          found.value(6).toBool()});
    return result;
}

QString OrderStore::nextNumber(const QDate& date) const {
    const QString prefix = u"XS-"_s + date.toString(u"yyyyMMdd"_s) + u'-';
    const int length = static_cast<int>(prefix.size());
    QSqlQuery found = database_.run(u"编排单号"_s,
                                    u"SELECT MAX(CAST(substr(number, ?) AS INTEGER)) FROM sales_order"
                                    " WHERE substr(number, 1, ?) = ?"_s,
                                    {length + 1, length, prefix});
    const int last = found.next() ? found.value(0).toInt() : 0;
    return prefix + QString::number(last + 1).rightJustified(3, u'0');
}

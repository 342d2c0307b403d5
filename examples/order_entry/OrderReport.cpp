#include "OrderReport.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include "kxVsGrid/qt/kxGridWidget.h"

using namespace Qt::StringLiterals;

namespace {
QJsonValue numberOf(const std::optional<std::int64_t>& value) {
    return value ? QJsonValue(static_cast<qint64>(*value)) : QJsonValue();
}

QJsonObject reportOf(const OrderLine& line) {
    return {{u"code"_s, line.code},
            {u"name"_s, line.name},
            {u"spec"_s, line.spec},
            {u"unit"_s, line.unit},
            {u"quantity"_s, numberOf(line.quantity)},
            {u"price"_s, numberOf(line.price)},
            {u"amount"_s, numberOf(line.amount)},
            {u"warehouse"_s, line.warehouse},
            {u"delivery"_s, line.delivery.toString(Qt::ISODate)},
            {u"slot"_s, line.slot},
            {u"gift"_s, line.gift},
            {u"remark"_s, line.remark},
            {u"entered"_s, timeText(line.entered)}};
}

QJsonObject reportOf(const OrderWindow& window) {
    const Order order = window.onScreen();
    QJsonArray lines;
    for (const OrderLine& line : order.lines) lines.append(reportOf(line));
    return {{u"title"_s, window.windowTitle()},
            {u"number"_s, order.number},
            {u"date"_s, order.date.toString(Qt::ISODate)},
            {u"customer"_s, order.customer},
            {u"lines"_s, lines},
            {u"total"_s, window.total()}};
}
}  // namespace

OrderReport::OrderReport(const QString& file) : file_(file) {
    if (!file.isEmpty()) file_.open(QIODevice::WriteOnly | QIODevice::Append | QIODevice::Unbuffered);
}

void OrderReport::follow(OrderWindow& window) {
    write(window);
    steps_.push_back(window.gridWidget().grid().Changes().After.connect(
        [this, &window](const kxVsGrid::StepChanges&) { write(window); }));
}

void OrderReport::write(const OrderWindow& window) {
    file_.write(QJsonDocument(reportOf(window)).toJson(QJsonDocument::Compact) + '\n');
}

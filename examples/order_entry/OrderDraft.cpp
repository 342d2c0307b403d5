#include "OrderDraft.h"

#include <QFileInfo>
#include <QJsonDocument>
#include <QJsonObject>
#include <QUuid>

using kxVsGrid::qt::DraftFile;
using namespace Qt::StringLiterals;

namespace {
constexpr QLatin1StringView SavedOrder("order ");
constexpr const char* HeadName = "header";

QString databaseName(const QString& database) {
    const QFileInfo file(database);
    const QString canonical = file.canonicalFilePath();
    return canonical.isEmpty() ? file.absoluteFilePath() : canonical;
}

// A new order has no name of its own yet: two windows may propose the same number.
QString draftKeyOf(const Order& order) {
    if (order.id != 0) return SavedOrder + QString::number(order.id);
    return u"new order "_s + QUuid::createUuid().toString(QUuid::WithoutBraces);
}

QByteArray headText(const OrderDraft::Head& head, const QString& database) {
    const QJsonObject text{{u"database"_s, database},
                           {u"proposedNumber"_s, head.proposed.number},
                           {u"proposedDate"_s, head.proposed.date.toString(Qt::ISODate)},
                           {u"number"_s, head.fields.number},
                           {u"date"_s, head.fields.date.toString(Qt::ISODate)},
                           {u"customer"_s, head.fields.customer},
                           {u"typed"_s, head.typed}};
    return QJsonDocument(text).toJson(QJsonDocument::Compact);
}

OrderDraft::Head headIn(const QJsonObject& text) {
    OrderDraft::Head head;
    const auto date = [&](const QString& name) {
        return QDate::fromString(text[name].toString(), Qt::ISODate);
    };
    head.proposed.number = text[u"proposedNumber"].toString();
    head.proposed.date = date(u"proposedDate"_s);
    head.fields.number = text[u"number"].toString();
    head.fields.date = date(u"date"_s);
    head.fields.customer = text[u"customer"].toInteger();
    head.typed = text[u"typed"].toString();
    return head;
}
}  // namespace

std::vector<OrderDraft::Kept> OrderDraft::keptIn(const QString& folder, const QString& database) {
    std::vector<Kept> all;
    for (const DraftFile::Leftover& file : DraftFile::leftovers(folder)) {
        const auto put = file.info.puts.find(HeadName);
        const QByteArray text =
            put == file.info.puts.end() ? QByteArray() : QByteArray::fromStdString(put->second);
        const QJsonObject head = QJsonDocument::fromJson(text).object();
        const bool ours = head[u"database"].toString() == databaseName(database);
        if (!ours && file.info.refusal.empty()) continue;
        Kept kept{file, 0, QString::fromStdString(file.info.version).toInt(), headIn(head)};
        const QString key = QString::fromStdString(file.info.key);
        if (key.startsWith(SavedOrder)) kept.order = key.mid(SavedOrder.size()).toLongLong();
        all.push_back(std::move(kept));
    }
    return all;
}

OrderDraft::OrderDraft(kxVsGrid::qt::kxGridWidget& widget, const QString& folder, const QString& database)
    : file_(widget, folder), database_(databaseName(database)) {
    connect(&file_, &DraftFile::failed, this, &OrderDraft::failed);
    connect(&file_, &DraftFile::works, this, &OrderDraft::works);
}

void OrderDraft::begin(const Order& order, const Head& head) {
    if (order.approved) return file_.finish();
    file_.begin(draftKeyOf(order), QString::number(order.version));
    put(head);
}

void OrderDraft::put(const Head& head) {
    file_.put(QString::fromLatin1(HeadName), headText(head, database_));
}

DraftFile::Recovery OrderDraft::recover(const Kept& kept, bool document) {
    return file_.recover(kept.file, document);
}

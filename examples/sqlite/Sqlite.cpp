#include "Sqlite.h"

#include <QSqlError>
#include <atomic>

using namespace Qt::StringLiterals;

namespace {
constexpr int UniqueViolated = 2067;  // SQLite's number

QString nextConnection() {
    static std::atomic<int> count{0};
    return u"example_%1"_s.arg(++count);
}

[[noreturn]] void fail(const QSqlError& error) {
    if (error.nativeErrorCode().toInt() == UniqueViolated)
        throw DatabaseError("数据库中已有相同的记录：" + error.databaseText().toStdString());
    throw DatabaseError("数据库出错：" + error.text().toStdString());
}
}  // namespace

bool next(QSqlQuery& query) {
    if (query.next()) return true;
    if (query.lastError().isValid()) fail(query.lastError());
    return false;
}

QVariant sql(const std::string& text) {
    return QString::fromStdString(text);
}

QVariant sql(std::int64_t number) {
    return static_cast<qint64>(number);
}

QVariant sql(const std::optional<kxVsGrid::Decimal>& number, int decimals) {
    return number ? QVariant(static_cast<qint64>(number->scaledTo(decimals))) : QVariant();
}

QVariant sql(const std::optional<kxVsGrid::Date>& date) {
    return date ? sql(date->text()) : QVariant();
}

Sqlite::Sqlite(const QString& file, const std::function<void(Sqlite&)>& create)
    : connection_(nextConnection()), database_(open(file)) {
    if (number("SELECT count(*) FROM sqlite_schema") == 0) atOnce([&] { create(*this); });
}

Sqlite::~Sqlite() {
    database_ = {};
    QSqlDatabase::removeDatabase(connection_);
}

QSqlDatabase Sqlite::open(const QString& file) {
    QSqlDatabase database = QSqlDatabase::addDatabase(u"QSQLITE"_s, connection_);
    database.setDatabaseName(file);
    if (!database.open()) fail(database.lastError());
    return database;
}

QSqlQuery Sqlite::run(const char* statement, const QVariantList& values) {
    QSqlQuery query(database_);
    query.setForwardOnly(true);
    if (!query.prepare(QString::fromUtf8(statement))) fail(query.lastError());
    for (const QVariant& value : values) query.addBindValue(value);
    if (!query.exec()) fail(query.lastError());
    return query;
}

void Sqlite::runForOne(const char* statement, const QVariantList& values) {
    if (run(statement, values).numRowsAffected() != 1)
        throw DatabaseError("别人已经修改或删除了这些记录，请重新打开。");
}

std::int64_t Sqlite::insert(const char* statement, const QVariantList& values) {
    return run(statement, values).lastInsertId().toLongLong();
}

std::int64_t Sqlite::number(const char* statement, const QVariantList& values) {
    QSqlQuery found = run(statement, values);
    return next(found) ? SqliteRow(found).whole(0) : 0;
}

void Sqlite::atOnce(const std::function<void()>& work) {
    if (!database_.transaction()) fail(database_.lastError());
    try {
        work();
        if (!database_.commit()) fail(database_.lastError());
    } catch (...) {
        database_.rollback();
        throw;
    }
}

// One SQLite file, for examples that need no more of a database than that.
//
// Whatever fails is a DatabaseError, whose text is for the clerk.
#pragma once

#include <QSqlDatabase>
#include <QSqlQuery>
#include <QString>
#include <QVariantList>
#include <cstdint>
#include <functional>
#include <optional>
#include <stdexcept>
#include <string>

#include "kxVsGrid/support/Date.h"
#include "kxVsGrid/support/Decimal.h"

class DatabaseError : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

/// The row of a query that has been moved to, its columns counted from 0.
class SqliteRow {
  public:
    explicit SqliteRow(const QSqlQuery& query) : query_(query) {}
    std::int64_t whole(int column) const { return query_.value(column).toLongLong(); }
    std::string text(int column) const { return query_.value(column).toString().toStdString(); }
    /// Of a whole number of its last decimals: cents, thousandths.
    kxVsGrid::Decimal decimal(int column, int decimals) const {
        return kxVsGrid::Decimal::scaled(whole(column), decimals);
    }
    std::optional<kxVsGrid::Decimal> decimalOrNone(int column, int decimals) const {
        return query_.isNull(column) ? std::nullopt : std::optional(decimal(column, decimals));
    }
    std::optional<kxVsGrid::Date> date(int column) const { return kxVsGrid::Date::read(text(column)); }

  private:
    const QSqlQuery& query_;
};

/// To the next row of a query. DatabaseError when it fails: what was read by then is not all there is.
bool next(QSqlQuery& query);

/// The ways back.
QVariant sql(const std::string& text);
QVariant sql(std::int64_t number);
QVariant sql(const std::optional<kxVsGrid::Decimal>& number, int decimals);
QVariant sql(const std::optional<kxVsGrid::Date>& date);

class Sqlite {
  public:
    /// ":memory:" stands for a database that nothing is kept of. What has no tables gets them from `create`.
    Sqlite(const QString& file, const std::function<void(Sqlite&)>& create);
    ~Sqlite();
    Sqlite(const Sqlite&) = delete;
    Sqlite& operator=(const Sqlite&) = delete;

    QSqlQuery run(const char* statement, const QVariantList& values = {});
    /// Runs one that has to meet exactly one row: when it has not, somebody else has changed that meanwhile.
    void runForOne(const char* statement, const QVariantList& values);
    /// The id of the row that was inserted.
    std::int64_t insert(const char* statement, const QVariantList& values);
    /// A number that a query answers; 0 where it answers none.
    std::int64_t number(const char* statement, const QVariantList& values = {});
    /// Everything that `work` writes, or, when it throws, nothing of it.
    void atOnce(const std::function<void()>& work);

  private:
    QSqlDatabase open(const QString& file);

    QString connection_;
    QSqlDatabase database_;
};

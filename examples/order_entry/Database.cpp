#include "Database.h"

#include <QDir>
#include <QFileInfo>
#include <QSqlError>
#include <atomic>
#include <initializer_list>

#include "PrivateFiles.h"
#include "SampleData.h"

using namespace Qt::StringLiterals;

namespace {
constexpr int SchemaVersion = 4;

constexpr QLatin1StringView InMemory(":memory:");

// A line keeps its id wherever it comes to stand in its order; line_no is that place, from 1.
// Quantities are thousandths, prices and amounts cents. The goods' name, specification and price are copies: an
// order keeps what was agreed when the catalogue changes.
constexpr const char* LineTable =
    "CREATE TABLE order_line (id INTEGER PRIMARY KEY,"
    " order_id INTEGER NOT NULL REFERENCES sales_order (id) ON DELETE CASCADE,"
    " line_no INTEGER NOT NULL, goods_code TEXT NOT NULL, goods_name TEXT NOT NULL, spec TEXT NOT NULL,"
    " unit TEXT NOT NULL, quantity_milli INTEGER, price_cents INTEGER, amount_cents INTEGER,"
    " warehouse TEXT NOT NULL, delivery_date TEXT, is_gift INTEGER NOT NULL, remark TEXT NOT NULL,"
    " delivery_slot TEXT, entered_at TEXT)";
constexpr const char* LineIndex = "CREATE INDEX order_line_place ON order_line (order_id, line_no)";

const char* const Tables[] = {
    "CREATE TABLE customer (id INTEGER PRIMARY KEY, code TEXT NOT NULL UNIQUE, name TEXT NOT NULL,"
    " pinyin TEXT NOT NULL, contact TEXT NOT NULL, phone TEXT NOT NULL)",
    "CREATE TABLE goods (id INTEGER PRIMARY KEY, code TEXT NOT NULL UNIQUE, name TEXT NOT NULL,"
    " pinyin TEXT NOT NULL, spec TEXT NOT NULL, unit TEXT NOT NULL, price_cents INTEGER NOT NULL)",
    "CREATE INDEX goods_pinyin ON goods (pinyin)",
    "CREATE TABLE warehouse (code TEXT PRIMARY KEY, name TEXT NOT NULL UNIQUE)",
    // version counts the saves, so that two windows cannot overwrite each other unnoticed.
    "CREATE TABLE sales_order (id INTEGER PRIMARY KEY, number TEXT NOT NULL UNIQUE, order_date TEXT NOT NULL,"
    " customer_id INTEGER NOT NULL REFERENCES customer (id), version INTEGER NOT NULL,"
    " is_approved INTEGER NOT NULL DEFAULT 0)",
    LineTable,
    LineIndex,
};

// What leads from each earlier version to the next one, the first entry from version 1.
const std::initializer_list<const char*> Upgrades[SchemaVersion - 1] = {
    {"ALTER TABLE order_line ADD COLUMN delivery_slot TEXT",
     "ALTER TABLE order_line ADD COLUMN entered_at TEXT"},
    {"ALTER TABLE sales_order ADD COLUMN is_approved INTEGER NOT NULL DEFAULT 0"},
    {"ALTER TABLE order_line RENAME TO order_line_before", LineTable,
     "INSERT INTO order_line (order_id, line_no, goods_code, goods_name, spec, unit, quantity_milli,"
     " price_cents, amount_cents, warehouse, delivery_date, is_gift, remark, delivery_slot, entered_at)"
     " SELECT order_id, line_no, goods_code, goods_name, spec, unit, quantity_milli, price_cents,"
     " amount_cents, warehouse, delivery_date, is_gift, remark, delivery_slot, entered_at"
     " FROM order_line_before ORDER BY order_id, line_no",
     "DROP TABLE order_line_before", LineIndex},
};

// SQLite's error numbers. The low byte of an extended one is the number that it refines.
struct Sqlite {
    enum Code {
        Busy = 5,
        Locked = 6,
        ReadOnly = 8,
        InputOutput = 10,
        Corrupt = 11,
        Full = 13,
        CannotOpen = 14,
        NoDatabase = 26,
        ForeignKey = 787,
        PrimaryKey = 1555,
        Unique = 2067,
    };
};

const char16_t* nameOfError(int code) {
    static const struct {
        int code;
        const char16_t* chinese;
    } known[] = {
        {Sqlite::Busy, u"数据库正被其他程序占用"},   {Sqlite::Locked, u"数据库正被其他程序占用"},
        {Sqlite::ReadOnly, u"数据库是只读的"},       {Sqlite::InputOutput, u"磁盘读写错误"},
        {Sqlite::Corrupt, u"数据库文件已损坏"},      {Sqlite::Full, u"磁盘已满"},
        {Sqlite::CannotOpen, u"无法打开数据库文件"}, {Sqlite::NoDatabase, u"文件不是数据库"},
        {Sqlite::ForeignKey, u"引用的资料不存在"},   {Sqlite::PrimaryKey, u"编号已经存在"},
        {Sqlite::Unique, u"编号已经存在"},
    };
    for (const int asked : {code, code & 0xff})
        for (const auto& entry : known)
            if (entry.code == asked) return entry.chinese;
    return nullptr;
}

QString inChinese(const QString& cause, int code) {
    const char16_t* const name = nameOfError(code);
    return name ? QString::fromUtf16(name) + u"("_s + cause.simplified() + u")"_s : cause.simplified();
}

QString shownFile(const QString& file) {
    return file == InMemory ? u"(内存)"_s : QDir::toNativeSeparators(QFileInfo(file).absoluteFilePath());
}

QString message(const QString& attempt, const QString& file, const QString& cause, int code) {
    return attempt + u"失败。\n文件:"_s + shownFile(file) + u"\n原因:"_s + inChinese(cause, code);
}

QString nextConnectionName() {
    static std::atomic<int> count{0};
    return u"order_entry_%1"_s.arg(++count);
}
}  // namespace

DatabaseError::DatabaseError(const QString& attempt, const QString& file, const QString& cause, int code)
    : std::runtime_error(message(attempt, file, cause, code).toStdString()), code_(code) {}

bool DatabaseError::isDuplicate() const {
    return code_ == Sqlite::Unique;
}

Database::Database(QString file) : file_(std::move(file)), connection_(nextConnectionName()) {}

Database::~Database() {
    close();
}

void Database::close() {
    open_ = false;
    readOnly_ = false;
    if (!database_.isValid()) return;
    database_.close();
    database_ = {};
    QSqlDatabase::removeDatabase(connection_);
}

bool Database::isInMemory() const {
    return file_ == InMemory;
}

// What cannot be made, SQLite cannot open either; it says why.
void Database::makeFile(const QString& attempt) {
    if (isInMemory()) return;
    const QString folder = QFileInfo(file_).absolutePath();
    if (!makePrivateFolder(folder))
        throw DatabaseError(attempt, file_, u"无法创建文件夹 "_s + QDir::toNativeSeparators(folder));
    makePrivateFile(file_);
}

void Database::open() {
    if (open_) return;
    const QString attempt = u"打开数据库"_s;
    makeFile(attempt);
    database_ = QSqlDatabase::addDatabase(u"QSQLITE"_s, connection_);
    database_.setDatabaseName(file_);
    database_.setConnectOptions(u"QSQLITE_BUSY_TIMEOUT=2000"_s);
    try {
        if (!database_.open()) fail(attempt, database_.lastError());
        open_ = true;  // so that run() does not come back here
        run(attempt, u"PRAGMA foreign_keys = ON"_s);
        const int found = version(attempt);
        if (found == 0)
            createTables();
        else if (found < SchemaVersion)
            upgrade();
        else if (found > SchemaVersion)
            throw DatabaseError(attempt, file_, u"文件由本程序的更新版本建立(版本 %1)"_s.arg(found));
        readOnly_ = refusesWriting();
    } catch (...) {
        close();
        throw;
    }
}

// SQLite opens a file that it may not write to without a word. A change that is taken back tells.
bool Database::refusesWriting() {
    QSqlQuery query(database_);
    const bool written =
        query.exec(u"BEGIN"_s) && query.exec(u"PRAGMA user_version = %1"_s.arg(SchemaVersion));
    const int code = written ? 0 : query.lastError().nativeErrorCode().toInt();
    query.exec(u"ROLLBACK"_s);
    return (code & 0xff) == Sqlite::ReadOnly;
}

int Database::version(const QString& attempt) {
    QSqlQuery found = run(attempt, u"PRAGMA user_version"_s);
    return found.next() ? found.value(0).toInt() : 0;
}

void Database::createTables() {
    const QString attempt = u"建立数据库"_s;
    Transaction transaction(*this, attempt);
    for (const char* table : Tables) run(attempt, QString::fromLatin1(table));
    writeSampleData(*this);
    run(attempt, u"PRAGMA user_version = %1"_s.arg(SchemaVersion));
    transaction.commit();
}

void Database::upgrade() {
    const QString attempt = u"升级数据库"_s;
    Transaction transaction(*this, attempt);
    // Another program may have upgraded the file since it was opened.
    for (int from = version(attempt); from < SchemaVersion; ++from)
        for (const char* step : Upgrades[from - 1]) run(attempt, QString::fromLatin1(step));
    run(attempt, u"PRAGMA user_version = %1"_s.arg(SchemaVersion));
    transaction.commit();
}

QSqlQuery Database::run(const QString& attempt, const QString& statement, const QVariantList& values) {
    open();
    QSqlQuery query(database_);
    query.setForwardOnly(true);
    if (!query.prepare(statement)) fail(attempt, query.lastError());
    for (const QVariant& value : values) query.addBindValue(value);
    if (!query.exec()) fail(attempt, query.lastError());
    return query;
}

void Database::runForEach(const QString& attempt, const QString& statement,
                          const QList<QVariantList>& valuesPerPlaceholder) {
    open();
    QSqlQuery query(database_);
    if (!query.prepare(statement)) fail(attempt, query.lastError());
    for (const QVariantList& values : valuesPerPlaceholder) query.addBindValue(values);
    if (!query.execBatch()) fail(attempt, query.lastError());
}

void Database::fail(const QString& attempt, const QSqlError& error) const {
    const QString cause = error.databaseText().isEmpty() ? error.text() : error.databaseText();
    throw DatabaseError(attempt, file_, cause, error.nativeErrorCode().toInt());
}

Transaction::Transaction(Database& database, QString attempt)
    : database_(database), attempt_(std::move(attempt)) {
    // SQLite goes on with a file that was removed; what is written to it would be lost. And it never writes
    // to a file that was read-only once.
    const bool gone = !database_.isInMemory() && !QFileInfo::exists(database_.file());
    if (database_.isOpen() && (gone || database_.isReadOnly())) database_.close();
    database_.open();
    if (!database_.database_.transaction()) database_.fail(attempt_, database_.database_.lastError());
}

Transaction::~Transaction() {
    if (!done_) database_.database_.rollback();
}

void Transaction::commit() {
    if (!database_.database_.commit()) database_.fail(attempt_, database_.database_.lastError());
    done_ = true;
}

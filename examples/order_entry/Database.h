// The embedded database: one SQLite file, created and filled with customers and goods at first use.
//
// ":memory:" stands for a database that nothing is kept of.
//
// Every failure is a DatabaseError whose text names what was tried, the file and the cause, ready to be
// shown. Nothing here talks to the clerk.
#pragma once

#include <QSqlDatabase>
#include <QSqlQuery>
#include <QString>
#include <QVariantList>
#include <stdexcept>

class DatabaseError : public std::runtime_error {
  public:
    /// `code` is SQLite's own number, extended; it says what `cause` is called in Chinese.
    DatabaseError(const QString& attempt, const QString& file, const QString& cause, int code = 0);

    QString text() const { return QString::fromUtf8(what()); }
    /// A value that has to be unique was there already.
    bool isDuplicate() const;
    int code() const { return code_; }

  private:
    int code_;
};

class Database {
  public:
    explicit Database(QString file);
    ~Database();
    Database(const Database&) = delete;
    Database& operator=(const Database&) = delete;

    const QString& file() const { return file_; }
    bool isOpen() const { return open_; }
    /// Was so when it was opened. Each Transaction opens such a file anew: it may be writable by then.
    bool isReadOnly() const { return open_ && readOnly_; }
    /// ":memory:": gone when it is closed.
    bool isInMemory() const;

    /// Opens the file; one that has no tables yet gets them and the sample data, one of an earlier version
    /// the columns and ids that it lacks: all or nothing. A file that is made, and folders above it, are the user's
    /// alone.
    void open();
    /// Runs one statement with its values; `attempt` says in an error message what it was for. Opens first
    /// where that has not happened yet.
    QSqlQuery run(const QString& attempt, const QString& statement, const QVariantList& values = {});
    /// The same for many rows: one list of values per placeholder, all of the same length.
    void runForEach(const QString& attempt, const QString& statement,
                    const QList<QVariantList>& valuesPerPlaceholder);

  private:
    friend class Transaction;
    int version(const QString& attempt);
    void makeFile(const QString& attempt);
    bool refusesWriting();
    void createTables();
    void upgrade();
    void close();
    [[noreturn]] void fail(const QString& attempt, const QSqlError& error) const;

    QString file_;
    QString connection_;
    QSqlDatabase database_;
    bool open_ = false;
    bool readOnly_ = false;
};

/// All or nothing: what was written since the beginning is taken back unless commit() was reached.
class Transaction {
  public:
    Transaction(Database& database, QString attempt);
    ~Transaction();
    Transaction(const Transaction&) = delete;
    Transaction& operator=(const Transaction&) = delete;

    void commit();

  private:
    Database& database_;
    QString attempt_;
    bool done_ = false;
};

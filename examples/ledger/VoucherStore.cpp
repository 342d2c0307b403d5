#include "VoucherStore.h"

namespace ledger {
namespace {
const char* const Tables[] = {
    "CREATE TABLE account (code TEXT PRIMARY KEY, name TEXT NOT NULL)",
    "CREATE TABLE voucher (id INTEGER PRIMARY KEY, month TEXT NOT NULL UNIQUE)",
    // version counts the saves, so that two clerks cannot overwrite each other unnoticed.
    "CREATE TABLE entry (id INTEGER PRIMARY KEY, version INTEGER NOT NULL,"
    " voucher INTEGER NOT NULL REFERENCES voucher (id), number INTEGER NOT NULL, summary TEXT NOT NULL,"
    " account TEXT NOT NULL REFERENCES account (code), debit_cents INTEGER NOT NULL,"
    " credit_cents INTEGER NOT NULL, CHECK (debit_cents = 0 OR credit_cents = 0))",
};

const char* const Accounts[][2] = {
    {"1001", "库存现金"}, {"1002", "银行存款"},     {"100201", "工商银行"}, {"100202", "建设银行"},
    {"1122", "应收账款"}, {"1403", "原材料"},       {"1405", "库存商品"},   {"1602", "累计折旧"},
    {"2202", "应付账款"}, {"2211", "应付职工薪酬"}, {"221101", "工资"},     {"221102", "社会保险费"},
    {"2221", "应交税费"}, {"222101", "应交增值税"}, {"4103", "本年利润"},   {"5001", "生产成本"},
    {"5101", "制造费用"}, {"6001", "主营业务收入"}, {"6602", "管理费用"},   {"660201", "工资"},
    {"660202", "折旧费"}, {"660203", "办公费"},     {"660204", "房租"},
};

constexpr const char* InsertEntry =
    "INSERT INTO entry (voucher, number, summary, account, debit_cents, credit_cents, version)"
    " VALUES (?, ?, ?, ?, ?, ?, 1)";

QVariantList valuesOf(const Entry& entry, std::int64_t voucher) {
    return {sql(voucher),       sql(entry.number),   sql(entry.summary),
            sql(entry.account), sql(entry.debit, 2), sql(entry.credit, 2)};
}

void writeSamples(Sqlite& database, const Date& month) {
    for (const char* table : Tables) database.run(table);
    for (const auto& [code, name] : Accounts)
        database.run("INSERT INTO account VALUES (?, ?)", {sql(std::string(code)), sql(std::string(name))});
    const std::int64_t voucher = database.insert("INSERT INTO voucher (month) VALUES (?)", {sql(month)});
    const Entry entries[] = {
        {0, 0, 1, "计提折旧", "660202", {}, Decimal("3820.50"), {}},
        {0, 0, 2, "计提折旧", "1602", {}, {}, Decimal("3820.50")},
        {0, 0, 3, "支付房租", "660204", {}, 12'000, {}},
        {0, 0, 4, "支付房租", "100201", {}, {}, 12'000},
    };
    for (const Entry& entry : entries) database.run(InsertEntry, valuesOf(entry, voucher));
}
}  // namespace

VoucherStore::VoucherStore(const QString& file, const Date& today)
    : database_(file, [&](Sqlite& fresh) { writeSamples(fresh, monthBefore(today)); }) {}

std::vector<Account> VoucherStore::accounts() {
    std::vector<Account> all;
    QSqlQuery found = database_.run(
        "SELECT a.code, coalesce(above.name || '-', '') || a.name,"
        " NOT EXISTS (SELECT 1 FROM account below WHERE below.code LIKE a.code || '__')"
        " FROM account a LEFT JOIN account above ON length(a.code) > 4"
        " AND above.code = substr(a.code, 1, length(a.code) - 2) ORDER BY a.code");
    const SqliteRow row(found);
    while (next(found)) all.push_back({row.text(0), row.text(1), row.whole(2) != 0});
    return all;
}

Voucher VoucherStore::voucher(const Date& month) {
    return {database_.number("SELECT id FROM voucher WHERE month = ?", {sql(month)}), month};
}

std::vector<Entry> VoucherStore::entries(const Voucher& voucher) {
    std::vector<Account> accounts = this->accounts();
    std::vector<Entry> all;
    QSqlQuery found = database_.run(
        "SELECT id, version, number, summary, account, debit_cents, credit_cents FROM entry"
        " WHERE voucher = ? ORDER BY number",
        {sql(voucher.id)});
    const SqliteRow row(found);
    while (next(found)) {
        all.push_back({row.whole(0),
                       row.whole(1),
                       row.whole(2),
                       row.text(3),
                       row.text(4),
                       {},
                       row.decimal(5, 2),
                       row.decimal(6, 2)});
        for (const Account& account : accounts)
            if (account.code == all.back().account) all.back().name = account.name;
    }
    return all;
}

void VoucherStore::save(Voucher& voucher, kxVsGrid::RecordChanges<Entry>& changes) {
    std::int64_t id = voucher.id;
    database_.atOnce([&] {
        if (id == 0) id = database_.insert("INSERT INTO voucher (month) VALUES (?)", {sql(voucher.month)});
        for (const auto& line : changes.removed)
            database_.runForOne("DELETE FROM entry WHERE id = ? AND version = ?",
                                {sql(line.before.id), sql(line.before.version)});
        for (auto& line : changes.changed) {
            line.after.version = line.before.version + 1;
            database_.runForOne(
                "UPDATE entry SET voucher = ?, number = ?, summary = ?, account = ?, debit_cents = ?,"
                " credit_cents = ?, version = ? WHERE id = ? AND version = ?",
                valuesOf(line.after, id)
                    << sql(line.after.version) << sql(line.before.id) << sql(line.before.version));
        }
        for (auto& line : changes.added) {
            line.record.version = 1;
            line.record.id = database_.insert(InsertEntry, valuesOf(line.record, id));
        }
    });
    voucher.id = id;
}

Date monthOf(const Date& day) {
    return {day.year, day.month, 1};
}

Date monthBefore(const Date& day) {
    return monthOf(monthOf(day).plusDays(-1));
}
}  // namespace ledger

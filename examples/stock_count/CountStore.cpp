#include "CountStore.h"

#include <array>
#include <memory>

namespace stock_count {
namespace {
const char* const Tables[] = {
    "CREATE TABLE goods (code TEXT PRIMARY KEY, name TEXT NOT NULL, pinyin TEXT NOT NULL, spec TEXT NOT NULL,"
    " unit TEXT NOT NULL, price_cents INTEGER NOT NULL)",
    // version counts the saves, so that two clerks cannot overwrite each other unnoticed.
    "CREATE TABLE count_line (id INTEGER PRIMARY KEY, version INTEGER NOT NULL,"
    " goods TEXT NOT NULL REFERENCES goods (code), bin TEXT NOT NULL, batch TEXT NOT NULL,"
    " book_milli INTEGER NOT NULL, counted_milli INTEGER, price_cents INTEGER NOT NULL, counted_on TEXT,"
    " remark TEXT NOT NULL, UNIQUE (goods, bin, batch))",
};

struct Kind {
    const char *name, *pinyin, *unit;
};
constexpr std::array<Kind, 8> Kinds = {{{"六角螺栓", "ljls", "个"},
                                        {"无缝钢管", "wfgg", "米"},
                                        {"深沟球轴承", "sgqzc", "套"},
                                        {"三角带", "sjd", "条"},
                                        {"电焊条", "dht", "公斤"},
                                        {"密封垫圈", "mfdq", "片"},
                                        {"铜芯电缆", "txdl", "米"},
                                        {"防锈漆", "fxq", "桶"}}};

std::string codeOf(int number) {
    return std::to_string(100'000 + number);
}

std::int64_t priceOf(int number) {
    return 120 + number * 37 % 9'000;
}

void writeSamples(Sqlite& database, int goods, int lines) {
    for (const char* table : Tables) database.run(table);
    for (int i = 0; i < goods; ++i) {
        const Kind& kind = Kinds.at(static_cast<std::size_t>(i) % Kinds.size());
        database.run("INSERT INTO goods VALUES (?, ?, ?, ?, ?, ?)",
                     {sql(codeOf(i)), sql(std::string(kind.name)), sql(std::string(kind.pinyin)),
                      sql("M" + std::to_string(4 + i / 8 % 60) + "×" + std::to_string(10 + i / 480 * 5)),
                      sql(std::string(kind.unit)), sql(priceOf(i))});
    }
    for (int i = 0; i < lines; ++i) {
        const int number = i * 7 % goods;
        database.run("INSERT INTO count_line VALUES (NULL, 1, ?, ?, ?, ?, NULL, ?, NULL, '')",
                     {sql(codeOf(number)),
                      sql(std::string(1, static_cast<char>('A' + i % 6)) + "-" + std::to_string(10 + i / 50)),
                      sql("P" + std::to_string(2601 + i % 9)), sql(std::int64_t{1000} * (5 + i * 13 % 400)),
                      sql(priceOf(number))});
    }
}

CountLine lineOf(QSqlQuery& query) {
    const SqliteRow row(query);
    CountLine line;
    line.id = row.whole(0);
    line.version = row.whole(1);
    line.goods = row.text(2);
    line.name = row.text(3);
    line.spec = row.text(4);
    line.unit = row.text(5);
    line.bin = row.text(6);
    line.batch = row.text(7);
    line.book = row.decimal(8, 3);
    line.counted = row.decimalOrNone(9, 3);
    line.price = row.decimal(10, 2);
    line.countedOn = row.date(11);
    line.remark = row.text(12);
    return line;
}

QVariantList valuesOf(const CountLine& line) {
    return {sql(line.goods),      sql(line.bin),      sql(line.batch),     sql(line.book, 3),
            sql(line.counted, 3), sql(line.price, 2), sql(line.countedOn), sql(line.remark)};
}
}  // namespace

CountStore::CountStore(const QString& file, int goods, int lines)
    : database_(file, [=](Sqlite& fresh) { writeSamples(fresh, goods, lines); }) {}

std::vector<Goods> CountStore::goods() {
    std::vector<Goods> all;
    QSqlQuery found =
        database_.run("SELECT code, name, pinyin, spec, unit, price_cents FROM goods ORDER BY code");
    const SqliteRow row(found);
    while (next(found))
        all.push_back({row.text(0), row.text(1), row.text(2), row.text(3), row.text(4), row.decimal(5, 2)});
    return all;
}

std::function<std::optional<CountLine>()> CountStore::lines() {
    QSqlQuery query = database_.run(
        "SELECT l.id, l.version, l.goods, g.name, g.spec, g.unit, l.bin, l.batch, l.book_milli,"
        " l.counted_milli, l.price_cents, l.counted_on, l.remark"
        " FROM count_line l JOIN goods g ON g.code = l.goods ORDER BY l.id");
    return [query = std::make_shared<QSqlQuery>(std::move(query))] {
        return next(*query) ? std::optional(lineOf(*query)) : std::nullopt;
    };
}

std::size_t CountStore::size() {
    return static_cast<std::size_t>(database_.number("SELECT count(*) FROM count_line"));
}

void CountStore::save(kxVsGrid::RecordChanges<CountLine>& changes) {
    database_.atOnce([&] {
        for (const auto& line : changes.removed)
            database_.runForOne("DELETE FROM count_line WHERE id = ? AND version = ?",
                                {sql(line.before.id), sql(line.before.version)});
        for (auto& line : changes.changed) {
            line.after.version = line.before.version + 1;
            database_.runForOne(
                "UPDATE count_line SET goods = ?, bin = ?, batch = ?, book_milli = ?, counted_milli = ?,"
                " price_cents = ?, counted_on = ?, remark = ?, version = ? WHERE id = ? AND version = ?",
                valuesOf(line.after) << sql(line.after.version) << sql(line.before.id)
                                     << sql(line.before.version));
        }
        for (auto& line : changes.added) {
            line.record.version = 1;
            line.record.id = database_.insert(
                "INSERT INTO count_line (goods, bin, batch, book_milli, counted_milli, price_cents, "
                "counted_on,"
                " remark, version) VALUES (?, ?, ?, ?, ?, ?, ?, ?, 1)",
                valuesOf(line.record));
        }
    });
}
}  // namespace stock_count

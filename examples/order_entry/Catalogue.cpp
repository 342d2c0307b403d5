#include "Catalogue.h"

using namespace Qt::StringLiterals;

namespace {
constexpr QLatin1StringView GoodsColumns("code, name, spec, unit, price_cents, pinyin");

Goods goodsOf(const QSqlQuery& row) {
    return {row.value(0).toString(), row.value(1).toString(),   row.value(2).toString(),
            row.value(3).toString(), row.value(4).toLongLong(), row.value(5).toString()};
}

// A null QString would be stored as NULL.
QString notNull(const QString& text) {
    return text.isNull() ? u""_s : text;
}
}  // namespace

std::optional<Goods> Catalogue::goods(const QString& code) const {
    QSqlQuery found =
        database_.run(u"查找商品"_s, u"SELECT %1 FROM goods WHERE code = ?"_s.arg(GoodsColumns), {code});
    if (!found.next()) return std::nullopt;
    return goodsOf(found);
}

std::optional<CodeAndName> Catalogue::find(const QString& query, const QString& codeField,
                                           const QString& nameField, const QString& text) const {
    QSqlQuery found = database_.run(
        u"核对编码"_s, u"SELECT %1, %2 FROM (%3) WHERE %1 = ?"_s.arg(codeField, nameField, query), {text});
    if (!found.next()) return std::nullopt;
    return CodeAndName{found.value(0).toString(), found.value(1).toString()};
}

std::optional<CodeAndName> Catalogue::warehouse(const QString& typed) const {
    const QString all = u"SELECT code, name FROM warehouse"_s;
    if (const auto coded = find(all, u"code"_s, u"name"_s, typed.toUpper())) return coded;
    const auto named = find(all, u"name"_s, u"code"_s, typed);
    return named ? std::optional(CodeAndName{named->name, named->code}) : std::nullopt;
}

std::vector<Goods> Catalogue::goodsStartingWith(const QString& text, int most) const {
    QString pattern = text;
    for (const QChar special : {u'\\', u'%', u'_'}) pattern.replace(special, u"\\"_s + special);
    pattern += u'%';
    QSqlQuery found =
        database_.run(u"查找商品"_s,
                      u"SELECT "_s + GoodsColumns +
                          u" FROM goods WHERE code LIKE ? ESCAPE '\\'"
                          " OR name LIKE ? ESCAPE '\\' OR pinyin LIKE ? ESCAPE '\\' ORDER BY code LIMIT ?"_s,
                      {pattern, pattern, pattern, most});
    std::vector<Goods> result;
    while (found.next()) result.push_back(goodsOf(found));
    return result;
}

std::vector<Goods> Catalogue::allGoods() const {
    QSqlQuery found = database_.run(u"读取商品"_s, u"SELECT %1 FROM goods ORDER BY code"_s.arg(GoodsColumns));
    std::vector<Goods> result;
    while (found.next()) result.push_back(goodsOf(found));
    return result;
}

void Catalogue::add(const Goods& goods) {
    const QString attempt = u"保存商品"_s;
    Transaction transaction(database_, attempt);
    database_.run(attempt, u"INSERT INTO goods (%1) VALUES (?, ?, ?, ?, ?, ?)"_s.arg(GoodsColumns),
                  {goods.code, goods.name, notNull(goods.spec), goods.unit,
                   QVariant::fromValue(goods.price.units), notNull(goods.pinyin)});
    transaction.commit();
}

void Catalogue::change(const Goods& goods) {
    const QString attempt = u"保存商品"_s;
    Transaction transaction(database_, attempt);
    const QSqlQuery changed = database_.run(
        attempt,
        u"UPDATE goods SET name = ?, spec = ?, unit = ?, price_cents = ?, pinyin = ? WHERE code = ?"_s,
        {goods.name, notNull(goods.spec), goods.unit, QVariant::fromValue(goods.price.units),
         notNull(goods.pinyin), goods.code});
    if (changed.numRowsAffected() != 1)
        throw DatabaseError(attempt, database_.file(), u"货号 %1 已被删除"_s.arg(goods.code));
    transaction.commit();
}

std::vector<Customer> Catalogue::customers() const {
    QSqlQuery found = database_.run(
        u"读取客户"_s, u"SELECT id, code, name, pinyin, contact, phone FROM customer ORDER BY code"_s);
    std::vector<Customer> result;
    while (found.next())
        result.push_back({found.value(0).toLongLong(), found.value(1).toString(), found.value(2).toString(),
                          found.value(3).toString(), found.value(4).toString(), found.value(5).toString()});
    return result;
}

std::vector<CodeAndName> Catalogue::warehouses() const {
    QSqlQuery found = database_.run(u"读取仓库"_s, u"SELECT code, name FROM warehouse ORDER BY code"_s);
    std::vector<CodeAndName> result;
    while (found.next()) result.push_back({found.value(0).toString(), found.value(1).toString()});
    return result;
}

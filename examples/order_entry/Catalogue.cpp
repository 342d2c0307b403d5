#include "Catalogue.h"

using namespace Qt::StringLiterals;

namespace {
Goods goodsOf(const QSqlQuery& row) {
    return {row.value(0).toString(), row.value(1).toString(), row.value(2).toString(),
            row.value(3).toString(), row.value(4).toLongLong()};
}
}  // namespace

std::optional<Goods> Catalogue::goods(const QString& code) const {
    QSqlQuery found = database_.run(
        u"查找商品"_s, u"SELECT code, name, spec, unit, price_cents FROM goods WHERE code = ?"_s, {code});
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

std::vector<Goods> Catalogue::goodsStartingWith(const QString& text, int most) const {
    QString pattern = text;
    for (const QChar special : {u'\\', u'%', u'_'}) pattern.replace(special, u"\\"_s + special);
    pattern += u'%';
    QSqlQuery found =
        database_.run(u"查找商品"_s,
                      u"SELECT code, name, spec, unit, price_cents FROM goods WHERE code LIKE ? ESCAPE '\\'"
                      " OR name LIKE ? ESCAPE '\\' OR pinyin LIKE ? ESCAPE '\\' ORDER BY code LIMIT ?"_s,
                      {pattern, pattern, pattern, most});
    std::vector<Goods> result;
    while (found.next()) result.push_back(goodsOf(found));
    return result;
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

QStringList Catalogue::warehouses() const {
    QSqlQuery found = database_.run(u"读取仓库"_s, u"SELECT name FROM warehouse ORDER BY code"_s);
    QStringList result;
    while (found.next()) result << found.value(0).toString();
    return result;
}

#include "SampleData.h"

#include <QVariantList>
#include <algorithm>
#include <random>
#include <set>
#include <tuple>

#include "Database.h"
#include "SampleWords.h"

using namespace Qt::StringLiterals;

namespace {
// The engine's numbers are the same everywhere; the standard distributions' are not.
class Dice {
  public:
    explicit Dice(std::uint32_t seed) : engine_(seed) {}
    int below(std::size_t count) { return static_cast<int>(engine_() % count); }
    template <class T>
    const T& pick(const std::vector<T>& choices) {
        return choices[static_cast<std::size_t>(below(choices.size()))];
    }

  private:
    std::mt19937 engine_;
};

QString text(const char16_t* words) {
    return QString::fromUtf16(words);
}

// "M{6|8}×{20|30}" with one alternative of each brace.
QString chosenSpec(const char16_t* pattern, Dice& dice) {
    QString result;
    QString rest = text(pattern);
    for (qsizetype open = rest.indexOf(u'{'); open >= 0; open = rest.indexOf(u'{')) {
        const qsizetype close = rest.indexOf(u'}', open);
        const QStringList choices = rest.mid(open + 1, close - open - 1).split(u'|');
        result += rest.left(open) + choices[dice.below(static_cast<std::size_t>(choices.size()))];
        rest = rest.mid(close + 1);
    }
    return result + rest;
}

// Prices as people make them: dear goods in whole yuan, cheap ones to the cent.
std::int64_t chosenPrice(const PricedUnit& unit, Dice& dice) {
    const int span = unit.highestPrice - unit.lowestPrice + 1;
    const int cents = unit.lowestPrice + dice.below(static_cast<std::size_t>(span));
    const int step = cents >= 10000 ? 100 : cents >= 1000 ? 10 : 1;
    return cents - cents % step;
}

QString number(const char* prefix, int value, int digits) {
    return QLatin1StringView(prefix) + QString::number(value).rightJustified(digits, u'0');
}
}  // namespace

std::vector<SampleGoods> sampleGoods() {
    Dice dice(20260101);
    std::set<std::pair<QString, QString>> taken;
    std::vector<std::pair<int, SampleGoods>> drawn;  // with the family's number
    const std::vector<GoodsFamily>& families = goodsFamilies();
    while (drawn.size() < SampleGoodsCount) {
        const int which = dice.below(families.size());
        const GoodsFamily& family = families[static_cast<std::size_t>(which)];
        const Word& material = dice.pick(family.materials);
        const Word& thing = dice.pick(family.things);
        SampleGoods goods;
        goods.name = text(material.text) + text(thing.text);
        goods.pinyin = text(material.initials) + text(thing.initials);
        goods.spec = chosenSpec(family.spec, dice);
        const PricedUnit& unit = dice.pick(family.units);
        goods.unit = text(unit.text);
        goods.priceCents = chosenPrice(unit, dice);
        if (taken.emplace(goods.name, goods.spec).second) drawn.emplace_back(which, std::move(goods));
    }
    // A catalogue is numbered family by family.
    std::sort(drawn.begin(), drawn.end(), [](const auto& a, const auto& b) {
        return std::tie(a.first, a.second.name, a.second.spec) <
               std::tie(b.first, b.second.name, b.second.spec);
    });
    std::vector<SampleGoods> result;
    for (auto& [family, goods] : drawn) {
        goods.code = QString::number(100001 + static_cast<int>(result.size()));
        result.push_back(std::move(goods));
    }
    return result;
}

std::vector<SampleCustomer> sampleCustomers() {
    Dice dice(20260102);
    const CustomerWords& words = customerWords();
    std::set<QString> taken;
    std::vector<SampleCustomer> result;
    while (result.size() < SampleCustomerCount) {
        const CustomerWords::Town& town = dice.pick(words.towns);
        const Word& firm = dice.pick(words.firms);
        const Word& trade = dice.pick(words.trades);
        const Word& form = words.forms[static_cast<std::size_t>(std::max(0, dice.below(8) - 4))];
        SampleCustomer customer;
        customer.name = text(town.name.text) + text(firm.text) + text(trade.text) + text(form.text);
        customer.pinyin =
            text(town.name.initials) + text(firm.initials) + text(trade.initials) + text(form.initials);
        customer.contact = text(dice.pick(words.surnames)) + text(dice.pick(words.titles));
        customer.phone = text(town.dialCode) + u'-' + number("8", dice.below(10000000), 7);
        if (!taken.insert(customer.name).second) continue;
        customer.code = number("K", static_cast<int>(result.size()) + 1, 4);
        result.push_back(std::move(customer));
    }
    return result;
}

QStringList sampleWarehouses() {
    return {u"主仓库"_s, u"五金仓"_s, u"钢材仓"_s, u"电气仓"_s, u"化工仓"_s, u"退货仓"_s};
}

void writeSampleData(Database& database) {
    const QString attempt = u"写入初始资料"_s;
    QList<QVariantList> goods(6);
    for (const SampleGoods& one : sampleGoods()) {
        const QVariant values[] = {one.code, one.name, one.pinyin,
                                   one.spec, one.unit, QVariant::fromValue(one.priceCents)};
        for (qsizetype i = 0; i < goods.size(); ++i) goods[i] << values[i];
    }
    database.runForEach(
        attempt,
        u"INSERT INTO goods (code, name, pinyin, spec, unit, price_cents) VALUES (?, ?, ?, ?, ?, ?)"_s,
        goods);
    QList<QVariantList> customers(5);
    for (const SampleCustomer& one : sampleCustomers()) {
        const QVariant values[] = {one.code, one.name, one.pinyin, one.contact, one.phone};
        for (qsizetype i = 0; i < customers.size(); ++i) customers[i] << values[i];
    }
    database.runForEach(attempt,
                        u"INSERT INTO customer (code, name, pinyin, contact, phone) VALUES (?, ?, ?, ?, ?)"_s,
                        customers);
    int count = 0;
    for (const QString& name : sampleWarehouses())
        database.run(attempt, u"INSERT INTO warehouse (code, name) VALUES (?, ?)"_s,
                     {number("C", ++count, 2), name});
}

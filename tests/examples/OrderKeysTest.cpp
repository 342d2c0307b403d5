// A whole order of twenty lines by keys alone: what is shortest for the clerk, counted.
#include "OrderEntry.h"

namespace {
/// What differs from what the line brings of itself.
struct KeyedLine {
    QString code;
    QString quantity;
    QString price = {};
    QString warehouse = {};
    QString day = {};
    QString remark = {};
};

const std::vector<KeyedLine> Keyed = {
    {"100001", "3"},
    {"100017", "12"},
    {"100034", "5", "19.5"},
    {"100050", "8"},
    {"100101", "40", {}, "C02"},
    {"100207", "2"},
    {"100310", "60", {}, {}, "2026-12-5"},
    {"100444", "1"},
    {"100500", "12*2"},
    {"101001", "100", {}, {}, {}, "urgent"},
    {"101234", "15", "8"},
    {"101500", "6", {}, "C03"},
    {"102000", "9", {}, {}, "2026-12-1"},
    {"102111", "4"},
    {"102222", "30/5", {}, {}, {}, "box 7"},
    {"102500", "11", "0.75"},
    {"103000", "7", {}, "C02"},
    {"103377", "18", {}, {}, "2026-12-5"},
    {"103588", "2", {}, "C05"},
    {"104644", "50", {}, {}, {}, "sample"},
};

/// Commands for the keys, and how many keys they are: one for each character and each named key.
class Keyboard {
  public:
    void type(const QString& text) {
        script_ << "type " + text;
        presses_ += static_cast<int>(text.size());
    }
    void press(const QString& key, int times = 1) {
        for (int i = 0; i < times; ++i) script_ << "key " + key;
        presses_ += times;
    }
    const QStringList& script() const { return script_; }
    int presses() const { return presses_; }

  private:
    QStringList script_;
    int presses_ = 0;
};

/// From the code cell of a line to that of the next one. Enter ends a line wherever it is; Tab leads to what
/// differs.
void keyLine(Keyboard& keyboard, const KeyedLine& line) {
    keyboard.type(line.code);
    keyboard.press("Enter");
    keyboard.type(line.quantity);
    int tabs = 0;
    for (const QString& text : {line.price, line.warehouse, line.day, QString(), QString(), line.remark}) {
        ++tabs;
        if (text.isEmpty()) continue;
        keyboard.press("Tab", std::exchange(tabs, 0));
        keyboard.type(text);
    }
    keyboard.press("Enter");
}

Thousandths thousandthsOf(const QString& quantity) {
    const auto factor = [](const QString& text) { return text.toLongLong(); };
    if (quantity.contains('*'))
        return factor(quantity.section('*', 0, 0)) * factor(quantity.section('*', 1)) * 1000;
    if (quantity.contains('/'))
        return factor(quantity.section('/', 0, 0)) * 1000 / factor(quantity.section('/', 1));
    return factor(quantity) * 1000;
}
}  // namespace

TEST_F(OrderEntry, TwentyLinesAreKeyedWithAtMostThreeHundredAndFiveKeysAndAreRight) {
    open();
    play({"type K0002", "key Enter"});
    Keyboard keyboard;
    for (const KeyedLine& line : Keyed) keyLine(keyboard, line);
    play(keyboard.script());
    EXPECT_LE(keyboard.presses(), 305);
    RecordProperty("keys", keyboard.presses());
    ASSERT_TRUE(window->save()) << answers.problems.join('\n').toStdString();

    Database database(databaseFile());
    Catalogue catalogue(database);
    const Order order = *OrderStore(database).load(window->onScreen().id);
    ASSERT_EQ(order.lines.size(), Keyed.size());
    for (std::size_t i = 0; i < Keyed.size(); ++i) {
        const KeyedLine& keyed = Keyed[i];
        const OrderLine& line = order.lines[i];
        const Goods goods = *catalogue.goods(keyed.code);
        EXPECT_EQ(line.code, goods.code);
        EXPECT_EQ(line.name, goods.name) << i;
        EXPECT_EQ(line.unit, goods.unit) << i;
        EXPECT_EQ(line.quantity, thousandthsOf(keyed.quantity)) << i;
        const Cents price = keyed.price.isEmpty() ? goods.price.units
                                                  : *scaledNumber(keyed.price.toStdString(), PriceDecimals);
        EXPECT_EQ(line.price, price) << i;
        EXPECT_EQ(line.amount, amountOf(thousandthsOf(keyed.quantity), price)) << i;
        const QString code = keyed.warehouse.isEmpty() ? "C01" : keyed.warehouse;
        for (const CodeAndName& warehouse : catalogue.warehouses())
            if (warehouse.code == code) {
                EXPECT_EQ(line.warehouse, warehouse.name) << i;
            }
        const QDate day =
            keyed.day.isEmpty() ? QDate(2026, 11, 27) : QDate::fromString(keyed.day, "yyyy-M-d");
        EXPECT_EQ(line.delivery, day) << i;
        EXPECT_EQ(line.slot, day.toString(Qt::ISODate) + " 上午") << i;
        EXPECT_EQ(line.remark, keyed.remark) << i;
        EXPECT_FALSE(line.gift) << i;
    }
}

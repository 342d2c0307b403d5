// How many keys an order of twenty lines takes, from the customer's code to the key that saves it, and that what was
// saved is what was meant.
#include <QFile>
#include <QRegularExpression>
#include <algorithm>
#include <functional>
#include <iostream>

#include "OrderEntry.h"

namespace {
/// What the clerk reads from the customer's paper. What is empty the line gets by itself.
struct PaperLine {
    QString code;
    QString quantity;
    QString price = {};
    QString warehouse = {};
    QString day = {};
    QString remark = {};
};

/// Codes of six digits; quantities of two digits as a rule, two of them as expressions.
const std::vector<PaperLine> Paper = {
    {"100001", "24"},
    {"100017", "12", "12.5"},
    {"100034", "8"},
    {"100050", "36", {}, "C02"},
    {"100101", "12*3"},
    {"100207", "15", {}, {}, "12-5"},
    {"100310", "60"},
    {"100444", "20", {}, {}, {}, "加急"},
    {"100500", "100"},
    {"101001", "48", {}, "C03"},
    {"101234", "30", "8.75"},
    {"101500", "96"},
    {"102000", "18", {}, {}, "12-1"},
    {"102111", "25", {}, {}, {}, "送到二楼"},
    {"102222", "25+8"},
    {"102500", "11", {}, "C02"},
    {"103000", "40", "19.9"},
    {"103377", "16", {}, {}, "12-8"},
    {"103588", "50", {}, "C05"},
    {"104644", "72", {}, {}, {}, "附合格证"},
};

/// Keys pressed: one for each character and each named key, and one for each key that is held down with it.
class PressedKeys {
  public:
    void type(const QString& text) {
        script_ << "type " + text;
        count_ += static_cast<int>(text.size());
    }
    /// As `Ctrl+S`.
    void press(const QString& keys) {
        script_ << "key " + keys;
        count_ += 1 + static_cast<int>(keys.count('+'));
    }
    /// By an input method, with four keys for a few characters.
    void compose(const QString& text) {
        script_ << "compose pinyin"
                << "commit " + text;
        count_ += 4;
    }
    int count() const { return count_; }
    QStringList takeScript() { return std::exchange(script_, {}); }

  private:
    QStringList script_;
    int count_ = 0;
};

/// How the clerk comes from the quantity to what differs.
using WayTo = void (*)(PressedKeys& keys, OrderColumn::Column col);

void byTab(PressedKeys& keys, OrderColumn::Column col) {
    for (int at = OrderColumn::Quantity; at < col; ++at)
        if (at != OrderColumn::Amount) keys.press("Tab");
}

/// Enter on a closed cell passes over what the line got by itself, up to the gift.
void byTabAndEnter(PressedKeys& keys, OrderColumn::Column col) {
    if (col != OrderColumn::Remark) return byTab(keys, col);
    for (const char* key : {"Tab", "Enter", "Enter"}) keys.press(key);
}

void byKey(PressedKeys& keys, OrderColumn::Column col) {
    keys.press(col == OrderColumn::Price       ? "Tab"
               : col == OrderColumn::Warehouse ? "F3"
               : col == OrderColumn::Delivery  ? "F4"
                                               : "F5");
}

/// How the clerk says which goods are meant, up to the Enter that takes them.
using GoodsBy = std::function<void(PressedKeys& keys, const QString& code)>;

void byCode(PressedKeys& keys, const QString& code) {
    keys.type(code);
}

void keyLine(PressedKeys& keys, const PaperLine& line, WayTo way, const GoodsBy& goods) {
    goods(keys, line.code);
    keys.press("Enter");
    keys.type(line.quantity);
    const std::pair<OrderColumn::Column, const QString&> differs[] = {
        {OrderColumn::Price, line.price},
        {OrderColumn::Warehouse, line.warehouse},
        {OrderColumn::Delivery, line.day}};
    for (const auto& [col, text] : differs) {
        if (text.isEmpty()) continue;
        way(keys, col);
        keys.type(text);
    }
    if (!line.remark.isEmpty()) {
        way(keys, OrderColumn::Remark);
        keys.compose(line.remark);
    }
    keys.press("Enter");
}

Thousandths quantityOf(const QString& text) {
    const auto number = [](const QString& digits) { return digits.toLongLong(); };
    if (text.contains('*')) return number(text.section('*', 0, 0)) * number(text.section('*', 1)) * 1000;
    if (text.contains('+')) return (number(text.section('+', 0, 0)) + number(text.section('+', 1))) * 1000;
    return number(text) * 1000;
}

class OrderKeyCount : public OrderEntry {
  protected:
    /// Keys the paper into a new order and saves it by its key; answers how many keys that took.
    int key(WayTo way, const GoodsBy& goods = byCode) {
        PressedKeys keys;
        keys.type("K0002");
        keys.press("Enter");
        QString lines;
        for (const PaperLine& line : Paper) {
            const int before = keys.count();
            keyLine(keys, line, way, goods);
            lines += QString(" %1").arg(keys.count() - before);
        }
        keys.press("Ctrl+S");
        play(keys.takeScript());
        std::cout << keys.count() << " keys; per line" << lines.toStdString() << '\n';
        return keys.count();
    }

    /// So many letters of the initials that the list is short, and then down to the goods: with the fewest keys.
    void byInitials(PressedKeys& keys, const QString& code) {
        Database database(databaseFile());
        const QString initials = Catalogue(database).goods(code)->pinyin;
        QStringList best;
        for (qsizetype letters = 1; letters <= initials.size(); ++letters) {
            const QStringList moves = movesTo(code, initials.first(letters));
            const qsizetype most = best.isEmpty() ? 100 : best.first().size() + best.size() - 1;
            if (moves.contains("-") || letters + moves.size() >= most) continue;
            best = QStringList(initials.first(letters)) + moves;
        }
        ASSERT_FALSE(best.isEmpty()) << code.toStdString();
        keys.type(best.takeFirst());
        for (const QString& move : best) keys.press(move);
    }

    void expectStored() {
        Database database(databaseFile());
        Catalogue catalogue(database);
        const Order order = *OrderStore(database).load(window->onScreen().id);
        EXPECT_FALSE(window->hasUnsavedWork());
        ASSERT_EQ(order.lines.size(), Paper.size());
        for (std::size_t i = 0; i < Paper.size(); ++i)
            expectLine(order.lines[i], Paper[i], *catalogue.goods(Paper[i].code), catalogue);
    }

  private:
    /// The keys from the text to the goods in the list that it opens; "-" when they are not in it.
    QStringList movesTo(const QString& code, const QString& typed) {
        std::vector<kxVsGrid::Suggestion> shown;
        grid()
            .Options(OrderColumn::Code)
            .suggest()({1, typed.toStdString(),
                        [&](std::vector<kxVsGrid::Suggestion> found) { shown = std::move(found); }});
        const auto meant = std::find_if(shown.begin(), shown.end(),
                                        [&](const auto& one) { return one.text == code.toStdString(); });
        if (meant == shown.end()) return {"-"};
        if (shown.size() == 1) return {};
        const auto place = static_cast<int>(meant - shown.begin());
        QStringList moves = {"Down"};
        for (int page = 0; page < place / 10; ++page) moves << "PgDown";
        for (int row = 0; row < place % 10; ++row) moves << "Down";
        return moves;
    }
    static void expectLine(const OrderLine& line, const PaperLine& paper, const Goods& goods,
                           const Catalogue& catalogue) {
        SCOPED_TRACE(paper.code.toStdString());
        EXPECT_EQ(line.code, goods.code);
        EXPECT_EQ(line.name, goods.name);
        EXPECT_EQ(line.unit, goods.unit);
        EXPECT_EQ(line.quantity, quantityOf(paper.quantity));
        const Cents price = paper.price.isEmpty() ? goods.price.units
                                                  : *scaledNumber(paper.price.toStdString(), PriceDecimals);
        EXPECT_EQ(line.price, price);
        EXPECT_EQ(line.amount, amountOf(quantityOf(paper.quantity), price));
        QString warehouse;
        for (const CodeAndName& known : catalogue.warehouses())
            if (known.code == (paper.warehouse.isEmpty() ? QString("C01") : paper.warehouse))
                warehouse = known.name;
        EXPECT_EQ(line.warehouse, warehouse);
        const QDate day = paper.day.isEmpty() ? QDate(2026, 11, 27)
                                              : QDate(2026, paper.day.section('-', 0, 0).toInt(),
                                                      paper.day.section('-', 1).toInt());
        EXPECT_EQ(line.delivery, day);
        EXPECT_EQ(line.slot, day.toString(Qt::ISODate) + " 上午");
        EXPECT_EQ(line.remark, paper.remark);
        EXPECT_FALSE(line.gift);
    }
};

/// The number in a row of the manual's table.
int manualSays(const QString& row) {
    QFile page(QStringLiteral(KX_KEYS_PAGE));
    EXPECT_TRUE(page.open(QIODevice::ReadOnly));
    const QRegularExpression cells("\\| " + QRegularExpression::escape(row) + " \\| (\\d+) \\|");
    return cells.match(QString::fromUtf8(page.readAll())).captured(1).toInt();
}
}  // namespace

TEST_F(OrderKeyCount, OfTwentyLinesIsAtMostTwoHundredAndEightyNineAndWhatTheManualSays) {
    open();
    const int count = key(byKey);
    RecordProperty("keys", count);
    EXPECT_LE(count, 289);
    EXPECT_EQ(count, manualSays("Tab to the price, F3, F4, F5 to the others"));
    expectStored();
}

TEST_F(OrderKeyCount, WithEnterPastWhatIsFilledIsWhatTheManualSays) {
    open();
    EXPECT_EQ(key(byTabAndEnter), manualSays("Tab, and Enter past what is filled"));
    expectStored();
}

TEST_F(OrderKeyCount, ByTabAloneIsWhatTheManualSays) {
    open();
    EXPECT_EQ(key(byTab), manualSays("Tab alone"));
    expectStored();
}

TEST_F(OrderKeyCount, ByInitialsInsteadOfCodesIsWhatTheManualSays) {
    open();
    const int count = key(byKey, [this](PressedKeys& keys, const QString& code) { byInitials(keys, code); });
    EXPECT_EQ(count, manualSays("The same, goods by their initials instead of codes"));
    expectStored();
}

TEST_F(OrderKeyCount, KeysToAColumnCommitWhatIsTypedAndStayWithWhatIsRefused) {
    open();
    play({"type K0002", "key Enter", "type 100001", "key F3"});
    EXPECT_EQ(cell(1, OrderColumn::Code), "100001");
    EXPECT_EQ(grid().Col(), OrderColumn::Warehouse);
    play({"type X9", "key F4"});
    EXPECT_EQ(grid().Col(), OrderColumn::Warehouse);
    EXPECT_TRUE(grid().editorView().refused);
    EXPECT_EQ(grid().editorView().tip, "没有这个仓库,请更正。");
    play({"key F5"});
    EXPECT_EQ(grid().Col(), OrderColumn::Warehouse);
    play({"type C02", "key F4", "key F5"});
    EXPECT_EQ(grid().Col(), OrderColumn::Remark);
    play({"key F6", "key F3"});
    EXPECT_EQ(grid().Col(), OrderColumn::Warehouse);
    EXPECT_TRUE(grid().IsActive());
    EXPECT_EQ(answers.problems, QStringList{});
}

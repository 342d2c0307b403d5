#include "OrderGridHelp.h"

#include "Decimal.h"
#include "OrderGrid.h"
#include "kxVsGrid/HelpExchange.h"

using namespace kxVsGrid;
using namespace Qt::StringLiterals;

namespace {
constexpr const char* GoodsList = "goods";

HelpTable tableOf(const std::vector<Goods>& goods) {
    HelpTable table("商品");
    table.field("code", "货号", 1100)
        .alignment(flexAlignLeftCenter)
        .field("name", "品名", 2500)
        .field("pinyin", "简码", 1200);
    table.field("spec", "规格", 2000).field("unit", "单位", 800);
    table.field("price", "单价", 1300, HelpKind::Number, PriceDecimals);
    table.result("code", "name").search({"code", "name", "pinyin"}).editable(GoodsList);
    for (const Goods& one : goods)
        table.row({one.code.toStdString(), one.name.toStdString(), one.pinyin.toStdString(),
                   one.spec.toStdString(), one.unit.toStdString(), plainText(one.price, PriceDecimals)});
    return table;
}
}  // namespace

OrderGridHelp::OrderGridHelp(kxGrid& grid, Services services) : grid_(grid), services_(std::move(services)) {
    setUpColumns();
    connectEvents();
}

void OrderGridHelp::setUpColumns() {
    const auto offer = [this](OrderGrid::Column col, gEmHelpType type, gEmShowCodeName shown,
                              const char* code = "") {
        const auto definition = grid_.VsCtrl(static_cast<std::int16_t>(col));
        definition->b是否提供帮助(true);
        definition->i帮助类型(type);
        definition->i帮助返回值显示类型(shown);
        definition->sHelp_Code(code);
    };
    // In an open editor F2 is for every column. Those that offer nothing are the host's own as well: it says
    // so.
    for (int col = grid_.FixedCols(); col < OrderGrid::ColumnCount; ++col)
        grid_.VsCtrl(static_cast<std::int16_t>(col))->i帮助类型(ih特殊型);
    offer(OrderGrid::Code, ih通用型, iText记Code, GoodsList);
    offer(OrderGrid::Unit, ih常量型, iText记Name, OrderGrid::Units);
    offer(OrderGrid::Warehouse, ih特殊型, iText记Code);  // the name is the sheet's code
    offer(OrderGrid::Delivery, ih日期型, iText记Code);
    offer(OrderGrid::Slot, ih半日型, iText记Code);
    offer(OrderGrid::Entered, ih时间型, iText记Code);
    grid_.VsCtrl(OrderGrid::Code)->HelpWidth(9600);  // all of the list's columns side by side
}

void OrderGridHelp::connectEvents() {
    connections_.push_back(grid_.GetHelpCodeInfo.connect(
        [this](const Variant& list, Variant& Grid_code, Variant& GridInfo, Variant& GridData) {
            if (list.toText() == GoodsList) offerGoods(Grid_code, GridInfo, GridData);
        }));
    connections_.push_back(grid_.GetHelpEdit.connect([this](const std::string& list, Variant& GridData) {
        if (list == GoodsList) editGoods(GridData);
    }));
    connections_.push_back(grid_.UserHelpEvent.connect(
        [this](std::int32_t x, std::int32_t y, std::string& text, Variant& value) {
            if (grid_.Col() == OrderGrid::Warehouse)
                chooseWarehouse(x, y, text, value);
            else
                services_.failed(u"这一栏没有帮助"_s);
        }));
}

// Without an answer the control tells the clerk that there is no list; the host says why.
void OrderGridHelp::offerGoods(Variant& Grid_code, Variant& GridInfo, Variant& GridData) {
    try {
        tableOf(services_.goods()).answer(Grid_code, GridInfo, GridData);
    } catch (const DatabaseError& error) {
        services_.failed(error.text());
    }
}

void OrderGridHelp::editGoods(Variant& GridData) {
    try {
        std::string& code = HelpExchange::shared().RowCode;  // of the highlighted goods
        const QString stored = services_.editGoods(QString::fromStdString(code));
        if (stored.isEmpty()) return;
        GridData = tableOf(services_.goods()).GridData();
        code = stored.toStdString();
    } catch (const DatabaseError& error) {
        services_.failed(error.text());
    }
}

void OrderGridHelp::chooseWarehouse(std::int32_t x, std::int32_t y, std::string& name, Variant& code) {
    try {
        const auto chosen = services_.chooseWarehouse(x, y, QString::fromStdString(name));
        if (!chosen) return;
        name = chosen->code.toStdString();
        code = chosen->name.toStdString();
    } catch (const DatabaseError& error) {
        services_.failed(error.text());
    }
}

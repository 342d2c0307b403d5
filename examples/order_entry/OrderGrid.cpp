#include "OrderGrid.h"

#include <algorithm>

#include "Initials.h"

using namespace kxVsGrid;
using namespace Qt::StringLiterals;

namespace {
constexpr const char* QuantityHint =
    "不能为零;可以输入算式,例如 12*3+5;输入后回车到下一行,Tab 到单价,F3 到仓库,F4 到交货日期,F5 到备注";

std::optional<Cents> product(const OrderLine& line) {
    return line.quantity && line.price ? amountOf(*line.quantity, *line.price) : std::nullopt;
}

bool hasGoods(const OrderLine& line) {
    return !line.code.isEmpty();
}

Codes<Goods> goodsOf(const OrderGrid::Services& services) {
    const auto find = [goods = services.goods](const QString& code) {
        return goods(code.normalized(QString::NormalizationForm_KC));
    };
    return Codes<Goods>::asking(find, &Goods::code)
        .name(&Goods::name)
        .also(&Goods::pinyin)
        .note([](const Goods& one) { return (one.name + u"  "_s + one.spec).toStdString(); })
        .list(services.allGoods)
        .edit(services.editGoods)
        .title("商品", 9600)
        .field("货号", &Goods::code, 1100)
        .field("品名", &Goods::name, 2500)
        .field("简码", &Goods::pinyin, 1200)
        .field("规格", &Goods::spec, 2000)
        .field("单位", &Goods::unit, 800)
        .field("单价", &Goods::price, 1300, PriceDecimals);
}

Codes<CodeAndName> warehousesOf(const OrderGrid::Services& services) {
    return Codes<CodeAndName>::asking(services.warehouse, &CodeAndName::name)
        .name(&CodeAndName::code)
        .also(&CodeAndName::name, initialsOf)
        .list(services.warehouses)
        .choose(services.chooseWarehouse);
}
}  // namespace

OrderGrid::OrderGrid(kxGrid& grid, Services services)
    : grid_(grid), services_(std::move(services)), sheet_(grid) {
    setUpColumns();
    sheet_.enterToNextRow("code")
        .inUse([](const OrderLine& line) { return !line.isEmpty(); })
        .unreadable(sheet::Unreadable::Blank)
        .leastRows(12)
        .edited([this](OrderLine& line, const sheet::Edited& cell) { edited(line, cell); })
        .copied([this](OrderLine& line) {
            line.entered = services_.now();
            if (line.code.isEmpty()) services_.say(u"没有货号的行不复制,新增了一个空行"_s, false);
            return !line.code.isEmpty();
        })
        .mayDelete([this](const std::vector<std::int32_t>& rows) { return mayDelete(rows); })
        .failed(
            [this](const std::string& why) { services_.say(QString::fromStdString(why).simplified(), true); })
        .wording([](const Fault& fault) { return fault.caption + fault.reason; });
    sheet_.load(std::vector<OrderLine>());
    setUpControl();
}

// A line without goods but with a remark is a note: it needs neither quantity nor warehouse.
void OrderGrid::setUpColumns() {
    sheet_.code("code", "货号", &OrderLine::code, goodsOf(services_))
        .hint("输入货号后按回车,带出品名、规格、单位和单价;F2 按货号、品名或简码查找")
        .width(1000)
        .limit(20)
        .enterTo("quantity")
        .unknownColor(0x0000C0)
        .refusal("商品目录中没有这个货号,请更正。")
        .wrong("“%1”没有在商品目录中查到")
        .found([this](OrderLine& line, const Goods& found) {
            line.name = found.name;
            line.spec = found.spec;
            line.unit = found.unit;
            line.price = found.price;
            const QString price = QString::fromStdString(moneyText(found.price));
            services_.say(
                u"%1  %2  %3  单价 %4 元/%5"_s.arg(found.code, found.name, found.spec, price, found.unit),
                false);
        })
        .cleared([](OrderLine& line) { line.name = line.spec = QString(); });
    sheet_.expects(
        "code", [](const OrderLine& line) { return hasGoods(line) || !line.remark.isEmpty(); },
        "没有填写:没有货号的行要有备注,否则请删除这一行");
    sheet_.text("name", "品名", &OrderLine::name).width(2000).readOnly().hint("由货号带出,不能修改");
    sheet_.text("spec", "规格", &OrderLine::spec).width(1800).readOnly().hint("由货号带出,不能修改");
    sheet_
        .constants("unit", "单位", &OrderLine::unit,
                   {"个", "百个", "件", "只", "套", "台", "把", "副", "盒", "箱", "桶", "卷", "根", "片",
                    "张", "米", "平方米", "千克", "吨"})
        .hint("由货号带出,可以改成列表中的另一个;F2 从列表中选择")
        .width(650)
        .limit(10)
        .alignment(flexAlignCenterCenter)
        .skipFilled()
        .enterTo("quantity")
        .refusal("没有这个单位,请更正。")
        .wrong("“%1”不在单位列表中")
        .initials(initialsOf)
        .also([this](const OrderLine& line, const std::string& unit) {
            const auto own = hasGoods(line) ? services_.goods(line.code) : std::nullopt;
            return own && own->unit.toStdString() == unit;
        });
    const auto number = [this](auto name, auto caption, auto member, int decimals) {
        return sheet_.number(name, caption, member).decimals(decimals).wrong("“%1”太大,无法保存");
    };
    number("quantity", "数量", &OrderLine::quantity, QuantityDecimals)
        .hint(QuantityHint)
        .width(1350)
        .format("#,##0.###")
        .total()
        .nonZero(hasGoods)
        .insists();
    sheet_.expects(
        "quantity",
        [](const OrderLine& line) { return !line.quantity || !line.price || product(line).has_value(); },
        "“%1”乘以单价太大,无法保存");
    number("price", "单价", &OrderLine::price, PriceDecimals)
        .hint("由货号带出,可以修改,也可以输入算式;Tab 到仓库")
        .width(1200)
        .least(0)  // returned goods have a quantity below 0; a price never is
        .skipFilled();
    number("amount", "金额", &OrderLine::amount, PriceDecimals)
        .hint("数量 × 单价,自动计算到分")
        .width(1500)
        .total()
        .computed(product);
    sheet_.code("warehouse", "仓库", &OrderLine::warehouse, warehousesOf(services_))
        .hint("输入仓库的编码或名称,不能为空;F2 从列表中选择;新行用预设仓库")
        .width(1000)
        .limit(20)
        .skipFilled()
        .required(hasGoods)
        .insists()
        .refusal("没有这个仓库,请更正。")
        .wrong("“%1”不在仓库列表中");
    sheet_.date("delivery", "交货日期", &OrderLine::delivery)
        .hint("年-月-日;F2 打开日历;时段的日期随之改变;新行用订单日期后 7 天")
        .alignment(flexAlignRightCenter)
        .skipFilled()
        .wrong("“%1”不是日期");
    sheet_.halfDay("slot", "时段", &OrderLine::slot)
        .hint("日期、空格、上午或下午,例如 2026-11-27 下午;F2 打开日历;新行用预设交货日期的上午")
        .alignment(flexAlignRightCenter)
        .skipFilled()
        .wrong("“%1”不是日期加上午或下午");
    sheet_.flag("gift", "赠品", &OrderLine::gift).width(600).hint("按空格键切换");
    sheet_.text("remark", "备注", &OrderLine::remark)
        .width(1900)
        .stretch()
        .limit(100)
        .hint("本行的说明,可以为空");
    sheet_.moment("entered", "录入时间", &OrderLine::entered)
        .hint("日期、空格、时:分:秒;录入本行时自动填写;F2 打开日历;回车到下一行的货号")
        .alignment(flexAlignRightCenter)
        .skipFilled()
        .wrong("“%1”不是日期加时间");
}

void OrderGrid::setUpControl() {
    // F3 alone leads to the warehouse.
    constexpr std::int16_t F3 = 114;
    grid_.Commands().Unbind(F3, 0);
    grid_.Commands().Unbind(F3, ShiftKey);
    grid_.Commands().Bind({Command::FindNext, F3, CtrlKey});
    grid_.Commands().Bind({Command::FindPrevious, F3, CtrlKey + ShiftKey});
    GridOptions& options = grid_.Options();
    options.EscRestores(true);
    options.EnterPassesReadOnly(true);
    options.PressToggles(true);
    options.ReadOnlyShade(6);  // an approved order looks closed
    options.HeaderMenu(true);
    options.Refusals(GridOptions::RefusalStyle::Beside);  // the clerk keys on
    grid_.bIsShowZero(true);                              // a price of 0 is a price
    grid_.BackColorBkg(0x8000000F);
    grid_.ColSample(0, "00000 ");
    grid_.FrozenCols(2);  // what a line is about stays in view
}

void OrderGrid::show(const std::vector<OrderLine>& lines, const QDate& delivery) {
    sheet_.load(lines);
    presetDelivery(delivery);
    sheet_.goTo(grid_.FixedRows(), "code");
}

void OrderGrid::presetDelivery(const QDate& delivery) {
    sheet_.preset("delivery", delivery);
    sheet_.preset("slot", delivery.isValid() ? delivery.toString(Qt::ISODate) + u" 上午"_s : QString());
}

LineChanges OrderGrid::unsaved() const {
    LineChanges result;
    const RecordChanges<OrderLine> changes = sheet_.changes();
    result.unknown = grid_.Changes().Unknown();
    result.moved = sheet_.moved();
    result.added = !changes.added.empty();
    for (const auto& line : changes.changed) result.changed.push_back(line.after.id);
    for (const auto& line : changes.removed) result.removed.push_back(line.before.id);
    return result;
}

void OrderGrid::edited(OrderLine& line, const sheet::Edited& cell) {
    const QString day = line.delivery.toString(Qt::ISODate);
    if (cell.column == "delivery" && !day.isEmpty() && line.slot.contains(u' '))
        line.slot = day + line.slot.mid(line.slot.indexOf(u' '));  // the half day stays
    if (line.quantity && line.price && !amountOf(*line.quantity, *line.price))
        services_.say(u"数量乘以单价太大,金额没有计算"_s, true);
    const bool stamps = !cell.filled && !line.isEmpty() && cell.column != "entered";
    if (stamps && !line.entered.isValid()) line.entered = services_.now();
}

bool OrderGrid::mayDelete(const std::vector<std::int32_t>& rows) {
    const auto filled = std::ranges::count_if(rows, [this](std::int32_t row) { return sheet_.isInUse(row); });
    if (filled == 0) return true;
    if (rows.size() > 1) {
        const QString some = filled < std::ssize(rows) ? u"(其中 %1 行有内容)"_s.arg(filled) : QString();
        return services_.mayDelete(u"选中的 %1 行"_s.arg(rows.size()) + some);
    }
    const OrderLine line = sheet_.record(rows[0]);
    return services_.mayDelete(
        u"第 %1 行 %2 %3"_s.arg(QString::number(rows[0] - grid_.FixedRows() + 1), line.code, line.name));
}

// The columns of an order: what each holds, how it looks, and what has to stand there.
#include <algorithm>

#include "OrderGrid.h"

using namespace kxVsGrid;
using namespace Qt::StringLiterals;

namespace {
constexpr std::int32_t RemarkWidth = 1900;

constexpr const char* Hints[OrderGrid::ColumnCount] = {
    "",
    "输入货号后按回车,带出品名、规格、单位和单价;F2 按货号、品名或简码查找",
    "由货号带出,不能修改",
    "由货号带出,不能修改",
    "由货号带出,可以改成列表中的另一个;F2 从列表中选择",
    "不能为零;可以输入算式,例如 12*3+5;输入后回车到下一行,Tab 到单价,F3 到仓库,F4 到交货日期,F5 到备注",
    "由货号带出,可以修改,也可以输入算式;Tab 到仓库",
    "数量 × 单价,自动计算到分",
    "输入仓库的编码或名称,不能为空;F2 从列表中选择;新行用预设仓库",
    "年-月-日;F2 打开日历;时段的日期随之改变;新行用订单日期后 7 天",
    "日期、空格、上午或下午,例如 2026-11-27 下午;F2 打开日历;新行用预设交货日期的上午",
    "按空格键切换",
    "本行的说明,可以为空",
    "日期、空格、时:分:秒;录入本行时自动填写;F2 打开日历;回车到下一行的货号"};
/// What is wrong with a text that stands in a column.
constexpr const char* Wrong[OrderGrid::ColumnCount] = {"",
                                                       "没有在商品目录中查到",
                                                       "",
                                                       "",
                                                       "不在单位列表中",
                                                       "太大,无法保存",
                                                       "太大,无法保存",
                                                       "太大,无法保存",
                                                       "不在仓库列表中",
                                                       "不是日期",
                                                       "不是日期加上午或下午",
                                                       "",
                                                       "",
                                                       "不是日期加时间"};

bool isHalfDay(const QString& text) {
    const QString half = text.section(u' ', 1);
    return QDate::fromString(text.section(u' ', 0, 0), Qt::ISODate).isValid() &&
           (half == u"上午" || half == u"下午");
}

std::optional<Cents> product(const OrderLine& line) {
    return line.quantity && line.price ? amountOf(*line.quantity, *line.price) : std::nullopt;
}
}  // namespace

void OrderGrid::setUpColumns() {
    const auto goods = Codes<Goods>::asking(
        [this](std::string_view code) {
            return goodsOf(
                QString::fromUtf8(code.data(), std::ssize(code)).normalized(QString::NormalizationForm_KC));
        },
        &Goods::code);
    const auto warehouses = Codes<CodeAndName>::asking(
        [this](std::string_view typed) {
            return warehouseOf(QString::fromUtf8(typed.data(), std::ssize(typed)));
        },
        &CodeAndName::name);
    std::vector<std::string> units;
    for (const QString& unit : QString::fromUtf8(Units).split(u'|')) units.push_back(unit.toStdString());

    sheet_.code("code", "货号", &OrderLine::code, Codes<Goods>(goods).name(&Goods::name))
        .width(1000)
        .limit(20)
        .enterTo("quantity")
        .refusal("商品目录中没有这个货号,请更正。")
        .found([this](OrderLine& line, const Goods& found) {
            line.name = found.name;
            line.spec = found.spec;
            line.unit = found.unit;
            line.price = found.price;
            emit said(u"%1  %2  %3  单价 %4 元/%5"_s.arg(found.code, found.name, found.spec,
                                                         QString::fromStdString(moneyText(found.price)),
                                                         found.unit),
                      false);
        })
        .cleared([](OrderLine& line) { line.name = line.spec = QString(); });
    sheet_.text("name", "品名", &OrderLine::name).width(2000).readOnly();
    sheet_.text("spec", "规格", &OrderLine::spec).width(1800).readOnly();
    sheet_.constants("unit", "单位", &OrderLine::unit, units)
        .width(650)
        .limit(10)
        .enterTo("quantity")
        .refusal("没有这个单位,请更正。")
        .also([this](const OrderLine& line, const std::string& unit) {
            try {
                const auto own = line.code.isEmpty() ? std::nullopt : services_.goods(line.code);
                return own && own->unit.toStdString() == unit;
            } catch (const DatabaseError&) {
                return true;  // nobody knows
            }
        });
    const auto number = [this](const char* name, const char* caption, auto member) {
        return sheet_.number(name, caption, member).enterToNextRow("code");
    };
    number("quantity", "数量", &OrderLine::quantity)
        .width(1350)
        .decimals(QuantityDecimals)
        .format("#,##0.###")
        .total();
    number("price", "单价", &OrderLine::price).width(1200).decimals(PriceDecimals);
    number("amount", "金额", &OrderLine::amount)
        .width(1500)
        .decimals(PriceDecimals)
        .total()
        .computed([](const OrderLine& line) { return product(line); });
    sheet_.code("warehouse", "仓库", &OrderLine::warehouse, warehouses)
        .width(1000)
        .limit(20)
        .enterToNextRow("code")
        .refusal("没有这个仓库,请更正。");
    sheet_.date("delivery", "交货日期", &OrderLine::delivery).width("2026-11-27  ").enterToNextRow("code");
    sheet_.text("slot", "时段", &OrderLine::slot).width("2026-11-27 下午  ").enterToNextRow("code");
    sheet_.flag("gift", "赠品", &OrderLine::gift).width(600).enterToNextRow("code");
    sheet_.text("remark", "备注", &OrderLine::remark).width(RemarkWidth).limit(100).enterToNextRow("code");
    sheet_.moment("entered", "录入时间", &OrderLine::entered)
        .width("2026-11-27 09:30:00  ")
        .enterToNextRow("code");

    sheet_.inUse([](const OrderLine& line) { return !line.isEmpty(); })
        .unreadable(sheet::Unreadable::Blank)
        .leastRows(12)
        .edited([this](OrderLine& line, const sheet::Edited& cell) { edited(line, cell); })
        .mayDelete([this](const std::vector<std::int32_t>& rows) { return mayDeleteRows(rows); })
        .wording([this](const Fault& fault) { return wordsOf(fault); });
    // A line without goods but with a remark is a note: it needs neither quantity nor warehouse.
    sheet_
        .expects(
            "code", [](const OrderLine& line) { return !line.code.isEmpty() || !line.remark.isEmpty(); },
            "没有填写:没有货号的行要有备注,否则请删除这一行")
        .expects(
            "quantity",
            [](const OrderLine& line) { return !line.quantity || !line.price || product(line).has_value(); },
            "“%1”乘以单价太大,无法保存")
        .expects(
            "quantity",
            [](const OrderLine& line) { return line.code.isEmpty() || line.quantity.value_or(0) != 0; },
            "不能为零")
        .expects(
            "warehouse",
            [](const OrderLine& line) { return line.code.isEmpty() || !line.warehouse.isEmpty(); },
            "不能为空")
        .expects(
            "slot", [](const OrderLine& line) { return line.slot.isEmpty() || isHalfDay(line.slot); },
            "“%1”不是日期加上午或下午");
}

std::string OrderGrid::wordsOf(const Fault& fault) const {
    QString why = QString::fromStdString(fault.reason);
    if (fault.kind != FaultKind::Rule) why = u"“%1”"_s + QString::fromUtf8(Wrong[fault.col]);
    why.replace(u"%1"_s, QString::fromStdString(grid_.Grid().Text(fault.row, fault.col)));
    return grid_.VsCtrl(static_cast<std::int16_t>(fault.col))->sName() + why.toStdString();
}

QString OrderGrid::hint() const {
    if (!grid_.Editable()) return u"订单已审核,不能修改;Ctrl+C 复制选中的格子"_s;
    return grid_.Col() < 0 || grid_.Col() >= ColumnCount ? QString() : QString::fromUtf8(Hints[grid_.Col()]);
}

int OrderGrid::shownColumns() const {
    int shown = 0;
    for (std::int32_t c = 0; c < ColumnCount; ++c) shown += grid_.ColHidden(c) ? 0 : 1;
    return shown;
}

void OrderGrid::fitWidth(std::int32_t width) {
    std::int32_t others = grid_.Grid().VerticalBarShown() ? CellGrid::VerticalBarWidth : 0;
    for (std::int32_t c = 0; c < ColumnCount; ++c)
        if (c != Remark && !grid_.ColHidden(c)) others += grid_.ColWidth(c);
    // The control's layout counts columns as too wide when they leave less than 60 twips beside them.
    const std::int32_t rest = std::max(RemarkWidth * 2 / 3, width - others - 60);
    if (rest == grid_.ColWidth(Remark)) return;
    grid_.ColWidth(Remark, rest);
    grid_.Grid_Sum().ColWidth(Remark, rest);  // otherwise it follows with the next layout only
}

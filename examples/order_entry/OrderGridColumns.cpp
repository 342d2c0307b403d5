// The columns of an order: what each holds, how it looks, and how the control checks what is typed into it.
#include <algorithm>

#include "OrderGrid.h"

using namespace kxVsGrid;
using namespace Qt::StringLiterals;

namespace {
constexpr std::uint32_t ButtonFace = 0x8000000F;  // system colours: they follow the desktop's theme
constexpr std::uint32_t ButtonText = 0x80000012;

struct ColumnPlan {
    const char* caption;
    std::int32_t width;  // twips
    mEmDataType type;
    mEmflexAlign alignment;
    bool editable;
    std::int16_t limit;
    const char* format;
};

constexpr ColumnPlan Plan[OrderGrid::ColumnCount] = {
    {"行号", 500, flexDTString, flexAlignCenterCenter, false, 0, ""},
    {"货号", 1000, flexDTString, flexAlignLeftCenter, true, 20, ""},
    {"品名", 2000, flexDTString, flexAlignLeftCenter, false, 0, ""},
    {"规格", 1800, flexDTString, flexAlignLeftCenter, false, 0, ""},
    {"单位", 650, flexDTString, flexAlignCenterCenter, true, 10, ""},
    {"数量", 1350, flexDTDouble, flexAlignRightCenter, true, 0, "#,##0.###"},
    {"单价", 1200, flexDTDouble, flexAlignRightCenter, true, 0, "#,##0.00"},
    {"金额", 1500, flexDTDouble, flexAlignRightCenter, false, 0, "#,##0.00"},
    {"仓库", 1000, flexDTString, flexAlignLeftCenter, true, 20, ""},
    {"交货日期", 1250, flexDTDate, flexAlignRightCenter, true, 0, "yyyy-mm-dd"},
    // A text column: in a date column SetCell would blank what has half a day in it.
    {"时段", 1700, flexDTString, flexAlignLeftCenter, true, 0, ""},
    {"赠品", 600, flexDTBoolean, flexAlignCenterCenter, true, 0, ""},
    {"备注", 1900, flexDTString, flexAlignLeftCenter, true, 100, ""},
    {"录入时间", 2150, flexDTDate, flexAlignRightCenter, true, 0, "yyyy-mm-dd HH:mm:ss"},
};

}  // namespace

void OrderGrid::setUpColumns() {
    std::string captions;
    for (const ColumnPlan& plan : Plan) captions += (captions.empty() ? "" : "|") + std::string(plan.caption);
    grid_.FormatString(captions);
    for (int c = 0; c < ColumnCount; ++c) {
        const ColumnPlan& plan = Plan[c];
        const auto definition = grid_.VsCtrl(static_cast<std::int16_t>(c));
        definition->sName(plan.caption);
        definition->iType(plan.type);
        definition->iColAlignment(plan.alignment);
        definition->bIsEditable(plan.editable);
        definition->iLimitLength(plan.limit);
        if (!plan.editable && c >= grid_.FixedCols()) {
            definition->b是否设列颜色(true);
            definition->d列背景色(ButtonFace);
            definition->d列前景色(ButtonText);
        }
        grid_.ColWidth(c, plan.width);
        if (*plan.format) grid_.ColFormat(c, plan.format);
    }
    // Row numbers and dates show whole in every font.
    grid_.ColSample(RowNumber, "00000 ");
    grid_.ColSample(Delivery, "2026-11-27  ");
    grid_.ColSample(Slot, "2026-11-27 下午  ");
    grid_.ColSample(Entered, "2026-11-27 09:30:00  ");
    grid_.FrozenCols(Name - grid_.FixedCols() + 1);  // what a line is about stays in view
}

void OrderGrid::setUpRules() {
    // Enter follows what most lines need, code and quantity: a known code brings the rest of its line, new
    // rows get warehouse and delivery. Tab leads to every field, keys of the menu 转到 to those that differ most
    // often, and Enter there ends the line too. On a closed cell it stops where something is still to be keyed.
    const std::string nextLine = "+1," + std::to_string(Code);
    for (int col = Quantity; col < ColumnCount; ++col)
        grid_.VsCtrl(static_cast<std::int16_t>(col))->sCellInput(nextLine);
    for (const Column col : {Code, Unit}) grid_.VsCtrl(col)->sCellInput("," + std::to_string(Quantity));
    for (const Column brought : {Unit, Price, Warehouse, Delivery, Slot, Entered})
        grid_.Options(brought).skipFilled(true);
    for (const Column summed : {Quantity, Amount}) grid_.VsCtrl(summed)->b是否合计数据(true);

    const auto code = grid_.VsCtrl(Code);
    code->i有效性判断(1);
    code->i字段有效性判断类型(ij编码型);
    code->s有效性判断基础(GoodsQuery);
    code->s文本框对应编码字段("code");
    code->s文本框对应名称字段("name");
    code->i帮助返回值显示类型(iText记Code);
    code->s错误提示信息("商品目录中没有这个货号,请更正。");
    grid_.VsCtrl(Quantity)->i是否允许为空(i字段不能为零);
    grid_.VsCtrl(Warehouse)->i是否允许为空(i字段不能为空);
    const auto checkList = [&](Column col, const char* list, const char* refusal) {
        const auto definition = grid_.VsCtrl(col);
        definition->i有效性判断(1);
        definition->i字段有效性判断类型(ij编码型);
        definition->s有效性判断基础(list);
        definition->i帮助返回值显示类型(iText记Name);
        definition->s错误提示信息(refusal);
    };
    checkList(Unit, UnitList, "没有这个单位,请更正。");
    checkList(Warehouse, WarehouseQuery, "没有这个仓库,请更正。");
    const auto checkDates = [&](Column col, gEmJudgeType form) {
        grid_.VsCtrl(col)->i有效性判断(1);
        grid_.VsCtrl(col)->i字段有效性判断类型(form);
    };
    checkDates(Delivery, ij日期型);
    checkDates(Slot, ij半日型);
    checkDates(Entered, ij时间型);

    for (int col = Code; col < ColumnCount; ++col) {
        grid_.Options(col).sortable(true);
        grid_.Options(col).filterable(true);
    }
    grid_.Options().HeaderMenu(true);
    // F3 alone leads to the warehouse.
    constexpr std::int16_t F3 = 114;
    grid_.Commands().Unbind(F3, 0);
    grid_.Commands().Unbind(F3, ShiftKey);
    grid_.Commands().Bind({Command::FindNext, F3, CtrlKey});
    grid_.Commands().Bind({Command::FindPrevious, F3, CtrlKey + ShiftKey});
    // The clerk keys on: what is refused is told at the text that is to be corrected.
    grid_.Options().Refusals(GridOptions::RefusalStyle::Beside);
    // Returned goods have a quantity below 0; a price never is.
    grid_.Options(Price).smallest(0);
    // A price of 0 is a price: it is shown, and it comes back from the database as it was.
    grid_.bIsShowZero(true);
    grid_.BackColorBkg(ButtonFace);
    grid_.SumRow(true);
}

QString OrderGrid::hint() const {
    if (!grid_.Editable()) return u"订单已审核,不能修改;Ctrl+C 复制选中的格子"_s;
    switch (grid_.Col()) {
        case Code:
            return u"输入货号后按回车,带出品名、规格、单位和单价;F2 按货号、品名或简码查找"_s;
        case Name:
        case Spec:
            return u"由货号带出,不能修改"_s;
        case Unit:
            return u"由货号带出,可以改成列表中的另一个;F2 从列表中选择"_s;
        case Quantity:
            return u"不能为零;可以输入算式,例如 12*3+5;输入后回车到下一行,Tab 到单价,F3 到仓库,F4 到交货日期,F5 到备注"_s;
        case Price:
            return u"由货号带出,可以修改,也可以输入算式;Tab 到仓库"_s;
        case Amount:
            return u"数量 × 单价,自动计算到分"_s;
        case Warehouse:
            return u"输入仓库的编码或名称,不能为空;F2 从列表中选择;新行用预设仓库"_s;
        case Delivery:
            return u"年-月-日;F2 打开日历;时段的日期随之改变;新行用订单日期后 7 天"_s;
        case Slot:
            return u"日期、空格、上午或下午,例如 2026-11-27 下午;F2 打开日历;新行用预设交货日期的上午"_s;
        case Gift:
            return u"按空格键切换"_s;
        case Remark:
            return u"本行的说明,可以为空"_s;
        case Entered:
            return u"日期、空格、时:分:秒;录入本行时自动填写;F2 打开日历;回车到下一行的货号"_s;
        default:
            return {};
    }
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
    const std::int32_t rest = std::max(Plan[Remark].width * 2 / 3, width - others - 60);
    if (rest == grid_.ColWidth(Remark)) return;
    grid_.ColWidth(Remark, rest);
    grid_.Grid_Sum().ColWidth(Remark, rest);  // otherwise it follows with the next layout only
}

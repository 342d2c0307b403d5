#include "sheet/LayOut.h"

#include <algorithm>
#include <string>
#include <vector>

#include "sheet/CodeColumns.h"
#include "sheet/ColumnLook.h"
#include "sheet/Constants.h"

namespace kxVsGrid::sheet {
namespace {

constexpr std::uint32_t ButtonFace = 0x8000000F;  // system colours: they follow the desktop's theme
constexpr std::uint32_t ButtonText = 0x80000012;

std::string usualNumber(const ColumnPlan& plan) {
    const int decimals = plan.decimals.value_or(2);
    return decimals > 0 ? "-1,000,000." + std::string(static_cast<std::size_t>(decimals), '0')
                        : "-1,000,000 ";
}

/// What a column is as wide as of which the host has said nothing; its caption has room in it.
std::string ownSampleOf(const SheetContext& c, const ColumnPlan& plan) {
    if (!plan.sample.empty()) return plan.sample;
    const FieldKind kind = plan.field->kind();
    if (kind == FieldKind::Number) return sampleOf(c.grid, usualNumber(plan), plan.caption);
    return sampleOf(c.grid, plan.halfDay ? "2026-12-30 下午  " : usualText(kind), plan.caption);
}

void defineCodes(cVsControl& definition, const ColumnPlan& plan) {
    const std::string basis = CodeColumns::basisOf(plan);
    definition.i有效性判断(1);
    definition.i字段有效性判断类型(ij编码型);
    definition.s有效性判断基础(basis);
    definition.s文本框对应编码字段(plan.name);
    definition.s错误提示信息(CodeColumns::refusalOf(plan));
    const bool byHost = plan.codes->chosenByHost();
    definition.b是否提供帮助(!plan.readOnly && (byHost || plan.codes->listed()));
    definition.i帮助类型(byHost ? ih特殊型 : ih通用型);
    definition.sHelp_Code(basis);
    if (plan.codes->listWidth() > 0) definition.HelpWidth(plan.codes->listWidth());
}

void defineDates(cVsControl& definition, const ColumnPlan& plan) {
    const FieldKind kind = plan.field->kind();
    if (!plan.halfDay && kind != FieldKind::Date && kind != FieldKind::Moment) return;
    definition.i有效性判断(1);
    definition.i字段有效性判断类型(plan.halfDay ? ij半日型 : kind == FieldKind::Date ? ij日期型 : ij时间型);
    definition.b是否提供帮助(!plan.readOnly);
    definition.i帮助类型(plan.halfDay ? ih半日型 : kind == FieldKind::Date ? ih日期型 : ih时间型);
}

void defineConstants(cVsControl& definition, const ColumnPlan& plan) {
    definition.b是否提供帮助(!plan.readOnly);
    definition.i帮助类型(ih常量型);
    definition.sHelp_Code(constantsList(plan));
}

SuggestionSource suggestionsOf(const ColumnPlan& plan) {
    if (plan.readOnly) return {};
    if (plan.codes) return plan.codes->suggestions();
    return plan.constants.empty() ? SuggestionSource() : SuggestionSource(suggestedConstants(plan));
}

void defineEnter(const SheetContext& c, cVsControl& definition, const ColumnPlan& plan) {
    const bool usual = plan.enterTo.empty() && !plan.readOnly;
    const std::string& name = usual ? c.enterToNextRow : plan.enterTo;
    if (name.empty()) return;
    const std::int32_t target = c.columnNamed(name);
    if (target < 0) throw GridError("enterTo: there is no column " + name);
    definition.sCellInput((usual || plan.enterEndsRow ? "+1," : ",") + std::to_string(c.gridCol(target)));
}

void define(const SheetContext& c, const ColumnPlan& plan, std::int32_t col) {
    const auto definition = c.grid.VsCtrl(static_cast<std::int16_t>(col));
    const FieldKind kind = plan.field->kind();
    definition->sName(plan.caption);
    definition->iType(typeOf(kind));
    definition->iColAlignment(
        plan.alignment.value_or(plan.halfDay ? flexAlignCenterCenter : alignmentOf(kind)));
    definition->bIsEditable(!plan.readOnly);
    definition->iLimitLength(plan.limit);
    definition->b是否合计数据(plan.total);
    definition->sDefaultText_Name(plan.preset);
    definition->sDefaultText_Code(plan.preset);
    if (plan.readOnly) {
        definition->b是否设列颜色(true);
        definition->d列背景色(ButtonFace);
        definition->d列前景色(ButtonText);
    }
    if (plan.insists) definition->i是否允许为空(plan.countsZero() ? i字段不能为零 : i字段不能为空);
    // A help that is the host's own: F2 asks him, and he is told that there is none.
    if (c.failed) definition->i帮助类型(ih特殊型);
    defineDates(*definition, plan);
    if (plan.codes) defineCodes(*definition, plan);
    if (!plan.constants.empty()) defineConstants(*definition, plan);
    defineEnter(c, *definition, plan);
}

void shape(const SheetContext& c, const ColumnPlan& plan, std::int32_t col) {
    c.grid.ColFormat(col, plan.format.empty() ? formatOf(plan.field->kind(), plan.decimals) : plan.format);
    if (plan.width)
        c.grid.ColWidth(col, *plan.width);
    else
        c.grid.ColSample(col, ownSampleOf(c, plan));
    c.grid.ColHidden(col, plan.hidden);
    ColumnOptions& options = c.grid.Options(col);
    options.sortable(true);
    options.filterable(true);
    options.exact(true);
    if (!plan.blanksZero()) options.zero(ColumnOptions::Zero::Keep);
    options.skipFilled(plan.skipFilled);
    options.smallest(plan.least);
    if (SuggestionSource suggestions = suggestionsOf(plan)) options.suggest(std::move(suggestions));
}
}  // namespace

void layOutColumns(const SheetContext& c) {
    c.grid.Cols(c.grid.FixedCols() + c.count());
    std::vector<std::string> captions;
    for (const ColumnPlan& plan : c.plans) captions.push_back(plan.caption);
    putCaptions(c.grid, captions);
    for (std::int32_t column = 0; column < c.count(); ++column) {
        define(c, c.plan(column), c.gridCol(column));
        shape(c, c.plan(column), c.gridCol(column));
    }
    c.grid.SumRow(
        std::any_of(c.plans.begin(), c.plans.end(), [](const ColumnPlan& plan) { return plan.total; }));
}

void fitStretched(const SheetContext& c) {
    const auto plan =
        std::find_if(c.plans.begin(), c.plans.end(), [](const ColumnPlan& one) { return one.stretch; });
    if (plan != c.plans.end()) stretch(c.grid, c.gridCol(static_cast<std::int32_t>(plan - c.plans.begin())));
}
}  // namespace kxVsGrid::sheet

#include "sheet/CodeHelp.h"

#include "kxVsGrid/HelpExchange.h"
#include "sheet/ThrownReason.h"

namespace kxVsGrid::sheet {

void CodeHelp::tellFailed() const {
    if (!c_.failed) throw;
    c_.tellFailed(thrownReason("现在不能列出"));
}

HelpTable CodeHelp::tableOf(const ColumnPlan& plan) const {
    HelpTable table = plan.codes->list(plan.caption);
    if (plan.codes->editable()) table.editable(CodeColumns::basisOf(plan));
    return table;
}

/// Without an answer the control tells the clerk that there is no list.
void CodeHelp::list(const Variant& basis, Variant& code, Variant& info, Variant& data) const {
    const std::int32_t column = CodeColumns::columnWith(c_, basis.isArray() ? std::string() : basis.toText());
    if (column < 0) return;
    try {
        tableOf(c_.plan(column)).answer(code, info, data);
    } catch (...) {
        tellFailed();
    }
}

void CodeHelp::edit(const std::string& basis, Variant& data) const {
    const std::int32_t column = CodeColumns::columnWith(c_, basis);
    if (column < 0 || !c_.plan(column).codes->editable()) return;
    const std::shared_ptr<const CodeSource> codes = c_.plan(column).codes;
    try {
        const CodeSource::Found stored = codes->edit(std::string(HelpExchange::shared().RowCode));
        if (!stored || c_.gone) return;
        data = tableOf(c_.plan(column)).GridData();
        HelpExchange::shared().RowCode = codes->codeOf(stored.get());
    } catch (...) {
        tellFailed();
    }
}

void CodeHelp::choose(std::int32_t x, std::int32_t y, std::string& text, Variant& code) const {
    const std::int32_t column = c_.grid.Col() - c_.grid.FixedCols();
    if (column < 0 || column >= c_.count()) return;
    const ColumnPlan& plan = c_.plan(column);
    const std::shared_ptr<const CodeSource> codes = plan.codes;
    if (!codes || !codes->chosenByHost()) {
        // The host may have a help of his own there.
        const bool helps = c_.grid.VsCtrl(static_cast<std::int16_t>(c_.grid.Col()))->b是否提供帮助();
        if (!helps) c_.tellFailed("这一栏没有帮助");
        return;
    }
    try {
        const CodeSource::Found chosen = codes->choose(x, y, std::string(text));
        if (!chosen) return;
        text = codes->nameOf(chosen.get());
        code = codes->codeOf(chosen.get());
    } catch (...) {
        tellFailed();
    }
}
}  // namespace kxVsGrid::sheet

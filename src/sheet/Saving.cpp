// Saving: what is being typed is taken over, what is wrong is looked for, what has changed is written by the host and
// accepted. Each of these may end with the sheet, and with the control, gone: a host closes his window in a message
// box.
#include "sheet/SheetImpl.h"

namespace kxVsGrid::sheet {

/// Reading a cell commits what is being typed. What is refused stays in the editor.
bool SheetBody::Impl::commit() {
    kxGrid& grid = context.grid;
    grid.ReadCell(grid.Row(), grid.Col());
    return !context.gone && !grid.editorView().visible;
}

/// What was written outside of steps is told, too.
void SheetBody::Impl::recompute() {
    if (!laidOut || !context.whole()) return;
    const std::size_t before = changesTold;
    ChangeStep step = context.grid.Step("重新计算");
    for (std::int32_t row = context.firstRow(); row < context.endRow(); ++row) computing.settle(row);
    step.close();
    tellModified();
    if (changesTold == before) tellChanged();
}

void SheetBody::Impl::complete() {
    if (context.gone || !context.grid.Editable()) return;
    recompute();
    if (laidOut && context.whole()) presets.complete();
}

std::optional<Fault> SheetBody::Impl::firstFault() {
    std::optional<Fault> first;
    if (!laidOut || context.gone) return first;
    faults.visit([&](Fault fault) {
        first = shown(std::move(fault));
        return false;
    });
    return first;
}

/// Of what is being typed the control has told; what the lines break together has no cell.
std::optional<Fault> SheetBody::Impl::hindrance() {
    Fault fault;
    if (laidOut && !commit()) {
        if (!context.gone) {
            fault.row = context.grid.Row();
            fault.col = context.grid.Col();
        }
        fault.reason = "正在输入的内容没有通过检查";
        return fault;
    }
    complete();
    if (auto first = firstFault()) {
        first->show();
        return first;
    }
    if (!laidOut || context.gone || !context.together) return std::nullopt;
    fault.row = fault.col = -1;
    fault.reason = context.together(records());
    return fault.reason.empty() ? std::nullopt : std::optional(fault);
}

std::optional<Fault> SheetBody::Impl::save(const Write& write) {
    if (auto fault = hindrance()) return fault;
    if (context.gone) return std::nullopt;
    std::vector<AnyChange> all = changes();
    try {
        write(all);
    } catch (const LineRefused& refused) {
        return refusedLine(refused);
    }
    // Lines that were loaded meanwhile are as they are saved.
    if (!context.gone && !saved.stale()) accept(all);
    return std::nullopt;
}

Fault SheetBody::Impl::refusedLine(const LineRefused& refused) {
    Fault fault;
    fault.row = context.rowOf(refused.row);
    fault.reason = refused.what();
    fault.where =
        fault.row < 0 ? "已删除的一行" : "第 " + std::to_string(fault.row - context.firstRow() + 1) + " 行";
    fault.col = fault.row < 0 ? -1 : context.gridCol(0);
    if (fault.row >= 0) {
        fault = shown(std::move(fault));
        fault.show();
    }
    return fault;
}

std::vector<AnyChange> SheetBody::Impl::changes() const {
    if (!laidOut) return {};
    requireWhole("changes");
    return saved.changes(lines);
}

void SheetBody::Impl::accept(const std::vector<AnyChange>& all) {
    if (!laidOut) return;
    requireWhole("accept");
    saved.accept(lines, all);
    tellModified();
}

void SheetBody::Impl::storedAs(RowId row, KeptRecord record) {
    requireWhole("storedAs");
    saved.replace(row, std::move(record));
    tellModified();
}
}  // namespace kxVsGrid::sheet

#include "sheet/SheetImpl.h"

#include <algorithm>

#include "sheet/LayOut.h"
#include "sheet/Overwritten.h"
#include "support/FirstFault.h"

namespace kxVsGrid::sheet {

void SheetBody::Impl::attach() {
    kxGrid& grid = context.grid;
    if (!grid.Own(weak_from_this())) throw GridError("Sheet: the grid has a sheet already");
    grid.Options().FillsToLastLine(true);
    // Who hears it later may still refuse.
    connections.push_back(
        grid.AddVsRow.connect([&grid](std::int32_t, bool& consent) { consent = grid.Editable(); }));
    connections.push_back(
        grid.DeleteVsRow.connect([weak = weak_from_this()](std::int32_t row, bool& consent) {
            const auto self = weak.lock();
            consent = self && self->context.grid.Editable() && self->deleting.mayGo(row);
        }));
    connections.push_back(grid.AfterAddRow.connect(
        [weak = weak_from_this()](bool& keeps, std::int32_t row, bool copied, std::int32_t source) {
            keeps = copied;
            const auto self = weak.lock();
            if (!self || !self->laidOut || !copied || row < 0 || source < 0) return;
            self->codes.copied(row, source);
            if (self->context.copied) keeps = self->adaptCopy(row);
        }));
    attachCodes();
    connections.push_back(
        grid.Options().RowInUse.connect([weak = weak_from_this()](std::int32_t row, bool& inUse) {
            const auto self = weak.lock();
            inUse = self && self->laidOut && self->context.whole() && self->lines.isInUse(row);
        }));
    connections.push_back(grid.RowColChange.connect([weak = weak_from_this()] {
        const auto self = weak.lock();
        if (!self || self->context.gone) return;
        kxGrid& moved = self->context.grid;
        self->stands = moved.Row() >= 0 ? moved.Grid().IdOf(moved.Row()) : RowId::None;
    }));
    connections.push_back(grid.Changes().After.connect([weak = weak_from_this()](const StepChanges& step) {
        if (const auto self = weak.lock()) self->settled(step);
    }));
    // More rows bring the bar beside them, fewer take it away.
    const auto fit = [weak = weak_from_this()] {
        const auto self = weak.lock();
        if (self && self->laidOut && !self->context.gone) fitStretched(self->context);
    };
    connections.push_back(grid.Grid().PlacesChanged.connect(fit));
    connections.push_back(grid.Grid().SizeChanged.connect(fit));
    connections.push_back(grid.Grid().RowMoved.connect([fit](std::int32_t, bool) { fit(); }));
    // The grid may outlive the sheet.
    grid.Changes().AddSettler([weak = weak_from_this()](const StepChanges& step) {
        if (const auto self = weak.lock()) self->settle(step);
    });
}

/// A listener of what follows may destroy the sheet.
void SheetBody::Impl::attachCodes() {
    kxGrid& grid = context.grid;
    connections.push_back(
        grid.TxtValidBmS.connect([this](const std::string& basis, const std::string&, const std::string&,
                                        const std::string& typed, std::string& code, std::string& name) {
            const auto self = shared_from_this();
            codes.check(basis, typed, code, name);
        }));
    connections.push_back(grid.GetHelpCodeInfo.connect(
        [this](const Variant& basis, Variant& code, Variant& info, Variant& data) {
            const auto self = shared_from_this();
            codeHelp.list(basis, code, info, data);
        }));
    connections.push_back(grid.GetHelpEdit.connect([this](const std::string& basis, Variant& data) {
        const auto self = shared_from_this();
        codeHelp.edit(basis, data);
    }));
    connections.push_back(
        grid.UserHelpEvent.connect([this](std::int32_t x, std::int32_t y, std::string& text, Variant& code) {
            const auto self = shared_from_this();
            codeHelp.choose(x, y, text, code);
        }));
    connections.push_back(grid.AfterEdit.connect([this](std::int32_t row, std::int32_t col) {
        const auto self = shared_from_this();
        const std::int32_t column = col - context.grid.FixedCols();
        if (!laidOut || loading || column < 0 || column >= context.count()) return;
        if (row < context.firstRow() || row >= context.endRow()) return;
        const RowId id = context.cells().IdOf(row);
        const bool begins = presets.begins(row, column);
        if (context.plan(column).codes && (row = context.rowOf(id)) >= 0) codes.follow(row);
        if (begins && (row = context.rowOf(id)) >= 0) presets.give(row);
        if (context.edited && (row = context.rowOf(id)) >= 0) tellEdited(row, column, false);
        if (!faultMarks.empty() && (row = context.rowOf(id)) >= 0) faultMarks.keep(row);
        if (codes.paints() && (row = context.rowOf(id)) >= 0) codes.paint(row);
    }));
}

void SheetBody::Impl::write(std::int32_t row, const void* record) {
    std::optional<Fault> unreadable;
    const AnyRecord before = lines.read(row, unreadable);
    lines.write(row, record);
    if (row >= context.endRow() || !codes.follow(row) || row >= context.endRow()) return;
    const AnyRecord merged = lines.read(row, unreadable);
    for (std::int32_t column = 0; column < context.count(); ++column) {
        const ColumnPlan& plan = context.plan(column);
        if (!plan.codes && !plan.computed && !plan.field->alike(before.get(), record))
            plan.field->read(merged.get(), lines.text(record, column));
    }
    lines.write(row, merged.get());
}

void SheetBody::Impl::layOut() {
    if (laidOut && context.whole()) return;
    if (context.plans.empty()) throw GridError("load: the sheet has no columns");
    layOutColumns(context);
    for (std::int32_t column = 0; column < context.count(); ++column)
        context.grid.Options(context.gridCol(column))
            .accepts([weak = weak_from_this(), column](std::int32_t row, std::string_view text) {
                const auto self = weak.lock();
                return self && self->context.whole() ? self->faults.refusal(row, column, text)
                                                     : std::string();
            });
    laidOut = true;
    fitStretched(context);
}

void SheetBody::Impl::eachRow(const StepChanges& step, const std::function<void(std::int32_t)>& work) {
    const SheetContext& c = context;
    std::vector<RowId> ids;
    if (step.known) {
        for (const std::int32_t row : step.rows)
            if (row >= c.firstRow() && row < c.endRow()) ids.push_back(c.cells().IdOf(row));
    } else {
        ids.resize(static_cast<std::size_t>(c.endRow() - c.firstRow()));
        c.cells().IdsOf(c.firstRow(), ids);
    }
    support::FirstFault fault;
    for (const RowId id : ids)
        fault.during([&] {
            if (const std::int32_t row = c.rowOf(id); row >= 0) work(row);
        });
    fault.raise();
}

/// What was typed, filled or pasted has no more decimals than its column, no 0 where that is as good as nothing, and no
/// blanks around constants. What stands as it was loaded was agreed so.
void SheetBody::Impl::round(std::int32_t row, const StepChanges& step) {
    const RowId id = context.cells().IdOf(row);
    for (std::int32_t column = 0; column < context.count() && (row = context.rowOf(id)) >= 0; ++column)
        if (!step.known || std::binary_search(step.cols.begin(), step.cols.end(), context.gridCol(column)))
            roundCell(row, column);
}

void SheetBody::Impl::roundCell(std::int32_t row, std::int32_t column) {
    const ColumnPlan& plan = context.plan(column);
    const bool plain = plan.field->kind() == FieldKind::Text && !plan.decimals && plan.constants.empty();
    if (plan.computed || plain) return;
    const std::int32_t col = context.gridCol(column);
    const std::string text = context.cells().Text(row, col);
    const KeptRecord kept = saved.of(context.cells().KnownId(row));
    if (text.empty() || (kept && text == lines.text(kept.get(), column))) return;
    std::string value = plan.decimals            ? Lines::rounded(text, *plan.decimals)
                        : plan.constants.empty() ? text
                                                 : std::string(trimmedCode(text));
    if (lines.isBlanked(column, value)) value.clear();
    if (value != text) context.grid.SetCell(row, col, value);
}

void SheetBody::Impl::tellEdited(std::int32_t row, std::int32_t column, bool filled) {
    const RowId id = context.cells().IdOf(row);
    roundCell(row, column);
    if ((row = context.rowOf(id)) < 0) return;
    std::optional<Fault> unreadable;
    const AnyRecord before = lines.read(row, unreadable);
    computing.fill(before.get());
    const AnyRecord after = context.make(before.get());
    context.edited(after.get(), Edited{row, context.plan(column).name, filled});
    for (std::int32_t other = 0; other < context.count(); ++other) {
        const ColumnPlan& plan = context.plan(other);
        if ((row = context.rowOf(id)) < 0) return;
        if (plan.computed || plan.field->alike(before.get(), after.get())) continue;
        const std::int32_t col = context.gridCol(other);
        const std::string text = lines.text(after.get(), other);
        const bool tagged = context.cells().Data(row, col) == context.cells().Text(row, col);
        context.grid.SetCell(row, col, text, tagged ? text : std::string());
    }
}

void SheetBody::Impl::tellFilled(std::int32_t row, const StepChanges& step) {
    const RowId id = context.cells().IdOf(row);
    const std::vector<std::int32_t> cols(step.cols.begin(), step.cols.end());
    bringBack(context, lines, row, cols);
    if (!context.edited) return;
    for (const std::int32_t col : cols) {
        const std::int32_t column = col - context.grid.FixedCols();
        if (column < 0 || column >= context.count()) continue;
        if ((row = context.rowOf(id)) < 0) return;
        tellEdited(row, column, true);
    }
}

void SheetBody::Impl::forgetLines() {
    computing.forgetMarks();
    codes.forget();
    faultMarks.forget();
    context.grid.ClearMarks();
}

/// Why the load failed is known already: nothing of this says more.
void SheetBody::Impl::loadNothing() {
    support::FirstFault fault;
    fault.during([&] { context.grid.Clear(); });
    fault.during([&] {
        if (!context.gone) context.grid.ReDraw(true);
    });
    if (context.gone) return;
    fault.during([&] { forgetLines(); });
    fault.during([&] { saved.begin(lines, {}, {}); });
    fault.during([&] { tellModified(); });
}

void SheetBody::Impl::preset(std::int32_t column, const std::string& text) {
    const AnyRecord scratch = context.make(nullptr);
    if (!context.plan(column).field->read(scratch.get(), text))
        throw GridError("preset: “" + text + "” is no value of the column " + context.plan(column).name);
    const std::string before = std::exchange(context.plans[static_cast<std::size_t>(column)].preset, text);
    if (!laidOut) return;
    const std::int32_t col = context.gridCol(column);
    const auto definition = context.grid.VsCtrl(static_cast<std::int16_t>(col));
    definition->sDefaultText_Name(text);
    definition->sDefaultText_Code(text);
    if (!context.plan(column).blanksZero()) context.grid.Options(col).zero(ColumnOptions::Zero::Keep);
    if (before == text) return;
    commit();  // what is typed is a step of its own, and is taken back by itself
    if (context.gone) return;
    const UnrecordedSpan unrecorded = context.grid.Unrecorded();
    for (std::int32_t row = context.firstRow(); row < context.endRow(); ++row)
        if (context.cells().Text(row, col) == before &&
            (before.empty() ? presets.waits(row) : !lines.isInUse(row)) && !context.gone)
            context.grid.SetCell(row, col, text, text);
}

void SheetBody::Impl::settle(const StepChanges& step) {
    if (!laidOut || loading || !context.whole()) return;
    eachRow(step, [&](std::int32_t row) {
        const RowId id = context.cells().IdOf(row);
        codes.settle(row, step);
        if (step.cause == Cause::Fill && step.known && (row = context.rowOf(id)) >= 0) tellFilled(row, step);
        if ((row = context.rowOf(id)) >= 0) round(row, step);
        if ((row = context.rowOf(id)) >= 0) computing.settle(row);
    });
    if (step.cause != Cause::Rows) return;
    keepRowBelow();
    presetCurrentRow();
}

/// A copy that has become the last row has none below it to type into.
void SheetBody::Impl::keepRowBelow() {
    const std::int32_t end = context.endRow();
    if (end > context.firstRow() && lines.isInUse(end - 1) && !context.gone) context.cells().InsertRow(end);
}

/// An undo puts back what was written in steps; what follows from that and from what was written beside them is made
/// anew, and is no step of its own.
void SheetBody::Impl::settled(const StepChanges& step) {
    if (!laidOut || loading) return;
    support::FirstFault fault;
    if (step.cause == Cause::Undo && context.whole()) {
        const UnrecordedSpan unrecorded = context.grid.Unrecorded();
        CodeColumns::Answers answers;
        fault.during([&] {
            eachRow(step, [&](std::int32_t row) {
                const RowId id = context.cells().IdOf(row);
                computing.settle(row);
                if ((row = context.rowOf(id)) >= 0) codes.undone(row, answers);
            });
        });
    }
    if (!faultMarks.empty() && context.whole())
        fault.during([&] { eachRow(step, [&](std::int32_t row) { faultMarks.judge(row); }); });
    if (codes.paints() && context.whole())
        fault.during([&] { eachRow(step, [&](std::int32_t row) { codes.paint(row); }); });
    fault.during([&] { tellModified(); });
    fault.during([&] { tellChanged(); });
    fault.raise();
}

void SheetBody::Impl::loaded(bool none) {
    support::FirstFault fault;
    fault.during([&] { tellModified(); });
    fault.during([&] {
        if (none && !context.gone) presetRow(context.firstRow());
    });
    stands = context.gone ? RowId::None : context.cells().KnownId(context.grid.Row());
    fault.during([&] { tellChanged(); });
    fault.raise();
}

void SheetBody::Impl::tellChanged() {
    if (context.gone) return;
    ++changesTold;
    changedTold();
}

void SheetBody::Impl::presetRow(std::int32_t row) {
    const UnrecordedSpan unrecorded = context.grid.Unrecorded();
    ChangeStep step = context.grid.Step("默认值");
    presets.give(row);
    step.close();
}

/// The clerk stands on another row, though he has not moved: the one that he stood on has gone. It is part of that
/// step, and goes with it.
void SheetBody::Impl::presetCurrentRow() {
    if (context.gone || !context.whole()) return;
    const std::int32_t row = context.grid.Row();
    if (row < context.firstRow() || row >= context.endRow()) return;
    const RowId before = std::exchange(stands, context.cells().IdOf(row));
    if (before == stands || before == RowId::None || context.rowOf(before) >= 0) return;
    if (!presets.any(row) && !lines.isInUse(row)) presets.give(row);
}

void SheetBody::Impl::tellModified() {
    if (context.gone) return;
    const bool now = !context.whole() || saved.differs(lines);
    if (now == modified) return;
    modified = now;
    modifiedTold(now);
}

Fault SheetBody::Impl::shown(Fault fault) {
    const RowId id = context.cells().IdOf(fault.row);
    const bool told =
        fault.kind == FaultKind::Missing && context.plan(fault.col - context.grid.FixedCols()).insists;
    fault.go = [weak = weak_from_this(), id, col = fault.col, told] {
        const auto self = weak.lock();
        if (!self || self->context.rowOf(id) < 0) return false;
        self->goTo(id, col);
        return told && self->context.rowOf(id) >= 0 && !self->context.grid.IsValid();
    };
    return fault;
}

/// What is being typed is a step of its own; where it is refused the clerk stays.
void SheetBody::Impl::goTo(RowId row, std::int32_t col) {
    if (!commit() || context.rowOf(row) < 0) return;
    const UnrecordedSpan unrecorded = context.grid.Unrecorded();  // default texts are nobody's step
    context.cells().Select(context.rowOf(row), col);
    std::int32_t now = context.rowOf(row);
    const bool gets = now >= 0 && context.grid.Editable() && !lines.isInUse(now);
    if (gets && (now = context.rowOf(row)) >= 0) presets.give(now);
}

bool SheetBody::Impl::adaptCopy(std::int32_t row) {
    std::optional<Fault> unreadable;
    const AnyRecord record = lines.read(row, unreadable);
    const RowId id = context.cells().IdOf(row);
    const bool keeps = context.copied(record.get());
    if (keeps && (row = context.rowOf(id)) >= 0) lines.write(row, record.get());
    return keeps;
}

void SheetBody::Impl::paintAll() {
    if (!codes.paints() || !context.whole()) return;
    for (std::int32_t row = context.firstRow(); row < context.endRow(); ++row) codes.paint(row);
}

std::int32_t SheetBody::Impl::require(std::string_view member, std::string_view name) const {
    const std::int32_t column = context.columnNamed(name);
    if (column < 0) throw GridError(std::string(member) + ": there is no column " + std::string(name));
    return column;
}

std::vector<KeptRecord> SheetBody::Impl::records() const {
    std::vector<KeptRecord> records;
    if (!laidOut) return records;
    requireWhole("records");
    for (std::int32_t row = context.firstRow(); row < context.endRow(); ++row) {
        const AnyRecord record = lines.lineAt(row);
        if (!record) continue;
        if (context.position) context.position->put(record.get(), std::ssize(records) + 1);
        records.push_back(record);
    }
    return records;
}

void SheetBody::Impl::requireRow(std::string_view member, std::int32_t row) const {
    if (!laidOut || row < context.firstRow() || row >= context.endRow())
        throw GridError(std::string(member) + ": " + std::to_string(row) + " is no row of a line");
}

void SheetBody::Impl::requireWhole(std::string_view member) const {
    if (!context.whole()) throw GridError(std::string(member) + ": columns of the sheet have gone");
}

void SheetBody::Impl::requireOpen(std::string_view what) const {
    if (laidOut) throw GridError(std::string(what) + ": the sheet was loaded already");
}
}  // namespace kxVsGrid::sheet

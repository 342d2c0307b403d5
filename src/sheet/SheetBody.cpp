#include "kxVsGrid/sheet/SheetBody.h"

#include <algorithm>
#include <utility>

#include "sheet/SheetImpl.h"

namespace kxVsGrid::sheet {

SheetBody::SheetBody(kxGrid& grid, MakeRecord make, bool computesTwice)
    : impl_(std::make_shared<Impl>(grid, make, computesTwice)) {
    impl_->attach();
}

/// A call of it may still be underway, and the grid may go next.
SheetBody::~SheetBody() {
    impl_->context.gone = true;
    impl_->connections.clear();
    impl_->codes.leave();
}

kxGrid& SheetBody::grid() {
    return impl_->context.grid;
}

// --- What the host says

ColumnPlan& SheetBody::column(std::string_view name, std::string_view caption, std::unique_ptr<Field> field) {
    impl_->requireOpen(name);
    if (impl_->context.columnNamed(name) >= 0)
        throw GridError("Sheet: there is a column " + std::string(name) + " already");
    ColumnPlan& plan = impl_->context.plans.emplace_back();
    plan.name = name;
    plan.caption = caption;
    plan.field = std::move(field);
    return plan;
}

void SheetBody::rule(std::string_view name, std::function<bool(const void*)> holds, std::string_view reason,
                     bool whenTyped) {
    impl_->context.rules.push_back(
        {impl_->require("rule", name), std::move(holds), std::string(reason), whenTyped});
}

void SheetBody::edited(std::function<void(void*, const Edited&)> follow) {
    impl_->context.edited = std::move(follow);
}

void SheetBody::enterToNextRow(std::string_view name) {
    impl_->requireOpen("enterToNextRow");
    impl_->context.enterToNextRow = name;
}

void SheetBody::copied(std::function<bool(void*)> adapt) {
    impl_->context.copied = std::move(adapt);
}

void SheetBody::failed(std::function<void(const std::string&)> told) {
    impl_->requireOpen("failed");
    impl_->context.failed = std::move(told);
}

void SheetBody::wording(std::function<std::string(const Fault&)> says) {
    impl_->context.wording = std::move(says);
}

void SheetBody::mayDelete(std::function<bool(const std::vector<std::int32_t>&)> asks) {
    impl_->context.mayDelete = std::move(asks);
}

void SheetBody::unreadable(Unreadable how) {
    impl_->context.unreadable = how;
}

void SheetBody::leastRows(std::int32_t rows) {
    impl_->context.leastRows = rows;
}

void SheetBody::together(std::function<std::string(const std::vector<KeptRecord>&)> why) {
    impl_->context.together = std::move(why);
}

void SheetBody::inUse(std::function<bool(const void*)> says) {
    impl_->requireOpen("inUse");
    impl_->context.inUse = std::move(says);
}

void SheetBody::identity(Identity identity) {
    impl_->requireOpen("identity");
    impl_->context.identity = std::move(identity);
}

void SheetBody::version(Identity version) {
    impl_->requireOpen("version");
    impl_->context.version = std::move(version);
}

void SheetBody::position(Position position) {
    impl_->requireOpen("position");
    impl_->context.position = std::move(position);
}

// --- Lines

std::int32_t SheetBody::columnOf(std::string_view name) const {
    return impl_->context.gridCol(impl_->require("col", name));
}

// What the host is asked for on the way may destroy the sheet.
bool SheetBody::isInUse(std::int32_t row) const {
    const std::shared_ptr<Impl> impl = impl_;
    impl->requireRow("isInUse", row);
    return impl->lines.isInUse(row);
}

std::int32_t SheetBody::endRow() const {
    const std::shared_ptr<Impl> impl = impl_;
    return impl->laidOut ? impl->lines.end() : impl->context.firstRow();
}

KeptRecord SheetBody::record(std::int32_t row) const {
    const std::shared_ptr<Impl> impl = impl_;
    impl->requireRow("record", row);
    return impl->lines.readWhole(row);
}

KeptRecord SheetBody::recordOf(RowId id) const {
    const std::shared_ptr<Impl> impl = impl_;
    const std::int32_t row = impl->laidOut ? impl->context.rowOf(id) : -1;
    return row < 0 ? nullptr : impl->lines.readWhole(row);
}

std::vector<KeptRecord> SheetBody::records() const {
    const std::shared_ptr<Impl> impl = impl_;
    return impl->records();
}

void SheetBody::put(std::int32_t row, const void* record) {
    const std::shared_ptr<Impl> impl = impl_;
    impl->requireRow("put", row);
    ChangeStep step = impl->context.grid.Step("修改");
    impl->write(row, record);
    step.close();
}

std::vector<std::int32_t> SheetBody::append(const std::vector<KeptRecord>& records) {
    const std::shared_ptr<Impl> impl = impl_;
    kxGrid& grid = impl->context.grid;
    if (!impl->laidOut) Loading(*this, 0, {}).finish();
    ChangeStep step = grid.Step("追加");
    std::vector<std::int32_t> rows;
    std::int32_t row = impl->lines.end();
    // Lines that the clerk has emptied are still those that were loaded.
    while (row < grid.Rows() && impl->saved.of(impl->context.cells().KnownId(row))) ++row;
    const std::int32_t needed = row + static_cast<std::int32_t>(records.size()) + 1;
    if (needed > grid.Rows()) grid.Rows(needed);
    for (const KeptRecord& record : records) {
        if (impl->context.gone || row >= grid.Rows()) break;
        impl->write(row, record.get());
        rows.push_back(row++);
    }
    step.close();
    return rows;
}

void SheetBody::recompute() {
    const std::shared_ptr<Impl> impl = impl_;
    impl->recompute();
}

Decimal SheetBody::sum(std::string_view name) const {
    const std::shared_ptr<Impl> impl = impl_;
    const std::int32_t column = impl->require("sum", name);
    return impl->laidOut ? impl->lines.sum(column) : Decimal();
}

void SheetBody::preset(std::string_view name, std::string_view text) {
    const std::shared_ptr<Impl> impl = impl_;
    impl->preset(impl->require("preset", name), std::string(text));
}

// --- The clerk

bool SheetBody::commit() {
    const std::shared_ptr<Impl> impl = impl_;
    return !impl->laidOut || impl->commit();
}

void SheetBody::complete() {
    const std::shared_ptr<Impl> impl = impl_;
    impl->complete();
}

void SheetBody::goTo(std::int32_t row, std::string_view name) {
    const std::shared_ptr<Impl> impl = impl_;
    const std::int32_t column = impl->require("goTo", name);
    impl->requireRow("goTo", row);
    impl->goTo(impl->context.cells().IdOf(row), impl->context.gridCol(column));
}

std::string SheetBody::hint() const {
    const SheetContext& context = impl_->context;
    const std::int32_t column = context.grid.Col() - context.grid.FixedCols();
    return impl_->laidOut && column >= 0 && column < context.count() ? context.plan(column).hint
                                                                     : std::string();
}

// --- What is to be saved

std::vector<AnyChange> SheetBody::changes() const {
    const std::shared_ptr<Impl> impl = impl_;
    return impl->changes();
}

void SheetBody::accept(const std::vector<AnyChange>& changes) {
    const std::shared_ptr<Impl> impl = impl_;
    impl->accept(changes);
}

void SheetBody::storedAs(RowId row, KeptRecord record) {
    const std::shared_ptr<Impl> impl = impl_;
    impl->storedAs(row, std::move(record));
}

std::optional<Fault> SheetBody::save(const Write& write) {
    const std::shared_ptr<Impl> impl = impl_;
    return impl->save(write);
}

bool SheetBody::modified() const {
    const std::shared_ptr<Impl> impl = impl_;
    return impl->laidOut && (!impl->context.whole() || impl->saved.differs(impl->lines));
}

bool SheetBody::moved() const {
    const std::shared_ptr<Impl> impl = impl_;
    return impl->saved.moved(impl->lines);
}

void SheetBody::saved(std::vector<KeptRecord> records) {
    const std::shared_ptr<Impl> impl = impl_;
    const SheetContext& context = impl->context;
    std::vector<RowId> rows;
    for (std::int32_t row = context.firstRow(); row < context.endRow(); ++row)
        if (impl->lines.isInUse(row)) rows.push_back(context.cells().IdOf(row));
    if (rows.size() != records.size())
        throw GridError("saved: " + std::to_string(records.size()) + " records for " +
                        std::to_string(rows.size()) + " lines");
    impl->saved.begin(impl->lines, rows, std::move(records));
    impl->tellModified();
}

Connection SheetBody::onModified(std::function<void(bool)> told) {
    return impl_->modifiedTold.connect(std::move(told));
}

Connection SheetBody::onChanged(std::function<void()> told) {
    return impl_->changedTold.connect(std::move(told));
}

// --- What is wrong

std::optional<Fault> SheetBody::firstFault() const {
    const std::shared_ptr<Impl> impl = impl_;
    return impl->firstFault();
}

std::vector<Fault> SheetBody::faults() const {
    const std::shared_ptr<Impl> impl = impl_;
    std::vector<Fault> all;
    if (!impl->laidOut) return all;
    impl->faults.visit([&](Fault fault) {
        all.push_back(impl->shown(std::move(fault)));
        return true;
    });
    return all;
}

int SheetBody::markFaults() {
    const std::shared_ptr<Impl> impl = impl_;
    const int count = impl->faultMarks.put();
    impl->paintAll();
    return count;
}

void SheetBody::clearMarks() {
    impl_->faultMarks.forget();
    impl_->context.grid.ClearMarks();
    impl_->paintAll();
}
}  // namespace kxVsGrid::sheet

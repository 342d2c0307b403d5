#include "sheet/Computing.h"

#include "sheet/ProblemMark.h"
#include "sheet/ThrownReason.h"

namespace kxVsGrid::sheet {

/// The rounded value goes back into the record: what is computed from it sees what the clerk sees.
Computing::Outcome Computing::compute(void* record, std::int32_t column) const {
    const ColumnPlan& plan = c_.plan(column);
    try {
        plan.computed(record);
        std::string text = lines_.text(record, column);
        plan.field->read(record, text);
        return {std::move(text), {}};
    } catch (...) {
        return failed(record, column, thrownReason("不能计算"));
    }
}

Computing::Outcome Computing::failed(void* record, std::int32_t column, std::string reason) const {
    c_.plan(column).field->read(record, {});
    return {{}, std::move(reason)};
}

template <class Take>
void Computing::computeAll(void* record, Take take) const {
    for (std::int32_t column = 0; column < c_.count(); ++column)
        if (c_.plan(column).computed) take(column, compute(record, column));
}

std::vector<Computing::Failure> Computing::fill(void* record) const {
    std::vector<Failure> failures;
    computeAll(record, [&](std::int32_t column, Outcome outcome) {
        if (!outcome.reason.empty()) failures.push_back({column, std::move(outcome.reason)});
    });
    if (lines_.isInUse(record)) return failures;
    for (std::int32_t column = 0; column < c_.count(); ++column)
        if (c_.plan(column).computed) c_.plan(column).field->read(record, {});
    return {};
}

std::string Computing::reason(const void* record, std::int32_t column) const {
    const AnyRecord copy = c_.make(record);
    return compute(copy.get(), column).reason;
}

/// A function may go by what it has made before, as a stamp that stays.
void Computing::readOwn(void* record, std::int32_t row) const {
    for (std::int32_t column = 0; column < c_.count(); ++column) {
        const Field& field = *c_.plan(column).field;
        if (c_.plan(column).computed && !field.read(record, c_.cells().Text(row, c_.gridCol(column))))
            field.read(record, {});
    }
}

void Computing::settle(std::int32_t row) {
    const RowId id = c_.cells().IdOf(row);
    std::optional<Fault> fault;
    const AnyRecord record = lines_.readTyped(row, fault);
    readOwn(record.get(), row);
    std::vector<std::pair<std::int32_t, Outcome>> outcomes;
    computeAll(record.get(), [&](std::int32_t column, Outcome outcome) {
        outcomes.emplace_back(column, std::move(outcome));
    });
    if (c_.rowOf(id) < 0) return;
    const bool empty = c_.refuses(fault) || !lines_.isInUse(row, record.get());
    for (const auto& [column, outcome] : outcomes) put(id, column, empty ? Outcome{} : outcome);
    if (c_.computesTwice && !empty && !c_.gone) requireSettled(record.get());
}

void Computing::mark(std::int32_t row, const Failure& failure) {
    putMark(row, c_.gridCol(failure.column), failure.reason);
}

/// A listener of what is written may take the row away.
void Computing::put(RowId id, std::int32_t column, const Outcome& outcome) {
    std::int32_t row = c_.rowOf(id);
    if (row < 0) return;
    const std::int32_t col = c_.gridCol(column);
    if (c_.cells().Text(row, col) != outcome.text) {
        c_.grid.SetCell(row, col, outcome.text);
        row = c_.rowOf(id);
    }
    if (row >= 0) putMark(row, col, outcome.reason);
}

void Computing::putMark(std::int32_t row, std::int32_t col, const std::string& reason) {
    if (reason.empty() && marks_.empty()) return;
    const auto key = std::make_pair(c_.cells().IdOf(row), col);
    if (!reason.empty()) {
        if (const CellMark* const there = c_.grid.Mark(row, col); there && there->text == reason) return;
        marks_[key] = reason;
        putProblem(c_.grid, row, col, reason);
    } else if (const auto ours = marks_.extract(key)) {
        takeProblemAway(c_.grid, row, col, ours.mapped());
    }
}

void Computing::requireSettled(const void* record) const {
    const AnyRecord again = c_.make(record);
    for (std::int32_t column = 0; column < c_.count(); ++column) {
        const ColumnPlan& plan = c_.plan(column);
        if (!plan.computed) continue;
        compute(again.get(), column);
        if (!plan.field->alike(again.get(), record))
            throw GridError("the computed column " + plan.name + " is another one when it is computed again");
    }
}
}  // namespace kxVsGrid::sheet

#include "sheet/Computing.h"

#include <exception>

namespace kxVsGrid::sheet {

/// The rounded value goes back into the record: what is computed from it sees what the clerk sees.
Computing::Outcome Computing::compute(void* record, std::int32_t column) const {
    const ColumnPlan& plan = c_.plan(column);
    try {
        plan.computed(record);
        std::string text = lines_.text(record, column);
        plan.field->read(record, text);
        return {std::move(text), {}};
    } catch (const DecimalError&) {
        plan.field->read(record, {});
        return {{}, "结果太大，或者不能计算"};
    } catch (const std::exception& error) {
        plan.field->read(record, {});
        return {{}, error.what()};
    }
}

void Computing::fill(void* record) const {
    for (std::int32_t column = 0; column < c_.count(); ++column)
        if (c_.plan(column).computed) compute(record, column);
}

std::string Computing::reason(const void* record, std::int32_t column) const {
    const AnyRecord copy = c_.make(record);
    return compute(copy.get(), column).reason;
}

void Computing::settle(std::int32_t row) {
    std::optional<Fault> fault;
    const AnyRecord record = lines_.read(row, fault);
    const bool empty = c_.refuses(fault) || !lines_.isInUse(row, record.get());
    for (std::int32_t column = 0; column < c_.count(); ++column) {
        if (!c_.plan(column).computed) continue;
        put(row, column, empty ? Outcome{} : compute(record.get(), column));
        if (row >= c_.endRow()) return;  // a listener took it away
    }
    if (c_.computesTwice && !empty) requireSettled(record.get());
}

void Computing::mark(std::int32_t row) {
    std::optional<Fault> fault;
    const AnyRecord record = lines_.read(row, fault);
    const bool empty = c_.refuses(fault) || !lines_.isInUse(row, record.get());
    for (std::int32_t column = 0; column < c_.count(); ++column)
        if (c_.plan(column).computed)
            putMark(row, c_.gridCol(column), empty ? std::string() : compute(record.get(), column).reason);
}

void Computing::put(std::int32_t row, std::int32_t column, const Outcome& outcome) {
    const std::int32_t col = c_.gridCol(column);
    if (c_.cells().Text(row, col) != outcome.text) c_.grid.SetCell(row, col, outcome.text);
    if (row < c_.endRow()) putMark(row, col, outcome.reason);
}

void Computing::putMark(std::int32_t row, std::int32_t col, const std::string& reason) {
    if (reason.empty() && marks_.empty()) return;
    const auto key = std::make_pair(c_.cells().IdOf(row), col);
    const auto ours = marks_.find(key);
    const CellMark* const there = c_.grid.Mark(row, col);
    if (!reason.empty()) {
        if (there && there->text == reason) return;
        marks_[key] = reason;
        c_.grid.Mark(row, col, CellMark{CellMark::Kind::Problem, reason});
    } else if (ours != marks_.end()) {
        if (there && there->text == ours->second) c_.grid.Mark(row, col, std::nullopt);
        marks_.erase(key);
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

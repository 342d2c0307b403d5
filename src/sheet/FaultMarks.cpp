#include "sheet/FaultMarks.h"

#include <utility>

#include "sheet/ProblemMark.h"

namespace kxVsGrid::sheet {

int FaultMarks::put() {
    for (const auto& [cell, reason] : std::exchange(marks_, {})) {
        const std::int32_t row = c_.cells().RowOf(cell.first);
        if (row >= 0) takeProblemAway(c_.grid, row, cell.second, reason);
    }
    int count = 0;
    faults_.visit([&](const Fault& fault) {
        mark(fault);
        ++count;
        return true;
    });
    return count;
}

/// What was refused there says more.
void FaultMarks::mark(const Fault& fault) {
    const CellMark* const there = c_.grid.Mark(fault.row, fault.col);
    if (there && there->kind == CellMark::Kind::Problem) return;
    putProblem(c_.grid, fault.row, fault.col, fault.reason);
    marks_[{c_.cells().IdOf(fault.row), fault.col}] = fault.reason;
}

std::map<std::int32_t, std::string> FaultMarks::reasonsIn(std::int32_t row) const {
    std::map<std::int32_t, std::string> reasons;
    faults_.visit(row, [&](const Fault& fault) {
        reasons[fault.col] = fault.reason;
        return true;
    });
    return reasons;
}

/// A text that is confirmed as it stood is no step.
void FaultMarks::keep(std::int32_t row) {
    const RowId id = c_.cells().KnownId(row);
    const auto first = marks_.lower_bound({id, 0});
    if (first == marks_.end() || first->first.first != id) return;
    const std::map<std::int32_t, std::string> reasons = reasonsIn(row);
    if (c_.gone) return;
    for (const auto& [col, reason] : reasons)
        if (const auto ours = marks_.find({id, col}); ours != marks_.end() && !c_.grid.Mark(row, col)) {
            ours->second = reason;
            putProblem(c_.grid, row, col, reason);
        }
}

/// The grid takes a mark away with the commit into its cell. What is wrong may depend on the rest of the line, and
/// may be as wrong afterwards.
void FaultMarks::judge(std::int32_t row) {
    const RowId id = c_.cells().KnownId(row);
    auto one = marks_.lower_bound({id, 0});
    if (one == marks_.end() || one->first.first != id) return;
    const std::map<std::int32_t, std::string> reasons = reasonsIn(row);
    if (c_.gone) return;
    while (one != marks_.end() && one->first.first == id) {
        const std::int32_t col = one->first.second;
        const CellMark* const there = c_.grid.Mark(row, col);
        const auto now = reasons.find(col);
        if ((there && there->text != one->second) || now == reasons.end()) {
            takeProblemAway(c_.grid, row, col, one->second);
            one = marks_.erase(one);
            continue;
        }
        putProblem(c_.grid, row, col, now->second);
        one->second = now->second;
        ++one;
    }
}
}  // namespace kxVsGrid::sheet

#include "sheet/FaultMarks.h"

#include <optional>

namespace kxVsGrid::sheet {

int FaultMarks::put() {
    for (const auto& [cell, reason] : std::exchange(marks_, {})) {
        const std::int32_t row = c_.cells().RowOf(cell.first);
        const CellMark* const there = row < 0 ? nullptr : c_.grid.Mark(row, cell.second);
        if (there && there->text == reason) c_.grid.Mark(row, cell.second, std::nullopt);
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
    c_.grid.Mark(fault.row, fault.col, CellMark{CellMark::Kind::Problem, fault.reason});
    marks_[{c_.cells().IdOf(fault.row), fault.col}] = fault.reason;
}

/// The grid takes a mark away with the commit into its cell. What is wrong may depend on the rest of the line, and
/// may be as wrong afterwards.
void FaultMarks::judge(std::int32_t row) {
    const RowId id = c_.cells().KnownId(row);
    auto one = marks_.lower_bound({id, 0});
    if (one == marks_.end() || one->first.first != id) return;
    std::map<std::int32_t, std::string> reasons;
    faults_.visit(row, [&](const Fault& fault) {
        reasons[fault.col] = fault.reason;
        return true;
    });
    while (one != marks_.end() && one->first.first == id) {
        const std::int32_t col = one->first.second;
        const CellMark* const there = c_.grid.Mark(row, col);
        const auto now = reasons.find(col);
        if ((there && there->text != one->second) || now == reasons.end()) {
            if (there && there->text == one->second) c_.grid.Mark(row, col, std::nullopt);
            one = marks_.erase(one);
            continue;
        }
        if (!there || there->text != now->second)
            c_.grid.Mark(row, col, CellMark{CellMark::Kind::Problem, now->second});
        one->second = now->second;
        ++one;
    }
}
}  // namespace kxVsGrid::sheet

#include "sheet/Overwritten.h"

#include <optional>
#include <string>

namespace kxVsGrid::sheet {
namespace {

bool isFollower(const ColumnPlan& plan) {
    return plan.readOnly && !plan.computed && !plan.codes;
}

/// The line with what its codes bring; where there is none, the host's own way of clearing. Nothing where nobody knows.
AnyRecord followed(const SheetContext& c, const Lines& lines, std::int32_t row) {
    std::optional<Fault> unreadable;
    AnyRecord record = lines.read(row, unreadable);
    try {
        for (std::int32_t column = 0; column < c.count(); ++column) {
            const ColumnPlan& plan = c.plan(column);
            if (!plan.codes) continue;
            const std::string code = c.cells().Text(row, c.gridCol(column));
            if (code.empty()) {
                if (plan.cleared) plan.cleared(record.get());
            } else if (const auto found = plan.codes->find(code); found && plan.found) {
                plan.found(record.get(), found.get());
            }
        }
    } catch (...) {
        return nullptr;
    }
    return record;
}
}  // namespace

void bringBack(const SheetContext& c, const Lines& lines, std::int32_t row,
               std::span<const std::int32_t> cols) {
    AnyRecord record;
    for (const std::int32_t col : cols) {
        const std::int32_t column = c.gone ? -1 : col - c.grid.FixedCols();
        if (column < 0 || column >= c.count() || row >= c.endRow() || !isFollower(c.plan(column))) continue;
        if (!record && !(record = followed(c, lines, row))) return;
        if (c.gone) return;
        const std::string text = lines.text(record.get(), column);
        if (c.cells().Text(row, col) != text) c.grid.SetCell(row, col, text);
    }
}
}  // namespace kxVsGrid::sheet

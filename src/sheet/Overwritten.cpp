#include "sheet/Overwritten.h"

#include <exception>
#include <optional>
#include <string>

namespace kxVsGrid::sheet {
namespace {

bool isFollower(const ColumnPlan& plan) {
    return plan.readOnly && !plan.computed && !plan.codes;
}

/// Without a code the members are those of a new record.
void follow(const SheetContext& c, void* record, std::int32_t column, const std::string& code) {
    const ColumnPlan& plan = c.plan(column);
    if (code.empty()) {
        if (plan.cleared) plan.cleared(record);
    } else if (const auto found = plan.codes->find(code); found && plan.found) {
        plan.found(record, found.get());
    }
}
}  // namespace

void bringBack(const SheetContext& c, const Lines& lines, std::int32_t row,
               std::span<const std::int32_t> cols) {
    for (const std::int32_t col : cols) {
        const std::int32_t column = col - c.grid.FixedCols();
        if (column < 0 || column >= c.count() || row >= c.endRow() || !isFollower(c.plan(column))) continue;
        std::optional<Fault> unreadable;
        const AnyRecord record = lines.read(row, unreadable);
        try {
            for (std::int32_t code = 0; code < c.count(); ++code)
                if (c.plan(code).codes) follow(c, record.get(), code, c.cells().Text(row, c.gridCol(code)));
        } catch (const std::exception&) {
            continue;  // nobody knows
        }
        const std::string text = lines.text(record.get(), column);
        if (c.cells().Text(row, col) != text) c.grid.SetCell(row, col, text);
    }
}
}  // namespace kxVsGrid::sheet

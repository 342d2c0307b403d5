#include "clerk/SortCommands.h"

#include <string>

#include "clerk/ColumnKind.h"
#include "clerk/SortedRows.h"
#include "columns/EditableColumn.h"
#include "editing/BringIntoView.h"

namespace kxVsGrid::clerk {

/// Row headers that merge say what rows belong together.
bool SortCommands::merges() const {
    const CellGrid& grid = c_.grid;
    if (grid.MergeCells() != flexMergeFixedOnly) return false;
    for (std::int32_t col = 0; col < grid.FixedCols(); ++col)
        if (grid.MergeCol(col)) return true;
    return false;
}

bool SortCommands::allowed(std::int32_t col) const {
    if (!c_.flags.Editable || !columns::isDataCell(c_.grid, c_.grid.Row(), col)) return false;
    const std::shared_ptr<const ColumnOptions> rules = c_.columns.rules(col);
    return rules && rules->sortable();
}

bool SortCommands::canSort(std::int32_t col) const {
    return allowed(col) && !merges();
}

std::string SortCommands::whyNot(std::int32_t col) const {
    return allowed(col) && merges() ? "行标题有合并的单元格，不能排序。" : "";
}

bool SortCommands::sort(std::int32_t col, bool down) {
    const std::vector<std::int32_t> from =
        sortedRows(c_.grid, c_.defaulted, col, kindOf(c_.columns.at(col)), down, c_.platform);
    entered_.sorting(from.size());
    return reorder("按" + c_.clerkColumns.nameOf(col) + (down ? "降序" : "升序"), from);
}

bool SortCommands::unsort() {
    return reorder(std::string(captionOf(Command::Unsort)), entered_.order());
}

bool SortCommands::reorder(const std::string& step, const std::vector<std::int32_t>& from) {
    c_.steps.during(step, Cause::Sort, [&] {
        c_.grid.Reorder(c_.grid.FixedRows(), from);
        c_.owner.changedData(true);
    });
    if (c_.host.there()) editing::bringCurrentCellIntoView(c_.grid);
    return true;
}
}  // namespace kxVsGrid::clerk

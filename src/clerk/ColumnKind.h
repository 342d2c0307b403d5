// What a column's texts are sorted as, and what the clerk calls the column.
#pragma once

#include <string>

#include "clerk/SortedRows.h"
#include "editing/InputForms.h"
#include "kxVsGrid/cVsControl.h"
#include "support/Text.h"

namespace kxVsGrid::clerk {

inline SortKind kindOf(const cVsControl& column) {
    if (column.iType() == flexDTDate || editing::dateFormOf(column)) return SortKind::Dates;
    return column.iType() == flexDTDouble || column.iType() == flexDTBoolean ? SortKind::Numbers
                                                                             : SortKind::Texts;
}

/// As the clerk knows it.
inline std::string nameOf(const CellGrid& grid, std::int32_t col, const cVsControl& column) {
    if (!column.sName().empty() || grid.FixedRows() == 0) return column.sName();
    return std::string(support::trim(grid.DisplayText(grid.FixedRows() - 1, col)));
}
}  // namespace kxVsGrid::clerk

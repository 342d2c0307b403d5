// What a column's texts are sorted as.
#pragma once

#include "clerk/SortedRows.h"
#include "editing/InputForms.h"
#include "kxVsGrid/cVsControl.h"

namespace kxVsGrid::clerk {

inline SortKind kindOf(const cVsControl& column) {
    if (column.iType() == flexDTDate || editing::dateFormOf(column)) return SortKind::Dates;
    return column.iType() == flexDTDouble || column.iType() == flexDTBoolean ? SortKind::Numbers
                                                                             : SortKind::Texts;
}
}  // namespace kxVsGrid::clerk

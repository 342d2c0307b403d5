// Makes the grid's columns from what the host has said of them.
#pragma once

#include "sheet/SheetContext.h"

namespace kxVsGrid::sheet {

void layOutColumns(const SheetContext& context);
/// Gives the column that stretches what the others leave of the control's width.
void fitStretched(const SheetContext& context);
}  // namespace kxVsGrid::sheet

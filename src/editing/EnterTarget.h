// Where Enter goes from a column once its value is committed.
#pragma once

#include "editing/EditingContext.h"

namespace kxVsGrid::editing {

/// Moves by the current column's `sCellInput`: empty or c the next editable cell, r one row down (one is
/// added after the last), else a target "row,column", taken back into the grid's bounds. A target that cannot
/// be read moves nothing.
void moveByEnterRule(const EditingContext& context);
}  // namespace kxVsGrid::editing

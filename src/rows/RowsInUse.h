// Where the lines of a sheet end: rows below are there to be keyed into.
#pragma once

#include <cstdint>

#include "host/ControlContext.h"
#include "rows/DefaultedCells.h"

namespace kxVsGrid::rows {

/// The last row in use from `first` on; the one before `first` when there is none. The host is asked about
/// each row from the last one up, until one is in use (GridOptions::RowInUse).
std::int32_t lastRowInUse(const host::ControlContext& context, const DefaultedCells& defaulted,
                          std::int32_t first);
}  // namespace kxVsGrid::rows

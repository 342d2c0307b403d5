// Where the lines of a sheet end: rows below are there to be keyed into.
#pragma once

#include <cstdint>

#include "columns/ColumnArray.h"
#include "host/Host.h"
#include "kxVsGrid/CellGrid.h"
#include "kxVsGrid/Options.h"
#include "rows/DefaultedCells.h"

namespace kxVsGrid::rows {

/// Whose rows they are.
struct Sheet {
    CellGrid& grid;
    columns::ColumnArray& columns;
    const host::Host& host;
    const GridOptions& options;
    const DefaultedCells& defaulted;
};

/// The last row in use from `first` on; the one before `first` when there is none. The host is asked about
/// each row from the last one up, until one is in use (GridOptions::RowInUse).
std::int32_t lastRowInUse(const Sheet& sheet, std::int32_t first);
}  // namespace kxVsGrid::rows

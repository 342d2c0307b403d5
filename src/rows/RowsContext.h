// What the coming and going of rows works on.
#pragma once

#include "changes/Steps.h"
#include "columns/ColumnArray.h"
#include "editing/EditSession.h"
#include "host/ControlFlags.h"
#include "host/Host.h"
#include "kxVsGrid/CellGrid.h"
#include "kxVsGrid/Options.h"
#include "platform/Wheel.h"
#include "rows/DefaultedCells.h"
#include "totals/TotalRow.h"

namespace kxVsGrid::rows {

struct RowsContext {
    CellGrid& grid;
    columns::ColumnArray& columns;
    const host::Host& host;
    const host::ControlFlags& flags;
    const GridOptions& options;
    changes::Steps& steps;
    editing::EditSession& editor;
    totals::TotalRow& totals;
    const platform::Wheel& wheel;
    DefaultedCells& defaulted;
};
}  // namespace kxVsGrid::rows

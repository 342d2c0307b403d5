// What the clerk's keys and presses work on.
#pragma once

#include "changes/Steps.h"
#include "columns/ColumnArray.h"
#include "editing/EditSession.h"
#include "host/ControlFlags.h"
#include "host/Host.h"
#include "kxVsGrid/CellGrid.h"
#include "kxVsGrid/Options.h"
#include "kxVsGrid/Platform.h"
#include "rows/Rows.h"
#include "totals/TotalRow.h"

namespace kxVsGrid::grid {

struct InputContext {
    CellGrid& grid;
    columns::ColumnArray& columns;
    const host::Host& host;
    const host::ControlFlags& flags;
    const GridOptions& options;
    changes::Steps& steps;
    editing::EditSession& editor;
    rows::Rows& rows;
    totals::TotalRow& totals;
    Seat& seat;
    Platform& platform;
};
}  // namespace kxVsGrid::grid

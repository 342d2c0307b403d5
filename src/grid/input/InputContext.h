// What the handlers of the grid's events work on.
#pragma once

#include "editing/EditSession.h"
#include "host/ControlFlags.h"
#include "grid/Layout.h"
#include "totals/TotalRow.h"
#include "grid/input/Wheel.h"
#include "columns/ColumnArray.h"
#include "rows/DefaultedCells.h"
#include "host/Host.h"
#include "grid/input/MoveFlags.h"
#include "kxVsGrid/CellGrid.h"
#include "kxVsGrid/Options.h"
#include "kxVsGrid/Platform.h"

namespace kxVsGrid::events {

struct Context {
    CellGrid& grid;
    CellGrid& sums;
    columns::ColumnArray& columns;
    const Host& host;
    MoveFlags& moves;
    grid::ControlFlags& flags;
    editing::Editor& editor;
    grid::TotalRow& totals;
    Seat& seat;
    Platform& platform;
    const grid::Layout& layout;
    const grid::Wheel& wheel;
    const GridOptions& options;
    DefaultedCells& defaulted;
};
}  // namespace kxVsGrid::events

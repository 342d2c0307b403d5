// What the handlers of the grid's events work on.
#pragma once

#include "editing/Editor.h"
#include "grid/ControlFlags.h"
#include "grid/Layout.h"
#include "grid/TotalRow.h"
#include "grid/Wheel.h"
#include "grid/columns/ColumnArray.h"
#include "grid/events/DefaultedCells.h"
#include "grid/events/FollowedRow.h"
#include "grid/events/Host.h"
#include "grid/events/MoveFlags.h"
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
    RowFollower& follower;  ///< of the main grid's rows
};
}  // namespace kxVsGrid::events

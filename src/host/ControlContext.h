// What every room of the control works on.
#pragma once

#include "changes/Steps.h"
#include "columns/ColumnArray.h"
#include "host/ControlFlags.h"
#include "host/Host.h"
#include "kxVsGrid/CellGrid.h"
#include "kxVsGrid/Options.h"

namespace kxVsGrid::host {

struct ControlContext {
    CellGrid& grid;
    columns::ColumnArray& columns;
    const Host& host;
    const ControlFlags& flags;
    const GridOptions& options;
    changes::Steps& steps;
};
}  // namespace kxVsGrid::host

// The members of the control in the order of its interface: how each is read and put by name, and how the
// stored ones are stored and loaded.
#pragma once

#include <vector>

#include "grid/Layout.h"
#include "host/ControlFlags.h"
#include "kxVsGrid/kxGrid.h"
#include "support/PropertyTable.h"

namespace kxVsGrid::grid {

/// What loading writes into, past the members: nothing is reported, no rows are added, no totals made.
struct Loaded {
    CellGrid& main;
    CellGrid& sums;
    host::ControlFlags& flags;
    Layout& layout;
};

using GridProperty = support::Property<kxGrid, kxGrid, Loaded>;

const std::vector<GridProperty>& gridProperties();
}  // namespace kxVsGrid::grid

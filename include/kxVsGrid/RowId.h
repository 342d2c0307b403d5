// Who a row of a grid is, wherever it goes: CellGrid::IdOf and RowOf.
#pragma once

#include <cstdint>

namespace kxVsGrid {

/// Means something in the grid that gave it, and only there. Not stored: another run of the program gives
/// other ids.
enum class RowId : std::uint64_t { None = 0 };
}  // namespace kxVsGrid

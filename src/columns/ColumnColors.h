// Colours that columns give their data cells.
#pragma once

#include <cstdint>

#include "columns/ColumnArray.h"
#include "kxVsGrid/CellGrid.h"

namespace kxVsGrid::columns {

/// Paints all data cells of each column that has colours of its own.
void paintColumns(CellGrid& grid, ColumnArray& columns);
/// The same for the cells of one row.
void paintRow(CellGrid& grid, ColumnArray& columns, std::int32_t row);
/// A colour value held in a double, modulo 2^32: system colours may come as negative numbers. Not a number is
/// 0.
std::uint32_t colorOf(double value);
}  // namespace kxVsGrid::columns

#include "columns/ColumnColors.h"

#include <cmath>

namespace kxVsGrid::columns {

std::uint32_t colorOf(double value) {
    if (!std::isfinite(value)) return 0;
    const double modulus = 4294967296.0;
    double rest = std::fmod(std::nearbyint(value), modulus);
    if (rest < 0) rest += modulus;
    return static_cast<std::uint32_t>(rest);
}

void paintColumns(CellGrid& grid, ColumnArray& columns) {
    for (std::int32_t c = 0; c < grid.Cols(); ++c) {
        const cVsControl& column = columns.at(c);
        if (!column.b是否设列颜色() || grid.Rows() <= grid.FixedRows()) continue;
        grid.PaintColumn(c, grid.FixedRows(), grid.Rows() - 1, colorOf(column.d列前景色()),
                         colorOf(column.d列背景色()));
    }
}

void paintRow(CellGrid& grid, ColumnArray& columns, std::int32_t row) {
    for (std::int32_t c = 0; c < grid.Cols(); ++c) {
        const cVsControl& column = columns.at(c);
        if (!column.b是否设列颜色()) continue;
        grid.PaintColumn(c, row, row, colorOf(column.d列前景色()), colorOf(column.d列背景色()));
    }
}
}  // namespace kxVsGrid::columns

#include "grid/SetUp.h"

#include "columns/ColumnColors.h"

namespace kxVsGrid::grid {
namespace {

constexpr std::int32_t FixedRowHeight = 300;
constexpr std::int32_t PaintingOff = 0;
constexpr std::int32_t PaintingBuffered = 2;

void applyDefinitions(CellGrid& grid, columns::ColumnArray& columns, const columns::ClerkColumns* clerks) {
    for (std::int32_t c = 0; c < grid.Cols(); ++c) grid.ColDataType(c, columns.at(c).iType());
    for (std::int32_t c = 0; c < grid.Cols(); ++c) grid.ColAlignment(c, columns.at(c).iColAlignment());
    for (std::int32_t c = 0; c < grid.Cols(); ++c)
        grid.ColHidden(c, !columns.at(c).bIsVisible() || (clerks && clerks->hides(c)));
}

void setUp(CellGrid& grid, columns::ColumnArray& columns, const columns::ClerkColumns* clerks,
           totals::TotalRow& totals) {
    grid.Redraw(PaintingOff);
    columns.resize(grid.Cols());  // there was no memory for it when the number was put
    for (std::int32_t c = 0; c < grid.Cols(); ++c) grid.FixedAlignment(c, flexAlignCenterCenter);
    for (std::int32_t r = 0; r < grid.FixedRows(); ++r) grid.RowHeight(r, FixedRowHeight);
    applyDefinitions(grid, columns, clerks);
    if (grid.Rows() > grid.FixedRows()) columns::paintColumns(grid, columns);
    grid.Redraw(PaintingBuffered);
    totals.setUp();
}
}  // namespace

void setUpGrid(CellGrid& grid, columns::ColumnArray& columns, const columns::ClerkColumns* clerks,
               totals::TotalRow& totals) {
    try {
        setUp(grid, columns, clerks, totals);
    } catch (...) {
        // The host asked for a set-up, not for an answer: it goes on with the state that was reached.
    }
}
}  // namespace kxVsGrid::grid

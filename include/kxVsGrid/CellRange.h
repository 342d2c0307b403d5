// What is selected of a grid, and what is in it.
#pragma once

#include <cstdint>

namespace kxVsGrid {

/// A rectangle of cells: rows and columns from the first to the last one, both included. An empty one has
/// neither.
struct CellRange {
    std::int32_t firstRow = 0;
    std::int32_t firstCol = 0;
    std::int32_t lastRow = -1;
    std::int32_t lastCol = -1;

    bool empty() const { return lastRow < firstRow || lastCol < firstCol; }
    std::int32_t rows() const { return empty() ? 0 : lastRow - firstRow + 1; }
    std::int32_t cols() const { return empty() ? 0 : lastCol - firstCol + 1; }
    bool contains(std::int32_t row, std::int32_t col) const {
        return row >= firstRow && row <= lastRow && col >= firstCol && col <= lastCol;
    }
    friend bool operator==(const CellRange&, const CellRange&) = default;
};

/// What cells were selected as: a whole row has the columns that come later, too.
enum class SelectionKind : std::uint8_t {
    Cells,
    Rows,     ///< whole rows
    Columns,  ///< whole columns
    All,      ///< all data cells
};

/// What CellGrid::Summary tells of a range. Cells that are not shown count in nothing.
struct RangeSummary {
    std::int64_t filled = 0;   ///< cells with a text
    std::int64_t numbers = 0;  ///< those of them that hold a number; the rest is about these
    double sum = 0;
    double average = 0;  ///< 0 without numbers, as are the next two
    double smallest = 0;
    double largest = 0;
};
}  // namespace kxVsGrid

#include "cellgrid/Selection.h"

#include <algorithm>

namespace kxVsGrid::cellgrid {

void Ends::inserted(std::int32_t position, std::int32_t n) {
    if (anchor >= position) anchor += n;
    if (corner >= position) corner += n;
}

bool Ends::removed(std::int32_t position) {
    if (anchor == position && corner == position) return false;
    std::int32_t& lower = anchor < corner ? anchor : corner;
    std::int32_t& upper = anchor < corner ? corner : anchor;
    if (lower > position) --lower;
    if (upper >= position) --upper;
    return true;
}

bool Ends::limit(std::int32_t first, std::int32_t count) {
    if (high() < first || low() >= count || first >= count) return false;
    anchor = std::clamp(anchor, first, count - 1);
    corner = std::clamp(corner, first, count - 1);
    return true;
}

Selection Selection::to(std::int32_t row, std::int32_t col) const {
    Selection moved = *this;
    if (hasRowEnds()) moved.rows.corner = row;
    if (hasColEnds()) moved.cols.corner = col;
    return moved;
}

Difference::Difference(const CellRange& of, const CellRange& without) {
    const CellRange both{std::max(of.firstRow, without.firstRow), std::max(of.firstCol, without.firstCol),
                         std::min(of.lastRow, without.lastRow), std::min(of.lastCol, without.lastCol)};
    if (both.empty()) {
        add(of);
        return;
    }
    add({of.firstRow, of.firstCol, both.firstRow - 1, of.lastCol});
    add({both.firstRow, of.firstCol, both.lastRow, both.firstCol - 1});
    add({both.firstRow, both.lastCol + 1, both.lastRow, of.lastCol});
    add({both.lastRow + 1, of.firstCol, of.lastRow, of.lastCol});
}
}  // namespace kxVsGrid::cellgrid

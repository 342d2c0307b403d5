// Which cells are selected beside the current one: two opposite corners, and what they were taken as. Pure
// numbers: nothing is raised or painted here.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include "kxVsGrid/CellRange.h"

namespace kxVsGrid::cellgrid {

/// The two ends of a selection in one direction, in either order.
struct Ends {
    std::int32_t anchor = -1;
    std::int32_t corner = -1;

    std::int32_t low() const { return anchor < corner ? anchor : corner; }
    std::int32_t high() const { return anchor < corner ? corner : anchor; }
    /// Both go along with what was inserted before or at them.
    void inserted(std::int32_t position, std::int32_t n);
    /// What lies between them goes on doing so. False when that was the one removed: nothing is left.
    bool removed(std::int32_t position);
    /// Only what lies in [first, count) is left. False when nothing is.
    bool limit(std::int32_t first, std::int32_t count);
    friend bool operator==(const Ends&, const Ends&) = default;
};

/// None: the current cell alone. Whole rows have no ends among the columns, whole columns none among the
/// rows; they reach from the fixed area to the end, wherever that is.
struct Selection {
    bool any = false;
    SelectionKind kind = SelectionKind::Cells;
    Ends rows;
    Ends cols;

    bool hasRowEnds() const { return kind == SelectionKind::Cells || kind == SelectionKind::Rows; }
    bool hasColEnds() const { return kind == SelectionKind::Cells || kind == SelectionKind::Columns; }
    /// The same with another corner, as far as the kind has one.
    Selection to(std::int32_t row, std::int32_t col) const;
    friend bool operator==(const Selection&, const Selection&) = default;

    static Selection ofCells(Ends rows, Ends cols) { return {true, SelectionKind::Cells, rows, cols}; }
    static Selection ofRows(Ends rows) { return {true, SelectionKind::Rows, rows, {}}; }
    static Selection ofCols(Ends cols) { return {true, SelectionKind::Columns, {}, cols}; }
    static Selection ofAll() { return {true, SelectionKind::All, {}, {}}; }
};

/// What a range has that another one has not: up to four ranges that do not overlap.
class Difference {
  public:
    Difference(const CellRange& of, const CellRange& without);
    const CellRange* begin() const { return parts_.data(); }
    const CellRange* end() const { return parts_.data() + count_; }

  private:
    void add(const CellRange& part) {
        if (!part.empty()) parts_[count_++] = part;
    }

    std::array<CellRange, 4> parts_;
    std::size_t count_ = 0;
};
}  // namespace kxVsGrid::cellgrid

// Rows come with the host's consent only.
#pragma once

#include <cstdint>

#include "grid/events/Context.h"
#include "grid/events/FollowedRow.h"

namespace kxVsGrid::events {

class Navigation;

class RowAdder {
  public:
    static constexpr std::int32_t NewRowHeight = 300;
    /// An emptied grid keeps this many data rows to key into.
    static constexpr std::int32_t FewestDataRows = 5;

    RowAdder(const Context& context, Navigation& navigation) : c_(context), navigation_(navigation) {}

    /// The row commands' way: inserts a row at `position` (Rows() is after the last row) unless the host
    /// refuses, makes it current, and fills it with default texts or with a copy of the row that was current.
    /// A copy stays only when the host confirms it.
    void addRow(std::int32_t position, bool withDefaults, bool copyData);

    /// While the clerk types: appends a row when `row` is the last one and the host consents. The current
    /// cell stays.
    void appendIfLast(std::int32_t row);

    /// One empty row after the last one, with the columns' colours.
    void appendEmptyRow();
    /// Empty rows at the end until there are enough to key into.
    void refill();

  private:
    std::int32_t insertRow(std::int32_t position);
    void copyRow(const FollowedRow& from, const FollowedRow& to);
    void copyCell(const FollowedRow& from, const FollowedRow& to, std::int32_t col);
    void emptyRow(const FollowedRow& row);

    Context c_;
    Navigation& navigation_;
};
}  // namespace kxVsGrid::events

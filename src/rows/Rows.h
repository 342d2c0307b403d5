// The rows of the control: they come and go here, whoever asks for it. What a clerk asks for needs the host's
// consent.
#pragma once

#include <cstdint>

#include "rows/FollowedRow.h"
#include "rows/RowsContext.h"

namespace kxVsGrid::rows {

class Rows {
  public:
    explicit Rows(const RowsContext& context) : c_(context) {}

    /// The row commands' way: inserts a row at `position` (Rows() is after the last row) unless the host
    /// refuses, makes it current, and fills it with default texts or with a copy of the row that was current.
    /// A copy stays only when the host confirms it.
    void add(std::int32_t position, bool withDefaults, bool copyData);
    /// The key's way: a row at the end becomes the current one.
    void append();
    /// While the clerk types: appends a row when `row` is the last one and the host consents. The current
    /// cell stays.
    void appendIfLast(std::int32_t row);
    /// Removes the row that is current when the host has consented. There are always enough left to key into.
    void removeCurrent();
    /// Asks the host whether a row may go.
    bool mayRemove(std::int32_t row);
    /// Removes a row that may go.
    void remove(std::int32_t row);
    /// The host's way: so many rows, the fixed ones included, and enough to key into. When a handler fails
    /// over the loss of rows, the others are there all the same before that is thrown on.
    void count(std::int32_t rows);
    /// Others have put rows of their own into the grid, numbered as they are.
    void replaced();

    /// The cursor has entered the row: it gets its default texts, and the totals are made anew.
    void entered(std::int32_t row);

    /// Hears what becomes of the rows, so that a row under way stays the one it is.
    RowFollower& follower() { return follower_; }

  private:
    void addInStep(std::int32_t position, bool withDefaults, bool copyData);
    void removeInStep(const FollowedRow& row);
    std::int32_t insert(std::int32_t position);
    void appendEmpty() { insert(c_.grid.Rows()); }
    void show(std::int32_t row);
    bool refill();
    void follow();
    void copy(const FollowedRow& from, const FollowedRow& to);
    void copyCell(const FollowedRow& from, const FollowedRow& to, std::int32_t col);
    void empty(const FollowedRow& row);

    RowsContext c_;
    RowFollower follower_;
    bool AutoDefault_ = true;  ///< entered rows receive the columns' default texts
};
}  // namespace kxVsGrid::rows

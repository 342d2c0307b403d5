// Rows that a routine works on across events: what a host inserts or removes meanwhile makes them no other
// rows.
#pragma once

#include <algorithm>
#include <cstdint>
#include <span>
#include <vector>

#include "support/Reordering.h"

namespace kxVsGrid::rows {

class FollowedRow;

/// The rows that are being followed in one grid, which tells here what happens to its rows.
class RowFollower {
  public:
    void rowInserted(std::int32_t position);
    void rowRemoved(std::int32_t position);
    void rowsReordered(std::int32_t first, std::span<const std::int32_t> from);
    /// There are only so many rows any more.
    void rowsLimited(std::int32_t count);

  private:
    friend class FollowedRow;
    std::vector<FollowedRow*> followed_;
};

class FollowedRow {
  public:
    FollowedRow(RowFollower& follower, std::int32_t row) : follower_(follower), row_(row) {
        follower_.followed_.push_back(this);
    }
    ~FollowedRow() { std::erase(follower_.followed_, this); }
    FollowedRow(const FollowedRow&) = delete;
    FollowedRow& operator=(const FollowedRow&) = delete;

    bool there() const { return there_; }
    /// Where it is; where it was last, when it is gone.
    std::int32_t row() const { return row_; }

  private:
    friend class RowFollower;
    RowFollower& follower_;
    std::int32_t row_;
    bool there_ = true;
};

inline void RowFollower::rowInserted(std::int32_t position) {
    for (FollowedRow* const one : followed_)
        if (one->there_ && one->row_ >= position) ++one->row_;
}

inline void RowFollower::rowRemoved(std::int32_t position) {
    for (FollowedRow* const one : followed_) {
        if (one->row_ == position) one->there_ = false;
        if (one->there_ && one->row_ > position) --one->row_;
    }
}

inline void RowFollower::rowsReordered(std::int32_t first, std::span<const std::int32_t> from) {
    for (FollowedRow* const one : followed_)
        if (one->there_) one->row_ = support::placeAfter(one->row_, first, from);
}

inline void RowFollower::rowsLimited(std::int32_t count) {
    for (FollowedRow* const one : followed_)
        if (one->row_ >= count) one->there_ = false;
}
}  // namespace kxVsGrid::rows

// How far down a grid's rows have been given to a draft, while rows come and go.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>

namespace kxVsGrid::changes {

class DraftFrontier {
  public:
    void start(std::int32_t row) { row_ = row; }
    /// The first row that has not been given.
    std::int32_t row() const { return row_; }
    void passed(std::int32_t row) { row_ = row; }

    void added(std::int32_t at, std::int32_t count) {
        if (at < row_) row_ += count;
    }
    /// Rows that were not given may have come before it: all from there on are given once more.
    void reordered(std::int32_t first, std::size_t count) {
        if (first < row_ && static_cast<std::size_t>(row_ - first) < count) row_ = first;
    }
    void removing(std::int32_t at, std::int32_t count) { row_ -= std::clamp(row_ - at, 0, count); }

  private:
    std::int32_t row_ = 0;
};
}  // namespace kxVsGrid::changes

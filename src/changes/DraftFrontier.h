// How far down a grid's rows have been given to a draft, while rows come and go.
#pragma once

#include <algorithm>
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
    void removing(std::int32_t at, std::int32_t count) { row_ -= std::clamp(row_ - at, 0, count); }

  private:
    std::int32_t row_ = 0;
};
}  // namespace kxVsGrid::changes

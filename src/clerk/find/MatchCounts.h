// How many matches there are in each stretch of rows, as far as somebody has looked: small beside the matches
// themselves, and of a change only the stretches that it touches have to be looked through again.
#pragma once

#include <algorithm>
#include <cstdint>
#include <limits>
#include <vector>

namespace kxVsGrid::clerk {

class MatchCounts {
  public:
    /// Rows of each stretch; forgets everything.
    void begin(std::int32_t stretchRows) {
        stretchRows_ = stretchRows;
        counts_.clear();
        known_ = 0;
        total_ = 0;
        next_ = 0;
    }
    /// As many stretches as the rows take.
    void fit(std::int32_t rows) {
        const auto count = static_cast<std::size_t>((std::int64_t{rows} + stretchRows_ - 1) / stretchRows_);
        for (std::size_t i = count; i < counts_.size(); ++i) forget(i);
        counts_.resize(count, Unknown);
    }

    std::int32_t stretches() const { return static_cast<std::int32_t>(counts_.size()); }
    std::int32_t stretchRows() const { return stretchRows_; }
    std::int32_t stretchOf(std::int32_t row) const { return row / stretchRows_; }
    bool complete() const { return known_ == counts_.size(); }
    /// In the stretches that are known.
    std::int64_t total() const { return total_; }
    bool knownEmpty(std::int32_t stretch) const { return counts_[static_cast<std::size_t>(stretch)] == 0; }

    void put(std::int32_t stretch, std::size_t count) {
        const auto at = static_cast<std::size_t>(stretch);
        if (at >= counts_.size()) return;
        forget(at);
        counts_[at] = static_cast<std::uint32_t>(count);
        ++known_;
        total_ += static_cast<std::int64_t>(count);
    }
    /// One that nobody has looked through; -1 for none.
    std::int32_t unknown() {
        if (complete()) return -1;
        for (std::size_t tried = 0; tried <= counts_.size(); ++tried, ++next_) {
            if (next_ >= counts_.size()) next_ = 0;
            if (counts_[next_] == Unknown) return static_cast<std::int32_t>(next_);
        }
        return -1;
    }
    /// In the stretches before one of them; -1 where not all of them are known.
    std::int64_t before(std::int32_t stretch) const {
        std::int64_t sum = 0;
        for (std::size_t i = 0; i < static_cast<std::size_t>(stretch) && i < counts_.size(); ++i) {
            if (counts_[i] == Unknown) return -1;
            sum += counts_[i];
        }
        return sum;
    }

    void forgetRows(std::int32_t first, std::int32_t last) {
        const std::int64_t end = std::min<std::int64_t>(std::int64_t{last} / stretchRows_ + 1, stretches());
        for (std::int64_t i = first / stretchRows_; i < end; ++i) forget(static_cast<std::size_t>(i));
    }
    void forgetFrom(std::int32_t row) { forgetRows(row, std::numeric_limits<std::int32_t>::max()); }

  private:
    static constexpr std::uint32_t Unknown = 0xFFFF'FFFF;

    void forget(std::size_t at) {
        if (counts_[at] == Unknown) return;
        total_ -= counts_[at];
        --known_;
        counts_[at] = Unknown;
    }

    std::vector<std::uint32_t> counts_;
    std::size_t known_ = 0;
    std::size_t next_ = 0;
    std::int64_t total_ = 0;
    std::int32_t stretchRows_ = 1;
};
}  // namespace kxVsGrid::clerk

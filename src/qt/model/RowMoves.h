// What has become of the rows of a table since somebody was told last: which came, which went, which changed places.
#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <span>
#include <vector>

namespace kxVsGrid::qt {

class RowMoves {
  public:
    struct Move {
        enum class Kind { Insert, Remove, Reorder };
        Kind kind;
        std::int32_t at;
        std::int32_t count;
        std::vector<std::int32_t> to = {};    ///< of a Reorder: where row at + i has gone
        std::vector<std::int32_t> from = {};  ///< and which one stands at at + i

        /// Where a row stands afterwards; -1 when it has gone.
        std::int32_t place(std::int32_t row) const;
        /// Where a row stood before; -1 when it was not there.
        std::int32_t origin(std::int32_t row) const;
    };

    bool empty() const { return moves_.empty(); }
    /// More than one can go through for each cell that is looked at.
    bool tooMany() const { return moves_.size() > 64; }

    void inserted(std::int32_t at, std::int32_t count);
    void removed(std::int32_t at, std::int32_t count);
    /// `from` says which row, by its old place, stands at each place from `first` on.
    void reordered(std::int32_t first, std::span<const std::int32_t> from);
    void forget() { moves_.clear(); }

    const Move& front() const { return moves_.front(); }
    /// Nothing joins the first one any more: it is being told.
    void hold() { held_ = true; }
    void pop();

    /// Where a row of before all these stands now; -1 when it has gone.
    std::int32_t place(std::int32_t row) const;
    /// Where a row of now stood before all these; -1 when it was not there.
    std::int32_t origin(std::int32_t row) const;

  private:
    Move* joinable();

    std::deque<Move> moves_;
    bool held_ = false;
};
}  // namespace kxVsGrid::qt

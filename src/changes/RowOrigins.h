// Where the rows stood before a step in which some of them changed places.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

namespace kxVsGrid::changes {

/// Told of what becomes of the rows, in order. Rows that only come and go cost an entry each; the first change of
/// places costs a number for every row there is, and so does each row that comes or goes after it.
class RowOrigins {
  public:
    static constexpr std::int32_t New = -1;

    /// Rows that are not followed from the beginning on are lost with the first change of places: who begins to
    /// listen later is not told of what came before.
    void begin(bool followed) noexcept;
    void added(std::int32_t at, std::int32_t count) noexcept;
    void removed(std::int32_t at, std::int32_t count) noexcept;
    /// `rows` is how many the grid has.
    void reordered(std::int32_t rows, std::int32_t first, std::span<const std::int32_t> from) noexcept;

    /// For each row the place that it had at the beginning, or New. Empty when none has changed places.
    std::span<const std::int32_t> from() const { return from_; }
    /// They have changed places, and nobody has followed them, or memory did not suffice for it.
    bool lost() const { return lost_; }

  private:
    /// Rows that came, or went where the count is negative.
    struct Move {
        std::int32_t at;
        std::int32_t count;
    };
    void move(Move move) noexcept;
    static bool joins(Move& last, const Move& next);
    void follow(std::int32_t rows);
    void carryOut(const Move& move);
    template <class Work>
    void unlessLost(Work work) noexcept;

    std::vector<Move> before_;  ///< those before the first change of places
    std::vector<std::int32_t> from_;
    bool followed_ = false;
    bool lost_ = false;
};
}  // namespace kxVsGrid::changes

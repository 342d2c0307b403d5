#include "changes/RowOrigins.h"

#include <algorithm>
#include <numeric>

namespace kxVsGrid::changes {

void RowOrigins::begin(bool followed) noexcept {
    before_.clear();
    from_ = {};
    lost_ = false;
    followed_ = followed;
}

template <class Work>
void RowOrigins::unlessLost(Work work) noexcept {
    if (lost_) return;
    try {
        work();
    } catch (...) {
        begin(followed_);
        lost_ = true;
    }
}

void RowOrigins::added(std::int32_t at, std::int32_t count) noexcept {
    move({at, count});
}

void RowOrigins::removed(std::int32_t at, std::int32_t count) noexcept {
    move({at, -count});
}

void RowOrigins::move(Move move) noexcept {
    if (!followed_) return;
    unlessLost([&] {
        if (!from_.empty()) return carryOut(move);
        if (before_.empty() || !joins(before_.back(), move)) before_.push_back(move);
    });
}

/// Rows that are appended one by one, or removed from the same place or one above the other, are one move.
bool RowOrigins::joins(Move& last, const Move& next) {
    const bool appended = last.count > 0 && next.count > 0 && next.at == last.at + last.count;
    const bool removed =
        last.count < 0 && next.count < 0 && (next.at == last.at || next.at - next.count == last.at);
    if (!appended && !removed) return false;
    if (removed) last.at = next.at;
    last.count += next.count;
    return true;
}

void RowOrigins::carryOut(const Move& move) {
    const auto at = from_.begin() + move.at;
    if (move.count > 0)
        from_.insert(at, static_cast<std::size_t>(move.count), New);
    else
        from_.erase(at, at - move.count);
}

/// `rows` are there after the moves.
void RowOrigins::follow(std::int32_t rows) {
    std::int32_t first = rows;
    for (const Move& move : before_) first -= move.count;
    from_.resize(static_cast<std::size_t>(first));
    std::iota(from_.begin(), from_.end(), 0);
    for (const Move& move : before_) carryOut(move);
    before_.clear();
}

void RowOrigins::reordered(std::int32_t rows, std::int32_t first,
                           std::span<const std::int32_t> from) noexcept {
    lost_ = lost_ || !followed_;
    unlessLost([&] {
        if (from_.empty()) follow(rows);
        std::vector<std::int32_t> origins(from.size());
        for (std::size_t i = 0; i < from.size(); ++i) origins[i] = from_[static_cast<std::size_t>(from[i])];
        std::copy(origins.begin(), origins.end(), from_.begin() + first);
    });
}
}  // namespace kxVsGrid::changes

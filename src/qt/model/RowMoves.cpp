#include "qt/model/RowMoves.h"

namespace kxVsGrid::qt {

std::int32_t RowMoves::Move::place(std::int32_t row) const {
    if (row < at) return row;
    switch (kind) {
        case Kind::Insert:
            return row + count;
        case Kind::Remove:
            return row < at + count ? -1 : row - count;
        default:
            return row < at + count ? to[static_cast<std::size_t>(row - at)] : row;
    }
}

std::int32_t RowMoves::Move::origin(std::int32_t row) const {
    if (row < at) return row;
    switch (kind) {
        case Kind::Insert:
            return row < at + count ? -1 : row - count;
        case Kind::Remove:
            return row + count;
        default:
            return row < at + count ? from[static_cast<std::size_t>(row - at)] : row;
    }
}

RowMoves::Move* RowMoves::joinable() {
    return moves_.empty() || (held_ && moves_.size() == 1) ? nullptr : &moves_.back();
}

void RowMoves::inserted(std::int32_t at, std::int32_t count) {
    Move* const last = joinable();
    const bool joins =
        last && last->kind == Move::Kind::Insert && at >= last->at && at <= last->at + last->count;
    if (joins)
        last->count += count;
    else
        moves_.push_back({Move::Kind::Insert, at, count});
}

void RowMoves::removed(std::int32_t at, std::int32_t count) {
    Move* const last = joinable();
    if (last && last->kind == Move::Kind::Remove && at <= last->at && at + count >= last->at) {
        last->at = at;
        last->count += count;
    } else {
        moves_.push_back({Move::Kind::Remove, at, count});
    }
}

void RowMoves::reordered(std::int32_t first, std::span<const std::int32_t> from) {
    Move move{Move::Kind::Reorder, first, static_cast<std::int32_t>(from.size())};
    move.from.assign(from.begin(), from.end());
    move.to.resize(from.size());
    for (std::size_t i = 0; i < from.size(); ++i)
        move.to[static_cast<std::size_t>(from[i] - first)] = first + static_cast<std::int32_t>(i);
    moves_.push_back(std::move(move));
}

void RowMoves::pop() {
    moves_.pop_front();
    held_ = false;
}

std::int32_t RowMoves::place(std::int32_t row) const {
    for (const Move& move : moves_)
        if (row >= 0) row = move.place(row);
    return row;
}

std::int32_t RowMoves::origin(std::int32_t row) const {
    for (auto move = moves_.rbegin(); move != moves_.rend() && row >= 0; ++move) row = move->origin(row);
    return row;
}
}  // namespace kxVsGrid::qt

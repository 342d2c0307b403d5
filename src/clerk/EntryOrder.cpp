#include "clerk/EntryOrder.h"

#include <algorithm>
#include <limits>
#include <new>
#include <numeric>

namespace kxVsGrid::clerk {
namespace {

constexpr std::int32_t Later = std::numeric_limits<std::int32_t>::max();
}  // namespace

void EntryOrder::sorting(std::size_t rows) {
    if (first_ != grid_.FixedRows()) forget();
    first_ = grid_.FixedRows();
    keep(rows);
    sorting_ = true;
    if (listening_) return;
    grid_.AddListener(*this);
    listening_ = true;
}

void EntryOrder::keep(std::size_t rows) {
    places_.reserve(rows);
    while (places_.size() < rows) places_.push_back(known_++);
}

std::vector<std::int32_t> EntryOrder::order() const {
    std::vector<std::int32_t> rows(places_.size());
    std::iota(rows.begin(), rows.end(), 0);
    std::stable_sort(rows.begin(), rows.end(), [this](std::int32_t a, std::int32_t b) {
        return places_[static_cast<std::size_t>(a)] < places_[static_cast<std::size_t>(b)];
    });
    for (std::int32_t& row : rows) row += first_;
    return rows;
}

void EntryOrder::forget() noexcept {
    if (listening_) grid_.RemoveListener(*this);
    listening_ = another_ = sorting_ = false;
    known_ = 0;
    places_ = {};
}

std::size_t EntryOrder::indexOf(std::int32_t row) const noexcept {
    return std::min(static_cast<std::size_t>(std::max(row - first_, 0)), places_.size());
}

/// Without the memory for it the old order is given up.
void EntryOrder::added(std::int32_t at, std::int32_t count) noexcept {
    if (at < first_) return forget();
    const std::size_t index = indexOf(at);
    if (index == places_.size()) return;
    try {
        places_.insert(places_.begin() + static_cast<std::ptrdiff_t>(index), static_cast<std::size_t>(count),
                       Later);
    } catch (const std::bad_alloc&) {
        forget();
    }
}

void EntryOrder::removing(std::int32_t at, std::int32_t count) noexcept {
    if (at < first_) return forget();
    places_.erase(places_.begin() + static_cast<std::ptrdiff_t>(indexOf(at)),
                  places_.begin() + static_cast<std::ptrdiff_t>(indexOf(at + count)));
}

void EntryOrder::stepOpened(std::string_view, Cause cause) noexcept {
    goingBack_ = cause == Cause::Undo;
}

void EntryOrder::stepClosed(std::string_view, Cause) noexcept {
    goingBack_ = false;
}

void EntryOrder::reordered(std::int32_t first, std::span<const std::int32_t> from) noexcept {
    if (first < first_ || (!another_ && !goingBack_ && !sorting_)) return forget();
    sorting_ = false;
    try {
        const std::size_t begin = static_cast<std::size_t>(first - first_);
        keep(begin + from.size());
        const std::vector<std::int32_t> before = places_;
        for (std::size_t i = 0; i < from.size(); ++i)
            places_[begin + i] = before[static_cast<std::size_t>(from[i] - first_)];
        another_ = !std::is_sorted(places_.begin(), places_.end());
    } catch (const std::bad_alloc&) {
        forget();
    }
}
}  // namespace kxVsGrid::clerk

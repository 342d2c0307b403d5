#include "qt/model/RowMap.h"

#include <algorithm>

namespace kxVsGrid::qt {

int RowMap::rowOf(int modelRow) const {
    if (modelRow < 0 || modelRow >= modelRows_) return -1;
    if (stale_) {
        place_.assign(static_cast<std::size_t>(modelRows_), -1);
        for (int row = 0; row < rows(); ++row)
            if (at(row) >= 0) place_[static_cast<std::size_t>(at(row) & ~Missing)] = row;
        stale_ = false;
    }
    return place_[static_cast<std::size_t>(modelRow)];
}

int RowMap::missingIn(int row, int last) const {
    last = std::min(last, rows() - 1);
    for (row = std::max(0, row); missing_ > 0 && row <= last; ++row)
        if (at(row) >= Missing) return row;
    return -1;
}

bool RowMap::inOrder() const {
    std::int32_t last = -1;
    for (const std::int32_t value : model_) {
        if (value < 0) continue;
        if ((value & ~Missing) < last) return false;
        last = value & ~Missing;
    }
    return true;
}

int RowMap::lastBound() const {
    int row = rows() - 1;
    while (row >= 0 && at(row) < 0) --row;
    return row;
}

// --- The grid's rows

void RowMap::begin(int rows) {
    model_.assign(static_cast<std::size_t>(rows), -1);
    missing_ = 0;
    forgetPlaces();
}

/// Rows that come before none but loose ones move nothing that has a place.
void RowMap::inserted(int row, int count) {
    if (row <= lastBound()) forgetPlaces();
    model_.insert(model_.begin() + row, static_cast<std::size_t>(count), -1);
}

void RowMap::removed(int row, int count) {
    if (row <= lastBound()) forgetPlaces();
    const auto first = model_.begin() + row;
    missing_ -=
        static_cast<int>(std::count_if(first, first + count, [](auto value) { return value >= Missing; }));
    model_.erase(first, first + count);
}

void RowMap::reordered(int first, std::span<const std::int32_t> from, std::int32_t base) {
    std::vector<std::int32_t> moved(from.size());
    for (std::size_t i = 0; i < from.size(); ++i) moved[i] = at(from[i] - base);
    std::copy(moved.begin(), moved.end(), model_.begin() + first);
    forgetPlaces();
}

// --- What stands there

void RowMap::bind(int row, int modelRow, int count) {
    const int end = row + count;
    for (int last = modelRow; row < end; ++row, ++last) {
        at(row) = last | Missing;
        if (!stale_) place_[static_cast<std::size_t>(last)] = row;
    }
    missing_ += count;
}

void RowMap::release(int row) {
    if (modelRow(row) < 0) return;
    fetched(row);
    if (!stale_) place_[static_cast<std::size_t>(at(row))] = -1;
    at(row) = -1;
}

void RowMap::fetched(int row) {
    if (!isMissing(row)) return;
    at(row) &= ~Missing;
    --missing_;
}

void RowMap::lost(int row) {
    if (modelRow(row) < 0 || isMissing(row)) return;
    at(row) |= Missing;
    ++missing_;
}

void RowMap::allLost() {
    for (int row = 0; row < rows(); ++row) lost(row);
}

// --- The model's rows

void RowMap::modelBegin(int rows) {
    for (int row = 0; row < this->rows(); ++row) release(row);
    modelRows_ = rows;
    place_.assign(static_cast<std::size_t>(rows), -1);
    stale_ = false;
}

void RowMap::modelInserted(int first, int count) {
    if (first < modelRows_) {
        for (std::int32_t& value : model_)
            if (value >= 0 && (value & ~Missing) >= first) value += count;
        forgetPlaces();
    }
    modelRows_ += count;
    if (!stale_) place_.resize(static_cast<std::size_t>(modelRows_), -1);
}

void RowMap::modelRemoved(int first, int count) {
    for (int row = 0; row < rows(); ++row) {
        const int now = modelRow(row);
        if (now >= first + count)
            at(row) -= count;
        else if (now >= first)
            release(row);
    }
    modelRows_ -= count;
    forgetPlaces();
}

void RowMap::renumber(std::span<const int> numbers) {
    for (int row = 0; row < rows(); ++row) {
        const int before = modelRow(row);
        if (before < 0) continue;
        const int now = numbers[static_cast<std::size_t>(before)];
        if (now < 0)
            release(row);
        else
            at(row) = now | (at(row) & Missing);
    }
    forgetPlaces();
}
}  // namespace kxVsGrid::qt

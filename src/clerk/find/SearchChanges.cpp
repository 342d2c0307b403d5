// What is known of the matches when cells, rows or columns change.
#include <limits>

#include "clerk/find/Search.h"

namespace kxVsGrid::clerk {

void Search::listen() {
    if (listening_) return;
    listening_ = true;
    c_.grid.AddListener(*this);
    connections_.emplace_back(c_.grid.PlacesChanged.connect([this] { allChanged(); }));
    connections_.emplace_back(c_.grid.SizeChanged.connect([this] { allChanged(); }));
}

void Search::stopListening() {
    if (!listening_) return;
    listening_ = false;
    c_.grid.RemoveListener(*this);
    connections_.clear();
}

/// Once until it works again.
void Search::changed() {
    if (told_ || !underway_ || !onWork_) return;
    told_ = true;
    onWork_();
}

void Search::allChanged() {
    counts_.forgetFrom(0);
    changed();
}

void Search::written(std::int32_t row, std::int32_t, CellPart part, std::string_view,
                     std::string_view) noexcept {
    if (part != CellPart::Text) return;
    counts_.forgetRows(row, row);
    changed();
}

void Search::added(std::int32_t at, std::int32_t) noexcept {
    ++structure_;
    counts_.forgetFrom(at);
    changed();
}

void Search::removing(std::int32_t at, std::int32_t) noexcept {
    ++structure_;
    counts_.forgetFrom(at);
    changed();
}

void Search::reordered(std::int32_t first, std::span<const std::int32_t>) noexcept {
    ++structure_;
    ++reorderings_;
    counts_.forgetFrom(first);
    changed();
}

void Search::cleared(std::int32_t first, std::int32_t last) noexcept {
    counts_.forgetRows(first, last);
    changed();
}

void Search::columnsChanged() noexcept {
    ++structure_;
    allChanged();
}

void Search::shown(std::int32_t) noexcept {
    allChanged();
}
}  // namespace kxVsGrid::clerk

#include "clerk/ColumnTexts.h"

#include <utility>

#include "support/Numbers.h"

namespace kxVsGrid::clerk {
namespace {

std::string tickText(std::string_view stored) {
    return support::leadingNumber(stored) != 0 ? "是" : "否";
}
}  // namespace

std::string seenText(const CellGrid& grid, std::int32_t row, std::int32_t col) {
    if (grid.ColDataType(col) == flexDTBoolean) return tickText(grid.Text(row, col));
    return std::string(support::trim(grid.DisplayText(row, col)));
}

ColumnTexts::ColumnTexts(const CellGrid& grid, std::int32_t col) : grid_(grid), col_(col) {
    add(grid.ColDataType(col) == flexDTBoolean ? tickText({}) : std::string(), {});
}

std::uint32_t ColumnTexts::add(std::int32_t row) {
    return add(seenText(grid_, row, col_), grid_.Text(row, col_));
}

std::uint32_t ColumnTexts::add(std::string text, std::string stored) {
    const std::uint32_t number = numbers_.add(text);
    if (number < texts_.size()) return number;
    texts_.push_back(std::move(text));
    samples_.push_back(std::move(stored));
    return number;
}
}  // namespace kxVsGrid::clerk

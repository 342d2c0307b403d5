#include "grid/columns/CellTarget.h"

#include <charconv>

#include "support/Text.h"

namespace kxVsGrid::columns {
namespace {

std::optional<std::int64_t> resolvePart(std::string_view part, std::int32_t from) {
    part = support::trim(part);
    if (part.empty()) return from;
    const char sign = part.front();
    const bool relative = sign == '+' || sign == '-';
    const std::string_view digits = relative ? support::trim(part.substr(1)) : part;
    std::int32_t number = 0;
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), number);
    if (error != std::errc{} || end != digits.data() + digits.size() || number < 0) return std::nullopt;
    if (!relative) return number;
    return sign == '+' ? std::int64_t{from} + number : std::int64_t{from} - number;
}
}  // namespace

std::optional<CellTarget> resolveTarget(std::string_view text, std::int32_t row, std::int32_t col) {
    const std::size_t comma = text.find(',');
    if (comma == std::string_view::npos) return std::nullopt;
    const auto targetRow = resolvePart(text.substr(0, comma), row);
    const auto targetCol = resolvePart(text.substr(comma + 1), col);
    if (!targetRow || !targetCol) return std::nullopt;
    return CellTarget{*targetRow, *targetCol};
}
}  // namespace kxVsGrid::columns

#include "columns/CellTarget.h"

#include <charconv>

#include "support/Text.h"

namespace kxVsGrid::columns {
namespace {

bool hasSign(std::string_view part) {
    return !part.empty() && (part.front() == '+' || part.front() == '-');
}

std::optional<std::int64_t> resolvePart(std::string_view part, std::int32_t from) {
    if (part.empty()) return from;
    const bool relative = hasSign(part);
    const std::string_view digits = relative ? support::trim(part.substr(1)) : part;
    std::int32_t number = 0;
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), number);
    if (error != std::errc{} || end != digits.data() + digits.size() || number < 0) return std::nullopt;
    if (!relative) return number;
    return part.front() == '+' ? std::int64_t{from} + number : std::int64_t{from} - number;
}
}  // namespace

std::optional<CellTarget> resolveTarget(std::string_view text, std::int32_t row, std::int32_t col) {
    const std::size_t comma = text.find(',');
    if (comma == std::string_view::npos) return std::nullopt;
    const std::string_view rowPart = support::trim(text.substr(0, comma));
    const auto targetRow = resolvePart(rowPart, row);
    const auto targetCol = resolvePart(support::trim(text.substr(comma + 1)), col);
    if (!targetRow || !targetCol) return std::nullopt;
    return CellTarget{*targetRow, *targetCol, rowPart.empty() || hasSign(rowPart)};
}
}  // namespace kxVsGrid::columns

// The stored keys as others may read them: the stored rows of the two tables of properties, in their orders.
#include "kxVsGrid/StoredKeys.h"

#include <algorithm>
#include <charconv>
#include <vector>

#include "columns/ColumnProperties.h"
#include "grid/GridProperties.h"

namespace kxVsGrid {
namespace {

constexpr std::string_view ColumnPrefix = "SetVsControl";

template <class Row>
StoredKey keyOf(const Row& row) {
    const auto& s = *row.storage;
    return {s.asked, s.name, s.type, s.fallback, row.name, s.fallbackWritten};
}

template <class Rows>
std::vector<StoredKey> asRead(const Rows& rows) {
    std::vector<StoredKey> keys;
    const auto readings = support::inOrderOfReading(rows);
    keys.reserve(readings.size());
    for (const auto& reading : readings) keys.push_back(keyOf(*reading.row));
    return keys;
}

template <class Rows>
std::vector<StoredKey> asWritten(const Rows& rows) {
    std::vector<StoredKey> keys;
    const auto stored = support::inOrderOfWriting(rows);
    keys.reserve(stored.size());
    for (const auto* row : stored) keys.push_back(keyOf(*row));
    return keys;
}
}  // namespace

std::span<const StoredKey> gridKeys() {
    static const std::vector<StoredKey> keys = asRead(grid::gridProperties());
    return keys;
}

std::span<const StoredKey> writtenGridKeys() {
    static const std::vector<StoredKey> keys = asWritten(grid::gridProperties());
    return keys;
}

std::span<const StoredKey> columnKeys() {
    static const std::vector<StoredKey> keys = asWritten(columns::columnProperties());
    return keys;
}

std::string columnKey(std::int32_t col, std::string_view suffix) {
    std::string name(ColumnPrefix);
    name += std::to_string(col);
    name += suffix;
    return name;
}

std::optional<ColumnKeyParts> columnKeyParts(std::string_view name) {
    if (!name.starts_with(ColumnPrefix)) return std::nullopt;
    name.remove_prefix(ColumnPrefix.size());
    ColumnKeyParts parts{};
    const auto number = std::from_chars(name.data(), name.data() + name.size(), parts.col);
    const auto digits = static_cast<std::size_t>(number.ptr - name.data());
    const bool padded = digits > 1 && name.front() == '0';
    if (number.ec != std::errc() || name.front() == '-' || padded) return std::nullopt;
    const std::string_view suffix = name.substr(digits);
    const auto key = std::ranges::find(columnKeys(), suffix, &StoredKey::written);
    if (key == columnKeys().end()) return std::nullopt;
    parts.suffix = key->written;
    return parts;
}
}  // namespace kxVsGrid

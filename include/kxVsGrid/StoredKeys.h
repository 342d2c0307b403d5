// The settings as a container stores them: names, order, types and defaults. They are a format that files in
// use depend on; oddities of their spelling are part of it.
//
//     for (const StoredKey& key : columnKeys())
//         std::cout << columnKey(3, key.written) << '\n';       // SetVsControl3bIsEditable ...
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "kxVsGrid/Variant.h"

namespace kxVsGrid {

struct StoredKey {
    std::string_view read;     ///< the name that is asked for when loading
    std::string_view written;  ///< the name that is stored under; another one for "bIsPrint" only
    Variant::Type type;        ///< the type that is written
    Variant fallback;          ///< the default when reading; "Rows" has none here: the fixed rows plus 5
    std::string_view member;   ///< the property of kxGrid, or of cVsControl, that holds the value
    bool hasWriteDefault;      ///< written with its default, so that a bag may leave it out
};

/// The grid-wide settings in the order of reading. "BackColorBkg" stands there twice: for the main grid and
/// for the total row.
std::span<const StoredKey> gridKeys();
/// The same in the order of writing, each once.
std::span<const StoredKey> writtenGridKeys();
/// The settings of one column in the order of reading and writing; the names are suffixes.
std::span<const StoredKey> columnKeys();

/// The name of a column's setting: "SetVsControl", the column's number, the suffix.
std::string columnKey(std::int32_t col, std::string_view suffix);

/// The column and the suffix of a name; nothing for a name that belongs to no column or whose suffix is none
/// of those written.
struct ColumnKeyParts {
    std::int32_t col;
    std::string_view suffix;  ///< that of the key itself: it outlives the name
};
std::optional<ColumnKeyParts> columnKeyParts(std::string_view name);
}  // namespace kxVsGrid

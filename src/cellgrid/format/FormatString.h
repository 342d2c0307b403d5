// The text that names columns: "行号|<货号|^单位|>数量;1|2|3".
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "kxVsGrid/Enumerations.h"

namespace kxVsGrid::cellgrid {

struct FormatField {
    bool empty = true;                  ///< nothing between the separators: changes nothing
    std::optional<mEmflexAlign> align;  ///< from the mark '<' '^' '>': left 1, centre 4, right 7
    std::string_view text;              ///< without the mark, untrimmed: its width is the column's
    std::string_view caption;           ///< trimmed
};

struct ParsedFormatString {
    std::vector<FormatField> columns;
    std::vector<FormatField> rows;  ///< after ';': captions of column 0
};

/// The views point into `format`. A field that is a mark alone is not empty and has an empty `text`: it sets
/// the alignment and nothing else. A text without column fields ("", ";1|2") has no columns.
/// Fields beyond `limit` columns and as many rows are left out.
ParsedFormatString parseFormatString(std::string_view format, std::size_t limit = std::string_view::npos);

/// How many column fields the text has.
std::int64_t countColumnFields(std::string_view format);

/// The string without the column fields from number `cols` on; the row captions stay.
std::string cutFormatString(std::string_view format, std::int32_t cols);
}  // namespace kxVsGrid::cellgrid

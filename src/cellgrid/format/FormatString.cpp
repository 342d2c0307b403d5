#include "cellgrid/format/FormatString.h"

#include <algorithm>
#include <cstddef>

#include "support/Text.h"

namespace kxVsGrid::cellgrid {
namespace {

std::optional<mEmflexAlign> alignmentOf(char mark) {
    switch (mark) {
        case '<':
            return flexAlignLeftCenter;
        case '^':
            return flexAlignCenterCenter;
        case '>':
            return flexAlignRightCenter;
        default:
            return std::nullopt;
    }
}

FormatField parseField(std::string_view field) {
    FormatField parsed;
    parsed.empty = field.empty();
    if (field.empty()) return parsed;
    parsed.align = alignmentOf(field.front());
    parsed.text = parsed.align ? field.substr(1) : field;
    parsed.caption = support::trim(parsed.text);
    return parsed;
}

/// No text has no fields; otherwise one more than there are separators.
std::vector<FormatField> parseFields(std::string_view text, std::size_t limit) {
    std::vector<FormatField> fields;
    if (text.empty()) return fields;
    while (true) {
        if (fields.size() == limit) return fields;
        const std::size_t bar = text.find('|');
        fields.push_back(parseField(text.substr(0, bar)));
        if (bar == std::string_view::npos) return fields;
        text.remove_prefix(bar + 1);
    }
}
}  // namespace

ParsedFormatString parseFormatString(std::string_view format, std::size_t limit) {
    const std::size_t semicolon = format.find(';');
    ParsedFormatString parsed;
    parsed.columns = parseFields(format.substr(0, semicolon), limit);
    if (semicolon != std::string_view::npos) parsed.rows = parseFields(format.substr(semicolon + 1), limit);
    return parsed;
}

std::int64_t countColumnFields(std::string_view format) {
    const std::string_view columns = format.substr(0, format.find(';'));
    return columns.empty() ? 0 : std::count(columns.begin(), columns.end(), '|') + 1;
}

std::string cutFormatString(std::string_view format, std::int32_t cols) {
    const std::size_t columnsEnd = std::min(format.find(';'), format.size());
    const std::string_view columns = format.substr(0, columnsEnd);
    std::size_t cut = 0;
    for (std::int32_t kept = 0; kept < cols; ++kept) {
        const std::size_t start = kept == 0 ? 0 : cut + 1;
        cut = std::min(columns.find('|', start), columnsEnd);
        if (cut == columnsEnd) break;
    }
    std::string result(columns.substr(0, cut));
    result += format.substr(columnsEnd);
    return result;
}
}  // namespace kxVsGrid::cellgrid

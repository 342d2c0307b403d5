// Any text as a grid's format string: its fields put together again must give the text, and cutting columns
// off must leave the others and the row captions as they were.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <iostream>
#include <string>
#include <string_view>
#include <vector>

#include "cellgrid/format/FormatString.h"

namespace {

using kxVsGrid::cellgrid::FormatField;
using kxVsGrid::cellgrid::ParsedFormatString;

void require(bool condition, const char* what, std::string_view text) {
    if (condition) return;
    std::cerr << what << ": \"" << text << "\"\n";
    std::abort();
}

char markOf(const FormatField& field) {
    switch (field.align.value_or(kxVsGrid::flexAlignGeneral)) {
        case kxVsGrid::flexAlignLeftCenter:
            return '<';
        case kxVsGrid::flexAlignCenterCenter:
            return '^';
        case kxVsGrid::flexAlignRightCenter:
            return '>';
        default:
            return 0;
    }
}

std::string joined(const std::vector<FormatField>& fields) {
    std::string text;
    for (const FormatField& field : fields) {
        if (&field != &fields.front()) text += '|';
        if (field.align) text += markOf(field);
        text += field.text;
    }
    return text;
}

void checkFields(const std::vector<FormatField>& fields, std::string_view text) {
    for (const FormatField& field : fields) {
        require(field.empty == (!field.align && field.text.empty()), "an empty field changes something",
                text);
        require(field.text.find(field.caption) != std::string_view::npos, "a caption is not its text", text);
        require(field.caption.empty() || (field.caption.front() != ' ' && field.caption.back() != ' '),
                "a caption is not trimmed", text);
    }
}

void checkCut(std::string_view text, const ParsedFormatString& whole, std::int32_t cols) {
    const std::string cut = kxVsGrid::cellgrid::cutFormatString(text, cols);
    const ParsedFormatString rest = kxVsGrid::cellgrid::parseFormatString(cut);
    auto columns = whole.columns;
    if (columns.size() > static_cast<std::size_t>(cols)) columns.resize(static_cast<std::size_t>(cols));
    require(joined(rest.columns) == joined(columns), "cutting changes the columns that stay", text);
    require(joined(rest.rows) == joined(whole.rows), "cutting changes the row captions", text);
    require(kxVsGrid::cellgrid::cutFormatString(cut, cols) == cut, "cutting twice cuts more", text);
}
}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view text(reinterpret_cast<const char*>(data), size);
    const ParsedFormatString parsed = kxVsGrid::cellgrid::parseFormatString(text);
    checkFields(parsed.columns, text);
    checkFields(parsed.rows, text);
    const std::size_t semicolon = std::min(text.find(';'), size);
    require(joined(parsed.columns) == text.substr(0, semicolon), "the columns are not the text", text);
    if (semicolon < size)
        require(joined(parsed.rows) == text.substr(semicolon + 1), "the row captions are not the text", text);
    for (std::int32_t cols = 0; cols < 6; ++cols) checkCut(text, parsed, cols);
    return 0;
}

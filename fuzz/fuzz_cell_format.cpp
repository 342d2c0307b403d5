// Any pattern, any cell text (the first line and the rest of the input): showing must neither crash nor hang,
// and what it shows must hang together.
#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <iostream>
#include <optional>
#include <string>
#include <string_view>

#include "cellgrid/format/CellFormat.h"
#include "support/Numbers.h"

namespace {

using kxVsGrid::cellgrid::CellFormat;

void require(bool condition, const char* what, std::string_view pattern, std::string_view text) {
    if (condition) return;
    std::cerr << what << ": \"" << text << "\" as \"" << pattern << "\"\n";
    std::abort();
}

/// The text as shown, nothing where it is shown unchanged.
std::optional<std::string> shown(const CellFormat& format, std::string_view text) {
    std::string result = "untouched";
    if (format.apply(text, result)) return result;
    require(result == "untouched", "an unchanged text was written", format.pattern(), text);
    return std::nullopt;
}

void checkSign(const CellFormat& format, std::string_view text) {
    const bool oneSection = format.pattern().find(';') == std::string::npos;
    const bool unsignedNumber = !text.empty() && ((text[0] >= '0' && text[0] <= '9') || text[0] == '.');
    const auto plus = shown(format, text);
    if (!oneSection || !unsignedNumber || !plus || !kxVsGrid::support::completeNumber(text)) return;
    const auto minus = shown(format, "-" + std::string(text));
    require(minus && (*minus == "-" + *plus || *minus == *plus), "a minus changes the digits",
            format.pattern(), text);
}

void checkValue(std::string_view text) {
    static const CellFormat twoDecimals("#,##0.00");
    const auto number = kxVsGrid::support::completeNumber(text);
    const auto displayed = shown(twoDecimals, text);
    require(displayed.has_value() || !number, "a complete number is not formatted", "#,##0.00", text);
    if (!number || !displayed) return;
    const double value = kxVsGrid::support::leadingNumberOfDisplayed(*displayed);
    require(std::abs(value - *number) <= 0.0050001 + std::abs(*number) * 1e-12, "the value has changed",
            "#,##0.00", text);
    require(value != 0 || displayed->front() != '-', "a zero has a minus", "#,##0.00", text);
}
}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string_view input(reinterpret_cast<const char*>(data), size);
    const std::string_view pattern = input.substr(0, input.find('\n'));
    const std::string_view text = input.substr(std::min(pattern.size() + 1, size));
    const CellFormat format(pattern);
    require(format.pattern() == pattern, "the pattern is not answered as it was given", pattern, text);
    const auto result = shown(format, text);
    require(shown(format, text) == result, "a second look shows another text", pattern, text);
    checkSign(format, text);
    checkValue(text);
    return 0;
}

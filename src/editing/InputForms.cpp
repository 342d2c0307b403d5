#include "editing/InputForms.h"

#include <algorithm>

#include "kxVsGrid/mbasTxt.h"
#include "support/Numbers.h"
#include "support/Text.h"

namespace kxVsGrid::editing {
namespace {

constexpr std::string_view Digits = "0123456789";
constexpr std::size_t GroupSize = 3;

std::size_t digitsAt(std::string_view text, std::size_t at) {
    return std::min(text.find_first_not_of(Digits, at), text.size()) - at;
}

std::string_view withoutSign(std::string_view number) {
    if (number.starts_with('-') || number.starts_with('+')) number.remove_prefix(1);
    return number;
}

/// The hundredth of a plain number. Nothing for what is none, and for an expression.
std::optional<std::string> hundredthOf(const std::string& number) {
    double value = 0;
    const bool plain = withoutSign(number).find_first_not_of("0123456789.") == std::string_view::npos;
    if (!plain || !bEvaluateExp(number, value)) return std::nullopt;
    return support::numberText(value / 100);
}
}  // namespace

std::optional<DateForm> dateFormOf(const cVsControl& column) {
    const auto kind = static_cast<DateForm>(static_cast<std::int32_t>(column.i字段有效性判断类型()));
    switch (kind) {
        case DateForm::Date:
        case DateForm::HalfDay:
        case DateForm::Time:
            return kind;
        default:
            return std::nullopt;
    }
}

bool takesPlainSigns(const cVsControl& column) {
    switch (column.iType()) {
        case flexDTDouble:
        case flexDTDate:
            return true;
        case flexDTString:
            return dateFormOf(column).has_value();
        default:
            return false;
    }
}

NumberForms numberForms(const CellGrid& grid, std::int32_t col) {
    return {grid.ColGroups(col), grid.ColPercent(col)};
}

std::string plainNumber(std::string_view text, NumberForms forms) {
    text = support::trim(text);
    if (forms.percent && text.ends_with('%')) {
        const std::string_view number = text.substr(0, text.size() - 1);
        if (auto hundredth = hundredthOf(support::withoutGroups(number, forms.groups))) return *hundredth;
    }
    return support::withoutGroups(text, forms.groups);
}

bool isNumberInParts(std::string_view text) {
    std::string_view number = withoutSign(support::trim(text));
    while (number.ends_with('%')) number.remove_suffix(1);
    return !number.empty() && number.find_first_not_of("0123456789,.") == std::string_view::npos;
}

std::optional<std::size_t> misplacedSeparator(std::string_view text) {
    if (!isNumberInParts(text)) return std::nullopt;
    const std::size_t first = text.find_first_of("0123456789,.");
    const std::size_t point = text.find('.');
    for (std::size_t at = text.find(','); at != std::string_view::npos; at = text.find(',', at + 1)) {
        const std::size_t before = at - first;  // all digits before the first separator
        const bool leads = text.substr(first, before).find(',') == std::string_view::npos;
        const bool fits = !leads || (before > 0 && before <= GroupSize);
        if (at > point || !fits || digitsAt(text, at + 1) != GroupSize) return at;
    }
    return std::nullopt;
}
}  // namespace kxVsGrid::editing

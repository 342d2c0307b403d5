#include "editing/WriteGate.h"

#include "editing/ColumnRules.h"
#include "editing/ExactNumber.h"
#include "editing/InputForms.h"
#include "host/CellLock.h"
#include "kxVsGrid/mbasTxt.h"
#include "support/Dates.h"
#include "support/Numbers.h"
#include "support/Text.h"

namespace kxVsGrid::editing {

bool WriteGate::opens(std::int32_t row, std::int32_t col) const {
    return c_.editable() && host::isOpenCell(c_, row, col) && c_.editable();
}

FieldVerdict WriteGate::check(std::int32_t col, std::string_view text, std::string_view entryText) const {
    if (support::trim(text) == entryText || c_.columns.at(col).i有效性判断() == 0) return {};
    return checkField(c_, col, text);
}

std::optional<std::string> WriteGate::brokenRule(std::int32_t row, std::int32_t col,
                                                 std::string_view stored) const {
    return brokenColumnRule(c_, row, col, stored);
}

std::optional<std::string> WriteGate::brokenRuleOfTyped(std::int32_t row, std::int32_t col,
                                                        std::string_view text,
                                                        std::string_view entryText) const {
    if (!c_.columns.rules(col) || support::trim(text) == entryText) return std::nullopt;
    const std::optional<std::string> value = stored(col, inFull(col, text));
    return value ? brokenRule(row, col, *value) : std::nullopt;
}

std::optional<std::string> WriteGate::brokenByRewriting(std::int32_t row, std::int32_t col,
                                                        std::string_view rewritten) const {
    if (!c_.columns.rules(col)) return std::nullopt;
    const std::optional<std::string> value = stored(col, rewritten);
    return value ? brokenByRepeating(c_, row, col, *value) : std::nullopt;
}

/// A date in whatever form as it will be stored, for the rules to judge that; any other text as it is.
std::string WriteGate::inFull(std::int32_t col, std::string_view text) const {
    const cVsControl& column = c_.columns.at(col);
    const auto form = column.i有效性判断() == 0 ? std::nullopt : dateFormOf(column);
    std::optional<std::string> date;
    if (form) date = inDateForm(*form, text, c_.platform.now());
    return date ? *std::move(date) : std::string(text);
}

std::optional<std::string> WriteGate::stored(std::int32_t col, std::string_view text) const {
    const mEmDataType type = c_.columns.at(col).iType();
    if (type == flexDTDouble) return storedNumber(col, support::trim(text));
    if (type == flexDTString) return std::string(support::trim(text));
    if (type != flexDTDate || c_.columns.zero(col) != ColumnOptions::Zero::Blank) return std::string(text);
    // What is no date at all was typed, and is not lost.
    const std::optional<DateTime> date = support::parseDate(text);
    return date && support::isNoDay(*date) ? std::string() : std::string(text);
}

std::optional<std::string> WriteGate::storedNumber(std::int32_t col, std::string_view text) const {
    if (text.empty()) return std::string();
    const NumberForms forms = numberForms(c_.grid, col);
    double value = 0;
    if (!bEvaluateExp(plainNumber(text, forms), value)) return std::nullopt;
    std::string number = support::numberText(value);
    if (const auto rules = c_.columns.rules(col); rules && rules->exact())
        number = exactNumber(text, forms).value_or(exactValue(value));
    if (number == "0" && c_.columns.zero(col) == ColumnOptions::Zero::Blank) number.clear();
    return number;
}

std::string WriteGate::turnedOver(std::int32_t row, std::int32_t col) const {
    return support::leadingNumber(c_.grid.Text(row, col)) != 0 ? "0" : "-1";
}
}  // namespace kxVsGrid::editing

#include "editing/ExactNumber.h"

#include "kxVsGrid/support/Decimal.h"
#include "support/Numbers.h"
#include "support/ReadDecimal.h"
#include "support/Text.h"

namespace kxVsGrid::editing {
namespace {

/// A sign, digits and a point: no expression.
bool isOneNumber(std::string_view text) {
    if (text.starts_with('-') || text.starts_with('+')) text.remove_prefix(1);
    const char* const last = text.data() + text.size();
    const support::PlainNumber number = support::readDecimal(text.data(), last);
    return number.hasDigits && number.end == last;
}

/// One number of any length, rounded half away from zero to nine decimals; nothing where it does not fit.
std::optional<Decimal> inNineDecimals(std::string_view number) {
    const std::size_t point = number.find('.');
    const std::size_t end = point + 1 + Decimal::MostDecimals;
    if (point == std::string_view::npos || end >= number.size()) return Decimal::read(number);
    const std::optional<Decimal> kept = Decimal::read(number.substr(0, end));
    if (!kept || number[end] < '5') return kept;
    try {
        return *kept + Decimal::scaled(number[0] == '-' ? -1 : 1, Decimal::MostDecimals);
    } catch (const DecimalError&) {
        return std::nullopt;
    }
}
}  // namespace

std::optional<std::string> exactNumber(std::string_view text, NumberForms forms) {
    text = support::trim(text);
    if (forms.percent && text.ends_with('%')) {
        const std::string number = support::withoutGroups(text.substr(0, text.size() - 1), forms.groups);
        if (!isOneNumber(number)) return std::nullopt;
        const std::optional<Decimal> hundredfold = inNineDecimals(number);
        return hundredfold ? (*hundredfold / 100).text() : number;
    }
    std::string number = support::withoutGroups(text, forms.groups);
    if (!isOneNumber(number)) return std::nullopt;
    const std::optional<Decimal> exact = inNineDecimals(number);
    return exact ? exact->text() : number;
}

std::string exactValue(double value) {
    std::string text = support::numberText(value);
    const std::optional<Decimal> exact = inNineDecimals(text);
    return exact ? exact->text() : text;
}

bool fitsExactly(std::string_view cell) {
    return !isOneNumber(cell) || Decimal::read(cell).has_value();
}
}  // namespace kxVsGrid::editing

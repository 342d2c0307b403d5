#include "Decimal.h"

#include <algorithm>

namespace {
bool isDigit(char c) {
    return c >= '0' && c <= '9';
}

bool appendDigit(std::int64_t& value, char digit) {
    return !__builtin_mul_overflow(value, 10, &value) && !__builtin_add_overflow(value, digit - '0', &value);
}

// Magnitude without the sign bit, also for the smallest value.
std::uint64_t magnitude(std::int64_t value) {
    return value < 0 ? 0 - static_cast<std::uint64_t>(value) : static_cast<std::uint64_t>(value);
}

std::string withPoint(std::uint64_t value, int decimals) {
    std::string digits = std::to_string(value);
    const std::size_t places = static_cast<std::size_t>(decimals);
    if (digits.size() <= places) digits.insert(0, places + 1 - digits.size(), '0');
    digits.insert(digits.size() - places, ".");
    return digits;
}

std::string trimmed(std::string text) {
    while (text.back() == '0') text.pop_back();
    if (text.back() == '.') text.pop_back();
    return text;
}

std::string grouped(std::string text) {
    const std::size_t point = std::min(text.find('.'), text.size());
    for (std::size_t at = point; at > 3; at -= 3) text.insert(at - 3, ",");
    return text;
}
}  // namespace

std::optional<std::int64_t> scaledNumber(std::string_view text, int decimals) {
    bool negative = false;
    if (!text.empty() && (text.front() == '-' || text.front() == '+')) {
        negative = text.front() == '-';
        text.remove_prefix(1);
    }
    std::int64_t value = 0;
    std::size_t digits = 0;
    std::size_t at = 0;
    for (; at < text.size() && isDigit(text[at]); ++at, ++digits)
        if (!appendDigit(value, text[at])) return std::nullopt;
    int places = 0;
    bool up = false;
    if (at < text.size() && text[at] == '.') {
        for (++at; at < text.size() && isDigit(text[at]); ++at, ++digits, ++places) {
            if (places < decimals && !appendDigit(value, text[at])) return std::nullopt;
            if (places == decimals) up = text[at] >= '5';
        }
    }
    if (digits == 0 || at != text.size()) return std::nullopt;
    for (; places < decimals; ++places)
        if (!appendDigit(value, '0')) return std::nullopt;
    if (up && __builtin_add_overflow(value, 1, &value)) return std::nullopt;
    return negative ? -value : value;
}

std::string plainText(std::int64_t scaled, int decimals) {
    const std::string text = trimmed(withPoint(magnitude(scaled), decimals));
    return scaled < 0 ? "-" + text : text;
}

std::string moneyText(Cents amount) {
    const std::string text = grouped(withPoint(magnitude(amount), PriceDecimals));
    return amount < 0 ? "-" + text : text;
}

std::string quantityText(Thousandths quantity) {
    const std::string text = grouped(trimmed(withPoint(magnitude(quantity), QuantityDecimals)));
    return quantity < 0 ? "-" + text : text;
}

std::optional<Cents> amountOf(Thousandths quantity, Cents price) {
    std::int64_t product = 0;
    if (__builtin_mul_overflow(quantity.units, price.units, &product)) return std::nullopt;
    const std::int64_t whole = product / 1000;
    const std::int64_t rest = product % 1000;
    if (rest >= 500) return whole + 1;
    if (rest <= -500) return whole - 1;
    return whole;
}

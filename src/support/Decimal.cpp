#include "kxVsGrid/support/Decimal.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstddef>

#include "support/ReadDecimal.h"

namespace kxVsGrid {
namespace {

// Holds the product of any two numbers, and any of them with eighteen further digits.
__extension__ using Wide = __int128;

constexpr std::int64_t kDecimalPowers[] = {1,
                                           10,
                                           100,
                                           1'000,
                                           10'000,
                                           100'000,
                                           1'000'000,
                                           10'000'000,
                                           100'000'000,
                                           1'000'000'000,
                                           10'000'000'000,
                                           100'000'000'000,
                                           1'000'000'000'000,
                                           10'000'000'000'000,
                                           100'000'000'000'000,
                                           1'000'000'000'000'000,
                                           10'000'000'000'000'000,
                                           100'000'000'000'000'000,
                                           1'000'000'000'000'000'000};
constexpr int kMostShown = 24;  // characters of a number: its digits, "0." before them, a sign
constexpr Wide kEnd = kDecimalPowers[Decimal::MostDigits];

bool fits(Wide digits) {
    return digits > -kEnd && digits < kEnd;
}

Wide magnitude(Wide number) {
    return number < 0 ? -number : number;
}

/// Rounded half away from zero; the divisor is positive.
Wide roundedQuotient(Wide number, Wide divisor) {
    const Wide rest = magnitude(number % divisor);
    const Wide away = number < 0 ? -1 : 1;
    return number / divisor + (rest >= divisor - rest ? away : 0);
}

/// The number without its last `places` digits (0 to 18).
Wide withoutPlaces(Wide number, int places) {
    return places == 0 ? number : roundedQuotient(number, kDecimalPowers[places]);
}

void requireDecimals(const char* member, int decimals) {
    if (decimals < 0 || decimals > Decimal::MostDecimals)
        throw DecimalError("Decimal." + std::string(member) + ": " + std::to_string(decimals) +
                           " decimals are not between 0 and 9");
}

/// Writes the digits with a point before the last `decimals` of them, and answers where they end.
char* writeDecimal(char* at, std::int64_t digits, int decimals) {
    if (digits < 0) *at++ = '-';
    std::array<char, kMostShown> kept;
    auto rest = static_cast<std::uint64_t>(digits < 0 ? -digits : digits);
    char* first = kept.data() + kept.size();
    for (int i = 0; i < decimals; ++i, rest /= 10) *--first = static_cast<char>('0' + rest % 10);
    if (decimals > 0) *--first = '.';
    do {
        *--first = static_cast<char>('0' + rest % 10);
    } while ((rest /= 10) != 0);
    while (first != kept.data() + kept.size()) *at++ = *first++;
    return at;
}

std::string shown(std::int64_t digits, int decimals) {
    std::array<char, kMostShown> text;
    return std::string(text.data(), writeDecimal(text.data(), digits, decimals));
}

[[noreturn]] void failToFit(const std::string& what) {
    throw DecimalError(what + " has more digits than the 18 that a number may have");
}

/// A number by its parts, which need not be in their shortest form.
struct DecimalParts {
    std::int64_t digits = 0;
    int decimals = 0;
};

/// Of digits that fit.
DecimalParts shortened(Wide digits, int decimals) {
    auto kept = static_cast<std::int64_t>(digits);
    while (decimals > 0 && kept % 10 == 0) {
        kept /= 10;
        --decimals;
    }
    return {kept, decimals};
}

/// Where digits are too many, those behind the point may be zeros.
std::optional<DecimalParts> inRange(Wide digits, int decimals) {
    while (!fits(digits)) {
        if (decimals == 0 || digits % 10 != 0) return std::nullopt;
        digits /= 10;
        --decimals;
    }
    return shortened(digits, decimals);
}

/// The sign, digits and point of a text; nothing where it is no number, or has too many digits.
std::optional<DecimalParts> parsedDecimal(std::string_view text) noexcept {
    std::size_t at = !text.empty() && (text[0] == '-' || text[0] == '+') ? 1 : 0;
    const bool negative = at == 1 && text[0] == '-';
    std::size_t end = text.size();
    const std::size_t point = std::min(text.find('.', at), end);
    if (end - at <= (point < end ? 1U : 0U)) return std::nullopt;
    if (point < end && end - point - 1 > Decimal::MostDecimals) return std::nullopt;
    for (std::size_t i = at; i < end; ++i)
        if (i != point && !support::isDigit(text[i])) return std::nullopt;
    while (at < point && text[at] == '0') ++at;
    while (end > point + 1 && text[end - 1] == '0') --end;
    if (point - at > Decimal::MostDigits) return std::nullopt;
    Wide digits = 0;  // of at most 27 places
    for (std::size_t i = at; i < end; ++i)
        if (i != point) digits = digits * 10 + (text[i] - '0');
    if (!fits(digits)) return std::nullopt;
    const int decimals = end > point ? static_cast<int>(end - point - 1) : 0;
    return DecimalParts{static_cast<std::int64_t>(negative ? -digits : digits), decimals};
}

/// Why a text is no Decimal.
std::string faultOf(std::string_view text) {
    std::string named = "\"" + std::string(text) + "\"";
    const char* const first = text.data();
    const char* const last = first + text.size();
    const bool sign = first != last && (*first == '-' || *first == '+');
    const support::PlainNumber number = support::readDecimal(first + (sign ? 1 : 0), last);
    if (!number.hasDigits || number.end != last) return named + " is no decimal number";
    const std::size_t point = text.find('.');
    if (point != std::string_view::npos && text.size() - point - 1 > Decimal::MostDecimals)
        return named + " has more than 9 decimals";
    return named + " has more digits than the 18 that a number may have";
}

/// Rounded from what is exact to as many decimals as there is room for.
std::optional<DecimalParts> withRoom(Wide digits, int decimals) {
    int cut = decimals > Decimal::MostDecimals ? decimals - Decimal::MostDecimals : 0;
    Wide rounded = withoutPlaces(digits, cut);
    while (!fits(rounded)) {
        if (cut == decimals) return std::nullopt;
        rounded = withoutPlaces(digits, ++cut);
    }
    return shortened(rounded, decimals - cut);
}

/// a / b, rounded to so many decimals; how many digits it has is not asked.
Wide ratio(const DecimalParts& a, const DecimalParts& b, int decimals) {
    const int places = decimals + b.decimals - a.decimals;  // -9 to 18
    Wide numerator = a.digits;
    Wide divisor = b.digits;
    if (places >= 0)
        numerator *= kDecimalPowers[places];
    else
        divisor *= kDecimalPowers[-places];
    return divisor < 0 ? roundedQuotient(-numerator, -divisor) : roundedQuotient(numerator, divisor);
}

/// The digits of a double's shortest text, and how many of them stand behind the point (before it, negative).
struct Shortest {
    std::int64_t digits = 0;
    int decimals = 0;
};

Shortest shortestOf(double value) {
    std::array<char, 32> text;
    const char* const last =
        std::to_chars(text.data(), text.data() + text.size(), value, std::chars_format::scientific).ptr;
    Shortest result;
    const char* at = text.data() + (text[0] == '-' ? 1 : 0);
    bool behind = false;
    for (; *at != 'e'; ++at) {
        if (*at == '.') {
            behind = true;
            continue;
        }
        result.digits = result.digits * 10 + (*at - '0');
        if (behind) ++result.decimals;
    }
    int exponent = 0;
    std::from_chars(at + (at[1] == '+' ? 2 : 1), last, exponent);
    result.decimals -= exponent;
    if (text[0] == '-') result.digits = -result.digits;
    return result;
}

std::string doubleText(double value) {
    std::array<char, 32> text;
    return std::string(text.data(), std::to_chars(text.data(), text.data() + text.size(), value).ptr);
}
}  // namespace

void Decimal::failTooLarge(bool negative, std::uint64_t bits) {
    failToFit(negative ? std::to_string(static_cast<std::int64_t>(bits)) : std::to_string(bits));
}

Decimal::Decimal(std::string_view text) {
    const std::optional<DecimalParts> parts = parsedDecimal(text);
    if (!parts) throw DecimalError(faultOf(text));
    digits_ = parts->digits;
    decimals_ = parts->decimals;
}

std::optional<Decimal> Decimal::read(std::string_view text) noexcept {
    const std::optional<DecimalParts> parts = parsedDecimal(text);
    if (!parts) return std::nullopt;
    return Decimal(parts->digits, parts->decimals);
}

Decimal Decimal::scaled(std::int64_t digits, int decimals) {
    requireDecimals("scaled", decimals);
    const std::optional<DecimalParts> parts = inRange(digits, decimals);
    if (!parts) failToFit("Decimal.scaled: " + std::to_string(digits));
    return Decimal(parts->digits, parts->decimals);
}

std::int64_t Decimal::scaledTo(int decimals) const {
    requireDecimals("scaledTo", decimals);
    if (decimals <= decimals_) return static_cast<std::int64_t>(withoutPlaces(digits_, decimals_ - decimals));
    const Wide digits = Wide{digits_} * kDecimalPowers[decimals - decimals_];
    const auto result = static_cast<std::int64_t>(digits);
    if (result != digits)
        throw DecimalError("Decimal.scaledTo: " + text() + " with " + std::to_string(decimals) +
                           " decimals does not fit into 64 bits");
    return result;
}

Decimal Decimal::of(double value, int decimals) {
    requireDecimals("of", decimals);
    if (!std::isfinite(value)) throw DecimalError("Decimal.of: " + doubleText(value) + " is no number");
    const Shortest number = shortestOf(value);
    const int cut = number.decimals - decimals;
    if (number.digits == 0 || cut > MostDigits) return {};  // 17 digits at most: all behind where it is cut
    std::optional<DecimalParts> parts;
    if (number.decimals >= 0)
        parts = cut > 0 ? inRange(withoutPlaces(number.digits, cut), decimals)
                        : inRange(number.digits, number.decimals);
    else if (-number.decimals < MostDigits)
        parts = inRange(Wide{number.digits} * kDecimalPowers[-number.decimals], 0);
    if (!parts) failToFit("Decimal.of: " + doubleText(value));
    return Decimal(parts->digits, parts->decimals);
}

double Decimal::toDouble() const {
    std::array<char, kMostShown> text;
    const char* const last = writeDecimal(text.data(), digits_ < 0 ? -digits_ : digits_, decimals_);
    const double value = support::readDecimal(text.data(), last).value;
    return digits_ < 0 ? -value : value;
}

std::string Decimal::text() const {
    return shown(digits_, decimals_);
}

std::string Decimal::text(int decimals) const {
    requireDecimals("text", decimals);
    if (decimals <= decimals_)
        return shown(static_cast<std::int64_t>(withoutPlaces(digits_, decimals_ - decimals)), decimals);
    std::string text = shown(digits_, decimals_);
    if (decimals_ == 0) text += '.';
    return text.append(static_cast<std::size_t>(decimals - decimals_), '0');
}

void Decimal::appendTo(std::string& text) const {
    std::array<char, kMostShown> written;
    text.append(written.data(), writeDecimal(written.data(), digits_, decimals_));
}

Decimal Decimal::rounded(int decimals) const {
    requireDecimals("rounded", decimals);
    if (decimals >= decimals_) return *this;
    const DecimalParts parts = shortened(withoutPlaces(digits_, decimals_ - decimals), decimals);
    return Decimal(parts.digits, parts.decimals);
}

Decimal Decimal::plus(const Decimal& a, std::int64_t digits, int decimals) {
    const int common = a.decimals_ > decimals ? a.decimals_ : decimals;
    const Wide sum = Wide{a.digits_} * kDecimalPowers[common - a.decimals_] +
                     Wide{digits} * kDecimalPowers[common - decimals];
    const std::optional<DecimalParts> parts = inRange(sum, common);
    if (!parts)
        failToFit(a.text() + (digits < 0 ? " - " : " + ") + shown(digits < 0 ? -digits : digits, decimals));
    return Decimal(parts->digits, parts->decimals);
}

Decimal Decimal::times(const Decimal& a, const Decimal& b) {
    const std::optional<DecimalParts> parts =
        withRoom(Wide{a.digits_} * b.digits_, a.decimals_ + b.decimals_);
    if (!parts) failToFit(a.text() + " * " + b.text());
    return Decimal(parts->digits, parts->decimals);
}

Decimal Decimal::over(const Decimal& a, const Decimal& b) {
    if (b.digits_ == 0) throw DecimalError(a.text() + " / 0: division by zero");
    for (int decimals = MostDecimals; decimals >= 0; --decimals) {
        const Wide digits = ratio({a.digits_, a.decimals_}, {b.digits_, b.decimals_}, decimals);
        if (!fits(digits)) continue;
        const DecimalParts parts = shortened(digits, decimals);
        return Decimal(parts.digits, parts.decimals);
    }
    failToFit(a.text() + " / " + b.text());
}

Decimal Decimal::divided(const Decimal& by, int decimals) const {
    requireDecimals("divided", decimals);
    if (by.digits_ == 0) throw DecimalError(text() + " / 0: division by zero");
    const std::optional<DecimalParts> parts =
        inRange(ratio({digits_, decimals_}, {by.digits_, by.decimals_}, decimals), decimals);
    if (!parts) failToFit(text() + " / " + by.text() + " with " + std::to_string(decimals) + " decimals");
    return Decimal(parts->digits, parts->decimals);
}

std::strong_ordering Decimal::compare(const Decimal& a, const Decimal& b) {
    if (a.decimals_ == b.decimals_) return a.digits_ <=> b.digits_;
    const int common = a.decimals_ > b.decimals_ ? a.decimals_ : b.decimals_;
    const Wide first = Wide{a.digits_} * kDecimalPowers[common - a.decimals_];
    const Wide second = Wide{b.digits_} * kDecimalPowers[common - b.decimals_];
    return first < second   ? std::strong_ordering::less
           : first > second ? std::strong_ordering::greater
                            : std::strong_ordering::equal;
}
}  // namespace kxVsGrid

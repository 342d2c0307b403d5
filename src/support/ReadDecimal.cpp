#include "support/ReadDecimal.h"

#include <charconv>
#include <cstdint>
#include <limits>
#include <system_error>

namespace kxVsGrid::support {
namespace {

// Powers of ten that a double holds exactly.
constexpr double kPowersOfTen[] = {1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,  1e8,  1e9,  1e10, 1e11,
                                   1e12, 1e13, 1e14, 1e15, 1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};
constexpr std::uint64_t kLargestExact = std::uint64_t{1} << 53U;
constexpr std::ptrdiff_t kDigitsOfMantissa = 19;  // more may not fit into 64 bits

// What a number outside the range of a double becomes: infinity or 0. `exponent` is the written one.
double beyondRange(const char* first, const char* last, std::int64_t exponent) {
    const char* point = first;
    while (point != last && isDigit(*point)) ++point;
    const char* leading = first;
    while (leading != last && (*leading == '0' || *leading == '.')) ++leading;
    return (point - leading) + exponent > 0 ? std::numeric_limits<double>::infinity() : 0.0;
}

double readSlowly(const char* first, const char* last) {
    double value = 0;
    const auto result = std::from_chars(first, last, value, std::chars_format::fixed);
    return result.ec == std::errc::result_out_of_range ? beyondRange(first, last, 0) : value;
}

// The exponent in [first, last), which is a sign or none and digits; huge ones are cut to what decides the
// same.
std::int64_t exponentValue(const char* first, const char* last) {
    constexpr std::int64_t kEnough = std::int64_t{1} << 40U;
    const bool negative = *first == '-';
    if (!isDigit(*first)) ++first;
    std::int64_t value = 0;
    for (; first != last && value < kEnough; ++first) value = value * 10 + (*first - '0');
    return negative ? -value : value;
}

}  // namespace

PlainNumber readDecimal(const char* first, const char* last) {
    std::uint64_t mantissa = 0;  // wraps around when there are too many digits, and is not used then
    const char* at = first;
    for (; at != last && isDigit(*at); ++at) mantissa = mantissa * 10 + static_cast<unsigned char>(*at - '0');
    std::ptrdiff_t digits = at - first;
    std::ptrdiff_t decimals = 0;
    if (at != last && *at == '.') {
        const char* const fraction = ++at;
        for (; at != last && isDigit(*at); ++at)
            mantissa = mantissa * 10 + static_cast<unsigned char>(*at - '0');
        decimals = at - fraction;
        digits += decimals;
    }
    if (digits == 0) return {0.0, at, false};
    // Both the digits and the power of ten are exact, so that the one division rounds correctly.
    if (digits <= kDigitsOfMantissa && mantissa <= kLargestExact) {
        const auto whole = static_cast<double>(mantissa);
        return {decimals == 0 ? whole : whole / kPowersOfTen[decimals], at, true};
    }
    return {readSlowly(first, at), at, true};
}

PlainNumber readDecimalWithExponent(const char* first, const char* last) {
    PlainNumber number = readDecimal(first, last);
    if (!number.hasDigits || number.end == last || (*number.end != 'e' && *number.end != 'E')) return number;
    const char* const exponent = number.end + 1;
    const char* digits = exponent;
    if (digits != last && (*digits == '+' || *digits == '-')) ++digits;
    const char* end = digits;
    while (end != last && isDigit(*end)) ++end;
    if (end == digits) return number;
    const auto result = std::from_chars(first, end, number.value, std::chars_format::general);
    if (result.ec == std::errc::result_out_of_range)
        number.value = beyondRange(first, number.end, exponentValue(exponent, end));
    number.end = end;
    return number;
}
}  // namespace kxVsGrid::support

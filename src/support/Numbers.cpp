#include "support/Numbers.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstring>
#include <limits>

#include "support/ReadDecimal.h"
#include "support/Text.h"

namespace kxVsGrid::support {
namespace {

constexpr int kSignificant = 15;
constexpr double kLargestPlainWhole = 1e15;
constexpr double kSmallestPlainTotal = 1e-5;

struct SignedNumber {
    double value;
    const char* end;
    bool found;
};

SignedNumber readNumber(std::string_view text) {
    const char* at = text.data();
    const char* const last = at + text.size();
    while (at != last && *at == ' ') ++at;
    const bool negative = at != last && *at == '-';
    if (at != last && (*at == '-' || *at == '+')) ++at;
    const PlainNumber number = readDecimalWithExponent(at, last);
    return {negative ? -number.value : number.value, number.end, number.hasDigits};
}

// A positive number as d.ddd... * 10^exponent, rounded to 15 digits, without trailing zeros.
struct Significand {
    std::array<char, kSignificant> digits;
    int count;
    int exponent;
};

// Takes the digits of to_chars' scientific form apart; false when there are more than 15 of them.
bool takeApart(const char* first, const char* last, Significand& result) {
    const char* const e = std::find(first, last, 'e');
    result.count = 0;
    for (const char* at = first; at != e; ++at) {
        if (*at == '.') continue;
        if (result.count == kSignificant) return false;
        result.digits[static_cast<std::size_t>(result.count++)] = *at;
    }
    while (result.count > 1 && result.digits[static_cast<std::size_t>(result.count - 1)] == '0')
        --result.count;
    const char* const exponent = e + (e[1] == '+' ? 2 : 1);
    std::from_chars(exponent, last, result.exponent);
    return true;
}

Significand significandOf(double positive) {
    std::array<char, 32> text;
    char* const first = text.data();
    char* const last = first + text.size();
    Significand result{};
    // The shortest text that reads back as the same number is also its rounding to 15 digits when it has no
    // more, except for the imprecise numbers at the lower end of the range; it is much cheaper than rounding.
    if (positive >= std::numeric_limits<double>::min()) {
        const auto shortest = std::to_chars(first, last, positive, std::chars_format::scientific);
        if (takeApart(first, shortest.ptr, result)) return result;
    }
    const auto rounded =
        std::to_chars(first, last, positive, std::chars_format::scientific, kSignificant - 1);
    takeApart(first, rounded.ptr, result);
    return result;
}

std::string plainText(bool negative, const Significand& number) {
    std::array<char, 400> text;  // the smallest double starts after 323 zeros
    char* at = text.data();
    if (negative) *at++ = '-';
    const char* const digits = number.digits.data();
    const int whole = number.exponent + 1;  // digits before the point
    if (whole <= 0) {
        *at++ = '0';
        *at++ = '.';
        at = std::fill_n(at, -whole, '0');
        at = std::copy_n(digits, number.count, at);
    } else {
        const int written = std::min(whole, number.count);
        at = std::copy_n(digits, written, at);
        at = std::fill_n(at, whole - written, '0');
        if (number.count > whole) {
            *at++ = '.';
            at = std::copy(digits + whole, digits + number.count, at);
        }
    }
    return std::string(text.data(), at);
}

std::string exponentText(bool negative, const Significand& number) {
    std::string text = negative ? "-" : "";
    text += number.digits[0];
    if (number.count > 1) {
        text += '.';
        text.append(number.digits.data() + 1, static_cast<std::size_t>(number.count - 1));
    }
    text += number.exponent < 0 ? "E-" : "E+";
    const int size = std::abs(number.exponent);
    if (size < 10) text += '0';
    return text += std::to_string(size);
}

}  // namespace

double leadingNumber(std::string_view text) {
    return readNumber(text).value;
}

double leadingNumberOfDisplayed(std::string_view text) {
    if (text.find(',') == std::string_view::npos) return leadingNumber(text);
    const std::size_t start = text.find_first_of("0123456789");
    if (start == std::string_view::npos) return leadingNumber(text);
    std::string plain(text.substr(0, start));
    std::size_t at = start;
    for (; at < text.size(); ++at) {
        const bool separator = text[at] == ',' && at + 1 < text.size() && isDigit(text[at + 1]);
        if (!separator && !isDigit(text[at])) break;
        if (!separator) plain += text[at];
    }
    plain += text.substr(at);
    return leadingNumber(plain);
}

namespace {

/// Digits of a stretch that starts here, and where it ends.
std::size_t digitsFrom(std::string_view text, std::size_t at) {
    std::size_t n = 0;
    while (at + n < text.size() && isDigit(text[at + n])) ++n;
    return n;
}

/// One to three digits, then groups of three, at least one; then a point and decimals, or nothing.
bool isGrouped(std::string_view number) {
    constexpr std::size_t Group = 3;
    std::size_t at = !number.empty() && (number[0] == '-' || number[0] == '+') ? 1 : 0;
    const std::size_t first = digitsFrom(number, at);
    if (first == 0 || first > Group) return false;
    at += first;
    if (at == number.size() || number[at] != ',') return false;
    while (at < number.size() && number[at] == ',') {
        if (digitsFrom(number, at + 1) != Group) return false;
        at += 1 + Group;
    }
    if (at == number.size()) return true;
    return number[at] == '.' && at + 1 + digitsFrom(number, at + 1) == number.size();
}
}  // namespace

std::string withoutGroups(std::string_view text, bool grouped) {
    std::string plain(text);
    if (grouped && isGrouped(trim(text))) std::erase(plain, ',');
    return plain;
}

std::optional<double> completeNumber(std::string_view text) {
    text = trim(text);
    const SignedNumber number = readNumber(text);
    if (!number.found || number.end != text.data() + text.size() || !std::isfinite(number.value)) return {};
    return number.value;
}

std::string numberText(double value) {
    if (value == 0 || !std::isfinite(value)) return "0";
    const double size = std::fabs(value);
    if (size < kLargestPlainWhole) {
        const auto whole = static_cast<std::int64_t>(value);
        if (static_cast<double>(whole) == value) {
            std::array<char, 20> text;
            return std::string(text.data(), std::to_chars(text.data(), text.data() + text.size(), whole).ptr);
        }
    }
    return plainText(value < 0, significandOf(size));
}

std::string totalText(double value) {
    const double size = std::fabs(value);
    const bool plain = size == 0 || (size >= kSmallestPlainTotal && size < kLargestPlainWhole);
    if (plain || !std::isfinite(value)) return numberText(value);
    return exponentText(value < 0, significandOf(size));
}

double roundHalfEven(double value) {
    return std::nearbyint(value) + 0.0;  // the addition makes -0 into 0
}
}  // namespace kxVsGrid::support

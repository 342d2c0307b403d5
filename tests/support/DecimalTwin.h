// Decimal numbers in the way that they are worked out on paper, digit by digit, with as many digits as it takes:
// the slow, obvious twin of Decimal.
#pragma once

#include <algorithm>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace kxVsGrid::twin {

/// A whole number without a sign, its units first; 0 has no digits.
using Digits = std::vector<int>;

inline void trim(Digits& number) {
    while (!number.empty() && number.back() == 0) number.pop_back();
}

inline int digitAt(const Digits& number, std::size_t place) {
    return place < number.size() ? number[place] : 0;
}

inline int compared(const Digits& a, const Digits& b) {
    if (a.size() != b.size()) return a.size() < b.size() ? -1 : 1;
    for (std::size_t i = a.size(); i-- > 0;)
        if (a[i] != b[i]) return a[i] < b[i] ? -1 : 1;
    return 0;
}

inline Digits sum(const Digits& a, const Digits& b) {
    Digits result;
    int carried = 0;
    for (std::size_t i = 0; i < std::max(a.size(), b.size()) || carried > 0; ++i) {
        const int digit = digitAt(a, i) + digitAt(b, i) + carried;
        result.push_back(digit % 10);
        carried = digit / 10;
    }
    return result;
}

/// a must not be less than b.
inline Digits difference(const Digits& a, const Digits& b) {
    Digits result;
    int borrowed = 0;
    for (std::size_t i = 0; i < a.size(); ++i) {
        const int digit = a[i] - digitAt(b, i) - borrowed;
        borrowed = digit < 0 ? 1 : 0;
        result.push_back(digit + 10 * borrowed);
    }
    trim(result);
    return result;
}

inline Digits product(const Digits& a, const Digits& b) {
    Digits result(a.size() + b.size(), 0);
    for (std::size_t i = 0; i < a.size(); ++i)
        for (std::size_t j = 0; j < b.size(); ++j) {
            result[i + j] += a[i] * b[j];
            for (std::size_t k = i + j; result[k] >= 10; ++k) {
                result[k + 1] += result[k] / 10;
                result[k] %= 10;
            }
        }
    trim(result);
    return result;
}

inline Digits timesTen(Digits number, int times) {
    if (!number.empty()) number.insert(number.begin(), static_cast<std::size_t>(times), 0);
    return number;
}

/// Rounded half up.
inline Digits quotient(const Digits& a, const Digits& b) {
    Digits result(a.size(), 0);
    Digits rest;
    for (std::size_t i = a.size(); i-- > 0;) {
        rest.insert(rest.begin(), a[i]);
        trim(rest);
        for (; compared(rest, b) >= 0; ++result[i]) rest = difference(rest, b);
    }
    trim(result);
    return compared(sum(rest, rest), b) >= 0 ? sum(result, {1}) : result;
}

struct Number {
    bool negative = false;
    Digits digits;
    int decimals = 0;

    std::string text() const {
        std::string text = negative && !digits.empty() ? "-" : "";
        const auto places = static_cast<std::size_t>(decimals);
        for (std::size_t i = std::max(digits.size(), places + 1); i-- > 0;) {
            text += static_cast<char>('0' + digitAt(digits, i));
            if (i == places && i > 0) text += '.';
        }
        return text;
    }
};

/// The text has to be one number.
inline Number numberOf(std::string_view text) {
    Number result;
    for (const char c : text) {
        if (c == '-') result.negative = true;
        if (c >= '0' && c <= '9') result.digits.insert(result.digits.begin(), c - '0');
    }
    trim(result.digits);
    const std::size_t point = text.find('.');
    if (point != std::string_view::npos) result.decimals = static_cast<int>(text.size() - point - 1);
    return result;
}

inline Number shortest(Number number) {
    while (number.decimals > 0 && digitAt(number.digits, 0) == 0) {
        if (!number.digits.empty()) number.digits.erase(number.digits.begin());
        --number.decimals;
    }
    return number;
}

inline Number rounded(Number number, int decimals) {
    if (decimals >= number.decimals) return number;
    number.digits = quotient(number.digits, timesTen({1}, number.decimals - decimals));
    number.decimals = decimals;
    return number;
}

/// The text of what fits into 18 digits, zeros behind the point aside; nothing for what does not.
inline std::optional<std::string> whatFits(const Number& number) {
    const Number result = shortest(number);
    if (result.digits.size() > 18) return std::nullopt;
    return result.text();
}

inline std::optional<std::string> whatFitsWithFewerDecimals(const Number& exact) {
    for (int decimals = 9; decimals >= 0; --decimals)
        if (rounded(exact, decimals).digits.size() <= 18) return whatFits(rounded(exact, decimals));
    return std::nullopt;
}

inline Number plus(const Number& a, const Number& b) {
    const int decimals = std::max(a.decimals, b.decimals);
    const Digits first = timesTen(a.digits, decimals - a.decimals);
    const Digits second = timesTen(b.digits, decimals - b.decimals);
    if (a.negative == b.negative) return {a.negative, sum(first, second), decimals};
    if (compared(first, second) < 0) return {b.negative, difference(second, first), decimals};
    return {a.negative, difference(first, second), decimals};
}

inline Number times(const Number& a, const Number& b) {
    return {a.negative != b.negative, product(a.digits, b.digits), a.decimals + b.decimals};
}

inline Number over(const Number& a, const Number& b, int decimals) {
    return {a.negative != b.negative,
            quotient(timesTen(a.digits, decimals + b.decimals), timesTen(b.digits, a.decimals)), decimals};
}

/// The quotient with as many of its nine decimals as there is room for.
inline std::optional<std::string> quotientThatFits(const Number& a, const Number& b) {
    for (int decimals = 9; decimals >= 0; --decimals)
        if (const Number result = over(a, b, decimals); result.digits.size() <= 18) return whatFits(result);
    return std::nullopt;
}

/// Below 0, 0 or above 0.
inline int order(const Number& a, const Number& b) {
    const Number rest = plus(a, {!b.negative, b.digits, b.decimals});
    return rest.digits.empty() ? 0 : rest.negative ? -1 : 1;
}
}  // namespace kxVsGrid::twin

// The one reader of plain decimal numbers, shared by the cells' numbers and the evaluator.
#pragma once

namespace kxVsGrid::support {

struct PlainNumber {
    double value;     ///< 0 when there is no digit; infinite when too large
    const char* end;  ///< the first character that is no part of the number
    bool hasDigits;   ///< false for "" and "."
};

/// Reads digits with at most one '.' from the start of [first, last), rounded correctly.
PlainNumber readDecimal(const char* first, const char* last);

/// The same with an exponent, which counts only when it has digits.
PlainNumber readDecimalWithExponent(const char* first, const char* last);

inline bool isDigit(char c) {
    return c >= '0' && c <= '9';
}
}  // namespace kxVsGrid::support

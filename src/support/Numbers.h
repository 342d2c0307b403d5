// Numbers as cells hold them: texts with a decimal point.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace kxVsGrid::support {

/// The number at the start of a text: leading blanks, sign, digits with one '.', exponent e or E. Reading
/// stops at the first other character; no number is 0. "1,5" is 1, "12abc" is 12, "abc" is 0, "1e3x" is 1000,
/// "1ex" is 1.
double leadingNumber(std::string_view text);

/// The same for a text as a number format displays it: a ',' between digits before the point does not stop
/// it, so "1,234.50" is 1234.5.
double leadingNumberOfDisplayed(std::string_view text);

/// The text without its group separators when `grouped` and all of it (blanks around it aside) is one number
/// whose whole part is written in groups of three digits, "-1,234.50"; any other text as it is.
std::string withoutGroups(std::string_view text, bool grouped);

/// The value when the whole text (blanks around it aside) is one number as leadingNumber reads it, and
/// finite.
std::optional<double> completeNumber(std::string_view text);

/// The standard text of a number: at most 15 significant digits, no trailing zeros, '.', a leading "0.",
/// never "-0", never an exponent (the evaluator reads none). 0.1 + 0.2 is "0.3". Not finite: "0".
std::string numberText(double value);

/// The text of a total without a format: like numberText, but "d.dddE+nn" outside 1e-5 <= |x| < 1e15.
std::string totalText(double value);

/// Nearest whole number, halves to even.
double roundHalfEven(double value);
}  // namespace kxVsGrid::support

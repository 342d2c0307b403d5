// The arithmetic that a clerk may type into a number cell: 12*3+4.5, (2+3)4, -2^2.
//
//     double value;
//     const bool right = kxVsGrid::bEvaluateExp("12*3+4.5", value);   // true, and value is 40.5
//
// Digits with one decimal point, the operators + - * / ^, parentheses; blanks anywhere are ignored, also
// inside a number. ^ binds strongest, then * and /, then + and -; every level, ^ included, is evaluated from
// the left (2^3^2 is 64). A sign may stand before any operand; -2^2 is -4. A number or a group next to a
// group multiplies: 2(3+4), (1+2)(3+4), (2+3)4.
#pragma once

#include <cstdint>
#include <string_view>

namespace kxVsGrid {

/// Evaluates `psExp` into `pdResult` and returns true; returns false, never throws, when the text is no
/// complete expression or when the arithmetic fails (division by zero, overflow, an undefined power). The
/// result is then 0, or a partial sum when a sum overflowed. `piOffset` is the position of a sub-expression
/// within the whole text; it never changes the result, and callers leave it out.
bool bEvaluateExp(std::string_view psExp, double& pdResult, std::int16_t piOffset = 0);

/// True for exactly one of "*", "/", "+", "-", "^".
bool IsOperator(std::string_view psChar);
}  // namespace kxVsGrid

// Why an expression cannot be evaluated, and where: what bEvaluateExp answers False to, in the clerk's terms.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

namespace kxVsGrid::support {

struct ExpressionFault {
    enum class Reason : std::uint8_t {
        OperandMissing,    ///< a number should stand here
        Unpaired,          ///< a parenthesis without its partner
        DecimalPoint,      ///< a second one in one number
        UnknownCharacter,  ///< neither a digit nor a sign
        DivisionByZero,    ///< at the divisor
        UndefinedPower,    ///< a root of a negative number; at the exponent
        TooLarge,          ///< a number or a result
        TooLong,           ///< for the memory there is
    };
    Reason reason = Reason::UnknownCharacter;
    std::size_t place = 0;  ///< the byte of the text; its size when something is missing at the end
    friend bool operator==(const ExpressionFault&, const ExpressionFault&) = default;
};

/// The first fault of the expression, read from the left; nothing when bEvaluateExp evaluates it. Never
/// throws. Costs as much as evaluating it.
std::optional<ExpressionFault> expressionFault(std::string_view expression);
}  // namespace kxVsGrid::support

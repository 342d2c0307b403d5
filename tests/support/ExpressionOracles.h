// Two slow evaluators that the real one must agree with. They share no code with it or with each other.
#pragma once

#include <string_view>

namespace kxVsGrid::test {

struct Evaluated {
    bool succeeded;
    double result;
};

/// The rules written down step by step: a list of operands, a list of operators, a call of itself for every
/// group, and five passes over the lists.
Evaluated evaluateByPasses(std::string_view text);

/// The same language by a grammar with one function per level of precedence. It reads 2^-2^2 as 2^(-2)^2,
/// where the rules pass the sign on as ^-1^; `oddPower` says that such a place was met and the result may
/// differ.
Evaluated evaluateByGrammar(std::string_view text, bool& oddPower);
}  // namespace kxVsGrid::test

#include <cmath>
#include <cstdlib>
#include <stdexcept>
#include <string>

#include "support/ExpressionOracles.h"

namespace kxVsGrid::test {
namespace {

struct Refused : std::runtime_error {
    Refused() : std::runtime_error("refused") {}
};

double finite(double value) {
    if (!std::isfinite(value)) throw Refused();
    return value;
}

//   sum     = product { ("+" | "-") product }
//   product = power { ("*" | "/" | nothing, before or after a group) power }
//   power   = signed { "^" signed }
//   signed  = { "+" | "-" } (number | "(" sum ")")
class Grammar {
  public:
    explicit Grammar(std::string text) : text_(std::move(text)) {}

    double whole() {
        const double value = sum();
        if (at_ != text_.size()) throw Refused();
        return value;
    }

    bool oddPower() const { return oddPower_; }

  private:
    char next() const { return at_ < text_.size() ? text_[at_] : '\0'; }
    bool take(char c) {
        if (next() != c) return false;
        ++at_;
        return true;
    }
    bool atNumber() const { return next() == '.' || (next() >= '0' && next() <= '9'); }

    double sum() {
        double value = product();
        while (next() == '+' || next() == '-') {
            const char sign = text_[at_++];
            const double term = product();
            value = finite(sign == '+' ? value + term : value - term);
        }
        return value;
    }

    double product() {
        double value = power();
        for (;;) {
            if (take('/')) {
                const double divisor = power();
                value = divisor == 0 ? throw Refused() : finite(value / divisor);
            } else if (take('*') || next() == '(' || (afterGroup_ && atNumber())) {
                value = finite(value * power());
            } else {
                return value;
            }
        }
    }

    double power() {
        const bool negative = signs();
        double value = unsignedOperand();
        if (next() != '^') return negative ? -value : value;
        while (take('^')) {
            const bool negativeExponent = signs();
            const double exponent = unsignedOperand();
            oddPower_ = oddPower_ || (negativeExponent && next() == '^');
            value = finite(std::pow(value, negativeExponent ? -exponent : exponent));
        }
        return negative ? -value : value;
    }

    bool signs() {
        bool negative = false;
        for (; next() == '+' || next() == '-'; ++at_) negative = negative != (next() == '-');
        return negative;
    }

    double unsignedOperand() {
        if (take('(')) {
            const double value = sum();
            if (!take(')')) throw Refused();
            afterGroup_ = true;
            return value;
        }
        std::string number;
        while (atNumber()) number += text_[at_++];
        afterGroup_ = false;
        if (number.empty() || number.find('.') != number.rfind('.')) throw Refused();
        return number == "." ? 0 : finite(std::strtod(number.c_str(), nullptr));
    }

    std::string text_;
    std::size_t at_ = 0;
    bool afterGroup_ = false;  // the operand just read was a group
    bool oddPower_ = false;
};

}  // namespace

Evaluated evaluateByGrammar(std::string_view text, bool& oddPower) {
    std::string withoutBlanks;
    for (const char c : text)
        if (c != ' ') withoutBlanks += c;
    Grammar grammar(withoutBlanks);
    Evaluated evaluated{};
    try {
        evaluated.result = grammar.whole();
        evaluated.succeeded = true;
    } catch (const Refused&) {
        evaluated.result = 0;
    }
    oddPower = grammar.oddPower();
    return evaluated;
}
}  // namespace kxVsGrid::test

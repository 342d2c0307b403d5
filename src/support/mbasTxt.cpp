#include "kxVsGrid/mbasTxt.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <exception>
#include <string>
#include <vector>

#include "support/Decimal.h"

namespace kxVsGrid {
namespace {

using support::Decimal;
using support::isDigit;
using support::readDecimal;

constexpr char kNone = '\0';

bool isOperator(char c) {
    return c == '*' || c == '/' || c == '+' || c == '-' || c == '^';
}

// A power of -1 that the compiler sees it turns into a division, whose last bit may differ: results would
// depend on how far it looks.
double power(double base, double exponent) {
    const volatile double unseen = exponent;
    return std::pow(base, unseen);
}

// One level of parentheses. Instead of lists of operands and operators it keeps the value of the term, the
// factor and the power under way: every operator is evaluated from the left, so nothing before them can
// change any more.
class Level {
  public:
    void start() {
        before_ = productOperator_ = sumOperator_ = kNone;
        negate_ = sumFault_ = false;
        power_ = product_ = sum_ = 0;
    }

    void toggleSign() { negate_ = !negate_; }

    /// Takes the next operand and the operator after it, kNone at the end; false on an arithmetic fault in a
    /// power or a product.
    bool take(double operand, char after) {
        // A sign binds more loosely than a power: it becomes a factor of its own. A division or a power
        // before it goes on through that factor: 8/-2^2 is 8/-1/4, and 2^-2^2 is ((2^-1)^2)^2.
        if (negate_ && after == '^') {
            negate_ = false;
            if (!push(-1, before_ == '/' || before_ == '^' ? before_ : '*')) return false;
        }
        if (negate_) operand = -operand;
        negate_ = false;
        return push(operand, after);
    }

    /// The sum of all terms so far, or of those before the one at which it overflowed.
    double sum() const { return sum_; }
    bool sumFault() const { return sumFault_; }

  private:
    bool push(double operand, char after) {
        const char before = before_;
        before_ = after;
        if (before != '^') {
            power_ = operand;
        } else {
            power_ = power(power_, operand);
            if (!std::isfinite(power_)) return false;
        }
        return after == '^' || endFactor(after);
    }

    bool endFactor(char after) {
        if (productOperator_ == kNone) {
            product_ = power_;
        } else {
            product_ = productOperator_ == '*' ? power_ * product_ : product_ / power_;
            if (!std::isfinite(product_)) return false;
        }
        const bool goesOn = after == '*' || after == '/';
        productOperator_ = goesOn ? after : kNone;
        if (!goesOn) endTerm(after);
        return true;
    }

    // A sum that overflows is remembered only: a later fault in a power or a product comes first.
    void endTerm(char after) {
        const double next = sumOperator_ == kNone ? product_
                            : sumOperator_ == '+' ? product_ + sum_
                                                  : sum_ - product_;
        sumOperator_ = after;
        sumFault_ = sumFault_ || !std::isfinite(next);
        if (!sumFault_) sum_ = next;
    }

    double power_, product_, sum_;
    char before_;           // the operator before the operand to come
    char productOperator_;  // between product_ and the power under way
    char sumOperator_;      // between sum_ and the product under way
    bool negate_;
    bool sumFault_;
};

// The levels around the one being read. The first ones need no memory of their own; the rest may be millions,
// which recursion could not bear.
class OuterLevels {
  public:
    bool empty() const { return count_ == 0; }

    void push(const Level& level) {
        if (count_ < few_.size())
            few_[count_] = level;
        else
            many_.push_back(level);
        ++count_;
    }

    Level pop() {
        --count_;
        if (count_ < few_.size()) return few_[count_];
        const Level level = many_.back();
        many_.pop_back();
        return level;
    }

  private:
    std::array<Level, 16> few_;
    std::vector<Level> many_;
    std::size_t count_ = 0;
};

// Reads an expression without blanks from left to right.
class Evaluation {
  public:
    Evaluation(const char* first, const char* last) : at_(first), last_(last) { level_.start(); }

    bool run(double& result) {
        while (at_ != last_)
            if (!step()) return false;
        if (!outer_.empty() || !hasOperand_ || !level_.take(operand_, kNone)) return false;
        result = level_.sum();
        return !level_.sumFault();
    }

  private:
    bool step() {
        const char c = *at_;
        if (isDigit(c) || c == '.') return number();
        ++at_;
        if (c == '(') return open();
        if (c == ')') return close();
        return isOperator(c) && operation(c);
    }

    bool number() {
        if (!impliedProduct()) return false;
        const Decimal number = readDecimal(at_, last_);
        at_ = number.end;
        operand_ = number.value;
        hasOperand_ = true;
        return std::isfinite(operand_) && (at_ == last_ || *at_ != '.');
    }

    bool open() {
        if (!impliedProduct()) return false;
        outer_.push(level_);
        level_.start();
        return true;
    }

    bool close() {
        if (outer_.empty() || !hasOperand_ || !level_.take(operand_, kNone) || level_.sumFault())
            return false;
        operand_ = level_.sum();
        level_ = outer_.pop();
        return true;
    }

    bool operation(char c) {
        if (hasOperand_) {
            hasOperand_ = false;
            return level_.take(operand_, c);
        }
        if (c == '-') level_.toggleSign();
        return c == '-' || c == '+';
    }

    // 2(3), (2)3 and (2)(3): an operand before an operand multiplies.
    bool impliedProduct() {
        if (!hasOperand_) return true;
        hasOperand_ = false;
        return level_.take(operand_, '*');
    }

    const char* at_;
    const char* last_;
    double operand_ = 0;  // the number or group just read
    bool hasOperand_ = false;
    Level level_;
    OuterLevels outer_;
};

bool evaluateWithoutBlanks(std::string_view text, double& result) {
    return Evaluation(text.data(), text.data() + text.size()).run(result);
}

bool evaluate(std::string_view text, double& result) {
    if (text.find(' ') == std::string_view::npos) return evaluateWithoutBlanks(text, result);
    std::array<char, 256> few;
    if (text.size() <= few.size()) {
        char* const end = std::remove_copy(text.begin(), text.end(), few.data(), ' ');
        return evaluateWithoutBlanks({few.data(), static_cast<std::size_t>(end - few.data())}, result);
    }
    std::string many(text);
    many.erase(std::remove(many.begin(), many.end(), ' '), many.end());
    return evaluateWithoutBlanks(many, result);
}

}  // namespace

bool bEvaluateExp(std::string_view psExp, double& pdResult, std::int16_t /*piOffset*/) {
    pdResult = 0;
    try {
        return evaluate(psExp, pdResult);
    } catch (const std::exception&) {  // no memory for a text of millions of parentheses
        return false;
    }
}

bool IsOperator(std::string_view psChar) {
    return psChar.size() == 1 && isOperator(psChar.front());
}
}  // namespace kxVsGrid

#include "kxVsGrid/mbasTxt.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <exception>
#include <string>
#include <vector>

#include "support/ExpressionFault.h"
#include "support/ReadDecimal.h"

namespace kxVsGrid {
namespace {

using support::ExpressionFault;
using support::isDigit;
using support::PlainNumber;
using support::readDecimal;

using Reason = ExpressionFault::Reason;

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
// change any more. Of each fault it knows the reason and the place.
class Level {
  public:
    void start(const char* at) {
        begin_ = powerAt_ = faultAt_ = at;
        before_ = productOperator_ = sumOperator_ = kNone;
        negate_ = sumFault_ = false;
        faultReason_ = Reason::UnknownCharacter;
        power_ = product_ = sum_ = 0;
    }

    void toggleSign() { negate_ = !negate_; }

    /// Where the level begins: its parenthesis.
    const char* begin() const { return begin_; }

    /// Takes the next operand, which stands at `at`, and the operator after it, kNone at the end; false on an
    /// arithmetic fault in a power or a product.
    bool take(double operand, const char* at, char after) {
        // A sign binds more loosely than a power: it becomes a factor of its own. A division or a power
        // before it goes on through that factor: 8/-2^2 is 8/-1/4, and 2^-2^2 is ((2^-1)^2)^2.
        if (negate_ && after == '^') {
            negate_ = false;
            if (!push(-1, at, before_ == '/' || before_ == '^' ? before_ : '*')) return false;
        }
        if (negate_) operand = -operand;
        negate_ = false;
        return push(operand, at, after);
    }

    /// The sum of all terms so far, or of those before the one at which it overflowed.
    double sum() const { return sum_; }
    bool sumFault() const { return sumFault_; }

    /// Of the fault that take() or the sum has come upon.
    Reason faultReason() const { return faultReason_; }
    const char* faultAt() const { return faultAt_; }

  private:
    bool push(double operand, const char* at, char after) {
        const char before = before_;
        before_ = after;
        if (before != '^') {
            power_ = operand;
            powerAt_ = at;
        } else {
            const double base = power_;
            power_ = power(base, operand);
            if (!std::isfinite(power_))
                return fail(base == 0            ? Reason::DivisionByZero
                            : std::isnan(power_) ? Reason::UndefinedPower
                                                 : Reason::TooLarge,
                            at);
        }
        return after == '^' || endFactor(after);
    }

    bool fail(Reason reason, const char* at) {
        faultReason_ = reason;
        faultAt_ = at;
        return false;
    }

    bool endFactor(char after) {
        if (productOperator_ == kNone) {
            product_ = power_;
        } else {
            product_ = productOperator_ == '*' ? power_ * product_ : product_ / power_;
            if (!std::isfinite(product_))
                return fail(power_ == 0 ? Reason::DivisionByZero : Reason::TooLarge, powerAt_);
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
        if (!sumFault_ && !std::isfinite(next)) {
            fail(Reason::TooLarge, powerAt_);
            sumFault_ = true;
        }
        if (!sumFault_) sum_ = next;
    }

    double power_, product_, sum_;
    const char* begin_;
    const char* powerAt_;  // where the power under way, or the last one, stands
    const char* faultAt_;
    char before_;           // the operator before the operand to come
    char productOperator_;  // between product_ and the power under way
    char sumOperator_;      // between sum_ and the product under way
    bool negate_;
    bool sumFault_;
    Reason faultReason_;
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
    Evaluation(const char* first, const char* last) : at_(first), last_(last), operandAt_(first) {
        level_.start(first);
    }

    bool run(double& result) {
        while (at_ != last_)
            if (!step()) return false;
        if (!hasOperand_) return fail(Reason::OperandMissing, last_);
        if (!outer_.empty()) return fail(Reason::Unpaired, level_.begin());
        if (!take(kNone)) return false;
        result = level_.sum();
        return !level_.sumFault() || failLevel();
    }

    /// Of a run that has failed.
    Reason faultReason() const { return faultReason_; }
    const char* faultAt() const { return faultAt_; }

  private:
    bool fail(Reason reason, const char* at) {
        faultReason_ = reason;
        faultAt_ = at;
        return false;
    }
    bool failLevel() { return fail(level_.faultReason(), level_.faultAt()); }
    bool take(char after) { return level_.take(operand_, operandAt_, after) || failLevel(); }

    bool step() {
        const char c = *at_;
        if (isDigit(c) || c == '.') return number();
        const char* const here = at_++;
        if (c == '(') return open(here);
        if (c == ')') return close(here);
        return isOperator(c) ? operation(c, here) : fail(Reason::UnknownCharacter, here);
    }

    bool number() {
        if (!impliedProduct()) return false;
        const PlainNumber number = readDecimal(at_, last_);
        operandAt_ = at_;
        at_ = number.end;
        operand_ = number.value;
        hasOperand_ = true;
        if (!std::isfinite(operand_)) return fail(Reason::TooLarge, operandAt_);
        return at_ == last_ || *at_ != '.' || fail(Reason::DecimalPoint, at_);
    }

    bool open(const char* here) {
        if (!impliedProduct()) return false;
        outer_.push(level_);
        level_.start(here);
        return true;
    }

    bool close(const char* here) {
        if (outer_.empty()) return fail(Reason::Unpaired, here);
        if (!hasOperand_) return fail(Reason::OperandMissing, here);
        if (!take(kNone)) return false;
        if (level_.sumFault()) return failLevel();
        operand_ = level_.sum();
        operandAt_ = level_.begin();
        level_ = outer_.pop();
        return true;
    }

    bool operation(char c, const char* here) {
        if (hasOperand_) {
            hasOperand_ = false;
            return take(c);
        }
        if (c == '-') level_.toggleSign();
        return c == '-' || c == '+' || fail(Reason::OperandMissing, here);
    }

    // 2(3), (2)3 and (2)(3): an operand before an operand multiplies.
    bool impliedProduct() {
        if (!hasOperand_) return true;
        hasOperand_ = false;
        return take('*');
    }

    const char* at_;
    const char* last_;
    const char* operandAt_;
    const char* faultAt_ = nullptr;
    double operand_ = 0;  // the number or group just read
    bool hasOperand_ = false;
    Reason faultReason_ = Reason::UnknownCharacter;
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

// The byte of the text that stands at a place of the same text without blanks.
std::size_t placeWithBlanks(std::string_view text, std::size_t place) {
    for (std::size_t at = 0; at < text.size(); ++at)
        if (text[at] != ' ' && place-- == 0) return at;
    return text.size();
}

std::optional<ExpressionFault> findFault(std::string_view text) {
    std::string plain(text);
    plain.erase(std::remove(plain.begin(), plain.end(), ' '), plain.end());
    Evaluation evaluation(plain.data(), plain.data() + plain.size());
    double result = 0;
    if (evaluation.run(result)) return std::nullopt;
    const auto place = static_cast<std::size_t>(evaluation.faultAt() - plain.data());
    return ExpressionFault{evaluation.faultReason(), placeWithBlanks(text, place)};
}
}  // namespace

std::optional<support::ExpressionFault> support::expressionFault(std::string_view expression) {
    try {
        return findFault(expression);
    } catch (const std::exception&) {  // as below
        return ExpressionFault{Reason::TooLong, 0};
    }
}

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

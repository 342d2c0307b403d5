#include <cmath>
#include <cstdlib>
#include <stdexcept>
#include <string>
#include <vector>

#include "support/ExpressionOracles.h"

namespace kxVsGrid::test {
namespace {

struct Fault : std::runtime_error {
    Fault() : std::runtime_error("arithmetic fault") {}
};

double checked(double value) {
    if (!std::isfinite(value)) throw Fault();
    return value;
}

double valueOfNumber(const std::string& number) {
    if (number == ".") return 0;
    return checked(std::strtod(number.c_str(), nullptr));
}

bool isOperator(char c) {
    return std::string("*/+-^").find(c) != std::string::npos;
}

class Lists {
  public:
    bool scan(const std::string& text);
    void powers();
    void products();
    void sums(double& result) const;

  private:
    void push(char op);
    bool pushOperator(const std::string& text, std::size_t i);
    bool readGroup(const std::string& text, std::size_t& i);
    void digitOrPoint(char c);
    double operand();

    std::vector<double> operands_{0};  // numbered from 1
    std::string operators_ = "?";      // likewise
    std::string number_;
    bool point_ = false;
    bool negate_ = false;
    bool groupPending_ = false;
    double group_ = 0;
};

bool evaluate(std::string_view withBlanks, double& result) {
    std::string text;
    for (const char c : withBlanks)
        if (c != ' ') text += c;
    result = 0;
    if (text.empty()) return false;
    try {
        Lists lists;
        if (!lists.scan(text)) return false;
        lists.powers();
        lists.products();
        lists.sums(result);
        return true;
    } catch (const Fault&) {
        return false;
    }
}

double Lists::operand() {
    double value = 0;
    if (groupPending_) {
        value = group_;
        groupPending_ = false;
    } else {
        value = valueOfNumber(number_);
    }
    if (negate_) value = -value;
    return value;
}

void Lists::push(char op) {
    if (op == '^' && negate_) {
        const char previous = operators_.back();
        operands_.push_back(-1);
        operators_ += previous == '/' || previous == '^' ? previous : '*';
        negate_ = false;
    }
    operands_.push_back(operand());
    operators_ += op;
    number_.clear();
    point_ = negate_ = false;
}

void Lists::digitOrPoint(char c) {
    if (groupPending_) push('*');
    if (c == '.') point_ = true;
    number_ += c;
}

bool Lists::pushOperator(const std::string& text, std::size_t i) {
    const char c = text[i];
    if (number_.empty() && !groupPending_) {
        if (c == '-') negate_ = !negate_;
        return c == '-' || c == '+';
    }
    if (i + 1 == text.size()) return false;
    push(c);
    return true;
}

bool Lists::readGroup(const std::string& text, std::size_t& i) {
    if (i > 0 && !isOperator(text[i - 1])) push('*');
    int open = 1;
    std::size_t j = i + 1;
    for (; j < text.size(); ++j) {
        if (text[j] == '(') ++open;
        if (text[j] == ')' && --open == 0) break;
    }
    if (j == text.size()) return false;
    if (!evaluate(std::string_view(text).substr(i + 1, j - i - 1), group_)) return false;
    groupPending_ = true;
    i = j;
    return true;
}

bool Lists::scan(const std::string& text) {
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char c = text[i];
        if (c == '.' && point_) return false;
        if ((c >= '0' && c <= '9') || c == '.') {
            digitOrPoint(c);
        } else if (c == '(') {
            if (!readGroup(text, i)) return false;
        } else if (!isOperator(c) || !pushOperator(text, i)) {
            return false;
        }
    }
    if (!groupPending_ && number_.empty()) return false;
    operands_.push_back(operand());
    return true;
}

void Lists::powers() {
    const std::size_t m = operators_.size() - 1;
    for (std::size_t i = 1; i <= m; ++i)
        if (operators_[i] == '^') operands_[i + 1] = checked(std::pow(operands_[i], operands_[i + 1]));
    for (std::size_t i = m; i >= 1; --i)
        if (operators_[i] == '^') operands_[i] = operands_[i + 1];
}

void Lists::products() {
    const std::size_t m = operators_.size() - 1;
    for (std::size_t i = 1; i <= m; ++i) {
        const double left = operands_[i];
        double& right = operands_[i + 1];
        if (operators_[i] == '^') right = left;
        if (operators_[i] == '*') right = checked(right * left);
        // A divisor of 0 is looked for before dividing, so that the oracle itself does nothing undefined.
        if (operators_[i] == '/') right = right == 0 ? throw Fault() : checked(left / right);
    }
    for (std::size_t i = m; i >= 1; --i)
        if (operators_[i] == '^' || operators_[i] == '*' || operators_[i] == '/')
            operands_[i] = operands_[i + 1];
}

void Lists::sums(double& result) const {
    result = operands_[1];
    for (std::size_t i = 1; i < operators_.size(); ++i) {
        if (operators_[i] == '+') result = checked(operands_[i + 1] + result);
        if (operators_[i] == '-') result = checked(result - operands_[i + 1]);
    }
}

}  // namespace

Evaluated evaluateByPasses(std::string_view text) {
    Evaluated evaluated{};
    evaluated.succeeded = evaluate(text, evaluated.result);
    return evaluated;
}
}  // namespace kxVsGrid::test

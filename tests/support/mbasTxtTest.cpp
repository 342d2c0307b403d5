// The arithmetic of number cells: every rule by an example. Random comparisons are in mbasTxtOracleTest.cpp.
#include "kxVsGrid/mbasTxt.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <string>

namespace kxVsGrid {
namespace {

constexpr double kLargest = std::numeric_limits<double>::max();

struct Outcome {
    bool succeeded;
    double result;
    friend bool operator==(const Outcome&, const Outcome&) = default;
    friend std::ostream& operator<<(std::ostream& out, const Outcome& o) {
        return out << (o.succeeded ? "true, " : "false, ") << o.result;
    }
};

Outcome evaluate(std::string_view text) {
    Outcome outcome{false, 12345};  // so that a forgotten assignment shows
    outcome.succeeded = bEvaluateExp(text, outcome.result);
    return outcome;
}

Outcome value(double expected) {
    return {true, expected};
}
const Outcome kRefused{false, 0};

std::string repeated(std::string_view text, int times) {
    std::string result;
    for (int i = 0; i < times; ++i) result += text;
    return result;
}

// The largest double in digits.
std::string largestNumber() {
    return std::to_string(kLargest);
}

TEST(Evaluator, IgnoresBlanksAnywhereAlsoInsideANumber) {
    EXPECT_EQ(evaluate("1 + 2 * 3"), value(7));
    EXPECT_EQ(evaluate("  1+2*3  "), value(7));
    EXPECT_EQ(evaluate("1 2"), value(12));
    EXPECT_EQ(evaluate("1 . 5 * ( 2 )"), value(3));
    EXPECT_EQ(evaluate(repeated(" ", 400) + "4" + repeated(" ", 400) + "2"), value(42));
}

TEST(Evaluator, RefusesOtherWhiteSpace) {
    EXPECT_EQ(evaluate("1\t+2"), kRefused);
    EXPECT_EQ(evaluate("1\n"), kRefused);
    EXPECT_EQ(evaluate("1\xC2\xA0"), kRefused);
    EXPECT_EQ(evaluate("1\xE3\x80\x80"), kRefused);
}

TEST(Evaluator, RefusesTextWithoutContent) {
    EXPECT_EQ(evaluate(""), kRefused);
    EXPECT_EQ(evaluate("   "), kRefused);
    EXPECT_EQ(evaluate(std::string_view{}), kRefused);
}

TEST(Evaluator, SetsTheResultToZeroBeforeAnythingElse) {
    double result = 7;
    EXPECT_FALSE(bEvaluateExp("1a", result));
    EXPECT_EQ(result, 0);
}

TEST(Evaluator, NeverLetsThePositionChangeTheResult) {
    for (const int offset : {-32768, -1, 0, 5, 32767}) {
        double result = 0;
        EXPECT_TRUE(bEvaluateExp("2(3+4)", result, static_cast<std::int16_t>(offset)));
        EXPECT_EQ(result, 14);
    }
}

TEST(Evaluator, ReadsNumbersWithOnePoint) {
    EXPECT_EQ(evaluate("12*3+4.5"), value(40.5));
    EXPECT_EQ(evaluate(".5"), value(0.5));
    EXPECT_EQ(evaluate("5."), value(5));
    EXPECT_EQ(evaluate("007"), value(7));
    EXPECT_EQ(evaluate("0.1"), value(0.1));
    EXPECT_EQ(evaluate("123456789.123456789"), value(123456789.123456789));
    EXPECT_EQ(evaluate("0.1234567890123456789012345"), value(0.1234567890123456789012345));
}

TEST(Evaluator, ReadsALonePointAsZero) {
    EXPECT_EQ(evaluate("."), value(0));
    EXPECT_EQ(evaluate(".+1"), value(1));
    EXPECT_EQ(evaluate("2(.)"), value(0));
}

TEST(Evaluator, RefusesASecondPointInANumber) {
    EXPECT_EQ(evaluate("1.2.3"), kRefused);
    EXPECT_EQ(evaluate(".."), kRefused);
    EXPECT_EQ(evaluate("1..2"), kRefused);
    EXPECT_EQ(evaluate("(2).5.5"), kRefused);
    EXPECT_EQ(evaluate("1.5+2.5"), value(4));
    EXPECT_EQ(evaluate("1.5(2.5)"), value(3.75));
    EXPECT_EQ(evaluate("(2).5"), value(1));
}

TEST(Evaluator, ReadsNumbersTooSmallForADoubleAsZero) {
    EXPECT_EQ(evaluate("." + repeated("0", 400) + "1"), value(0));
}

TEST(Evaluator, RefusesNumbersTooLargeForADouble) {
    EXPECT_EQ(evaluate("1" + repeated("0", 308)), value(1e308));
    EXPECT_EQ(evaluate("1" + repeated("0", 309)), kRefused);
    EXPECT_EQ(evaluate(repeated("0", 500) + "3"), value(3));
}

TEST(Evaluator, MultipliesAndDividesBeforeItAddsAndSubtracts) {
    EXPECT_EQ(evaluate("1+2*3"), value(7));
    EXPECT_EQ(evaluate("10-6/2"), value(7));
    EXPECT_EQ(evaluate("2*3+4*5-6/3"), value(24));
    EXPECT_EQ(evaluate("10/4"), value(2.5));
}

TEST(Evaluator, RaisesBeforeItMultiplies) {
    EXPECT_EQ(evaluate("2*3^2"), value(18));
    EXPECT_EQ(evaluate("3^2*2"), value(18));
    EXPECT_EQ(evaluate("1+2^3"), value(9));
    EXPECT_EQ(evaluate("2^3+1"), value(9));
    EXPECT_EQ(evaluate("100/5^2/2"), value(2));
}

TEST(Evaluator, EvaluatesEveryLevelFromTheLeft) {
    EXPECT_EQ(evaluate("7-2-1"), value(4));
    EXPECT_EQ(evaluate("8/2/2"), value(2));
    EXPECT_EQ(evaluate("8/2*4"), value(16));
    EXPECT_EQ(evaluate("2^3^2"), value(64));
    EXPECT_EQ(evaluate("2^2^2^2"), value(256));
    EXPECT_EQ(evaluate("0.1+0.2+0.3"), value(0.1 + 0.2 + 0.3));
    EXPECT_EQ(evaluate("0.3+0.2+0.1"), value(0.3 + 0.2 + 0.1));
}

TEST(Evaluator, TakesSignsBeforeAnyOperand) {
    EXPECT_EQ(evaluate("+5"), value(5));
    EXPECT_EQ(evaluate("-5"), value(-5));
    EXPECT_EQ(evaluate("--1"), value(1));
    EXPECT_EQ(evaluate("--5"), value(5));
    EXPECT_EQ(evaluate("+-1"), value(-1));
    EXPECT_EQ(evaluate("-+1"), value(-1));
    EXPECT_EQ(evaluate("---1"), value(-1));
    EXPECT_EQ(evaluate("1--1"), value(2));
    EXPECT_EQ(evaluate("1++1"), value(2));
    EXPECT_EQ(evaluate("5*-3"), value(-15));
    EXPECT_EQ(evaluate("6/-3"), value(-2));
    EXPECT_EQ(evaluate("2^-2"), value(0.25));
}

TEST(Evaluator, TakesSignsBeforeAGroup) {
    EXPECT_EQ(evaluate("-(2+3)"), value(-5));
    EXPECT_EQ(evaluate("-(1+2)"), value(-3));
    EXPECT_EQ(evaluate("2*-(1+2)"), value(-6));
    EXPECT_EQ(evaluate("-(2)(3)"), value(-6));
    EXPECT_EQ(evaluate("2^-(2)"), value(0.25));
}

TEST(Evaluator, BindsASignMoreLooselyThanAPower) {
    EXPECT_EQ(evaluate("-2^2"), value(-4));
    EXPECT_EQ(evaluate("--2^2"), value(4));
    EXPECT_EQ(evaluate("-(1+2)^2"), value(-9));
    EXPECT_EQ(evaluate("3*-2^2"), value(-12));
    EXPECT_EQ(evaluate("3+-2^2"), value(-1));
    EXPECT_EQ(evaluate("3--2^2"), value(7));
    EXPECT_EQ(evaluate("-2^2*3"), value(-12));
    EXPECT_EQ(evaluate("(-2)^2"), value(4));
}

TEST(Evaluator, CopiesADivisionBeforeASignedPower) {
    EXPECT_EQ(evaluate("8/-2^2"), value(-2));
}

TEST(Evaluator, CopiesAPowerBeforeASignedPower) {
    EXPECT_EQ(evaluate("2^-2^2"), value(0.0625));
    EXPECT_EQ(evaluate("4^-.5^2"), value(0.25));  // ((4^-1)^.5)^2
    EXPECT_EQ(evaluate("0^-0^1"), kRefused);      // 0^-1 where 0^(-0) would be 1
}

TEST(Evaluator, MultipliesAdjacentOperands) {
    EXPECT_EQ(evaluate("2(3)"), value(6));
    EXPECT_EQ(evaluate("2(3+4)"), value(14));
    EXPECT_EQ(evaluate("(2)3"), value(6));
    EXPECT_EQ(evaluate("(2+3)4"), value(20));
    EXPECT_EQ(evaluate("(1+2)(3+4)"), value(21));
    EXPECT_EQ(evaluate("2(3)4(5)"), value(120));
    EXPECT_EQ(evaluate("-2(3)"), value(-6));
    EXPECT_EQ(evaluate(".(3)"), value(0));
    EXPECT_EQ(evaluate("2(3)^2"), value(18));
    EXPECT_EQ(evaluate("12/2(3)"), value(18));
}

TEST(Evaluator, ReadsNestedGroups) {
    EXPECT_EQ(evaluate("((2))"), value(2));
    EXPECT_EQ(evaluate("((1+2)*(3+4))-1"), value(20));
    EXPECT_EQ(evaluate("2((3)(4))"), value(24));
    EXPECT_EQ(evaluate("(2+3)*(4-1)/7"), value(15.0 / 7));
}

TEST(Evaluator, RefusesParenthesesWithoutTheirPartner) {
    EXPECT_EQ(evaluate("(1+2"), kRefused);
    EXPECT_EQ(evaluate("1+2)"), kRefused);
    EXPECT_EQ(evaluate(")1("), kRefused);
    EXPECT_EQ(evaluate("((1)"), kRefused);
    EXPECT_EQ(evaluate("(1))"), kRefused);
    EXPECT_EQ(evaluate("("), kRefused);
    EXPECT_EQ(evaluate(")"), kRefused);
}

TEST(Evaluator, RefusesEmptyGroups) {
    EXPECT_EQ(evaluate("()"), kRefused);
    EXPECT_EQ(evaluate("( )"), kRefused);
    EXPECT_EQ(evaluate("2()"), kRefused);
    EXPECT_EQ(evaluate("()2"), kRefused);
    EXPECT_EQ(evaluate("1+(2*())"), kRefused);
}

TEST(Evaluator, RefusesOperatorsWithoutLeftOperand) {
    EXPECT_EQ(evaluate("*1"), kRefused);
    EXPECT_EQ(evaluate("*5"), kRefused);
    EXPECT_EQ(evaluate("/1"), kRefused);
    EXPECT_EQ(evaluate("^1"), kRefused);
    EXPECT_EQ(evaluate("1+*2"), kRefused);
    EXPECT_EQ(evaluate("1**2"), kRefused);
    EXPECT_EQ(evaluate("-*2"), kRefused);
    EXPECT_EQ(evaluate("(*2)"), kRefused);
}

TEST(Evaluator, RefusesAnOperatorAtTheEnd) {
    for (const char* text : {"1+", "1-", "1*", "1/", "1^", "(2)+", "(1+)", "1+-", "+", "-", "--", "2(3-)"})
        EXPECT_EQ(evaluate(text), kRefused) << text;
}

TEST(Evaluator, RefusesEveryOtherCharacter) {
    for (const char* text :
         {"1a", "1,5", "a", "1e3", "[1]", "{1}", "1%", "1=1", "１", "（1）", "1×2", "1+\xFF", "$1"})
        EXPECT_EQ(evaluate(text), kRefused) << text;
    EXPECT_EQ(evaluate(std::string_view("1\0", 2)), kRefused);
    EXPECT_EQ(evaluate(std::string_view("1\0+2", 4)), kRefused);
}

TEST(Evaluator, RefusesDivisionByZero) {
    EXPECT_EQ(evaluate("10/0"), kRefused);
    EXPECT_EQ(evaluate("0/0"), kRefused);
    EXPECT_EQ(evaluate("1+2/(1-1)"), kRefused);
    EXPECT_EQ(evaluate("0^-1"), kRefused);
    EXPECT_EQ(evaluate("0/5"), value(0));
}

TEST(Evaluator, RefusesUndefinedPowers) {
    EXPECT_EQ(evaluate("(-8)^(1/3)"), kRefused);
    EXPECT_EQ(evaluate("(-1)^.5"), kRefused);
    EXPECT_EQ(evaluate("(-2)^3"), value(-8));
    EXPECT_EQ(evaluate("0^0"), value(1));
}

TEST(Evaluator, RefusesOverflowInPowersAndProducts) {
    EXPECT_EQ(evaluate("9^999"), kRefused);
    EXPECT_EQ(evaluate("1/9^999"), kRefused);  // not 0, although the infinite divisor would make it so
    EXPECT_EQ(evaluate("10^200*10^200"), kRefused);
    EXPECT_EQ(evaluate("10^200/10^-200"), kRefused);
    EXPECT_EQ(evaluate("10^200*10^200*0"), kRefused);
    EXPECT_EQ(evaluate("10^-200*10^-200"), value(0));
}

TEST(Evaluator, LeavesThePartialSumWhenASumOverflows) {
    const std::string largest = largestNumber();
    EXPECT_EQ(evaluate(largest + "+" + largest), (Outcome{false, kLargest}));
    EXPECT_EQ(evaluate(largest + "-1+" + largest + "-" + largest), (Outcome{false, kLargest}));
    EXPECT_EQ(evaluate("5-" + largest + "-" + largest + "+3"), (Outcome{false, -kLargest}));
}

TEST(Evaluator, LeavesZeroWhenAnythingFailsBeforeTheSumThatOverflows) {
    const std::string tooMuch = largestNumber() + "+" + largestNumber();
    EXPECT_EQ(evaluate(tooMuch + "+1/0"), kRefused);
    EXPECT_EQ(evaluate(tooMuch + "+2^9999"), kRefused);
    EXPECT_EQ(evaluate(tooMuch + "+a"), kRefused);
    EXPECT_EQ(evaluate(tooMuch + "+"), kRefused);
    EXPECT_EQ(evaluate(tooMuch + "+(1"), kRefused);
    EXPECT_EQ(evaluate("1+(" + tooMuch + ")"), kRefused);
}

TEST(Evaluator, BearsAMillionNestedGroups) {
    constexpr int kMany = 1'000'000;
    EXPECT_EQ(evaluate(repeated("(", kMany) + "2" + repeated(")", kMany)), value(2));
    EXPECT_EQ(evaluate(repeated("-(", kMany) + "2" + repeated(")", kMany)), value(2));
    EXPECT_EQ(evaluate(repeated("(", kMany)), kRefused);
    EXPECT_EQ(evaluate(repeated("1(", kMany) + "2"), kRefused);
    EXPECT_EQ(evaluate(repeated(")", kMany)), kRefused);
}

TEST(Evaluator, KeepsTheOuterValuesThroughDeepGroups) {
    // 1+(1+(1+ ... 0)) goes through the levels held inline and those that are not.
    EXPECT_EQ(evaluate(repeated("1+(", 1000) + "0" + repeated(")", 1000)), value(1000));
    EXPECT_EQ(evaluate(repeated("2-(", 41) + "0" + repeated(")", 41)), value(2));
}

TEST(Evaluator, BearsManyTerms) {
    EXPECT_EQ(evaluate(repeated("1+", 200'000) + "1"), value(200'001));
    EXPECT_EQ(evaluate(repeated("-", 200'000) + "1"), value(1));
    EXPECT_EQ(evaluate(repeated("1^", 1000) + "5"), value(1));
}

TEST(IsOperator, IsTrueForExactlyTheFiveOperators) {
    for (int c = 0; c < 256; ++c) {
        const std::string text(1, static_cast<char>(c));
        EXPECT_EQ(IsOperator(text), std::string("*/+-^").find(static_cast<char>(c)) != std::string::npos)
            << c;
    }
    EXPECT_FALSE(IsOperator(""));
    EXPECT_FALSE(IsOperator("+-"));
    EXPECT_FALSE(IsOperator("×"));
}

}  // namespace
}  // namespace kxVsGrid

// Random numbers, worked out by Decimal and on paper.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <optional>
#include <string>

#include "kit/Dice.h"
#include "kxVsGrid/support/Decimal.h"
#include "support/DecimalTwin.h"

namespace kxVsGrid {
namespace {

#ifdef KX_THOROUGH
constexpr int Operations = 1'000'000;
#else
constexpr int Operations = 250'000;
#endif

/// A number of any size and any number of decimals, often with the digits that carry or that stand at a half.
std::string anyNumber(kit::Dice& dice) {
    const int digits = dice.between(1, dice.oneIn(3) ? Decimal::MostDigits : 6);
    const int decimals = dice.between(0, std::min(digits, Decimal::MostDecimals));
    const char* const among = dice.oneIn(3) ? "0123456789" : dice.oneIn(2) ? "09" : "0455";
    std::string text = dice.oneIn(2) ? "-" : "";
    for (int i = digits; i > 0; --i) {
        if (i == decimals) text += '.';
        text += dice.anyOf(among);
    }
    return text;
}

std::optional<std::string> textOf(auto work) {
    try {
        return work().text();
    } catch (const DecimalError&) {
        return std::nullopt;
    }
}

/// What both make of two numbers, in words where it does not fit.
struct Answers {
    std::optional<std::string> decimal, twin;
};

Answers calculated(char operation, const Decimal& a, const Decimal& b, const twin::Number& first,
                   const twin::Number& second, int decimals) {
    const bool zero = second.digits.empty();
    switch (operation) {
        case '+':
            return {textOf([&] { return a + b; }), whatFits(plus(first, second))};
        case '-':
            return {textOf([&] { return a - b; }),
                    whatFits(plus(first, {!second.negative, second.digits, second.decimals}))};
        case '*':
            return {textOf([&] { return a * b; }), whatFitsWithFewerDecimals(times(first, second))};
        case '/':
            return {textOf([&] { return a / b; }), zero ? std::nullopt : quotientThatFits(first, second)};
        case 'd':
            return {textOf([&] { return a.divided(b, decimals); }),
                    zero ? std::nullopt : whatFits(over(first, second, decimals))};
        case 'r':
            return {a.rounded(decimals).text(), shortest(rounded(first, decimals)).text()};
        case 't': {
            twin::Number shown = rounded(first, decimals);
            shown.digits = twin::timesTen(shown.digits, decimals - shown.decimals);
            shown.decimals = decimals;
            return {a.text(decimals), shown.text()};
        }
        default:
            return {std::to_string((a > b) - (a < b)), std::to_string(order(first, second))};
    }
}

TEST(DecimalTwin, WorksOutTheSame) {
    kit::Dice dice;
    for (int i = 0; i < Operations && !::testing::Test::HasFailure(); ++i) {
        const std::string a = anyNumber(dice);
        const std::string b = anyNumber(dice);
        const twin::Number first = twin::numberOf(a);
        const twin::Number second = twin::numberOf(b);
        const Decimal number(a);
        ASSERT_EQ(number.text(), shortest(first).text()) << a;
        const char operation = dice.anyOf("+-*/drtc");
        const int decimals = dice.between(0, Decimal::MostDecimals);
        const Answers answers = calculated(operation, number, Decimal(b), first, second, decimals);
        EXPECT_EQ(answers.decimal, answers.twin) << a << ' ' << operation << ' ' << b << ", " << decimals;
    }
}

TEST(DecimalTwin, ReadsBackWhatADoubleOfFifteenDigitsSays) {
    kit::Dice dice;
    for (int i = 0; i < Operations / 10 && !::testing::Test::HasFailure(); ++i) {
        const Decimal number =
            Decimal::scaled(dice.Random::between(-999'999'999'999'999, 999'999'999'999'999),
                            dice.between(0, Decimal::MostDecimals));
        EXPECT_EQ(Decimal::of(number.toDouble(), Decimal::MostDecimals), number) << number.text();
        const int decimals = dice.between(0, Decimal::MostDecimals);
        EXPECT_EQ(Decimal::of(number.toDouble(), decimals), number.rounded(decimals)) << number.text();
    }
}
}  // namespace
}  // namespace kxVsGrid

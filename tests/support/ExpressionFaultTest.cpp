// A fault is told of exactly those expressions that are refused, at a place in the text.
#include "support/ExpressionFault.h"

#include <gtest/gtest.h>

#include <string>

#include "kit/Random.h"
#include "kxVsGrid/mbasTxt.h"

namespace kxVsGrid::support {
namespace {

using Reason = ExpressionFault::Reason;

TEST(ExpressionFaults, AreToldOfExactlyTheExpressionsThatAreRefused) {
    kit::Random random;
    constexpr std::string_view Signs = "0123.+-*/^()) (9ab";
    for (int i = 0; i < 20'000; ++i) {
        std::string text;
        for (std::int64_t left = random.between(0, 12); left > 0; --left) text += random.anyOf(Signs);
        double value = 0;
        const bool evaluated = bEvaluateExp(text, value);
        const auto fault = expressionFault(text);
        ASSERT_EQ(evaluated, !fault) << text << "\nseed " << random.seed();
        if (!fault) continue;
        ASSERT_LE(fault->place, text.size()) << text;
        const auto before = expressionFault(text.substr(0, fault->place));
        const bool earlier =
            before && (before->reason == Reason::UnknownCharacter || before->reason == Reason::DecimalPoint);
        EXPECT_FALSE(earlier) << text << " is not at fault at " << fault->place << " first";
    }
}

TEST(ExpressionFaults, CountTheBlanksOfTheText) {
    EXPECT_EQ(expressionFault("1 + * 2"), (ExpressionFault{Reason::OperandMissing, 4}));
    EXPECT_EQ(expressionFault(" 1 +"), (ExpressionFault{Reason::OperandMissing, 4}));
    EXPECT_EQ(expressionFault(""), (ExpressionFault{Reason::OperandMissing, 0}));
}

TEST(ExpressionFaults, AreToldOfSumsThatOverflow) {
    const std::string most = "9" + std::string(307, '9') + "0";
    EXPECT_EQ(expressionFault(most), (ExpressionFault{Reason::TooLarge, 0}));
    const std::string large = "8" + std::string(307, '0');
    EXPECT_EQ(expressionFault(large + "+" + large), std::nullopt);
    const std::string larger = "17" + std::string(307, '0');
    EXPECT_EQ(expressionFault("1+" + larger + "+" + larger),
              (ExpressionFault{Reason::TooLarge, 2 + larger.size() + 1}));
    EXPECT_EQ(expressionFault("(" + larger + "+" + larger + ")"),
              (ExpressionFault{Reason::TooLarge, larger.size() + 2}));
}
}  // namespace
}  // namespace kxVsGrid::support

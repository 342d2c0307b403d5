// The evaluator against two independent ones, on random expressions.
#include <gtest/gtest.h>

#include <bit>
#include <cstdint>
#include <string>

#include "kit/Random.h"
#include "kxVsGrid/mbasTxt.h"
#include "support/ExpressionOracles.h"
#include "support/Expressions.h"

namespace kxVsGrid::test {
namespace {

constexpr int kExpressions = 150'000;
constexpr int kEnough = kExpressions / 10;  // of each kind, or the generator has lost its point

TEST(EvaluatorOracles, AgreeOnTheWorkedExamples) {
    struct Example {
        const char* text;
        double result;
    };
    for (const auto& [text, result] :
         {Example{"-2^2", -4}, {"8/-2^2", -2}, {"2^3^2", 64}, {"(1+2)(3+4)", 21}}) {
        bool oddPower = false;
        EXPECT_EQ(evaluateByPasses(text).result, result) << text;
        EXPECT_EQ(evaluateByGrammar(text, oddPower).result, result) << text;
        EXPECT_FALSE(oddPower) << text;
    }
    EXPECT_EQ(evaluateByPasses("2^-2^2").result, 0.0625);
}

TEST(EvaluatorOracles, FindTheSameLastBitOfAPowerOfASign) {
    double result = 0;
    ASSERT_TRUE(bEvaluateExp(".499^-4^40", result));
    EXPECT_EQ(std::bit_cast<std::uint64_t>(result),
              std::bit_cast<std::uint64_t>(evaluateByPasses(".499^-4^40").result));
}

TEST(EvaluatorOracles, FindTheSameResultsAndFailuresAsThePassesOverLists) {
    kit::Random random;
    Expressions expressions(random);
    int succeeded = 0;
    int partial = 0;
    for (int i = 0; i < kExpressions; ++i) {
        const std::string text = expressions.any();
        const Evaluated expected = evaluateByPasses(text);
        double result = 99;
        ASSERT_EQ(bEvaluateExp(text, result), expected.succeeded) << text << "\nseed " << random.seed();
        ASSERT_EQ(std::bit_cast<std::uint64_t>(result), std::bit_cast<std::uint64_t>(expected.result))
            << text << "\n"
            << result << " instead of " << expected.result << "\nseed " << random.seed();
        succeeded += expected.succeeded ? 1 : 0;
        partial += !expected.succeeded && expected.result != 0 ? 1 : 0;
    }
    EXPECT_GT(succeeded, kEnough);
    EXPECT_GT(kExpressions - succeeded, kEnough);
    EXPECT_GT(partial, 0);
}

TEST(EvaluatorOracles, FindTheSameValuesAsAGrammar) {
    kit::Random random;
    Expressions expressions(random);
    int succeeded = 0;
    int refused = 0;
    for (int i = 0; i < kExpressions; ++i) {
        const std::string text = expressions.any();
        bool oddPower = false;
        const Evaluated expected = evaluateByGrammar(text, oddPower);
        if (oddPower) continue;
        double result = 0;
        ASSERT_EQ(bEvaluateExp(text, result), expected.succeeded) << text << "\nseed " << random.seed();
        if (expected.succeeded) {
            ASSERT_EQ(result, expected.result) << text << "\nseed " << random.seed();
        }
        ++(expected.succeeded ? succeeded : refused);
    }
    EXPECT_GT(succeeded, kEnough);
    EXPECT_GT(refused, kEnough);
}

}  // namespace
}  // namespace kxVsGrid::test

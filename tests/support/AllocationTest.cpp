// What runs on every key press or for every cell takes no memory.
#include <gtest/gtest.h>

#include <string_view>

#include "kxVsGrid/mbasTxt.h"
#include "support/AllocationCounter.h"
#include "support/Dates.h"
#include "support/Numbers.h"

namespace kxVsGrid {
namespace {

template <typename Function>
std::size_t allocationsOf(Function function) {
    const std::size_t before = test::allocations();
    function();
    return test::allocations() - before;
}

TEST(Evaluator, TakesNoMemoryForTextsOfOrdinaryLength) {
    constexpr std::string_view kTexts[] = {
        "12*3+4.5",
        "(2+3)*(4-1)/7",
        " 1 + 2 * 3 - ( 4 ^ 2 ) ",
        "1+2+3+4+5+6+7+8+9+10+11+12+13+14+15+16+17+18+19+20+21+22+23+24+25+26+27+28+29+30",
        "((((((((((1))))))))))",
        "0.12345678901234567890123456789",
        "10/0",
        "(1+2",
    };
    for (const std::string_view text : kTexts) {
        double result = 0;
        EXPECT_EQ(allocationsOf([&] { bEvaluateExp(text, result); }), 0U) << text;
    }
}

TEST(LeadingNumber, TakesNoMemory) {
    double sum = 0;
    EXPECT_EQ(allocationsOf([&] {
                  sum += support::leadingNumber("1234.56");
                  sum += support::leadingNumber("  -12.5e3 and a rest beyond any inline text");
                  sum += support::leadingNumberOfDisplayed("1,234.50");
              }),
              0U);
    EXPECT_EQ(sum, 1234.56 - 12500 + 1234.5);
}

TEST(ParseDate, TakesNoMemory) {
    EXPECT_EQ(allocationsOf([] { EXPECT_TRUE(support::parseDate("2011年2月3日 23:59:59")); }), 0U);
}

TEST(AllocationCounter, NoticesALongText) {
    EXPECT_GT(allocationsOf([] { EXPECT_FALSE(support::numberText(1e300).empty()); }), 0U);
}

TEST(NumberText, TakesNoMemoryForShortNumbers) {
    EXPECT_EQ(allocationsOf([] { EXPECT_EQ(support::numberText(123456.789), "123456.789"); }), 0U);
}

}  // namespace
}  // namespace kxVsGrid

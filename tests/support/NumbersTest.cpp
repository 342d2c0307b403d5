#include "support/Numbers.h"

#include <gtest/gtest.h>

#include <bit>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <limits>
#include <string>

#include "kit/Random.h"

namespace kxVsGrid::support {
namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNotANumber = std::numeric_limits<double>::quiet_NaN();

// The digits of a number text without sign, point and zeros at its ends.
std::string digitsOf(const std::string& text) {
    std::string digits;
    for (const char c : text)
        if (c >= '0' && c <= '9') digits += c;
    digits.erase(0, digits.find_first_not_of('0'));
    digits.erase(digits.find_last_not_of('0') + 1);
    return digits;
}

std::string printed(const char* format, double value) {
    char text[512];
    std::snprintf(text, sizeof text, format, value);
    return text;
}

TEST(LeadingNumber, StopsAtTheFirstOtherCharacter) {
    EXPECT_EQ(leadingNumber("12"), 12);
    EXPECT_EQ(leadingNumber("12abc"), 12);
    EXPECT_EQ(leadingNumber("1,5"), 1);
    EXPECT_EQ(leadingNumber("1.5.5"), 1.5);
    EXPECT_EQ(leadingNumber("1 2"), 1);
    EXPECT_EQ(leadingNumber("3-4"), 3);
    EXPECT_EQ(leadingNumber("7元"), 7);
}

TEST(LeadingNumber, IsZeroWithoutANumber) {
    for (const char* text : {"", " ", "abc", "-", "+", ".", "-.", "- 1", "+-1", "--1", "e5", ".e5", "\t1",
                             ",1", "inf", "nan", "&H1F", "0x10"})
        EXPECT_EQ(leadingNumber(text), 0) << text;
}

TEST(LeadingNumber, SkipsLeadingBlanksAndReadsOneSign) {
    EXPECT_EQ(leadingNumber("   -4.5"), -4.5);
    EXPECT_EQ(leadingNumber("+4"), 4);
    EXPECT_EQ(leadingNumber(" -.5x"), -0.5);
    EXPECT_EQ(leadingNumber("5."), 5);
}

TEST(LeadingNumber, ReadsAnExponentThatHasDigits) {
    EXPECT_EQ(leadingNumber("1e3x"), 1000);
    EXPECT_EQ(leadingNumber("1E3"), 1000);
    EXPECT_EQ(leadingNumber("1.5e-3"), 0.0015);
    EXPECT_EQ(leadingNumber("2E+2"), 200);
    EXPECT_EQ(leadingNumber("5.e1"), 50);
    for (const char* text : {"1e", "1ex", "1e+", "1e-x", "1e 3"}) EXPECT_EQ(leadingNumber(text), 1) << text;
    EXPECT_EQ(leadingNumber("1e2.5"), 100);
}

TEST(LeadingNumber, GoesToInfinityOrZeroBeyondADouble) {
    EXPECT_EQ(leadingNumber("1e999"), kInfinity);
    EXPECT_EQ(leadingNumber("-1e999"), -kInfinity);
    EXPECT_EQ(leadingNumber("1e-999"), 0);
    EXPECT_EQ(leadingNumber("1e99999999999999999999"), kInfinity);
    EXPECT_EQ(leadingNumber("1e-99999999999999999999"), 0);
    EXPECT_EQ(leadingNumber("0e99999999999999999999"), 0);
    const std::string zeros(400, '0');
    EXPECT_EQ(leadingNumber("1" + zeros), kInfinity);
    EXPECT_EQ(leadingNumber("0." + zeros + "1"), 0);
    EXPECT_EQ(leadingNumber("0." + zeros + "1e403"), 100);
    EXPECT_EQ(leadingNumber("1" + zeros + "e-400"), 1);
    EXPECT_EQ(leadingNumber("0." + zeros + "1e800"), kInfinity);
    EXPECT_EQ(leadingNumber("1" + zeros + "e-800"), 0);
}

TEST(LeadingNumber, RoundsEveryTextAsTheStandardLibraryDoes) {
    kit::Random random;
    for (int i = 0; i < 200'000; ++i) {
        std::string text(random.oneIn(3) ? 1 : 0, '-');
        const auto digits = random.between(1, random.oneIn(4) ? 30 : 12);
        const auto point = random.between(-2, digits);
        for (int d = 0; d < digits; ++d) {
            if (d == point) text += '.';
            text += random.anyOf("0123456789");
        }
        if (random.oneIn(5)) text += "e" + std::to_string(random.between(-330, 330));
        ASSERT_EQ(std::bit_cast<std::uint64_t>(leadingNumber(text)),
                  std::bit_cast<std::uint64_t>(std::strtod(text.c_str(), nullptr)))
            << text << "\nseed " << random.seed();
    }
}

TEST(WithoutGroups, TakesTheSeparatorsOfANumberInGroupsOfThree) {
    EXPECT_EQ(withoutGroups("1,234", true), "1234");
    EXPECT_EQ(withoutGroups("-1,234,567.25", true), "-1234567.25");
    EXPECT_EQ(withoutGroups("+12,345.", true), "+12345.");
    EXPECT_EQ(withoutGroups(" 0,123 ", true), " 0123 ");
}

TEST(WithoutGroups, LeavesAnyOtherTextAlone) {
    for (const char* text : {"", "1,5", "1,23", "1,2345", "1234,567", ",123", "1,", "1,,234", "1,234,5",
                             "1,234x", "1,234.5,6", "1,234e2", "1,234+1", "--1,234", "1234.5", "abc"})
        EXPECT_EQ(withoutGroups(text, true), text);
    EXPECT_EQ(withoutGroups("1,234", false), "1,234");
}

TEST(LeadingNumberOfDisplayed, ReadsThroughGroupSeparators) {
    EXPECT_EQ(leadingNumberOfDisplayed("1,234.50"), 1234.5);
    EXPECT_EQ(leadingNumberOfDisplayed(" -1,234,567.25 元"), -1234567.25);
    EXPECT_EQ(leadingNumberOfDisplayed("12,34"), 1234);
    EXPECT_EQ(leadingNumberOfDisplayed("1,234e2"), 123400);
}

TEST(LeadingNumberOfDisplayed, StopsAtOtherCommas) {
    EXPECT_EQ(leadingNumberOfDisplayed(",123"), 0);
    EXPECT_EQ(leadingNumberOfDisplayed("1,"), 1);
    EXPECT_EQ(leadingNumberOfDisplayed("1,,2"), 1);
    EXPECT_EQ(leadingNumberOfDisplayed("1, 2"), 1);
    EXPECT_EQ(leadingNumberOfDisplayed("1.5,5"), 1.5);
    EXPECT_EQ(leadingNumberOfDisplayed("a1,2"), 0);
    EXPECT_EQ(leadingNumberOfDisplayed(","), 0);
}

TEST(LeadingNumberOfDisplayed, ReadsTextsWithoutSeparatorsAlike) {
    EXPECT_EQ(leadingNumberOfDisplayed("12.5"), 12.5);
    EXPECT_EQ(leadingNumberOfDisplayed(""), 0);
    EXPECT_EQ(leadingNumberOfDisplayed("1e3x"), 1000);
}

TEST(CompleteNumber, WantsTheWholeTextToBeANumber) {
    EXPECT_EQ(completeNumber("12"), 12);
    EXPECT_EQ(completeNumber("  -1.5e2 "), -150);
    EXPECT_EQ(completeNumber(".5"), 0.5);
    EXPECT_EQ(completeNumber("5."), 5);
    for (const char* text :
         {"", " ", "12a", "1 2", "1,5", ".", "-", "1e", "1e+", "True", "1.2.3", "\t1", "1\n", "inf", "nan"})
        EXPECT_EQ(completeNumber(text), std::nullopt) << text;
}

TEST(CompleteNumber, IsFinite) {
    EXPECT_EQ(completeNumber("1e999"), std::nullopt);
    EXPECT_EQ(completeNumber("1e-999"), 0);
    EXPECT_EQ(completeNumber("1e308"), 1e308);
}

TEST(NumberText, ShowsTheSumOfATenthAndTwoTenthsAsThreeTenths) {
    EXPECT_EQ(numberText(0.1 + 0.2), "0.3");
}

TEST(NumberText, WritesPlainDigits) {
    EXPECT_EQ(numberText(40.5), "40.5");
    EXPECT_EQ(numberText(-1234.25), "-1234.25");
    EXPECT_EQ(numberText(100), "100");
    EXPECT_EQ(numberText(0.5), "0.5");
    EXPECT_EQ(numberText(-0.5), "-0.5");
    EXPECT_EQ(numberText(1.0 / 3), "0.333333333333333");
    EXPECT_EQ(numberText(2.0 / 3), "0.666666666666667");
    EXPECT_EQ(numberText(123456.789), "123456.789");
}

TEST(NumberText, NeverWritesMinusZero) {
    EXPECT_EQ(numberText(0), "0");
    EXPECT_EQ(numberText(-0.0), "0");
}

TEST(NumberText, KeepsFifteenSignificantDigits) {
    EXPECT_EQ(numberText(123456789012345), "123456789012345");
    EXPECT_EQ(numberText(999999999999999), "999999999999999");
    EXPECT_EQ(numberText(1234567890123456), "1234567890123460");
    EXPECT_EQ(numberText(999999999999999.9), "1000000000000000");
    EXPECT_EQ(numberText(0.1234567890123456), "0.123456789012346");
    EXPECT_EQ(numberText(9007199254740992), "9007199254740990");
}

TEST(NumberText, NeverWritesAnExponent) {
    EXPECT_EQ(numberText(1e15), "1000000000000000");
    EXPECT_EQ(numberText(1e-7), "0.0000001");
    EXPECT_EQ(numberText(1e300), "1" + std::string(300, '0'));
    EXPECT_EQ(numberText(-2.5e-10), "-0.00000000025");
    EXPECT_EQ(numberText(std::numeric_limits<double>::denorm_min()),
              "0." + std::string(323, '0') + "494065645841247");
}

TEST(NumberText, WritesZeroForWhatIsNotFinite) {
    for (const double value : {kInfinity, -kInfinity, kNotANumber}) EXPECT_EQ(numberText(value), "0");
}

TEST(NumberText, HasTheFifteenDigitsThatExactArithmeticGives) {
    kit::Random random;
    for (int i = 0; i < 100'000; ++i) {
        // Any bit pattern, amounts with a few decimals, and results of arithmetic with them.
        const double amount = static_cast<double>(random.between(-99999999, 99999999)) / 100;
        const double value = random.oneIn(3)   ? std::bit_cast<double>(random.bits())
                             : random.oneIn(2) ? amount
                                               : amount * 1.1 / 7;
        if (!std::isfinite(value) || value == 0) continue;
        const std::string text = numberText(value);
        const std::string expected = printed("%.14e", value);
        ASSERT_EQ(digitsOf(text), digitsOf(expected.substr(0, expected.find('e'))))
            << "seed " << random.seed();
        ASSERT_EQ(std::strtod(text.c_str(), nullptr), std::strtod(expected.c_str(), nullptr)) << text;
        ASSERT_EQ(text.find_first_not_of("-.0123456789"), std::string::npos) << text;
        if (text.find('.') != std::string::npos) {
            ASSERT_NE(text.back(), '0');
        }
    }
}

TEST(NumberText, ReadsBackAsTheAmountItWasMadeFrom) {
    kit::Random random;
    for (int i = 0; i < 100'000; ++i) {
        const std::string text = std::to_string(random.between(1, 99'999'999)) + "." +
                                 std::to_string(random.between(0, 9)) + std::to_string(random.between(1, 9));
        ASSERT_EQ(numberText(leadingNumber(text)), text) << "seed " << random.seed();
    }
}

TEST(TotalText, IsPlainWithinItsBounds) {
    EXPECT_EQ(totalText(0.1 + 0.2), "0.3");
    EXPECT_EQ(totalText(0), "0");
    EXPECT_EQ(totalText(-0.0), "0");
    EXPECT_EQ(totalText(1e-5), "0.00001");
    EXPECT_EQ(totalText(999999999999999), "999999999999999");
    EXPECT_EQ(totalText(-123.5), "-123.5");
}

TEST(TotalText, HasAnExponentOutsideThem) {
    EXPECT_EQ(totalText(1e15), "1E+15");
    EXPECT_EQ(totalText(-1.5e15), "-1.5E+15");
    EXPECT_EQ(totalText(1234567890123456), "1.23456789012346E+15");
    EXPECT_EQ(totalText(9.99e-6), "9.99E-06");
    EXPECT_EQ(totalText(-1e-100), "-1E-100");
    EXPECT_EQ(totalText(1.7976931348623157e308), "1.79769313486232E+308");
}

TEST(TotalText, WritesZeroForWhatIsNotFinite) {
    for (const double value : {kInfinity, -kInfinity, kNotANumber}) EXPECT_EQ(totalText(value), "0");
}

TEST(RoundHalfEven, RoundsHalvesToTheEvenNeighbour) {
    EXPECT_EQ(roundHalfEven(0.5), 0);
    EXPECT_EQ(roundHalfEven(1.5), 2);
    EXPECT_EQ(roundHalfEven(2.5), 2);
    EXPECT_EQ(roundHalfEven(-0.5), 0);
    EXPECT_EQ(roundHalfEven(-1.5), -2);
    EXPECT_EQ(roundHalfEven(-2.5), -2);
    EXPECT_EQ(roundHalfEven(2.4), 2);
    EXPECT_EQ(roundHalfEven(2.6), 3);
    EXPECT_EQ(roundHalfEven(0.49999999999999994), 0);
    EXPECT_EQ(roundHalfEven(1e300), 1e300);
    EXPECT_FALSE(std::signbit(roundHalfEven(-0.4)));
}

}  // namespace
}  // namespace kxVsGrid::support

#include "kxVsGrid/support/Decimal.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <functional>
#include <limits>
#include <optional>
#include <string>
#include <type_traits>
#include <unordered_set>

#include "kit/PrintTo.h"

namespace kxVsGrid {
namespace {

const std::string Largest = "999999999999999999";

/// What the error says, "none" where there is none.
std::string errorOf(const std::function<void()>& act) {
    try {
        act();
    } catch (const DecimalError& error) {
        return error.what();
    }
    return "none";
}

TEST(DecimalNumber, IsZeroAtFirst) {
    EXPECT_EQ(Decimal(), 0);
    EXPECT_EQ(Decimal().text(), "0");
    EXPECT_EQ(Decimal().decimals(), 0);
}

TEST(DecimalNumber, IsMadeOfAnyWholeNumberButOfNoTruthValueCharacterOrDouble) {
    EXPECT_EQ(Decimal(-7).text(), "-7");
    EXPECT_EQ(Decimal(std::uint64_t{7}).text(), "7");
    EXPECT_EQ(Decimal(std::int8_t{-100}).text(), "-100");
    EXPECT_EQ(Decimal(999'999'999'999'999'999).text(), Largest);
    EXPECT_TRUE((std::is_convertible_v<int, Decimal>));
    EXPECT_FALSE((std::is_constructible_v<Decimal, bool>));
    EXPECT_FALSE((std::is_constructible_v<Decimal, char>));
    EXPECT_FALSE((std::is_constructible_v<Decimal, double>));
    EXPECT_FALSE((std::is_convertible_v<const char*, Decimal>));
    constexpr Decimal Five = 5;
    static_assert(-(-Five) == Five && abs(-Five) == 5);
}

TEST(DecimalNumber, OfNineteenDigitsDoesNotFit) {
    EXPECT_EQ(errorOf([] { Decimal(1'000'000'000'000'000'000); }),
              "1000000000000000000 has more digits than the 18 that a number may have");
    EXPECT_EQ(errorOf([] { Decimal{std::numeric_limits<std::int64_t>::min()}; }),
              "-9223372036854775808 has more digits than the 18 that a number may have");
    EXPECT_EQ(errorOf([] { Decimal{std::numeric_limits<std::uint64_t>::max()}; }),
              "18446744073709551615 has more digits than the 18 that a number may have");
}

TEST(DecimalText, IsReadWithSignPointAndUpToNineDecimals) {
    EXPECT_EQ(Decimal("12"), 12);
    EXPECT_EQ(Decimal("+3"), 3);
    EXPECT_EQ(Decimal("-0.50").text(), "-0.5");
    EXPECT_EQ(Decimal(".5").text(), "0.5");
    EXPECT_EQ(Decimal("5.").text(), "5");
    EXPECT_EQ(Decimal("-.5").text(), "-0.5");
    EXPECT_EQ(Decimal("007").text(), "7");
    EXPECT_EQ(Decimal("0.000000001").text(), "0.000000001");
    EXPECT_EQ(Decimal("123456789.987654321").text(), "123456789.987654321");
    EXPECT_EQ(Decimal(Largest).text(), Largest);
    EXPECT_EQ(Decimal("-" + Largest).text(), "-" + Largest);
}

TEST(DecimalText, MayHaveZerosThatDoNotCount) {
    EXPECT_EQ(Decimal(std::string(100, '0') + Largest + ".000000000").text(), Largest);
    EXPECT_EQ(Decimal("100000000000000000.0").text(), "100000000000000000");
    EXPECT_EQ(Decimal("1.500000000").decimals(), 1);
    EXPECT_EQ(Decimal("100").decimals(), 0);
}

TEST(DecimalText, WithoutANumberIsRefused) {
    for (const char* text : {"", ".", "+", "-", "-.", " 1", "1 ", "1,5", "1,234.5", "1e3", "--1", "+-1", "1-",
                             "1.2.3", "0x10", "１", "abc", "inf", "nan"}) {
        EXPECT_EQ(Decimal::read(text), std::nullopt) << text;
        EXPECT_EQ(errorOf([&] { Decimal{std::string_view(text)}; }),
                  "\"" + std::string(text) + "\" is no decimal number");
    }
    EXPECT_EQ(Decimal::read(std::string_view("1\0", 2)), std::nullopt);
}

TEST(DecimalText, WithTooManyDigitsIsRefusedAndSaysSo) {
    for (const std::string& text :
         {"9" + Largest, std::string("-1000000000000000000.0"), std::string("1234567890.123456789")}) {
        EXPECT_EQ(Decimal::read(text), std::nullopt) << text;
        EXPECT_EQ(errorOf([&] { Decimal{text}; }),
                  "\"" + text + "\" has more digits than the 18 that a number may have");
    }
    for (const std::string text : {"0.1234567890", "1.0000000000", "0.0000000001"}) {
        EXPECT_EQ(Decimal::read(text), std::nullopt) << text;
        EXPECT_EQ(errorOf([&] { Decimal{text}; }), "\"" + text + "\" has more than 9 decimals");
    }
}

TEST(DecimalText, IsWrittenWithAsManyDecimalsAsAsked) {
    EXPECT_EQ(Decimal("1.5").text(2), "1.50");
    EXPECT_EQ(Decimal("1.005").text(2), "1.01");
    EXPECT_EQ(Decimal("-1.005").text(2), "-1.01");
    EXPECT_EQ(Decimal("1.004999999").text(2), "1.00");
    EXPECT_EQ(Decimal("99.995").text(2), "100.00");
    EXPECT_EQ(Decimal("-0.004").text(2), "0.00");
    EXPECT_EQ(Decimal("-0.5").text(0), "-1");
    EXPECT_EQ(Decimal(7).text(0), "7");
    EXPECT_EQ(Decimal(Largest).text(9), Largest + ".000000000");
    EXPECT_EQ(errorOf([] { Decimal(1).text(10); }), "Decimal.text: 10 decimals are not between 0 and 9");
}

TEST(DecimalText, IsAppendedToAnother) {
    std::string text = "=";
    Decimal("-12.50").appendTo(text);
    text += ';';
    Decimal().appendTo(text);
    EXPECT_EQ(text, "=-12.5;0");
}

TEST(DecimalNumber, IsMadeOfDigitsWithAPointAmongThem) {
    EXPECT_EQ(Decimal::scaled(1235, 2).text(), "12.35");
    EXPECT_EQ(Decimal::scaled(-5, 2).text(), "-0.05");
    EXPECT_EQ(Decimal::scaled(1200, 2).decimals(), 0);
    EXPECT_EQ(Decimal::scaled(9'000'000'000'000'000'000, 1).text(), "900000000000000000");
    EXPECT_EQ(errorOf([] { Decimal::scaled(9'000'000'000'000'000'001, 1); }),
              "Decimal.scaled: 9000000000000000001 has more digits than the 18 that a number may have");
    EXPECT_EQ(errorOf([] { Decimal::scaled(1, -1); }), "Decimal.scaled: -1 decimals are not between 0 and 9");
}

TEST(DecimalNumber, GivesItsDigitsRounded) {
    EXPECT_EQ(Decimal("12.35").scaledTo(2), 1235);
    EXPECT_EQ(Decimal("12.35").scaledTo(3), 12350);
    EXPECT_EQ(Decimal("12.35").scaledTo(1), 124);
    EXPECT_EQ(Decimal("-12.35").scaledTo(1), -124);
    EXPECT_EQ(Decimal("-12.349").scaledTo(1), -123);
    EXPECT_EQ(Decimal(9'000'000'000'000'000).scaledTo(3), 9'000'000'000'000'000'000);
    EXPECT_EQ(errorOf([] { Decimal(10'000'000'000'000'000).scaledTo(3); }),
              "Decimal.scaledTo: 10000000000000000 with 3 decimals does not fit into 64 bits");
}

TEST(DecimalNumber, IsMadeOfWhatTheTextOfADoubleSays) {
    EXPECT_EQ(Decimal::of(1.005, 2).text(), "1.01");
    EXPECT_EQ(Decimal::of(-1.005, 2).text(), "-1.01");
    EXPECT_EQ(Decimal::of(0.1 + 0.2, 9).text(), "0.3");
    EXPECT_EQ(Decimal::of(1e17, 9).text(), "100000000000000000");
    EXPECT_EQ(Decimal::of(123456.789, 9).text(), "123456.789");
    EXPECT_EQ(Decimal::of(5e-10, 9).text(), "0.000000001");
    EXPECT_EQ(Decimal::of(4.9e-10, 9), 0);
    EXPECT_EQ(Decimal::of(-1e-300, 9).text(), "0");
    EXPECT_EQ(Decimal::of(-0.0, 2).text(), "0");
}

TEST(DecimalNumber, IsMadeOfNoDoubleThatIsNoNumberOrTooLarge) {
    EXPECT_EQ(errorOf([] { Decimal::of(std::numeric_limits<double>::infinity(), 2); }),
              "Decimal.of: inf is no number");
    EXPECT_EQ(errorOf([] { Decimal::of(std::numeric_limits<double>::quiet_NaN(), 2); }),
              "Decimal.of: nan is no number");
    EXPECT_EQ(errorOf([] { Decimal::of(1e18, 2); }),
              "Decimal.of: 1e+18 has more digits than the 18 that a number may have");
    EXPECT_EQ(errorOf([] { Decimal::of(-1e300, 2); }),
              "Decimal.of: -1e+300 has more digits than the 18 that a number may have");
    EXPECT_EQ(errorOf([] { Decimal::of(1, 10); }), "Decimal.of: 10 decimals are not between 0 and 9");
}

TEST(DecimalNumber, BecomesTheNearestDouble) {
    EXPECT_EQ(Decimal("0.1").toDouble(), 0.1);
    EXPECT_EQ(Decimal("-19.99").toDouble(), -19.99);
    EXPECT_EQ(Decimal(Largest).toDouble(), 1e18);
    EXPECT_EQ(Decimal("123456789.987654321").toDouble(), 123456789.987654321);
}

TEST(DecimalNumber, IsRoundedHalfAwayFromZero) {
    EXPECT_EQ(Decimal("0.125").rounded(2).text(), "0.13");
    EXPECT_EQ(Decimal("-0.125").rounded(2).text(), "-0.13");
    EXPECT_EQ(Decimal("0.124999999").rounded(2).text(), "0.12");
    EXPECT_EQ(Decimal("99999999999999999.9").rounded(0).text(), "100000000000000000");
    EXPECT_EQ(Decimal("9.99").rounded(1).decimals(), 0);
    EXPECT_EQ(Decimal("0.12").rounded(9).text(), "0.12");
    EXPECT_EQ(errorOf([] { Decimal(1).rounded(-1); }),
              "Decimal.rounded: -1 decimals are not between 0 and 9");
}

TEST(DecimalSum, IsExact) {
    EXPECT_EQ(Decimal("0.1") + Decimal("0.2"), Decimal("0.3"));
    EXPECT_EQ((Decimal("0.05") + Decimal("0.95")).text(), "1");
    EXPECT_EQ((Decimal("1.5") - 2).text(), "-0.5");
    EXPECT_EQ((Decimal("999999999.999999999") + Decimal("-999999999.999999999")).text(), "0");
    EXPECT_EQ((3 - Decimal("0.000000001")).text(), "2.999999999");
}

TEST(DecimalSum, ThatWouldLoseDigitsIsRefused) {
    EXPECT_EQ(errorOf([] { Decimal(Largest) + 1; }),
              Largest + " + 1 has more digits than the 18 that a number may have");
    EXPECT_EQ(errorOf([] { Decimal("-" + Largest) - Decimal("0.1"); }),
              "-" + Largest + " - 0.1 has more digits than the 18 that a number may have");
}

TEST(DecimalProduct, IsExactUpToNineDecimalsAndRoundedOnceBeyondThem) {
    EXPECT_EQ((Decimal("1.5") * Decimal("3.33")).text(), "4.995");
    EXPECT_EQ((-2 * Decimal("0.5")).text(), "-1");
    EXPECT_EQ((Decimal("0.000000001") * Decimal("0.5")).text(), "0.000000001");
    EXPECT_EQ((Decimal("0.000000001") * Decimal("-0.5")).text(), "-0.000000001");
    EXPECT_EQ((Decimal("0.000000001") * Decimal("0.499999999")).text(), "0");
    EXPECT_EQ((Decimal("1.23456789") * Decimal("0.01")).text(), "0.012345679");
}

TEST(DecimalProduct, ThatIsLargeKeepsAsManyDecimalsAsThereIsRoomFor) {
    EXPECT_EQ((Decimal("123456789012.345678") * Decimal("1.1")).text(), "135802467913.580246");
    EXPECT_EQ((Decimal("99999999999999999.9") * Decimal("0.99")).text(), "98999999999999999.9");
    EXPECT_EQ((Decimal("333333333.333333333") * 3).text(), "999999999.999999999");
    EXPECT_EQ((Decimal("100000000.000000001") * 9'999'999'999).text(), "999999999900000010");
    EXPECT_EQ((Decimal("999999999.999999999") * Decimal("999999999.999999999")).text(), "999999999999999998");
    EXPECT_EQ(errorOf([] { Decimal(1'000'000'000) * 1'000'000'000; }),
              "1000000000 * 1000000000 has more digits than the 18 that a number may have");
}

TEST(DecimalQuotient, IsRoundedToNineDecimalsOrToThoseThatFit) {
    EXPECT_EQ((Decimal(1) / 3).text(), "0.333333333");
    EXPECT_EQ((Decimal(-2) / 3).text(), "-0.666666667");
    EXPECT_EQ((Decimal("4.995") / Decimal("3.33")).text(), "1.5");
    EXPECT_EQ((Decimal(1) / Decimal("-0.000000001")).text(), "-1000000000");
    EXPECT_EQ((Decimal(100'000'000'000'000'000) / 3).text(), "33333333333333333.3");
    EXPECT_EQ((Decimal("0.000000001") / 2).text(), "0.000000001");
    EXPECT_EQ((Decimal("0.000000001") / Decimal("2.000000001")).text(), "0");
    EXPECT_EQ(errorOf([] { Decimal(Largest) / Decimal("0.5"); }),
              Largest + " / 0.5 has more digits than the 18 that a number may have");
}

TEST(DecimalQuotient, IsRoundedOnceToTheDecimalsThatAreAsked) {
    EXPECT_EQ(Decimal(10).divided(3, 2).text(), "3.33");
    EXPECT_EQ(Decimal(1).divided(8, 2).text(), "0.13");
    EXPECT_EQ(Decimal(-1).divided(8, 2).text(), "-0.13");
    EXPECT_EQ(Decimal(7).divided(2, 0).text(), "4");
    EXPECT_EQ(Decimal("0.444444445").divided(1, 0).text(), "0");
    EXPECT_EQ(errorOf([] { Decimal(Largest).divided(17, 9); }),
              Largest + " / 17 with 9 decimals has more digits than the 18 that a number may have");
}

TEST(DecimalQuotient, ByZeroIsRefused) {
    EXPECT_EQ(errorOf([] { Decimal("1.5") / 0; }), "1.5 / 0: division by zero");
    EXPECT_EQ(errorOf([] { Decimal(0) / Decimal("0.00"); }), "0 / 0: division by zero");
    EXPECT_EQ(errorOf([] { Decimal(1).divided(0, 2); }), "1 / 0: division by zero");
}

TEST(DecimalNumber, IsComparedByValue) {
    EXPECT_EQ(Decimal("1.5"), Decimal("1.50"));
    EXPECT_LT(Decimal("-1.5"), -1);
    EXPECT_LT(Decimal("0.999999999"), 1);
    EXPECT_GT(Decimal(Largest), Decimal("999999999.999999999"));
    EXPECT_LT(Decimal("-" + Largest), Decimal("-0.000000001"));
    EXPECT_NE(Decimal(1), Decimal("0.1"));
    EXPECT_TRUE((Decimal("2") <=> Decimal("2.0")) == std::strong_ordering::equal);
}

TEST(DecimalNumber, IsChangedInPlace) {
    Decimal number = 1;
    number += Decimal("0.5");
    number *= 3;
    number -= 1;
    number /= 7;
    EXPECT_EQ(number.text(), "0.5");
    EXPECT_EQ((-number).text(), "-0.5");
    EXPECT_EQ(abs(-number), number);
    EXPECT_EQ((-Decimal()).text(), "0");
}

TEST(DecimalNumber, ThatFailsToChangeStaysWhatItWas) {
    Decimal number(Largest);
    EXPECT_THROW(number += 1, DecimalError);
    EXPECT_EQ(number.text(), Largest);
}

TEST(DecimalNumber, IsAKeyByItsValue) {
    const std::unordered_set<Decimal> prices = {Decimal("1.50"), Decimal("1.5"), Decimal(15)};
    EXPECT_EQ(prices.size(), 2U);
    EXPECT_EQ(prices.count(Decimal("15.0")), 1U);
}
}  // namespace
}  // namespace kxVsGrid

#include "Decimal.h"

#include <gtest/gtest.h>

TEST(Decimal, ReadsANumberIntoWholeCents) {
    EXPECT_EQ(scaledNumber("12.3", 2), 1230);
    EXPECT_EQ(scaledNumber("-0.05", 2), -5);
    EXPECT_EQ(scaledNumber(".5", 2), 50);
    EXPECT_EQ(scaledNumber("7.", 2), 700);
}

TEST(Decimal, RoundsHalvesAwayFromZeroWhenReading) {
    EXPECT_EQ(scaledNumber("1.005", 2), 101);
    EXPECT_EQ(scaledNumber("-1.005", 2), -101);
    EXPECT_EQ(scaledNumber("1.00499999", 2), 100);
    EXPECT_EQ(scaledNumber("0.9999", 3), 1000);
}

TEST(Decimal, RefusesWhatIsNoPlainNumberOrTooLarge) {
    for (const char* text : {"", "-", ".", "abc", "1,5", "1 ", "1e3", "99999999999999999999"})
        EXPECT_EQ(scaledNumber(text, 2), std::nullopt) << text;
}

TEST(Decimal, WritesTheShortestText) {
    EXPECT_EQ(plainText(1230, 2), "12.3");
    EXPECT_EQ(plainText(1200, 2), "12");
    EXPECT_EQ(plainText(5, 3), "0.005");
    EXPECT_EQ(plainText(-5, 2), "-0.05");
    EXPECT_EQ(plainText(0, 2), "0");
}

TEST(Decimal, GroupsThousandsInMoney) {
    EXPECT_EQ(moneyText(0), "0.00");
    EXPECT_EQ(moneyText(99999), "999.99");
    EXPECT_EQ(moneyText(100000), "1,000.00");
    EXPECT_EQ(moneyText(-123456789), "-1,234,567.89");
}

TEST(Decimal, GroupsThousandsInQuantitiesWithoutTrailingZeros) {
    EXPECT_EQ(quantityText(0), "0");
    EXPECT_EQ(quantityText(1234500), "1,234.5");
    EXPECT_EQ(quantityText(-1000000), "-1,000");
}

TEST(Decimal, AmountsAreRoundedToTheCent) {
    EXPECT_EQ(amountOf(1500, 333), 500);  // 1.5 x 3.33 = 4.995
    EXPECT_EQ(amountOf(-1500, 333), -500);
    EXPECT_EQ(amountOf(333, 100), 33);
    EXPECT_EQ(amountOf(0, 12345), 0);
}

TEST(Decimal, AnAmountThatIsTooLargeIsNone) {
    EXPECT_EQ(amountOf(1LL << 40, 1LL << 40), std::nullopt);
}

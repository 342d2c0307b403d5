// Columns that store numbers with every digit that the clerk has entered.
#include <string>

#include "editing/InputFormsTest.h"
#include "kit/PrintTo.h"
#include "kit/Random.h"

namespace kxVsGrid::testing {
namespace {

class ExactNumber : public InputFormsTest {
  protected:
    ExactNumber() {
        for (const std::int32_t col : {Plain, Grouped, Percent, Both}) grid.Options(col).exact(true);
    }
    /// What the clerk is told of a number that he types.
    std::string refusalOf(std::int32_t col, std::string_view number) {
        EXPECT_FALSE(enter(col, number)) << number;
        const std::string told = desk.messages().empty() ? "" : desk.messages().front().text;
        desk.press(Key::Escape);
        return told;
    }
};

TEST_F(ExactNumber, IsNoneAtFirst) {
    EXPECT_FALSE(grid.Options(1).exact());
    grid.Options(Plain).exact(false);
    EXPECT_EQ(entered(Plain, "123456789012345678"), "123456789012346000") << "15 digits";
    EXPECT_EQ(entered(Plain, "0.1234567891234"), "0.1234567891234");
}

TEST_F(ExactNumber, KeepsEveryDigitHoweverItIsEntered) {
    for (const Entry entry : Entries) {
        EXPECT_EQ(entered(Plain, "123456789012345678", entry), "123456789012345678") << entry;
        EXPECT_EQ(entered(Plain, "-999999999999999999", entry), "-999999999999999999") << entry;
        EXPECT_EQ(entered(Plain, "123456789.123456789", entry), "123456789.123456789") << entry;
        EXPECT_EQ(entered(Plain, "9007199254740993", entry), "9007199254740993") << entry;
        EXPECT_EQ(entered(Grouped, "123,456,789,012,345.678", entry), "123456789012345.678") << entry;
        EXPECT_EQ(entered(Percent, "1234567890123456.78%", entry), "12345678901234.5678") << entry;
        EXPECT_EQ(entered(Both, "-1,234,567,890,123,456%", entry), "-12345678901234.56") << entry;
    }
}

TEST_F(ExactNumber, IsStoredInItsShortestForm) {
    for (const Entry entry : Entries) {
        EXPECT_EQ(entered(Plain, "007", entry), "7") << entry;
        EXPECT_EQ(entered(Plain, "1.50", entry), "1.5") << entry;
        EXPECT_EQ(entered(Plain, " +3.0 ", entry), "3") << entry;
        EXPECT_EQ(entered(Plain, ".5", entry), "0.5") << entry;
        EXPECT_EQ(entered(Plain, "5.", entry), "5") << entry;
        EXPECT_EQ(entered(Plain, "-0.00", entry), "0") << entry;
        EXPECT_EQ(entered(Plain, "", entry), "") << entry;
    }
}

TEST_F(ExactNumber, IsTakenInFullWidthSigns) {
    for (const Entry entry : Entries)
        EXPECT_EQ(entered(Plain, "－１２３４５６７８９０１２３４５．６７８", entry), "-123456789012345.678")
            << entry;
}

TEST_F(ExactNumber, IsRoundedToNineDecimals) {
    EXPECT_EQ(entered(Plain, "0.1234567895"), "0.12345679");
    EXPECT_EQ(entered(Plain, "-0.1234567885"), "-0.123456789");
    EXPECT_EQ(entered(Plain, "-0.0000000005"), "-0.000000001");
    EXPECT_EQ(entered(Plain, "0.33333333333333333333"), "0.333333333");
    EXPECT_EQ(entered(Plain, "999999999.9999999999"), "1000000000");
    EXPECT_EQ(entered(Percent, "0.00000005%"), "0.000000001");
}

TEST_F(ExactNumber, OfMoreDigitsThanItMayHaveIsRefused) {
    for (const std::string number : {"1234567890123456789", "-1000000000000000000", "1234567890.123456789",
                                     "1234567890.1234567891", "100000000000000000000000000000"}) {
        EXPECT_EQ(refusalOf(Plain, number), "数字最多 18 位。") << number;
        EXPECT_EQ(entered(Plain, number, Entry::PastedOnto), "refused") << number;
    }
    EXPECT_EQ(refusalOf(Percent, "1234567890123456789%"), "数字最多 18 位。");
    EXPECT_EQ(entered(Plain, "100000000000000000.00"), "100000000000000000");
}

TEST_F(ExactNumber, IsWorkedOutWhereItIsAnExpression) {
    EXPECT_EQ(entered(Plain, "0.1+0.2"), "0.3");
    EXPECT_EQ(entered(Plain, "1/3"), "0.333333333");
    EXPECT_EQ(entered(Plain, "200000/3"), "66666.666666667");
    EXPECT_EQ(entered(Plain, "2*(3+4)"), "14");
    EXPECT_EQ(refusalOf(Plain, "10^18*10"), "数字最多 18 位。");
    EXPECT_EQ(entered(Plain, "1+"), "refused");
}

TEST_F(ExactNumber, IsJudgedByItsRulesInEveryDigit) {
    grid.Options(Plain).mostDecimals(2);
    EXPECT_EQ(refusalOf(Plain, "123456789012345.678"), "小数最多 2 位。");
    EXPECT_EQ(entered(Plain, "1234567890123456.78"), "1234567890123456.78");
    EXPECT_EQ(entered(Plain, "1.500"), "1.5");
}

TEST_F(ExactNumber, IsShownByItsFormatInEveryDigit) {
    entered(Grouped, "1234567890123456.78");
    EXPECT_EQ(grid.Grid().DisplayText(2, Grouped), "1,234,567,890,123,456.78");
    entered(Both, "1234567890123456.78");
    EXPECT_EQ(grid.Grid().DisplayText(2, Both), "123,456,789,012,345,678%");
}

TEST_F(ExactNumber, ComesBackIntoTheEditorAsItIsStored) {
    entered(Grouped, "1234567890123456.78");
    at(2, Grouped);
    desk.press(Key::Space);
    EXPECT_EQ(desk.editor().text, "1234567890123456.78");
    desk.press(Key::Enter);
    EXPECT_EQ(text(2, Grouped), "1234567890123456.78");
}

TEST_F(ExactNumber, IsCopiedDownAndReplacedInEveryDigit) {
    grid.SetCell(1, Plain, "1234567890123456.78");
    grid.Grid().SelectsRanges(true);
    grid.Grid().SelectRange(1, Plain, 3, Plain);
    desk.run(Command::FillDown);
    EXPECT_EQ(text(3, Plain), "1234567890123456.78");
    grid.Find().Rule({.text = "56.78"});
    grid.Find().ReplaceAll("65.87");
    EXPECT_EQ(text(1, Plain), "1234567890123465.87");
    EXPECT_EQ(text(3, Plain), "1234567890123465.87");
}

TEST_F(ExactNumber, ThatCodeHasWrittenTooLongIsLeftWhileNobodyChangesIt) {
    grid.SetCell(2, Plain, "12345678901234567890");
    at(2, Plain);
    desk.press(Key::Space).press(Key::Enter);
    EXPECT_EQ(text(2, Plain), "12345678901234567890");
}

TEST_F(ExactNumber, ConcernsNumberColumnsAlone) {
    grid.Options(1).exact(true);
    EXPECT_EQ(entered(1, "007.50"), "007.50");
    EXPECT_EQ(entered(1, "1234567890123456789012"), "1234567890123456789012");
}

TEST_F(ExactNumber, IsTheNumberThatADoubleGivesWhereThatIsExact) {
    kit::Random random;
    for (int i = 0; i < 200; ++i) {
        const Decimal number = Decimal::scaled(random.between(-999'999'999'999'999, 999'999'999'999'999),
                                               static_cast<int>(random.between(0, 9)));
        const std::string exact = entered(Plain, number.text(9));
        grid.Options(Plain).exact(false);
        EXPECT_EQ(exact, entered(Plain, number.text(9)));
        EXPECT_EQ(exact, number.text());
        grid.Options(Plain).exact(true);
    }
}
}  // namespace
}  // namespace kxVsGrid::testing

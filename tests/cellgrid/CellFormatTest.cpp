#include "cellgrid/format/CellFormat.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>

namespace kxVsGrid::cellgrid {
namespace {

/// What a cell with the text shows under the pattern.
std::string shown(std::string_view pattern, std::string_view text) {
    std::string result = "untouched";
    if (CellFormat(pattern).apply(text, result)) return result;
    EXPECT_EQ(result, "untouched");
    return std::string(text);
}

bool applies(std::string_view pattern, std::string_view text) {
    std::string result;
    return CellFormat(pattern).apply(text, result);
}

TEST(CellFormat, WithoutAPatternChangesNothing) {
    EXPECT_EQ(CellFormat("").pattern(), "");
    EXPECT_FALSE(applies("", "12"));
}

TEST(CellFormat, AnswersItsPatternAsItWasGiven) {
    EXPECT_EQ(CellFormat("#,##0.00;(0)").pattern(), "#,##0.00;(0)");
    EXPECT_EQ(CellFormat("no such thing").pattern(), "no such thing");
}

TEST(CellFormat, WithoutADigitOrADateLetterChangesNothing) {
    for (const char* pattern : {"abc", "%", "\"0\"", "\\0"})
        for (const char* text : {"12", "2026-11-20"}) EXPECT_FALSE(applies(pattern, text)) << pattern;
    EXPECT_EQ(shown("%", "12"), "12");
}

TEST(NumberFormat, ShowsThousandsSeparatorsAndTwoDecimals) {
    EXPECT_EQ(shown("#,##0.00", "1234.5"), "1,234.50");
    EXPECT_EQ(shown("#,##0.00", "1234567.891"), "1,234,567.89");
    EXPECT_EQ(shown("#,##0.00", "123"), "123.00");
    EXPECT_EQ(shown("#,##0.00", "0"), "0.00");
    EXPECT_EQ(shown("##0.00", "1234.5"), "1234.50");
}

TEST(NumberFormat, FillsNumbersUpToAFixedWidth) {
    EXPECT_EQ(shown("00", "5"), "05");
    EXPECT_EQ(shown("00", "12"), "12");
    EXPECT_EQ(shown("00", "123"), "123");
    EXPECT_EQ(shown("0000", "7"), "0007");
    EXPECT_EQ(shown("0000", "0"), "0000");
    EXPECT_EQ(shown("0,000", "7"), "0,007");
}

TEST(NumberFormat, ShowsSignificantDigitsOnlyWhereTheyAreOptional) {
    EXPECT_EQ(shown("0.##", "1.5"), "1.5");
    EXPECT_EQ(shown("0.##", "1.234"), "1.23");
    EXPECT_EQ(shown("0.0#", "1"), "1.0");
    EXPECT_EQ(shown("#.00", "0.5"), ".50");
    EXPECT_EQ(shown("#,###", "0"), "");
    EXPECT_EQ(shown(".00", "12.345"), "12.35");
    EXPECT_EQ(shown("#0#", "5"), "05");
}

TEST(NumberFormat, ShowsNoPointWithoutADecimalBehindIt) {
    EXPECT_EQ(shown("#,##0.", "1234"), "1,234");
    EXPECT_EQ(shown("0.##", "7"), "7");
    EXPECT_EQ(shown("0.##", "6.999"), "7");
}

TEST(NumberFormat, RoundsTheDigitsThatTheTextHas) {
    EXPECT_EQ(shown("0.00", "1.005"), "1.01");
    EXPECT_EQ(shown("0.00", "2.675"), "2.68");
    EXPECT_EQ(shown("0.0", "0.25"), "0.3");
    EXPECT_EQ(shown("0", "0.5"), "1");
    EXPECT_EQ(shown("0", "2.5"), "3");
    EXPECT_EQ(shown("0", "-2.5"), "-3");
    EXPECT_EQ(shown("0.00", "1.00499999999999999999"), "1.00");
}

TEST(NumberFormat, CarriesThroughNines) {
    EXPECT_EQ(shown("0.00", "9.995"), "10.00");
    EXPECT_EQ(shown("#,##0", "999999.5"), "1,000,000");
    EXPECT_EQ(shown("0.0", "0.05"), "0.1");
    EXPECT_EQ(shown("0.0", "0.049"), "0.0");
}

TEST(NumberFormat, KeepsEveryDigitOfLongNumbers) {
    EXPECT_EQ(shown("0", "1234567890123456789012345"), "1234567890123456789012345");
    EXPECT_EQ(shown("#,##0.00", "9999999999999999999999999.994"), "9,999,999,999,999,999,999,999,999.99");
    EXPECT_EQ(shown("0.0", std::string(400, '7')), std::string(400, '7') + ".0");
    EXPECT_EQ(shown("0." + std::string(30, '0'), "0.1"), "0.1" + std::string(29, '0'));
}

TEST(NumberFormat, HasNoMinusWhenTheResultRoundsToZero) {
    EXPECT_EQ(shown("0.00", "-0.004"), "0.00");
    EXPECT_EQ(shown("0.00", "-0.005"), "-0.01");
    EXPECT_EQ(shown("0", "-0"), "0");
    EXPECT_EQ(shown("0", "-0.4"), "0");
    EXPECT_EQ(shown("0.00;(0.00)", "-0.001"), "0.00");
    EXPECT_EQ(shown("0.00;-0.00;none", "-0.001"), "none");
}

TEST(NumberFormat, PutsTheMinusBeforeEverythingElse) {
    EXPECT_EQ(shown("#,##0.00", "-1234.5"), "-1,234.50");
    EXPECT_EQ(shown("¥0.00", "-5"), "-¥5.00");
    EXPECT_EQ(shown("0%", "-0.5"), "-50%");
}

TEST(NumberFormat, MultipliesByAHundredForAPercentSign) {
    EXPECT_EQ(shown("0%", "0.125"), "13%");
    EXPECT_EQ(shown("0.0%", "0.1255"), "12.6%");
    EXPECT_EQ(shown("0.00%", "1.00005"), "100.01%");
    EXPECT_EQ(shown("%0", "0.07"), "%7");
    EXPECT_EQ(shown("0%", "0"), "0%");
    EXPECT_EQ(shown("0\"%\"", "7"), "7%");
    EXPECT_EQ(shown("0\\%", "7"), "7%");
    EXPECT_EQ(shown("0%;0", "-7"), "7");
}

TEST(NumberFormat, ChoosesTheSectionByTheSign) {
    const auto pattern = "#,##0.0;(#,##0.0);zero";
    EXPECT_EQ(shown(pattern, "1234"), "1,234.0");
    EXPECT_EQ(shown(pattern, "-1234"), "(1,234.0)");
    EXPECT_EQ(shown(pattern, "0"), "zero");
    EXPECT_EQ(shown(pattern, "0.04"), "zero");
    EXPECT_EQ(shown("0;负", "-0.3"), "负");
}

TEST(NumberFormat, TakesTheFirstSectionForAMissingOrEmptyOne) {
    EXPECT_EQ(shown("0.0;(0.0)", "0"), "0.0");
    EXPECT_EQ(shown("0.0;;zero", "-1"), "-1.0");
    EXPECT_EQ(shown("0.0;;zero", "0"), "zero");
    EXPECT_EQ(shown("0.0;(0.0);", "0"), "0.0");
}

TEST(NumberFormat, ShowsNothingForASectionOfEmptyQuotes) {
    EXPECT_EQ(shown("0.0;(0.0);\"\"", "0"), "");
    EXPECT_TRUE(applies("0.0;(0.0);\"\"", "0"));
    EXPECT_EQ(shown("0;\"\"", "-3"), "");
}

TEST(NumberFormat, IgnoresSectionsBeyondTheThird) {
    EXPECT_EQ(shown("0;-0;0;text", "1"), "1");
    EXPECT_EQ(shown("0;-0;0;text", "abc"), "abc");
}

TEST(NumberFormat, ShowsOtherCharactersAsTheyAre) {
    EXPECT_EQ(shown("¥#,##0.00元", "1234"), "¥1,234.00元");
    EXPECT_EQ(shown("000-0000", "1234567"), "123-4567");
    EXPECT_EQ(shown("000-0000", "91234567"), "9123-4567");
    EXPECT_EQ(shown("0 kg", "3"), "3 kg");
    EXPECT_EQ(shown("0\"#,0.;%\"", "3"), "3#,0.;%");
    EXPECT_EQ(shown("\\#0", "3"), "#3");
    EXPECT_EQ(shown("0.0.0", "1.25"), "1.2.5");
    EXPECT_EQ(shown("0\"open", "1"), "1open");
    EXPECT_EQ(shown("0\\", "1"), "1\\");
    EXPECT_EQ(shown("0.0m", "1"), "1.0m");
}

TEST(NumberFormat, ReadsNumbersInEveryWritingThatCountsAsComplete) {
    EXPECT_EQ(shown("0.00", " 12.5 "), "12.50");
    EXPECT_EQ(shown("0.00", "+3"), "3.00");
    EXPECT_EQ(shown("0.00", ".5"), "0.50");
    EXPECT_EQ(shown("0.00", "5."), "5.00");
    EXPECT_EQ(shown("0.00", "0012"), "12.00");
    EXPECT_EQ(shown("0.00", "1.5e3"), "1500.00");
    EXPECT_EQ(shown("0.00", "1.5E+3"), "1500.00");
    EXPECT_EQ(shown("#,##0.000", "-12345e-3"), "-12.345");
    EXPECT_EQ(shown("0.00", "5e-1000000000000000000000"), "0.00");
    EXPECT_EQ(shown("0.00", "0e99999"), "0.00");
}

TEST(NumberFormat, LeavesTextsThatAreNoCompleteNumberAlone) {
    for (const char* text :
         {"",   " ",   "abc", "12abc", "1,234", "1 2", "-",     "+",    ".",   "1e",  "1e+",
          "e5", "--1", "- 1", "1.2.3", "合计",  "12%", "1e400", "0x10", "inf", "nan", "2024-01-02"})
        EXPECT_FALSE(applies("#,##0.00", text)) << text;
}

TEST(NumberFormat, LeavesTextsAloneWhenThePatternAsksForAnExponent) {
    EXPECT_EQ(shown("0.00E+00", "1234"), "1234");
    EXPECT_EQ(shown("0.00 E", "1234"), "1234.00 E");
}

TEST(NumberFormat, WritesIntoATextThatHeldAnotherOne) {
    const CellFormat format("0.0");
    std::string text = "something longer than the result";
    ASSERT_TRUE(format.apply("-1", text));
    EXPECT_EQ(text, "-1.0");
    ASSERT_TRUE(format.apply("22", text));
    EXPECT_EQ(text, "22.0");
}

TEST(DateFormat, ShowsTheDateInThePatternsOrder) {
    EXPECT_EQ(shown("yyyy-mm-dd", "2024-3-5"), "2024-03-05");
    EXPECT_EQ(shown("yy/m/d", "2024-03-05"), "24/3/5");
    EXPECT_EQ(shown("yyyy年m月d日", "2024-03-05"), "2024年3月5日");
    EXPECT_EQ(shown("dd.mm.yyyy", "2024/11/30"), "30.11.2024");
    EXPECT_EQ(shown("yyyymmdd", "2024年1月2日"), "20240102");
    EXPECT_EQ(shown("yyyy", "0987-01-02"), "0987");
    EXPECT_EQ(shown("yy", "2005-01-02"), "05");
}

TEST(DateFormat, TellsMinutesFromMonthsByTheirNeighbours) {
    EXPECT_EQ(shown("yyyy-mm-dd HH:mm:ss", "2024-03-05 9:07:08"), "2024-03-05 09:07:08");
    EXPECT_EQ(shown("H:m", "2024-03-05 9:07"), "9:7");
    EXPECT_EQ(shown("mm:ss", "2024-03-05 9:07:08"), "07:08");
    EXPECT_EQ(shown("HH mm dd mm", "2024-03-05 9:07"), "09 07 05 03");
    EXPECT_EQ(shown("H\"时\"mm\"分\"", "2024-03-05 19:07"), "19时07分");
    EXPECT_EQ(shown("mm HH", "2024-03-05 19:07"), "03 19");
}

TEST(DateFormat, ShowsMidnightForADateWithoutATime) {
    EXPECT_EQ(shown("yyyy-mm-dd HH:mm:ss", "2024-03-05"), "2024-03-05 00:00:00");
}

TEST(DateFormat, ReadsLettersInEitherCase) {
    EXPECT_EQ(shown("YYYY-MM-DD hh:mm:SS", "2024-3-5 9:07:08"), "2024-03-05 09:07:08");
}

TEST(DateFormat, ShowsQuotedAndEscapedLettersAsTheyAre) {
    EXPECT_EQ(shown("\"day \"d", "2024-03-05"), "day 5");
    EXPECT_EQ(shown("\\dd", "2024-03-05"), "d5");
    EXPECT_EQ(shown("yyyy;mm", "2024-03-05"), "2024;03");
}

TEST(DateFormat, IsNotReadIntoAWord) {
    for (const char* word : {"Standard", "Currency", "General Date", "yyyy-mm-dd x"})
        EXPECT_FALSE(applies(word, "2026-11-20")) << word;
}

TEST(DateFormat, LeavesTextsThatAreNoDateAlone) {
    for (const char* text : {"", "abc", "12", "2024-02-30", "9:07", "2024-03"})
        EXPECT_FALSE(applies("yyyy-mm-dd", text)) << text;
}
}  // namespace
}  // namespace kxVsGrid::cellgrid

#include "support/Dates.h"

#include <gtest/gtest.h>

#include <array>
#include <cstdint>
#include <limits>
#include <ostream>
#include <string>

namespace kxVsGrid {
void PrintTo(const DateTime& d, std::ostream* out) {
    *out << d.year << '-' << d.month << '-' << d.day << ' ' << d.hour << ':' << d.minute << ':' << d.second;
}
}  // namespace kxVsGrid

namespace kxVsGrid::support {
namespace {

constexpr std::int64_t kDayOfYear100 =
    -683003;  // 0100-01-01; known from tables, not from the code under test

DateTime day(std::int32_t year, std::int32_t month, std::int32_t d) {
    return {year, month, d, 0, 0, 0};
}

TEST(ParseDate, ReadsTheFourForms) {
    EXPECT_EQ(parseDate("2011-2-3"), day(2011, 2, 3));
    EXPECT_EQ(parseDate("2011-02-03"), day(2011, 2, 3));
    EXPECT_EQ(parseDate("2011/2/03"), day(2011, 2, 3));
    EXPECT_EQ(parseDate("2011.12.31"), day(2011, 12, 31));
    EXPECT_EQ(parseDate("2011年2月3日"), day(2011, 2, 3));
}

TEST(ParseDate, IgnoresBlanksAroundTheWhole) {
    EXPECT_EQ(parseDate("  2011-2-3  "), day(2011, 2, 3));
    EXPECT_EQ(parseDate(" 2011-2-3 4:05 "), (DateTime{2011, 2, 3, 4, 5, 0}));
}

TEST(ParseDate, ReadsYearsOfTwoAndFourDigits) {
    EXPECT_EQ(parseDate("00-1-1"), day(2000, 1, 1));
    EXPECT_EQ(parseDate("29-1-1"), day(2029, 1, 1));
    EXPECT_EQ(parseDate("30-1-1"), day(1930, 1, 1));
    EXPECT_EQ(parseDate("99年12月31日"), day(1999, 12, 31));
    EXPECT_EQ(parseDate("0100-01-01"), day(100, 1, 1));
    EXPECT_EQ(parseDate("9999-12-31"), day(9999, 12, 31));
    for (const char* text : {"0099-1-1", "0000-1-1", "100-1-1", "1-1-1", "10000-1-1", "02011-1-1", "-1-1-1"})
        EXPECT_EQ(parseDate(text), std::nullopt) << text;
}

TEST(ParseDate, ReadsATimeOfDayAfterABlank) {
    EXPECT_EQ(parseDate("2011-2-3 8:05"), (DateTime{2011, 2, 3, 8, 5, 0}));
    EXPECT_EQ(parseDate("2011-2-3 08:05:09"), (DateTime{2011, 2, 3, 8, 5, 9}));
    EXPECT_EQ(parseDate("2011年2月3日 23:59:59"), (DateTime{2011, 2, 3, 23, 59, 59}));
    EXPECT_EQ(parseDate("2011-2-3 0:00"), day(2011, 2, 3));
    for (const char* text :
         {"2011-2-3 24:00", "2011-2-3 8:60", "2011-2-3 8:05:60", "2011-2-3 8", "2011-2-3 8:", "2011-2-3 8:5",
          "2011-2-3 8:05:", "2011-2-3 8:05:9", "2011-2-38:05", "2011-2-3T8:05", "2011-2-3 8:05 x",
          "2011-2-3 8:05:09:1", "2011-2-3 下午", "2011-2-3 108:05", "2011-2-3 -8:05"})
        EXPECT_EQ(parseDate(text), std::nullopt) << text;
}

TEST(ParseDate, RefusesDaysThatTheCalendarDoesNotHave) {
    for (const char* text : {"2011-02-30", "2011-02-29", "1900-02-29", "2011-04-31", "2011-13-01",
                             "2011-00-01", "2011-01-00", "2011-01-32"})
        EXPECT_EQ(parseDate(text), std::nullopt) << text;
    EXPECT_EQ(parseDate("2000-02-29"), day(2000, 2, 29));
    EXPECT_EQ(parseDate("2012-02-29"), day(2012, 2, 29));
}

TEST(ParseDate, RefusesWhatIsNoDate) {
    for (const char* text :
         {"",           " ",         "2011",      "20110203",     "3.5",        "12:30",      "8:05:09",
          "2011-2",     "2011-2-",   "2011--3",   "2011-2/3",     "2011.2-3",   "2011年2月3", "2011年2-3",
          "2011-2-3日", "2011 -2-3", "2011- 2-3", "2011-002-3",   "2011-2-003", "2011-2-3-4", "a2011-2-3",
          "2011-2-3a",  "2011-2-3.", "下午",      "２０１１-2-3", "2011\t-2-3", "+2011-2-3"})
        EXPECT_EQ(parseDate(text), std::nullopt) << text;
}

TEST(DayNumber, CountsFromTheFirstOfJanuary1970) {
    EXPECT_EQ(dayNumber(day(1970, 1, 1)), 0);
    EXPECT_EQ(dayNumber(day(1970, 1, 2)), 1);
    EXPECT_EQ(dayNumber(day(1969, 12, 31)), -1);
    EXPECT_EQ(dayNumber(day(2000, 3, 1)), 11017);
    EXPECT_EQ(dayNumber({1970, 1, 2, 23, 59, 59}), 1);
}

// An independent calendar: it only ever steps to the next day.
TEST(Dates, FollowASimpleCalendarThroughEveryDayFromTheYear100To9999) {
    constexpr std::array<std::int32_t, 12> kDays = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    std::int64_t number = kDayOfYear100;
    for (std::int32_t year = 100; year <= 9999; ++year) {
        const bool leap = year % 400 == 0 || (year % 4 == 0 && year % 100 != 0);
        ASSERT_EQ(isLeapYear(year), leap) << year;
        for (std::int32_t month = 1; month <= 12; ++month) {
            const std::int32_t last =
                kDays[static_cast<std::size_t>(month - 1)] + (leap && month == 2 ? 1 : 0);
            ASSERT_EQ(daysInMonth(year, month), last) << year << '-' << month;
            for (std::int32_t d = 1; d <= last; ++d, ++number) {
                const DateTime date = day(year, month, d);
                if (dayNumber(date) == number && dateOfDay(number) == date) continue;
                FAIL() << year << '-' << month << '-' << d << " is day " << number;
            }
        }
    }
    EXPECT_EQ(number, 2932897);  // 10000-01-01
}

TEST(AddDays, StepsOverMonthsAndYears) {
    EXPECT_EQ(addDays(day(2011, 12, 31), 1), day(2012, 1, 1));
    EXPECT_EQ(addDays(day(2012, 3, 1), -1), day(2012, 2, 29));
    EXPECT_EQ(addDays(day(2000, 1, 1), 366), day(2001, 1, 1));
    EXPECT_EQ(addDays(day(2000, 1, 1), 0), day(2000, 1, 1));
}

TEST(AddDays, HasNoValueOutsideTheCalendar) {
    EXPECT_EQ(addDays(day(9999, 12, 30), 1), day(9999, 12, 31));
    EXPECT_EQ(addDays(day(9999, 12, 31), 1), std::nullopt);
    EXPECT_EQ(addDays(day(100, 1, 1), -1), std::nullopt);
    EXPECT_EQ(addDays(day(2000, 1, 1), std::numeric_limits<std::int64_t>::max()), std::nullopt);
    EXPECT_EQ(addDays(day(2000, 1, 1), std::numeric_limits<std::int64_t>::min()), std::nullopt);
}

TEST(AddMonths, ClampsToTheEndOfTheMonth) {
    EXPECT_EQ(addMonths(day(2011, 1, 31), 1), day(2011, 2, 28));
    EXPECT_EQ(addMonths(day(2012, 1, 31), 1), day(2012, 2, 29));
    EXPECT_EQ(addMonths(day(2011, 3, 31), -1), day(2011, 2, 28));
    EXPECT_EQ(addMonths(day(2011, 8, 31), 1), day(2011, 9, 30));
    EXPECT_EQ(addMonths(day(2011, 1, 15), 1), day(2011, 2, 15));
}

TEST(AddMonths, StepsOverYears) {
    EXPECT_EQ(addMonths(day(2011, 12, 5), 1), day(2012, 1, 5));
    EXPECT_EQ(addMonths(day(2011, 1, 5), -1), day(2010, 12, 5));
    EXPECT_EQ(addMonths(day(2011, 1, 5), 25), day(2013, 2, 5));
    EXPECT_EQ(addMonths(day(2011, 1, 5), -25), day(2008, 12, 5));
    EXPECT_EQ(addMonths(day(2011, 1, 5), 0), day(2011, 1, 5));
}

TEST(AddMonths, HasNoValueOutsideTheCalendar) {
    EXPECT_EQ(addMonths(day(9999, 12, 1), 1), std::nullopt);
    EXPECT_EQ(addMonths(day(100, 1, 1), -1), std::nullopt);
    EXPECT_EQ(addMonths(day(100, 1, 1), 9900 * 12 - 1), day(9999, 12, 1));
    EXPECT_EQ(addMonths(day(2000, 1, 1), std::numeric_limits<std::int64_t>::max()), std::nullopt);
    EXPECT_EQ(addMonths(day(2000, 1, 1), std::numeric_limits<std::int64_t>::min()), std::nullopt);
}

TEST(AddYears, ClampsTheLeapDay) {
    EXPECT_EQ(addYears(day(2012, 2, 29), 1), day(2013, 2, 28));
    EXPECT_EQ(addYears(day(2012, 2, 29), 4), day(2016, 2, 29));
    EXPECT_EQ(addYears(day(2012, 2, 29), -112), day(1900, 2, 28));
}

TEST(AddYears, HasNoValueOutsideTheCalendar) {
    EXPECT_EQ(addYears(day(9999, 1, 1), 1), std::nullopt);
    EXPECT_EQ(addYears(day(100, 1, 1), -1), std::nullopt);
    EXPECT_EQ(addYears(day(2000, 1, 1), std::numeric_limits<std::int64_t>::max()), std::nullopt);
    EXPECT_EQ(addYears(day(2000, 1, 1), std::numeric_limits<std::int64_t>::min()), std::nullopt);
}

TEST(DateArithmetic, KeepsTheTimeOfDay) {
    const DateTime from{2011, 1, 31, 8, 5, 9};
    EXPECT_EQ(addDays(from, 1), (DateTime{2011, 2, 1, 8, 5, 9}));
    EXPECT_EQ(addMonths(from, 1), (DateTime{2011, 2, 28, 8, 5, 9}));
    EXPECT_EQ(addYears(from, 1), (DateTime{2012, 1, 31, 8, 5, 9}));
}

TEST(DateTexts, AreWrittenWithAllTheirDigits) {
    EXPECT_EQ(shortDateText(day(2011, 2, 3)), "2011-02-03");
    EXPECT_EQ(shortDateText(day(100, 12, 31)), "0100-12-31");
    EXPECT_EQ(timeText({2011, 2, 3, 8, 5, 9}), "08:05:09");
    EXPECT_EQ(timeText({2011, 2, 3, 23, 59, 0}), "23:59:00");
}

}  // namespace
}  // namespace kxVsGrid::support

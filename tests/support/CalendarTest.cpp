// Every day that there is, and the days around them that there are not, as a clerk may write them: the
// calendar here only ever steps to the next day, and the texts are put together here.
#include <gtest/gtest.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "support/Dates.h"

namespace kxVsGrid::support {
namespace {

/// A way to write a date: what stands after each number, and whether short numbers get a zero.
struct Writing {
    std::string_view afterYear, afterMonth, afterDay;
    bool padded;
};
constexpr std::array<Writing, 8> Writings = {{{"-", "-", "", true},
                                              {"-", "-", "", false},
                                              {"/", "/", "", true},
                                              {"/", "/", "", false},
                                              {".", ".", "", true},
                                              {".", ".", "", false},
                                              {"年", "月", "日", true},
                                              {"年", "月", "日", false}}};

void append(std::string& text, std::int32_t number, bool padded) {
    if (number > 9 || padded) text += static_cast<char>('0' + number / 10);
    text += static_cast<char>('0' + number % 10);
}

std::string written(const Writing& as, std::int32_t year, std::int32_t month, std::int32_t day) {
    std::string text;
    append(text, year / 100, true);
    append(text, year % 100, true);
    text += as.afterYear;
    append(text, month, as.padded);
    text += as.afterMonth;
    append(text, day, as.padded);
    text += as.afterDay;
    return text;
}

constexpr std::int32_t FirstYear = 100;
constexpr std::int32_t LastYear = 9999;

std::int32_t lastDay(std::int32_t year, std::int32_t month) {
    constexpr std::array<std::int32_t, 12> Days = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    const bool leap = year % 4 == 0 && (year % 100 != 0 || year % 400 == 0);
    return month == 2 && leap ? 29 : Days[static_cast<std::size_t>(month - 1)];
}

TEST(Calendar, AcceptsEveryDayInWhateverWayItIsWritten) {
    std::size_t next = 0;
    std::int64_t days = 0;
    for (std::int32_t year = FirstYear; year <= LastYear; ++year)
        for (std::int32_t month = 1; month <= 12; ++month)
            for (std::int32_t day = 1; day <= lastDay(year, month); ++day, ++days) {
                const Writing& as = Writings[next++ % Writings.size()];
                const DateTime date{year, month, day, 0, 0, 0};
                const std::string text = written(as, year, month, day);
                if (parseDate(text) != date) FAIL() << text;
                if (&as == &Writings[0] && shortDateText(date) != text) FAIL() << text;
            }
    EXPECT_EQ(days, 3615900);  // 9900 years of 365 days, and 2400 leap days
}

TEST(Calendar, RefusesTheDaysBeforeAndAfterEveryMonth) {
    for (std::int32_t year = FirstYear; year <= LastYear; ++year)
        for (std::int32_t month = 1; month <= 12; ++month) {
            const Writing& as = Writings[static_cast<std::size_t>(year) % Writings.size()];
            for (const std::int32_t day : {lastDay(year, month) + 1, 0, 32, 99})
                if (const std::string text = written(as, year, month, day); parseDate(text)) FAIL() << text;
        }
}

TEST(Calendar, RefusesTheMonthsBeforeAndAfterEveryYear) {
    for (std::int32_t year = FirstYear; year <= LastYear; ++year)
        for (const Writing& as : Writings)
            for (const std::int32_t month : {0, 13})
                if (const std::string text = written(as, year, month, 1); parseDate(text)) FAIL() << text;
}

TEST(Calendar, RefusesTheYearsBeforeTheFirst) {
    for (std::int32_t year = 0; year < FirstYear; ++year)
        for (const Writing& as : Writings)
            if (const std::string text = written(as, year, 12, 31); parseDate(text)) FAIL() << text;
}

TEST(Calendar, TakesAYearOfTwoDigitsForOneOfTheHundredYearsUpTo2029) {
    for (const Writing& as : Writings)
        for (std::int32_t year = 1930; year <= 2029; ++year) {
            const std::string text = written(as, year, 2, 28).substr(2);
            EXPECT_EQ(parseDate(text), (DateTime{year, 2, 28, 0, 0, 0})) << text;
            const bool leap = year % 4 == 0;
            EXPECT_EQ(parseDate(written(as, year, 2, 29).substr(2)).has_value(), leap) << text;
        }
}

TEST(Calendar, AcceptsEverySecondOfADayAndNoOther) {
    for (std::int32_t hour = 0; hour <= 24; ++hour)
        for (std::int32_t minute = 0; minute <= 60; ++minute)
            for (std::int32_t second = 0; second <= 60; ++second) {
                std::string text = "2012/2/29 ";
                append(text, hour, minute % 2 == 0);
                text += ':';
                append(text, minute, true);
                text += ':';
                append(text, second, true);
                const auto read = parseDate(text);
                ASSERT_EQ(read.has_value(), hour < 24 && minute < 60 && second < 60) << text;
                if (!read) continue;
                ASSERT_EQ(*read, (DateTime{2012, 2, 29, hour, minute, second})) << text;
            }
}

}  // namespace
}  // namespace kxVsGrid::support

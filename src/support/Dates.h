// Dates as clerks write them, checked against the Gregorian calendar.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "kxVsGrid/DateTime.h"

namespace kxVsGrid::support {

/// Reads y-m-d, y/m/d, y.m.d or y年m月d日, one- or two-digit month and day, a four-digit year 100 to 9999
/// (0100 to 9999) or a two-digit one (00 to 29 are 2000s, 30 to 99 are 1900s), optionally followed by a blank
/// and H:mm or H:mm:ss. Blanks around the whole are ignored. A day that the calendar does not have, a time
/// alone or a number alone is no date.
std::optional<DateTime> parseDate(std::string_view text);

/// 1900-01-01, which stands for "no date" in databases that cannot store none.
inline bool isNoDay(const DateTime& date) {
    return date.year == 1900 && date.month == 1 && date.day == 1;
}

/// A day of the years 100 to 9999 with a time that the day has.
bool isInCalendar(const DateTime&);
bool isLeapYear(std::int32_t year);
std::int32_t daysInMonth(std::int32_t year, std::int32_t month);

/// Days since 1970-01-01, proleptic Gregorian; the time of day is ignored.
std::int64_t dayNumber(const DateTime& date);
/// The inverse; the time of day is 00:00:00.
DateTime dateOfDay(std::int64_t dayNumber);

/// Calendar addition; a day that the target month does not have becomes its last one.
/// No value when the result leaves the years 100 to 9999.
std::optional<DateTime> addDays(const DateTime&, std::int64_t days);
std::optional<DateTime> addMonths(const DateTime&, std::int64_t months);
std::optional<DateTime> addYears(const DateTime&, std::int64_t years);

/// "yyyy-mm-dd".
std::string shortDateText(const DateTime&);
/// "HH:mm:ss".
std::string timeText(const DateTime&);
}  // namespace kxVsGrid::support

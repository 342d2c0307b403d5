// A day of the calendar, as date columns store it: "2026-11-23".
//
//     const std::optional<kxVsGrid::Date> ordered = kxVsGrid::Date::read("2026-11-23");
//     const kxVsGrid::Date due = ordered->plusDays(30);
//     std::string text = due.text();                        // "2026-12-23"
//     const std::int64_t days = due.daysSince(*ordered);    // 30
//
// The calendar is the Gregorian one, with years from 100 to 9999. A moment with its time of day is a DateTime.
#pragma once

#include <compare>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace kxVsGrid {

struct Date {
    std::int32_t year = 1900;
    std::int32_t month = 1;
    std::int32_t day = 1;

    /// The calendar has it.
    bool valid() const;
    /// Exactly "yyyy-mm-dd", of a day that the calendar has; nothing for any other text, also for other forms
    /// that a clerk may enter: cells hold this one.
    static std::optional<Date> read(std::string_view text);
    /// The same. GridError for a day that the calendar does not have.
    std::string text() const;

    /// The day so many days later, or earlier where they are negative. GridError for a day that the calendar
    /// does not have, whether it is this one or that one.
    Date plusDays(std::int64_t days) const;
    /// How many days lie between: negative where the other is later. GridError for a day that the calendar
    /// does not have.
    std::int64_t daysSince(const Date& other) const;

    friend auto operator<=>(const Date&, const Date&) = default;
};
}  // namespace kxVsGrid

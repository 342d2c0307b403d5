// A moment of the calendar, as the platform's clock gives it.
//
//     const kxVsGrid::DateTime moment{2026, 11, 23, 8, 5, 9};
//     const std::string text = moment.text();  // "2026-11-23 08:05:09"
//     const bool same = kxVsGrid::DateTime::read(text) == moment;
#pragma once

#include <compare>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace kxVsGrid {

struct DateTime {
    std::int32_t year = 1900;
    std::int32_t month = 1;
    std::int32_t day = 1;
    std::int32_t hour = 0;
    std::int32_t minute = 0;
    std::int32_t second = 0;

    /// The calendar and the clock have it; years from 100 to 9999.
    bool valid() const;
    /// Exactly "yyyy-mm-dd HH:mm:ss", of a moment that is valid; nothing for any other text.
    static std::optional<DateTime> read(std::string_view text);
    /// The same. GridError for a moment that is not valid.
    std::string text() const;

    friend auto operator<=>(const DateTime&, const DateTime&) = default;
};
}  // namespace kxVsGrid

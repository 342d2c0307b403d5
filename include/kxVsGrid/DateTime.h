// A moment of the calendar, as the platform's clock gives it.
#pragma once

#include <cstdint>

namespace kxVsGrid {

struct DateTime {
    std::int32_t year = 1900;
    std::int32_t month = 1;
    std::int32_t day = 1;
    std::int32_t hour = 0;
    std::int32_t minute = 0;
    std::int32_t second = 0;

    friend bool operator==(const DateTime&, const DateTime&) = default;
};
}  // namespace kxVsGrid

// Moments in cells as Qt's.
#pragma once

#include <QDateTime>
#include <string_view>

#include "support/Dates.h"

namespace kxVsGrid::qt {

/// Null for a text that is no date.
inline QDateTime momentOf(std::string_view text) {
    const auto date = support::parseDate(text);
    if (!date) return {};
    return {QDate(date->year, date->month, date->day), QTime(date->hour, date->minute, date->second)};
}
}  // namespace kxVsGrid::qt

// The three forms in which columns hold dates.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "kxVsGrid/DateTime.h"
#include "kxVsGrid/Enumerations.h"

namespace kxVsGrid::editing {

/// The values are those of the columns' kinds of check.
enum class DateForm : std::int32_t {
    Date = ij日期型,     ///< 2011-02-03
    HalfDay = ij半日型,  ///< 2011-02-03 上午, or 下午
    Time = ij时间型,     ///< 2011-02-03 08:05:09
};

/// The typed text in its column's form; nothing when it is no such date. Blanks around it are ignored, an
/// empty text is accepted as it is. The date may be short: 20240105, or, of the present year, 1-5, 1/5 and
/// 1月5日.
std::optional<std::string> inDateForm(DateForm form, std::string_view text, const DateTime& now);

/// This moment in the form, as a message shows it: inDateForm() accepts it unchanged.
std::string exampleOf(DateForm form, const DateTime& now);
}  // namespace kxVsGrid::editing

// The three forms in which columns hold dates.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "kxVsGrid/DateTime.h"

namespace kxVsGrid::editing {

/// The values are those of the columns' kinds of check.
enum class DateForm : std::int32_t {
    Date = 2,     ///< 2011-02-03
    HalfDay = 4,  ///< 2011-02-03 上午, or 下午
    Time = 5,     ///< 2011-02-03 08:05:09
};

/// The typed text in its column's form; nothing when it is no such date. Blanks around it are ignored, an
/// empty text is accepted as it is.
std::optional<std::string> inDateForm(DateForm form, std::string_view text);

/// This moment in the form, as a message shows it: inDateForm() accepts it unchanged.
std::string exampleOf(DateForm form, const DateTime& now);
}  // namespace kxVsGrid::editing

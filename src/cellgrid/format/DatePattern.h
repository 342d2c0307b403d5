// A date pattern, read once: "yyyy-mm-dd", "yy/m/d", "yyyy年m月d日 HH:mm:ss".
//
// y year, m month or minute, d day, H hour (24), s second, in either case; one letter is the bare number, two
// are two digits, three or more y the whole year. m is the minute when the letters before it are the hour's
// or the letters after it the second's. Everything else is shown as it is; other letters have to be literals.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "kxVsGrid/DateTime.h"

namespace kxVsGrid::cellgrid {

class DatePattern {
  public:
    /// Nothing when the pattern has none of the letters, or others beside them: then it is a word.
    static std::optional<DatePattern> read(std::string_view pattern);

    /// Writes into `shown` what the pattern makes of a date and returns true; any other text leaves `shown`
    /// untouched and returns false.
    bool apply(std::string_view text, std::string& shown) const;

  private:
    struct Step {
        std::int32_t DateTime::*part = nullptr;  // null: the literal
        std::size_t letters = 0;
        std::string literal;
    };
    void tellMinutesFromMonths();
    static void write(const Step& step, const DateTime& date, std::string& shown);

    std::vector<Step> steps_;
};
}  // namespace kxVsGrid::cellgrid

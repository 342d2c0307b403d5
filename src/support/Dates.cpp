#include "support/Dates.h"

#include <algorithm>

#include "support/ReadDecimal.h"
#include "support/Text.h"

namespace kxVsGrid::support {
namespace {

constexpr std::int32_t kFirstYear = 100;
constexpr std::int32_t kLastYear = 9999;
constexpr std::int32_t kFirstTwoDigitYearOf1900s = 30;
// Days are counted in eras of 400 years that start on the first of March, so that the leap day comes last.
constexpr std::int64_t kDaysOfEra = 146097;
constexpr std::int64_t kDaysBefore1970 = 719468;  // since 0000-03-01

// Eats a text from the left.
class DateReader {
  public:
    explicit DateReader(std::string_view text) : text_(text) {}

    bool atEnd() const { return text_.empty(); }

    bool take(std::string_view expected) {
        if (text_.substr(0, expected.size()) != expected) return false;
        text_.remove_prefix(expected.size());
        return true;
    }

    /// A number of `fewest` to `most` digits, with no further digit after it.
    bool number(std::size_t fewest, std::size_t most, std::int32_t& value) {
        const auto end = std::find_if_not(text_.begin(), text_.end(), isDigit);
        const auto digits = static_cast<std::size_t>(end - text_.begin());
        if (digits < fewest || digits > most) return false;
        value = 0;
        for (const char c : text_.substr(0, digits)) value = value * 10 + (c - '0');
        text_.remove_prefix(digits);
        digits_ = digits;
        return true;
    }

    /// How many digits the last number had.
    std::size_t digits() const { return digits_; }

  private:
    std::string_view text_;
    std::size_t digits_ = 0;
};

struct Separators {
    std::string_view afterYear, afterMonth, afterDay;
};
constexpr Separators kSeparators[] = {{"-", "-", ""}, {"/", "/", ""}, {".", ".", ""}, {"年", "月", "日"}};

bool readYear(DateReader& reader, std::int32_t& year) {
    if (!reader.number(2, 4, year) || reader.digits() == 3) return false;
    if (reader.digits() == 2) year += year < kFirstTwoDigitYearOf1900s ? 2000 : 1900;
    return true;
}

bool readDay(DateReader& reader, DateTime& date) {
    if (!readYear(reader, date.year)) return false;
    const auto* const form = std::find_if(std::begin(kSeparators), std::end(kSeparators),
                                          [&](const Separators& s) { return reader.take(s.afterYear); });
    return form != std::end(kSeparators) && reader.number(1, 2, date.month) &&
           reader.take(form->afterMonth) && reader.number(1, 2, date.day) && reader.take(form->afterDay);
}

bool readTime(DateReader& reader, DateTime& date) {
    if (!reader.take(" ") || !reader.number(1, 2, date.hour) || !reader.take(":")) return false;
    if (!reader.number(2, 2, date.minute)) return false;
    return reader.atEnd() || (reader.take(":") && reader.number(2, 2, date.second) && reader.atEnd());
}

DateTime withTimeOf(DateTime date, const DateTime& time) {
    date.hour = time.hour;
    date.minute = time.minute;
    date.second = time.second;
    return date;
}

std::int64_t floorDivide(std::int64_t a, std::int64_t b) {
    return a / b - (a % b < 0 ? 1 : 0);
}

void appendDigits(std::string& text, std::int32_t value, int digits) {
    std::int32_t unit = 1;
    for (int i = 1; i < digits; ++i) unit *= 10;
    for (; unit > 0; unit /= 10) text += static_cast<char>('0' + value / unit % 10);
}

}  // namespace

std::optional<DateTime> parseDate(std::string_view text) {
    DateReader reader(trim(text));
    DateTime date;
    if (!readDay(reader, date)) return {};
    if (!reader.atEnd() && !readTime(reader, date)) return {};
    if (!isInCalendar(date)) return {};
    return date;
}

bool isInCalendar(const DateTime& date) {
    return date.year >= kFirstYear && date.year <= kLastYear && date.month >= 1 && date.month <= 12 &&
           date.day >= 1 && date.day <= daysInMonth(date.year, date.month) && date.hour >= 0 &&
           date.hour <= 23 && date.minute >= 0 && date.minute <= 59 && date.second >= 0 && date.second <= 59;
}

bool isLeapYear(std::int32_t year) {
    return year % 4 == 0 && (year % 100 != 0 || year % 400 == 0);
}

std::int32_t daysInMonth(std::int32_t year, std::int32_t month) {
    if (month == 2) return isLeapYear(year) ? 29 : 28;
    return month == 4 || month == 6 || month == 9 || month == 11 ? 30 : 31;
}

std::int64_t dayNumber(const DateTime& date) {
    const std::int64_t year = std::int64_t{date.year} - (date.month <= 2 ? 1 : 0);
    const std::int64_t era = floorDivide(year, 400);
    const std::int64_t yearOfEra = year - era * 400;
    const std::int64_t month = (date.month + 9) % 12;  // March is 0
    const std::int64_t dayOfYear = (153 * month + 2) / 5 + date.day - 1;
    const std::int64_t dayOfEra = yearOfEra * 365 + yearOfEra / 4 - yearOfEra / 100 + dayOfYear;
    return era * kDaysOfEra + dayOfEra - kDaysBefore1970;
}

DateTime dateOfDay(std::int64_t dayNumber) {
    const std::int64_t era = floorDivide(dayNumber, kDaysOfEra);
    const std::int64_t shifted = dayNumber - era * kDaysOfEra + kDaysBefore1970;
    const std::int64_t furtherEras = shifted / kDaysOfEra;
    const std::int64_t dayOfEra = shifted % kDaysOfEra;
    const std::int64_t yearOfEra =
        (dayOfEra - dayOfEra / 1460 + dayOfEra / 36524 - dayOfEra / (kDaysOfEra - 1)) / 365;
    const std::int64_t dayOfYear = dayOfEra - (365 * yearOfEra + yearOfEra / 4 - yearOfEra / 100);
    const std::int64_t month = (5 * dayOfYear + 2) / 153;  // March is 0
    DateTime date;
    date.day = static_cast<std::int32_t>(dayOfYear - (153 * month + 2) / 5 + 1);
    date.month = static_cast<std::int32_t>(month < 10 ? month + 3 : month - 9);
    date.year = static_cast<std::int32_t>(yearOfEra + (era + furtherEras) * 400 + (date.month <= 2 ? 1 : 0));
    return date;
}

std::optional<DateTime> addDays(const DateTime& date, std::int64_t days) {
    const std::int64_t from = dayNumber(date);
    if (days < dayNumber({kFirstYear, 1, 1}) - from || days > dayNumber({kLastYear, 12, 31}) - from)
        return {};
    return withTimeOf(dateOfDay(from + days), date);
}

std::optional<DateTime> addMonths(const DateTime& date, std::int64_t months) {
    const std::int64_t from = std::int64_t{date.year} * 12 + date.month - 1;
    constexpr std::int64_t kFirstMonth = std::int64_t{kFirstYear} * 12;
    constexpr std::int64_t kLastMonth = std::int64_t{kLastYear} * 12 + 11;
    if (months < kFirstMonth - from || months > kLastMonth - from) return {};
    DateTime result = date;
    result.year = static_cast<std::int32_t>((from + months) / 12);
    result.month = static_cast<std::int32_t>((from + months) % 12 + 1);
    result.day = std::min(date.day, daysInMonth(result.year, result.month));
    return result;
}

std::optional<DateTime> addYears(const DateTime& date, std::int64_t years) {
    if (years < kFirstYear - kLastYear || years > kLastYear - kFirstYear) return {};
    return addMonths(date, years * 12);
}

std::string shortDateText(const DateTime& date) {
    std::string text;
    appendDigits(text, date.year, 4);
    text += '-';
    appendDigits(text, date.month, 2);
    text += '-';
    appendDigits(text, date.day, 2);
    return text;
}

std::string timeText(const DateTime& date) {
    std::string text;
    appendDigits(text, date.hour, 2);
    text += ':';
    appendDigits(text, date.minute, 2);
    text += ':';
    appendDigits(text, date.second, 2);
    return text;
}
}  // namespace kxVsGrid::support

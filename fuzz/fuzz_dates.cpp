// Any text as a date, and as each of the forms in which columns hold dates: what is accepted must be a day of
// the calendar, and must be accepted again, to the same day, once it is written in the standard way.
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <iostream>
#include <iterator>
#include <optional>
#include <string>
#include <string_view>

#include "editing/DateForms.h"
#include "support/Dates.h"
#include "support/Text.h"

namespace {

using kxVsGrid::DateTime;
using kxVsGrid::editing::DateForm;
using kxVsGrid::editing::exampleOf;
using kxVsGrid::editing::inDateForm;
using kxVsGrid::support::parseDate;

void require(bool condition, const char* what, std::string_view text) {
    if (condition) return;
    std::cerr << what << ": \"" << text << "\"\n";
    std::abort();
}

void checkCalendar(const DateTime& date, std::string_view text) {
    require(date.year >= 100 && date.year <= 9999 && date.month >= 1 && date.month <= 12 && date.day >= 1 &&
                date.day <= kxVsGrid::support::daysInMonth(date.year, date.month),
            "a day that the calendar does not have", text);
    require(date.hour >= 0 && date.hour <= 23 && date.minute >= 0 && date.minute <= 59 && date.second >= 0 &&
                date.second <= 59,
            "a time that the day does not have", text);
    DateTime day = kxVsGrid::support::dateOfDay(kxVsGrid::support::dayNumber(date));
    require(day.year == date.year && day.month == date.month && day.day == date.day,
            "a day whose number names another day", text);
}

void checkRecognition(std::string_view text) {
    const std::optional<DateTime> date = parseDate(text);
    require(parseDate("  " + std::string(text) + " ") == date, "blanks around it make a difference", text);
    if (!date) return;
    checkCalendar(*date, text);
    const std::string day = kxVsGrid::support::shortDateText(*date);
    const std::string whole = day + " " + kxVsGrid::support::timeText(*date);
    require(parseDate(whole) == date, "written in the standard way it is another moment", text);
    require(kxVsGrid::support::shortDateText(parseDate(day).value_or(DateTime{})) == day,
            "the standard text of the day is another day", text);
}

/// How many bytes every text of a form has.
std::size_t lengthOf(DateForm form) {
    switch (form) {
        case DateForm::Date:
            return std::string_view("2011-02-03").size();
        case DateForm::HalfDay:
            return std::string_view("2011-02-03 上午").size();
        default:
            return std::string_view("2011-02-03 08:05:09").size();
    }
}

void checkForm(DateForm form, std::string_view text) {
    const std::optional<std::string> stored = inDateForm(form, text);
    const bool blank = kxVsGrid::support::trim(text).empty();
    require(!blank || stored == "", "an empty text does not pass", text);
    if (!stored || blank) return;
    require(stored->size() == lengthOf(form), "a stored text has another length than its form", text);
    require(inDateForm(form, *stored) == stored, "a stored text does not pass unchanged", text);
    const std::optional<DateTime> day = parseDate(stored->substr(0, lengthOf(DateForm::Date)));
    require(day.has_value(), "a stored text is no date", text);
    if (form == DateForm::Date) require(parseDate(text).has_value(), "no date, and stored as one", text);
    if (form == DateForm::Time) require(parseDate(*stored).has_value(), "a stored time is no time", text);
}

/// The example in a message is one: it passes unchanged.
void checkExamples(std::string_view text) {
    const std::optional<DateTime> date = parseDate(text);
    if (!date) return;
    for (const DateForm form : {DateForm::Date, DateForm::HalfDay, DateForm::Time})
        require(inDateForm(form, exampleOf(form, *date)) == exampleOf(form, *date),
                "an example does not pass", text);
}

/// The input with its bytes 1 to 5 spelled out: words of several bytes would take long to be found by chance.
std::string spelled(const std::uint8_t* data, std::size_t size) {
    static constexpr std::string_view Words[] = {"年", "月", "日", "上午", "下午"};
    std::string text;
    for (std::size_t i = 0; i < size; ++i)
        if (data[i] >= 1 && data[i] <= std::size(Words))
            text += Words[data[i] - 1];
        else
            text += static_cast<char>(data[i]);
    return text;
}
}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string text = spelled(data, size);
    checkRecognition(text);
    for (const DateForm form : {DateForm::Date, DateForm::HalfDay, DateForm::Time}) checkForm(form, text);
    checkExamples(text);
    return 0;
}

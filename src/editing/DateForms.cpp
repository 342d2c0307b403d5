#include "editing/DateForms.h"

#include "support/Dates.h"
#include "support/Numbers.h"
#include "support/Text.h"

namespace kxVsGrid::editing {
namespace {

struct Halves {
    std::string_view before;
    std::string_view after;
};

std::optional<Halves> splitAt(std::string_view text, char separator) {
    const std::size_t at = text.find(separator);
    if (at == std::string_view::npos) return std::nullopt;
    return Halves{text.substr(0, at), text.substr(at + 1)};
}

/// The leading number of a part of the time, when it is within its bounds.
std::optional<std::int32_t> timePart(std::string_view text, double most) {
    const double value = support::leadingNumber(text);
    if (!(value >= 0 && value <= most)) return std::nullopt;
    return static_cast<std::int32_t>(value);
}

std::optional<std::string> timeOfDay(std::string_view text) {
    const auto first = splitAt(text, ':');
    if (!first) return std::nullopt;
    const auto second = splitAt(first->after, ':');
    if (!second) return std::nullopt;
    const auto hour = timePart(first->before, 23);
    const auto minute = timePart(second->before, 59);
    const auto seconds = timePart(second->after, 59);
    if (!hour || !minute || !seconds) return std::nullopt;
    DateTime time;
    time.hour = *hour;
    time.minute = *minute;
    time.second = *seconds;
    return support::timeText(time);
}

constexpr std::string_view Morning = "上午";
constexpr std::string_view Afternoon = "下午";
constexpr std::int32_t Noon = 12;

std::optional<std::string> halfDay(std::string_view text) {
    if (text != Morning && text != Afternoon) return std::nullopt;
    return std::string(text);
}

struct ShortForm {
    std::string_view afterMonth, afterDay;
};
constexpr ShortForm ShortForms[] = {{"-", ""}, {"/", ""}, {"月", "日"}};

bool isDigits(std::string_view text) {
    return text.find_first_not_of("0123456789") == std::string_view::npos;
}

/// Month and day alone, as a date of the year; nothing when the text does not look like that.
std::optional<std::string> ofYear(std::string_view year, std::string_view text, const ShortForm& form) {
    const std::size_t at = text.find(form.afterMonth);
    if (at == std::string_view::npos || !text.ends_with(form.afterDay)) return std::nullopt;
    const std::string_view month = text.substr(0, at);
    std::string_view day = text.substr(at + form.afterMonth.size());
    day.remove_suffix(form.afterDay.size());
    if (!isDigits(month) || !isDigits(day)) return std::nullopt;
    return std::string(year) + "-" + std::string(month) + "-" + std::string(day);
}

/// A short date with all that it leaves out, for the recogniser of dates to judge; nothing for any other text.
std::optional<std::string> inFull(std::string_view text, const DateTime& now) {
    constexpr std::size_t YearDigits = 4;
    constexpr std::size_t AllDigits = 8;
    if (text.size() == AllDigits && isDigits(text))
        return std::string(text.substr(0, YearDigits)) + "-" + std::string(text.substr(YearDigits, 2)) + "-" +
               std::string(text.substr(YearDigits + 2));
    const std::string year = support::shortDateText(now).substr(0, YearDigits);
    for (const ShortForm& form : ShortForms)
        if (auto date = ofYear(year, text, form)) return date;
    return std::nullopt;
}

std::optional<std::string> dateOf(std::string_view text, const DateTime& now) {
    const auto full = inFull(text, now);
    const auto date = support::parseDate(full ? *full : text);
    if (!date) return std::nullopt;
    return support::shortDateText(*date);
}

/// The date and what follows it.
Halves partsOf(DateForm form, std::string_view text) {
    if (form == DateForm::Date) return {text, {}};
    return splitAt(text, ' ').value_or(Halves{text, {}});
}
}  // namespace

std::optional<std::string> inDateForm(DateForm form, std::string_view text, const DateTime& now) {
    text = support::trim(text);
    if (text.empty()) return std::string();
    const Halves parts = partsOf(form, text);
    std::optional<std::string> date = dateOf(parts.before, now);
    if (!date || form == DateForm::Date) return date;
    const auto rest = form == DateForm::HalfDay ? halfDay(parts.after) : timeOfDay(parts.after);
    if (!rest) return std::nullopt;
    return *date + " " + *rest;
}

std::string exampleOf(DateForm form, const DateTime& now) {
    std::string date = support::shortDateText(now);
    if (form == DateForm::Date) return date;
    if (form == DateForm::Time) return date + " " + support::timeText(now);
    return date + " " + std::string(now.hour < Noon ? Morning : Afternoon);
}
}  // namespace kxVsGrid::editing

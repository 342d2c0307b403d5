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

std::optional<std::string> dateOf(std::string_view text) {
    const auto date = support::parseDate(text);
    if (!date) return std::nullopt;
    return support::shortDateText(*date);
}
}  // namespace

std::optional<std::string> inDateForm(DateForm form, std::string_view text) {
    text = support::trim(text);
    if (text.empty()) return std::string();
    if (form == DateForm::Date) return dateOf(text);
    const auto parts = splitAt(text, ' ');
    if (!parts) return std::nullopt;
    const auto date = dateOf(parts->before);
    const auto rest = form == DateForm::HalfDay ? halfDay(parts->after) : timeOfDay(parts->after);
    if (!date || !rest) return std::nullopt;
    return *date + " " + *rest;
}

std::string exampleOf(DateForm form, const DateTime& now) {
    std::string date = support::shortDateText(now);
    if (form == DateForm::Date) return date;
    if (form == DateForm::Time) return date + " " + support::timeText(now);
    return date + " " + std::string(now.hour < Noon ? Morning : Afternoon);
}
}  // namespace kxVsGrid::editing

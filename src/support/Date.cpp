#include "kxVsGrid/support/Date.h"

#include "kxVsGrid/DateTime.h"
#include "kxVsGrid/Members.h"
#include "support/Dates.h"
#include "support/ReadDecimal.h"

namespace kxVsGrid {
namespace {

/// The text has digits where the form has 0, and is the form everywhere else.
bool hasForm(std::string_view text, std::string_view form) {
    if (text.size() != form.size()) return false;
    for (std::size_t i = 0; i < form.size(); ++i)
        if (form[i] == '0' ? !support::isDigit(text[i]) : text[i] != form[i]) return false;
    return true;
}

DateTime momentOf(const Date& date) {
    return {date.year, date.month, date.day, 0, 0, 0};
}

Date dayOf(const DateTime& moment) {
    return {moment.year, moment.month, moment.day};
}

void requireMoment(const char* member, const DateTime& moment) {
    if (moment.valid()) return;
    throw GridError(std::string(member) + ": the calendar has no " + std::to_string(moment.year) + "-" +
                    std::to_string(moment.month) + "-" + std::to_string(moment.day) + " " +
                    std::to_string(moment.hour) + ":" + std::to_string(moment.minute) + ":" +
                    std::to_string(moment.second));
}

void requireDay(const char* member, const Date& date) {
    if (date.valid()) return;
    throw GridError(std::string(member) + ": the calendar has no " + std::to_string(date.year) + "-" +
                    std::to_string(date.month) + "-" + std::to_string(date.day));
}
}  // namespace

bool Date::valid() const {
    return support::isInCalendar(momentOf(*this));
}

std::optional<Date> Date::read(std::string_view text) {
    if (!hasForm(text, "0000-00-00")) return std::nullopt;
    const std::optional<DateTime> day = support::parseDate(text);
    if (!day) return std::nullopt;
    return dayOf(*day);
}

std::string Date::text() const {
    requireDay("Date.text", *this);
    return support::shortDateText(momentOf(*this));
}

Date Date::plusDays(std::int64_t days) const {
    requireDay("Date.plusDays", *this);
    const std::optional<DateTime> moved = support::addDays(momentOf(*this), days);
    if (!moved)
        throw GridError("Date.plusDays: " + std::to_string(days) + " days from " + text() +
                        " lead out of the calendar");
    return dayOf(*moved);
}

std::int64_t Date::daysSince(const Date& other) const {
    requireDay("Date.daysSince", *this);
    requireDay("Date.daysSince", other);
    return support::dayNumber(momentOf(*this)) - support::dayNumber(momentOf(other));
}

bool DateTime::valid() const {
    return support::isInCalendar(*this);
}

std::optional<DateTime> DateTime::read(std::string_view text) {
    if (!hasForm(text, "0000-00-00 00:00:00")) return std::nullopt;
    return support::parseDate(text);
}

std::string DateTime::text() const {
    requireMoment("DateTime.text", *this);
    return support::shortDateText(*this) + " " + support::timeText(*this);
}
}  // namespace kxVsGrid

#include "dialogs/CalendarForm.h"

#include <array>
#include <utility>

#include "dialogs/Captions.h"
#include "dialogs/Lists.h"
#include "kxVsGrid/HelpExchange.h"
#include "support/Dates.h"
#include "support/Numbers.h"
#include "support/Text.h"

namespace kxVsGrid::dialogs {
namespace {

constexpr const char* Morning = "上午";
constexpr const char* Afternoon = "下午";

/// The time of "14:30:00" in the hours, minutes and seconds of the answer. A missing part counts 0; with a
/// part out of its range all are 0.
DateTime timeOf(std::string_view text) {
    DateTime time;
    if (text.find(':') == std::string_view::npos) return time;
    const auto parts = splitAt(text, ':');
    constexpr std::array<double, 3> Largest{23, 59, 59};
    std::array<std::int32_t, 3> values{};
    for (std::size_t i = 0; i < parts.size() && i < values.size(); ++i) {
        const double value = support::leadingNumber(parts[i]);
        if (!(value >= 0 && value <= Largest[i])) return time;
        values[i] = static_cast<std::int32_t>(value);
    }
    time.hour = values[0];
    time.minute = values[1];
    time.second = values[2];
    return time;
}
}  // namespace

CalendarForm::CalendarForm(Mode mode, Clock clock)
    : Form("XT_calendar", captions::CalendarTitle, 4200, mode == Mode::Date ? 4320 : 4800),
      mode_(mode),
      clock_(std::move(clock)),
      month_(add("MonthView", "MonthView1", captions::CalendarTitle, {240, 240, 3720, 3240})),
      time_(add("DTPicker", "DTPTime", captions::Time, {240, 3600, 1800, 345})),
      half_(add("ComboBox", "Cob", captions::HalfDay, {240, 3600, 1800, 345})),
      todayButton_(add("kxButton", "Jtcommand", captions::Today, {240, ScaleHeight() - 600, 1200, 360})),
      ok_(add("kxButton", "QdCommand", captions::Ok, {2760, ScaleHeight() - 600, 1200, 360})) {
    time_.visible = mode == Mode::Time;
    half_.visible = mode == Mode::HalfDay;
    half_.list = {Morning, Afternoon};
    half_.text = Morning;
    goToToday();
    ok_.isDefault = true;
}

void CalendarForm::load() {
    readStart(HelpExchange::shared().SearchText);
    resize_.py_Init(*this);
    giveFocus(month_);
}

void CalendarForm::readStart(std::string_view text) {
    text = support::trim(text);
    std::string_view date = text;
    if (mode_ != Mode::Date) {
        const std::size_t blank = text.find(' ');
        date = text.substr(0, blank);
        const std::string_view rest =
            blank == std::string_view::npos ? std::string_view{} : support::trim(text.substr(blank));
        time_.value = timeOf(rest);
        if (rest == Afternoon) half_.text = Afternoon;
    }
    if (const auto day = support::parseDate(date)) month_.value = {day->year, day->month, day->day};
    changed(month_);
    changed(time_);
    changed(half_);
}

void CalendarForm::resized() {
    resize_.ResizeForm(*this);
}

void CalendarForm::pressed(FormControl& button) {
    if (&button == &ok_) {
        accept();
    } else if (&button == &todayButton_) {
        giveFocus(month_);
        goToToday();
        changed(month_);
    }
}

void CalendarForm::goToToday() {
    const DateTime now = clock_();
    month_.value = {now.year, now.month, now.day};
}

void CalendarForm::doubleClicked(FormControl& control) {
    if (&control == &month_) accept();
}

std::string CalendarForm::result() const {
    std::string text = support::shortDateText(month_.value);
    if (mode_ == Mode::HalfDay) text += " " + half_.text;
    if (mode_ == Mode::Time) text += " " + support::timeText(time_.value);
    return text;
}

void CalendarForm::accept() {
    HelpExchange& exchange = HelpExchange::shared();
    exchange.ReturnCode = result();
    exchange.ReturnName = exchange.ReturnCode;
    close();
}
}  // namespace kxVsGrid::dialogs

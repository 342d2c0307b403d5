// The picker of a date, a date with half-day, or a date with time.
#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "kxVsGrid/DateTime.h"
#include "kxVsGrid/Form.h"
#include "kxVsGrid/cResize.h"

namespace kxVsGrid::dialogs {

/// Starts from the search text of the help exchange record and leaves the chosen moment there, as code and as
/// name. Closed by its frame it leaves nothing.
class CalendarForm : public Form {
  public:
    enum class Mode { Date, HalfDay, Time };

    /// The moment that it is, asked anew each time.
    using Clock = std::function<DateTime()>;
    /// Its day is where the calendar stands when the text names no date, and what the today button chooses:
    /// a calendar may stand open past midnight.
    CalendarForm(Mode mode, Clock clock);

  protected:
    void load() override;
    void resized() override;
    void pressed(FormControl& button) override;
    void doubleClicked(FormControl& control) override;

  private:
    void goToToday();
    void readStart(std::string_view text);
    std::string result() const;
    void accept();

    Mode mode_;
    Clock clock_;
    FormControl& month_;
    FormControl& time_;
    FormControl& half_;
    FormControl& todayButton_;
    FormControl& ok_;
    cResize resize_;
};
}  // namespace kxVsGrid::dialogs

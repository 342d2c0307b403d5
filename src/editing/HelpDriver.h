// Opens the help of a column: asks the host for what it needs and shows the dialog that fits.
#pragma once

#include <string>

#include "editing/EditingContext.h"
#include "kxVsGrid/HelpExchange.h"
#include "kxVsGrid/cVsControl.h"

namespace kxVsGrid::editing {

class HelpDriver {
  public:
    /// The dialogs take their size from `column` and stand near `cell`, a place in the control's grid.
    HelpDriver(const EditingContext& context, const cVsControl& column, const Rect& cell);
    /// A help that was opened from inside another one's events puts the outer one's record back.
    ~HelpDriver();
    HelpDriver(const HelpDriver&) = delete;
    HelpDriver& operator=(const HelpDriver&) = delete;

    /// Leaves the chosen code and name in the help exchange record, both empty when nothing was chosen.
    void Drbmhelp(gEmHelpType type, const std::string& text, const std::string& helpCode);

  private:
    void general(const std::string& helpCode);
    void date(gEmHelpType type);
    void special(const std::string& text);
    void constants(const std::string& list);
    bool isPresent(const Variant& table, const std::string& message);
    void show(Form& form);

    const EditingContext& c_;
    const cVsControl& column_;
    Rect cell_;
    HelpExchange outer_;
};
}  // namespace kxVsGrid::editing

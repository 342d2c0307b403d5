// The clerk chooses which texts of a column are shown.
#pragma once

#include <vector>

#include "clerk/ClerkContext.h"
#include "dialogs/FilterForm.h"

namespace kxVsGrid::clerk {

class FilterCommands {
  public:
    explicit FilterCommands(const ClerkContext& context) : c_(context) {}

    /// The host lets the column be filtered (ColumnOptions::filterable), and there are data rows.
    bool canChoose(std::int32_t col) const;
    /// Asks for the texts by a form. False when the clerk leaves it as it was.
    bool choose(std::int32_t col);

  private:
    std::vector<dialogs::FilterChoice> choicesOf(std::int32_t col) const;

    ClerkContext c_;
};
}  // namespace kxVsGrid::clerk

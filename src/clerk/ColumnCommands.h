// What the clerk does to whole columns: hides them and shows them again, fits their width, freezes them. None of it
// touches what the cells hold, so that it works on a read-only grid too, and is no step that undo would take back.
#pragma once

#include <cstdint>
#include <vector>

#include "clerk/ClerkContext.h"

namespace kxVsGrid::clerk {

class ColumnCommands {
  public:
    explicit ColumnCommands(const ClerkContext& context) : c_(context) {}

    /// The shown ones of those that are selected whole; without such the current one.
    std::vector<std::int32_t> chosen() const;
    /// Whole columns are selected, not all cells.
    bool wholeSelected() const;

    /// There are some, and one is left to be seen.
    bool canHide(const std::vector<std::int32_t>& cols) const;
    bool hide(const std::vector<std::int32_t>& cols);
    std::vector<std::int32_t> hidden() const { return c_.clerkColumns.hidden(); }
    bool show(const std::vector<std::int32_t>& cols) { return c_.clerkColumns.show(cols); }

    bool canFit(const std::vector<std::int32_t>& cols) const { return !cols.empty(); }
    bool fit(const std::vector<std::int32_t>& cols);

    /// Just the columns up to this one are frozen: what would freeze them ends it.
    bool endsFreezing(std::int32_t col) const;
    /// The frozen columns leave room beside them for those that scroll.
    bool canFreeze(std::int32_t col) const;
    bool freeze(std::int32_t col);

    bool canReset() const { return c_.clerkColumns.isChanged(); }
    bool reset();

  private:
    bool isShown(std::int32_t col) const;

    ClerkContext c_;
};
}  // namespace kxVsGrid::clerk

// Sorting by a column, once: the rows change places, and no rule stays behind that would move
// them again.
#pragma once

#include <string>

#include "clerk/ClerkContext.h"
#include "clerk/EntryOrder.h"

namespace kxVsGrid::clerk {

class SortCommands {
  public:
    explicit SortCommands(const ClerkContext& context) : c_(context), entered_(context.grid) {}

    /// The host lets the column be sorted (ColumnOptions::sortable), and no cells are merged beside the rows.
    bool canSort(std::int32_t col) const;
    /// Why the clerk cannot sort where the host would have let him; empty where nothing but that is in the way.
    std::string whyNot(std::int32_t col) const;
    /// False when memory does not suffice; nothing has changed then.
    bool sort(std::int32_t col, bool down);
    bool canUnsort() const { return c_.flags.Editable && entered_.isAnother() && !merges(); }
    /// Back into the order that the rows stood in before they were sorted.
    bool unsort();

  private:
    bool allowed(std::int32_t col) const;
    bool merges() const;
    bool reorder(const std::string& step, const std::vector<std::int32_t>& from);

    ClerkContext c_;
    EntryOrder entered_;
};
}  // namespace kxVsGrid::clerk

// Commands on whole rows: they come, go and change places, with the host's consent where it is asked.
#pragma once

#include <cstdint>
#include <vector>

#include "clerk/ClerkContext.h"

namespace kxVsGrid::clerk {

class RowCommands {
  public:
    explicit RowCommands(const ClerkContext& context) : c_(context) {}

    void insert() { c_.rows.add(c_.grid.Row(), true, false); }
    void append() { c_.rows.add(c_.grid.Rows(), true, false); }
    void duplicate() { c_.rows.add(c_.grid.Rows(), false, true); }
    /// Those that are selected whole, from the last one up, the host being asked about each; without them the
    /// current one.
    void remove();
    /// The same rows, past the next shown one above or below.
    bool move(bool down);
    bool canMove(bool down) const;
    /// Asks for its number.
    bool goTo();

  private:
    bool wholeRows() const;
    struct Block {
        std::int32_t first;
        std::int32_t last;
    };
    Block movedRows() const;
    std::vector<RowId> selectedRows();

    ClerkContext c_;
};
}  // namespace kxVsGrid::clerk

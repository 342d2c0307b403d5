// Commands that write the cells of the selection: empty them, fill them, put a date there.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "clerk/BlockEdit.h"
#include "clerk/ClerkContext.h"

namespace kxVsGrid::clerk {

class CellCommands {
  public:
    explicit CellCommands(const ClerkContext& context) : c_(context) {}

    /// Empties what is shown in the selection; `command` is Cut or ClearCells.
    void clear(Command command);
    /// The first row of the selection into the others; into a single one the row above it.
    bool fillDown();
    bool canFillDown() const { return sourceRow() >= 0; }
    bool fillRight();
    bool canFillRight() const { return sourceCol() >= 0; }
    bool copyFromAbove();
    /// These, if the current cell opens.
    bool canCopyFromAbove() const { return c_.grid.Col() >= 0 && rowAbove(c_.grid.Row()) >= 0; }
    /// Today, or now, as the column's check would have it.
    bool moment(Command command);
    bool canTakeMoment() const;
    /// A text that comes from elsewhere; why it was refused.
    std::string enter(std::int32_t row, std::int32_t col, std::string_view text);

  private:
    std::int32_t rowAbove(std::int32_t row) const;
    std::int32_t sourceRow() const;
    std::int32_t sourceCol() const;
    std::string momentText(Command command) const;

    ClerkContext c_;
};
}  // namespace kxVsGrid::clerk

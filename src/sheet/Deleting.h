// One question before rows are deleted, however many they are.
#pragma once

#include <cstdint>
#include <vector>

#include "sheet/SheetContext.h"

namespace kxVsGrid::sheet {

/// The grid asks about one row, or about one after the other of those that are selected whole, from the last one up,
/// before the first one goes. Of several the host is asked with the first of them, about all; when it agrees, all of
/// them go there and then, whatever the grid was about to do.
class Deleting {
  public:
    explicit Deleting(const SheetContext& context) : c_(context) {}

    bool mayGo(std::int32_t row);

  private:
    using Rows = std::vector<std::int32_t>;
    CellRange selected() const;
    Rows shownRows(const CellRange& range) const;

    const SheetContext& c_;
    bool agreed_ = false;  ///< those that are asked about are going
    CellRange refused_;    ///< about whose rows the host was asked together
    std::int32_t asked_ =
        -1;  ///< the row of those that the grid has asked about last; upper ones are to come
};
}  // namespace kxVsGrid::sheet

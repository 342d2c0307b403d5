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
    Rows selectedRows() const;

    const SheetContext& c_;
    bool agreed_ = false;  ///< those that are asked about are going
    Rows refused_;         ///< about which the host was asked together
    Rows left_;            ///< of those, that the grid is still to ask about
};
}  // namespace kxVsGrid::sheet

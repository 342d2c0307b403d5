// The settings of a control as they are set and asked by name, the names being those that they are stored
// under.
//
// A form sets its properties one by one and in any order; the control wants one read, in an order of its own.
// So what is set is collected until somebody looks at the control. What is set later goes to the live
// control.
#pragma once

#include <string_view>

#include "kxVsGrid/MemoryBag.h"
#include "kxVsGrid/kxGrid.h"

namespace kxVsGrid::qt {

class StoredSettings {
  public:
    /// A setting of the whole grid, or of one of its columns.
    static bool names(std::string_view name);

    /// Nobody has looked at the control yet.
    bool collecting() const { return collecting_; }
    /// An empty value takes back what was collected. On the live control it throws what the control throws;
    /// a column that it has not is ignored.
    void put(kxGrid& control, std::string_view name, const Variant& value);
    /// A setting of the whole grid. Before the first look: what the first look is going to give.
    Variant get(kxGrid& control, std::string_view name) const;
    /// The first look: reads what was collected; where nothing was, the control is newly placed.
    void read(kxGrid& control);

  private:
    MemoryBag collected_;
    bool collecting_ = true;
};
}  // namespace kxVsGrid::qt

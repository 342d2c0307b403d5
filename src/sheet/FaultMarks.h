// Marks on the cells that are not as they have to be.
#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <string>
#include <utility>

#include "sheet/Faults.h"
#include "sheet/SheetContext.h"

namespace kxVsGrid::sheet {

class FaultMarks {
  public:
    FaultMarks(const SheetContext& context, const Faults& faults) : c_(context), faults_(faults) {}

    /// Those of now, instead of those of before. Answers how many cells are wrong.
    int put();
    /// A row has been written to: its marks are those of its faults, as far as they were marked.
    void judge(std::int32_t row);
    bool empty() const { return marks_.empty(); }
    void forget() { marks_.clear(); }

  private:
    using Cell = std::pair<RowId, std::int32_t>;
    void mark(const Fault& fault);

    const SheetContext& c_;
    const Faults& faults_;
    std::map<Cell, std::string> marks_;  ///< with the reasons
};
}  // namespace kxVsGrid::sheet

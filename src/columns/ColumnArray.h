// The definitions of a grid's columns: one more element than there are columns, the last one spare. Beside
// them what else the host wants of a column.
#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include "kxVsGrid/ColumnOptions.h"
#include "kxVsGrid/cVsControl.h"

namespace kxVsGrid::columns {

class ColumnArray {
  public:
    /// Bounds 0 to `cols`; elements that stay in the bounds are kept, new ones are empty.
    void resize(std::int32_t cols);
    std::int32_t upper() const { return static_cast<std::int32_t>(elements_.size()) - 1; }

    /// The definition of a column, created with defaults when the slot is empty. GridError outside the
    /// bounds. Valid until the slot is put or the array resized: read it afresh after every event.
    const cVsControl& at(std::int32_t col) { return *slot(col); }
    /// The same; nullptr outside the bounds.
    const cVsControl* find(std::int32_t col) {
        if (static_cast<std::size_t>(col) >= elements_.size()) return nullptr;
        const cVsControl* const there = elements_[static_cast<std::size_t>(col)].get();
        return there ? there : slot(col).get();
    }
    /// The same; nullptr also for an empty slot.
    const cVsControl* there(std::int32_t col) const {
        return static_cast<std::size_t>(col) < elements_.size()
                   ? elements_[static_cast<std::size_t>(col)].get()
                   : nullptr;
    }
    /// The same, shared: stays valid whatever a host does in the meantime.
    const std::shared_ptr<cVsControl>& shared(std::int32_t col) { return slot(col); }
    /// Stores the object itself; nothing empties the slot.
    void put(std::int32_t col, std::shared_ptr<cVsControl> definition);

    /// The options of a column, without the spare one; made at the first look. GridError outside the columns.
    ColumnOptions& options(std::int32_t col);
    /// The same; nothing where nobody has asked for them. They stay valid whatever a host does meanwhile.
    std::shared_ptr<const ColumnOptions> rules(std::int32_t col) const {
        return static_cast<std::size_t>(col) < options_.size() ? options_[static_cast<std::size_t>(col)]
                                                               : nullptr;
    }
    /// What becomes of zeros in the column; cheap, since each cell that code writes asks it.
    ColumnOptions::Zero zero(std::int32_t col) const {
        const auto at = static_cast<std::size_t>(col);
        return at < options_.size() && options_[at] ? options_[at]->zero() : ColumnOptions::Zero::AsGrid;
    }

  private:
    std::shared_ptr<cVsControl>& slot(std::int32_t col) {
        if (static_cast<std::size_t>(col) >= elements_.size()) outOfBounds(col);
        auto& element = elements_[static_cast<std::size_t>(col)];
        if (!element) element = std::make_shared<cVsControl>();
        return element;
    }
    [[noreturn]] void outOfBounds(std::int32_t col) const;

    std::vector<std::shared_ptr<cVsControl>> elements_{1};
    std::vector<std::shared_ptr<ColumnOptions>> options_;  ///< as many as were ever needed
};
}  // namespace kxVsGrid::columns

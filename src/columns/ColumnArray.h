// The definitions of a grid's columns: one more element than there are columns, the last one spare.
#pragma once

#include <cstdint>
#include <memory>
#include <vector>

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
        return static_cast<std::size_t>(col) < elements_.size() ? slot(col).get() : nullptr;
    }
    /// The same, shared: stays valid whatever a host does in the meantime.
    const std::shared_ptr<cVsControl>& shared(std::int32_t col) { return slot(col); }
    /// Stores the object itself; nothing empties the slot.
    void put(std::int32_t col, std::shared_ptr<cVsControl> definition);

  private:
    std::shared_ptr<cVsControl>& slot(std::int32_t col) {
        if (static_cast<std::size_t>(col) >= elements_.size()) outOfBounds(col);
        auto& element = elements_[static_cast<std::size_t>(col)];
        if (!element) element = std::make_shared<cVsControl>();
        return element;
    }
    [[noreturn]] void outOfBounds(std::int32_t col) const;

    std::vector<std::shared_ptr<cVsControl>> elements_{1};
};
}  // namespace kxVsGrid::columns

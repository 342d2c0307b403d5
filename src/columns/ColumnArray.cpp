#include "columns/ColumnArray.h"

#include <string>
#include <utility>

namespace kxVsGrid::columns {

void ColumnArray::resize(std::int32_t cols) {
    elements_.resize(static_cast<std::size_t>(cols) + 1);
}

void ColumnArray::put(std::int32_t col, std::shared_ptr<cVsControl> definition) {
    slot(col) = std::move(definition);
}

void ColumnArray::outOfBounds(std::int32_t col) const {
    throw GridError("VsCtrl: column " + std::to_string(col) + " is not within 0 to " +
                    std::to_string(upper()));
}
}  // namespace kxVsGrid::columns

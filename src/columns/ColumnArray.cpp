#include "columns/ColumnArray.h"

#include <string>
#include <utility>

namespace kxVsGrid::columns {

void ColumnArray::resize(std::int32_t cols) {
    elements_.resize(static_cast<std::size_t>(cols) + 1);
    if (options_.size() > static_cast<std::size_t>(cols)) options_.resize(static_cast<std::size_t>(cols));
}

void ColumnArray::put(std::int32_t col, std::shared_ptr<cVsControl> definition) {
    slot(col) = std::move(definition);
}

ColumnOptions& ColumnArray::options(std::int32_t col) {
    if (col < 0 || col >= upper())
        throw GridError("Options: column " + std::to_string(col) + " is not within 0 to " +
                        std::to_string(upper() - 1));
    const auto i = static_cast<std::size_t>(col);
    if (options_.size() <= i) options_.resize(i + 1);
    if (!options_[i]) options_[i] = std::make_shared<ColumnOptions>();
    return *options_[i];
}

void ColumnArray::outOfBounds(std::int32_t col) const {
    throw GridError("VsCtrl: column " + std::to_string(col) + " is not within 0 to " +
                    std::to_string(upper()));
}
}  // namespace kxVsGrid::columns

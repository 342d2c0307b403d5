// The rules of a column (kxVsGrid/ColumnOptions.h): why a text may not stand in a cell.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "host/ControlContext.h"

namespace kxVsGrid::editing {

/// The first rule that a text, as the cell would store it, breaks: the reason, for the clerk. The host's own
/// rule may change anything meanwhile.
std::optional<std::string> brokenColumnRule(const host::ControlContext& context, std::int32_t row,
                                            std::int32_t col, std::string_view text);
/// The one on repetition alone.
std::optional<std::string> brokenByRepeating(const host::ControlContext& context, std::int32_t row,
                                             std::int32_t col, std::string_view text);
}  // namespace kxVsGrid::editing

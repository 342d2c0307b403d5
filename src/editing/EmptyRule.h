// The rules of a column on empty and zero values.
#pragma once

#include <string>
#include <string_view>

#include "kxVsGrid/cVsControl.h"

namespace kxVsGrid::editing {

/// What the clerk is told when a cell of the column has this tag; empty when no rule is broken.
std::string brokenRule(const cVsControl& column, std::string_view tag);
}  // namespace kxVsGrid::editing

// The properties of a column definition, in the order of the interface.
#pragma once

#include <vector>

#include "kxVsGrid/cVsControl.h"
#include "support/PropertyTable.h"

namespace kxVsGrid::columns {

using ColumnProperty = support::Property<cVsControl>;

const std::vector<ColumnProperty>& columnProperties();
}  // namespace kxVsGrid::columns

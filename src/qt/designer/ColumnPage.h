// The column page before a form in the designer.
#pragma once

#include "qt/designer/DesignedGrid.h"

namespace kxVsGrid::qt::designer {

/// Returns when the page has been closed. Each Apply shows on the form at once and is one step of its
/// history.
void showColumnPage(DesignedGrid& grid);
}  // namespace kxVsGrid::qt::designer

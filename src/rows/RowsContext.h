// What the coming and going of rows works on.
#pragma once

#include "editing/EditSession.h"
#include "host/ControlContext.h"
#include "platform/Wheel.h"
#include "rows/DefaultedCells.h"
#include "totals/TotalRow.h"

namespace kxVsGrid::rows {

struct RowsContext : host::ControlContext {
    editing::EditSession& editor;
    totals::TotalRow& totals;
    const platform::Wheel& wheel;
    DefaultedCells& defaulted;
};
}  // namespace kxVsGrid::rows

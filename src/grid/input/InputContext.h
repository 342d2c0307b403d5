// What the clerk's keys and presses work on.
#pragma once

#include "editing/EditSession.h"
#include "host/ControlContext.h"
#include "kxVsGrid/Platform.h"
#include "rows/Rows.h"
#include "totals/TotalRow.h"

namespace kxVsGrid::grid {

struct InputContext : host::ControlContext {
    editing::EditSession& editor;
    rows::Rows& rows;
    totals::TotalRow& totals;
    Seat& seat;
    Platform& platform;
};
}  // namespace kxVsGrid::grid

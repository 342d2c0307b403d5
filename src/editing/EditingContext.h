// What an editing session works on.
#pragma once

#include "changes/Steps.h"
#include "columns/ColumnArray.h"
#include "editing/EditorOwner.h"
#include "host/ControlFlags.h"
#include "host/Host.h"
#include "kxVsGrid/CellGrid.h"
#include "kxVsGrid/Options.h"
#include "kxVsGrid/Platform.h"

namespace kxVsGrid::editing {

struct EditingContext {
    CellGrid& grid;
    columns::ColumnArray& columns;
    const host::Host& host;
    Platform& platform;
    Seat& seat;
    host::ControlFlags& flags;
    const GridOptions& options;
    changes::Steps& steps;
    EditorOwner& owner;

    bool editable() const { return flags.Editable && host.there(); }
    void showMessage(const MessageBox& box) const {
        if (host.there()) platform.showMessage(box);
    }
};
}  // namespace kxVsGrid::editing

// What an editing session works on.
#pragma once

#include "editing/EditorOwner.h"
#include "host/ControlContext.h"
#include "kxVsGrid/Platform.h"

namespace kxVsGrid::editing {

struct EditingContext : host::ControlContext {
    Platform& platform;
    Seat& seat;
    EditorOwner& owner;

    bool editable() const { return flags.Editable && host.there(); }
    void showMessage(const MessageBox& box) const {
        if (host.there()) platform.showMessage(box);
    }
};
}  // namespace kxVsGrid::editing

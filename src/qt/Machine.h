// The control and the platform that it runs on, in one piece.
//
// The control's seat keeps it: a control that goes with its widget, destroyed by a host handler or while a
// box is open, ends what it is at first, and its platform has to be there until then.
#pragma once

#include <memory>

#include "kxVsGrid/kxGrid.h"
#include "qt/QtPlatform.h"

namespace kxVsGrid::qt {

class Stage;

struct Machine : std::enable_shared_from_this<Machine> {
    explicit Machine(Stage& shown) : stage(&shown), platform(*this) {}

    Stage* stage;  ///< nullptr once the widget is gone
    QtPlatform platform;
    std::unique_ptr<kxGrid> grid;
};
}  // namespace kxVsGrid::qt

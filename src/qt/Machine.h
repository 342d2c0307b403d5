// The control and the platform that it runs on, in one piece.
//
// A call into the control holds it, so that it outlives a widget which a host handler destroys meanwhile.
#pragma once

#include "kxVsGrid/kxGrid.h"
#include "qt/QtPlatform.h"

namespace kxVsGrid::qt {

class Stage;

struct Machine {
    explicit Machine(Stage& shown) : stage(&shown), platform(*this) {}

    Stage* stage;  ///< nullptr once the widget is gone
    QtPlatform platform;
    std::unique_ptr<kxGrid> grid;
};
}  // namespace kxVsGrid::qt

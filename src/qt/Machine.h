// The control and the platform that it runs on, in one piece.
//
// A call into the control holds it, so that it outlives a widget which a host handler destroys meanwhile, or
// which the host destroys while a box is open.
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

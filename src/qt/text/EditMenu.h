// The text boxes' own menu, worded like the rest of the control whatever the locale.
#pragma once

#include <QPoint>

#include "qt/text/BoxEvents.h"

namespace kxVsGrid::qt {

/// Pops the menu up; what is chosen in it counts as done by the clerk.
void showEditMenu(TextBoxPort& box, BoxEvents& events, const QPoint& place);
}  // namespace kxVsGrid::qt

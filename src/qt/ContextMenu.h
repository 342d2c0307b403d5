// A menu of the core's as a real one.
#pragma once

#include <QPoint>
#include <QWidget>

#include "kxVsGrid/Menu.h"

namespace kxVsGrid::qt {

/// Pops the menu up at a place on the screen, over `widget`'s window, and waits for the clerk's choice.
/// Hidden items are left out; separators that would stand first, last or side by side are not drawn.
MenuChoice chooseFrom(const Menu& menu, QWidget* widget, const QPoint& place);
}  // namespace kxVsGrid::qt

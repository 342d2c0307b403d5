// A menu of the core's as a real one.
#pragma once

#include <QAction>
#include <QList>
#include <QPoint>
#include <QPointer>
#include <QWidget>

#include "kxVsGrid/Menu.h"

namespace kxVsGrid::qt {

/// Pops the menu up at a place on the screen, over `widget`'s window, and waits for the clerk's choice.
/// Hidden items are left out; separators that would stand first, last or side by side are not drawn. The host's
/// own actions stand behind a separator at the end; choosing one of them is no choice of the menu's.
MenuChoice chooseFrom(const Menu& menu, const QList<QPointer<QAction>>& hosts, QWidget* widget,
                      const QPoint& place);
}  // namespace kxVsGrid::qt

// Where a window of a dialog goes on the screen. All in logical pixels; sizes include the window's frame.
#pragma once

#include <QRect>
#include <QSize>

namespace kxVsGrid::qt {

/// As much of `size` as the screen holds.
QSize sizeOn(const QRect& screen, const QSize& size);
/// Under a cell; above it where there is no room below; always wholly on the screen, even where it covers the
/// cell then.
QRect placeNear(const QRect& cell, const QSize& size, const QRect& screen);
/// In the middle of a window, wholly on the screen.
QRect placeInMiddle(const QRect& window, const QSize& size, const QRect& screen);
}  // namespace kxVsGrid::qt

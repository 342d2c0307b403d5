// Pictures of a window with what stands in front of it, taken from the widgets themselves: whatever else is
// on the screen, and however the desktop draws the frames of windows, a picture is the same.
#pragma once

#include <QRect>
#include <QString>
#include <optional>

class QWidget;

class WindowPicture {
  public:
    /// The part of a window that a script names: all of it, "X Y W H" or "around MARGIN". Nothing when it is
    /// none.
    static std::optional<QRect> partOf(QWidget& window, const QString& part);
    /// Saves that part; it may reach beyond the window where a box does.
    static bool save(QWidget& window, const QString& file, const QRect& part);
};

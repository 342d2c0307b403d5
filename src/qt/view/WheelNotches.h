// Whole notches of the wheel, counted from the small steps that fine wheels and touch pads report.
#pragma once

#include <QPoint>
#include <QWheelEvent>

namespace kxVsGrid::qt {

class WheelNotches {
  public:
    /// The notches that are complete with this event: x to the right, y downwards.
    QPoint add(const QWheelEvent& event) {
        constexpr int EighthsPerNotch = 120;
        rest_ -= event.angleDelta();
        const QPoint whole(rest_.x() / EighthsPerNotch, rest_.y() / EighthsPerNotch);
        rest_ -= whole * EighthsPerNotch;
        return whole;
    }

  private:
    QPoint rest_;  // eighths of a degree
};
}  // namespace kxVsGrid::qt

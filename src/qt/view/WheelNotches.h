// Whole notches of the wheel, counted from the small steps that fine wheels report; what scrolls by pixels.
#pragma once

#include <QInputDevice>
#include <QPoint>
#include <QWheelEvent>

namespace kxVsGrid::qt {

/// A touchpad, which says how many pixels. Those of a mouse are no measure: they may be numbers of its driver.
inline bool scrollsByPixels(const QWheelEvent& event) {
    if (event.pixelDelta().isNull()) return false;
    return event.phase() != Qt::NoScrollPhase || event.device()->type() == QInputDevice::DeviceType::TouchPad;
}

class WheelNotches {
  public:
    /// The notches that are complete with this event: x to the right, y downwards. With Shift a wheel that only
    /// turns up and down goes sideways.
    QPoint add(const QWheelEvent& event) {
        constexpr int EighthsPerNotch = 120;
        const QPoint turned = event.angleDelta();
        const bool sideways = event.modifiers().testFlag(Qt::ShiftModifier) && turned.x() == 0;
        rest_ -= sideways ? turned.transposed() : turned;
        const QPoint whole(rest_.x() / EighthsPerNotch, rest_.y() / EighthsPerNotch);
        rest_ -= whole * EighthsPerNotch;
        return whole;
    }

  private:
    QPoint rest_;  // eighths of a degree
};
}  // namespace kxVsGrid::qt

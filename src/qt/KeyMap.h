// Qt's key events as the key strokes that the core knows.
#pragma once

#include <QKeyEvent>
#include <cstdint>

#include "kxVsGrid/Platform.h"

namespace kxVsGrid::qt {

/// The keys of the keypad are the main keys: digits, operators, decimal and Enter. Its decimal types a point
/// whatever the locale, since numbers are written with one.
KeyStroke strokeOf(const QKeyEvent& event);
/// A stroke that only types.
KeyStroke strokeOf(char32_t character);

/// A sum of ShiftMask.
std::int16_t shiftOf(Qt::KeyboardModifiers modifiers);
/// A sum of MouseButton.
std::int16_t buttonsOf(Qt::MouseButtons buttons);
}  // namespace kxVsGrid::qt

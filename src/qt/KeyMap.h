// Qt's key events as the key strokes that the core knows.
#pragma once

#include <QKeyEvent>
#include <QKeySequence>
#include <QList>
#include <cstdint>
#include <optional>

#include "kxVsGrid/Commands.h"
#include "kxVsGrid/Platform.h"
#include "kxVsGrid/kxGrid.h"

namespace kxVsGrid::qt {

/// The keys of the keypad are the main keys: digits, operators, decimal and Enter. Its decimal types a point
/// whatever the locale, since numbers are written with one.
KeyStroke strokeOf(const QKeyEvent& event);
/// A stroke that only types.
KeyStroke strokeOf(char32_t character);

/// The command that the desktop has the key for; in an editor Undo and Redo alone, the others are the box's own.
std::optional<Command> desktopCommandOf(const QKeyEvent& event, CommandKey::Where where);
/// The command that the control's own keys give; what it makes of one now is for itself to say.
std::optional<Command> ownCommandOf(const QKeyEvent& event, const kxGrid& grid, CommandKey::Where where);
/// The command that a key gives: one of the control's own keys, or one that the desktop has for it.
std::optional<Command> commandOf(const QKeyEvent& event, const kxGrid& grid, CommandKey::Where where);
/// The control's own keys of a command.
QList<QKeySequence> sequencesOf(Command command, const Commands& commands);

/// A sum of ShiftMask.
std::int16_t shiftOf(Qt::KeyboardModifiers modifiers);
/// A sum of MouseButton.
std::int16_t buttonsOf(Qt::MouseButtons buttons);
}  // namespace kxVsGrid::qt

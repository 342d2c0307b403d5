// What a clerk, a menu or a toolbar can ask the control to do, and the keys that ask for it.
//
//     const auto command = kxVsGrid::commandOf('Z', kxVsGrid::CtrlKey);
//     if (command && grid.CanRun(*command)) grid.Run(*command);
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string_view>

namespace kxVsGrid {

enum class Command : std::uint8_t { Undo, Redo };

/// A key that gives a command on a closed cell. What it does in an open editor depends on the command.
struct CommandKey {
    Command command;
    std::int16_t code;   ///< of the key, never the character that it types
    std::int16_t shift;  ///< a sum of ShiftMask; no other combination gives the command
};

/// All of them; the first key of a command is the one that menus show.
std::span<const CommandKey> commandKeys();
/// The command of a key, if it has one.
std::optional<Command> commandOf(std::int16_t code, std::int16_t shift);
/// As a menu names it, without what it would act on.
std::string_view captionOf(Command command);
/// The name of its icon in the icon themes of desktops (freedesktop.org, Icon Naming Specification).
std::string_view iconNameOf(Command command);
}  // namespace kxVsGrid

#include "kxVsGrid/Command.h"

#include "kxVsGrid/Enumerations.h"

namespace kxVsGrid {
namespace {

constexpr CommandKey keys[] = {
    {Command::Undo, 'Z', CtrlKey},
    {Command::Redo, 'Y', CtrlKey},
    {Command::Redo, 'Z', CtrlKey + ShiftKey},
};
}  // namespace

std::span<const CommandKey> commandKeys() {
    return keys;
}

std::optional<Command> commandOf(std::int16_t code, std::int16_t shift) {
    for (const CommandKey& key : keys)
        if (key.code == code && key.shift == shift) return key.command;
    return {};
}

std::string_view captionOf(Command command) {
    switch (command) {
        case Command::Undo:
            return "撤销";
        case Command::Redo:
            return "重做";
    }
    return {};
}
}  // namespace kxVsGrid

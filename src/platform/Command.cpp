#include "kxVsGrid/Command.h"

#include <algorithm>
#include <iterator>

#include "kxVsGrid/Enumerations.h"

namespace kxVsGrid {
namespace {

struct Look {
    Command command;
    std::string_view caption;
    std::string_view iconName;
};

constexpr Look looks[] = {
    {Command::Undo, "撤销", "edit-undo"},
    {Command::Redo, "重做", "edit-redo"},
};

const Look& lookOf(Command command) {
    return *std::find_if(std::begin(looks), std::end(looks),
                         [command](const Look& look) { return look.command == command; });
}

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
    return lookOf(command).caption;
}

std::string_view iconNameOf(Command command) {
    return lookOf(command).iconName;
}
}  // namespace kxVsGrid

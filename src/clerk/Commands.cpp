#include "kxVsGrid/Commands.h"

#include <algorithm>

#include "clerk/CommandRunner.h"

namespace kxVsGrid {

Commands::Commands(const clerk::CommandRunner& runner)
    : runner_(runner), keys_(defaultKeys().begin(), defaultKeys().end()) {}

std::string Commands::Caption(Command command) const {
    return runner_.caption(command);
}

std::string Commands::WhyNot(Command command) const {
    return runner_.whyNot(command);
}

std::optional<Command> Commands::Of(std::int16_t code, std::int16_t shift, CommandKey::Where where) const {
    for (const CommandKey& key : keys_)
        if (key.code == code && key.shift == shift &&
            (where == CommandKey::Where::ClosedCell || key.where == CommandKey::Where::EditorToo))
            return key.command;
    return {};
}

void Commands::Bind(const CommandKey& key) {
    std::vector<CommandKey> keys = keys_;
    std::erase_if(
        keys, [&](const CommandKey& other) { return other.code == key.code && other.shift == key.shift; });
    keys.push_back(key);
    keys_ = std::move(keys);
    Changed();
}

void Commands::Unbind(std::int16_t code, std::int16_t shift) {
    if (std::erase_if(keys_, [&](const CommandKey& key) { return key.code == code && key.shift == shift; }) >
        0)
        Changed();
}
}  // namespace kxVsGrid

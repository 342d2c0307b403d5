// The commands of one control: which are possible now, what a menu says of them, and their keys.
//
//     grid.Commands().Changed.connect([&grid, &button] {
//         button.text = grid.Commands().Caption(kxVsGrid::Command::Undo);  // 撤销“录入”
//         button.enabled = grid.CanRun(kxVsGrid::Command::Undo);
//     });
//     grid.Commands().Bind({kxVsGrid::Command::DuplicateRow, 'D', kxVsGrid::CtrlKey});  // was 向下填充
#pragma once

#include <optional>
#include <span>
#include <string>
#include <vector>

#include "kxVsGrid/Command.h"
#include "kxVsGrid/Event.h"
#include "kxVsGrid/PasteReport.h"

namespace kxVsGrid {

namespace clerk {
class CommandRunner;
}

class Commands {
  public:
    explicit Commands(const clerk::CommandRunner& runner);

    /// Some command has become possible or impossible, for another reason too, is called otherwise, or has other keys. A host's write
    /// outside of steps ends what could be redone without raising this: the next step tells of it.
    Event<> Changed;
    /// A block of cells was written, or was to be. The cells that were refused bear marks (CellMark.h).
    Event<const PasteReport&> Reported;
    /// As a menu shows it, with what it would act on.
    std::string Caption(Command command) const;
    /// Why it cannot be done now, in words for the clerk, where that is not plain to see; empty otherwise.
    std::string WhyNot(Command command) const;

    // --- Its keys. A key of a command is used up on a closed cell, also while the command cannot be done.
    std::span<const CommandKey> Keys() const { return keys_; }
    /// The command of a key, if it has one there.
    std::optional<Command> Of(std::int16_t code, std::int16_t shift, CommandKey::Where where) const;
    /// Gives a command one more key, and takes it from the one that had it.
    void Bind(const CommandKey& key);
    /// The key is no command's any more.
    void Unbind(std::int16_t code, std::int16_t shift);

  private:
    const clerk::CommandRunner& runner_;
    std::vector<CommandKey> keys_;
};
}  // namespace kxVsGrid

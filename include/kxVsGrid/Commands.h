// The commands of one control: which are possible now, and what a menu says of them.
//
//     grid.Commands().Changed.connect([&grid, &button] {
//         button.text = grid.Commands().Caption(kxVsGrid::Command::Undo);  // 撤销“录入”
//         button.enabled = grid.CanRun(kxVsGrid::Command::Undo);
//     });
#pragma once

#include <string>

#include "kxVsGrid/Command.h"
#include "kxVsGrid/Event.h"

namespace kxVsGrid {

namespace clerk {
class CommandRunner;
}

class Commands {
  public:
    explicit Commands(const clerk::CommandRunner& runner) : runner_(runner) {}

    /// Some command has become possible or impossible, or is called otherwise. A host's write outside of steps
    /// ends what could be redone without raising this: the next step tells of it.
    Event<> Changed;
    /// As a menu shows it, with what it would act on.
    std::string Caption(Command command) const;

  private:
    const clerk::CommandRunner& runner_;
};
}  // namespace kxVsGrid

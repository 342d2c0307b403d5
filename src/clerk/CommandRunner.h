// Carries out commands, wherever they come from: a key, a menu of the host's, a toolbar, a test.
#pragma once

#include <string>

#include "changes/Steps.h"
#include "editing/EditSession.h"
#include "kxVsGrid/Commands.h"

namespace kxVsGrid::clerk {

class CommandRunner {
  public:
    /// Both must outlive it.
    CommandRunner(changes::Steps& steps, editing::EditSession& editor) : steps_(steps), editor_(editor) {}

    bool can(Command command) const;
    /// False when it could not be done; nothing has changed then but what a commit of the open editor did.
    bool run(Command command);
    /// For a key of the command in the grid. In an open editor it is the text box's own for as long as there
    /// is something of the clerk's in the box to take back, or to bring back: False then. Otherwise the editor
    /// closes without writing, and the command runs.
    bool runByKey(Command command);
    std::string caption(Command command) const;
    /// Raises Changed where something has.
    void tellChanges();

    Commands face{*this};

  private:
    struct Told {
        std::string undo;
        std::string redo;
        bool canUndo = false;
        bool canRedo = false;
        friend bool operator==(const Told&, const Told&) = default;
    };
    bool textBoxHasIt(Command command) const;

    changes::Steps& steps_;
    editing::EditSession& editor_;
    Told told_;
};
}  // namespace kxVsGrid::clerk

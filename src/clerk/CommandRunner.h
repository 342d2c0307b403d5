// Carries out commands, wherever they come from: a key, a menu of the host's, a toolbar, a test.
//
// Each of them commits an open editor first, and does not run where that is refused. Undo and Redo have their own
// way with it; Copy, Cut, Paste and SelectAll are the text box's for as long as it is open.
#pragma once

#include <bitset>
#include <optional>
#include <string>

#include "changes/Steps.h"
#include "clerk/CellCommands.h"
#include "clerk/ClerkContext.h"
#include "clerk/ColumnCommands.h"
#include "clerk/CopyPaste.h"
#include "clerk/FilterCommands.h"
#include "clerk/HeaderMenu.h"
#include "clerk/Menus.h"
#include "clerk/RowCommands.h"
#include "clerk/SortCommands.h"
#include "clerk/find/Search.h"
#include "kxVsGrid/Commands.h"

namespace kxVsGrid::clerk {

class CommandRunner {
  public:
    CommandRunner(const ClerkContext& context, Menus& menus, Search& search);

    bool can(Command command) const;
    /// False when it could not be done; nothing has changed then but what a commit of the open editor did.
    bool run(Command command);
    /// A text that comes from elsewhere, as if it were typed into the cell; why it was refused.
    std::string enter(std::int32_t row, std::int32_t col, std::string_view text);
    /// The command that a key gives now.
    std::optional<Command> commandOf(std::int16_t code, std::int16_t shift) const;
    /// The edge of a column was pressed twice.
    void fitColumn(std::int32_t col);
    /// For a key of the command in the grid. In an open editor Undo and Redo are the text box's own for as long
    /// as there is something of the clerk's in the box to take back, or to bring back: False then. Otherwise the
    /// editor closes without writing, and the command runs.
    bool runByKey(Command command);
    std::string caption(Command command) const;
    std::string whyNot(Command command) const;
    /// Raises Changed where something has; not while a step is open, whose end tells.
    void tellChanges();

    /// Before somebody listens to Changed: from here on he is to be told.
    void look();

    Commands face{*this};

  private:
    struct Told {
        std::string undo;
        std::string redo;
        std::string whyNotSorted;
        bool endsFreezing = false;
        std::bitset<64> can;
        friend bool operator==(const Told&, const Told&) = default;
    };
    Told state(bool opens) const;
    bool textBoxHasIt(Command command) const;
    bool mayEdit() const;
    bool canOnClosedCell(Command command) const;
    bool runOnClosedCell(Command command);
    bool select(Command command);
    bool goToNextProblem();
    bool opensHeaderMenu(std::optional<Command> command, std::int16_t code, std::int16_t shift) const;

    ClerkContext c_;
    Menus& menus_;
    Search& search_;
    CopyPaste copyPaste_;
    CellCommands cells_;
    RowCommands rows_;
    SortCommands sorts_;
    FilterCommands filters_;
    ColumnCommands columns_;
    HeaderMenu headers_;
    Told told_;
    bool telling_ = false;
};
}  // namespace kxVsGrid::clerk

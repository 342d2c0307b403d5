// Keys and double clicks on the grid while its editor is closed.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "clerk/Menus.h"
#include "grid/input/InputContext.h"

namespace kxVsGrid::grid {

class Keys {
  public:
    Keys(const InputContext& context, clerk::Menus& menus) : c_(context), menus_(menus) {}

    /// Insert and Delete: rows, with the host's consent. Menu and Shift+F10: the menu. F2: the editor, and
    /// the column's help where it offers one. `code` becomes 0 where the key has opened something.
    void keyDown(std::int16_t& code, std::int16_t shift);
    /// Whether the host is asked about the key, which then is nobody else's, whatever the answer.
    bool asksTheHost(std::int16_t code) const;
    /// Enter goes to the next editable cell; any other character opens the editor. `ascii` becomes 0 when
    /// swallowed. `typed` is the character itself, which may not fit into 16 bits; empty, it is those.
    void keyPress(std::int16_t& ascii, std::string_view typed);
    /// Opens the editor as a typed character would, leaving the keyboard with the grid. False when it stays
    /// closed.
    bool openForTyping();
    /// `edits`: nothing has been done about the first of the two presses.
    void doubleClick(bool edits);

    /// F2: the editor, and the column's help where it offers one.
    void openHelp();

  private:
    void passToEditor(std::string_view typed);
    void leaveHiddenCell();
    bool isBoolean(std::int32_t col);
    bool isUnseen(std::int32_t row) const;

    InputContext c_;
    clerk::Menus& menus_;
};
}  // namespace kxVsGrid::grid

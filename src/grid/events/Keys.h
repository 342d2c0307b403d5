// Keys and double clicks on the grid while its editor is closed.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "grid/events/Context.h"

namespace kxVsGrid::events {

class RowAdder;

class Keys {
  public:
    Keys(const Context& context, RowAdder& rows) : c_(context), rows_(rows) {}

    /// Insert and Delete: rows, with the host's consent. F2: the editor, and the column's help where it
    /// offers one; `code` becomes 0 where there is something to edit.
    void keyDown(std::int16_t& code);
    /// Whether the host is asked about the key, which then is nobody else's, whatever the answer.
    bool asksTheHost(std::int16_t code) const;
    /// Enter goes to the next editable cell; any other character opens the editor. `ascii` becomes 0 when
    /// swallowed. `typed` is the character itself, which does not fit into 16 bits.
    void keyPress(std::int16_t& ascii, std::string_view typed);
    /// Opens the editor as a typed character would, leaving the keyboard with the grid. False when it stays
    /// closed.
    bool openForTyping();
    /// `edits`: nothing has been done about the first of the two presses.
    void doubleClick(bool edits);

    void insertRow();
    void deleteRow();

  private:
    bool editsHere();
    void editWithHelp();
    void passToEditor(std::string_view typed);
    void leaveHiddenCell();
    bool isBoolean(std::int32_t col);

    Context c_;
    RowAdder& rows_;
};
}  // namespace kxVsGrid::events

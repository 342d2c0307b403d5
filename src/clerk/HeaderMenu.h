// The menu of a column header: what a clerk can do to the column under it. Nothing in it moves the current cell, but
// hiding the column where that stands.
#pragma once

#include <cstdint>
#include <string>

#include "clerk/ClerkContext.h"
#include "clerk/ColumnCommands.h"
#include "clerk/FilterCommands.h"
#include "clerk/SortCommands.h"
#include "kxVsGrid/Menu.h"

namespace kxVsGrid::clerk {

class HeaderMenu {
  public:
    HeaderMenu(const ClerkContext& context, SortCommands& sorts, FilterCommands& filters,
               ColumnCommands& columns);

    /// The column whose header lies at a place in the grid; -1 where that is none with a menu.
    std::int32_t columnAt(std::int32_t x, std::int32_t y) const;
    /// At a place in the grid, for a column.
    void popUp(std::int32_t col, const Rect& place);

    /// There is a column whose menu a key could open: that which was selected whole last, else the current one.
    bool canOpen() const { return keysColumn() >= 0; }
    /// Below its header.
    void open();
    /// What Command::Freeze would do there.
    std::string freezeCaption(std::int32_t col) const;

  private:
    std::int32_t keysColumn() const;
    void choose(std::int32_t col);
    void chooseSorts(std::int32_t col);
    void chooseFilters(std::int32_t col);
    void chooseColumns(std::int32_t col);
    void listHidden();
    void run(std::int32_t col, std::int32_t index);

    ClerkContext c_;
    SortCommands& sorts_;
    FilterCommands& filters_;
    ColumnCommands& columns_;
    Menu menu_;
};
}  // namespace kxVsGrid::clerk

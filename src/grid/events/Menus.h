// The context menus of the grid: which items they show for a click, and what the items do.
#pragma once

#include <cstdint>

#include "grid/events/Context.h"
#include "grid/events/Fills.h"
#include "kxVsGrid/Menu.h"

namespace kxVsGrid::events {

class Keys;
class RowAdder;

class Menus {
  public:
    Menus(const Context& context, RowAdder& rows, Keys& keys, CellAccess& cells);

    /// A press in the grid, at twips in it: the host hears of it and may cancel. A right press makes the cell
    /// that it is on the current one first, on a row number that row, and opens a menu. False when the host
    /// has cancelled it.
    bool mouseDown(std::int16_t button, std::int16_t shift, float x, float y);
    /// The same at the current cell, for the keys that open menus: the host hears of a press on it, the menu
    /// stands below it.
    void open(std::int16_t shift);

  private:
    bool goWherePressed(std::int32_t x, std::int32_t y);
    /// Tells the host, and answers whether anything may follow.
    bool letGoOn(std::int16_t button, std::int16_t shift, float x, float y);
    void popUpAt(const Rect& place, std::int16_t shift);
    void showRowMenu(std::int16_t shift, const Rect& place);
    bool someColumnHasDefaults();
    void chooseRowItems(std::int16_t shift);
    void chooseFillItems();
    void show(std::int32_t index, bool visible) { rowMenu_.item("mnuVs", index).visible = visible; }
    /// At a place in the grid.
    MenuChoice popUp(const Menu& menu, const Rect& place);
    void rowCommand(std::int32_t index);
    void addSeveral(bool atEnd, bool withDefaults);
    void copyCell();

    Context c_;
    RowAdder& rows_;
    Keys& keys_;
    Fills fills_;
    Menu rowMenu_;
    Menu copyMenu_;
};
}  // namespace kxVsGrid::events

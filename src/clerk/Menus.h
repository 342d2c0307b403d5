// The context menus of the grid: which items they show for a click, and what the items do.
#pragma once

#include <cstdint>

#include "clerk/ClerkContext.h"
#include "clerk/Fills.h"
#include "clerk/HeaderMenu.h"
#include "kxVsGrid/Menu.h"

namespace kxVsGrid::clerk {

class Menus {
  public:
    explicit Menus(const ClerkContext& context);
    /// What opens on a column header instead, where the host has that.
    void headers(HeaderMenu& headers) { headers_ = &headers; }

    /// A press in the grid, at twips in it: the host hears of it and may cancel. A right press makes the cell
    /// that it is on the current one first, on a row number that row, and opens a menu. `leadsThere` False:
    /// what was pressed is there no more, and no menu opens. False when the host has cancelled it.
    bool mouseDown(std::int16_t button, std::int16_t shift, float x, float y, bool leadsThere);
    /// The same at the current cell, for the keys that open menus: the host hears of a press on it, the menu
    /// stands below it.
    void open(std::int16_t shift);

  private:
    bool goWherePressed(std::int32_t x, std::int32_t y);
    void goTo(std::int32_t row, std::int32_t col);
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

    ClerkContext c_;
    HeaderMenu* headers_ = nullptr;
    Fills fills_;
    Menu rowMenu_;
    Menu copyMenu_;
};
}  // namespace kxVsGrid::clerk

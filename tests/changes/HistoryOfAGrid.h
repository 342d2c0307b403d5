// A grid that a clerk keys into and takes back what he did.
#pragma once

#include <cstdint>
#include <string_view>

#include "kit/PlacedGrid.h"

namespace kxVsGrid::testing {

class HistoryOfAGrid : public PlacedGrid {
  protected:
    HistoryOfAGrid() {
        grid.Cols(6);
        column(2).iType(flexDTDouble);
        summed(2);
        column(5).iType(flexDTBoolean);
        grid.AddVsRow.connect([this](std::int32_t, bool& consent) { consent = adds; });
        grid.DeleteVsRow.connect([](std::int32_t, bool& consent) { consent = true; });
        setUp();
        desk.focusGrid();
        vs().Select(1, 1);
    }
    History& history() { return grid.History(); }
    void key(std::int32_t row, std::int32_t col, std::string_view typed) {
        vs().Select(row, col);
        desk.type(typed).press(Key::Enter);
    }
    void choose(std::string_view item) {
        desk.onPopup([item](headless::PoppedMenu& menu) { menu.choose(item); });
        desk.press(Key::Menu);
        desk.onPopup({});
    }
    bool adds = false;
};
}  // namespace kxVsGrid::testing

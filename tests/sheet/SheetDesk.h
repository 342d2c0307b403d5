// A clerk at a desk with a grid that has a sheet.
#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <string_view>

#include "kxVsGrid/headless/Desk.h"

namespace kxVsGrid::testing {

class SheetDesk : public ::testing::Test {
  protected:
    std::string text(std::int32_t row, std::int32_t col) { return grid.Grid().Text(row, col); }
    void type(std::int32_t row, std::int32_t col, std::string_view typed) {
        grid.Grid().Select(row, col);
        desk.type(typed).press(Key::Enter);
    }

    headless::Desk desk;
    kxGrid& grid = desk.place();
};
}  // namespace kxVsGrid::testing

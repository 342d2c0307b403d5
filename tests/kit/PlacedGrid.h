// A newly placed control as the host gets it, nothing set up yet, with a log of all events; and what tests of
// the control's own members look at.
#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <iostream>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>

#include "kit/ClerkTest.h"

namespace kxVsGrid::testing {

/// The light grey that the set-up gives the cells of the total row.
inline constexpr std::uint32_t LightGrey = 0xE0E0E0;

/// Heights and distances that the layout is made of, in twips.
struct LayoutSizes {
    static constexpr std::int32_t Width = 9000;   ///< of the control, and what the main grid gets of it
    static constexpr std::int32_t Height = 6000;  ///< the same
    static constexpr std::int32_t TotalRow = 330;
    static constexpr std::int32_t Border = 15;
    static constexpr std::int32_t Bar = 255;
    /// Top of the total row without a horizontal scroll bar.
    static constexpr std::int32_t LowTop = Height - TotalRow - Border;
    static constexpr std::int32_t HighTop = LowTop - Bar;
};

/// A host's handler of any event that always fails.
struct Boom {
    template <class... Args>
    void operator()(Args&&...) const {
        throw std::runtime_error("boom");
    }
};

inline std::optional<std::uint32_t> color(std::uint32_t value) {
    return value;
}
inline const std::optional<std::uint32_t> NoColor;

class PlacedGrid : public ::testing::Test {
  protected:
    PlacedGrid() : log(grid) {}
    void TearDown() override {
        if (HasFailure()) std::cout << desk.ascii();
    }

    cVsControl& column(std::int32_t col) { return *grid.VsCtrl(static_cast<std::int16_t>(col)); }
    CellGrid& vs() { return grid.Grid(); }
    CellGrid& sum() { return grid.Grid_Sum(); }
    std::string text(std::int32_t row, std::int32_t col) { return vs().Text(row, col); }
    std::string tag(std::int32_t row, std::int32_t col) { return vs().Data(row, col); }

    /// A column of numbers that is summed; takes effect with the next set-up or recalculation.
    void summed(std::int32_t col) {
        column(col).iType(flexDTDouble);
        column(col).b是否合计数据(true);
    }
    /// The total row is shown and the set-up done.
    void setUp() {
        grid.SumRow(true);
        grid.ReDraw(true);
        heard();
        desk.clear();
    }
    /// A code column whose check knows no code: every changed text is refused with a box.
    void refusesCodes(std::int32_t col) {
        column(col).i有效性判断(1);
        column(col).i字段有效性判断类型(ij编码型);
    }
    /// Opens the editor over a cell and puts a text into it, without a trace in the log.
    void typeInto(std::int32_t row, std::int32_t col, std::string_view typed) {
        desk.focusGrid();
        vs().Select(row, col);
        desk.type(typed);
        ASSERT_TRUE(desk.editor().visible);
        ASSERT_EQ(desk.editor().text, typed);
        heard();
    }

    /// What the host heard since the last look.
    Lines heard() {
        Lines lines = log.lines();
        log.clear();
        return lines;
    }
    /// The settings that were reported since the last look.
    Lines reported() {
        Lines names = desk.reports();
        desk.clear();
        return names;
    }
    /// The boxes that were shown, as "title|style|text".
    Lines boxes() const {
        Lines lines;
        for (const MessageBox& box : desk.messages())
            lines.push_back(box.title + '|' + std::to_string(box.style) + '|' + box.text);
        return lines;
    }

    headless::Desk desk;
    kxGrid& grid = desk.place();
    HostLog log;
};

/// No events, no boxes, no reports.
inline const Lines Nothing;

/// Bytes that are no UTF-8, and a character of four bytes beside a lone half of one.
inline const std::string StrayBytes = "a\xFF\xC3(\xF0\x9F\x98\x80\xED\xA0\x80z";

}  // namespace kxVsGrid::testing

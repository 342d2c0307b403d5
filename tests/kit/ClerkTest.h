// A clerk at a small grid: six columns of text (column 0 fixed), five data rows, the set-up done, the
// keyboard on the grid, and a log of everything that the host hears.
#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <functional>
#include <iostream>
#include <optional>
#include <ostream>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "kit/HostLog.h"
#include "kxVsGrid/headless/Desk.h"

namespace kxVsGrid::testing {

/// Colours as the control counts them: blue in the high byte.
inline constexpr std::uint32_t Red = 0x0000FF;
inline constexpr std::uint32_t Yellow = 0x00FFFF;

inline Lines operator+(Lines left, const Lines& right) {
    left.insert(left.end(), right.begin(), right.end());
    return left;
}

/// The question before a move: all that a refused one raises.
inline Lines asks(std::int32_t r0, std::int32_t c0, std::int32_t r1, std::int32_t c1) {
    return {line("BeforeRowColChange", r0, c0, r1, c1, false)};
}
/// The events from the arrival in the new cell up to the point where default texts are filled.
inline Lines arrives() {
    return {line("EnterCell"), line("ValidData", 0), line("RowColChange")};
}
/// The events after the default texts.
inline Lines settles(std::int32_t r0, std::int32_t c0, std::int32_t r1, std::int32_t c1) {
    return {line("AfterRowColChange", r0, c0, r1, c1), line("SelChange")};
}
/// One move in which nothing is committed and nothing is filled.
inline Lines moves(std::int32_t r0, std::int32_t c0, std::int32_t r1, std::int32_t c1) {
    return asks(r0, c0, r1, c1) + arrives() + settles(r0, c0, r1, c1);
}
inline Lines changed(std::int32_t row, std::int32_t col) {
    return {line("CellChanged", row, col)};
}
inline Lines edited(std::int32_t row, std::int32_t col) {
    return {line("AfterEdit", row, col)};
}
inline Lines opens() {
    return {line("BeforeTextEdit")};
}
inline Lines asksForRow(std::int32_t row, bool preset) {
    return {line("AddVsRow", row, preset)};
}

inline std::string nameOf(const std::string& entry) {
    return entry.substr(0, entry.find('('));
}
inline Lines named(const Lines& lines, std::string_view name) {
    Lines found;
    for (const auto& entry : lines)
        if (nameOf(entry) == name) found.push_back(entry);
    return found;
}
inline Lines without(const Lines& lines, std::string_view name) {
    Lines found;
    for (const auto& entry : lines)
        if (nameOf(entry) != name) found.push_back(entry);
    return found;
}

struct Cell {
    std::int32_t row;
    std::int32_t col;
    friend bool operator==(const Cell&, const Cell&) = default;
    friend std::ostream& operator<<(std::ostream& out, const Cell& cell) {
        return out << '(' << cell.row << ", " << cell.col << ')';
    }
};

/// The clerk at any kind of desk.
template <class DeskType>
class ClerkAt : public ::testing::Test {
  protected:
    ClerkAt() : log(grid) {
        grid.Cols(6);
        grid.ReDraw(true);
        desk.focusGrid();
        log.clear();
    }

    void TearDown() override {
        if (HasFailure()) std::cout << desk.ascii();
    }

    cVsControl& column(std::int32_t col) { return *grid.VsCtrl(static_cast<std::int16_t>(col)); }
    void readOnly(std::int32_t col) { column(col).bIsEditable(false); }
    /// A summed column of numbers, with the total row shown.
    void summed(std::int32_t col) {
        column(col).iType(flexDTDouble);
        column(col).b是否合计数据(true);
        grid.SumRow(true);
        grid.ReDraw(true);
        log.clear();
    }
    void typed(std::int32_t col, mEmDataType type) {
        column(col).iType(type);
        grid.ReDraw(true);
        log.clear();
    }
    /// The host agrees to every row that is asked for.
    void consentToRows() {
        grid.AddVsRow.connect([](std::int32_t, bool& consent) { consent = true; });
    }
    /// The host knows the codes that `nameOf` has a name for.
    void knowCodes(std::function<std::optional<std::string>(const std::string&)> nameOf) {
        grid.TxtValidBmS.connect([nameOf = std::move(nameOf)](const std::string&, const std::string&,
                                                              const std::string&, const std::string& typed,
                                                              std::string& code, std::string& name) {
            const auto found = nameOf(typed);
            if (!found) return;
            code = typed;
            name = *found;
        });
    }
    /// The host knows the codes that begin with A.
    void knowCodes() {
        knowCodes([](const std::string& typed) {
            return typed.starts_with("A") ? std::optional("货 " + typed) : std::nullopt;
        });
    }
    /// What is typed there has to be a code that the host knows.
    void takesCodes(std::int32_t col) {
        column(col).i有效性判断(1);
        column(col).i字段有效性判断类型(ij编码型);
    }
    void rows(std::int32_t count) {
        grid.Rows(count);
        log.clear();
    }

    std::string text(std::int32_t row, std::int32_t col) const { return grid.Grid().Text(row, col); }
    std::string tag(std::int32_t row, std::int32_t col) const { return grid.Grid().Data(row, col); }
    void fill(std::int32_t row, std::int32_t col, std::string_view display, std::string_view data = {}) {
        grid.SetCell(row, col, display, data);
        log.clear();
    }
    /// A text and a tag of its own in each cell of a row, without a trace in the log.
    void content(std::int32_t row) {
        for (int c = 1; c < 6; ++c)
            fill(row, c, "t" + std::to_string(row) + std::to_string(c),
                 "d" + std::to_string(row) + std::to_string(c));
    }
    /// The row holds what content() gave to the row `original`.
    void expectContent(std::int32_t row, std::int32_t original) {
        for (int c = 1; c < 6; ++c) {
            EXPECT_EQ(text(row, c), "t" + std::to_string(original) + std::to_string(c)) << row;
            EXPECT_EQ(tag(row, c), "d" + std::to_string(original) + std::to_string(c)) << row;
        }
    }
    void expectEmpty(std::int32_t row) {
        for (int c = 1; c < 6; ++c) {
            EXPECT_EQ(text(row, c), "") << row << ' ' << c;
            EXPECT_EQ(tag(row, c), "") << row << ' ' << c;
        }
    }
    Cell current() const { return {grid.Row(), grid.Col()}; }
    /// Puts the current cell somewhere, without a trace in the log.
    void at(std::int32_t row, std::int32_t col) {
        grid.Grid().Select(row, col);
        log.clear();
    }
    /// Opens the editor over a cell with its text selected, without a trace in the log.
    void openAt(std::int32_t row, std::int32_t col) {
        at(row, col);
        desk.press(Key::Space);
        log.clear();
        ASSERT_TRUE(desk.editor().visible) << desk.ascii();
    }
    bool open() const { return desk.editor().visible; }
    /// What the host heard since the last look.
    Lines heard() {
        Lines lines = log.lines();
        log.clear();
        return lines;
    }
    /// The same without the places of mouse events.
    Lines heardWithoutPlaces() {
        Lines lines = heard();
        for (auto& entry : lines)
            if (nameOf(entry) == "MouseDown" || nameOf(entry) == "MouseMove") entry = nameOf(entry);
        return lines;
    }

    DeskType desk;
    kxGrid& grid = desk.place();
    HostLog log;
};

using ClerkTest = ClerkAt<headless::Desk>;

}  // namespace kxVsGrid::testing

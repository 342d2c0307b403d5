// A clerk and a host who do what comes to their minds, on a small grid. Writes that nobody else hears of are told
// to the history and the log in a way of their own: half of the grids have a host who hears of each.
#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <iostream>
#include <numeric>
#include <string>
#include <utility>
#include <vector>

#include "kit/Random.h"
#include "kxVsGrid/headless/Desk.h"
#include "kxVsGrid/kxGrid.h"

namespace kxVsGrid::testing {

class RandomClerk : public ::testing::TestWithParam<bool> {
  protected:
    static constexpr std::int32_t Number = 2, Defaulted = 4, Toggled = 5;

    RandomClerk() {
        if (GetParam()) grid.CellChanged.connect([](auto...) {});
        grid.Cols(6);
        column(Number).iType(flexDTDouble);
        column(Number).b是否合计数据(true);
        column(Defaulted).sDefaultText_Name("default");
        column(Defaulted).sDefaultText_Code("code");
        column(Toggled).iType(flexDTBoolean);
        grid.AddVsRow.connect([this](std::int32_t, bool& consent) { consent = adds; });
        grid.DeleteVsRow.connect([](std::int32_t, bool& consent) { consent = true; });
        grid.AfterAddRow.connect([this](bool& keep, auto...) { keep = dice.oneIn(2); });
        grid.AfterEdit.connect([this](std::int32_t row, std::int32_t) {
            if (dice.oneIn(3)) grid.SetCell(row, 3, anyText(), anyText());
        });
        grid.SumRow(true);
        grid.ReDraw(true);
        vs().NumberRows();
        desk.focusGrid();
    }

    void TearDown() override {
        if (HasFailure()) std::cout << desk.ascii();
    }

    cVsControl& column(std::int32_t col) { return *grid.VsCtrl(static_cast<std::int16_t>(col)); }
    CellGrid& vs() { return grid.Grid(); }
    std::int32_t roll(std::int32_t from, std::int32_t to) {
        return static_cast<std::int32_t>(dice.between(from, to));
    }
    std::int32_t anyRow() { return roll(1, vs().Rows() - 1); }
    std::int32_t anyCol() { return roll(1, 5); }
    std::string anyText() {
        switch (roll(0, 4)) {
            case 0:
                return "";
            case 1:
                return "a text that is longer than a slot";
            default:
                return std::to_string(roll(1, 300));
        }
    }

    void type() {
        vs().Select(anyRow(), anyCol());
        if (vs().Col() == Toggled) return static_cast<void>(desk.type(" "));
        const bool wrong = dice.oneIn(5);
        desk.type(wrong ? "19x5" : std::to_string(roll(1, 300)));
        desk.press(dice.oneIn(6) ? Key::Escape : Key::Enter);
        if (desk.editor().visible) desk.press(Key::Escape);
    }
    void rowKey() {
        adds = true;
        desk.press(vs().Rows() < 12 && dice.oneIn(2) ? Key::Insert : Key::Delete);
        adds = false;
    }
    void choose() {
        static const std::vector<std::string> Items{"新增行", "复制行", "插入行", "复制插入行"};
        vs().Select(anyRow(), roll(1, 4));
        const bool fills = vs().Rows() >= 12 || dice.oneIn(3);
        const std::string item = Items[static_cast<std::size_t>(roll(0, 3))];
        desk.onPopup([&](headless::PoppedMenu& menu) {
            if (!fills) return menu.choose(item);
            menu.choose("填充列", vs().Col() == Number ? "序列方式填充" : "复制单元格");
        });
        adds = true;
        desk.press(Key::Menu);
        adds = false;
    }
    void write() {
        if (dice.oneIn(2)) grid.ReadSum(Number);  // then the total row waits for no write either
        switch (roll(0, 9)) {
            case 9:
                return reorder();
            case 0:
                if (vs().Rows() < 12) vs().InsertRow(anyRow());
                return;
            case 1:
                if (vs().Rows() > 6) vs().RemoveRow(anyRow());
                return;
            case 2:
                return grid.Rows(roll(6, 10));
            case 3:
                return vs().ClearText(anyRow(), vs().Rows() - 1);
            default:
                return grid.SetCell(anyRow(), anyCol(), anyText(), anyText());
        }
    }

    void reorder() {
        const std::int32_t first = anyRow();
        const std::int32_t count = roll(1, vs().Rows() - first);
        if (dice.oneIn(2)) return vs().MoveRows(first, count, roll(1, vs().Rows() - count));
        std::vector<std::int32_t> from(static_cast<std::size_t>(count));
        std::iota(from.begin(), from.end(), first);
        for (std::size_t i = from.size(); i > 1; --i)
            std::swap(from[i - 1], from[static_cast<std::size_t>(roll(0, static_cast<std::int32_t>(i) - 1))]);
        vs().Reorder(first, from);
    }

    headless::Desk desk;
    kxGrid& grid = desk.place();
    kit::Random dice;
    bool adds = false;  ///< the host consents to another row
};
}  // namespace kxVsGrid::testing

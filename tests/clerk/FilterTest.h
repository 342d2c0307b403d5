// A clerk at a grid of orders of which he has only some shown: a text column, a column of numbers that are added up,
// and a column of ticks, all of which may be filtered.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "kxVsGrid/headless/Desk.h"
#include "kxVsGrid/kxVsGrid.h"

namespace kxVsGrid::testing {

class FilteredGrid : public ::testing::Test {
  protected:
    using Texts = std::vector<std::string>;
    using Places = std::vector<std::int32_t>;
    enum Column : std::int32_t { City = 1, Quantity, Paid };
    static constexpr std::int32_t DataRows = 8;

    FilteredGrid() {
        grid.Cols(4);
        grid.FormatString("行号|城市    |数量    |已付    ");
        grid.VsCtrl(Quantity)->iType(flexDTDouble);
        grid.VsCtrl(Quantity)->b是否合计数据(true);
        grid.VsCtrl(Paid)->iType(flexDTBoolean);
        for (const Column col : {City, Quantity, Paid}) {
            grid.VsCtrl(static_cast<std::int16_t>(col))->bIsEditable(true);
            grid.Options(col).filterable(true);
        }
        grid.SumRow(true);
        grid.Rows(DataRows + 1);
        grid.ReDraw(true);
        const Texts cities{"北京", "上海", "北京", "广州", "上海", "北京", "", "广州"};
        for (std::int32_t i = 0; i < DataRows; ++i) {
            grid.SetCell(i + 1, City, cities[static_cast<std::size_t>(i)]);
            grid.SetCell(i + 1, Quantity, std::to_string(i + 1));
        }
        grid.AddVsRow.connect([](std::int32_t, bool& consent) { consent = true; });
        grid.DeleteVsRow.connect([](std::int32_t, bool& consent) { consent = true; });
        grid.History().Forget();
        desk.focusGrid();
        cells.Select(1, City);
    }

    bool show(const Texts& texts, Column col = City) { return grid.Filters().Show(col, texts); }
    Places shownRows() const {
        Places rows;
        for (std::int32_t row = grid.FixedRows(); row < grid.Rows(); ++row)
            if (cells.RowShown(row)) rows.push_back(row);
        return rows;
    }
    std::string text(std::int32_t row, Column col = City) const { return cells.Text(row, col); }
    void at(std::int32_t row, Column col = City) { cells.Select(row, col); }
    bool open() const { return desk.editor().visible; }
    std::string lastTip() const { return desk.tips().empty() ? std::string() : desk.tips().back(); }
    static std::string passedOver(int rows) {
        return "有 " + std::to_string(rows) + " 行被筛选隐藏，未处理。";
    }

    headless::Desk desk;
    kxGrid& grid = desk.place();
    CellGrid& cells = grid.Grid();
};
}  // namespace kxVsGrid::testing

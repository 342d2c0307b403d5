// A clerk at a grid of named columns: a row number, four columns of data, and some lines.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "kit/HostLog.h"
#include "kxVsGrid/headless/Desk.h"
#include "kxVsGrid/kxVsGrid.h"

namespace kxVsGrid::testing {

class ColumnTest : public ::testing::Test {
  protected:
    enum Column : std::int32_t { Number, Code, Name, Quantity, Remark, Count };
    using Cols = std::vector<std::int32_t>;

    ColumnTest() {
        grid.Cols(Count);
        grid.FormatString("行号|货号    |品名        |>数量    |备注    ");
        grid.VsCtrl(Quantity)->iType(flexDTDouble);
        for (const Column col : {Code, Name, Quantity, Remark}) {
            grid.VsCtrl(static_cast<std::int16_t>(col))->bIsEditable(true);
            grid.Options(col).sortable(col != Remark);
        }
        grid.ReDraw(true);
        for (const int row : {1, 2, 3}) {
            grid.SetCell(row, Code, "A00" + std::to_string(4 - row));
            grid.SetCell(row, Name, "货 " + std::to_string(row));
            grid.SetCell(row, Quantity, std::to_string(row * 10));
        }
        grid.History().Forget();
        grid.Unmodified();
        desk.focusGrid();
        grid.Layout().Changed.connect([this] { ++changes; });
    }
    void at(std::int32_t row, std::int32_t col) { grid.Grid().Select(row, col); }
    bool isAt(std::int32_t row, std::int32_t col) const { return grid.Row() == row && grid.Col() == col; }
    Cols hidden() const {
        Cols cols;
        for (std::int32_t col = 0; col < grid.Cols(); ++col)
            if (grid.ColHidden(col)) cols.push_back(col);
        return cols;
    }
    /// The same columns are hidden in the total row, which is as wide.
    void expectTotalsFollow() const {
        for (std::int32_t col = 0; col < grid.Cols(); ++col) {
            EXPECT_EQ(grid.Grid_Sum().ColHidden(col), grid.ColHidden(col)) << col;
            EXPECT_EQ(grid.Grid_Sum().ColWidth(col), grid.ColWidth(col)) << col;
        }
    }
    std::string text(std::int32_t row, std::int32_t col) const { return grid.Grid().Text(row, col); }
    /// What is typed into the code column from now on is refused.
    void refuseCodes() {
        grid.VsCtrl(Code)->i有效性判断(1);
        grid.VsCtrl(Code)->i字段有效性判断类型(ij编码型);
    }

    headless::Desk desk;
    kxGrid& grid = desk.place();
    int changes = 0;
};
}  // namespace kxVsGrid::testing

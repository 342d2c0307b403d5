// A host that keeps its records on the grid by hand, as little of it as compiles: the one that a host with a sheet is
// compared with.
#include <cstdint>
#include <string>
#include <vector>

#include "kxVsGrid/kxGrid.h"

struct Line {
    std::int64_t id = 0;
    std::string code, name;
    double quantity = 0, price = 0, amount = 0;
};

void describe(kxVsGrid::kxGrid& grid) {
    grid.Cols(6);
    grid.FormatString("行号|<货号|<品名|>数量|>单价|>金额");
    for (const std::int16_t col : {3, 4, 5}) {
        grid.VsCtrl(col)->iType(kxVsGrid::flexDTDouble);
        grid.ColFormat(col, "#,##0.00");
    }
    grid.VsCtrl(5)->b是否合计数据(true);
    grid.SumRow(true);
    grid.AddVsRow.connect([](std::int32_t, bool& consent) { consent = true; });
    grid.ReDraw(true);
}

void load(kxVsGrid::kxGrid& grid, const std::vector<Line>& lines) {
    std::int32_t row = grid.FixedRows();
    for (const Line& line : lines) {
        grid.SetCell(row, 1, line.code);
        grid.SetCell(row, 2, line.name);
        grid.SetCell(row, 3, std::to_string(line.quantity));
        grid.SetCell(row, 4, std::to_string(line.price));
        grid.SetCell(row++, 5, std::to_string(line.amount));
    }
}

// A program of a user without a window: a grid on a desk, with a total row.
#include <iostream>

#include "kxVsGrid/kxVsGrid.h"

int main() {
    kxVsGrid::headless::Desk desk;
    kxVsGrid::kxGrid& grid = desk.place();
    grid.FormatString("行号|货号|>数量");
    grid.VsCtrl(2)->b是否合计数据(true);
    grid.SumRow(true);
    grid.ReDraw(true);
    grid.SetCell(1, 2, "12.5", "");
    grid.SetCell(2, 2, "30", "");
    if (grid.ReadSum(2) != "42.5") {
        std::cerr << "the total is " << grid.ReadSum(2) << "\n" << desk.ascii();
        return 1;
    }
    return 0;
}

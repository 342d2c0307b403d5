// A listener that destroys the grid: what was going on ends there, and nobody else is told.
#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <ostream>
#include <string>

#include "MoveLog.h"
#include "kit/Life.h"
#include "kxVsGrid/CellGrid.h"

namespace kxVsGrid {
namespace {

using kit::to;
using End = kit::End<CellGrid, CellGrid>;

void select(CellGrid& grid) {
    grid.Select(60, 4);
}
void click(CellGrid& grid) {
    grid.mouseDown(LeftButton, 0, 2500, 700);
}

const End Ends[] = {
    {"BeforeRowColChange", to(&CellGrid::BeforeRowColChange), select},
    {"LeaveCell", to(&CellGrid::LeaveCell), select},
    {"EnterCell", to(&CellGrid::EnterCell), select},
    {"RowColChange", to(&CellGrid::RowColChange), select},
    {"AfterRowColChange", to(&CellGrid::AfterRowColChange), select},
    {"SelChange", to(&CellGrid::SelChange), select},
    {"RowByKey", to(&CellGrid::EnterCell), [](CellGrid& g) { g.keyDown(40, 0); }},
    {"PageByKey", to(&CellGrid::SelChange), [](CellGrid& g) { g.keyDown(34, 0); }},
    {"RowByPress", to(&CellGrid::RowColChange), click},
    {"RowByRow", to(&CellGrid::SelChange), [](CellGrid& g) { g.Row(5); }},
    {"ColByCol", to(&CellGrid::LeaveCell), [](CellGrid& g) { g.Col(5); }},
    {"ForcedMove", to(&CellGrid::EnterCell), [](CellGrid& g) { g.Rows(20); },
     [](CellGrid& g) { g.Select(100, 1); }},
    {"AfterScrollByLoss", to(&CellGrid::AfterScroll), [](CellGrid& g) { g.Rows(20); },
     [](CellGrid& g) { g.ScrollTo(80, 1); }},
    {"CellChangedByText", to(&CellGrid::CellChanged), [](CellGrid& g) { g.Text(1, 1, "x"); }},
    {"CellChangedByData", to(&CellGrid::CellChanged), [](CellGrid& g) { g.Data(1, 1, "x"); }},
    {"CellChangedByTheTagOfACell", to(&CellGrid::CellChanged), [](CellGrid& g) { g.Cell(1, 1, "x", "y"); }},
    {"CellChangedByTheTextOfACell", to(&CellGrid::CellChanged), [](CellGrid& g) { g.Cell(1, 1, "x", ""); }},
    {"CellChangedByCaption", to(&CellGrid::CellChanged), [](CellGrid& g) { g.FormatString("a|b|c;|x|y"); }},
    {"SizeChangedByRows", to(&CellGrid::SizeChanged), [](CellGrid& g) { g.Rows(5); }},
    {"SizeChangedByCols", to(&CellGrid::SizeChanged), [](CellGrid& g) { g.Cols(12); }},
    {"SizeChangedByFormat", to(&CellGrid::SizeChanged),
     [](CellGrid& g) { g.FormatString("a|b|c|d|e|f|g|h|i|j|k|l"); }},
    {"RowMovedIn", to(&CellGrid::RowMoved), [](CellGrid& g) { g.InsertRow(3); }},
    {"RowMovedOut", to(&CellGrid::RowMoved), [](CellGrid& g) { g.RemoveRow(3); }},
    {"RowsReordered", to(&CellGrid::RowsReordered), [](CellGrid& g) { g.MoveRows(3, 2, 5); }},
    {"KeyDown", to(&CellGrid::KeyDown), [](CellGrid& g) { g.keyDown(40, 0); }},
    {"KeyPress", to(&CellGrid::KeyPress), [](CellGrid& g) { g.keyPress(65); }},
    {"MouseDown", to(&CellGrid::MouseDown), click},
    {"MouseMove", to(&CellGrid::MouseMove), [](CellGrid& g) { g.mouseMove(0, 0, 10, 10); }},
    {"MouseUp", to(&CellGrid::MouseUp),
     [](CellGrid& g) {
         g.mouseDown(LeftButton, 0, 1500, 400);
         g.mouseUp(LeftButton, 0, 1500, 400);
     }},
    {"Click", to(&CellGrid::Click),
     [](CellGrid& g) {
         g.mouseDown(LeftButton, 0, 1500, 400);
         g.mouseUp(LeftButton, 0, 1500, 400);
     }},
    {"DblClick", to(&CellGrid::DblClick), [](CellGrid& g) { g.doubleClick(LeftButton, 0, 1500, 400); }},
    {"AfterScrollByTopRow", to(&CellGrid::AfterScroll), [](CellGrid& g) { g.TopRow(9); }},
    {"AfterScrollByWheel", to(&CellGrid::AfterScroll), [](CellGrid& g) { g.wheel(3); }},
    {"AfterScrollByTwips", to(&CellGrid::AfterScroll), [](CellGrid& g) { g.ScrollBy(0, 500); }},
    {"OffsetChanged", to(&CellGrid::OffsetChanged), [](CellGrid& g) { g.ScrollBy(0, 50); }},
    {"OffsetChangedBack", to(&CellGrid::OffsetChanged), [](CellGrid& g) { g.ScrollBack(); },
     [](CellGrid& g) { g.ScrollBy(0, 50); }},
    {"AfterScrollByKey", to(&CellGrid::AfterScroll), [](CellGrid& g) { g.keyDown(34, 0); }},
    {"AfterScrollByFixedRows", to(&CellGrid::AfterScroll), [](CellGrid& g) { g.FixedRows(2); }},
    {"AfterScrollByFixedCols", to(&CellGrid::AfterScroll), [](CellGrid& g) { g.FixedCols(2); }},
    {"BeforeUserResize", to(&CellGrid::BeforeUserResize), [](CellGrid& g) { g.userColWidth(2, 1500); }},
    {"BeforeUserResizeByDrag", to(&CellGrid::BeforeUserResize),
     [](CellGrid& g) { g.mouseDown(LeftButton, 0, 1990, 100); }},
    {"EdgeDblClick", to(&CellGrid::EdgeDblClick),
     [](CellGrid& g) { g.doubleClick(LeftButton, 0, 1990, 100); }},
    {"AfterUserResize", to(&CellGrid::AfterUserResize), [](CellGrid& g) { g.userColWidth(2, 1500); }},
    {"AfterUserResizeByDrag", to(&CellGrid::AfterUserResize),
     [](CellGrid& g) {
         g.mouseDown(LeftButton, 0, 1990, 100);
         g.mouseMove(LeftButton, 0, 2190, 100);
         g.mouseUp(LeftButton, 0, 2190, 100);
     }},
};

class GridThatGoes : public ::testing::TestWithParam<End> {};

TEST_P(GridThatGoes, TellsNobodyElse) {
    auto owner = std::make_unique<CellGrid>();
    CellGrid& grid = *owner;
    grid.Rows(101);
    grid.Resize(5300, 3255);
    GetParam().prepare(grid);
    int later = 0;
    test::MoveLog log(grid);
    GetParam().listen(grid, [&] {
        log.take();
        owner.reset();
    });
    GetParam().listen(grid, [&] { ++later; });
    GetParam().act(grid);
    EXPECT_EQ(owner, nullptr);
    EXPECT_EQ(later, 0);
    EXPECT_EQ(log.take(), std::vector<std::string>{});
}

INSTANTIATE_TEST_SUITE_P(In, GridThatGoes, ::testing::ValuesIn(Ends),
                         [](const auto& tested) { return std::string(tested.param.name); });
}  // namespace
}  // namespace kxVsGrid

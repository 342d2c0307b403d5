// The columns of random views, compared with a walk over all of them.
#include <gtest/gtest.h>

#include <string>

#include "TwinLane.h"
#include "kit/Dice.h"

namespace kxVsGrid {
namespace {

class RandomView {
  public:
    RandomView() {
        grid.Rows(3);
        grid.Resize(5300, 3000);
    }

    void change() {
        const std::int32_t col = grid.Cols() == 0 ? -1 : dice.between(0, grid.Cols() - 1);
        switch (dice.between(0, 9)) {
            case 0:
                if (col >= 0) grid.ColWidth(col, 50 * dice.between(0, 50));
                break;
            case 1:
                if (col >= 0) grid.ColHidden(col, dice.oneIn(2));
                break;
            case 2:
                grid.FixedCols(dice.between(0, std::min(2, grid.Cols())));
                break;
            case 3:
                grid.FrozenCols(dice.between(0, 6));
                break;
            case 4:
                grid.Cols(dice.oneIn(9) ? 0 : std::max(grid.FixedCols(), dice.between(1, 14)));
                break;
            case 5:
                grid.Resize(dice.between(0, 9000), 3000);
                break;
            case 6:
                grid.ScrollBars(!dice.oneIn(4));
                break;
            case 7:
                grid.Rows(dice.oneIn(2) ? 3 : 20);  // a bar comes or goes
                break;
            default:
                scroll();
        }
        twin.settle(grid);
    }

    void scroll() {
        if (dice.oneIn(3)) {
            const std::int32_t by = dice.between(-1500, 1500);
            grid.ScrollBy(by, 0);
            return twin.moveBy(by, grid.ScrollBars());
        }
        if (dice.oneIn(3) && grid.Cols() > 0) {
            const std::int32_t col = dice.between(0, grid.Cols() - 1);
            grid.BringColIntoView(col, grid.ClientWidth());
            return twin.show(col, grid.ScrollBars());
        }
        const std::int32_t to = dice.between(-1, 15);
        grid.LeftCol(to);
        twin.scrollTo(to, grid.ScrollBars());
    }

    void compare() {
        ASSERT_EQ(grid.StillCols(), twin.still);
        ASSERT_EQ(grid.StillWidth(), twin.sum(0, twin.still));
        ASSERT_EQ(grid.FixedWidth(), twin.sum(0, twin.fixed));
        ASSERT_EQ(twin.sum(0, grid.LeftCol()), twin.sum(0, twin.first));
        ASSERT_EQ(grid.LeftOffset(), twin.offset);
        twin.first = grid.LeftCol();  // the same as the twin's while what lies between them is hidden
        compareFirst("MaxLeftCol", grid.MaxLeftCol(), twin.last(grid.ScrollBars()));
        for (std::int32_t col = 0; col < grid.Cols(); ++col) {
            ASSERT_EQ(grid.CellRect(1, col).left, twin.place(col)) << col;
            ASSERT_EQ(grid.ColIsVisible(col), twin.isVisible(col)) << col;
            if (twin.extent(col) > 0)
                compareFirst("LeftColToShow", grid.LeftColToShow(col, grid.ClientWidth()),
                             twin.firstToShow(col, grid.ScrollBars()));
        }
        for (int i = 0; i < 20; ++i) {
            const std::int32_t x = dice.between(0, 9000);
            const GridHit hit = grid.HitTest(x, 400);
            ASSERT_EQ(hit.col, x < grid.ClientWidth() ? twin.at(x) : -1) << "x " << x;
            ASSERT_EQ(hit.part == GridHit::Part::Cell, hit.col >= grid.FixedCols() && hit.col >= 0);
        }
    }

    /// Among hidden ones either may begin: what is seen is the same.
    void compareFirst(const char* what, std::int32_t ours, std::int32_t theirs) const {
        ASSERT_EQ(twin.sum(0, ours), twin.sum(0, theirs)) << what << " " << ours << ", " << theirs;
    }

    kit::Dice dice;
    CellGrid grid;
    test::TwinLane twin;
};

TEST(ColumnsOfAView, AgreeWithAWalkOverAllColumnsOfWhichSomeAreFrozen) {
    for (int round = 0; round < 60 && !testing::Test::HasFatalFailure(); ++round) {
        RandomView view;
        view.twin.settle(view.grid);
        for (int step = 0; step < 60 && !testing::Test::HasFatalFailure(); ++step) {
            SCOPED_TRACE("round " + std::to_string(round) + ", step " + std::to_string(step));
            view.change();
            view.compare();
        }
    }
}
}  // namespace
}  // namespace kxVsGrid

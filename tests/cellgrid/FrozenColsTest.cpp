// Columns that do not scroll and are data all the same.
#include <gtest/gtest.h>

#include "kit/PrintTo.h"
#include "kxVsGrid/CellGrid.h"

namespace kxVsGrid {
namespace {

/// 10 columns of 1000 in a view of five, the first one fixed; 101 rows of 300.
class Frozen : public ::testing::Test {
  protected:
    Frozen() {
        grid.Rows(101);
        grid.Resize(5300, 3255);
        grid.SelectsRanges(true);
        grid.AfterScroll.connect([this](int, int left, int, int newLeft) {
            scrolls.push_back(std::to_string(left) + " -> " + std::to_string(newLeft));
        });
    }
    void press(std::int32_t x, std::int32_t y, std::int16_t shift = 0) {
        grid.mouseDown(LeftButton, shift, x, y);
    }
    void drag(std::int32_t x, std::int32_t y) { grid.mouseMove(LeftButton, 0, x, y); }
    void release(std::int32_t x, std::int32_t y) { grid.mouseUp(LeftButton, 0, x, y); }
    void expectPart(std::int32_t x, std::int32_t y, GridHit::Part part, std::int32_t col) const {
        EXPECT_EQ(grid.HitTest(x, y).part, part) << x;
        EXPECT_EQ(grid.HitTest(x, y).col, col) << x;
    }
    void expectDamage(const std::vector<Rect>& rects) {
        const CellGrid::Damage damage = grid.takeDamage();
        EXPECT_FALSE(damage.all);
        EXPECT_EQ(damage.rects, rects);
    }
    using Lines = std::vector<std::string>;

    CellGrid grid;
    Lines scrolls;
};

TEST_F(Frozen, ColumnsStayWhereTheyAreWhileTheOthersScroll) {
    grid.FrozenCols(2);
    EXPECT_EQ(grid.StillCols(), 3);
    EXPECT_EQ(grid.StillWidth(), 3000);
    EXPECT_EQ(grid.FixedWidth(), 1000);
    EXPECT_EQ(grid.LeftCol(), 3);
    EXPECT_EQ(grid.MaxLeftCol(), 8);
    grid.LeftCol(1000);
    EXPECT_EQ(grid.LeftCol(), 8);
    EXPECT_EQ(grid.CellRect(1, 2), (Rect{2000, 300, 1000, 300}));
    EXPECT_EQ(grid.CellRect(1, 9), (Rect{4000, 300, 1000, 300}));
    EXPECT_TRUE(grid.ColIsVisible(1));
    EXPECT_TRUE(grid.ColIsVisible(2));
    EXPECT_FALSE(grid.ColIsVisible(3));
    EXPECT_TRUE(grid.ColIsVisible(8));
    grid.LeftCol(0);
    EXPECT_EQ(grid.LeftCol(), 3);
    EXPECT_EQ(scrolls, (Lines{"1 -> 3", "3 -> 8", "8 -> 3"}));
}

TEST_F(Frozen, ColumnsBeginAndCeaseToBeSoWithoutMovingAViewThatIsScrolled) {
    grid.LeftCol(5);
    grid.FrozenCols(2);
    EXPECT_EQ(grid.LeftCol(), 5);
    grid.FrozenCols(0);
    EXPECT_EQ(grid.LeftCol(), 5);
    grid.LeftCol(2);
    grid.FrozenCols(3);
    EXPECT_EQ(grid.LeftCol(), 4);
    grid.FrozenCols(0);
    EXPECT_EQ(grid.LeftCol(), 1);  // a view at its start stays there
}

TEST_F(Frozen, CellsAreCellsUnderThePointerAndHeadersAreNot) {
    grid.FrozenCols(2);
    grid.LeftCol(6);
    using enum GridHit::Part;
    expectPart(500, 400, FixedCell, 0);
    expectPart(1500, 400, Cell, 1);
    expectPart(2999, 400, Cell, 2);
    expectPart(3000, 400, Cell, 6);
    expectPart(1500, 100, FixedCell, 1);
}

TEST_F(Frozen, ColumnsAreGrabbedByTheirEdges) {
    grid.FrozenCols(2);
    grid.LeftCol(6);
    using enum GridHit::Part;
    expectPart(1950, 100, ColumnEdge, 1);
    expectPart(2950, 100, ColumnEdge, 2);
    expectPart(3050, 100, ColumnEdge, 2);  // of what stands there, and not of a column that is scrolled away
    expectPart(3950, 100, ColumnEdge, 6);
    press(2990, 100);
    drag(2490, 100);
    EXPECT_EQ(grid.ColWidth(2), 500);
    EXPECT_EQ(grid.StillWidth(), 2500);
}

TEST_F(Frozen, AColumnThatIsDraggedTooWideToStandStillGoesOnFromItsPlace) {
    grid.FrozenCols(2);
    grid.LeftCol(6);
    press(2990, 100);
    drag(4490, 100);
    EXPECT_EQ(grid.ColWidth(2), 2500);
    EXPECT_EQ(grid.StillCols(), 2);
    drag(4590, 100);
    EXPECT_EQ(grid.ColWidth(2), 2600);
    drag(3490, 100);
    EXPECT_EQ(grid.ColWidth(2), 1500);
    EXPECT_EQ(grid.StillCols(), 3);
    release(3490, 100);
}

TEST_F(Frozen, ColumnsAreInViewAlready) {
    grid.FrozenCols(2);
    grid.LeftCol(6);
    for (const std::int32_t col : {0, 1, 2}) EXPECT_EQ(grid.LeftColToShow(col, 5000), 6) << col;
    EXPECT_EQ(grid.LeftColToShow(3, 5000), 3);
    EXPECT_EQ(grid.LeftColToShow(7, 5000), 6);
    EXPECT_EQ(grid.LeftColToShow(9, 5000), 8);
}

TEST_F(Frozen, ColumnsAreReachedByKeysAsTheOthersAre) {
    grid.FrozenCols(2);
    grid.Select(5, 8);
    grid.LeftCol(7);
    grid.keyDown(static_cast<std::int16_t>(Key::Home), 0);
    EXPECT_EQ(grid.Col(), 1);
    EXPECT_EQ(grid.LeftCol(), 7);
    grid.keyDown(static_cast<std::int16_t>(Key::Right), 0);
    EXPECT_EQ(grid.Col(), 2);
    EXPECT_EQ(grid.LeftCol(), 7);
    grid.keyDown(static_cast<std::int16_t>(Key::Right), 0);
    EXPECT_EQ(grid.Col(), 3);
    EXPECT_EQ(grid.LeftCol(), 3);
    grid.keyDown(static_cast<std::int16_t>(Key::End), 0);
    EXPECT_EQ(grid.Col(), 9);
    EXPECT_EQ(grid.LeftCol(), 8);
    grid.keyDown(static_cast<std::int16_t>(Key::Home), ShiftKey);
    EXPECT_EQ(grid.Selected(), (CellRange{5, 1, 5, 9}));
    EXPECT_EQ(grid.LeftCol(), 8);
    grid.keyDown(static_cast<std::int16_t>(Key::Home), CtrlKey);
    EXPECT_EQ(grid.Row(), 1);
    EXPECT_EQ(grid.Col(), 1);
    grid.keyDown(static_cast<std::int16_t>(Key::PageDown), 0);
    EXPECT_EQ(grid.Col(), 1);
    EXPECT_EQ(grid.LeftCol(), 8);
}

TEST_F(Frozen, ColumnsStayWhereAPickListScrollsSideways) {
    grid.SelectsRows(true);
    grid.FrozenCols(2);
    grid.keyDown(static_cast<std::int16_t>(Key::Right), 0);
    EXPECT_EQ(grid.LeftCol(), 4);
    grid.keyDown(static_cast<std::int16_t>(Key::Left), 0);
    grid.keyDown(static_cast<std::int16_t>(Key::Left), 0);
    EXPECT_EQ(grid.LeftCol(), 3);
}

TEST_F(Frozen, ColumnsAreSelectedByTheirHeaders) {
    grid.FrozenCols(2);
    grid.LeftCol(6);
    press(1500, 100);
    EXPECT_EQ(grid.Selected(), (CellRange{1, 1, 100, 1}));
    drag(3500, 100);
    EXPECT_EQ(grid.Selected(), (CellRange{1, 1, 100, 6}));
    drag(2500, 100);
    EXPECT_EQ(grid.Selected(), (CellRange{1, 1, 100, 2}));
    EXPECT_EQ(grid.LeftCol(), 6);
    release(2500, 100);
    press(500, 100);
    EXPECT_EQ(grid.SelectedAs(), SelectionKind::All);
}

TEST_F(Frozen, ColumnsAreTakenByADragThatBeganThere) {
    grid.FrozenCols(2);
    grid.LeftCol(6);
    press(2500, 700);
    EXPECT_EQ(grid.Col(), 2);
    drag(1500, 700);
    EXPECT_EQ(grid.Selected(), (CellRange{2, 1, 2, 2}));
    drag(500, 700);
    EXPECT_EQ(grid.Selected(), (CellRange{2, 1, 2, 2}));
    EXPECT_FALSE(grid.DragScrolls());
    drag(3500, 700);
    EXPECT_EQ(grid.Selected(), (CellRange{2, 2, 2, 6}));
    drag(5100, 700);
    EXPECT_EQ(grid.ColSel(), 8);
    EXPECT_EQ(grid.LeftCol(), 7);
    drag(1500, 700);
    EXPECT_EQ(grid.Selected(), (CellRange{2, 1, 2, 2}));
    EXPECT_EQ(grid.LeftCol(), 7);
}

TEST_F(Frozen, ColumnsAreReachedThroughWhatIsScrolledAwayByADragFromBeyondThem) {
    grid.FrozenCols(2);
    grid.LeftCol(5);
    press(3500, 700);
    EXPECT_EQ(grid.Col(), 5);
    drag(2500, 700);
    EXPECT_EQ(grid.ColSel(), 4);
    EXPECT_EQ(grid.LeftCol(), 4);
    EXPECT_TRUE(grid.DragScrolls());
    drag(2500, 700);
    EXPECT_EQ(grid.ColSel(), 3);
    EXPECT_EQ(grid.LeftCol(), 3);
    drag(2500, 700);
    EXPECT_EQ(grid.ColSel(), 2);
    EXPECT_FALSE(grid.DragScrolls());
    drag(500, 700);
    EXPECT_EQ(grid.Selected(), (CellRange{2, 1, 2, 5}));
}

TEST_F(Frozen, ColumnsAreNoReasonToGoBackWhereRowsAreSelected) {
    grid.FrozenCols(2);
    grid.LeftCol(5);
    press(500, 700);
    drag(2500, 1300);
    EXPECT_EQ(grid.Selected(), (CellRange{2, 1, 4, 9}));
    EXPECT_EQ(grid.LeftCol(), 5);
}

TEST_F(Frozen, CellsAreDamagedWhereTheyStand) {
    grid.FrozenCols(2);
    grid.LeftCol(6);
    grid.takeDamage();
    grid.Text(2, 2, "x");
    expectDamage({{2000, 600, 1000, 300}});
    grid.Text(2, 3, "scrolled away");
    expectDamage({});
    grid.Text(2, 6, "y");
    expectDamage({{3000, 600, 1000, 300}});
}

TEST_F(Frozen, CellsAreDamagedTogetherWithTheScrolledOnesBesideThem) {
    grid.FrozenCols(2);
    grid.LeftCol(6);
    grid.Select(2, 2);
    grid.takeDamage();
    grid.keyDown(static_cast<std::int16_t>(Key::Left), ShiftKey);
    expectDamage({{1000, 600, 2000, 300}, {0, 600, 1000, 300}, {1000, 0, 2000, 300}});
    grid.SelectRange(4, 2, 4, 7);
    grid.takeDamage();
    grid.Unselect();
    const CellGrid::Damage damage = grid.takeDamage();
    ASSERT_FALSE(damage.all);
    EXPECT_EQ(damage.rects.front(), (Rect{2000, 1200, 3000, 300}));
    grid.SelectRange(4, 2, 4, 4);  // up to one that is scrolled away
    EXPECT_EQ(grid.takeDamage().rects.front(), (Rect{2000, 1200, 1000, 300}));
    grid.SelectRange(4, 3, 4, 5);  // nothing of it can be seen
    const std::vector<Rect> rects = grid.takeDamage().rects;
    EXPECT_EQ(rects.front(), (Rect{2000, 1200, 1000, 300}));
}

TEST_F(Frozen, ColumnsThatAreTooWideScrollSoThatAllCanBeReached) {
    grid.FrozenCols(4);
    EXPECT_EQ(grid.StillCols(), 4);  // a fifth would leave less than 1000 of 5000
    EXPECT_EQ(grid.FrozenCols(), 4);
    grid.Resize(3600, 3255);
    EXPECT_EQ(grid.StillCols(), 2);
    EXPECT_EQ(grid.LeftCol(), 2);
    grid.LeftCol(100);
    EXPECT_TRUE(grid.ColIsVisible(9));
    grid.Resize(1000, 3255);
    EXPECT_EQ(grid.StillCols(), 1);
    grid.LeftCol(0);
    grid.Resize(5300, 3255);
    EXPECT_EQ(grid.StillCols(), 4);
    EXPECT_EQ(grid.LeftCol(), 4);
    grid.Resize(6300, 3255);
    EXPECT_EQ(grid.StillCols(), 5);
}

TEST_F(Frozen, ColumnsAllStandStillWhereAllFit) {
    grid.FrozenCols(100);
    EXPECT_EQ(grid.FrozenCols(), 9);
    EXPECT_EQ(grid.StillCols(), 4);
    grid.Resize(10'300, 3255);
    EXPECT_EQ(grid.StillCols(), 10);
    EXPECT_EQ(grid.LeftCol(), 10);
    EXPECT_EQ(grid.MaxLeftCol(), 10);
    EXPECT_FALSE(grid.HorizontalBarShown());
    grid.Select(100, 9);
    grid.keyDown(static_cast<std::int16_t>(Key::Left), 0);
    EXPECT_EQ(grid.Col(), 8);
    grid.Cols(20);
    EXPECT_EQ(grid.StillCols(), 9);
    EXPECT_EQ(grid.LeftCol(), 9);
}

TEST_F(Frozen, ColumnsAreNotLimitedByTheWidthOfAGridWithoutScrollBars) {
    grid.ScrollBars(false);
    grid.FrozenCols(7);
    EXPECT_EQ(grid.StillCols(), 8);
    grid.LeftCol(9);
    EXPECT_EQ(grid.CellRect(1, 9).left, 8000);
    grid.ScrollBars(true);
    EXPECT_EQ(grid.StillCols(), 4);
}

TEST_F(Frozen, ColumnsStayThatThroughOtherNumbersOfColumns) {
    grid.FrozenCols(3);
    grid.FixedCols(2);
    EXPECT_EQ(grid.FrozenCols(), 3);
    EXPECT_EQ(grid.StillCols(), 4);
    grid.FixedCols(0);
    EXPECT_EQ(grid.StillCols(), 3);
    EXPECT_EQ(grid.LeftCol(), 3);
    grid.Cols(2);
    EXPECT_EQ(grid.FrozenCols(), 2);
    EXPECT_EQ(grid.StillCols(), 2);
    grid.Cols(0);
    EXPECT_EQ(grid.FrozenCols(), 0);
    EXPECT_EQ(grid.StillCols(), 0);
    EXPECT_EQ(grid.LeftCol(), 0);
    grid.Cols(10);
    EXPECT_EQ(grid.FrozenCols(), 3);
    EXPECT_EQ(grid.StillCols(), 3);
    EXPECT_EQ(grid.LeftCol(), 3);
    EXPECT_THROW(grid.FrozenCols(-1), GridError);
    EXPECT_EQ(grid.FrozenCols(), 3);
}

TEST_F(Frozen, HiddenColumnsCountAndTakeNoRoom) {
    grid.FrozenCols(3);
    grid.ColHidden(1, true);
    grid.ColWidth(2, 0);
    EXPECT_EQ(grid.StillCols(), 4);
    EXPECT_EQ(grid.StillWidth(), 2000);
    grid.LeftCol(6);
    EXPECT_FALSE(grid.ColIsVisible(1));
    EXPECT_FALSE(grid.ColIsVisible(2));
    EXPECT_TRUE(grid.ColIsVisible(3));
    EXPECT_EQ(grid.LeftColToShow(1, 5000), 6);
    expectPart(1000, 400, GridHit::Part::Cell, 3);
    grid.Select(4, 6);
    grid.keyDown(static_cast<std::int16_t>(Key::Home), 0);
    EXPECT_EQ(grid.Col(), 3);
    grid.ColHidden(3, true);
    EXPECT_EQ(grid.StillWidth(), 1000);
    EXPECT_EQ(grid.CellRect(1, 6).left, 1000);
}

TEST_F(Frozen, ColumnsMakeRoomForAScrollBarThatComes) {
    grid.Rows(5);
    grid.Resize(5000, 3255);
    grid.FrozenCols(3);
    EXPECT_EQ(grid.StillCols(), 4);
    for (int i = 0; i < 10; ++i) grid.InsertRow(2);
    EXPECT_TRUE(grid.VerticalBarShown());
    EXPECT_EQ(grid.StillCols(), 3);
    EXPECT_EQ(grid.LeftCol(), 3);
    EXPECT_EQ(scrolls.back(), "4 -> 3");
}

TEST_F(Frozen, ColumnsTellOfChangedPlacesOnceTheyAreFrozen) {
    int places = 0;
    grid.PlacesChanged.connect([&] { ++places; });
    grid.FrozenCols(2);
    EXPECT_EQ(places, 1);
    grid.FrozenCols(2);
    EXPECT_EQ(places, 1);
}
}  // namespace
}  // namespace kxVsGrid

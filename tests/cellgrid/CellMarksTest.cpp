// Marks on cells: they go where their rows go, and can be found one after the other.
#include <gtest/gtest.h>

#include <ostream>

#include "kxVsGrid/CellGrid.h"

namespace kxVsGrid {
void PrintTo(const MarkedCell& cell, std::ostream* out) {
    *out << '(' << cell.row << ", " << cell.col << ')';
}

namespace {

using MarkKind = CellMark::Kind;
using Found = std::optional<MarkedCell>;

CellMark problem(const char* text = "坏") {
    return {MarkKind::Problem, text};
}
CellMark note(const char* text = "注") {
    return {MarkKind::Note, text};
}

class MarkedGrid : public ::testing::Test {
  protected:
    MarkedGrid() {
        grid.Rows(10);
        grid.Resize(9000, 6000);
        grid.MarksChanged.connect([this] { ++told; });
        grid.takeDamage();
    }
    std::string textOf(std::int32_t row, std::int32_t col) const {
        const CellMark* mark = grid.Mark(row, col);
        return mark ? mark->text : std::string("-");
    }

    CellGrid grid;
    int told = 0;
};

TEST_F(MarkedGrid, HasNoneAtFirst) {
    EXPECT_EQ(grid.Mark(1, 1), nullptr);
    EXPECT_EQ(grid.NextMark(1, 1), Found());
    grid.ClearMarks();
    grid.Mark(1, 1, std::nullopt);
    EXPECT_EQ(told, 0);
    EXPECT_EQ(grid.KnownId(1), RowId::None) << "a row without marks costs nothing";
}

TEST_F(MarkedGrid, KeepsKindAndText) {
    grid.Mark(2, 3, note("看"));
    ASSERT_NE(grid.Mark(2, 3), nullptr);
    EXPECT_EQ(*grid.Mark(2, 3), (CellMark{MarkKind::Note, "看"}));
    EXPECT_EQ(grid.Mark(2, 2), nullptr);
    EXPECT_EQ(grid.Mark(3, 3), nullptr);
    grid.Mark(2, 3, problem());
    EXPECT_EQ(*grid.Mark(2, 3), problem());
    grid.Mark(2, 3, std::nullopt);
    EXPECT_EQ(grid.Mark(2, 3), nullptr);
    EXPECT_EQ(told, 3);
}

TEST_F(MarkedGrid, TellsOfChangesAlone) {
    grid.Mark(2, 3, problem());
    grid.takeDamage();
    grid.Mark(2, 3, problem());
    EXPECT_EQ(told, 1);
    EXPECT_TRUE(grid.takeDamage().rects.empty());
    grid.Mark(2, 4, std::nullopt);
    EXPECT_EQ(told, 1);
}

TEST_F(MarkedGrid, KnowsItsOwnCellsAlone) {
    EXPECT_THROW(grid.Mark(10, 1, problem()), GridError);
    EXPECT_THROW(grid.Mark(1, 10, problem()), GridError);
    EXPECT_THROW(grid.Mark(-1, 1, std::nullopt), GridError);
    EXPECT_THROW(static_cast<void>(grid.Mark(1, -1)), GridError);
}

TEST_F(MarkedGrid, RepaintsTheCellAlone) {
    grid.Mark(2, 3, problem());
    CellGrid::Damage damage = grid.takeDamage();
    EXPECT_FALSE(damage.all);
    ASSERT_EQ(damage.rects.size(), 1U);
    EXPECT_EQ(damage.rects.front(), grid.CellRect(2, 3));
    grid.Mark(2, 3, std::nullopt);
    damage = grid.takeDamage();
    ASSERT_EQ(damage.rects.size(), 1U);
    EXPECT_EQ(damage.rects.front(), grid.CellRect(2, 3));
}

TEST_F(MarkedGrid, WritesNoCellWithThem) {
    struct Nobody : ChangeListener {
        void written(std::int32_t, std::int32_t, CellPart, std::string_view,
                     std::string_view) noexcept override {
            ADD_FAILURE();
        }
    } nobody;
    grid.Text(2, 3, "x");
    grid.AddListener(nobody);
    grid.CellChanged.connect([](std::int32_t, std::int32_t) { FAIL(); });
    grid.Mark(2, 3, problem());
    grid.ClearMarks();
    grid.RemoveListener(nobody);
}

TEST_F(MarkedGrid, LeavesThemWhenCellsAreWritten) {
    grid.Mark(2, 3, problem());
    grid.Text(2, 3, "x");
    grid.ClearText(1, 5);
    EXPECT_EQ(textOf(2, 3), "坏");
}

TEST_F(MarkedGrid, MovesThemWithTheirRows) {
    grid.Mark(5, 2, problem("五"));
    grid.Mark(7, 2, note("七"));
    grid.InsertRow(3);
    EXPECT_EQ(textOf(6, 2), "五");
    EXPECT_EQ(textOf(8, 2), "七");
    EXPECT_EQ(textOf(5, 2), "-");
    grid.RemoveRow(1);
    grid.RemoveRow(1);
    EXPECT_EQ(textOf(4, 2), "五");
    EXPECT_EQ(textOf(6, 2), "七");
}

TEST_F(MarkedGrid, BringsThemBackWithTheirRow) {
    grid.Mark(5, 2, problem());
    const RowId id = grid.IdOf(5);
    grid.RemoveRow(5);
    EXPECT_EQ(grid.Mark(5, 2), nullptr);
    EXPECT_EQ(grid.NextMark(0, 0), Found());
    grid.InsertRow(5);
    EXPECT_EQ(grid.Mark(5, 2), nullptr) << "another row in its place";
    grid.BringRowBack(3, id);
    EXPECT_EQ(textOf(3, 2), "坏");
    grid.RemoveRow(3);
    grid.ClearMarks();
    grid.BringRowBack(3, id);
    EXPECT_EQ(grid.Mark(3, 2), nullptr) << "taken away meanwhile";
}

TEST_F(MarkedGrid, LosesThemWithTheirColumns) {
    grid.Mark(2, 4, problem());
    grid.Mark(2, 8, problem());
    grid.Cols(6);
    grid.Cols(10);
    EXPECT_EQ(textOf(2, 4), "坏");
    EXPECT_EQ(textOf(2, 8), "-");
    grid.Rows(2);
    grid.Rows(10);
    EXPECT_EQ(textOf(2, 4), "-");
}

TEST_F(MarkedGrid, TakesAwayThoseOfAKind) {
    grid.Mark(1, 1, problem());
    grid.Mark(2, 2, note());
    grid.Mark(3, 3, CellMark{MarkKind::Warning, "慎"});
    told = 0;
    grid.ClearMarks(MarkKind::Problem);
    EXPECT_EQ(textOf(1, 1), "-");
    EXPECT_EQ(textOf(2, 2), "注");
    EXPECT_EQ(textOf(3, 3), "慎");
    grid.ClearMarks(MarkKind::Problem);
    EXPECT_EQ(told, 1);
    grid.takeDamage();
    grid.ClearMarks();
    EXPECT_EQ(told, 2);
    EXPECT_TRUE(grid.takeDamage().all);
    EXPECT_EQ(grid.NextMark(0, 0), Found());
}

TEST_F(MarkedGrid, FindsTheNextRowByRowAndRoundTheEnd) {
    for (const MarkedCell cell : {MarkedCell{4, 7}, {2, 5}, {4, 2}, {9, 1}})
        grid.Mark(cell.row, cell.col, problem());
    EXPECT_EQ(grid.NextMark(0, 0), Found({2, 5}));
    EXPECT_EQ(grid.NextMark(2, 4), Found({2, 5}));
    EXPECT_EQ(grid.NextMark(2, 5), Found({4, 2}));
    EXPECT_EQ(grid.NextMark(4, 2), Found({4, 7}));
    EXPECT_EQ(grid.NextMark(4, 7), Found({9, 1}));
    EXPECT_EQ(grid.NextMark(9, 1), Found({2, 5}));
    EXPECT_EQ(grid.NextMark(-1, -1), Found({2, 5}));
    EXPECT_EQ(grid.NextMark(99, 99), Found({2, 5}));
    grid.InsertRow(1);
    EXPECT_EQ(grid.NextMark(3, 5), Found({5, 2})) << "in the order of the rows, not of their ids";
}

TEST_F(MarkedGrid, FindsItselfWhenThereIsNoOther) {
    grid.Mark(4, 4, problem());
    EXPECT_EQ(grid.NextMark(4, 4), Found({4, 4}));
}

TEST_F(MarkedGrid, FindsThoseOfAKind) {
    grid.Mark(2, 2, note());
    grid.Mark(4, 4, problem());
    EXPECT_EQ(grid.NextMark(1, 1, MarkKind::Problem), Found({4, 4}));
    EXPECT_EQ(grid.NextMark(1, 1, MarkKind::Warning), Found());
    EXPECT_EQ(grid.NextMark(1, 1), Found({2, 2}));
}

TEST_F(MarkedGrid, FindsWhatCanBeSeen) {
    grid.Mark(0, 1, problem());
    grid.Mark(2, 0, problem());
    grid.Mark(2, 2, problem());
    grid.Mark(3, 3, problem());
    grid.Mark(4, 4, problem());
    grid.RowHidden(2, true);
    grid.ColHidden(3, true);
    EXPECT_EQ(grid.NextMark(0, 0), Found({4, 4}));
    grid.RowHeight(4, 0);
    EXPECT_EQ(grid.NextMark(0, 0), Found());
}

TEST(GridThatGoesAsItTellsOfMarks, ToldNobodyElse) {
    auto grid = std::make_unique<CellGrid>();
    CellGrid& goes = *grid;
    int later = 0;
    goes.MarksChanged.connect([&] { grid.reset(); });
    goes.MarksChanged.connect([&] { ++later; });
    goes.Mark(1, 1, problem());
    EXPECT_FALSE(grid);
    EXPECT_EQ(later, 0);
}

TEST(RowWithText, IsTheFirstDataRowThatHasIt) {
    CellGrid grid;
    grid.Rows(2000);
    grid.FixedRows(2);
    EXPECT_EQ(grid.RowWithText(3, "A"), -1);
    grid.Text(1, 3, "A");
    grid.Text(1500, 3, "A");
    grid.Text(700, 3, "A");
    grid.Text(600, 2, "A");
    grid.Data(500, 3, "A");
    EXPECT_EQ(grid.RowWithText(3, "A"), 700);
    EXPECT_EQ(grid.RowWithText(3, "A", 700), 1500);
    EXPECT_EQ(grid.RowWithText(3, "B"), -1);
    grid.Text(800, 3, "一个比较长的文本，不在格子里");
    EXPECT_EQ(grid.RowWithText(3, "一个比较长的文本，不在格子里"), 800);
    grid.ComputedText(650, 3, [] { return std::string("A"); });
    EXPECT_EQ(grid.RowWithText(3, "A"), 700) << "what is computed is not stored";
    EXPECT_THROW(static_cast<void>(grid.RowWithText(99, "A")), GridError);
}
}  // namespace
}  // namespace kxVsGrid

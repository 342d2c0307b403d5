// Host code changes rows and columns while a text is being typed: the text is committed first, a refused one
// stays for as long as there is its cell.
#include <functional>
#include <stdexcept>
#include <string>
#include <vector>

#include "kit/PlacedGrid.h"
#include "kxVsGrid/MemoryBag.h"

namespace kxVsGrid::testing {
namespace {

struct Put {
    std::string name;
    std::function<void(kxGrid&)> put;
};

class OpenText : public PlacedGrid {
  protected:
    OpenText() { grid.ReDraw(true); }
    const std::vector<Put> puts = {
        {"Rows", [](kxGrid& g) { g.Rows(20); }},
        {"Cols", [](kxGrid& g) { g.Cols(12); }},
        {"FixedRows", [](kxGrid& g) { g.FixedRows(3); }},
        {"FixedCols", [](kxGrid& g) { g.FixedCols(3); }},
        {"FormatString", [](kxGrid& g) { g.FormatString("行号|<货号|>数量"); }},
        {"ColHidden", [](kxGrid& g) { g.ColHidden(5, true); }},
        {"Rows by name", [](kxGrid& g) { g.Put("Rows", 21); }},
    };
};

TEST_F(OpenText, IsCommittedBeforeTheGridIsChanged) {
    for (const Put& change : puts) {
        grid.FixedRows(1);
        grid.FixedCols(1);
        typeInto(2, 2, "by " + change.name);
        change.put(grid);
        EXPECT_FALSE(desk.editor().visible) << change.name;
        EXPECT_EQ(named(heard(), "AfterEdit"), edited(2, 2)) << change.name;
        EXPECT_EQ(text(2, 2), "by " + change.name);
        EXPECT_EQ(desk.focusOwner(), FocusPlace::Grid);
    }
}

TEST_F(OpenText, ThatWasRefusedStays) {
    refusesCodes(2);
    for (const Put& change : puts) {
        grid.FixedRows(1);
        grid.FixedCols(1);
        typeInto(2, 2, "x9");
        desk.press(Key::Enter);
        desk.clear();
        change.put(grid);
        grid.Rows(grid.Rows() + 1);
        EXPECT_TRUE(desk.editor().visible) << change.name;
        EXPECT_EQ(desk.editor().text, "x9") << change.name;
        EXPECT_EQ(grid.editorView().rect, vs().CellRect(2, 2)) << change.name;
        EXPECT_TRUE(desk.messages().empty()) << change.name;
        desk.press(Key::Escape);
    }
}

TEST_F(OpenText, ThatWasRefusedGoesWithItsCell) {
    refusesCodes(2);
    grid.Rows(20);
    typeInto(15, 2, "x9");
    desk.press(Key::Enter);
    grid.Rows(10);
    EXPECT_FALSE(desk.editor().visible);
    typeInto(2, 2, "x9");
    desk.press(Key::Enter);
    grid.ColHidden(2, true);
    EXPECT_FALSE(desk.editor().visible);
}

TEST_F(OpenText, OfACommitUnderWayIsNotCommittedAgain) {
    grid.AfterEdit.connect([&](std::int32_t, std::int32_t) { grid.Rows(grid.Rows() + 1); });
    typeInto(2, 2, "typed");
    EXPECT_TRUE(grid.ValidTextData());
    EXPECT_EQ(named(heard(), "AfterEdit"), edited(2, 2));
    EXPECT_EQ(grid.Rows(), 7);
}

class ClearedByAFailingHost : public PlacedGrid {
  protected:
    ClearedByAFailingHost() {
        grid.ReDraw(true);
        grid.Rows(20);
        desk.focusGrid();
        vs().Select(15, 2);
        desk.clear();
    }
};

TEST_F(ClearedByAFailingHost, StillHasFiveRowsToTypeInto) {
    Connection failing = grid.EnterCell.connect(Boom());
    EXPECT_THROW(grid.Clear(), std::runtime_error);
    failing.disconnect();
    EXPECT_EQ(grid.Rows(), 6);
    EXPECT_EQ(text(5, 0), "5");
    desk.type("x");
    EXPECT_TRUE(desk.editor().visible);
    EXPECT_EQ(grid.Row(), 1);
}

TEST_F(ClearedByAFailingHost, TellsOfWhateverWasThrown) {
    Connection failing = grid.RowColChange.connect([] { throw 42; });
    EXPECT_THROW(grid.Rows(1), int);
    EXPECT_EQ(grid.Rows(), 6);
}

class ColumnsAfterAFailedReading : public PlacedGrid {};

TEST_F(ColumnsAfterAFailedReading, AreThoseOfBothGrids) {
    grid.Cols(5);
    grid.FixedCols(3);
    setUp();
    MemoryBag bag;
    bag.Write("Cols", 5);
    bag.Write("FixedCols", 1);
    bag.Write("BackColor", "no number");
    grid.ReadProperties(bag);
    EXPECT_EQ(desk.messages().size(), 1u);
    EXPECT_EQ(grid.FixedCols(), 1);
    EXPECT_EQ(sum().FixedCols(), 1);
    EXPECT_NO_THROW(grid.Cols(2));
    EXPECT_EQ(grid.Cols(), 2);
    EXPECT_EQ(sum().Cols(), 2);
}

TEST_F(ColumnsAfterAFailedReading, AreThoseOfBothGridsAlsoWhereOnlyTheEngineWasAsked) {
    grid.Cols(5);
    grid.FixedCols(3);
    setUp();
    vs().FixedCols(1);
    EXPECT_NO_THROW(grid.Cols(2));
    EXPECT_EQ(grid.Cols(), 2);
    EXPECT_EQ(sum().Cols(), 2);
    EXPECT_EQ(sum().FixedCols(), 1);
}

}  // namespace
}  // namespace kxVsGrid::testing

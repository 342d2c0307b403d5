// The open editor lies over its cell whatever moves the cell in the view, and ends with its column.
#include <functional>
#include <string>
#include <utility>

#include "kit/ClerkTest.h"

namespace kxVsGrid::testing {
namespace {

class EditorPlace : public ClerkTest {
  protected:
    void openWide(std::int32_t row, std::int32_t col) {
        grid.Cols(12);
        rows(40);
        openAt(row, col);
        desk.type("typed");
        log.clear();
    }
    void expectOverItsCell(const std::string& after) {
        EXPECT_TRUE(open()) << after;
        EXPECT_EQ(grid.editorView().rect, grid.Grid().CellRect(grid.Row(), grid.Col())) << after;
        EXPECT_EQ(desk.editor().text, "typed") << after;
    }
};

TEST_F(EditorPlace, FollowsEveryChangeOfPlaces) {
    openWide(8, 5);
    CellGrid& vs = grid.Grid();
    const std::pair<const char*, std::function<void()>> changes[] = {
        {"a width", [&] { vs.ColWidth(2, 300); }},
        {"its own width", [&] { vs.ColWidth(5, 2000); }},
        {"a height", [&] { vs.RowHeight(3, 900); }},
        {"its own height", [&] { vs.RowHeight(8, 500); }},
        {"the least height", [&] { vs.RowHeightMin(350); }},
        {"a hidden column", [&] { vs.ColHidden(1, true); }},
        {"a hidden row", [&] { vs.RowHidden(2, true); }},
        {"fixed columns", [&] { vs.FixedCols(2); }},
        {"fixed rows", [&] { vs.FixedRows(2); }},
        {"a width by the control", [&] { grid.ColWidth(3, 2500); }},
        {"a height by the control", [&] { grid.RowHeight(4, 700); }},
        {"a size", [&] { desk.resize(5000, 4000); }},
        {"a scroll", [&] { vs.ScrollTo(5, 3); }},
        {"a set-up", [&] { grid.ReDraw(true); }},
        {"a height of the total row", [&] { grid.SumRow(true), grid.SumRowHeight(600); }},
        {"a row", [&] { vs.InsertRow(3); }},
    };
    for (const auto& [name, change] : changes) {
        change();
        expectOverItsCell(name);
    }
    EXPECT_EQ(named(heard(), "AfterEdit"), Lines{});
}

TEST_F(EditorPlace, CommitsOverAColumnThatIsHidden) {
    const std::function<void()> hidings[] = {
        [&] { grid.ColHidden(3, true); },
        [&] { grid.Grid().ColHidden(3, true); },
        [&] { column(3).bIsVisible(false), grid.ReDraw(true); },
    };
    std::int32_t row = 1;
    for (const auto& hide : hidings) {
        openAt(++row, 3);
        desk.type("typed");
        heard();
        hide();
        EXPECT_FALSE(open());
        EXPECT_EQ(text(row, 3), "typed");
        EXPECT_EQ(named(heard(), "AfterEdit"), edited(row, 3));
        EXPECT_EQ(desk.focusOwner(), FocusPlace::Grid);
        column(3).bIsVisible(true);
        grid.Grid().ColHidden(3, false);
    }
}

TEST_F(EditorPlace, TakesARefusedTextAwayWithAHiddenColumn) {
    column(3).i有效性判断(1);
    column(3).i字段有效性判断类型(ij编码型);
    for (const bool refusedBefore : {false, true}) {
        openAt(2, 3);
        desk.type("x9");
        if (refusedBefore) desk.press(Key::Enter);
        grid.Grid().ColHidden(3, true);
        EXPECT_EQ(desk.messages().size(), 1u) << "checked once, whenever that was";
        EXPECT_FALSE(open());
        EXPECT_EQ(text(2, 3), "");
        EXPECT_EQ(desk.focusOwner(), FocusPlace::Grid);
        grid.Grid().ColHidden(3, false);
        desk.clear();
    }
}

TEST_F(EditorPlace, KeepsARefusedTextWhenAnotherColumnIsHidden) {
    typed(3, flexDTDouble);
    openAt(2, 3);
    desk.type("3*").press(Key::Enter);
    grid.ColHidden(4, true);
    EXPECT_TRUE(open());
    EXPECT_EQ(desk.editor().text, "3*");
}

TEST_F(EditorPlace, LeavesTheKeyboardToTheGridWhenCodeHidesIt) {
    rows(40);
    const std::function<void()> hidings[] = {
        [&] { grid.SetCell(4, 4, "x"); },  [&] { grid.ReadCell(1, 1); },
        [&] { grid.ValidTextData(); },     [&] { grid.Row(7); },
        [&] { grid.Grid().RemoveRow(2); }, [&] { grid.Clear(); },
    };
    for (const auto& hide : hidings) {
        openAt(2, 2);
        desk.type("a");
        ASSERT_EQ(desk.focusOwner(), FocusPlace::Editor);
        hide();
        EXPECT_FALSE(open());
        EXPECT_EQ(desk.focusOwner(), FocusPlace::Grid);
    }
}

TEST_F(EditorPlace, LeavesTheKeyboardWhereItIsWhenTheHiddenEditorDidNotHaveIt) {
    typed(2, flexDTDouble);
    openAt(2, 2);
    desk.type("3*").focusElsewhere();
    ASSERT_TRUE(open());
    grid.Row(4);
    EXPECT_FALSE(open());
    EXPECT_EQ(desk.focusOwner(), FocusPlace::Elsewhere);
}

}  // namespace
}  // namespace kxVsGrid::testing

// The hidden editor mirrors the current cell, whoever writes there; and the rule that a cell breaks can be
// asked for without going there.
#include <cstdint>
#include <string>

#include "kit/PlacedGrid.h"
#include "kxVsGrid/MemoryBag.h"

namespace kxVsGrid::testing {
namespace {

class HiddenEditor : public PlacedGrid {
  protected:
    HiddenEditor() {
        grid.ReDraw(true);
        desk.focusGrid();
        vs().Select(2, 2);
        heard();
    }
    void expectMirrors(const std::string& text, const std::string& tag) {
        EXPECT_EQ(grid.Text(), text);
        EXPECT_EQ(grid.TextTag(), tag);
    }
};

TEST_F(HiddenEditor, ShowsWhatTheHostWritesIntoTheCurrentCell) {
    grid.SetCell(2, 2, "a", "b");
    expectMirrors("a", "b");
    grid.SetCell(3, 2, "other", "cell");
    expectMirrors("a", "b");
    vs().Text(2, 2, "c");
    expectMirrors("c", "b");
    vs().Data(2, 2, "d");
    expectMirrors("c", "d");
    vs().ClearText(2, 2);
    expectMirrors("", "");
}

TEST_F(HiddenEditor, KeepsWhatTheHostPutThereUntilTheCellIsWritten) {
    grid.SetCell(2, 2, "a", "b");
    grid.Text("x");
    grid.TextTag("y");
    expectMirrors("x", "y");
    grid.SetCell(2, 2, "c", "d");
    expectMirrors("c", "d");
}

TEST_F(HiddenEditor, ShowsWhatTheCommitMadeOfTheTextAndWhatAfterEditMadeOfTheTag) {
    column(2).iType(flexDTDouble);
    grid.AfterEdit.connect([&](std::int32_t row, std::int32_t col) {
        grid.SetCell(row, col, text(row, col), "tag of " + text(row, col));
    });
    desk.type("2*3");
    EXPECT_TRUE(grid.ValidTextData());
    expectMirrors("6", "tag of 6");
    column(2).i是否允许为空(i字段不能为空);
    EXPECT_TRUE(grid.IsValid());
}

TEST_F(HiddenEditor, ShowsTheCopyOfARowThatTheHostKeeps) {
    grid.AfterAddRow.connect([](bool& keep, std::int32_t, bool, std::int32_t) { keep = true; });
    grid.SetCell(2, 2, "a", "b");
    grid.AddRow(grid.Rows(), false, true);
    EXPECT_EQ(grid.Row(), 6);
    expectMirrors("a", "b");
}

TEST_F(HiddenEditor, IsValidByWhatTheHostHasLoadedIntoTheCell) {
    column(2).sName("数量");
    column(2).i是否允许为空(i字段不能为零);
    EXPECT_FALSE(grid.IsValid());
    grid.SetCell(2, 2, "3", "3");
    EXPECT_TRUE(grid.IsValid());
    grid.SetCell(2, 2, "0", "0");
    EXPECT_FALSE(grid.IsValid());
}

TEST_F(HiddenEditor, IsAskedWithoutWritingAnything) {
    grid.SetCell(2, 2, "a", "b");
    grid.Text("x");
    grid.TextTag("y");
    heard();
    EXPECT_TRUE(grid.IsValid());
    EXPECT_EQ(heard(), Nothing);
    EXPECT_EQ(text(2, 2), "a");
    EXPECT_EQ(tag(2, 2), "b");
    EXPECT_FALSE(grid.bIsDirty());
}

class ProblemOfACell : public HiddenEditor {
  protected:
    ProblemOfACell() {
        column(2).sName("数量");
        column(2).i是否允许为空(i字段不能为零);
        column(3).sName("仓库");
        column(3).i是否允许为空(i字段不能为空);
    }
};

TEST_F(ProblemOfACell, IsTheMessageOfTheRuleThatItsTagBreaks) {
    EXPECT_EQ(grid.Problem(4, 2), "数量不能为零!");
    EXPECT_EQ(grid.Problem(4, 3), "仓库不能为空!");
    EXPECT_EQ(grid.Problem(4, 4), "");
    grid.SetCell(4, 2, "1", "0.00");
    grid.SetCell(4, 3, "主仓", "  ");
    EXPECT_EQ(grid.Problem(4, 2), "数量不能为零!");
    EXPECT_EQ(grid.Problem(4, 3), "仓库不能为空!");
    grid.SetCell(4, 2, "1", "1");
    grid.SetCell(4, 3, "主仓", "01");
    EXPECT_EQ(grid.Problem(4, 2), "");
    EXPECT_EQ(grid.Problem(4, 3), "");
}

TEST_F(ProblemOfACell, IsNoneInTheFixedAreaAndOutsideTheGrid) {
    column(0).i是否允许为空(i字段不能为空);
    EXPECT_EQ(grid.Problem(0, 2), "");
    EXPECT_EQ(grid.Problem(2, 0), "");
    for (const std::int32_t far : {-1, 1000}) {
        EXPECT_EQ(grid.Problem(far, 2), "");
        EXPECT_EQ(grid.Problem(2, far), "");
    }
}

TEST_F(ProblemOfACell, IsAskedForWithoutAnyTrace) {
    column(4).sDefaultText_Name("preset");
    typeInto(2, 3, "typed");
    EXPECT_EQ(grid.Problem(4, 2), "数量不能为零!");
    EXPECT_EQ(grid.Problem(2, 3), "仓库不能为空!");
    EXPECT_EQ(heard(), Nothing);
    EXPECT_TRUE(desk.messages().empty());
    EXPECT_TRUE(desk.editor().visible);
    EXPECT_EQ(desk.editor().text, "typed");
    EXPECT_EQ(text(4, 4), "");
    EXPECT_EQ(grid.Row(), 2);
}

}  // namespace
}  // namespace kxVsGrid::testing

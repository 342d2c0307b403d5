// The editor opens over the current cell: what it shows, where, and what has to hold before it does.
#include "kit/ClerkTest.h"

namespace kxVsGrid::testing {
namespace {

class OpeningTheEditor : public ClerkTest {
  protected:
    /// The editor lies inside the control and over the current cell.
    void expectOverTheCell() {
        const headless::SeenEditor editor = desk.editor();
        ASSERT_TRUE(editor.visible) << desk.ascii();
        EXPECT_FALSE(editor.rect.empty());
        Rect cell = grid.Grid().CellRect(grid.Row(), grid.Col());
        cell.left += grid.gridRect().left;
        cell.top += grid.gridRect().top;
        EXPECT_TRUE(editor.rect.overlaps(cell)) << desk.ascii();
        EXPECT_GE(editor.rect.left, grid.gridRect().left);
        EXPECT_GE(editor.rect.top, grid.gridRect().top);
        EXPECT_LE(editor.rect.right(), grid.gridRect().right());
        EXPECT_LE(editor.rect.bottom(), grid.gridRect().bottom());
    }
    void expectCellWhollyInView() {
        const Rect cell = grid.Grid().CellRect(grid.Row(), grid.Col());
        EXPECT_GE(cell.top, grid.Grid().FixedHeight()) << desk.ascii();
        EXPECT_LE(cell.bottom(), grid.Grid().Height()) << desk.ascii();
        EXPECT_GE(cell.left, grid.Grid().FixedWidth()) << desk.ascii();
        EXPECT_LE(cell.right(), grid.Grid().Width()) << desk.ascii();
    }
};

TEST_F(OpeningTheEditor, ShowsTextAndTagOfTheCellWithTheTextSelected) {
    fill(2, 3, "螺栓", "A001");
    at(2, 3);
    desk.press(Key::Space);
    EXPECT_EQ(heard(), opens());
    const headless::SeenEditor editor = desk.editor();
    EXPECT_TRUE(editor.visible);
    EXPECT_TRUE(editor.enabled);
    EXPECT_FALSE(editor.refused);
    EXPECT_EQ(editor.text, "螺栓");
    EXPECT_EQ(editor.tag, "A001");
    EXPECT_EQ(editor.selStart, 0u);
    EXPECT_EQ(editor.selLength, 2u);
    EXPECT_EQ(grid.Text(), "螺栓");
    EXPECT_EQ(grid.TextTag(), "A001");
    expectOverTheCell();
}

TEST_F(OpeningTheEditor, ShowsTheTextAndNotWhatItsFormatShows) {
    typed(3, flexDTDouble);
    grid.ColFormat(3, "#,##0.00");
    fill(2, 3, "1234.5");
    openAt(2, 3);
    EXPECT_EQ(desk.editor().text, "1234.5");
}

TEST_F(OpeningTheEditor, TellsTheHostBeforeItIsShown) {
    bool wasOpen = true;
    grid.BeforeTextEdit.connect([&] { wasOpen = open(); });
    desk.type("a");
    EXPECT_FALSE(wasOpen);
    EXPECT_TRUE(open());
}

TEST_F(OpeningTheEditor, TakesWhatTheHostWroteIntoTheCellAtTheLastMoment) {
    grid.BeforeTextEdit.connect([&] { grid.SetCell(1, 1, "from the host", "tag"); });
    desk.press(Key::Space);
    EXPECT_EQ(desk.editor().text, "from the host");
    EXPECT_EQ(desk.editor().tag, "tag");
}

TEST_F(OpeningTheEditor, OfACellThatWasNeverEnteredEntersItWithoutTheEvent) {
    headless::Desk other;
    kxGrid& fresh = other.place();
    fresh.SetCell(1, 1, "螺栓", "A001");
    HostLog events(fresh);
    other.focusGrid();
    other.press(Key::Space);
    EXPECT_EQ(other.editor().text, "螺栓");
    EXPECT_EQ(other.editor().tag, "A001");
    EXPECT_EQ(events.lines(), opens());
}

TEST_F(OpeningTheEditor, DoesNothingOnAGridThatIsNotEditable) {
    grid.Editable(false);
    log.clear();
    desk.doubleClick(1, 1);
    EXPECT_FALSE(open());
    EXPECT_EQ(named(heard(), "BeforeTextEdit"), Lines{});
}

TEST_F(OpeningTheEditor, LeavesTheChangedDataFlagAlone) {
    desk.type("abc");
    EXPECT_FALSE(grid.bIsDirty());
    EXPECT_EQ(text(1, 1), "");
}

TEST_F(OpeningTheEditor, ScrollsACellBelowTheViewWhollyIntoIt) {
    rows(60);
    at(40, 1);
    desk.scrollTo(1, 1);
    EXPECT_FALSE(grid.Grid().RowIsVisible(40));
    desk.type("a");
    EXPECT_EQ(current(), (Cell{40, 1}));
    expectCellWhollyInView();
    expectOverTheCell();
    EXPECT_EQ(desk.editor().text, "a");
}

TEST_F(OpeningTheEditor, ScrollsACellAboveTheViewWhollyIntoIt) {
    rows(60);
    at(3, 1);
    desk.scrollTo(30, 1);
    desk.type("a");
    expectCellWhollyInView();
    expectOverTheCell();
}

TEST_F(OpeningTheEditor, ScrollsARowThatIsCutOffByTheLowerEdge) {
    rows(60);
    std::int32_t cut = 1;
    while (grid.Grid().CellRect(cut, 1).bottom() <= grid.Grid().Height()) ++cut;
    at(cut, 1);
    desk.scrollTo(1, 1);
    desk.type("a");
    expectCellWhollyInView();
    expectOverTheCell();
}

TEST_F(OpeningTheEditor, ScrollsAColumnLeftOfTheViewToTheLeftEdge) {
    grid.Cols(20);
    at(1, 2);
    desk.scrollTo(1, 6);
    desk.type("a");
    EXPECT_EQ(grid.Grid().LeftCol(), 2);
    EXPECT_EQ(grid.Grid_Sum().LeftCol(), 2);
    expectCellWhollyInView();
    expectOverTheCell();
}

TEST_F(OpeningTheEditor, ScrollsAColumnRightOfTheViewWhollyIntoIt) {
    grid.Cols(20);
    at(1, 17);
    desk.scrollTo(1, 1);
    desk.type("a");
    expectCellWhollyInView();
    expectOverTheCell();
    EXPECT_EQ(grid.Grid_Sum().LeftCol(), grid.Grid().LeftCol());
}

TEST_F(OpeningTheEditor, DoesNotHangOnARowTallerThanTheView) {
    rows(10);
    grid.RowHeight(3, 20000);
    at(3, 1);
    desk.type("a");
    EXPECT_TRUE(open());
    EXPECT_EQ(grid.Grid().TopRow(), 3);
}

TEST_F(OpeningTheEditor, DoesNotHangOnAColumnWiderThanTheView) {
    grid.Cols(8);
    grid.ColWidth(4, 30000);
    at(1, 4);
    desk.type("a");
    EXPECT_TRUE(open());
    EXPECT_EQ(grid.Grid().LeftCol(), 4);
}

TEST_F(OpeningTheEditor, SkipsHiddenRowsOnTheWayToTheCell) {
    rows(60);
    for (int r = 10; r < 40; ++r) grid.Grid().RowHidden(r, true);
    at(50, 1);
    desk.scrollTo(1, 1);
    desk.type("a");
    expectCellWhollyInView();
    expectOverTheCell();
}

TEST_F(OpeningTheEditor, ShowsTheHelpButtonOnlyWhereTheColumnOffersHelp) {
    column(2).b是否提供帮助(true);
    openAt(1, 2);
    EXPECT_TRUE(desk.editor().helpButton);
    desk.press(Key::Escape);
    EXPECT_FALSE(desk.editor().helpButton);
    openAt(1, 1);
    EXPECT_FALSE(desk.editor().helpButton);
}

TEST_F(OpeningTheEditor, TellsTheTextBoxWhatTheColumnTakes) {
    column(1).iLimitLength(12);
    column(1).b是否编辑多行(true);
    openAt(1, 1);
    EXPECT_EQ(grid.editorView().limit, 12);
    EXPECT_TRUE(grid.editorView().multiLine);
    EXPECT_FALSE(grid.editorView().readsDigits);
    desk.press(Key::Escape);
    typed(2, flexDTDouble);
    openAt(1, 2);
    EXPECT_EQ(grid.editorView().limit, 0);
    EXPECT_FALSE(grid.editorView().multiLine);
    EXPECT_TRUE(grid.editorView().readsDigits);
    desk.press(Key::Escape);
    typed(3, flexDTDate);
    openAt(1, 3);
    EXPECT_TRUE(grid.editorView().readsDigits);
}

TEST_F(OpeningTheEditor, GoesOnWhenTheHostRemovesTheRowsBeforehand) {
    rows(20);
    at(15, 1);
    grid.BeforeTextEdit.connect([&] { grid.Rows(6); });
    desk.type("a");
    EXPECT_EQ(grid.Rows(), 6);
    desk.press(Key::Escape);
    EXPECT_FALSE(open());
    desk.type("b");
    EXPECT_TRUE(open());
    EXPECT_EQ(desk.editor().text, "b");
}

TEST_F(OpeningTheEditor, OpensNothingWhenTheHostLocksTheGridAtTheQuestionForARow) {
    at(5, 1);
    grid.AddVsRow.connect([&](std::int32_t, bool&) { grid.Editable(false); });
    desk.type("a");
    EXPECT_FALSE(open());
    EXPECT_EQ(named(heard(), "BeforeTextEdit"), Lines{});
}

TEST_F(OpeningTheEditor, KeepsARefusedTextWhenTheClerkTypesOnInTheGrid) {
    typed(1, flexDTDouble);
    desk.type("12x");
    desk.focusElsewhere();
    ASSERT_TRUE(open());
    desk.focusGrid();
    desk.type("3");
    EXPECT_EQ(desk.editor().text, "12x3");
    EXPECT_EQ(desk.editor().selStart, 4u);
}

TEST(EditorText, CanBeReadAndSetByTheHostWhileItIsHidden) {
    headless::Desk desk;
    kxGrid& grid = desk.place();
    desk.focusGrid();
    grid.Text("x");
    grid.TextTag("y");
    EXPECT_EQ(grid.Text(), "x");
    EXPECT_EQ(grid.TextTag(), "y");
    EXPECT_EQ(grid.Grid().Text(1, 1), "");
    EXPECT_FALSE(desk.editor().visible);
    EXPECT_FALSE(grid.bIsDirty());
}

TEST_F(OpeningTheEditor, ShowsWhatTheHostPutsIntoTheOpenEditor) {
    openAt(1, 1);
    grid.Text("螺栓");
    grid.TextTag("A001");
    EXPECT_EQ(desk.editor().text, "螺栓");
    EXPECT_EQ(desk.editor().tag, "A001");
    desk.press(Key::Enter);
    EXPECT_EQ(text(1, 1), "螺栓");
    EXPECT_EQ(tag(1, 1), "A001");
}

}  // namespace
}  // namespace kxVsGrid::testing

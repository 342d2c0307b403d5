// Ctrl+C and Ctrl+V at a desk: what they do in a window.
#include "kit/ClerkTest.h"

namespace kxVsGrid::testing {
namespace {

class ClipboardKeys : public ClerkTest {
  protected:
    void copy() { desk.press('C', CtrlKey); }
    void paste() { desk.press('V', CtrlKey); }
    void paste(std::string_view content) {
        desk.clipboard(content);
        paste();
    }
};

TEST_F(ClipboardKeys, CopyWhatAClosedCellShows) {
    grid.ColFormat(3, "#,##0.00");
    fill(1, 3, "1234.5", "tag");
    at(1, 3);
    copy();
    EXPECT_EQ(desk.clipboard(), "1,234.50");
    EXPECT_FALSE(open());
    EXPECT_EQ(heard(), Lines{});
}

TEST_F(ClipboardKeys, PasteIntoAClosedCellAsIfItHadBeenTyped) {
    fill(1, 1, "old");
    at(1, 1);
    paste("贴上");
    EXPECT_EQ(heard(), (Lines{"CellChanged(1, 1)", "AfterEdit(1, 1)"}));
    EXPECT_FALSE(open());
    EXPECT_EQ(desk.focusOwner(), FocusPlace::Grid);
    EXPECT_EQ(text(1, 1), "贴上");
    EXPECT_EQ(grid.Text(), "贴上");
    EXPECT_TRUE(grid.bIsDirty());
}

TEST_F(ClipboardKeys, OpenTheEditorWithAValueThatTheCellRefuses) {
    typed(3, flexDTDouble);
    fill(1, 3, "5");
    at(1, 3);
    paste("12*");
    EXPECT_EQ(heard(), opens());
    EXPECT_EQ(desk.editor().text, "12*");
    EXPECT_EQ(desk.editor().selStart, 3u);
    EXPECT_EQ(desk.focusOwner(), FocusPlace::Editor);
    EXPECT_EQ(text(1, 3), "5");
    EXPECT_EQ(desk.messages(), std::vector<MessageBox>{});
    EXPECT_EQ(grid.Mark(1, 3), nullptr);
    desk.type("2").press(Key::Enter);
    EXPECT_EQ(text(1, 3), "24");
}

TEST_F(ClipboardKeys, DoNothingWhereThereIsNothingToPaste) {
    fill(1, 1, "old");
    at(1, 1);
    paste("");
    EXPECT_FALSE(open());
    EXPECT_EQ(text(1, 1), "old");
    EXPECT_EQ(heard(), Lines{});
}

TEST_F(ClipboardKeys, PasteNothingIntoAReadOnlyOrBooleanCell) {
    readOnly(1);
    at(1, 1);
    paste("x");
    EXPECT_FALSE(open());
    typed(2, flexDTBoolean);
    at(1, 2);
    paste("x");
    copy();
    EXPECT_EQ(text(1, 2), "") << "they are no characters that toggle it";
    EXPECT_EQ(heard(), Lines{});
}

TEST_F(ClipboardKeys, PasteALineOfATableWithoutItsLineEnd) {
    paste("12\r\n");
    EXPECT_EQ(text(1, 1), "12");
    openAt(1, 1);
    paste("\n3\r\n4\r5\n");
    EXPECT_EQ(desk.editor().text, " 3 4 5");
}

TEST_F(ClipboardKeys, PasteSeveralLinesWhereTheColumnHasThem) {
    column(1).b是否编辑多行(true);
    grid.ReDraw(true);
    openAt(1, 1);
    paste("a\r\nb\n");
    EXPECT_EQ(desk.editor().text, "a\nb\n");
}

TEST_F(ClipboardKeys, CopyTheSelectionOfTheEditorAndPasteOverIt) {
    openAt(1, 1);
    desk.type("螺栓M8").select(2, 2);
    copy();
    EXPECT_EQ(desk.clipboard(), "M8");
    EXPECT_EQ(desk.editor().text, "螺栓M8");
    desk.select(0, 2);
    paste();
    EXPECT_EQ(desk.editor().text, "M8M8");
    EXPECT_EQ(desk.editor().selStart, 2u);
    EXPECT_EQ(grid.Text(), "M8M8");
}

TEST_F(ClipboardKeys, LeaveTheClipboardAloneWhereNothingIsSelected) {
    desk.clipboard("kept");
    openAt(1, 1);
    desk.type("abc");
    copy();
    EXPECT_EQ(desk.clipboard(), "kept");
}

TEST_F(ClipboardKeys, PasteNoMoreThanTheColumnTakes) {
    column(1).iLimitLength(4);
    openAt(1, 1);
    desk.type("ab");
    paste("品名规格");
    EXPECT_EQ(desk.editor().text, "ab品名");
}

TEST_F(ClipboardKeys, AreNoneWithFurtherShiftKeys) {
    fill(1, 1, "shown");
    at(1, 1);
    desk.clipboard("kept");
    desk.press('C', CtrlKey | AltKey);
    EXPECT_EQ(desk.clipboard(), "kept");
}

TEST_F(ClipboardKeys, OutliveAHostThatClosesTheForm) {
    grid.AfterEdit.connect([&](std::int32_t, std::int32_t) { desk.remove(grid); });
    paste("x");
    EXPECT_EQ(desk.clipboard(), "x");
    EXPECT_THROW(desk.grid(), std::logic_error);
}
}  // namespace
}  // namespace kxVsGrid::testing

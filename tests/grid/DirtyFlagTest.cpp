// bIsDirty and Editable: what the clerk changed, and what switching Editable off does.
#include <cstdint>
#include <string>

#include "kit/PlacedGrid.h"

namespace kxVsGrid::testing {
namespace {

class DirtyFlag : public PlacedGrid {};

TEST_F(DirtyFlag, IsClearInANewlyPlacedControl) {
    EXPECT_TRUE(grid.Editable());
    EXPECT_FALSE(grid.bIsDirty());
}

TEST_F(DirtyFlag, IsSetByACommit) {
    typeInto(1, 1, "typed");
    EXPECT_FALSE(grid.bIsDirty());
    EXPECT_TRUE(grid.ValidTextData());
    EXPECT_TRUE(grid.bIsDirty());
}

TEST_F(DirtyFlag, IsSetWhenTheHostHearsOfTheEdit) {
    bool seen = false;
    grid.AfterEdit.connect([&](std::int32_t, std::int32_t) { seen = grid.bIsDirty(); });
    typeInto(1, 1, "typed");
    EXPECT_TRUE(grid.ValidTextData());
    EXPECT_TRUE(seen);
}

TEST_F(DirtyFlag, IsSetByAToggledBooleanCell) {
    column(1).iType(flexDTBoolean);
    desk.focusGrid();
    desk.press(Key::Space);
    EXPECT_TRUE(grid.bIsDirty());
}

TEST_F(DirtyFlag, IsNotSetByARefusedText) {
    column(1).iType(flexDTDouble);
    typeInto(1, 1, "1+");
    EXPECT_FALSE(grid.ValidTextData());
    EXPECT_FALSE(grid.bIsDirty());
}

TEST_F(DirtyFlag, IsNotSetByTheHost) {
    grid.SetCell(1, 1, "text", "tag");
    vs().Text(1, 1, "other");
    grid.Text("editor");
    grid.Rows(20);
    grid.Clear();
    grid.ReDraw(true);
    EXPECT_FALSE(grid.bIsDirty());
}

TEST_F(DirtyFlag, IsClearedForGoodByEditableOff) {
    typeInto(1, 1, "typed");
    EXPECT_TRUE(grid.ValidTextData());
    grid.Editable(false);
    EXPECT_FALSE(grid.bIsDirty());
    grid.Editable(true);
    EXPECT_FALSE(grid.bIsDirty());
}

TEST_F(DirtyFlag, IsClearedByUnmodifiedUntilTheNextCommit) {
    typeInto(1, 1, "typed");
    EXPECT_TRUE(grid.ValidTextData());
    heard();
    desk.clear();
    grid.Unmodified();
    EXPECT_FALSE(grid.bIsDirty());
    EXPECT_TRUE(grid.Editable());
    EXPECT_EQ(heard(), Nothing);
    EXPECT_EQ(reported(), Nothing);
    typeInto(1, 2, "again");
    EXPECT_FALSE(grid.bIsDirty());
    EXPECT_TRUE(grid.ValidTextData());
    EXPECT_TRUE(grid.bIsDirty());
}

TEST_F(DirtyFlag, IsClearedByUnmodifiedWhileTheEditorStaysOpen) {
    typeInto(1, 1, "first");
    EXPECT_TRUE(grid.ValidTextData());
    typeInto(1, 2, "typed");
    grid.Unmodified();
    EXPECT_FALSE(grid.bIsDirty());
    EXPECT_EQ(desk.editor().text, "typed");
    EXPECT_TRUE(desk.editor().visible);
    EXPECT_TRUE(grid.ValidTextData());
    EXPECT_TRUE(grid.bIsDirty()) << "what was being typed is a change of its own";
}

TEST_F(DirtyFlag, IsClearedByUnmodifiedFromInsideTheEvent) {
    grid.AfterEdit.connect([this](std::int32_t, std::int32_t) { grid.Unmodified(); });
    typeInto(1, 1, "typed");
    EXPECT_TRUE(grid.ValidTextData());
    EXPECT_FALSE(grid.bIsDirty());
}

TEST_F(DirtyFlag, IsKeptByEditableOn) {
    typeInto(1, 1, "typed");
    EXPECT_TRUE(grid.ValidTextData());
    grid.Editable(true);
    EXPECT_TRUE(grid.bIsDirty());
}

TEST_F(DirtyFlag, IsKeptByASetUp) {
    typeInto(1, 1, "typed");
    EXPECT_TRUE(grid.ValidTextData());
    grid.ReDraw(true);
    EXPECT_TRUE(grid.bIsDirty());
}

class EditableFlag : public PlacedGrid {};

TEST_F(EditableFlag, IsStoredAndReportedInEveryCase) {
    grid.Editable(false);
    EXPECT_FALSE(grid.Editable());
    EXPECT_EQ(reported(), Lines{"Editable"});
    grid.Editable(false);
    EXPECT_EQ(reported(), Lines{"Editable"});
    grid.Editable(true);
    EXPECT_TRUE(grid.Editable());
    EXPECT_EQ(reported(), Lines{"Editable"});
}

TEST_F(EditableFlag, SwitchedOffCommitsTheOpenEditor) {
    typeInto(1, 1, "typed");
    grid.Editable(false);
    EXPECT_EQ(heard(), changed(1, 1) + edited(1, 1));
    EXPECT_EQ(text(1, 1), "typed");
    EXPECT_FALSE(desk.editor().visible);
    EXPECT_FALSE(grid.bIsDirty());
    grid.Editable(true);
    EXPECT_FALSE(grid.bIsDirty());
}

TEST_F(EditableFlag, IsStillOnWhileTheEditorIsCommitted) {
    bool editable = false;
    bool dirty = false;
    grid.AfterEdit.connect([&](std::int32_t, std::int32_t) {
        editable = grid.Editable();
        dirty = grid.bIsDirty();
    });
    typeInto(1, 1, "typed");
    grid.Editable(false);
    EXPECT_TRUE(editable);
    EXPECT_TRUE(dirty);
}

TEST_F(EditableFlag, SwitchedOnCommitsNothing) {
    typeInto(1, 1, "typed");
    grid.Editable(true);
    EXPECT_EQ(heard(), Nothing);
    EXPECT_TRUE(desk.editor().visible);
}

TEST_F(EditableFlag, SwitchedOffInAfterEditDoesNotCommitAgain) {
    grid.AfterEdit.connect([this](std::int32_t, std::int32_t) { grid.Editable(false); });
    typeInto(1, 1, "typed");
    EXPECT_TRUE(grid.ValidTextData());
    EXPECT_EQ(heard(), changed(1, 1) + edited(1, 1));
    EXPECT_FALSE(grid.Editable());
    EXPECT_FALSE(grid.bIsDirty());
    grid.Editable(true);
    EXPECT_FALSE(grid.bIsDirty());
}

TEST_F(EditableFlag, IsSwitchedOffOverARefusedTextToo) {
    column(1).iType(flexDTDouble);
    typeInto(1, 1, "1+");
    grid.Editable(false);
    EXPECT_FALSE(grid.Editable());
    EXPECT_EQ(reported(), Lines{"Editable"});
    EXPECT_EQ(heard(), Nothing);
    EXPECT_EQ(text(1, 1), "");
}

TEST_F(EditableFlag, SwitchedOffOverARefusedTextKeepsItFromBeingWritten) {
    column(1).iType(flexDTDouble);
    typeInto(1, 1, "abc");
    grid.Editable(false);
    EXPECT_EQ(desk.editor().text, "abc");
    desk.select(0, 3).type("12").press(Key::Enter);
    EXPECT_EQ(text(1, 1), "");
    EXPECT_EQ(grid.Text(), "");
    EXPECT_FALSE(desk.editor().visible);
    EXPECT_EQ(heard(), moves(1, 1, 1, 2));
}

TEST_F(EditableFlag, SwitchedOnAgainLetsARefusedTextBeCorrected) {
    column(1).iType(flexDTDouble);
    typeInto(1, 1, "abc");
    grid.Editable(false);
    grid.Editable(true);
    desk.select(0, 3).type("12").press(Key::Enter);
    EXPECT_EQ(text(1, 1), "12");
}

TEST_F(EditableFlag, SwitchedOffChecksARefusedTextAgain) {
    refusesCodes(1);
    typeInto(1, 1, "X9");
    EXPECT_FALSE(grid.ValidTextData());
    heard();
    grid.Editable(false);
    EXPECT_EQ(named(heard(), "TxtValidBmS").size(), 1u);
    EXPECT_FALSE(grid.Editable());
}

TEST_F(EditableFlag, StaysWhenTheHostFailsInTheCommit) {
    typeInto(1, 1, "typed");
    auto failing = grid.AfterEdit.connect(Boom());
    EXPECT_THROW(grid.Editable(false), std::runtime_error);
    EXPECT_TRUE(grid.Editable());
    EXPECT_EQ(desk.reports(), Nothing);
    failing.disconnect();
    heard();
    grid.Editable(false);
    EXPECT_EQ(heard(), edited(1, 1));
    EXPECT_FALSE(grid.Editable());
}
}  // namespace
}  // namespace kxVsGrid::testing

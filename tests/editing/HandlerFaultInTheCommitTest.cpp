// A host's handler that throws while a checked text is committed: what stands in the cell is one pair, and
// what the clerk does next starts from there.
#include <stdexcept>

#include "kit/ClerkTest.h"

namespace kxVsGrid::testing {
namespace {

class HandlerFaultInTheCommit : public ClerkTest {
  protected:
    /// The column shows names; what is shown there is no code, and would be refused if it were checked.
    HandlerFaultInTheCommit() {
        takesCodes(1);
        column(1).i帮助返回值显示类型(iText记Name);
        knowCodes([](const std::string& typed) {
            return typed.starts_with("name") ? std::nullopt : std::optional("name " + typed);
        });
        fill(1, 1, "name A", "A");
        openAt(1, 1);
        desk.type("B");
    }
    template <class... Args>
    void failsOnce(Event<Args...>& event) {
        once = event.connect([this](auto&&...) {
            once.disconnect();
            throw std::runtime_error("host");
        });
    }
    void pressEnterAndFail() { EXPECT_THROW(desk.press(Key::Enter), std::runtime_error); }
    void expectPairB() {
        EXPECT_EQ(text(1, 1), "name B");
        EXPECT_EQ(tag(1, 1), "B");
    }
    Connection once;
};

TEST_F(HandlerFaultInTheCommit, OfTheTextKeepsItsTag) {
    failsOnce(grid.CellChanged);
    pressEnterAndFail();
    expectPairB();
    EXPECT_TRUE(grid.bIsDirty());
    EXPECT_TRUE(open());
}

TEST_F(HandlerFaultInTheCommit, OfTheTextDoesNotRefuseTheNextEnter) {
    failsOnce(grid.CellChanged);
    pressEnterAndFail();
    desk.press(Key::Enter);
    EXPECT_EQ(desk.messages().size(), 0U);
    EXPECT_FALSE(open());
    expectPairB();
}

TEST_F(HandlerFaultInTheCommit, OfTheTextLeavesThePairWhenTheClerkGivesUp) {
    failsOnce(grid.CellChanged);
    pressEnterAndFail();
    desk.press(Key::Escape);
    expectPairB();
    EXPECT_EQ(grid.Text(), "name B");
    EXPECT_EQ(grid.TextTag(), "B");
}

TEST_F(HandlerFaultInTheCommit, OfTheTextDoesNotRefuseAHostThatMovesOn) {
    failsOnce(grid.CellChanged);
    pressEnterAndFail();
    grid.Grid().Select(3, 2);
    EXPECT_EQ(desk.messages().size(), 0U);
    EXPECT_EQ(current(), (Cell{3, 2}));
    expectPairB();
}

TEST_F(HandlerFaultInTheCommit, OfAfterEditDoesNotRefuseTheNextEnter) {
    failsOnce(grid.AfterEdit);
    pressEnterAndFail();
    desk.press(Key::Enter);
    EXPECT_EQ(desk.messages().size(), 0U);
    EXPECT_FALSE(open());
    expectPairB();
}

class HostFaultOnTheWay : public ClerkTest {};

TEST_F(HostFaultOnTheWay, StillGivesTheGridTheKeyboardOfAHiddenEditor) {
    openAt(1, 1);
    desk.type("abc");
    Connection failing = grid.CellChanged.connect([&](std::int32_t, std::int32_t) {
        grid.Grid().Select(3, 2);
        throw std::runtime_error("host");
    });
    grid.SetCell(4, 3, "z");
    failing.disconnect();
    EXPECT_EQ(desk.messages().size(), 1U);
    EXPECT_FALSE(open());
    EXPECT_EQ(desk.focusOwner(), FocusPlace::Grid);
}

class HostMovesAnOpenEditor : public ClerkTest {
  protected:
    HostMovesAnOpenEditor() {
        rows(12);
        openAt(1, 1);
        desk.type("abc");
    }
};

TEST_F(HostMovesAnOpenEditor, AndArrivesWhereItWantedAlsoFromAFixedRow) {
    grid.Grid().FixedRows(3);
    grid.Grid().Select(7, 2);
    EXPECT_EQ(current(), (Cell{7, 2}));
    EXPECT_EQ(desk.focusOwner(), FocusPlace::Grid);
}

TEST_F(HostMovesAnOpenEditor, AndArrivesWhereItWantedAlsoFromAFixedColumn) {
    grid.Grid().FixedCols(3);
    grid.Grid().Select(7, 5);
    EXPECT_EQ(current(), (Cell{7, 5}));
}

class EditorOverNothing : public ClerkTest {};

TEST_F(EditorOverNothing, CommitsAndClosesWhenItsRowIsHidden) {
    openAt(3, 2);
    desk.type("abc");
    grid.Grid().RowHidden(3, true);
    EXPECT_FALSE(open());
    EXPECT_EQ(text(3, 2), "abc");
    EXPECT_EQ(desk.focusOwner(), FocusPlace::Grid);
}

TEST_F(EditorOverNothing, CommitsAndClosesWhenItsColumnHasNoWidthAnyMore) {
    openAt(3, 2);
    desk.type("abc");
    grid.ColWidth(2, 0);
    EXPECT_FALSE(open());
    EXPECT_EQ(text(3, 2), "abc");
}

class HostWritesTheCommittedCell : public ClerkTest {};

TEST_F(HostWritesTheCommittedCell, AndItsPairStays) {
    Connection once;
    once = grid.CellChanged.connect([&](std::int32_t row, std::int32_t col) {
        once.disconnect();
        grid.SetCell(row, col, "host", "tag of the host");
    });
    column(1).i有效性判断(1);
    column(1).i字段有效性判断类型(ij编码型);
    grid.TxtValidBmS.connect([](const std::string&, const std::string&, const std::string&,
                                const std::string& typed, std::string& code, std::string& name) {
        code = typed;
        name = "name " + typed;
    });
    openAt(1, 1);
    desk.type("A").press(Key::Enter);
    EXPECT_EQ(text(1, 1), "host");
    EXPECT_EQ(tag(1, 1), "tag of the host");
}

TEST_F(HostWritesTheCommittedCell, AndOnlyItsTextWhereTheTagIsNotItsOwn) {
    Connection once;
    once = grid.CellChanged.connect([&](std::int32_t row, std::int32_t col) {
        once.disconnect();
        grid.Grid().Text(row, col, "UPPER");
    });
    openAt(1, 1);
    grid.TextTag("tag");
    desk.type("upper").press(Key::Enter);
    EXPECT_EQ(text(1, 1), "UPPER");
    EXPECT_EQ(tag(1, 1), "tag");
}
}  // namespace
}  // namespace kxVsGrid::testing

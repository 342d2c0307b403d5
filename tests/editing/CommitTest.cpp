// The commit writes the editor back into the cell: what becomes of the text by the column's type, in which
// order things happen, and what a refusal leaves behind.
#include "kit/ClerkTest.h"

namespace kxVsGrid::testing {
namespace {

class Commit : public ClerkTest {
  protected:
    /// Puts a text into the editor of a cell and commits it in place.
    void enter(std::int32_t row, std::int32_t col, std::string_view content) {
        openAt(row, col);
        grid.Text(content);
        grid.ValidTextData();
    }
};

TEST_F(Commit, WritesTextAndTagAndTellsTheHost) {
    desk.type("A001");
    grid.TextTag("螺栓");
    heard();
    EXPECT_TRUE(grid.ValidTextData());
    EXPECT_EQ(heard(), changed(1, 1) + changed(1, 1) + edited(1, 1));
    EXPECT_EQ(text(1, 1), "A001");
    EXPECT_EQ(tag(1, 1), "螺栓");
    EXPECT_FALSE(open());
    EXPECT_TRUE(grid.bIsDirty());
}

TEST_F(Commit, OfAnUnchangedTextIsACommitToo) {
    fill(1, 1, "A001", "tag");
    openAt(1, 1);
    desk.press(Key::Enter);
    EXPECT_EQ(heard(), edited(1, 1) + moves(1, 1, 1, 2));
    EXPECT_TRUE(grid.bIsDirty());
    EXPECT_EQ(text(1, 1), "A001");
    EXPECT_EQ(tag(1, 1), "tag");
}

TEST_F(Commit, KeepsTheTagOfTheCellUnderANewText) {
    fill(1, 1, "螺栓", "A001");
    desk.type("x").press(Key::Enter);
    EXPECT_EQ(text(1, 1), "x");
    EXPECT_EQ(tag(1, 1), "A001");
}

TEST_F(Commit, GoesThroughItsStepsInTheStatedOrder) {
    summed(1);
    consentToRows();
    at(5, 1);
    desk.press(Key::Back);
    desk.type("2*3+1");
    grid.TextTag("tag");
    heard();
    Lines steps;
    auto look = [&](const std::string& step) {
        steps.push_back(step + ": text " + text(5, 1) + ", tag " + tag(5, 1) + ", dirty " +
                        shown(grid.bIsDirty()) + ", open " + shown(open()) + ", rows " +
                        std::to_string(grid.Rows()));
    };
    grid.CellChanged.connect([&](std::int32_t, std::int32_t) { look("changed"); });
    grid.AfterEdit.connect([&](std::int32_t, std::int32_t) {
        look("edited");
        EXPECT_EQ(grid.ReadSum(1), "7");
    });
    grid.AddVsRow.connect([&](std::int32_t, bool&) { look("row"); });
    EXPECT_TRUE(grid.ValidTextData());
    EXPECT_EQ(steps, (Lines{"changed: text 7, tag , dirty False, open True, rows 6",
                            "changed: text 7, tag tag, dirty False, open True, rows 6",
                            "edited: text 7, tag tag, dirty True, open True, rows 6",
                            "row: text 7, tag tag, dirty True, open True, rows 6"}));
    EXPECT_FALSE(open());
    EXPECT_EQ(grid.Rows(), 7);
}

TEST_F(Commit, TellsTheHostTheCellOfTheEditor) {
    enter(4, 5, "x");
    EXPECT_EQ(heard(), changed(4, 5) + edited(4, 5));
}

TEST_F(Commit, KeepsTotalsFreshAlsoWhileReDrawIsOff) {
    summed(2);
    grid.ReDraw(false);
    enter(1, 2, "5");
    EXPECT_EQ(grid.ReadSum(2), "5");
    enter(2, 2, "6");
    EXPECT_EQ(grid.ReadSum(2), "11");
}

/// What a typed text becomes in a column of a type.
struct Conversion {
    mEmDataType type;
    std::string typed;
    std::string stored;
};
std::ostream& operator<<(std::ostream& out, const Conversion& c) {
    return out << static_cast<int>(c.type) << " '" << c.typed << "' gives '" << c.stored << "'";
}
class Conversions : public Commit, public ::testing::WithParamInterface<Conversion> {};

TEST_P(Conversions, StoreTheTextByTheTypeOfTheColumn) {
    typed(2, GetParam().type);
    fill(3, 2, "old");
    enter(3, 2, GetParam().typed);
    EXPECT_EQ(text(3, 2), GetParam().stored);
    EXPECT_FALSE(open());
    EXPECT_EQ(named(heard(), "AfterEdit"), edited(3, 2));
    EXPECT_TRUE(grid.bIsDirty());
}

INSTANTIATE_TEST_SUITE_P(
    Numbers, Conversions,
    ::testing::Values(Conversion{flexDTDouble, "2*3+1", "7"}, Conversion{flexDTDouble, "  12  ", "12"},
                      Conversion{flexDTDouble, "", ""}, Conversion{flexDTDouble, "   ", ""},
                      Conversion{flexDTDouble, "0", "0"}, Conversion{flexDTDouble, "-0", "0"},
                      Conversion{flexDTDouble, "5-5", "0"}, Conversion{flexDTDouble, ".5", "0.5"},
                      Conversion{flexDTDouble, "1.50", "1.5"}, Conversion{flexDTDouble, "0.1+0.2", "0.3"},
                      Conversion{flexDTDouble, "1/3", "0.333333333333333"},
                      Conversion{flexDTDouble, "2/3", "0.666666666666667"},
                      Conversion{flexDTDouble, "-2^2", "-4"}, Conversion{flexDTDouble, "(2+3)4", "20"},
                      Conversion{flexDTDouble, "10^16", "10000000000000000"},
                      Conversion{flexDTDouble, "1/10^7", "0.0000001"}));

INSTANTIATE_TEST_SUITE_P(
    Texts, Conversions,
    ::testing::Values(Conversion{flexDTString, "  abc  ", "abc"}, Conversion{flexDTString, "a b", "a b"},
                      Conversion{flexDTString, "   ", ""}, Conversion{flexDTString, "2*3+1", "2*3+1"},
                      Conversion{flexDTString, "\tabc\t", "\tabc\t"},
                      Conversion{flexDTEmpty, "  abc  ", "  abc  "}, Conversion{flexDTEmpty, "   ", "   "},
                      Conversion{flexDTDate, " 2026-11-20 ", " 2026-11-20 "},
                      Conversion{flexDTDate, "abc", "abc"},
                      Conversion{static_cast<mEmDataType>(1), " 1+1 ", " 1+1 "}));

class Refusal : public Commit, public ::testing::WithParamInterface<std::string> {
  protected:
    Refusal() {
        summed(1);
        fill(1, 1, "5", "tag");
        fill(2, 1, "3");
    }
};

TEST_P(Refusal, EmptiesTheCellAndKeepsTheEditorWithTheCaretAtTheEnd) {
    openAt(1, 1);
    grid.Text(GetParam());
    desk.press(Key::Enter);
    EXPECT_EQ(heard(), changed(1, 1));
    EXPECT_EQ(text(1, 1), "");
    EXPECT_EQ(tag(1, 1), "tag");
    const headless::SeenEditor editor = desk.editor();
    EXPECT_TRUE(editor.visible);
    EXPECT_TRUE(editor.refused);
    EXPECT_EQ(editor.text, GetParam());
    EXPECT_EQ(editor.selStart, GetParam().size());
    EXPECT_EQ(editor.selLength, 0u);
    EXPECT_EQ(desk.focusOwner(), FocusPlace::Editor);
    EXPECT_FALSE(grid.bIsDirty());
    EXPECT_EQ(grid.ReadSum(1), "8");
    EXPECT_EQ(current(), (Cell{1, 1}));
    EXPECT_TRUE(desk.messages().empty());
}

INSTANTIATE_TEST_SUITE_P(Expressions, Refusal,
                         ::testing::Values("abc", "1+", "1/0", "(2", "1e3", "1,234", "--"));

class RefusedExpression : public Commit {
  protected:
    RefusedExpression() {
        summed(1);
        fill(1, 1, "5");
        openAt(1, 1);
        desk.type("abc");
    }
};

TEST_F(RefusedExpression, AsksForNoRowOnTheLastRow) {
    desk.press(Key::Escape);
    openAt(5, 1);
    grid.Text("abc");
    consentToRows();
    desk.press(Key::Enter);
    EXPECT_EQ(heard(), Lines{});
    EXPECT_EQ(grid.Rows(), 6);
}

TEST_F(RefusedExpression, LeavesTheOldTotalUntilTheNextRecalculation) {
    desk.press(Key::Enter);
    EXPECT_EQ(grid.ReadSum(1), "5");
    desk.press(Key::Escape);
    EXPECT_EQ(grid.ReadSum(1), "5");
    EXPECT_EQ(text(1, 1), "");
    grid.Row(3);
    EXPECT_EQ(grid.ReadSum(1), "0");
}

TEST_F(RefusedExpression, IsTriedAgainOnTheNextEnter) {
    desk.press(Key::Enter);
    heard();
    desk.press(Key::Enter);
    EXPECT_EQ(heard(), Lines{});
    EXPECT_TRUE(open());
    desk.press(Key::Back).press(Key::Back).press(Key::Back).type("7");
    EXPECT_FALSE(desk.editor().refused);
    desk.press(Key::Enter);
    EXPECT_EQ(heard(), changed(1, 1) + edited(1, 1) + moves(1, 1, 1, 2));
    EXPECT_EQ(text(1, 1), "7");
    EXPECT_EQ(grid.ReadSum(1), "7");
    EXPECT_TRUE(grid.bIsDirty());
}

TEST_F(RefusedExpression, KeepsTheCellOnArrowKeysAndTab) {
    for (Key key : {Key::Up, Key::Down, Key::Right, Key::Tab}) {
        desk.press(key);
        EXPECT_TRUE(open()) << static_cast<int>(key);
        EXPECT_EQ(current(), (Cell{1, 1}));
        EXPECT_EQ(desk.focusOwner(), FocusPlace::Editor);
    }
    desk.select(0);
    desk.press(Key::Left);
    desk.press(Key::Tab, ShiftKey);
    EXPECT_TRUE(open());
    EXPECT_EQ(named(heard(), "AfterEdit"), Lines{});
}

TEST_F(RefusedExpression, IsReportedByValidTextDataAndIsValid) {
    EXPECT_FALSE(grid.ValidTextData());
    EXPECT_FALSE(grid.IsValid());
    EXPECT_TRUE(open());
    EXPECT_EQ(named(heard(), "AfterEdit"), Lines{});
}

TEST_F(RefusedExpression, DoesNotKeepTheHostFromMovingTheCell) {
    heard();
    grid.Row(3);
    EXPECT_EQ(heard(), asks(1, 1, 3, 1) + changed(1, 1) + arrives() + settles(1, 1, 3, 1));
    EXPECT_EQ(current(), (Cell{3, 1}));
    EXPECT_FALSE(open());
    EXPECT_FALSE(grid.bIsDirty());
}

TEST_F(RefusedExpression, DoesNotKeepTheHostFromWritingCells) {
    grid.SetCell(3, 3, "host");
    EXPECT_EQ(text(3, 3), "host");
    EXPECT_TRUE(open());
    EXPECT_EQ(desk.editor().text, "abc");
    EXPECT_EQ(grid.ReadCell(3, 3, true), "host");
    EXPECT_TRUE(desk.messages().empty());
}

TEST_F(RefusedExpression, IsDroppedByEscape) {
    desk.press(Key::Enter);
    heard();
    desk.press(Key::Escape);
    EXPECT_EQ(heard(), Lines{});
    EXPECT_FALSE(open());
    EXPECT_FALSE(desk.editor().refused);
    EXPECT_EQ(text(1, 1), "");
    EXPECT_TRUE(grid.ValidTextData());
}

TEST_F(Commit, IsMadeOnceWhenCodeMovesTheCell) {
    desk.type("abc");
    heard();
    grid.Row(3);
    EXPECT_EQ(heard(), asks(1, 1, 3, 1) + changed(1, 1) + edited(1, 1) + arrives() + settles(1, 1, 3, 1));
    EXPECT_EQ(text(1, 1), "abc");
    EXPECT_FALSE(open());
}

TEST_F(Commit, IsNotMadeByAMoveThatTheHostCancels) {
    desk.type("abc");
    heard();
    grid.BeforeRowColChange.connect([](auto, auto, auto, auto, bool& cancel) { cancel = true; });
    grid.Row(3);
    EXPECT_EQ(heard(), asks(1, 1, 3, 1));
    EXPECT_TRUE(open());
    EXPECT_EQ(text(1, 1), "");
}

}  // namespace
}  // namespace kxVsGrid::testing

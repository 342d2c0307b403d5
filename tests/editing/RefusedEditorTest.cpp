// An editor whose text was refused is not lost behind the clerk's back: it gets the keyboard back whenever
// the grid gets it, and only Esc, code that moves the current cell, or the end of its cell close it.
#include <utility>

#include "kit/ClerkTest.h"

namespace kxVsGrid::testing {
namespace {

constexpr std::int32_t Coded = 1;
constexpr std::int32_t Number = 2;

class RefusedEditor : public ClerkTest {
  protected:
    RefusedEditor() {
        column(Coded).i有效性判断(1);
        column(Coded).i字段有效性判断类型(ij编码型);
        summed(Number);
        fill(2, Coded, "old", "tag");
        fill(2, Number, "5", "five");
        grid.Rows(grid.Rows());  // totals are fresh
    }
    /// Refused, with the clerk back from another field of the window.
    void refuseAndComeBack(std::int32_t col, std::string_view typed) {
        openAt(2, col);
        desk.type(typed).press(Key::Enter);
        ASSERT_TRUE(open());
        desk.focusElsewhere().focusGrid();
        desk.clear();
        log.clear();
    }
    void expectStays(std::int32_t col, std::string_view typed) {
        EXPECT_TRUE(open());
        EXPECT_TRUE(desk.editor().refused);
        EXPECT_EQ(desk.editor().text, typed);
        EXPECT_EQ(desk.focusOwner(), FocusPlace::Editor);
        EXPECT_EQ(current(), (Cell{2, col}));
        EXPECT_FALSE(grid.bIsDirty());
    }
};

TEST_F(RefusedEditor, GetsTheKeyboardBackWithTheGrid) {
    for (const auto& [col, typed] : {std::pair{Coded, "x9"}, std::pair{Number, "3*"}}) {
        refuseAndComeBack(col, typed);
        expectStays(col, typed);
        desk.focusSurface().focusGrid();
        expectStays(col, typed);
        desk.press(Key::Escape);
        desk.clear();
    }
}

TEST_F(RefusedEditor, StaysWhenAnArrowOrTabFindsTheNumberStillRefused) {
    for (const Key key : {Key::Down, Key::Up, Key::Right, Key::Tab, Key::Enter}) {
        refuseAndComeBack(Number, "3*");
        desk.press(key);
        expectStays(Number, "3*");
        EXPECT_EQ(named(heard(), "AfterEdit"), Lines{});
        desk.press(Key::Escape);
    }
}

TEST_F(RefusedEditor, ChecksACodeAgainOnAnArrowAndSaysNothingOnEnter) {
    refuseAndComeBack(Coded, "x9");
    desk.press(Key::Enter);
    EXPECT_TRUE(desk.messages().empty());
    expectStays(Coded, "x9");
    desk.press(Key::Down);
    EXPECT_EQ(desk.messages().size(), 1u);
    expectStays(Coded, "x9");
    EXPECT_EQ(text(2, Coded), "old");
}

TEST_F(RefusedEditor, TakesDeleteAndWhatIsTypedForItself) {
    grid.DeleteVsRow.connect([](std::int32_t, bool& consent) { consent = true; });
    refuseAndComeBack(Number, "3*");
    const std::int32_t rowsBefore = grid.Rows();
    desk.press(Key::Delete).type("4").press(Key::Enter);
    EXPECT_EQ(grid.Rows(), rowsBefore);
    EXPECT_EQ(text(2, Number), "12");
    EXPECT_EQ(named(heard(), "DeleteVsRow"), Lines{});
}

TEST_F(RefusedEditor, StaysThroughAPressOnAnotherCell) {
    refuseAndComeBack(Number, "3*");
    desk.click(4, 4);
    expectStays(Number, "3*");
}

TEST_F(RefusedEditor, ClosesWhenCodeMovesTheCurrentCell) {
    refuseAndComeBack(Number, "3*");
    grid.Row(4);
    EXPECT_FALSE(open());
    EXPECT_EQ(desk.focusOwner(), FocusPlace::Grid);
}

TEST_F(RefusedEditor, LeavesTheNumberEmptyOnEscUnlessTheHostAsksForIt) {
    refuseAndComeBack(Number, "3*");
    desk.press(Key::Escape);
    EXPECT_EQ(text(2, Number), "");
    EXPECT_EQ(tag(2, Number), "five");
}

TEST_F(RefusedEditor, BringsTheEmptiedNumberBackOnEscWhereTheHostAsksForIt) {
    grid.Options().EscRestores(true);
    refuseAndComeBack(Number, "3*");
    desk.press(Key::Escape);
    EXPECT_EQ(heard(), changed(2, Number));
    EXPECT_FALSE(open());
    EXPECT_EQ(desk.focusOwner(), FocusPlace::Grid);
    EXPECT_EQ(text(2, Number), "5");
    EXPECT_EQ(tag(2, Number), "five");
    EXPECT_EQ(grid.Text(), "5");
    EXPECT_EQ(grid.ReadSum(Number), "5");
    EXPECT_FALSE(grid.bIsDirty());
    desk.press(Key::Space);
    EXPECT_EQ(desk.editor().text, "5");
}

TEST_F(RefusedEditor, LetsTheHostWorkOutAgainWhatFollowsFromTheNumberThatCameBack) {
    constexpr std::int32_t Double = 3;
    summed(Double);
    grid.Options().EscRestores(true);
    grid.Changes().AddSettler([&](const StepChanges& step) {
        for (const std::int32_t row : step.rows) {
            const std::string number = grid.Grid().Text(row, Number);
            grid.Grid().Text(row, Double, number.empty() ? "" : std::to_string(2 * std::stoi(number)));
        }
    });
    fill(2, Double, "10");
    std::vector<std::vector<std::int32_t>> told;
    grid.Changes().After.connect([&](const StepChanges& step) {
        told.push_back({step.rows.begin(), step.rows.end()});
    });
    openAt(2, Number);
    desk.type("abc").press(Key::Enter).press(Key::Enter);
    EXPECT_EQ(text(2, Double), "");
    told.clear();
    desk.press(Key::Escape);
    EXPECT_EQ(text(2, Number), "5");
    EXPECT_EQ(text(2, Double), "10");
    EXPECT_EQ(grid.ReadSum(Double), "10");
    EXPECT_EQ(told, (std::vector<std::vector<std::int32_t>>{{2}}));
    EXPECT_TRUE(grid.History().Undo());
    EXPECT_EQ(text(2, Number), "5");
    EXPECT_EQ(tag(2, Number), "five");
    EXPECT_EQ(text(2, Double), "10");
    EXPECT_FALSE(grid.History().CanUndo()) << "emptied and given back is one act";
}

TEST_F(RefusedEditor, BringsTheFirstNumberBackHoweverOftenAndInWhateverWordsItWasRefused) {
    grid.Options().EscRestores(true);
    refuseAndComeBack(Number, "3*");
    desk.type("/").press(Key::Enter).press(Key::Down).type("7").press(Key::Escape);
    EXPECT_EQ(text(2, Number), "5");
    EXPECT_EQ(tag(2, Number), "five");
}

TEST_F(RefusedEditor, BringsTheTagBackThatTheHostTookAwayWithTheNumber) {
    grid.Options().EscRestores(true);
    Connection once = grid.CellChanged.connect([&](std::int32_t row, std::int32_t col) {
        once.disconnect();
        grid.Grid().Data(row, col, "");
    });
    refuseAndComeBack(Number, "3*");
    EXPECT_EQ(tag(2, Number), "");
    desk.press(Key::Escape);
    EXPECT_EQ(text(2, Number), "5");
    EXPECT_EQ(tag(2, Number), "five");
}

TEST_F(RefusedEditor, BringsTheNumberBackIntoTheRowThatMovedOn) {
    grid.Options().EscRestores(true);
    refuseAndComeBack(Number, "3*");
    grid.Grid().InsertRow(1);
    desk.press(Key::Escape);
    EXPECT_EQ(text(3, Number), "5");
    EXPECT_EQ(text(2, Number), "");
}

TEST_F(RefusedEditor, BringsNothingBackOverWhatTheHostWroteMeanwhile) {
    grid.Options().EscRestores(true);
    refuseAndComeBack(Number, "3*");
    grid.Grid().Text(2, Number, "8");
    desk.press(Key::Escape);
    EXPECT_EQ(text(2, Number), "8");
}

TEST_F(RefusedEditor, BringsNothingBackIntoTheNextCellOrAfterASuccess) {
    grid.Options().EscRestores(true);
    refuseAndComeBack(Number, "3*");
    desk.type("4").press(Key::Enter);
    EXPECT_EQ(text(2, Number), "12");
    openAt(3, Number);
    desk.type("1").press(Key::Escape);
    EXPECT_EQ(text(3, Number), "");
    openAt(2, Number);
    desk.press(Key::Back).press(Key::Escape);
    EXPECT_EQ(text(2, Number), "12");
}

TEST_F(RefusedEditor, IsNoValidInputOfAGridThatCannotBeChangedAnyMore) {
    for (const auto& [col, typed] : {std::pair{Coded, "x9"}, std::pair{Number, "3*"}}) {
        refuseAndComeBack(col, typed);
        grid.Editable(false);
        EXPECT_FALSE(grid.ValidTextData());
        EXPECT_TRUE(open());
        EXPECT_EQ(desk.editor().text, typed);
        desk.focusElsewhere();
        EXPECT_TRUE(open()) << "a loss of the keyboard drops it no more than elsewhere";
        desk.focusGrid().press(Key::Escape);
        EXPECT_FALSE(open());
        EXPECT_TRUE(grid.ValidTextData());
        grid.Editable(true);
    }
}

}  // namespace
}  // namespace kxVsGrid::testing

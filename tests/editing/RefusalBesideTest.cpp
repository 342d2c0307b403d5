// Refusals that are told beside the editor: no box, the reason at the text for as long as it stands.
#include <functional>

#include "editing/CheckTest.h"

namespace kxVsGrid::testing {
namespace {

constexpr const char* UnknownCode = "没有此货号";

class RefusalBeside : public CheckTest {
  protected:
    RefusalBeside() {
        knowCodes();
        grid.Options().Refusals(GridOptions::RefusalStyle::Beside);
    }
    void refuseCode() {
        put(2, CodeCol, "X1");
        desk.press(Key::Enter);
    }
    /// The reason stands at the refused text, which has the keyboard; no box was shown.
    void expectTold(const std::string& text, const std::string& reason) {
        EXPECT_EQ(boxes(), Boxes{});
        EXPECT_EQ(desk.editor().tip, reason);
        expectRefused(2, CodeCol, text);
    }
};

TEST_F(RefusalBeside, IsNotHowItIsAtFirst) {
    headless::Desk other;
    EXPECT_EQ(other.place().Options().Refusals(), GridOptions::RefusalStyle::Box);
}

TEST_F(RefusalBeside, StandsAtTheEditorWithTheTextOfTheBox) {
    refuseCode();
    expectTold("X1", UnknownCode);
    EXPECT_EQ(desk.tips(), (Lines{UnknownCode}));
    EXPECT_EQ(named(heard(), "TxtValidBmS"), asked("X1"));
    EXPECT_EQ(grid.Grid().Text(2, CodeCol), "");
}

TEST_F(RefusalBeside, StandsAtTheEditorForEveryCheck) {
    struct {
        std::int32_t col;
        const char* bad;
    } const checks[] = {{CodeCol, "X1"}, {DateCol, "2011-02-30"}, {HalfDayCol, "x"}, {TimeCol, "x"}};
    for (const auto& check : checks) {
        put(2, check.col, check.bad);
        desk.press(Key::Down);
        EXPECT_EQ(boxes(), Boxes{});
        EXPECT_EQ(desk.editor().tip, refusalBox(check.col)[0].text);
        expectRefused(2, check.col, check.bad);
        desk.press(Key::Escape);
        EXPECT_EQ(desk.editor().tip, "");
    }
}

TEST_F(RefusalBeside, StandsAtTheEditorForTheRulesOfAColumn) {
    grid.Options(1).pattern("[a-z]+");
    put(2, 1, "12");
    desk.press(Key::Enter);
    EXPECT_EQ(boxes(), Boxes{});
    EXPECT_NE(desk.editor().tip, "");
    expectRefused(2, 1, "12");
}

TEST_F(RefusalBeside, GoesWithTheNextChangeAndWithNothingLess) {
    const std::vector<std::function<void()>> changes = {
        [&] { desk.press(Key::Home).type("A"); },
        [&] { desk.press(Key::Back); },
        [&] { grid.Text("other"); },
        [&] { desk.press(Key::Escape); },
    };
    for (const auto& change : changes) {
        refuseCode();
        desk.press(Key::Home).press(Key::End).press(Key::Enter);
        desk.select(0, 2);
        expectTold("X1", UnknownCode);
        change();
        EXPECT_EQ(desk.editor().tip, "");
        desk.press(Key::Escape);
    }
    EXPECT_EQ(boxes(), Boxes{});
}

TEST_F(RefusalBeside, IsCorrectedAndGoesOn) {
    refuseCode();
    desk.type("A1").press(Key::Enter);
    EXPECT_EQ(text(2, CodeCol), "A1");
    EXPECT_EQ(current(), (Cell{2, DateCol}));
    EXPECT_FALSE(open());
}

TEST_F(RefusalBeside, IsCheckedAgainByWhatTheBoxIsShownAgainFor) {
    refuseCode();
    heard();
    desk.press(Key::Enter);
    EXPECT_EQ(named(heard(), "TxtValidBmS"), Lines{});
    desk.press(Key::Tab);
    EXPECT_EQ(named(heard(), "TxtValidBmS"), asked("X1"));
    expectTold("X1", UnknownCode);
}

TEST_F(RefusalBeside, KeepsTheKeyboardThatIsTakenAway) {
    for (const auto& leave : std::vector<std::function<void()>>{
             [&] { desk.focusElsewhere(); }, [&] { desk.focusSurface(); }, [&] { desk.focusGrid(); }}) {
        put(2, CodeCol, "X1");
        leave();
        expectTold("X1", UnknownCode);
        desk.press(Key::Escape);
    }
}

TEST_F(RefusalBeside, LetsTheKeyboardGoWhenTheClerkInsistsAndStandsThereOnTheWayBack) {
    put(2, CodeCol, "X1");
    desk.focusElsewhere();
    desk.focusElsewhere();
    EXPECT_EQ(desk.focusOwner(), FocusPlace::Elsewhere);
    EXPECT_TRUE(open());
    desk.clickEditor();
    expectTold("X1", UnknownCode);
}

TEST_F(RefusalBeside, HoldsAPressInTheGridBack) {
    put(2, CodeCol, "X1");
    desk.click(4, 1);
    expectTold("X1", UnknownCode);
    EXPECT_EQ(current(), (Cell{2, CodeCol}));
}

TEST_F(RefusalBeside, IsReadByWhoeverAsksAsABoxIs) {
    put(2, CodeCol, "X1");
    EXPECT_FALSE(grid.ValidTextData());
    expectTold("X1", UnknownCode);
    EXPECT_FALSE(grid.IsValid());
    EXPECT_EQ(grid.ReadCell(2, CodeCol, true), "");
    expectTold("X1", UnknownCode);
}

TEST_F(RefusalBeside, StandsAtTheCellWhenAHostHasClosedTheEditorMeanwhile) {
    whenAsked([&] { grid.Grid().Select(4, 1); });
    put(2, CodeCol, "X1");
    desk.press(Key::Tab);
    EXPECT_EQ(boxes(), Boxes{});
    EXPECT_EQ(desk.tips(), (Lines{UnknownCode}));
    EXPECT_FALSE(open());
}

// --- Rules on empty and zero values.

TEST_F(RefusalBeside, OfAnEmptyValueStandsAtTheOpenEditorAndGoesWithTheNextChange) {
    column(1).i是否允许为空(i字段不能为空);
    openAt(2, 1);
    EXPECT_FALSE(grid.ValidTextData());
    EXPECT_EQ(boxes(), Boxes{});
    EXPECT_NE(desk.editor().tip, "");
    EXPECT_FALSE(desk.editor().refused);
    EXPECT_EQ(desk.focusOwner(), FocusPlace::Editor);
    desk.type("a");
    EXPECT_EQ(desk.editor().tip, "");
}

TEST_F(RefusalBeside, OfAnEmptyValueStandsAtAClosedCellThatIsBroughtIntoView) {
    rows(60);
    column(1).i是否允许为空(i字段不能为空);
    at(50, 1);
    desk.scrollTo(1, 1);
    desk.clear();
    EXPECT_FALSE(grid.ValidTextData());
    EXPECT_EQ(boxes(), Boxes{});
    ASSERT_EQ(desk.tips().size(), 1u);
    EXPECT_GT(grid.Grid().CellRect(50, 1).height, 0);
    EXPECT_EQ(desk.focusOwner(), FocusPlace::Grid);
}

TEST_F(RefusalBeside, OfAnEmptyValueIsToldWhileACommitIsUnderWay) {
    column(1).i是否允许为空(i字段不能为空);
    grid.AfterEdit.connect([&](std::int32_t, std::int32_t) { EXPECT_FALSE(grid.ValidTextData()); });
    openAt(2, 1);
    desk.type("a").press(Key::Enter);
    EXPECT_EQ(boxes(), Boxes{});
    EXPECT_EQ(desk.tips().size(), 1u);
    EXPECT_FALSE(open());
}

TEST_F(RefusalBeside, OfABooleanCellStandsAtTheCell) {
    typed(1, flexDTBoolean);
    grid.Options(1).accepts([](std::int32_t, std::string_view) { return std::string("不能勾选。"); });
    at(2, 1);
    desk.clear();
    desk.type(" ");
    EXPECT_EQ(boxes(), Boxes{});
    EXPECT_EQ(desk.tips(), (Lines{"不能勾选。"}));
    EXPECT_EQ(text(2, 1), "");
    EXPECT_EQ(desk.focusOwner(), FocusPlace::Grid);
}

TEST_F(RefusalBeside, LeavesTheTipOfAnExpressionAsItIs) {
    typed(1, flexDTDouble);
    openAt(2, 1);
    desk.type("1+*2").press(Key::Enter);
    EXPECT_NE(desk.editor().tip, "");
    desk.focusElsewhere();
    EXPECT_EQ(desk.focusOwner(), FocusPlace::Elsewhere);
    EXPECT_EQ(desk.editor().tip, "");
}

TEST_F(RefusalBeside, MayBeChangedBetweenTwoRefusals) {
    refuseCode();
    grid.Options().Refusals(GridOptions::RefusalStyle::Box);
    desk.press(Key::Tab);
    EXPECT_EQ(boxes(), codeBox());
}
}  // namespace
}  // namespace kxVsGrid::testing

// What happens when a typed code or date is refused: the box, the text that stays, the keyboard; the ways by
// which a clerk or a host asks for it; correcting it and going on.
#include <functional>
#include <ostream>

#include "editing/CheckTest.h"

namespace kxVsGrid::testing {
namespace {

struct Kind {
    const char* name;
    std::int32_t col;
    const char* bad;
    const char* good;
    const char* stored;
    friend std::ostream& operator<<(std::ostream& out, const Kind& kind) { return out << kind.name; }
};

const Kind Kinds[] = {
    {"Code", 2, "X1", "A1", "A1"},
    {"Date", 3, "2011-02-30", "2011-2-28", "2011-02-28"},
    {"HalfDay", 4, "2011-2-3 晚上", "2011-2-3 下午", "2011-02-03 下午"},
    {"Time", 5, "2011-2-3 24:00:00", "2011-2-3 8:5:9", "2011-02-03 08:05:09"},
};

class RefusedTyping : public CheckTest, public ::testing::WithParamInterface<Kind> {
  protected:
    RefusedTyping() {
        knowCodes();
        fill(2, col, "", "old tag");
    }
    std::string selectedEditor(const std::string& text, bool refused) const {
        return "editor: " + text + ", selected from 0, " + std::to_string(support::characters(text)) +
               " long" + (refused ? ", refused" : "");
    }
    /// The question to the host, which a date does not need.
    Lines question(const std::string& text) const { return col == CodeCol ? asked(text) : Lines{}; }
    void refuse() {
        put(2, col, bad);
        desk.press(Key::Enter);
        ASSERT_EQ(boxes(), refusalBox(col));
        forget();
    }
    void expectNothingStored() {
        EXPECT_EQ(text(2, col), "");
        EXPECT_EQ(tag(2, col), "old tag");
        EXPECT_FALSE(grid.bIsDirty());
        EXPECT_EQ(desk.editor().tag, "old tag");
    }
    /// The text was refused just now, in the place where it was typed.
    void expectRefusedOnce() {
        EXPECT_EQ(boxes(), refusalBox(col));
        expectRefused(2, col, bad);
        expectNothingStored();
    }
    /// Nothing has happened to the refused text.
    void expectLeftAlone() {
        EXPECT_EQ(boxes(), Boxes{});
        EXPECT_EQ(named(heard(), "TxtValidBmS"), Lines{});
        EXPECT_TRUE(open());
        EXPECT_TRUE(desk.editor().refused);
        EXPECT_EQ(desk.editor().text, bad);
        EXPECT_EQ(current(), (Cell{2, col}));
        expectNothingStored();
    }
    void expectGoneOn() {
        EXPECT_EQ(boxes(), Boxes{});
        EXPECT_FALSE(open());
        EXPECT_EQ(text(2, col), GetParam().stored);
        EXPECT_TRUE(grid.bIsDirty());
    }

    const std::int32_t col = GetParam().col;
    const std::string bad = GetParam().bad;
};

INSTANTIATE_TEST_SUITE_P(Of, RefusedTyping, ::testing::ValuesIn(Kinds),
                         [](const auto& tested) { return std::string(tested.param.name); });

TEST_P(RefusedTyping, ShowsTheBoxThenMarksAndSelectsTheTextThenGivesTheEditorTheKeyboard) {
    put(2, col, bad);
    EXPECT_FALSE(grid.ValidTextData());
    EXPECT_EQ(desk.takeSteps(), (Lines{"box: " + refusalBox(col)[0].text, selectedEditor(bad, true),
                                       "keyboard to the editor"}));
    EXPECT_EQ(heard(), question(bad));
    expectRefusedOnce();
}

TEST_P(RefusedTyping, IsCleanedOfLineEndsBeforeItIsMarkedAndSelected) {
    put(2, col, "\r\n" + bad);
    EXPECT_FALSE(grid.ValidTextData());
    EXPECT_EQ(desk.takeSteps(),
              (Lines{"box: " + refusalBox(col)[0].text, "editor: " + bad + ", selected from 0, 0 long",
                     selectedEditor(bad, true), "keyboard to the editor"}));
    expectRefusedOnce();
}

TEST_P(RefusedTyping, ShowsItsBoxOverTheTextAsItWasTyped) {
    put(2, col, bad + "\r\n");
    desk.select(1);
    headless::SeenEditor seen;
    desk.whileTheBoxIsOpen = [&] { seen = desk.editor(); };
    EXPECT_FALSE(grid.ValidTextData());
    EXPECT_TRUE(seen.visible);
    EXPECT_FALSE(seen.refused);
    EXPECT_EQ(seen.text, bad + "\r\n");
    EXPECT_EQ(seen.selStart, 1u);
    EXPECT_EQ(seen.selLength, 0u);
    expectRefusedOnce();
}

TEST_P(RefusedTyping, TakesTheLineEndsOutBeforeItCounts) {
    for (const std::string& typed : {bad + "\n", "\r\n" + bad, bad.substr(0, 1) + "\r\r\n" + bad.substr(1)}) {
        put(2, col, typed);
        EXPECT_FALSE(grid.ValidTextData());
        expectRefusedOnce();
        desk.clear();
        heard();
        desk.press(Key::Enter);
        expectLeftAlone();
        desk.press(Key::Escape);
    }
}

TEST_P(RefusedTyping, OfSeveralLinesLeavesOneLine) {
    column(col).b是否编辑多行(true);
    put(2, col, bad + "\n\n");
    desk.press(Key::Tab);
    expectRefusedOnce();
    forget();
    desk.focusElsewhere();
    expectLeftAlone();
    desk.clickEditor();
    desk.press(Key::Enter);
    expectLeftAlone();
    desk.press(Key::End).press(Key::Enter);
    EXPECT_EQ(desk.editor().text, bad + "\n") << "a key that replaces all of the text is used up";
    EXPECT_FALSE(desk.editor().refused);
}

TEST_P(RefusedTyping, RaisesNothingThatACommitRaises) {
    consentToRows();
    const std::int32_t last = grid.Rows() - 1;
    put(last, col, bad);
    desk.press(Key::Enter);
    EXPECT_EQ(without(heard(), "TxtValidBmS"), Lines{});
    EXPECT_EQ(grid.Rows(), last + 1);
}

TEST_P(RefusedTyping, DoesNotTouchTheTotals) {
    summed(1);
    fill(3, 1, "5");
    put(2, col, bad);
    desk.press(Key::Enter);
    EXPECT_EQ(grid.ReadSum(1), "5");
}

// --- The ways to ask for the check.

struct AskingWay {
    const char* name;
    std::function<void(WatchedDesk&, kxGrid&)> ask;
    bool again;  ///< the check is made again when the text was refused already
    friend std::ostream& operator<<(std::ostream& out, const AskingWay& way) { return out << way.name; }
};

// The text is wholly selected and the caret at its start when they begin.
const AskingWay AskingWays[] = {
    {"Enter", [](WatchedDesk& d, kxGrid&) { d.press(Key::Enter); }, false},
    {"Tab", [](WatchedDesk& d, kxGrid&) { d.press(Key::Tab); }, true},
    {"ShiftTab", [](WatchedDesk& d, kxGrid&) { d.press(Key::Tab, ShiftKey); }, true},
    {"Up", [](WatchedDesk& d, kxGrid&) { d.press(Key::Up); }, true},
    {"Down", [](WatchedDesk& d, kxGrid&) { d.press(Key::Down); }, true},
    {"Left", [](WatchedDesk& d, kxGrid&) { d.press(Key::Left); }, true},
    {"Right", [](WatchedDesk& d, kxGrid&) { d.press(Key::Right); }, true},
    {"ValidTextData", [](WatchedDesk&, kxGrid& g) { EXPECT_FALSE(g.ValidTextData()); }, true},
    {"IsValid", [](WatchedDesk&, kxGrid& g) { EXPECT_FALSE(g.IsValid()); }, true},
    {"ReadCell", [](WatchedDesk&, kxGrid& g) { EXPECT_EQ(g.ReadCell(2, g.Col(), true), ""); }, false},
    {"SetCell", [](WatchedDesk&, kxGrid& g) { g.SetCell(4, 1, "other"); }, false},
    {"Click", [](WatchedDesk& d, kxGrid&) { d.click(4, 1); }, false},
    {"DoubleClick", [](WatchedDesk& d, kxGrid&) { d.doubleClick(4, 1); }, false},
    {"RightClick", [](WatchedDesk& d, kxGrid&) { d.rightClick(4, 1); }, false},
    {"HeaderClick", [](WatchedDesk& d, kxGrid&) { d.click(0, 2); }, false},
    {"ClickOnTheSameCell", [](WatchedDesk& d, kxGrid& g) { d.click(2, g.Col() == 1 ? 2 : 1); }, false},
    {"FocusLoss", [](WatchedDesk& d, kxGrid&) { d.focusElsewhere(); }, false},
    {"FocusOnTheSurface", [](WatchedDesk& d, kxGrid&) { d.focusSurface(); }, false},
    {"FocusOnTheGrid", [](WatchedDesk& d, kxGrid&) { d.focusGrid(); }, false},
};

class AskedBy : public ::testing::WithParamInterface<std::tuple<Kind, AskingWay>>, public CheckTest {
  protected:
    AskedBy() {
        knowCodes();
        fill(2, col, "", "old tag");
        put(2, col, bad);
        desk.select(0, support::characters(bad));
        forget();
    }
    void ask() { std::get<AskingWay>(GetParam()).ask(desk, grid); }
    void expectKept() {
        EXPECT_TRUE(open());
        EXPECT_TRUE(desk.editor().refused);
        EXPECT_EQ(desk.editor().text, bad);
        EXPECT_EQ(desk.editor().tag, "old tag");
        EXPECT_EQ(desk.editor().selLength, support::characters(bad));
        EXPECT_EQ(current(), (Cell{2, col}));
        EXPECT_EQ(text(2, col), "");
        EXPECT_EQ(tag(2, col), "old tag");
        EXPECT_EQ(grid.Grid().TopRow(), 1);
        EXPECT_FALSE(grid.bIsDirty());
    }

    const std::int32_t col = std::get<Kind>(GetParam()).col;
    const std::string bad = std::get<Kind>(GetParam()).bad;
};

INSTANTIATE_TEST_SUITE_P(A, AskedBy,
                         ::testing::Combine(::testing::ValuesIn(Kinds), ::testing::ValuesIn(AskingWays)),
                         [](const auto& tested) {
                             return std::string(std::get<Kind>(tested.param).name) + "By" +
                                    std::get<AskingWay>(tested.param).name;
                         });

TEST_P(AskedBy, IsRefusedOnceAndStaysWithTheKeyboard) {
    ask();
    EXPECT_EQ(boxes(), refusalBox(col));
    expectKept();
    expectRefused(2, col, bad);
}

TEST_P(AskedBy, RaisesNothingButTheQuestionToTheHost) {
    ask();
    const Lines written =
        std::get<AskingWay>(GetParam()).name == std::string("SetCell") ? changed(4, 1) : Lines{};
    EXPECT_EQ(heard(), (col == CodeCol ? asked(bad) : Lines{}) + written);
}

TEST_P(AskedBy, IsCheckedAgainOnlyByWhatDoesNotWaitForAChange) {
    ask();
    desk.clear();
    heard();
    ask();
    const bool again = std::get<AskingWay>(GetParam()).again;
    EXPECT_EQ(boxes(), again ? refusalBox(col) : Boxes{});
    EXPECT_EQ(named(heard(), "TxtValidBmS"), again && col == CodeCol ? asked(bad) : Lines{});
    expectKept();
}

TEST_P(AskedBy, IsNotCheckedByEnterOrAFocusLossAfterIt) {
    ask();
    if (desk.focusOwner() != FocusPlace::Editor) desk.clickEditor();
    forget();
    desk.press(Key::Enter).press(Key::Enter);
    desk.focusElsewhere();
    EXPECT_EQ(boxes(), Boxes{});
    EXPECT_EQ(heard(), Lines{});
    expectKept();
}

TEST_P(AskedBy, IsCheckedByItOnceTheTextHasChanged) {
    ask();
    if (desk.focusOwner() != FocusPlace::Editor) desk.clickEditor();
    desk.select(support::characters(bad));
    desk.type("x").press(Key::Back);
    EXPECT_FALSE(desk.editor().refused) << "a text that came back is a changed text";
    desk.select(0, support::characters(bad));
    forget();
    ask();
    EXPECT_EQ(boxes(), refusalBox(col));
    expectKept();
}

// --- What waits for a change, and what is a change.

TEST_P(RefusedTyping, StaysWhereTheClerkPutTheKeyboardWhenNothingIsCheckedAgain) {
    refuse();
    desk.focusElsewhere();
    EXPECT_EQ(desk.focusOwner(), FocusPlace::Elsewhere);
    desk.focusSurface();
    EXPECT_EQ(desk.focusOwner(), FocusPlace::Surface);
    expectLeftAlone();
}

TEST_P(RefusedTyping, IsNotForgottenByMovingTheCaret) {
    refuse();
    desk.press(Key::End).press(Key::Home);
    desk.select(1, 1);
    desk.press(Key::Enter);
    expectLeftAlone();
}

TEST_P(RefusedTyping, IsNotForgottenByTheTag) {
    refuse();
    grid.TextTag("old tag");
    desk.press(Key::Enter);
    expectLeftAlone();
}

TEST_P(RefusedTyping, IsNotForgottenByTheWheelNorByTheScrollBar) {
    rows(60);
    refuse();
    desk.wheel(2);
    desk.scrollTo(9, 1);
    EXPECT_EQ(grid.Grid().TopRow(), 1) << "the grid does not scroll away from an open editor";
    expectLeftAlone();
}

TEST_P(RefusedTyping, StaysWhenAnArrowHasAskedAgain) {
    refuse();
    desk.press(Key::Down);
    EXPECT_EQ(boxes(), refusalBox(col));
    forget();
    desk.press(Key::Enter);
    desk.focusElsewhere();
    expectLeftAlone();
}

TEST_P(RefusedTyping, IsForgottenByEveryKindOfChange) {
    const std::vector<std::function<void()>> changes = {
        [&] { desk.type("z"); },          [&] { desk.press(Key::Back); },
        [&] { desk.press(Key::Delete); }, [&] { desk.press(Key::End).press(Key::Back); },
        [&] { grid.Text("other"); },      [&] { desk.compose("pin"), desk.commitComposition("品"); },
    };
    for (std::size_t i = 0; i < changes.size(); ++i) {
        refuse();
        changes[i]();
        EXPECT_FALSE(desk.editor().refused) << i;
        desk.press(Key::Escape);
    }
}

TEST_P(RefusedTyping, OfAnotherTextShowsTheBoxAgain) {
    refuse();
    desk.type("y").press(Key::Enter);
    EXPECT_EQ(boxes(), refusalBox(col));
    expectRefused(2, col, "y");
    desk.clear();
    desk.type("z");
    desk.focusElsewhere();
    EXPECT_EQ(boxes(), refusalBox(col));
    expectRefused(2, col, "z");
}

// --- Correcting and going on.

TEST_P(RefusedTyping, IsReplacedByTypingAndGoesOn) {
    refuse();
    desk.type(GetParam().good);
    EXPECT_EQ(desk.editor().text, GetParam().good) << "all of it was selected";
    desk.press(Key::Enter);
    expectGoneOn();
    EXPECT_EQ(current(), col == 5 ? (Cell{3, 1}) : (Cell{2, col + 1}));
    EXPECT_EQ(desk.focusOwner(), FocusPlace::Grid);
}

TEST_P(RefusedTyping, IsCorrectedThenLeftByEveryKey) {
    const std::pair<Key, Cell> leaving[] = {{Key::Up, {1, col}},
                                            {Key::Down, {3, col}},
                                            {Key::Right, col == 5 ? Cell{3, 1} : Cell{2, col + 1}},
                                            {Key::Tab, col == 5 ? Cell{3, 1} : Cell{2, col + 1}}};
    for (const auto& [key, target] : leaving) {
        fill(2, col, "", "old tag");
        refuse();
        desk.type(GetParam().good).press(key);
        expectGoneOn();
        EXPECT_EQ(current(), target);
    }
}

TEST_P(RefusedTyping, IsCorrectedThenLeftByTheMouse) {
    refuse();
    desk.type(GetParam().good).click(4, 1);
    expectGoneOn();
    EXPECT_EQ(current(), (Cell{4, 1}));
}

TEST_P(RefusedTyping, IsCorrectedThenCommittedByTheHost) {
    refuse();
    desk.type(GetParam().good);
    EXPECT_EQ(grid.ReadCell(2, col, true), GetParam().stored);
    expectGoneOn();
}

TEST_P(RefusedTyping, IsCorrectedByTakingBackToTheTextOnEntry) {
    fill(2, col, "seen before", "old tag");
    refuse();
    desk.type("seen before").press(Key::Enter);
    EXPECT_EQ(boxes(), Boxes{});
    EXPECT_FALSE(open());
    EXPECT_EQ(text(2, col), "seen before");
    EXPECT_EQ(tag(2, col), "old tag");
}

TEST_P(RefusedTyping, IsGivenUpByEscape) {
    refuse();
    desk.press(Key::Escape);
    EXPECT_FALSE(open());
    EXPECT_EQ(boxes(), Boxes{});
    EXPECT_EQ(heard(), Lines{});
    EXPECT_EQ(text(2, col), "");
    EXPECT_EQ(tag(2, col), "old tag");
    EXPECT_EQ(desk.focusOwner(), FocusPlace::Grid);
    desk.press(Key::Down);
    EXPECT_EQ(current(), (Cell{3, col}));
}

TEST_P(RefusedTyping, IsOfNoConcernToTheNextCell) {
    refuse();
    desk.press(Key::Escape);
    openAt(3, 1);
    desk.type("abc").press(Key::Enter);
    EXPECT_EQ(text(3, 1), "abc");
    put(2, col, bad);
    desk.press(Key::Enter);
    EXPECT_EQ(boxes(), refusalBox(col));
}

// --- Host code over a refused text.

TEST_P(RefusedTyping, LetsTheHostMoveTheCellWhichHidesTheEditor) {
    const std::pair<std::function<void()>, Cell> movesOfTheHost[] = {
        {[&] { grid.Row(4); }, {4, col}},
        {[&] { grid.Col(1); }, {2, 1}},
        {[&] { grid.Grid().Select(3, 1); }, {3, 1}},
    };
    for (const auto& [move, target] : movesOfTheHost) {
        refuse();
        move();
        EXPECT_EQ(boxes(), refusalBox(col)) << "leaving the cell checks again";
        EXPECT_EQ(current(), target);
        EXPECT_FALSE(open());
        EXPECT_EQ(text(2, col), "");
        EXPECT_EQ(tag(2, col), "old tag");
        EXPECT_EQ(grid.Text(), text(target.row, target.col));
        desk.clear();
        desk.press(Key::Space);
        EXPECT_TRUE(open());
        EXPECT_FALSE(desk.editor().refused);
        desk.press(Key::Enter);
        EXPECT_FALSE(open()) << "the next cell has nothing refused";
        EXPECT_EQ(boxes(), Boxes{});
    }
}

TEST_P(RefusedTyping, MovesWithAllEventsOfTheMoveWhenTheHostMovesTheCell) {
    refuse();
    grid.Row(4);
    EXPECT_EQ(heard(), asks(2, col, 4, col) + question(bad) + arrives() + settles(2, col, 4, col));
}

TEST_P(RefusedTyping, StaysWhenTheHostRefusesToMove) {
    refuse();
    Connection once = grid.BeforeRowColChange.connect(
        [](std::int32_t, std::int32_t, std::int32_t, std::int32_t, bool& cancel) { cancel = true; });
    grid.Row(4);
    once.disconnect();
    expectLeftAlone();
}

TEST_P(RefusedTyping, DoesNotKeepTheHostFromSwitchingEditingOff) {
    put(2, col, bad);
    grid.Editable(false);
    EXPECT_EQ(boxes(), refusalBox(col));
    EXPECT_FALSE(grid.Editable());
    EXPECT_EQ(text(2, col), "");
    EXPECT_FALSE(grid.bIsDirty());
}

TEST_P(RefusedTyping, FollowsItsCellWhenRowsComeAndGo) {
    refuse();
    grid.Grid().InsertRow(1);
    EXPECT_TRUE(desk.editor().refused);
    EXPECT_EQ(current(), (Cell{3, col}));
    grid.Grid().RemoveRow(1);
    desk.press(Key::Enter);
    expectLeftAlone();
    grid.Grid().RemoveRow(2);
    EXPECT_FALSE(open());
    EXPECT_EQ(boxes(), Boxes{});
}

TEST_P(RefusedTyping, EndsWithClear) {
    refuse();
    grid.Clear();
    EXPECT_FALSE(open());
    EXPECT_EQ(grid.Text(), "");
    EXPECT_EQ(boxes(), Boxes{});
    grid.Grid().Select(1, 1);
    desk.focusGrid();
    desk.type("abc").press(Key::Enter);
    EXPECT_EQ(text(1, 1), "abc");
}

TEST_P(RefusedTyping, GivesTheGridTheKeyboardWhenTheEditorHasGoneMeanwhile) {
    put(2, col, bad);
    desk.whileTheBoxIsOpen = [&] { grid.Row(4); };
    EXPECT_FALSE(grid.ValidTextData());
    EXPECT_EQ(desk.takeSteps(),
              (Lines{"box: " + refusalBox(col)[0].text, "editor hidden", "keyboard to the grid"}));
    EXPECT_EQ(desk.focusOwner(), FocusPlace::Grid);
    EXPECT_EQ(current(), (Cell{4, col}));
    EXPECT_EQ(text(2, col), "");
    EXPECT_EQ(tag(2, col), "old tag");
}

// --- A morning's work.

class Corrections : public CheckTest {};

TEST_F(Corrections, AreWaitedForHoweverOftenTheTextHasBeenChecked) {
    put(2, DateCol, "x");
    constexpr int MoreThanTheCounterHolds = 33000;
    for (int i = 0; i < MoreThanTheCounterHolds; ++i) {
        grid.IsValid();
        forget();
    }
    desk.press(Key::Enter);
    desk.focusElsewhere();
    EXPECT_EQ(boxes(), Boxes{});
    EXPECT_TRUE(desk.editor().refused);
}

TEST_F(Corrections, ShowOneBoxForEveryMistakeInTheExactWords) {
    knowCodes();
    judge(1, gEmJudgeType{});
    column(1).sName("数量");
    column(1).i是否允许为空(i字段不能为零);
    column(CodeCol).sName("货号");
    column(CodeCol).i是否允许为空(i字段不能为空);
    openAt(1, 1);
    desk.clear();
    desk.type("0");
    grid.TextTag("0");
    EXPECT_FALSE(grid.IsValid());
    desk.press(Key::Back).type("12");
    grid.TextTag("12");
    EXPECT_TRUE(grid.IsValid());
    grid.Col(CodeCol);
    desk.focusGrid();
    EXPECT_FALSE(grid.IsValid());
    desk.type("B7").press(Key::Enter).press(Key::Enter);
    desk.type("C7").press(Key::Tab);
    desk.type("A7").press(Key::Enter);
    desk.type("2011-02-30").press(Key::Enter).press(Key::Enter);
    desk.type("2011-2-28").press(Key::Enter);
    desk.type("2011-2-28").press(Key::Down);
    desk.press(Key::End).type(" 晚上").press(Key::Enter);
    desk.press(Key::End).press(Key::Back).press(Key::Back).type("上午").press(Key::Enter);
    desk.type("2011-2-28 24:00:00").click(4, 1);
    desk.type("2011-2-28 23:00:00").press(Key::Enter);
    EXPECT_EQ(boxes(), (Boxes{{"数量不能为零!", 64, "提示："},
                              {"货号不能为空!", 64, "提示："},
                              {"没有此货号", 16, "错误："},
                              {"没有此货号", 16, "错误："},
                              {"非法公历日期!(格式:2026-11-20)", 64, "提示："},
                              {"非法公历日期!(格式:2026-11-20 上午)", 64, "提示："},
                              {"非法公历日期!(格式:2026-11-20 上午)", 64, "提示："},
                              {"非法公历日期!(格式:2026-11-20 09:30:05)", 64, "提示："}}));
    const Lines row = {text(1, 1), text(1, 2), text(1, 3), text(1, 4), text(1, 5)};
    EXPECT_EQ(row, (Lines{"12", "A7", "2011-02-28", "2011-02-28 上午", "2011-02-28 23:00:00"}));
    EXPECT_EQ(current(), (Cell{2, 1}));
}

}  // namespace
}  // namespace kxVsGrid::testing

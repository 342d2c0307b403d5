// The list under the editor: when it stands there, which keys go into it, and what becomes of the text.
#include "editing/SuggestionTest.h"

#include <gtest/gtest.h>

namespace kxVsGrid::testing {
namespace {

class Suggesting : public SuggestionTest {
  protected:
    Suggesting() {
        goods.add({"A001", "螺栓", "M8×40"}, {"luosuo"});
        goods.add({"A002", "螺母", "M8"}, {"luomu"});
        goods.add({"B001", "钢管", "DN25"}, {"gong"});
        suggest(goods);
    }
    SuggestionList goods;
};

// --- When it stands there

TEST_F(Suggesting, BeginsWithTheFirstCharacterWhichOpensTheEditor) {
    desk.type("A");
    EXPECT_EQ(desk.suggestions(), (headless::ShownSuggestions{{"A001", "A002"}, {"M8×40", "M8"}, -1}));
    desk.type("002");
    EXPECT_EQ(shown(), Texts{"A002"});
    desk.type("x");
    EXPECT_EQ(shown(), Texts{});
    desk.press(Key::Back);
    EXPECT_EQ(shown(), Texts{"A002"});
}

TEST_F(Suggesting, TellsTheSourceTheRowAndTheTrimmedText) {
    std::vector<std::pair<std::int32_t, std::string>> requests;
    suggest([&](const SuggestionRequest& request) { requests.emplace_back(request.row, request.text); });
    at(3, 1);
    desk.type("a b ");
    EXPECT_EQ(requests, (std::vector<std::pair<std::int32_t, std::string>>{
                            {3, "a"}, {3, "a"}, {3, "a b"}, {3, "a b"}}));
}

TEST_F(Suggesting, DoesNotBeginAsTheEditorOpens) {
    fill(1, 1, "A");
    openAt(1, 1);
    EXPECT_EQ(shown(), Texts{});
    desk.press(Key::End).press(Key::Left);
    EXPECT_EQ(shown(), Texts{});
}

TEST_F(Suggesting, EndsWhereTheTextIsBlank) {
    desk.type("A");
    desk.press(Key::Back);
    EXPECT_EQ(shown(), Texts{});
    desk.type("  ");
    EXPECT_EQ(shown(), Texts{});
}

TEST_F(Suggesting, IsOfItsColumnAlone) {
    at(1, 2);
    desk.type("A");
    EXPECT_EQ(shown(), Texts{});
}

TEST_F(Suggesting, IsNotForTextsThatCodeSets) {
    openAt(1, 1);
    grid.Text("001");
    EXPECT_EQ(shown(), Texts{});
    desk.type("A");
    EXPECT_FALSE(shown().empty());
    grid.Text("B");
    EXPECT_EQ(shown(), Texts{});
    desk.press(Key::Enter);
    EXPECT_EQ(text(1, 1), "B");
}

TEST_F(Suggesting, IsNotInCellsThatAreNotTypedInto) {
    readOnly(1);
    desk.type("A");
    EXPECT_EQ(shown(), Texts{});
    column(1).bIsEditable(true);
    typed(1, flexDTBoolean);
    desk.type("A");
    EXPECT_EQ(shown(), Texts{});
}

TEST_F(Suggesting, EndsOnceTheCellMayNotBeChangedAnyMore) {
    desk.type("A");
    readOnly(1);
    desk.type("0");
    EXPECT_EQ(shown(), Texts{});
    column(1).bIsEditable(true);
    desk.type("0");
    EXPECT_FALSE(shown().empty());
    grid.Editable(false);
    desk.type("1");
    EXPECT_EQ(shown(), Texts{});
}

TEST_F(Suggesting, EndsWithTheEditor) {
    for (const Key key : {Key::Enter, Key::Tab, Key::Right}) {
        at(1, 1);
        desk.type("A0");
        EXPECT_FALSE(shown().empty());
        desk.press(key);
        EXPECT_EQ(shown(), Texts{}) << static_cast<int>(key);
    }
    at(1, 1);
    desk.type("A").focusElsewhere();
    EXPECT_EQ(shown(), Texts{});
    desk.focusGrid().type("A").click(3, 3);
    EXPECT_EQ(shown(), Texts{});
    at(1, 1);
    desk.type("A");
    grid.ReadCell(1, 1, true);
    EXPECT_EQ(shown(), Texts{});
}

TEST_F(Suggesting, EndsWithHelp) {
    column(1).b是否提供帮助(true);
    desk.type("A").press(Key::F2);
    EXPECT_EQ(shown(), Texts{});
    EXPECT_TRUE(open());
    desk.type("0");
    EXPECT_EQ(shown(), (Texts{"A001", "A002"}));
    desk.pressHelpButton();
    EXPECT_EQ(shown(), Texts{});
}

// --- Keys

TEST_F(Suggesting, TakesDownAndUpOnceItStandsThere) {
    desk.type("A");
    heard();
    desk.press(Key::Down);
    EXPECT_EQ(place(), 0);
    desk.press(Key::Down);
    EXPECT_EQ(place(), 1);
    desk.press(Key::Down);
    EXPECT_EQ(place(), 1);
    desk.press(Key::Up);
    EXPECT_EQ(place(), 0);
    desk.press(Key::Up);
    EXPECT_EQ(place(), -1);
    EXPECT_EQ(shown(), (Texts{"A001", "A002"}));
    EXPECT_EQ(heard(), Lines{});
    EXPECT_EQ(desk.editor().text, "A");
    desk.press(Key::Enter);
    EXPECT_EQ(text(1, 1), "A");
}

TEST_F(Suggesting, LeavesDownAndUpToTheCellsWhereItIsNotEntered) {
    at(2, 1);
    desk.type("x").press(Key::Down);
    EXPECT_EQ(current(), (Cell{3, 1}));
    EXPECT_EQ(text(2, 1), "x");
    desk.type("A").press(Key::Up);
    EXPECT_EQ(current(), (Cell{2, 1}));
    EXPECT_EQ(text(3, 1), "A");
}

TEST_F(Suggesting, MovesByPages) {
    for (int i = 100; i < 125; ++i) goods.add({"C" + std::to_string(i)});
    desk.type("C").press(Key::PageUp);
    EXPECT_EQ(place(), -1);
    EXPECT_TRUE(open());
    for (const std::ptrdiff_t wanted : {0, 10, 20, 24, 24}) {
        desk.press(Key::PageDown);
        EXPECT_EQ(place(), wanted);
    }
    for (const std::ptrdiff_t wanted : {14, 4, 0, -1}) {
        desk.press(Key::PageUp);
        EXPECT_EQ(place(), wanted);
    }
}

TEST_F(Suggesting, LeavesTheCaretItsKeys) {
    desk.type("A0").press(Key::Down).press(Key::Left).press(Key::Home);
    EXPECT_EQ(place(), 0);
    EXPECT_EQ(shown(), (Texts{"A001", "A002"}));
    desk.select(0, 2);
    EXPECT_EQ(place(), 0);
    EXPECT_TRUE(open());
}

TEST_F(Suggesting, CommitsTheTextAsTypedByRight) {
    desk.type("A").press(Key::Down).press(Key::Right);
    EXPECT_EQ(text(1, 1), "A");
}

TEST_F(Suggesting, ClosesByEscFirstAndForAsLongAsTheEditorIsOpen) {
    fill(1, 1, "old");
    desk.type("A").press(Key::Down).press(Key::Escape);
    EXPECT_EQ(shown(), Texts{});
    EXPECT_TRUE(open());
    EXPECT_EQ(desk.editor().text, "A");
    desk.type("0");
    EXPECT_EQ(shown(), Texts{});
    desk.press(Key::Escape);
    EXPECT_FALSE(open());
    EXPECT_EQ(text(1, 1), "old");
    desk.type("A");
    EXPECT_EQ(shown(), (Texts{"A001", "A002"}));
}

TEST_F(Suggesting, LeavesDownAndEnterAloneOnceItWasClosed) {
    desk.type("B").press(Key::Escape).press(Key::Enter);
    EXPECT_EQ(text(1, 1), "B");
    at(1, 1);
    desk.type("A").press(Key::Escape).press(Key::Down);
    EXPECT_EQ(current(), (Cell{2, 1}));
    EXPECT_EQ(text(1, 1), "A");
}

// --- What is taken

TEST_F(Suggesting, GivesEnterTheOneMovedToAndGoesOnInTheSamePress) {
    desk.type("A").press(Key::Down).press(Key::Down);
    heard();
    desk.press(Key::Enter);
    EXPECT_EQ(heard(), changed(1, 1) + changed(1, 1) + edited(1, 1) + moves(1, 1, 1, 2));
    EXPECT_EQ(text(1, 1), "A002");
    EXPECT_EQ(tag(1, 1), "螺母");
    EXPECT_EQ(desk.focusOwner(), FocusPlace::Grid);
}

TEST_F(Suggesting, GivesTabTheOneMovedTo) {
    desk.type("A").press(Key::Down).press(Key::Down).press(Key::Tab);
    EXPECT_EQ(text(1, 1), "A002");
    EXPECT_EQ(tag(1, 1), "螺母");
    EXPECT_EQ(current(), (Cell{1, 2}));
}

TEST_F(Suggesting, GivesEnterTheOnlyOneAndTabTheText) {
    desk.type("gong").press(Key::Enter);
    EXPECT_EQ(text(1, 1), "B001");
    EXPECT_EQ(tag(1, 1), "钢管");
    at(2, 1);
    desk.type("gong").press(Key::Tab);
    EXPECT_EQ(text(2, 1), "gong");
}

TEST_F(Suggesting, GivesEnterTheTextAsTypedWhereSeveralMatch) {
    desk.type("luo").press(Key::Enter);
    EXPECT_EQ(text(1, 1), "luo");
    EXPECT_EQ(tag(1, 1), "");
}

TEST_F(Suggesting, LetsATextWinThatIsSuggestedAndGivesItTheTag) {
    goods.add({"A0010", "another"});
    for (const Key key : {Key::Enter, Key::Tab, Key::Right}) {
        at(2, 1);
        desk.type("A001").press(key);
        EXPECT_EQ(text(2, 1), "A001");
        EXPECT_EQ(tag(2, 1), "螺栓") << static_cast<int>(key);
        fill(2, 1, "", "");
    }
    at(2, 1);
    desk.type("A001").click(4, 4);
    EXPECT_EQ(tag(2, 1), "螺栓");
}

TEST_F(Suggesting, KeepsTheTagOfATextThatIsTypedAgain) {
    fill(1, 1, "A001", "own");
    desk.type("A001").press(Key::Enter);
    EXPECT_EQ(text(1, 1), "A001");
    EXPECT_EQ(tag(1, 1), "own");
    at(1, 1);
    desk.type("A001").press(Key::Down).press(Key::Enter);
    EXPECT_EQ(tag(1, 1), "螺栓");
}

TEST_F(Suggesting, LeavesTheTagToTheCheckOfTheColumn) {
    takesCodes(1);
    knowCodes();
    desk.type("A0").press(Key::Down).press(Key::Enter);
    EXPECT_EQ(text(1, 1), "A001");
    EXPECT_EQ(tag(1, 1), "货 A001");
    at(1, 1);
    desk.type("A0").press(Key::Down).press(Key::Enter);
    EXPECT_EQ(tag(1, 1), "货 A001");
    at(2, 1);
    desk.type("A002").press(Key::Enter);
    EXPECT_EQ(tag(2, 1), "货 A002");
}

TEST_F(Suggesting, TakesTheOneThatIsPressedAndGoesOn) {
    desk.type("A");
    heard();
    desk.pressSuggestion(1);
    EXPECT_EQ(heard(), changed(1, 1) + changed(1, 1) + edited(1, 1) + moves(1, 1, 1, 2));
    EXPECT_EQ(text(1, 1), "A002");
    EXPECT_EQ(tag(1, 1), "螺母");
    EXPECT_EQ(desk.focusOwner(), FocusPlace::Grid);
}

TEST_F(Suggesting, LetsAPressComeToNothingThatIsTooLate) {
    desk.type("A");
    const auto input = grid.input();
    input->suggestionPressed(2);
    EXPECT_TRUE(open());
    desk.press(Key::Enter);
    heard();
    input->suggestionPressed(0);
    EXPECT_EQ(heard(), Lines{});
    EXPECT_EQ(text(1, 1), "A");
    EXPECT_THROW(desk.pressSuggestion(0), std::logic_error);
}

TEST_F(Suggesting, DoesNotCutWhatIsTaken) {
    column(1).iLimitLength(2);
    desk.type("A0").press(Key::Down).press(Key::Enter);
    EXPECT_EQ(text(1, 1), "A001");
}

TEST_F(Suggesting, PutsALineEndIntoNoEditorOfOneLine) {
    suggestAlways({{"two\nlines\n"}});
    for (const Key key : {Key::Enter, Key::Tab}) {
        at(1, 1);
        desk.type("t").press(Key::Down).press(key);
        EXPECT_EQ(text(1, 1), "two lines");
    }
}

// --- Refused

class SuggestingWhatIsRefused : public Suggesting {
  protected:
    SuggestingWhatIsRefused() {
        grid.Options(1).accepts([](std::int32_t, std::string_view text) {
            return text == "A002" ? std::string("缺货。") : std::string();
        });
    }
};

TEST_F(SuggestingWhatIsRefused, LeavesItInTheEditorWithoutAListUntilTheClerkTypes) {
    desk.type("A").press(Key::Down).press(Key::Down).press(Key::Enter);
    EXPECT_EQ(desk.messages().size(), 1U);
    EXPECT_TRUE(desk.editor().refused);
    EXPECT_EQ(desk.editor().text, "A002");
    EXPECT_EQ(shown(), Texts{});
    EXPECT_EQ(desk.focusOwner(), FocusPlace::Editor);
    desk.press(Key::Enter);
    EXPECT_EQ(shown(), Texts{});
    EXPECT_EQ(desk.messages().size(), 1U);
    desk.type("B");
    EXPECT_EQ(shown(), (Texts{"B001"}));
    desk.press(Key::Enter);
    EXPECT_EQ(text(1, 1), "B001");
}

TEST_F(SuggestingWhatIsRefused, LeavesNothingOfItsTagToWhatIsTypedNext) {
    fill(1, 1, "old", "own");
    desk.type("A").press(Key::Down).press(Key::Down).press(Key::Enter);
    EXPECT_EQ(desk.editor().tag, "螺母");
    desk.type("x").press(Key::Enter);
    EXPECT_EQ(text(1, 1), "x");
    EXPECT_EQ(tag(1, 1), "own");
}

TEST_F(SuggestingWhatIsRefused, LeavesTheCellAsItWasAfterEsc) {
    fill(1, 1, "old", "own");
    desk.type("A002").press(Key::Enter).press(Key::Escape);
    EXPECT_EQ(text(1, 1), "old");
    EXPECT_EQ(tag(1, 1), "own");
    EXPECT_EQ(desk.editor().tag, "own");
}

// --- Several lines

class SuggestingLines : public Suggesting {
  protected:
    SuggestingLines() {
        column(1).b是否编辑多行(true);
        suggestAlways({{"one\ntwo", "tag"}});
    }
};

TEST_F(SuggestingLines, LeavesEnterAndUpToTheTextUntilTheClerkHasMovedIntoTheList) {
    desk.type("a").press(Key::Enter).type("b").press(Key::Up);
    EXPECT_EQ(desk.editor().text, "a\nb");
    EXPECT_FALSE(shown().empty());
    desk.press(Key::Down);
    EXPECT_EQ(place(), 0);
    desk.press(Key::Up);
    EXPECT_EQ(place(), -1);
    desk.press(Key::Down).press(Key::Enter);
    EXPECT_EQ(text(1, 1), "one\ntwo");
    EXPECT_EQ(tag(1, 1), "tag");
    EXPECT_FALSE(open());
    EXPECT_EQ(current(), (Cell{1, 2}));
}

TEST_F(SuggestingLines, LeavesDownToTheTextBeforeItsEnd) {
    desk.type("ab");
    desk.select(1);
    desk.press(Key::Down);
    EXPECT_EQ(place(), -1);
    EXPECT_TRUE(open());
    desk.press(Key::PageDown);
    EXPECT_EQ(place(), 0);
}

TEST_F(SuggestingLines, TakesAPressedOne) {
    desk.type("a").pressSuggestion(0);
    EXPECT_EQ(text(1, 1), "one\ntwo");
    EXPECT_EQ(current(), (Cell{1, 2}));
}

// --- Composition

TEST_F(Suggesting, WaitsForTheEndOfAComposition) {
    goods.add({"螺栓"});
    desk.compose("A");
    EXPECT_EQ(shown(), Texts{});
    desk.commitComposition("螺");
    EXPECT_EQ(shown(), Texts{"螺栓"});
    desk.compose("shuan");
    desk.press(Key::Down).press(Key::Enter).press(Key::Escape).press(Key::PageDown);
    grid.input()->key({static_cast<std::int16_t>(Key::Down), 0, {}});
    grid.input()->suggestionPressed(0);
    EXPECT_EQ(place(), -1);
    EXPECT_EQ(shown(), Texts{"螺栓"});
    EXPECT_TRUE(open());
    desk.commitComposition("栓x");
    EXPECT_EQ(shown(), Texts{});
    desk.press(Key::Back);
    EXPECT_EQ(shown(), Texts{"螺栓"});
}

TEST_F(Suggesting, AsksOnceForWhatACompositionHasMade) {
    suggestLater();
    desk.compose("l").compose("lu").commitComposition("螺");
    EXPECT_EQ(asked, Texts{"螺"});
}
}  // namespace
}  // namespace kxVsGrid::testing

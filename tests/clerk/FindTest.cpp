// Looking for a text in the cells of a grid.
#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <vector>

#include "cellgrid/FrameReader.h"
#include "clerk/Looking.h"
#include "kit/Dice.h"

namespace kxVsGrid::testing {
namespace {

class FindTest : public Looking<ClerkTest> {
  protected:
    /// "2/3": the number of the present match among how many.
    std::string counted() const {
        const FindState state = find.State();
        return std::to_string(state.number) + "/" + std::to_string(state.count) + (state.complete ? "" : "…");
    }
    std::uint32_t groundOf(std::int32_t row, std::int32_t col) const {
        return FrameReader(grid.Grid()).fillOf(row, col);
    }
};

TEST_F(FindTest, ShowsTheFirstMatchFromTheCurrentCellOnAndCountsAll) {
    fill(1, 2, "apple pie");
    fill(3, 1, "apple");
    fill(3, 4, "pineapple");
    at(2, 1);
    look("apple");
    EXPECT_EQ(match(), (Cell{3, 1}));
    EXPECT_EQ(counted(), "2/3");
    EXPECT_EQ(current(), (Cell{2, 1}));
    EXPECT_FALSE(find.State().wrapped);
}

TEST_F(FindTest, TakesTheCurrentCellItselfFirst) {
    fill(2, 2, "x");
    fill(3, 3, "x");
    at(2, 2);
    look("x");
    EXPECT_EQ(match(), (Cell{2, 2}));
}

TEST_F(FindTest, TellsNoHostWhileItLooks) {
    fill(4, 4, "there");
    at(1, 1);
    look("there");
    EXPECT_EQ(heard(), Lines{});
}

TEST_F(FindTest, AHostThatBringsTextsAsTheyAreNeededHearsBeforeTheFirstLook) {
    int heard = 0;
    grid.Options().AllRowsNeeded.connect([&] {
        ++heard;
        fill(3, 3, "brought");
    });
    at(1, 1);
    look("");
    EXPECT_EQ(heard, 0);
    look("brought");
    EXPECT_EQ(heard, 1);
    EXPECT_EQ(match(), (Cell{3, 3}));
    EXPECT_EQ(counted(), "1/1");
}

TEST_F(FindTest, TheHostMayTakeTheControlAwayAsASearchBegins) {
    grid.Options().AllRowsNeeded.connect([&] { desk.remove(grid); });
    find.Rule({.text = "x"});
}

TEST_F(FindTest, GoesToTheMatchShownThenToTheNextAndAroundTheEnd) {
    fill(1, 2, "k");
    fill(2, 5, "k");
    fill(4, 1, "k");
    at(2, 1);
    look("k");
    EXPECT_TRUE(find.Next());
    EXPECT_EQ(current(), (Cell{2, 5}));
    EXPECT_TRUE(find.Next());
    EXPECT_EQ(current(), (Cell{4, 1}));
    EXPECT_FALSE(find.State().wrapped);
    EXPECT_TRUE(find.Next());
    EXPECT_EQ(current(), (Cell{1, 2}));
    EXPECT_TRUE(find.State().wrapped);
    EXPECT_EQ(counted(), "1/3");
    EXPECT_TRUE(find.Previous());
    EXPECT_EQ(current(), (Cell{4, 1}));
    EXPECT_TRUE(find.State().wrapped);
    EXPECT_TRUE(find.Previous());
    EXPECT_EQ(current(), (Cell{2, 5}));
    EXPECT_FALSE(find.State().wrapped);
}

TEST_F(FindTest, GoesThereByOneOrdinaryMove) {
    fill(3, 2, "here");
    at(1, 1);
    look("here");
    log.clear();
    EXPECT_TRUE(find.Next());
    EXPECT_EQ(heard(), moves(1, 1, 3, 2));
}

TEST_F(FindTest, BackwardsFromTheMatchShownIsTheOneBeforeIt) {
    fill(1, 2, "k");
    fill(3, 3, "k");
    at(2, 1);
    look("k");
    EXPECT_TRUE(find.Previous());
    EXPECT_EQ(current(), (Cell{1, 2}));
}

TEST_F(FindTest, TheOnlyMatchIsFoundAgain) {
    fill(3, 3, "k");
    at(3, 3);
    look("k");
    EXPECT_TRUE(find.Next());
    EXPECT_TRUE(find.Next());
    EXPECT_EQ(current(), (Cell{3, 3}));
    EXPECT_TRUE(find.State().wrapped);
    EXPECT_TRUE(find.Previous());
    EXPECT_EQ(current(), (Cell{3, 3}));
}

TEST_F(FindTest, FindsNothingWhereThereIsNothing) {
    fill(1, 1, "a");
    look("b");
    EXPECT_EQ(match(), std::nullopt);
    EXPECT_EQ(counted(), "0/0");
    EXPECT_FALSE(find.Next());
    look("");
    EXPECT_FALSE(find.Next());
    EXPECT_EQ(match(), std::nullopt);
}

TEST_F(FindTest, ARefusedMoveIsSaidAndThenThatMatchIsPassed) {
    fill(2, 2, "k");
    fill(4, 4, "k");
    at(1, 1);
    look("k");
    grid.BeforeRowColChange.connect(
        [](std::int32_t, std::int32_t, std::int32_t row, std::int32_t, bool& cancel) { cancel = row == 2; });
    EXPECT_FALSE(find.Next());
    EXPECT_TRUE(find.State().refused);
    EXPECT_EQ(match(), (Cell{2, 2}));
    EXPECT_EQ(current(), (Cell{1, 1}));
    EXPECT_TRUE(find.Next());
    EXPECT_FALSE(find.State().refused);
    EXPECT_EQ(current(), (Cell{4, 4}));
}

TEST_F(FindTest, GoesOnFromWhereTheClerkHasGoneMeanwhile) {
    fill(1, 1, "k");
    fill(3, 3, "k");
    fill(5, 1, "k");
    at(1, 1);
    look("k");
    at(4, 4);
    EXPECT_TRUE(find.Next());
    EXPECT_EQ(current(), (Cell{5, 1}));
}

TEST_F(FindTest, TakesPartsOrWholeCellsWithOrWithoutTheirCase) {
    fill(1, 1, "Apple");
    fill(2, 1, "apple");
    fill(3, 1, "an apple a day, and a long text beside it");
    fill(4, 1, "APPLE AND a text that does not fit");
    const auto count = [this](const FindRule& rule) {
        look(rule);
        return find.State().count;
    };
    EXPECT_EQ(count({.text = "apple"}), 4);
    EXPECT_EQ(count({.text = "apple", .matchCase = true}), 2);
    EXPECT_EQ(count({.text = "APPLE", .wholeCell = true}), 2);
    EXPECT_EQ(count({.text = "Apple", .wholeCell = true, .matchCase = true}), 1);
    EXPECT_EQ(count({.text = " "}), 2);
}

TEST_F(FindTest, FindsCharactersBeyondAsciiAsTheyAre) {
    fill(1, 1, "红富士苹果");
    fill(2, 1, "苹果");
    fill(3, 1, "１２");
    look("苹果");
    EXPECT_EQ(find.State().count, 2);
    look("12");
    EXPECT_EQ(find.State().count, 0);
}

TEST_F(FindTest, CanKeepToTheColumnOfTheCurrentCell) {
    fill(1, 1, "k");
    fill(2, 2, "k");
    fill(3, 2, "k");
    at(1, 2);
    look({.text = "k", .thisColumn = true});
    EXPECT_EQ(counted(), "1/2");
    EXPECT_EQ(match(), (Cell{2, 2}));
    at(4, 1);
    EXPECT_TRUE(find.Next());
    EXPECT_EQ(current(), (Cell{1, 1}));
    work();
    EXPECT_EQ(counted(), "1/1");
}

TEST_F(FindTest, LooksAtWhatIsDisplayed) {
    typed(2, flexDTDouble);
    grid.Grid().ColFormat(2, "#,##0.00");
    grid.Grid().Text(1, 2, "1234.5");
    grid.Grid().ComputedText(2, 3, [] { return std::string("computed 7"); });
    look("1,234.50");
    EXPECT_EQ(match(), (Cell{1, 2}));
    look("1234");
    EXPECT_EQ(match(), std::nullopt);
    look("ted 7");
    EXPECT_EQ(match(), (Cell{2, 3}));
}

TEST_F(FindTest, PassesHeadersTagsBoxesAndWhatIsHidden) {
    typed(5, flexDTBoolean);
    grid.Grid().Text(0, 2, "1");
    grid.Grid().Text(1, 0, "1");
    fill(2, 2, "a", "1");
    grid.Grid().Text(2, 5, "1");
    fill(3, 3, "1");
    fill(4, 4, "1");
    fill(5, 1, "1");
    grid.Grid().RowHidden(3, true);
    grid.Grid().ColHidden(4, true);
    look("1");
    EXPECT_EQ(match(), (Cell{5, 1}));
    EXPECT_EQ(counted(), "1/1");
    grid.Grid().RowFiltered(5, true);
    work();
    EXPECT_EQ(counted(), "0/0");
    grid.Grid().RowHidden(3, false);
    work();
    EXPECT_EQ(find.State().count, 1);
    grid.Grid().ColDataType(5, flexDTString);
    work();
    EXPECT_EQ(find.State().count, 2);
}

TEST_F(FindTest, FollowsWhatChangesMeanwhile) {
    fill(2, 1, "k");
    fill(4, 1, "k");
    at(1, 1);
    look("k");
    EXPECT_EQ(counted(), "1/2");
    grid.Grid().InsertRow(2);
    work();
    EXPECT_EQ(match(), (Cell{3, 1}));
    fill(2, 3, "ok");
    work();
    EXPECT_EQ(counted(), "2/3");
    fill(3, 1, "no");
    work();
    EXPECT_EQ(match(), std::nullopt);
    EXPECT_EQ(find.State().count, 2);
    EXPECT_TRUE(find.Next());
    EXPECT_EQ(current(), (Cell{5, 1}));
    grid.Grid().RemoveRow(5);
    work();
    EXPECT_EQ(find.State().count, 1);
    EXPECT_TRUE(find.Next());
    EXPECT_EQ(current(), (Cell{2, 3}));
}

TEST_F(FindTest, SaysOnceThatThereIsSomethingToDoAgain) {
    fill(1, 1, "k");
    int told = 0;
    find.OnWork([&] { ++told; });
    look("k");
    told = 0;
    fill(2, 1, "k");
    fill(3, 1, "k");
    EXPECT_EQ(told, 1);
    work();
    EXPECT_EQ(find.State().count, 3);
    find.End();
    fill(4, 1, "k");
    EXPECT_EQ(told, 1);
}

TEST_F(FindTest, SaysSoToWhoeverListensThenAndOfANewSearch) {
    int told = 0;
    find.OnWork([&] { ++told; });
    find.Rule({.text = "k"});
    EXPECT_EQ(told, 1);
    find.End();
    find.Rule({.text = "l"});
    EXPECT_EQ(told, 2);
    int other = 0;
    find.OnWork([&] { ++other; });
    fill(1, 1, "k");
    EXPECT_EQ(other, 1);
}

TEST_F(FindTest, LeavesAMatchThatIsSeenWhollyWhereItStands) {
    rows(500);
    at(1, 1);
    desk.scrollBy(0, 100);
    const CellGrid& g = grid.Grid();
    const std::int32_t bottom = g.ClientHeight() - g.BottomStrip();
    std::int32_t last = g.TopRow() + 1;
    while (g.CellRect(last + 1, 1).bottom() <= bottom) ++last;
    fill(last, 1, "k");
    const Rect before = g.CellRect(last, 1);
    look("k");
    EXPECT_EQ(match(), (Cell{last, 1}));
    EXPECT_EQ(g.CellRect(last, 1), before);
    EXPECT_EQ(g.TopOffset(), 100);
}

TEST_F(FindTest, ScrollsToTheMatchAndBackWhenItEnds) {
    rows(500);
    fill(400, 2, "far");
    at(1, 1);
    look("far");
    EXPECT_TRUE(grid.Grid().RowIsVisible(400));
    EXPECT_EQ(current(), (Cell{1, 1}));
    find.End();
    EXPECT_TRUE(grid.Grid().RowIsVisible(1));
    EXPECT_FALSE(find.Underway());
    EXPECT_EQ(heard(), Lines{});
}

TEST_F(FindTest, TintsWhatIsFoundAndThePresentMatchMore) {
    fill(1, 2, "k");
    fill(2, 2, "k");
    grid.Grid().CellBackColor(2, 2, Red);
    grid.Grid().Text(0, 2, "k");
    at(1, 1);
    look("k");
    EXPECT_EQ(groundOf(1, 2), FoundHereGround);
    EXPECT_EQ(groundOf(2, 2), FoundGround);
    EXPECT_NE(groundOf(0, 2), FoundGround);
    find.End();
    EXPECT_EQ(groundOf(2, 2), Red);
}

TEST_F(FindTest, WhatIsTintedAnotherWayIsDrawnAgain) {
    fill(1, 2, "k");
    fill(2, 2, "k");
    at(1, 1);
    look("k");
    EXPECT_TRUE(find.Next());
    grid.Grid().takeDamage();
    EXPECT_TRUE(find.Next());
    const auto damage = grid.Grid().takeDamage();
    const Rect before = grid.Grid().CellRect(1, 2);
    bool covered = damage.all;
    for (const Rect& rect : damage.rects) covered = covered || rect.overlaps(before);
    EXPECT_TRUE(covered);
}

TEST_F(FindTest, GoesOnAfterTheBarHasClosedAndSaysWhatTheBarWould) {
    fill(1, 3, "k");
    fill(2, 2, "k");
    at(1, 1);
    look("k");
    find.End();
    desk.clear();
    desk.press(114);
    EXPECT_EQ(current(), (Cell{1, 3}));
    desk.press(114, ShiftKey);
    EXPECT_EQ(current(), (Cell{2, 2}));
    EXPECT_EQ(desk.tips(), (Lines{"已到开头，从末尾继续。"}));
    fill(1, 3, "");
    fill(2, 2, "");
    desk.clear();
    EXPECT_FALSE(desk.run(Command::FindNext));
    EXPECT_EQ(desk.tips(), (Lines{"没有找到“k”。"}));
}

TEST_F(FindTest, LongSearchesOfAKeyCanBeCancelled) {
    rows(100'000);
    fill(99'000, 1, "k");
    at(1, 1);
    desk.onProgress([](std::int64_t done, std::int64_t) { return done < 10'000; });
    find.Rule({.text = "k"});
    EXPECT_FALSE(find.Next());
    EXPECT_EQ(current(), (Cell{1, 1}));
    desk.onProgress({});
    EXPECT_TRUE(find.Next());
    EXPECT_EQ(current(), (Cell{99'000, 1}));
}

TEST_F(FindTest, CommitsWhatIsBeingTypedFirst) {
    fill(3, 1, "k");
    look("k");
    openAt(1, 1);
    desk.type("new");
    EXPECT_TRUE(find.Next());
    EXPECT_EQ(text(1, 1), "new");
    EXPECT_EQ(current(), (Cell{3, 1}));
}

// --- Keys and commands

TEST_F(FindTest, TheKeysAskForTheBar) {
    desk.press('F', CtrlKey);
    desk.press('H', CtrlKey);
    EXPECT_EQ(desk.findBars(), (std::vector<bool>{false, true}));
    openAt(1, 1);
    desk.type("typed");
    desk.press('F', CtrlKey);
    EXPECT_FALSE(open());
    EXPECT_EQ(text(1, 1), "typed");
    EXPECT_EQ(desk.findBars().size(), 3U);
}

TEST_F(FindTest, ARefusedTextKeepsTheBarAway) {
    takesCodes(1);
    knowCodes();
    openAt(1, 1);
    desk.type("wrong");
    desk.press('F', CtrlKey);
    EXPECT_TRUE(open());
    EXPECT_TRUE(desk.findBars().empty());
}

TEST_F(FindTest, CommandsCanRunWhereThereIsSomethingToDo) {
    EXPECT_TRUE(grid.CanRun(Command::Find));
    EXPECT_TRUE(grid.CanRun(Command::Replace));
    EXPECT_FALSE(grid.CanRun(Command::FindNext));
    int told = 0;
    grid.Commands().Changed.connect([&] { ++told; });
    find.Rule({.text = "k"});
    EXPECT_EQ(told, 1);
    EXPECT_TRUE(grid.CanRun(Command::FindNext));
    EXPECT_TRUE(grid.CanRun(Command::FindPrevious));
    grid.Editable(false);
    EXPECT_TRUE(grid.CanRun(Command::Find));
    EXPECT_FALSE(grid.CanRun(Command::Replace));
    EXPECT_FALSE(grid.Run(Command::Replace));
    EXPECT_TRUE(desk.findBars().empty());
}

TEST_F(FindTest, F3IsTheHostsUntilSomethingWasLookedFor) {
    const auto keys = [this] { return named(heard(), "keyDown").size() + named(heard(), "KeyDown").size(); };
    std::size_t engine = 0;
    grid.Grid().KeyDown.connect([&](std::int16_t& code, std::int16_t) { engine += code == 114; });
    keys();
    desk.press(114);
    EXPECT_EQ(engine, 1U);
    look("k");
    desk.press(114);
    EXPECT_EQ(engine, 1U);
}

// --- Hosts

TEST_F(FindTest, AHostMayEndTheControlInTheMove) {
    fill(3, 3, "k");
    look("k");
    grid.RowColChange.connect([this] { desk.remove(grid); });
    EXPECT_FALSE(grid.Run(Command::FindNext));
}

TEST_F(FindTest, AHostMayLookForSomethingElseInTheMove) {
    fill(3, 3, "k");
    fill(4, 4, "other");
    look("k");
    grid.EnterCell.connect([this] {
        if (find.Rule().text == "k") find.Rule({.text = "other"});
    });
    find.Next();
    work();
    EXPECT_EQ(match(), (Cell{4, 4}));
}

TEST_F(FindTest, ATextThatCannotBeComputedIsTriedOnce) {
    int asked = 0;
    grid.Grid().ComputedText(2, 2, [&]() -> std::string {
        ++asked;
        throw std::runtime_error("no text");
    });
    fill(4, 1, "k");
    find.Rule({.text = "k"});
    int failures = 0;
    for (bool more = true; more;) try {
            more = find.Work();
        } catch (const std::runtime_error&) {
            ++failures;
        }
    EXPECT_EQ(failures, 1);
    EXPECT_EQ(asked, 1);
}

// --- Beside a plain loop

class FindTwin : public FindTest {
  protected:
    std::vector<FoundCell> expected(const FindRule& rule, std::int32_t column) const {
        std::vector<FoundCell> cells;
        const CellGrid& g = grid.Grid();
        for (std::int32_t row = g.FixedRows(); row < g.Rows(); ++row)
            for (std::int32_t col = g.FixedCols(); col < g.Cols(); ++col) {
                if (!g.RowShown(row) || g.ColHidden(col) || (rule.thisColumn && col != column)) continue;
                if (isIn(g.DisplayText(row, col), rule)) cells.push_back({row, col});
            }
        return cells;
    }
    static std::string folded(std::string text) {
        for (char& c : text)
            if (c >= 'A' && c <= 'Z') c = static_cast<char>(c - 'A' + 'a');
        return text;
    }
    static bool isIn(std::string text, const FindRule& rule) {
        const std::string wanted = rule.matchCase ? rule.text : folded(rule.text);
        if (!rule.matchCase) text = folded(text);
        return rule.wholeCell ? text == wanted : text.find(wanted) != std::string::npos;
    }
    void change(kit::Dice& dice) {
        CellGrid& g = grid.Grid();
        const std::int32_t row = dice.between(1, g.Rows() - 1);
        const std::int32_t col = dice.between(1, g.Cols() - 1);
        switch (dice.between(0, 9)) {
            case 0:
                g.InsertRow(row);
                break;
            case 1:
                g.RemoveRow(row);
                break;
            case 2:
                g.RowHidden(row, !g.RowHidden(row));
                break;
            case 3:
                g.RowFiltered(row, !g.RowFiltered(row));
                break;
            case 4:
                g.MoveRows(1, 1, dice.between(1, g.Rows() - 1));
                break;
            case 5:
                g.ColFormat(col, dice.oneIn(2) ? "#,##0.00" : "");
                break;
            default:
                g.Text(row, col, textOf(dice));
                break;
        }
    }
    static std::string textOf(kit::Dice& dice) {
        std::string text;
        static constexpr int Longest[] = {0, 4, 7, 8, 9, 14, 15, 17, 40};
        const auto size = Longest[dice.between(0, 8)];
        const bool number = dice.oneIn(2);
        for (int i = 0; i < size; ++i) text += dice.anyOf(number ? "1234." : "aAbB1");
        return text;
    }
};

TEST_F(FindTwin, FindsWhatAPlainLoopFindsWhateverChanges) {
    kit::Dice dice;
    grid.Grid().Rows(1500);
    for (int i = 0; i < 2000; ++i) grid.Grid().Text(dice.between(1, 1499), dice.between(1, 5), textOf(dice));
    for (int turn = 0; turn < 60 && !HasFailure(); ++turn) {
        FindRule rule;
        const int size = dice.between(1, dice.oneIn(4) ? 10 : 3);
        for (int i = 0; i < size; ++i) rule.text += dice.anyOf(dice.oneIn(2) ? "1234." : "aAbB1");
        rule.wholeCell = dice.oneIn(4);
        rule.matchCase = dice.oneIn(2);
        rule.thisColumn = dice.oneIn(4);
        const std::int32_t column = dice.between(1, 5);
        grid.Grid().Select(dice.between(1, grid.Rows() - 1), column);
        find.Rule(rule);
        for (int i = 0; i < 5; ++i) {
            if (dice.oneIn(2)) find.Work();
            change(dice);
        }
        work();
        const std::vector<FoundCell> cells = expected(rule, grid.Col());
        ASSERT_EQ(find.State().count, static_cast<std::int64_t>(cells.size())) << rule.text;
        ASSERT_TRUE(find.State().complete);
        if (cells.empty()) continue;
        find.Next();
        const FindState state = find.State();
        ASSERT_TRUE(state.match);
        ASSERT_EQ(cells[static_cast<std::size_t>(state.number - 1)], *state.match);
        for (int i = 0; i < 3; ++i) {
            const bool forward = dice.oneIn(2);
            const auto before = static_cast<std::size_t>(find.State().number - 1);
            const std::size_t step = forward ? 1 : cells.size() - 1;
            forward ? find.Next() : find.Previous();
            ASSERT_EQ(find.State().match, cells[(before + step) % cells.size()]);
        }
    }
}
}  // namespace
}  // namespace kxVsGrid::testing

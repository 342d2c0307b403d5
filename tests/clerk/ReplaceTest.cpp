// Replacing what was found in the cells.
#include <gtest/gtest.h>

#include <string>

#include "clerk/BlockTest.h"
#include "clerk/Looking.h"
#include "kit/Dice.h"

namespace kxVsGrid::testing {
namespace {

using ReplaceTest = Looking<BlockTest>;

TEST_F(ReplaceTest, ReplacesTheMatchShownAndShowsTheNext) {
    fill(2, 1, "red apple, red box");
    fill(4, 3, "red");
    at(1, 1);
    look("red");
    EXPECT_TRUE(find.Replace("green"));
    EXPECT_EQ(text(2, 1), "green apple, green box");
    EXPECT_EQ(match(), (Cell{4, 3}));
    EXPECT_EQ(current(), (Cell{1, 1}));
    EXPECT_TRUE(find.Replace("green"));
    EXPECT_EQ(text(4, 3), "green");
    EXPECT_EQ(match(), std::nullopt);
    EXPECT_FALSE(find.Replace("green"));
    undo();
    EXPECT_EQ(text(4, 3), "red");
    undo();
    EXPECT_EQ(text(2, 1), "red apple, red box");
}

TEST_F(ReplaceTest, TheNextMatchShownIsTheOneToGoToWhereverTheClerkIs) {
    fill(2, 1, "a");
    fill(3, 1, "a");
    fill(5, 1, "a");
    at(1, 1);
    look("a");
    at(4, 1);
    EXPECT_TRUE(find.Replace("b"));
    EXPECT_EQ(match(), (Cell{3, 1}));
    EXPECT_TRUE(find.Next());
    EXPECT_EQ(current(), (Cell{3, 1}));
}

TEST_F(ReplaceTest, ReplacesAllAsOneStep) {
    fill(1, 1, "ab");
    fill(2, 2, "xABx");
    fill(3, 3, "c");
    fill(5, 5, "abab");
    look("ab");
    const PasteReport all = find.ReplaceAll("-");
    EXPECT_EQ(all.written, 3);
    EXPECT_EQ(all.summary(), "");
    EXPECT_EQ(report().command, Command::Replace);
    EXPECT_EQ(text(1, 1) + text(2, 2) + text(3, 3) + text(5, 5), "-x-xc--");
    EXPECT_EQ(grid.History().UndoName(), "替换 3 格");
    EXPECT_TRUE(grid.bIsDirty());
    undo();
    EXPECT_EQ(text(1, 1) + text(2, 2) + text(3, 3) + text(5, 5), "abxABxcabab");
}

TEST_F(ReplaceTest, AsksForNoRowBelowTheLastOne) {
    consentToRows();
    fill(5, 1, "a");
    look("a");
    find.ReplaceAll("b");
    EXPECT_EQ(grid.Rows(), 6);
    EXPECT_EQ(named(log.lines(), "AddVsRow"), Lines{});
}

TEST_F(ReplaceTest, PassesReadOnlyAndLockedCellsOver) {
    for (std::int32_t row = 1; row <= 3; ++row)
        for (std::int32_t col = 1; col <= 2; ++col) fill(row, col, "a");
    readOnly(2);
    lock([](std::int32_t row, std::int32_t) { return row == 2; });
    look("a");
    const PasteReport all = find.ReplaceAll("b");
    EXPECT_EQ(all.written, 2);
    EXPECT_EQ(all.passedOver, 4);
    EXPECT_EQ(all.summary(), "替换 2 格，跳过只读 4 格。");
    EXPECT_EQ(texts(1, 1, 3, 2), "b|a/a|a/b|a");
}

TEST_F(ReplaceTest, WhatAColumnDoesNotAdmitStaysAndIsMarked) {
    takesCodes(1);
    knowCodes();
    fill(1, 1, "A1");
    fill(2, 1, "A2");
    fill(2, 2, "A2");
    look("A");
    const PasteReport all = find.ReplaceAll("B");
    EXPECT_EQ(all.written, 1);
    EXPECT_EQ(all.refused, 2);
    ASSERT_EQ(all.refusals.size(), 2U);
    EXPECT_EQ(all.refusals[0].text, "B1");
    EXPECT_EQ(text(1, 1), "A1");
    EXPECT_TRUE(problemAt(1, 1));
    EXPECT_EQ(text(2, 2), "B2");
}

TEST_F(ReplaceTest, NumbersAreReplacedAsTheyAreShownAndLoseNoDigits) {
    typed(2, flexDTDouble);
    grid.Grid().ColFormat(2, "#,##0.00");
    grid.Grid().Text(1, 2, "1234.567");
    look("234");
    find.ReplaceAll("235");
    EXPECT_EQ(text(1, 2), "1235.567");
    grid.Grid().Text(1, 2, "1234.5");
    look("1,2");
    find.ReplaceAll("9");
    EXPECT_EQ(text(1, 2), "934.5");
    look("34.50");
    find.ReplaceAll("35.50");
    EXPECT_EQ(text(1, 2), "935.5");
    grid.Grid().Text(1, 2, "45.004");
    look("4");
    find.ReplaceAll("7");
    EXPECT_EQ(text(1, 2), "75");
}

TEST_F(ReplaceTest, WholeCellsBecomeTheNewText) {
    fill(1, 1, "No");
    fill(2, 1, "None");
    look({.text = "no", .wholeCell = true});
    find.ReplaceAll("yes");
    EXPECT_EQ(texts(1, 1, 2, 1), "yes/None");
}

TEST_F(ReplaceTest, WhatIsHiddenOrInAnotherColumnStays) {
    for (std::int32_t row = 1; row <= 4; ++row)
        for (std::int32_t col = 1; col <= 2; ++col) fill(row, col, "a");
    grid.Grid().RowFiltered(2, true);
    grid.Grid().RowHidden(3, true);
    at(1, 2);
    look({.text = "a", .thisColumn = true});
    find.ReplaceAll("b");
    EXPECT_EQ(texts(1, 1, 4, 2), "a|b/a|a/a|a/a|b");
}

TEST_F(ReplaceTest, TheNewTextIsNotReplacedAgain) {
    fill(1, 1, "a");
    fill(3, 1, "aa");
    look("a");
    find.ReplaceAll("aaa");
    EXPECT_EQ(texts(1, 1, 1, 1), "aaa");
    EXPECT_EQ(texts(3, 1, 3, 1), "aaaaaa");
    EXPECT_TRUE(find.Replace("aa"));
    EXPECT_EQ(match(), (Cell{3, 1}));
}

TEST_F(ReplaceTest, AClerkWhoCancelsHasEverythingAsItWas) {
    rows(301);
    for (std::int32_t row = 1; row <= 300; ++row) grid.Grid().Text(row, 1, "a");
    look("a");
    const Lines before = wholeOf(grid);
    desk.onProgress([](std::int64_t done, std::int64_t total) { return done < 128 || total != 300; });
    const PasteReport all = find.ReplaceAll("b");
    EXPECT_TRUE(all.cancelled);
    EXPECT_EQ(differences(wholeOf(grid), before), Lines{});
}

TEST_F(ReplaceTest, NothingIsReplacedInAReadOnlyGridOrUnderNoRule) {
    fill(1, 1, "a");
    EXPECT_EQ(find.ReplaceAll("b").written, 0);
    look("a");
    grid.Editable(false);
    EXPECT_FALSE(find.Replace("b"));
    EXPECT_EQ(find.ReplaceAll("b").written, 0);
    EXPECT_EQ(text(1, 1), "a");
}

TEST_F(ReplaceTest, WhatMatchesNoMoreIsLeft) {
    fill(1, 1, "a");
    fill(2, 1, "a");
    look("a");
    grid.Grid().Text(1, 1, "other");
    EXPECT_FALSE(find.Replace("b"));
    EXPECT_EQ(text(1, 1), "other");
    EXPECT_EQ(match(), (Cell{2, 1}));
}

// --- Hosts

TEST_F(ReplaceTest, HostsMayRemoveAndInsertRowsMeanwhile) {
    rows(8);
    for (std::int32_t row = 1; row <= 7; ++row) fill(row, 1, "a" + std::to_string(row));
    int heard = 0;
    grid.AfterEdit.connect([&](std::int32_t row, std::int32_t) {
        ++heard;
        if (heard == 2) grid.Grid().RemoveRow(row + 1);
        if (heard == 3) grid.Grid().InsertRow(1);
    });
    look("a");
    const PasteReport all = find.ReplaceAll("aa");
    EXPECT_EQ(all.written, 6);
    EXPECT_EQ(texts(1, 1, 7, 1), "/aa1/aa2/aa4/aa5/aa6/aa7");
}

TEST_F(ReplaceTest, AHostThatSortsRowsEndsIt) {
    fill(1, 1, "a1");
    fill(2, 1, "a2");
    fill(3, 1, "a3");
    int heard = 0;
    grid.AfterEdit.connect([&](std::int32_t, std::int32_t) {
        if (++heard == 1) grid.Grid().MoveRows(1, 1, 3);
    });
    look("a");
    const PasteReport all = find.ReplaceAll("b");
    EXPECT_TRUE(all.cutShort);
    EXPECT_EQ(all.written, 1);
}

TEST_F(ReplaceTest, AHostMayEndTheControl) {
    fill(1, 1, "a");
    fill(2, 1, "a");
    look("a");
    grid.AfterEdit.connect([this](std::int32_t, std::int32_t) { desk.remove(grid); });
    EXPECT_EQ(find.ReplaceAll("b").written, 1);
}

// --- Beside a plain loop

TEST_F(ReplaceTest, DoesWhatAPlainLoopDoes) {
    kit::Dice dice;
    const auto textOf = [&](int longest) {
        std::string text;
        const int size = dice.between(0, longest);
        for (int i = 0; i < size; ++i) text += dice.anyOf("ab1");
        return text;
    };
    grid.Rows(61);
    for (int turn = 0; turn < 40 && !HasFailure(); ++turn) {
        for (std::int32_t row = 1; row <= 60; ++row)
            for (std::int32_t col = 1; col <= 5; ++col) grid.Grid().Text(row, col, textOf(12));
        FindRule rule{"x", dice.oneIn(4), true, false};
        rule.text = textOf(3) + "a";
        const std::string with = textOf(3);
        std::vector<std::string> expected;
        for (std::int32_t row = 1; row <= 60; ++row)
            for (std::int32_t col = 1; col <= 5; ++col) {
                std::string cell = text(row, col);
                if (rule.wholeCell && cell == rule.text) cell = with;
                if (!rule.wholeCell)
                    for (std::size_t at = 0; (at = cell.find(rule.text, at)) != std::string::npos;
                         at += with.size())
                        cell.replace(at, rule.text.size(), with);
                expected.push_back(cell);
            }
        look(rule);
        find.ReplaceAll(with);
        std::size_t i = 0;
        for (std::int32_t row = 1; row <= 60; ++row)
            for (std::int32_t col = 1; col <= 5; ++col) ASSERT_EQ(text(row, col), expected[i++]) << rule.text;
    }
}
}  // namespace
}  // namespace kxVsGrid::testing

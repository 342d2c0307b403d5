// A clerk who cancels while a block is written: all is as it was.
#include <algorithm>
#include <cstdint>
#include <string>
#include <utility>
#include <vector>

#include "clerk/BlockTest.h"

namespace kxVsGrid::testing {
namespace {

class CancellingClerk : public BlockTest {
  protected:
    static constexpr int Lines_ = 100;
    static constexpr int Cells = Lines_ * 5;

    /// A document with tags, marks, a step to undo, a column of numbers with a total, and one of codes.
    CancellingClerk() {
        summed(2);
        takesCodes(3);
        knowCodes();
        consentToRows();
        rows(40);
        for (int row = 1; row < 40; ++row) {
            for (const int col : {1, 4, 5})
                grid.SetCell(row, col, "o" + std::to_string(row * 10 + col), "tag" + std::to_string(row));
            grid.SetCell(row, 2, std::to_string(row), "number");
        }
        at(30, 4);
        desk.type("typed").press(Key::Enter);
        grid.Unmodified();
        mark();
        at(1, 1);
        for (int line = 0; line < Lines_; ++line) {
            const std::string n = std::to_string(line);
            block_ += "p" + n + '\t' + (line % 7 == 0 ? "x" : n) + '\t' + (line % 5 == 0 ? "B" : "A") + n +
                      "\t\tq" + n + '\n';
        }
        desk.clipboard(block_);
        log.clear();
    }
    void mark() {
        grid.Mark(5, 4, CellMark{CellMark::Kind::Note, "a note"});
        grid.Mark(6, 4, CellMark{CellMark::Kind::Warning, "a warning"});
    }
    /// How often it is asked when nobody cancels.
    int asksOf(Command command) {
        int asks = 0;
        desk.onProgress([&](std::int64_t, std::int64_t) {
            ++asks;
            return true;
        });
        EXPECT_TRUE(run(command));
        EXPECT_FALSE(report().cancelled);
        undo();
        grid.ClearMarks();
        grid.Unmodified();
        mark();
        return asks;
    }
    /// Cancels at each ask in turn.
    void expectAllTakenBack(Command command, const CellRange& selected) {
        const auto select = [&] {
            choose(selected.firstRow, selected.firstCol, selected.lastRow, selected.lastCol);
        };
        select();
        const int asks = asksOf(command);
        ASSERT_GE(asks, 2);
        select();
        const Lines before = wholeOf(grid);
        for (int at = 0; at < asks; ++at) {
            reports.clear();
            int asked = 0;
            desk.onProgress([&](std::int64_t, std::int64_t) { return asked++ != at; });
            run(command);
            EXPECT_EQ(asked, at + 1) << "not asked again";
            ASSERT_EQ(differences(wholeOf(grid), before), Lines()) << "cancelled at ask " << at;
            ASSERT_EQ(reports.size(), 1U);
            EXPECT_TRUE(report().cancelled);
            EXPECT_EQ(grid.Grid().Selected(), selected);
            EXPECT_FALSE(grid.Grid().StepOpen());
            EXPECT_EQ(desk.focusOwner(), FocusPlace::Grid);
        }
        grid.Run(Command::Undo);
        EXPECT_EQ(text(30, 4), "o304") << "what was typed before can still be undone";
    }
    std::string block_;
    /// Throws once, when the clerk has cancelled.
    void failOnce() {
        if (std::exchange(fails_, false)) throw HostFailure();
    }
    void expectAllTakenBack() {
        grid.ClearMarks();
        desk.onProgress([this](std::int64_t done, std::int64_t) {
            fails_ = done > 100;
            return !fails_;
        });
        const Lines before = wholeOf(grid);
        try {
            run(Command::Paste);
        } catch (const HostFailure&) {
            SUCCEED();
        }
        EXPECT_FALSE(grid.Grid().StepOpen());
        EXPECT_EQ(differences(wholeOf(grid), before), Lines());
    }
    bool fails_ = false;
};

TEST_F(CancellingClerk, HasEverythingBackAfterAPaste) {
    expectAllTakenBack(Command::Paste, {1, 1, 1, 1});
}

TEST_F(CancellingClerk, HasEverythingBackAfterAFill) {
    expectAllTakenBack(Command::FillDown, {1, 1, 38, 5});
}

TEST_F(CancellingClerk, HasEverythingBackAfterAFillToTheRight) {
    expectAllTakenBack(Command::FillRight, {1, 1, 38, 5});
}

TEST_F(CancellingClerk, HasEverythingBackAfterClearing) {
    expectAllTakenBack(Command::ClearCells, {1, 1, 38, 5});
}

TEST_F(CancellingClerk, HasEverythingBackAfterCutting) {
    expectAllTakenBack(Command::Cut, {1, 1, 38, 5});
}

TEST_F(CancellingClerk, HasTheProblemBackThatACellHadBeforeItWasWritten) {
    grid.Mark(1, 1, CellMark{CellMark::Kind::Problem, "was wrong before"});
    desk.onProgress([](std::int64_t, std::int64_t) { return false; });
    for (const Command command : {Command::Paste, Command::ClearCells, Command::Cut}) {
        choose(1, 1, 1, 1);
        const Lines before = wholeOf(grid);
        if (command != Command::Paste) choose(1, 1, 30, 5);
        run(command);
        ASSERT_TRUE(report().cancelled) << captionOf(command);
        EXPECT_EQ(differences(wholeOf(grid), before), Lines()) << captionOf(command);
        grid.Mark(1, 1, CellMark{CellMark::Kind::Problem, "was wrong before"});
    }
}

TEST_F(CancellingClerk, HasTheWarningBackThatARefusalReplaced) {
    grid.Mark(1, 2, CellMark{CellMark::Kind::Warning, "a warning"});
    ASSERT_EQ(text(1, 2), "1");
    const Lines before = wholeOf(grid);
    int asked = 0;
    desk.onProgress([&](std::int64_t, std::int64_t) { return asked++ < 2; });
    run(Command::Paste);
    ASSERT_TRUE(report().cancelled);
    EXPECT_EQ(differences(wholeOf(grid), before), Lines());
}

TEST_F(CancellingClerk, HasADirtyDocumentDirtyStill) {
    at(30, 4);
    desk.type("again").press(Key::Enter);
    at(1, 1);
    desk.onProgress([](std::int64_t, std::int64_t) { return false; });
    run(Command::Paste);
    EXPECT_TRUE(grid.bIsDirty());
    EXPECT_EQ(grid.ReadSum(2), std::to_string(39 * 40 / 2));
}

TEST_F(CancellingClerk, IsAskedAboutEverySixtyFourCells) {
    std::vector<std::int64_t> dones;
    std::int64_t most = 0;
    desk.onProgress([&](std::int64_t done, std::int64_t total) {
        dones.push_back(done);
        most = std::max(most, total);
        EXPECT_LE(done, total);
        return true;
    });
    run(Command::Paste);
    EXPECT_GE(dones.size(), static_cast<std::size_t>(Cells / 64 - 1));
    EXPECT_LE(dones.size(), static_cast<std::size_t>(Cells / 64 + 3));
    EXPECT_TRUE(std::is_sorted(dones.begin(), dones.end()));
    EXPECT_GE(most, Cells);
}

TEST_F(CancellingClerk, LeavesNothingInTheChangeLog) {
    grid.Changes().Saved();
    int asked = 0;
    desk.onProgress([&](std::int64_t, std::int64_t) { return asked++ < 3; });
    run(Command::Paste);
    ASSERT_TRUE(report().cancelled);
    EXPECT_TRUE(grid.Changes().empty());
}

TEST_F(CancellingClerk, HasWhatTheHostWroteMeanwhileTakenBackToo) {
    grid.AfterEdit.connect(
        [this](std::int32_t row, std::int32_t) { grid.SetCell(row, 4, "host", "host's"); });
    const Lines before = wholeOf(grid);
    int asked = 0;
    desk.onProgress([&](std::int64_t, std::int64_t) { return asked++ < 3; });
    run(Command::Paste);
    EXPECT_EQ(differences(wholeOf(grid), before), Lines());
}

TEST_F(CancellingClerk, HasItAllBackWhereTheHistoryIsOff) {
    grid.History().Enabled(false);
    const Lines before = wholeOf(grid);
    int asked = 0;
    desk.onProgress([&](std::int64_t, std::int64_t) { return asked++ < 3; });
    run(Command::Paste);
    ASSERT_TRUE(report().cancelled);
    EXPECT_EQ(differences(wholeOf(grid), before), Lines());
}

TEST_F(CancellingClerk, CanPasteTheSameAgain) {
    int asked = 0;
    desk.onProgress([&](std::int64_t, std::int64_t) { return asked++ < 3; });
    run(Command::Paste);
    desk.onProgress({});
    EXPECT_TRUE(run(Command::Paste));
    EXPECT_EQ(text(100, 1), "p99");
    EXPECT_FALSE(report().cancelled);
}

TEST_F(CancellingClerk, MayCloseTheFormWhileItWaits) {
    kxGrid& other = desk.place();
    desk.use(grid);
    int asked = 0;
    desk.onProgress([&](std::int64_t, std::int64_t) {
        if (asked++ == 2) desk.remove(grid);
        return true;
    });
    grid.Run(Command::Paste);
    desk.onProgress({});
    desk.use(other);
    EXPECT_GE(asked, 3);
}

TEST_F(CancellingClerk, MayCancelWhereTheHostHasClearedTheGridMeanwhile) {
    int asked = 0;
    desk.onProgress([&](std::int64_t, std::int64_t) {
        if (asked++ < 2) return true;
        grid.Clear();
        return false;
    });
    run(Command::Paste);
    EXPECT_FALSE(grid.Grid().StepOpen());
    at(1, 1);
    desk.onProgress({});
    paste("a\tb");
}

TEST_F(CancellingClerk, MayFindTheHostFailingAsAllIsTakenBack) {
    int asked = 0;
    bool fails = false;
    desk.onProgress([&](std::int64_t, std::int64_t) {
        fails = asked++ == 3;
        return !fails;
    });
    grid.CellChanged.connect([&](auto, auto) {
        if (std::exchange(fails, false)) throw HostFailure();
    });
    try {
        run(Command::Paste);
    } catch (const HostFailure&) {
        SUCCEED();
    }
    EXPECT_FALSE(grid.Grid().StepOpen());
    desk.onProgress({});
    EXPECT_TRUE(run(Command::Paste));
    EXPECT_EQ(text(100, 1), "p99");
}

TEST_F(CancellingClerk, MayFindAToolbarFailingAsMarksAreTakenBack) {
    grid.Commands().Changed.connect([this] { failOnce(); });
    expectAllTakenBack();
}

TEST_F(CancellingClerk, MayFindAHostThatLocksFailingAsMarksAreTakenBack) {
    grid.Options().CellLocked.connect([this](std::int32_t, std::int32_t, bool&) { failOnce(); });
    expectAllTakenBack();
}

TEST_F(CancellingClerk, MayFindAListOfMarksFailingAsMarksAreTakenBack) {
    grid.Grid().MarksChanged.connect([this] { failOnce(); });
    expectAllTakenBack();
}

TEST_F(CancellingClerk, MayFindTheProgressFailing) {
    int asked = 0;
    desk.onProgress([&](std::int64_t, std::int64_t) -> bool {
        if (asked++ == 2) throw HostFailure();
        return true;
    });
    EXPECT_THROW(run(Command::Paste), HostFailure);
    EXPECT_FALSE(grid.Grid().StepOpen());
}
}  // namespace
}  // namespace kxVsGrid::testing

// Hosts that run commands while they hear of something else, the end of a command among it.
#include <functional>
#include <optional>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

#include "clerk/BlockTest.h"

namespace kxVsGrid::testing {
namespace {
namespace in_events {

using Act = std::function<void()>;

struct Occasion {
    const char* name;
    std::function<void(kxGrid&, Act)> listen;
    friend std::ostream& operator<<(std::ostream& out, const Occasion& of) { return out << of.name; }
};

template <class... Args>
Occasion of(const char* name, Event<Args...> GridEvents::*event) {
    return {name, [event](kxGrid& grid, Act act) { (grid.*event).connect([act](Args...) { act(); }); }};
}

const std::vector<Occasion>& occasions() {
    static const std::vector<Occasion> All{
        of("AfterEdit", &GridEvents::AfterEdit),
        of("CellChanged", &GridEvents::CellChanged),
        of("BeforeTextEdit", &GridEvents::BeforeTextEdit),
        of("BeforeRowColChange", &GridEvents::BeforeRowColChange),
        of("RowColChange", &GridEvents::RowColChange),
        of("AfterRowColChange", &GridEvents::AfterRowColChange),
        of("SelChange", &GridEvents::SelChange),
        of("AddVsRow", &GridEvents::AddVsRow),
        of("DeleteVsRow", &GridEvents::DeleteVsRow),
        of("AfterDeleteVsRow", &GridEvents::AfterDeleteVsRow),
        of("AfterAddRow", &GridEvents::AfterAddRow),
        of("TxtValidBmS", &GridEvents::TxtValidBmS),
        {"Changed", [](kxGrid& grid, Act act) { grid.Commands().Changed.connect(act); }},
        {"Reported", [](kxGrid& grid,
                        Act act) { grid.Commands().Reported.connect([act](const PasteReport&) { act(); }); }},
        {"a step that is done",
         [](kxGrid& grid, Act act) { grid.Changes().After.connect([act](const StepChanges&) { act(); }); }},
        {"settling",
         [](kxGrid& grid, Act act) { grid.Changes().AddSettler([act](const StepChanges&) { act(); }); }},
        {"CellLocked", [](kxGrid& grid, Act act) {
             grid.Options().CellLocked.connect([act](std::int32_t, std::int32_t, bool&) { act(); });
         }}};
    return All;
}

class CommandInAnEvent : public BlockTest,
                         public ::testing::WithParamInterface<std::tuple<std::size_t, Command>> {
  protected:
    CommandInAnEvent() {
        for (int row = 1; row <= 3; ++row) content(row);
        takesCodes(3);
        knowCodes([](const std::string&) { return std::optional<std::string>("name"); });
        grid.AfterAddRow.connect([](bool& keep, auto...) { keep = true; });
        grid.DeleteVsRow.connect([](std::int32_t, bool& consent) { consent = true; });
        consentToRows();
        grid.Mark(4, 4, CellMark{CellMark::Kind::Problem, "p"});
        desk.clipboard("a\tb\nc\td");
        at(4, 2);
    }
    /// The command over an open editor, and again on the closed cell, while the host does so once each time.
    void expectNoFailureWhen(const Act& act) {
        bool armed = false;
        occasions()[std::get<0>(GetParam())].listen(grid, [&] {
            if (std::exchange(armed, false)) act();
        });
        readOnly(2);
        for (const bool typing : {true, false}) {
            armed = false;
            if (grid.Cols() < 6) grid.Cols(6);
            grid.Rows(6);
            at(2, 1);
            if (typing) desk.type("x");
            desk.answerInputBox("1");
            grid.Mark(4, 4, CellMark{CellMark::Kind::Problem, "p"});
            armed = true;
            EXPECT_NO_THROW(run(std::get<1>(GetParam()))) << named() << (typing ? " while typing" : "");
            EXPECT_FALSE(grid.Grid().StepOpen()) << named();
        }
        armed = false;
    }
    std::string named() const {
        return std::string(captionOf(std::get<1>(GetParam()))) + " in " +
               occasions()[std::get<0>(GetParam())].name;
    }
};

TEST_P(CommandInAnEvent, LeavesAControlThatWorks) {
    bool within = false;
    int runs = 0;
    occasions()[std::get<0>(GetParam())].listen(grid, [&] {
        if (within || runs >= 20) return;
        within = true;
        ++runs;
        grid.Run(std::get<1>(GetParam()));
        within = false;
    });
    desk.type("x").press(Key::Enter);
    desk.press(Key::Escape);
    at(4, 2);
    run(Command::Paste);
    run(Command::FillDown);
    run(Command::AppendRow);
    run(Command::DeleteRows);
    run(Command::SelectAll);
    run(Command::ClearCells);
    EXPECT_FALSE(grid.Grid().StepOpen()) << named();
    desk.press(Key::Escape);
    within = true;  // what is written while something is undone stands
    for (int steps = 0; grid.CanRun(Command::Undo) && steps < 500; ++steps) grid.Run(Command::Undo);
    for (int row = 1; row <= 3; ++row) expectContent(row, row);
    EXPECT_EQ(grid.Rows(), 6) << named();
}

TEST_P(CommandInAnEvent, MayBeTheOneInWhichTheControlEnds) {
    kxGrid& other = desk.place();
    desk.use(grid);
    desk.answerInputBox("1");
    bool gone = false;
    occasions()[std::get<0>(GetParam())].listen(grid, [&] {
        if (!std::exchange(gone, true)) desk.remove(grid);
    });
    grid.Run(std::get<1>(GetParam()));
    if (!gone) grid.CanRun(std::get<1>(GetParam()));
    desk.use(other);
    EXPECT_TRUE(desk.messages().empty()) << named();
}

TEST_P(CommandInAnEvent, LetsThroughWhatAHostThrowsAndCanBeRunAgain) {
    desk.answerInputBox("1");
    int thrown = 0;
    bool armed = true;
    occasions()[std::get<0>(GetParam())].listen(grid, [&] {
        if (!armed) return;
        armed = false;
        ++thrown;
        throw HostFailure();
    });
    try {
        run(std::get<1>(GetParam()));
    } catch (const HostFailure&) {
        EXPECT_EQ(thrown, 1) << named();
    }
    armed = false;
    EXPECT_FALSE(grid.Grid().StepOpen()) << named();
    desk.press(Key::Escape);
    for (int steps = 0; grid.CanRun(Command::Undo) && steps < 50; ++steps) grid.Run(Command::Undo);
    for (int row = 1; row <= 3; ++row) expectContent(row, row);
    run(Command::ShowColumns);  // no step brings back what is hidden
    at(4, 1);
    desk.clipboard("a\tb\nc\td");
    EXPECT_TRUE(run(Command::Paste)) << named();
    EXPECT_EQ(texts(4, 1, 5, 2), "a|b/c|d") << named();
}

TEST_P(CommandInAnEvent, FailsAtNothingWhereAllColumnsGo) {
    expectNoFailureWhen([this] { grid.Cols(0); });
}

TEST_P(CommandInAnEvent, FailsAtNothingWhereAllRowsGo) {
    expectNoFailureWhen([this] { grid.Grid().Rows(1); });
}

TEST_P(CommandInAnEvent, FailsAtNothingWhereTheGridIsCleared) {
    expectNoFailureWhen([this] { grid.Clear(); });
}

std::vector<std::size_t> placesOf(std::size_t count) {
    std::vector<std::size_t> numbers(count);
    for (std::size_t i = 0; i < count; ++i) numbers[i] = i;
    return numbers;
}
INSTANTIATE_TEST_SUITE_P(All, CommandInAnEvent,
                         ::testing::Combine(::testing::ValuesIn(placesOf(occasions().size())),
                                            ::testing::ValuesIn(std::vector<Command>(allCommands().begin(),
                                                                                     allCommands().end()))));
}  // namespace in_events
}  // namespace
}  // namespace kxVsGrid::testing

// A host whose handler fails: the exception reaches the caller, what was done stays, and the control goes on
// working.
#include <cstdint>
#include <functional>
#include <ostream>
#include <stdexcept>
#include <string>

#include "kit/PlacedGrid.h"

namespace kxVsGrid::testing {
namespace {

struct FailingStep {
    const char* event;
    std::function<Connection(kxGrid&)> fail;
    bool moved;  ///< the current cell has changed when the event comes
    friend std::ostream& operator<<(std::ostream& out, const FailingStep& step) { return out << step.event; }
};

const FailingStep StepsOfAMove[] = {
    {"BeforeRowColChange", [](kxGrid& g) { return g.BeforeRowColChange.connect(Boom()); }, false},
    {"EnterCell", [](kxGrid& g) { return g.EnterCell.connect(Boom()); }, true},
    {"ValidData", [](kxGrid& g) { return g.ValidData.connect(Boom()); }, true},
    {"RowColChange", [](kxGrid& g) { return g.RowColChange.connect(Boom()); }, true},
    {"AfterRowColChange", [](kxGrid& g) { return g.AfterRowColChange.connect(Boom()); }, true},
    {"SelChange", [](kxGrid& g) { return g.SelChange.connect(Boom()); }, true},
};

class FailingMove : public PlacedGrid, public ::testing::WithParamInterface<FailingStep> {
  protected:
    FailingMove() {
        summed(2);
        setUp();
    }
    /// What the host heard ends with the event that failed.
    void expectTheLastHeardToFail() {
        const Lines lines = heard();
        ASSERT_FALSE(lines.empty());
        EXPECT_EQ(nameOf(lines.back()), GetParam().event);
    }
    void expectToWork() {
        desk.clear();
        heard();
        vs().Select(4, 3);
        heard();
        grid.Row(2);
        EXPECT_EQ(heard(), moves(4, 3, 2, 3));
        typeInto(2, 2, "3*4");
        desk.press(Key::Down);
        EXPECT_EQ(heard(), changed(2, 2) + edited(2, 2) + moves(2, 2, 3, 2));
        EXPECT_EQ(grid.ReadCell(2, 2, true), "12");
        EXPECT_EQ(grid.ReadSum(2), "12");
        grid.SetCell(3, 2, "1");
        EXPECT_EQ(grid.ReadSum(2), "13");
        EXPECT_EQ(boxes(), Nothing);
    }
};

TEST_P(FailingMove, ByTheRowReachesTheCaller) {
    auto failing = GetParam().fail(grid);
    EXPECT_THROW(grid.Row(3), std::runtime_error);
    expectTheLastHeardToFail();
    EXPECT_EQ(grid.Row(), GetParam().moved ? 3 : 1);
    failing.disconnect();
    expectToWork();
}

TEST_P(FailingMove, ByTheColumnReachesTheCaller) {
    auto failing = GetParam().fail(grid);
    EXPECT_THROW(grid.Col(4), std::runtime_error);
    expectTheLastHeardToFail();
    EXPECT_EQ(grid.Col(), GetParam().moved ? 4 : 1);
    failing.disconnect();
    expectToWork();
}

TEST_P(FailingMove, ByAKeyReachesTheCaller) {
    auto failing = GetParam().fail(grid);
    desk.focusGrid();
    EXPECT_THROW(desk.press(Key::Down), std::runtime_error);
    expectTheLastHeardToFail();
    EXPECT_EQ(grid.Row(), GetParam().moved ? 2 : 1);
    failing.disconnect();
    expectToWork();
}

TEST_P(FailingMove, FailsAgainWhenItIsTriedAgain) {
    auto failing = GetParam().fail(grid);
    EXPECT_THROW(grid.Row(3), std::runtime_error);
    heard();
    EXPECT_THROW(grid.Row(4), std::runtime_error);
    expectTheLastHeardToFail();
    failing.disconnect();
    expectToWork();
}

INSTANTIATE_TEST_SUITE_P(At, FailingMove, ::testing::ValuesIn(StepsOfAMove),
                         [](const auto& tested) { return std::string(tested.param.event); });

class FailingShrink : public FailingMove {};
// Only those of FailingMove that the engine asks for when a row or column goes.
INSTANTIATE_TEST_SUITE_P(At, FailingShrink,
                         ::testing::ValuesIn(std::begin(StepsOfAMove) + 1, std::end(StepsOfAMove)),
                         [](const auto& tested) { return std::string(tested.param.event); });

TEST_P(FailingShrink, WhileRowsGoEndsThePutOfTheRows) {
    grid.Rows(20);
    vs().Select(15, 3);
    desk.clear();
    heard();
    auto failing = GetParam().fail(grid);
    EXPECT_THROW(grid.Rows(8), std::runtime_error);
    expectTheLastHeardToFail();
    EXPECT_EQ(grid.Rows(), 8);
    EXPECT_EQ(grid.Row(), 7);
    EXPECT_EQ(desk.reports(), Nothing);
    failing.disconnect();
    grid.Rows(8);
    EXPECT_EQ(reported(), Lines{"Rows"});
    expectToWork();
}

TEST_P(FailingShrink, WhileColumnsGoEndsThePutOfTheColumns) {
    vs().Select(2, 8);
    desk.clear();
    heard();
    auto failing = GetParam().fail(grid);
    EXPECT_THROW(grid.Cols(5), std::runtime_error);
    expectTheLastHeardToFail();
    EXPECT_EQ(grid.Cols(), 5);
    EXPECT_EQ(desk.reports(), Nothing);
    failing.disconnect();
    grid.Cols(5);
    EXPECT_EQ(reported(), Lines{"Cols"});
    EXPECT_EQ(sum().Cols(), 5);
    EXPECT_THROW(grid.VsCtrl(6), GridError);
    expectToWork();
}

class Failure : public PlacedGrid {};

TEST_F(Failure, OfCellChangedReachesWhoeverWritesThroughTheGrid) {
    auto failing = grid.CellChanged.connect(Boom());
    EXPECT_THROW(vs().Text(1, 1, "text"), std::runtime_error);
    EXPECT_EQ(text(1, 1), "text");
    EXPECT_EQ(boxes(), Nothing);
    failing.disconnect();
    vs().Text(1, 1, "other");
    EXPECT_EQ(text(1, 1), "other");
}

TEST_F(Failure, OfAfterEditReachesWhoeverCommits) {
    typeInto(1, 1, "typed");
    auto failing = grid.AfterEdit.connect(Boom());
    EXPECT_THROW(grid.ValidTextData(), std::runtime_error);
    EXPECT_EQ(boxes(), Nothing);
    EXPECT_EQ(text(1, 1), "typed");
    EXPECT_TRUE(grid.bIsDirty());
    EXPECT_TRUE(desk.editor().visible);
    EXPECT_THROW(grid.IsValid(), std::runtime_error);
    failing.disconnect();
    heard();
    EXPECT_TRUE(grid.ValidTextData());
    EXPECT_EQ(heard(), edited(1, 1));
    EXPECT_FALSE(desk.editor().visible);
}

TEST_F(Failure, OfAfterEditLeavesTheCommitOpenForTheNextOne) {
    typeInto(1, 1, "typed");
    auto failing = grid.AfterEdit.connect(Boom());
    EXPECT_THROW(grid.ValidTextData(), std::runtime_error);
    failing.disconnect();
    heard();
    EXPECT_EQ(grid.ReadCell(1, 1, true), "typed");
    EXPECT_EQ(heard(), edited(1, 1)) << "no commit was under way any more";
}

TEST_F(Failure, OfAKeyOnTheSurfaceReachesTheCaller) {
    desk.focusSurface();
    auto down = grid.keyDown.connect(Boom());
    EXPECT_THROW(desk.type("a"), std::runtime_error);
    down.disconnect();
    auto press = grid.KeyPress.connect(Boom());
    EXPECT_THROW(desk.type("a"), std::runtime_error);
    press.disconnect();
    auto up = grid.KeyUp.connect(Boom());
    EXPECT_THROW(desk.type("a"), std::runtime_error);
    up.disconnect();
    heard();
    desk.type("a");
    EXPECT_EQ(heard(), (Lines{line("keyDown", 65, 0), line("KeyPress", 97), line("KeyUp", 65, 0)}));
}

TEST_F(Failure, OfMouseMoveReachesTheCaller) {
    auto failing = grid.MouseMove.connect(Boom());
    EXPECT_THROW(desk.surfaceMouseMove(0, 0, 1, 1), std::runtime_error);
    failing.disconnect();
    heard();
    desk.surfaceMouseMove(0, 0, 1, 1);
    EXPECT_EQ(heard().size(), 1u);
}

TEST_F(Failure, OfTheFirstListenerKeepsTheEventFromTheOthers) {
    int calls = 0;
    auto failing = grid.RowColChange.connect(Boom());
    grid.RowColChange.connect([&] { ++calls; });
    EXPECT_THROW(grid.Row(2), std::runtime_error);
    EXPECT_EQ(calls, 0);
    failing.disconnect();
    grid.Row(3);
    EXPECT_EQ(calls, 1);
}

TEST_F(Failure, OfAHostDoesNotKeepTheControlFromBeingCleared) {
    typeInto(3, 3, "typed");
    auto failing = grid.EnterCell.connect(Boom());
    EXPECT_THROW(grid.Clear(), std::runtime_error);
    failing.disconnect();
    EXPECT_FALSE(desk.editor().visible);
    grid.Clear();
    EXPECT_EQ(grid.Rows(), 6);
    EXPECT_EQ(grid.Text(), "");
    EXPECT_EQ(reported(), Lines{"Rows"});
}

TEST_F(Failure, OfAHostThatRemovesTheControlIsNone) {
    kxGrid& other = desk.place();
    int calls = 0;
    other.Click.connect([&] {
        ++calls;
        desk.remove(other);
    });
    desk.click(2, 2);
    EXPECT_EQ(calls, 1);
    desk.use(grid);
    desk.click(2, 2);
    EXPECT_EQ(grid.Row(), 2);
}
}  // namespace
}  // namespace kxVsGrid::testing

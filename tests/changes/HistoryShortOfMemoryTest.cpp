// Memory that does not suffice for undoing, redoing and taking back.
#include <new>
#include <string>

#include "changes/GridState.h"
#include "grid/FailingAllocator.h"
#include "kit/PlacedGrid.h"

namespace kxVsGrid::testing {
namespace {

/// Steps that are opened must be closed again.
struct StepCounter : ChangeListener {
    void stepOpened(std::string_view, Cause) noexcept override { ++open; }
    void stepClosed(std::string_view, Cause) noexcept override { --open; }
    int open = 0;
};

const std::string LongText = "a text that fits into no slot of a cell";

class WayBackShortOfMemory : public ::testing::TestWithParam<const char*> {};

/// Each allocation of it fails once. Then either all was done, or nothing, or the history says that it forgot;
/// what is kept goes on to lead from one whole state to another.
TEST_P(WayBackShortOfMemory, GoesWholeOrForgets) {
    const std::string way = GetParam();
    bool failed = true;
    for (std::size_t point = 1; failed && point < 4000; ++point) {
        SCOPED_TRACE(point);
        headless::Desk desk;
        kxGrid& grid = desk.place();
        grid.ReDraw(true);
        StepCounter steps;
        grid.Grid().AddListener(steps);
        int forgot = 0;
        grid.History().Forgot.connect([&] { ++forgot; });
        grid.Changes().After.connect([](const StepChanges&) {});
        grid.Grid().Text(3, 2, LongText);
        grid.Grid().CellBackColor(3, 2, Yellow);
        {
            const auto step = grid.Step("first");
            grid.Grid().Text(1, 1, "first");
        }
        const Lines before = stateOf(grid);
        const auto change = [&] {
            grid.Grid().Cell(1, 1, LongText, LongText);
            grid.Grid().RemoveRow(3);
            grid.Grid().MoveRows(1, 2, 3);
            grid.Grid().InsertRow(2);
            grid.Grid().Text(2, 3, LongText);
        };
        {
            const auto step = grid.Step("a second step with a long name");
            change();
        }
        const Lines after = stateOf(grid);
        if (way == "Redo") grid.History().Undo();
        const auto goes = [&](const auto& work) {
            const FailingAllocation failing(point);
            try {
                work();
            } catch (const std::bad_alloc&) {
            }
            failed = failing.failed();
        };
        if (way == "TakeBack") {
            auto step = grid.Step("taken back, at last, and not before");
            grid.Grid().Text(1, 1, "");
            grid.Grid().RemoveRow(4);
            goes([&] { step.takeBack(); });
        } else if (way == "Undo") {
            goes([&] { grid.History().Undo(); });
        } else {
            goes([&] { grid.History().Redo(); });
        }
        EXPECT_EQ(steps.open, 0);
        const Lines now = stateOf(grid);
        const bool whole = now == before || now == after;
        const bool keeps = grid.History().CanUndo() || grid.History().CanRedo();
        if (!whole && way != "TakeBack") {
            EXPECT_FALSE(keeps) << ::testing::PrintToString(now);
            EXPECT_EQ(forgot, 1);
        }
        if (whole && keeps && way != "TakeBack") {
            while (grid.History().Redo()) {
            }
            EXPECT_EQ(stateOf(grid), after);
            grid.History().Undo();
            EXPECT_EQ(stateOf(grid), before);
        }
        {
            const auto step = grid.Step("goes on");
            grid.Grid().Text(1, 2, "goes on");
        }
        EXPECT_EQ(grid.History().UndoName(), "goes on");
        EXPECT_TRUE(grid.History().Undo());
        grid.Grid().RemoveListener(steps);
    }
    EXPECT_FALSE(failed);
}

INSTANTIATE_TEST_SUITE_P(By, WayBackShortOfMemory, ::testing::Values("Undo", "Redo", "TakeBack"),
                         [](const auto& tested) { return std::string(tested.param); });
}  // namespace
}  // namespace kxVsGrid::testing

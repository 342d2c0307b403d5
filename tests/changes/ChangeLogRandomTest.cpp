// Random work of a clerk and a host, undone, redone and saved at random, beside a full copy of what was saved.
#include "changes/RandomClerk.h"
#include "changes/SavedCopy.h"

namespace kxVsGrid::testing {
namespace {

class RandomLog : public RandomClerk {
  protected:
    RandomLog() { save(); }

    void save() {
        copy.take();
        grid.Changes().Saved();
    }
    void act() {
        switch (roll(0, 17)) {
            case 0:
            case 1:
            case 2:
                return type();
            case 3:
            case 4:
                return rowKey();
            case 5:
                return choose();
            case 6:
            case 7:
                return write();
            case 8:
            case 9:
                return hostStep();
            case 10:
                if (dice.oneIn(5)) save();
                return;
            case 11:
                if (dice.oneIn(5)) rare();
                return;
            case 12:
            case 13:
            case 14:
                return static_cast<void>(grid.History().Redo());
            default:
                return static_cast<void>(grid.History().Undo());
        }
    }
    void hostStep() {
        auto step = grid.Step("by the host");
        for (int n = roll(1, 6); n > 0; --n) write();
        if (dice.oneIn(3)) {
            ASSERT_TRUE(step.takeBack());
        }
    }
    void rare() {
        switch (roll(0, 3)) {
            case 0:
                grid.Clear();
                return grid.Rows(8);
            case 1: {
                const auto span = grid.Unrecorded();
                return write();
            }
            case 2:
                if (vs().Cols() < 80) return grid.Cols(vs().Cols() + roll(1, 70));
                return;
            default:
                if (vs().Cols() == 6) return;
                grid.Cols(6);
                ASSERT_TRUE(grid.Changes().Unknown());
                save();
        }
    }
    void compare() {
        const Difference expected = copy.difference();
        ASSERT_FALSE(grid.Changes().Unknown());
        if (dice.oneIn(2)) {
            ASSERT_EQ(grid.Changes().empty(), expected.lines.empty());
        }
        if (dice.oneIn(2)) return;
        ASSERT_EQ(logged(grid), expected);
        empties += expected.lines.empty();
    }

    SavedCopy copy{grid};
    int empties = 0;
};

TEST_P(RandomLog, AgreesWithAFullCopyOfWhatWasSaved) {
    for (int n = 0; n < 10'000; ++n) {
        act();
        if (!HasFailure()) compare();
        if (HasFailure()) {
            ADD_FAILURE() << "act " << n;
            return;
        }
    }
    EXPECT_GT(empties, 20);
}
INSTANTIATE_TEST_SUITE_P(HeardOrNot, RandomLog, ::testing::Bool());
}  // namespace
}  // namespace kxVsGrid::testing

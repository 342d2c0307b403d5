// A host that goes to another cell while it hears of a commit: what was typed stays one pair in its own cell.
#include <functional>
#include <utility>

#include "kit/ClerkTest.h"

namespace kxVsGrid::testing {
namespace {

class HostMovesInTheCommit : public ClerkTest {
  protected:
    HostMovesInTheCommit() {
        takesCodes(1);
        knowCodes([](const std::string& typed) { return std::optional("name of " + typed); });
        fill(1, 1, "A1", "name of A1");
        fill(2, 2, "other", "tag of the other");
        openAt(1, 1);
        desk.type("B2");
    }
    /// Done once, as the host first hears of a changed cell.
    void whenTextChanges(std::function<void()> act) {
        once = grid.CellChanged.connect([this, act = std::move(act)](std::int32_t, std::int32_t) {
            once.disconnect();
            act();
        });
    }
    void expectPairIn(std::int32_t row) {
        EXPECT_EQ(text(row, 1), "B2");
        EXPECT_EQ(tag(row, 1), "name of B2");
        EXPECT_EQ(named(heard(), "AfterEdit"), edited(row, 1));
        EXPECT_TRUE(grid.bIsDirty());
        EXPECT_FALSE(open());
    }
    Connection once;
};

TEST_F(HostMovesInTheCommit, AndLeavesTextAndTagTogether) {
    whenTextChanges([&] { grid.Grid().Select(2, 2); });
    grid.ValidTextData();
    expectPairIn(1);
    EXPECT_EQ(text(2, 2), "other");
    EXPECT_EQ(tag(2, 2), "tag of the other");
    EXPECT_EQ(current(), (Cell{2, 2}));
    EXPECT_EQ(grid.Text(), "other");
}

TEST_F(HostMovesInTheCommit, AndComesBack) {
    whenTextChanges([&] {
        grid.Grid().Select(2, 2);
        grid.Grid().Select(1, 1);
    });
    grid.ValidTextData();
    expectPairIn(1);
}

TEST_F(HostMovesInTheCommit, AndInsertsARowAboveIt) {
    whenTextChanges([&] {
        grid.Grid().Select(2, 2);
        grid.Grid().InsertRow(1);
    });
    grid.ValidTextData();
    expectPairIn(2);
}

TEST_F(HostMovesInTheCommit, AndRemovesItsRow) {
    whenTextChanges([&] {
        grid.Grid().Select(2, 2);
        grid.Grid().RemoveRow(1);
    });
    grid.ValidTextData();
    EXPECT_EQ(text(1, 1), "");
    EXPECT_EQ(tag(1, 2), "tag of the other");
    EXPECT_EQ(named(heard(), "AfterEdit"), Lines{});
    EXPECT_FALSE(open());
}

TEST_F(HostMovesInTheCommit, AndIsAskedForARowAfterTheOneThatWasTyped) {
    grid.Grid().Select(5, 1);
    desk.type("B2");
    whenTextChanges([&] { grid.Grid().Select(2, 2); });
    heard();
    grid.ValidTextData();
    EXPECT_EQ(named(heard(), "AddVsRow"), asksForRow(5, false));
    EXPECT_EQ(tag(5, 1), "name of B2");
}

}  // namespace
}  // namespace kxVsGrid::testing

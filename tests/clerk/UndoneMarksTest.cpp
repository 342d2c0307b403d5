// The marks that a block has left go and come with its step.
#include <string>

#include "clerk/BlockTest.h"

namespace kxVsGrid::testing {
namespace {

class MarkedPaster : public BlockTest {
  protected:
    MarkedPaster() {
        column(2).iType(flexDTDouble);
        at(1, 1);
    }
    void redo() { EXPECT_TRUE(grid.Run(Command::Redo)); }
    std::string markAt(std::int32_t row, std::int32_t col) const {
        const CellMark* mark = grid.Mark(row, col);
        return mark == nullptr ? std::string() : mark->text;
    }
};

TEST_F(MarkedPaster, FindsNoMarksAfterAnUndoAndThemAgainAfterARedo) {
    paste("a\tx\nb\t2\nc\ty");
    EXPECT_TRUE(problemAt(1, 2));
    EXPECT_TRUE(problemAt(3, 2));
    const std::string reason = markAt(3, 2);
    int changes = 0;
    grid.Grid().MarksChanged.connect([&] { ++changes; });
    undo();
    EXPECT_EQ(markAt(1, 2) + markAt(3, 2), "");
    EXPECT_EQ(changes, 2);
    redo();
    EXPECT_TRUE(problemAt(1, 2));
    EXPECT_EQ(markAt(3, 2), reason);
    EXPECT_EQ(texts(1, 1, 3, 2), "a|/b|2/c|");
    undo();
    EXPECT_EQ(markAt(1, 2) + markAt(3, 2), "");
}

TEST_F(MarkedPaster, FindsTheMarkOfAnEarlierBlockAgain) {
    paste("a\tx");
    const std::string first = markAt(1, 2);
    paste("b\t2026-1-1");
    EXPECT_NE(markAt(1, 2), first);
    undo();
    EXPECT_EQ(markAt(1, 2), first);
    undo();
    EXPECT_EQ(markAt(1, 2), "");
}

TEST_F(MarkedPaster, KeepsAMarkThatSomebodyElseHasPutThereSince) {
    paste("a\tx\nb\ty");
    grid.Mark(1, 2, CellMark{CellMark::Kind::Warning, "of the host"});
    undo();
    EXPECT_EQ(markAt(1, 2), "of the host");
    EXPECT_EQ(markAt(2, 2), "");
    redo();
    EXPECT_EQ(markAt(1, 2), "of the host");
    EXPECT_TRUE(problemAt(2, 2));
}

TEST_F(MarkedPaster, FindsTheMarksInRowsThatCameWithTheBlockAndGoWithIt) {
    consentToRows();
    at(5, 1);
    paste("a\t1\nb\tx\nc\ty");
    EXPECT_EQ(grid.Rows(), 9);
    EXPECT_TRUE(problemAt(6, 2));
    undo();
    EXPECT_FALSE(grid.NextMark(1, 1).has_value());
    redo();
    EXPECT_TRUE(problemAt(6, 2));
    EXPECT_TRUE(problemAt(7, 2));
}

TEST_F(MarkedPaster, KeepsWhatCanBeRedoneAndTheMarksWhenNothingWasWritten) {
    paste("a\tb");
    undo();
    choose(1, 2, 2, 2);
    paste("x");
    EXPECT_TRUE(problemAt(1, 2));
    EXPECT_TRUE(grid.History().CanRedo());
    EXPECT_FALSE(grid.History().CanUndo());
}
}  // namespace
}  // namespace kxVsGrid::testing

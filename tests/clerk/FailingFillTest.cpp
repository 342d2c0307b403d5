// Fills whose cells cannot be written: one box, and a tip of how many cells were left.
#include <stdexcept>

#include "kit/MenuTest.h"

namespace kxVsGrid::testing {
namespace {

class FailingFill : public MenuTest {
  protected:
    FailingFill() {
        rows(1001);
        fill(1, 1, "a", "b");
        at(1, 1);
    }
    void failsFrom(std::int32_t row) {
        grid.CellChanged.connect([row](std::int32_t written, std::int32_t) {
            if (written >= row) throw std::runtime_error("host");
        });
    }
};

TEST_F(FailingFill, EndsWithItsFirstBoxAndTellsHowManyCellsAreLeft) {
    failsFrom(2);
    fillBy(caption::Copies);
    EXPECT_EQ(desk.messages(), (std::vector<MessageBox>{{"SetCell Error::host", 16, "错误"}}));
    EXPECT_EQ(desk.tips(), (Lines{"填充中断，还有 999 个单元格未填充。"}));
    EXPECT_EQ(text(3, 1), "");
    EXPECT_TRUE(desk.idle());
}

TEST_F(FailingFill, KeepsWhatItHasFilled) {
    failsFrom(1000);
    fillBy(caption::Copies);
    EXPECT_EQ(text(999, 1), "a");
    EXPECT_EQ(text(1000, 1), "");
    EXPECT_EQ(desk.messages().size(), 1u);
    EXPECT_EQ(desk.tips(), (Lines{"填充中断，还有 1 个单元格未填充。"}));
}

TEST_F(FailingFill, CountsOnlyCellsThatItWouldHaveFilled) {
    typed(2, flexDTDate);
    fill(1, 2, "9997-01-01", "x");
    at(1, 2);
    failsFrom(3);
    fillBy(caption::Years);
    EXPECT_EQ(text(2, 2), "9998-01-01");
    EXPECT_EQ(desk.tips(), (Lines{"填充中断，还有 1 个单元格未填充。"}));
}

TEST_F(FailingFill, ThatSucceedsShowsNoTip) {
    fillBy(caption::Copies);
    EXPECT_EQ(desk.tips(), Lines{});
    EXPECT_EQ(desk.messages().size(), 0u);
}
}  // namespace
}  // namespace kxVsGrid::testing

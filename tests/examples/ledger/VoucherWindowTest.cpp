// The window of a voucher: the difference that it shows, and its title.
#include "VoucherWindow.h"

#include <gtest/gtest.h>

namespace ledger {
namespace {

class VoucherWindowTest : public testing::Test {
  protected:
    VoucherWindowTest() { window.show(); }

    static constexpr Date Today{2026, 11, 23};
    VoucherStore store{":memory:", Today};
    VoucherWindow window{store, Today};
};

TEST_F(VoucherWindowTest, ShowsTheDifferenceAsItChanges) {
    EXPECT_EQ(window.difference(), "借贷平衡");
    window.copyMonthBefore();
    EXPECT_EQ(window.difference(), "借贷平衡");
    window.voucher().sheet().edit(1, [](Entry& entry) { entry.debit = 4000; });
    EXPECT_EQ(window.difference(), "差额 179.50");
    EXPECT_FALSE(window.save());
    EXPECT_EQ(window.message(), "没有保存：借贷不平，差额 179.50");
}

TEST_F(VoucherWindowTest, MarksItsTitleWhileSomethingIsToBeSaved) {
    EXPECT_FALSE(window.isWindowModified());
    window.copyMonthBefore();
    EXPECT_TRUE(window.isWindowModified());
    EXPECT_TRUE(window.save());
    EXPECT_FALSE(window.isWindowModified());
    EXPECT_TRUE(window.close());
}
}  // namespace
}  // namespace ledger

// A voucher that is typed, balanced, saved and read again, on the machine without a window.
#include "VoucherSheet.h"

#include <gtest/gtest.h>

#include "kxVsGrid/headless/Desk.h"

namespace ledger {
void PrintTo(const Entry& entry, std::ostream* out) {
    *out << entry.id << " v" << entry.version << ' ' << entry.number << ' ' << entry.account << ' '
         << entry.debit.text() << ' ' << entry.credit.text();
}

namespace {
using kxVsGrid::Command;
using kxVsGrid::Key;

class VoucherSheetTest : public testing::Test {
  protected:
    VoucherSheetTest() {
        desk.resize(16000, 6000);
        voucher.open(Today);
        desk.focusGrid();
    }

    std::int32_t col(std::string_view name) { return voucher.sheet().col(name); }
    std::string shown(std::int32_t row, std::string_view name) {
        return grid.Grid().DisplayText(row, col(name));
    }
    void type(std::int32_t row, std::string_view name, std::string_view text) {
        grid.Grid().Select(row, col(name));
        desk.type(text).press(Key::Enter);
    }
    void typeEntry(std::int32_t row, std::string_view account, std::string_view side,
                   std::string_view amount) {
        type(row, "summary", "付办公费");
        type(row, "account", account);
        type(row, side, amount);
    }
    std::vector<Entry> stored() { return store.entries(store.voucher(monthOf(Today))); }

    static constexpr Date Today{2026, 11, 23};
    VoucherStore store{":memory:", Today};
    kxVsGrid::headless::Desk desk;
    kxVsGrid::kxGrid& grid = desk.place();
    VoucherSheet voucher{grid, store};
};

TEST_F(VoucherSheetTest, SavesWhatBalances) {
    typeEntry(1, "660203", "debit", "118.05");
    EXPECT_EQ(shown(1, "name"), "管理费用-办公费");
    EXPECT_EQ(voucher.difference(), Decimal("118.05"));
    typeEntry(2, "1001", "credit", "118.05");
    EXPECT_EQ(voucher.difference(), 0);
    EXPECT_EQ(grid.ReadSum(col("debit")), "118.05");
    EXPECT_EQ(voucher.save(), "");
    EXPECT_FALSE(voucher.sheet().modified());
    EXPECT_NE(voucher.voucher().id, 0);
    ASSERT_EQ(stored().size(), 2u);
    EXPECT_EQ(stored(), voucher.sheet().records());
    EXPECT_EQ(stored()[1].number, 2);
}

TEST_F(VoucherSheetTest, IsEnteredByEnterAlone) {
    grid.Grid().Select(1, col("summary"));
    for (const char* text : {"付办公费", "660203", "118.05", "", "付办公费", "1001", "", "118.05"})
        desk.type(text).press(Key::Enter);
    EXPECT_EQ(grid.Row(), 3);
    EXPECT_EQ(grid.Col(), col("summary"));
    EXPECT_EQ(voucher.save(), "");
}

TEST_F(VoucherSheetTest, RefusesToSaveWhatDoesNotBalance) {
    typeEntry(1, "660203", "debit", "0.3");
    typeEntry(2, "1001", "credit", "0.1");
    typeEntry(3, "100201", "credit", "0.1");
    EXPECT_EQ(voucher.save(), "借贷不平，差额 0.10");
    EXPECT_TRUE(voucher.sheet().modified());
    EXPECT_TRUE(stored().empty());
    typeEntry(4, "100202", "credit", "0.1");
    EXPECT_EQ(voucher.save(), "");
}

TEST_F(VoucherSheetTest, RefusesAccountsThatNobodyKnowsAndThoseOfHigherLevels) {
    for (const char* code : {"9999", "1002"}) {
        grid.Grid().Select(1, col("account"));
        desk.type(code).press(Key::Enter);
        EXPECT_TRUE(desk.editor().visible) << code;
        desk.press(Key::Escape);
        EXPECT_EQ(shown(1, "account"), "") << code;
    }
    type(1, "account", "100202");
    EXPECT_EQ(shown(1, "name"), "银行存款-建设银行");
}

TEST_F(VoucherSheetTest, RefusesASecondSide) {
    typeEntry(1, "660203", "debit", "5");
    grid.Grid().Select(1, col("credit"));
    desk.type("5").press(Key::Enter);
    EXPECT_TRUE(desk.editor().visible);
    desk.press(Key::Escape);
    EXPECT_EQ(shown(1, "credit"), "");
}

TEST_F(VoucherSheetTest, LetsAClerkChangeSidesAndWantsOneOfThem) {
    voucher.copyMonthBefore();
    grid.Grid().Select(3, col("debit"));
    desk.press(Key::F2).press(Key::Delete).press(Key::Enter);
    EXPECT_FALSE(desk.editor().visible);
    EXPECT_EQ(shown(3, "debit"), "");
    EXPECT_EQ(voucher.save(), "第 3 行的科目名称：借方或贷方要填一方");
    type(3, "credit", "-12000");
    EXPECT_EQ(voucher.save(), "");
}

TEST_F(VoucherSheetTest, CopiesTheVoucherOfTheMonthBefore) {
    EXPECT_TRUE(voucher.copyMonthBefore());
    ASSERT_EQ(voucher.sheet().records().size(), 4u);
    EXPECT_EQ(shown(1, "name"), "管理费用-折旧费");
    EXPECT_EQ(shown(1, "debit"), "3,820.50");
    EXPECT_EQ(shown(1, "credit"), "");
    EXPECT_EQ(voucher.difference(), 0);
    type(3, "debit", "12500");
    EXPECT_EQ(voucher.save(), "借贷不平，差额 500.00");
    type(4, "credit", "12500");
    EXPECT_EQ(voucher.save(), "");
    EXPECT_EQ(stored(), voucher.sheet().records());
    EXPECT_EQ(store.entries(store.voucher(monthBefore(Today)))[2].debit, 12'000);
}

TEST_F(VoucherSheetTest, TakesBackACopiedVoucherAtOnce) {
    voucher.copyMonthBefore();
    desk.run(Command::Undo);
    EXPECT_TRUE(voucher.sheet().records().empty());
    EXPECT_FALSE(voucher.sheet().modified());
}

TEST_F(VoucherSheetTest, KeepsTheOrderOfItsEntries) {
    voucher.copyMonthBefore();
    ASSERT_EQ(voucher.save(), "");
    grid.Grid().Select(4, col("summary"));
    EXPECT_TRUE(desk.run(Command::MoveRowUp));
    EXPECT_TRUE(voucher.sheet().modified());
    EXPECT_EQ(voucher.save(), "");
    EXPECT_EQ(stored()[2].account, "100201");
    EXPECT_EQ(stored(), voucher.sheet().records());
}

TEST_F(VoucherSheetTest, SavesAnEntryAsANewOneThatWasRemovedSavedAndUndone) {
    voucher.copyMonthBefore();
    ASSERT_EQ(voucher.save(), "");
    const std::int64_t last = voucher.sheet().record(4).id;
    for (int i = 0; i < 2; ++i) {
        grid.Grid().Select(3, col("summary"));
        desk.run(Command::DeleteRows);
    }
    EXPECT_EQ(voucher.save(), "");
    EXPECT_EQ(stored().size(), 2u);
    desk.run(Command::Undo);
    desk.run(Command::Undo);
    EXPECT_EQ(voucher.save(), "");
    ASSERT_EQ(stored().size(), 4u);
    EXPECT_GT(stored()[3].id, last - 2);
    EXPECT_EQ(stored(), voucher.sheet().records());
}

TEST_F(VoucherSheetTest, StaysAsItIsWhenTheDatabaseRefuses) {
    voucher.copyMonthBefore();
    ASSERT_EQ(voucher.save(), "");
    type(1, "debit", "1");
    type(2, "credit", "1");
    store.database().run("UPDATE entry SET version = 9 WHERE number = 2");
    EXPECT_NE(voucher.save().find("别人"), std::string::npos);
    EXPECT_TRUE(voucher.sheet().modified());
    EXPECT_EQ(voucher.sheet().changes().changed.size(), 2u);
    EXPECT_EQ(voucher.sheet().record(1).version, 1);
    EXPECT_EQ(store.database().number("SELECT count(*) FROM entry WHERE debit_cents = 100"), 0);
}
}  // namespace
}  // namespace ledger

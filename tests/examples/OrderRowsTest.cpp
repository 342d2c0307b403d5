// The grid's row commands and column fills on an order: what becomes of lines, amounts and totals.
#include "OrderSheet.h"

namespace {
class OrderRows : public OrderSheet {
  protected:
    OrderRows() {
        enterLine(1, "100001");
        enterLine(2, "100002");
        enter(3, OrderColumn::Remark, "运费另计");
        before = control.Rows();
    }

    /// Right press at a cell that has been brought into view.
    void choose(int row, OrderColumn::Column col, const char* caption, const char* under = nullptr,
                std::int16_t shift = 0) {
        desk.onPopup([=](kxVsGrid::headless::PoppedMenu& menu) {
            under ? menu.choose(caption, under) : menu.choose(caption);
        });
        at(row, col);
        desk.rightClick(row, col, shift);
        expectWhole();
    }
    void chooseWithCtrl(int row, const char* caption, const char* answer) {
        desk.answerInputBox(answer);
        choose(row, OrderColumn::Code, caption, nullptr, kxVsGrid::CtrlKey);
    }

    /// Rows are numbered from 1, each amount is that of its line, the totals are those of the lines.
    void expectWhole() {
        Cents amount = 0;
        Thousandths quantity = 0;
        for (int row = control.FixedRows(); row < control.Rows(); ++row)
            EXPECT_EQ(cell(row, OrderColumn::RowNumber), std::to_string(row)) << desk.ascii();
        for (const OrderLine& one : grid.lines()) {
            if (one.quantity && one.price) {
                EXPECT_EQ(one.amount, amountOf(*one.quantity, *one.price)) << desk.ascii();
            }
            amount += one.amount.value_or(0);
            quantity += one.quantity.value_or(0);
        }
        EXPECT_EQ(scaledNumber(sum(OrderColumn::Amount), PriceDecimals).value_or(0), amount);
        EXPECT_EQ(scaledNumber(sum(OrderColumn::Quantity), QuantityDecimals).value_or(0), quantity);
    }

    /// A total, without the signs between its thousands.
    std::string sum(OrderColumn::Column col) {
        std::string text = control.ReadSum(col);
        std::erase(text, ',');
        return text;
    }

    std::string codes(int first, int last) {
        std::string result;
        for (int row = first; row <= last; ++row) result += cell(row, OrderColumn::Code) + '|';
        return result;
    }

    int before;
};
}  // namespace

TEST_F(OrderRows, AreAddedAtTheEndWithThePresetWarehouseAndDelivery) {
    grid.presetWarehouse("钢材仓");
    enter(2, OrderColumn::Delivery, "2026-12-24");
    enter(before - 1, OrderColumn::Warehouse, "五金仓");  // in the last row: another one follows
    choose(1, OrderColumn::Code, "新增行");
    EXPECT_EQ(control.Rows(), before + 2);
    EXPECT_EQ(control.Row(), before + 1);
    choose(3, OrderColumn::Code, "插入行");
    EXPECT_EQ(control.Row(), 3);
    EXPECT_EQ(cell(3, OrderColumn::Warehouse), "钢材仓") << "not that of the row above";
    EXPECT_EQ(cell(3, OrderColumn::Delivery), "2026-11-27");
    EXPECT_EQ(cell(4, OrderColumn::Remark), "运费另计");
    EXPECT_EQ(grid.lines().size(), 3u);
}

TEST_F(OrderRows, AreEmptyWhenTheClerkAsksForEmptyOnes) {
    choose(3, OrderColumn::Code, "插入空行");
    EXPECT_EQ(control.Rows(), before + 1);
    EXPECT_EQ(cell(3, OrderColumn::Warehouse), "");
    EXPECT_EQ(cell(3, OrderColumn::Delivery), "");
    choose(1, OrderColumn::Code, "新增空行");
    EXPECT_EQ(control.Row(), before + 1);
    EXPECT_EQ(cell(before + 1, OrderColumn::Warehouse), "");
}

TEST_F(OrderRows, AreAddedSeveralAtATime) {
    grid.presetWarehouse("钢材仓");
    chooseWithCtrl(2, "插入..行", "3");
    EXPECT_EQ(control.Rows(), before + 3);
    EXPECT_EQ(codes(1, 5), "100001||||100002|");
    EXPECT_EQ(cell(2, OrderColumn::Warehouse), "钢材仓");
    chooseWithCtrl(1, "新增..行", "2");
    chooseWithCtrl(1, "插入空白..行", "1");
    chooseWithCtrl(1, "新增空行..行", "4");
    EXPECT_EQ(control.Rows(), before + 10);
    EXPECT_EQ(codes(1, 6), "|100001||||100002|");
}

TEST_F(OrderRows, WithACodeAreCopiedWithEverythingButTheTimeOfEntry) {
    enter(2, OrderColumn::Remark, "加急");
    now = now.addSecs(3600);
    choose(2, OrderColumn::Quantity, "复制插入行");
    ASSERT_EQ(grid.lines().size(), 4u);
    OrderLine copy = grid.lines()[1];
    const OrderLine source = grid.lines()[2];
    EXPECT_EQ(copy.code, QString("100002"));
    EXPECT_EQ(copy.amount, 9250);
    EXPECT_EQ(copy.entered, now);
    copy.entered = source.entered;
    EXPECT_TRUE(copy == source) << desk.ascii();
    EXPECT_FALSE(grid.firstProblem());
    choose(1, OrderColumn::Quantity, "复制行");
    EXPECT_EQ(cell(before + 1, OrderColumn::Code), "100001");
    EXPECT_EQ(control.ReadSum(OrderColumn::Amount), "218.30");  // 2 x 16.65 and 2 x 92.50
}

TEST_F(OrderRows, WithoutACodeAreNotCopied) {
    choose(3, OrderColumn::Remark, "复制插入行");
    EXPECT_EQ(control.Rows(), before + 1);
    EXPECT_EQ(cell(3, OrderColumn::Remark), "");
    EXPECT_EQ(cell(3, OrderColumn::Warehouse), "");
    EXPECT_EQ(cell(4, OrderColumn::Remark), "运费另计");
    EXPECT_EQ(said, QString("没有货号的行不复制,新增了一个空行"));
    choose(before, OrderColumn::Code, "复制行");
    EXPECT_EQ(grid.lines().size(), 3u);
}

TEST_F(OrderRows, OfAnUnknownCodeAreCopiedWithItsMark) {
    {
        const auto step = control.Step("填充");
        control.SetCell(2, OrderColumn::Code, "999");
    }
    choose(2, OrderColumn::Code, "复制插入行");
    for (const int row : {2, 3}) {
        EXPECT_EQ(cell(row, OrderColumn::Code), "999");
        EXPECT_EQ(control.Grid().CellForeColor(row, OrderColumn::Code), 0x0000C0u);
    }
}

TEST_F(OrderRows, WithContentAreDeletedWhenTheClerkAgrees) {
    bool agrees = false;
    grid.mayDelete([&](const QString&) { return agrees; });
    choose(1, OrderColumn::Code, "删除行");
    EXPECT_EQ(codes(1, 2), "100001|100002|");
    agrees = true;
    choose(1, OrderColumn::Code, "删除行");
    EXPECT_EQ(codes(1, 2), "100002||");
    EXPECT_EQ(control.ReadSum(OrderColumn::Amount), "92.50");
}

TEST_F(OrderRows, GetAmountsAndTotalsForAFilledSeriesOfQuantities) {
    control.Rows(4);
    enter(3, OrderColumn::Code, "100001");
    control.Rows(5);
    enter(4, OrderColumn::Code, "100002");
    control.Rows(5);
    enter(2, OrderColumn::Quantity, "7");
    choose(2, OrderColumn::Quantity, "填充列", "序列方式填充(&S)");
    EXPECT_EQ(cell(3, OrderColumn::Quantity), "9");
    EXPECT_EQ(cell(4, OrderColumn::Quantity), "11");
    EXPECT_EQ(cell(3, OrderColumn::Amount), "29.97");
    EXPECT_EQ(cell(4, OrderColumn::Amount), "203.50");
}

TEST_F(OrderRows, GetTheSameQuantityAndPriceWhereThoseAreCopiedDown) {
    control.Rows(5);
    enter(1, OrderColumn::Quantity, "1234.5");
    enter(1, OrderColumn::Price, "1000.25");
    choose(1, OrderColumn::Quantity, "填充列", "复制单元格(&C)");
    choose(1, OrderColumn::Price, "填充列", "复制单元格(&C)");
    for (const std::size_t line : {0, 1, 2}) {
        EXPECT_EQ(grid.lines().at(line).quantity, 1234500) << desk.ascii();
        EXPECT_EQ(grid.lines().at(line).amount, 123480863) << desk.ascii();
    }
}

TEST_F(OrderRows, GetTheirGoodsForACopiedCode) {
    control.Rows(5);
    choose(2, OrderColumn::Code, "填充列", "复制单元格(&C)");
    EXPECT_EQ(codes(1, 4), "100001|100002|100002||") << "the last line is the third";
    EXPECT_EQ(cell(3, OrderColumn::Name), "无缝钢管");
    EXPECT_EQ(cell(3, OrderColumn::Price), "18.50");
}

TEST_F(OrderRows, KeepNameSpecificationAndPriceOfTheirGoodsWhereThoseOfOthersAreCopiedDown) {
    control.Rows(5);
    enter(2, OrderColumn::Price, "17.25");
    for (const OrderColumn::Column col : {OrderColumn::Name, OrderColumn::Spec, OrderColumn::Amount}) {
        const std::vector<OrderLine> agreed = grid.lines();
        choose(1, col, "填充列", "复制单元格(&C)");
        EXPECT_TRUE(grid.lines() == agreed) << desk.ascii();
        EXPECT_EQ(cell(4, col), "");
    }
    EXPECT_EQ(cell(2, OrderColumn::Name), "无缝钢管");
    EXPECT_EQ(cell(2, OrderColumn::Spec), "DN25");
    EXPECT_EQ(cell(2, OrderColumn::Price), "17.25");
}

TEST_F(OrderRows, OfASavedOrderKeepTheirSpecificationToo) {
    const std::vector<OrderLine> saved = grid.lines();
    grid.show(saved, QDate(2026, 11, 27));
    choose(1, OrderColumn::Spec, "填充列", "复制单元格(&C)");
    EXPECT_TRUE(grid.lines() == saved) << desk.ascii();
}

TEST_F(OrderRows, AreDeliveredAMonthApartWhereTheDatesAreFilledSo) {
    control.Rows(5);
    enter(1, OrderColumn::Delivery, "2026-01-31");
    choose(1, OrderColumn::Delivery, "填充列", "以月填充(&M)");
    EXPECT_EQ(grid.lines()[1].delivery, QDate(2026, 2, 28));
    EXPECT_EQ(grid.lines()[2].delivery, QDate(2026, 3, 28));
    EXPECT_EQ(problem(), QString());
}

TEST_F(OrderRows, AreDeliveredInTheHalfDayOfTheirFilledDate) {
    control.Rows(5);
    enter(2, OrderColumn::Slot, "2026-12-01 下午");
    at(4, OrderColumn::Code);  // a row with a half day of the row above
    enter(1, OrderColumn::Delivery, "2026-01-30");
    choose(1, OrderColumn::Delivery, "填充列", "以天数填充(&D)");
    EXPECT_EQ(cell(2, OrderColumn::Slot), "2026-01-31 下午");
    EXPECT_EQ(control.Grid().Data(2, OrderColumn::Slot), "2026-01-31 下午");
    EXPECT_EQ(cell(3, OrderColumn::Slot), "2026-02-01 上午");
    EXPECT_EQ(problem(), QString());
}

TEST_F(OrderRows, KeepAHalfDayOfTheirOwnWhereTheyAreCopiedAndGetThePresetOneWhereTheyAreNew) {
    enter(2, OrderColumn::Slot, "2026-12-01 下午");
    choose(2, OrderColumn::Code, "复制插入行");
    EXPECT_EQ(cell(2, OrderColumn::Delivery), "2026-11-27");
    EXPECT_EQ(cell(2, OrderColumn::Slot), "2026-12-01 下午");
    choose(3, OrderColumn::Code, "插入行");
    EXPECT_EQ(cell(3, OrderColumn::Slot), "2026-11-27 上午");
    chooseWithCtrl(4, "插入..行", "2");
    for (const int row : {2, 6}) EXPECT_EQ(cell(row, OrderColumn::Slot), "2026-12-01 下午") << row;
    for (const int row : {3, 4, 5}) EXPECT_EQ(cell(row, OrderColumn::Slot), "2026-11-27 上午") << row;
}

TEST_F(OrderRows, ThatSayNothingKeepNoOrderFromBeingSavedWhateverAFillHasLeftInThem) {
    control.Options().FillsToLastLine(false);
    choose(2, OrderColumn::Entered, "填充列", "以天数填充(&D)");
    EXPECT_NE(cell(before - 1, OrderColumn::Entered), "");
    EXPECT_EQ(problem(), QString("第 3 行的录入时间“2026-11-21”不是日期加时间"));
    enter(3, OrderColumn::Entered, "2026-11-20 09:31:00");
    EXPECT_EQ(problem(), QString());
    EXPECT_EQ(grid.lines().size(), 3u);
}

TEST_F(OrderRows, OfAReadOnlyOrderOfferNothingButTheClipboard) {
    grid.setReadOnly(true);
    choose(2, OrderColumn::Code, "复制单元格");
    EXPECT_EQ(desk.lastMenu().items.size(), 1u);
    EXPECT_EQ(desk.clipboard(), "100002");
    at(2, OrderColumn::Code);
    desk.press(Key::Insert).press(Key::Delete).type("9").press(Key::Enter);
    EXPECT_FALSE(desk.editor().visible);
    EXPECT_EQ(control.Rows(), before);
    EXPECT_EQ(codes(1, 3), "100001|100002||");
}

TEST_F(OrderRows, OfAReadOnlyOrderCanBeChangedAgainInTheNextOne) {
    grid.setReadOnly(true);
    grid.markSaved(grid.lines());
    EXPECT_FALSE(control.Editable());
    grid.setReadOnly(false);
    choose(1, OrderColumn::Code, "新增行");
    EXPECT_EQ(control.Rows(), before + 1);
    EXPECT_TRUE(grid.unsaved().none());
}

// What a line of an order gets from what is keyed into it. What is refused: OrderChecksTest.
#include "OrderSheet.h"

TEST_F(OrderSheet, AKnownCodeBringsNameSpecUnitAndPrice) {
    enter(1, OrderColumn::Code, "100001");
    EXPECT_EQ(cell(1, OrderColumn::Name), "六角螺栓");
    EXPECT_EQ(cell(1, OrderColumn::Spec), "M8×40");
    EXPECT_EQ(cell(1, OrderColumn::Unit), "个");
    EXPECT_EQ(cell(1, OrderColumn::Price), "3.33");
    EXPECT_FALSE(warned);
}

TEST_F(OrderSheet, EnterOnACodeGoesToTheQuantity) {
    enter(1, OrderColumn::Code, "100001");
    EXPECT_EQ(control.Row(), 1);
    EXPECT_EQ(control.Col(), OrderColumn::Quantity);
}

TEST_F(OrderSheet, EnterOnAClosedCellStopsAtWhatTheLineLacks) {
    enterLine(1, "100001");
    at(1, OrderColumn::Code);
    for (const OrderColumn::Column next : {OrderColumn::Quantity, OrderColumn::Gift, OrderColumn::Remark}) {
        desk.press(Key::Enter);
        EXPECT_EQ(control.Row(), 1);
        EXPECT_EQ(control.Col(), next);
    }
    desk.press(Key::Enter);
    EXPECT_EQ(control.Row(), 2);
    EXPECT_EQ(control.Col(), OrderColumn::Code);
    control.SetCell(1, OrderColumn::Price, "");
    at(1, OrderColumn::Quantity);
    desk.press(Key::Enter);
    EXPECT_EQ(control.Col(), OrderColumn::Price);
}

TEST_F(OrderSheet, ACodeInFullWidthDigitsIsTheSameCode) {
    enter(1, OrderColumn::Code, "１００００１");
    EXPECT_EQ(cell(1, OrderColumn::Code), "100001");
    EXPECT_EQ(cell(1, OrderColumn::Name), "六角螺栓");
}

TEST_F(OrderSheet, APriceThatTheClerkChangedStaysWhenTheSameCodeIsConfirmed) {
    enter(1, OrderColumn::Code, "100001");
    enter(1, OrderColumn::Price, "9");
    enter(1, OrderColumn::Code, "100001");
    EXPECT_EQ(cell(1, OrderColumn::Price), "9.00");
}

TEST_F(OrderSheet, AFailingDatabaseIsReportedAndTheCodeIsLookedUpAgainLater) {
    enter(1, OrderColumn::Code, "500");
    EXPECT_TRUE(warned);
    EXPECT_TRUE(said.contains("disk I/O error")) << said.toStdString();
    EXPECT_EQ(cell(1, OrderColumn::Code), "500");
    EXPECT_TRUE(told().empty());
    EXPECT_TRUE(grid.commit());
    EXPECT_EQ(problem(), QString("第 1 行的货号“500”没有在商品目录中查到"));
}

TEST_F(OrderSheet, TheAmountIsQuantityTimesPriceToTheCent) {
    enter(1, OrderColumn::Code, "100001");
    enter(1, OrderColumn::Quantity, "1.5");
    EXPECT_EQ(cell(1, OrderColumn::Amount), "5.00");  // 4.995
    enter(1, OrderColumn::Price, "2*3+0.25");
    EXPECT_EQ(cell(1, OrderColumn::Amount), "9.38");  // 9.375
    at(1, OrderColumn::Quantity);
    desk.type("1").press(Key::Back).press(Key::Enter);
    EXPECT_EQ(cell(1, OrderColumn::Amount), "");
}

TEST_F(OrderSheet, QuantityAndAmountAreSummed) {
    enter(1, OrderColumn::Code, "100001");
    enter(1, OrderColumn::Quantity, "10");
    enter(2, OrderColumn::Code, "100002");
    enter(2, OrderColumn::Quantity, "2.5");
    EXPECT_EQ(control.ReadSum(OrderColumn::Quantity), "12.5");
    EXPECT_EQ(control.ReadSum(OrderColumn::Amount), "79.55");
    EXPECT_EQ(control.ReadSum(OrderColumn::Price), "");
}

TEST_F(OrderSheet, ReadOnlyColumnsCannotBeTypedInto) {
    for (const auto col : {OrderColumn::Name, OrderColumn::Spec, OrderColumn::Amount}) {
        at(1, col);
        desk.type("x");
        EXPECT_FALSE(desk.editor().visible) << col;
    }
}

TEST_F(OrderSheet, ANewRowTakesDeliveryDateAndHalfDayOfTheRowAbove) {
    EXPECT_EQ(cell(1, OrderColumn::Delivery), "2026-11-27");
    EXPECT_EQ(cell(1, OrderColumn::Slot), "2026-11-27 上午");
    EXPECT_EQ(cell(2, OrderColumn::Delivery), "");
    EXPECT_EQ(cell(2, OrderColumn::Slot), "");
    at(2, OrderColumn::Code);
    EXPECT_EQ(cell(2, OrderColumn::Delivery), "2026-11-27");
    EXPECT_EQ(cell(2, OrderColumn::Slot), "2026-11-27 上午");
}

TEST_F(OrderSheet, TheHalfDayMovesWithTheDeliveryDate) {
    enter(1, OrderColumn::Slot, "2026-11-27 下午");
    enter(1, OrderColumn::Delivery, "2026/12/1");
    EXPECT_EQ(cell(1, OrderColumn::Slot), "2026-12-01 下午");
}

TEST_F(OrderSheet, TheFirstValueOfALineStampsTheTimeOfEntry) {
    EXPECT_EQ(cell(1, OrderColumn::Entered), "");
    enter(1, OrderColumn::Remark, "加急");
    EXPECT_EQ(cell(1, OrderColumn::Entered), "2026-11-20 09:30:00");
    now = now.addSecs(90);
    enter(1, OrderColumn::Quantity, "5");
    enter(2, OrderColumn::Code, "100001");
    EXPECT_EQ(cell(1, OrderColumn::Entered), "2026-11-20 09:30:00");
    EXPECT_EQ(cell(2, OrderColumn::Entered), "2026-11-20 09:31:30");
}

TEST_F(OrderSheet, RowsThatWereOnlyPassedThroughAreNoLines) {
    for (int row = 1; row < 6; ++row) at(row, OrderColumn::Code);
    EXPECT_TRUE(grid.lines().empty());
    EXPECT_TRUE(grid.unsaved().none());
}

TEST_F(OrderSheet, TypingInTheLastRowAppendsOne) {
    const int last = control.Rows() - 1;
    enter(last, OrderColumn::Code, "100001");
    EXPECT_GT(control.Rows() - 1, last);
}

TEST_F(OrderSheet, AGiftIsToggledByABlank) {
    enter(1, OrderColumn::Code, "100001");
    at(1, OrderColumn::Gift);
    desk.type(" ");
    EXPECT_TRUE(grid.lines().front().gift);
    desk.type(" ");
    EXPECT_FALSE(grid.lines().front().gift);
    EXPECT_TRUE(grid.unsaved().added);
}

TEST_F(OrderSheet, LinesThatAreShownComeBackTheSame) {
    OrderLine full;
    full.code = "100001";
    full.name = "旧名称";
    full.spec = "M8";
    full.unit = "盒";
    full.quantity = 12345678;
    full.price = 0;
    full.amount = 0;
    full.warehouse = "主仓库";
    full.delivery = QDate(2026, 2, 28);
    full.slot = "2026-02-28 下午";
    full.entered = QDateTime(QDate(2026, 2, 1), QTime(8, 5, 9));
    full.gift = true;
    full.remark = "  两边有空格  ";
    OrderLine note;
    note.remark = "运费";
    grid.show({full, note}, QDate(2026, 11, 27));
    EXPECT_TRUE(grid.unsaved().none());
    ASSERT_EQ(grid.lines().size(), 2u);
    EXPECT_TRUE(grid.lines()[0] == full) << desk.ascii();
    EXPECT_TRUE(grid.lines()[1] == note) << desk.ascii();
    EXPECT_TRUE(grid.commit());
    EXPECT_TRUE(grid.lines()[0] == full) << desk.ascii();
}

TEST_F(OrderSheet, AmountsFollowWhenAColumnIsFilled) {
    enter(1, OrderColumn::Code, "100001");
    enter(2, OrderColumn::Code, "100002");
    {
        const auto step = control.Step("填充");
        control.SetCell(1, OrderColumn::Quantity, "4");
        control.SetCell(2, OrderColumn::Quantity, "4");
    }
    EXPECT_EQ(cell(1, OrderColumn::Amount), "13.32");
    EXPECT_EQ(cell(2, OrderColumn::Amount), "74.00");
}

TEST_F(OrderSheet, WhatIsBeingTypedIsNotDisturbedByAFill) {
    enter(1, OrderColumn::Code, "100001");
    {
        const auto step = control.Step("填充");
        control.SetCell(1, OrderColumn::Quantity, "4");
    }
    at(2, OrderColumn::Remark);
    desk.type("未完");
    QCoreApplication::processEvents();
    EXPECT_TRUE(desk.editor().visible);
    EXPECT_EQ(desk.editor().text, "未完");
    EXPECT_EQ(cell(1, OrderColumn::Amount), "13.32");
    desk.press(Key::Enter);
    EXPECT_EQ(cell(1, OrderColumn::Amount), "13.32");
}

TEST_F(OrderSheet, ARowWithContentIsDeletedOnlyWhenTheClerkAgrees) {
    bool agrees = false;
    QString asked;
    grid.mayDelete([&](const QString& row) {
        asked = row;
        return agrees;
    });
    enter(1, OrderColumn::Code, "100001");
    at(1, OrderColumn::Code);
    desk.press(Key::Delete);
    EXPECT_TRUE(asked.contains("100001")) << asked.toStdString();
    EXPECT_EQ(grid.lines().size(), 1u);
    agrees = true;
    desk.press(Key::Delete);
    EXPECT_TRUE(grid.lines().empty());
}

TEST_F(OrderSheet, AnEmptyRowIsDeletedWithoutAQuestion) {
    grid.mayDelete([](const QString&) {
        ADD_FAILURE() << "asked";
        return false;
    });
    const int before = control.Rows();
    at(3, OrderColumn::Code);
    desk.press(Key::Delete);
    EXPECT_EQ(control.Rows(), before - 1);
}

TEST_F(OrderSheet, TheDeliveryDateFollowsTheOrderDateUntilSomethingIsTyped) {
    grid.presetDelivery(QDate(2026, 12, 24));
    EXPECT_EQ(cell(1, OrderColumn::Delivery), "2026-12-24");
    EXPECT_EQ(cell(1, OrderColumn::Slot), "2026-12-24 上午");
    enter(1, OrderColumn::Code, "100001");
    grid.presetDelivery(QDate(2027, 1, 1));
    EXPECT_EQ(cell(1, OrderColumn::Delivery), "2026-12-24");
}

TEST_F(OrderSheet, TheRemarkColumnTakesTheRestOfTheWidth) {
    grid.fitWidth(30000);
    int width = 0;
    for (int c = 0; c < control.Cols(); ++c) width += control.ColWidth(c);
    EXPECT_GT(width, 29000);
    EXPECT_LT(width, 30000);
    grid.fitWidth(5000);
    EXPECT_GT(control.ColWidth(OrderColumn::Remark), 1000);
}

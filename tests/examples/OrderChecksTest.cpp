// What the order's grid refuses while it is keyed, and what keeps an order from being saved.
#include "OrderSheet.h"

namespace {
const std::string UnknownCode = "商品目录中没有这个货号,请更正。";
}  // namespace

TEST_F(OrderSheet, AnUnknownCodeIsRefusedAndLosesNothing) {
    enterLine(1, "100001");
    enter(1, OrderColumn::Code, "4711");
    ASSERT_EQ(told().size(), 1u);
    EXPECT_EQ(told()[0], UnknownCode);
    EXPECT_EQ(desk.editor().text, "4711");
    EXPECT_EQ(desk.editor().selLength, 4u);
    EXPECT_EQ(cell(1, OrderColumn::Code), "100001");
    EXPECT_EQ(cell(1, OrderColumn::Name), "六角螺栓");
    EXPECT_EQ(cell(1, OrderColumn::Quantity), "5");
}

TEST_F(OrderSheet, ARefusedCodeIsCorrectedAndGoesOn) {
    enter(1, OrderColumn::Code, "4711");
    desk.press(Key::Enter);
    EXPECT_EQ(told().size(), 1u) << "a second Enter says nothing";
    desk.type("100002").press(Key::Enter);
    EXPECT_EQ(told().size(), 1u);
    EXPECT_EQ(cell(1, OrderColumn::Name), "无缝钢管");
    EXPECT_EQ(control.Col(), OrderColumn::Quantity);
}

TEST_F(OrderSheet, ALineGivesUpItsGoodsWhenTheCodeIsCleared) {
    enterLine(1, "100001");
    at(1, OrderColumn::Code);
    desk.type("1").press(Key::Back).press(Key::Enter);
    EXPECT_TRUE(told().empty());
    EXPECT_EQ(cell(1, OrderColumn::Code), "");
    EXPECT_EQ(cell(1, OrderColumn::Name), "");
    EXPECT_TRUE(grid.commit());
    EXPECT_EQ(problem(), "第 1 行的货号没有填写:没有货号的行要有备注,否则请删除这一行");
    enter(1, OrderColumn::Remark, "另行通知");
    EXPECT_EQ(problem(), QString()) << "a note";
}

TEST_F(OrderSheet, AFillEndsWithTheLastLineOfTheOrder) {
    enterLine(1, "100001");
    at(1, OrderColumn::Quantity);
    desk.onPopup([](kxVsGrid::headless::PoppedMenu& menu) { menu.choose("填充列", "复制单元格"); });
    desk.rightClick(1, OrderColumn::Quantity);
    EXPECT_EQ(cell(2, OrderColumn::Quantity), "");
    enter(4, OrderColumn::Remark, "另行通知");
    desk.rightClick(1, OrderColumn::Quantity);
    for (const int row : {2, 3, 4})
        EXPECT_EQ(cell(row, OrderColumn::Quantity), cell(1, OrderColumn::Quantity)) << row;
    EXPECT_EQ(cell(5, OrderColumn::Quantity), "");
}

TEST_F(OrderSheet, AColumnThatWasFilledFurtherDownThanTheOrderGoesIsNotSavedAsLines) {
    control.Options().FillsToLastLine(false);
    enterLine(1, "100001");
    at(1, OrderColumn::Quantity);
    desk.onPopup([](kxVsGrid::headless::PoppedMenu& menu) { menu.choose("填充列", "复制单元格(&C)"); });
    desk.rightClick(1, OrderColumn::Quantity);
    EXPECT_EQ(cell(2, OrderColumn::Quantity), cell(1, OrderColumn::Quantity));
    EXPECT_EQ(problem(), "第 2 行的货号没有填写:没有货号的行要有备注,否则请删除这一行");
}

TEST_F(OrderSheet, ADeliveryDateIsRewrittenOrRefused) {
    desk.setNow(2026, 11, 20, 14, 5, 9);
    enterLine(1, "100001");
    enter(1, OrderColumn::Delivery, "2026/12/1");
    EXPECT_EQ(grid.lines().front().delivery, QDate(2026, 12, 1));
    enter(1, OrderColumn::Delivery, "2011-02-30");
    ASSERT_EQ(told().size(), 1u);
    EXPECT_EQ(told()[0], "非法公历日期!(格式:2026-11-20)");
    EXPECT_FALSE(grid.commit());
    EXPECT_EQ(told().size(), 1u) << "a refused text is not told twice";
    EXPECT_EQ(desk.editor().text, "2011-02-30");
    EXPECT_EQ(cell(1, OrderColumn::Delivery), "2026-12-01");
}

TEST_F(OrderSheet, AHalfDayIsRewrittenOrRefused) {
    desk.setNow(2026, 11, 20, 14, 5, 9);
    enterLine(1, "100001");
    enter(1, OrderColumn::Slot, "2026.12.1 下午");
    EXPECT_EQ(grid.lines().front().slot, QString("2026-12-01 下午"));
    enter(1, OrderColumn::Slot, "2026-12-01 晚上");
    ASSERT_EQ(told().size(), 1u);
    EXPECT_EQ(told()[0], "非法公历日期!(格式:2026-11-20 下午)");
    desk.press(Key::Escape);
    EXPECT_EQ(cell(1, OrderColumn::Slot), "2026-12-01 下午");
}

TEST_F(OrderSheet, ATimeOfEntryIsRewrittenOrRefused) {
    desk.setNow(2026, 11, 20, 14, 5, 9);
    enterLine(1, "100001");
    enter(1, OrderColumn::Entered, "2026-11-19 8:5:9");
    EXPECT_EQ(grid.lines().front().entered, QDateTime(QDate(2026, 11, 19), QTime(8, 5, 9)));
    enter(1, OrderColumn::Entered, "2026-11-19 24:00:00");
    ASSERT_EQ(told().size(), 1u);
    EXPECT_EQ(told()[0], "非法公历日期!(格式:2026-11-20 14:05:09)");
}

TEST_F(OrderSheet, ATimeOfEntryThatTheClerkClearsStaysEmpty) {
    enterLine(1, "100001");
    at(1, OrderColumn::Entered);
    desk.type("1").press(Key::Back).press(Key::Enter);
    EXPECT_EQ(cell(1, OrderColumn::Entered), "");
    EXPECT_FALSE(grid.lines().front().entered.isValid());
}

TEST_F(OrderSheet, AnOrderWithoutFaultsHasNoProblemAndTheClerkStaysWhereHeIs) {
    enterLine(1, "100001");
    enterLine(2, "100002");
    at(2, OrderColumn::Remark);
    EXPECT_TRUE(grid.commit());
    EXPECT_EQ(problem(), QString());
    EXPECT_TRUE(told().empty());
    EXPECT_EQ(control.Row(), 2);
    EXPECT_EQ(control.Col(), OrderColumn::Remark);
}

TEST_F(OrderSheet, AQuantityThatIsStillBeingTypedCounts) {
    enter(1, OrderColumn::Warehouse, "主仓库");
    enter(1, OrderColumn::Code, "100001");
    desk.type("2*3");
    EXPECT_TRUE(grid.commit());
    EXPECT_EQ(problem(), QString());
    EXPECT_EQ(cell(1, OrderColumn::Quantity), "6");
}

TEST_F(OrderSheet, AQuantityOfZeroIsTheFirstProblem) {
    for (const std::string_view zero : {"0", "3-3", "0.0001"}) {
        desk.clear();
        enterLine(1, "100001");
        enterLine(2, "100002");
        enter(2, OrderColumn::Quantity, zero);
        EXPECT_TRUE(grid.commit());
        const auto found = grid.firstProblem();
        ASSERT_TRUE(found) << zero;
        EXPECT_EQ(found->text, QString("第 2 行的数量不能为零"));
        EXPECT_TRUE(found->shown);
        ASSERT_EQ(told().size(), 1u) << zero;
        EXPECT_EQ(told()[0], "数量不能为零!");
        EXPECT_EQ(control.Row(), 2);
        EXPECT_EQ(control.Col(), OrderColumn::Quantity);
    }
}

TEST_F(OrderSheet, AQuantityThatWasNeverKeyedIsZero) {
    enter(1, OrderColumn::Warehouse, "主仓库");
    enter(1, OrderColumn::Code, "100001");
    EXPECT_TRUE(grid.commit());
    EXPECT_EQ(problem(), QString("第 1 行的数量不能为零"));
}

TEST_F(OrderSheet, AQuantityThatWasFilledIsNoZero) {
    enterLine(1, "100001");
    control.SetCell(1, OrderColumn::Quantity, "4");  // without a tag, as a fill of the control writes it
    EXPECT_TRUE(grid.commit());
    EXPECT_EQ(problem(), QString());
}

TEST_F(OrderSheet, AMissingWarehouseIsAProblem) {
    enter(1, OrderColumn::Code, "100001");
    enter(1, OrderColumn::Quantity, "5");
    EXPECT_TRUE(grid.commit());
    const auto found = grid.firstProblem();
    ASSERT_TRUE(found);
    EXPECT_EQ(found->text, QString("第 1 行的仓库不能为空"));
    ASSERT_EQ(told().size(), 1u);
    EXPECT_EQ(told()[0], "仓库不能为空!");
    EXPECT_EQ(control.Col(), OrderColumn::Warehouse);
    desk.type("主仓库").press(Key::Enter);
    EXPECT_TRUE(grid.commit());
    EXPECT_EQ(problem(), QString());
}

TEST_F(OrderSheet, AWarehouseOfBlanksIsMissing) {
    enterLine(1, "100001");
    enter(1, OrderColumn::Warehouse, "   ");
    EXPECT_TRUE(grid.commit());
    EXPECT_EQ(problem(), QString("第 1 行的仓库不能为空"));
}

TEST_F(OrderSheet, ANoteNeedsNeitherQuantityNorWarehouse) {
    enter(1, OrderColumn::Remark, "运费另计");
    EXPECT_TRUE(grid.commit());
    EXPECT_EQ(problem(), QString());
}

TEST_F(OrderSheet, LinesOfAnOrderThatIsShownPassTheRules) {
    enterLine(1, "100001");
    grid.show(grid.lines(), QDate(2026, 11, 27));
    EXPECT_TRUE(grid.commit());
    EXPECT_EQ(problem(), QString());
}

TEST_F(OrderSheet, WhatWasFilledUncheckedIsAProblem) {
    const struct {
        OrderColumn::Column col;
        std::string_view text;
        QString problem;
    } cases[] = {
        {OrderColumn::Code, "4711", "第 1 行的货号“4711”没有在商品目录中查到"},
        {OrderColumn::Delivery, "2011-02-30", "第 1 行的交货日期“2011-02-30”不是日期"},
        {OrderColumn::Slot, "2026-12-01 晚上", "第 1 行的时段“2026-12-01 晚上”不是日期加上午或下午"},
        {OrderColumn::Entered, "2026-12-01", "第 1 行的录入时间“2026-12-01”不是日期加时间"},
    };
    for (const auto& one : cases) {
        grid.clear(QDate(2026, 11, 27));
        enterLine(1, "100001");
        control.Grid().Text(1, one.col, one.text);
        EXPECT_TRUE(grid.commit());
        EXPECT_EQ(problem(), one.problem);
    }
    EXPECT_TRUE(told().empty());
}

TEST_F(OrderSheet, AnAmountThatIsTooLargeIsAProblem) {
    enterLine(1, "100001");
    enter(1, OrderColumn::Quantity, "999999999999");
    enter(1, OrderColumn::Price, "999999999999");
    EXPECT_TRUE(warned);
    EXPECT_TRUE(grid.commit());
    EXPECT_EQ(problem(), QString("第 1 行的数量“999999999999”乘以单价太大,无法保存"));
    enter(1, OrderColumn::Quantity, "2");
    enter(1, OrderColumn::Price, "2");
    EXPECT_EQ(problem(), QString());
}

TEST_F(OrderSheet, LookingForProblemsFillsNoRow) {
    enterLine(1, "100001");
    for (const int row : {2, 3}) {
        control.SetCell(row, OrderColumn::Code, "100002");
        control.SetCell(row, OrderColumn::Quantity, "4");
        control.SetCell(row, OrderColumn::Warehouse, "主仓库");
    }
    EXPECT_TRUE(grid.commit());
    const std::vector<OrderLine> before = grid.lines();
    ASSERT_EQ(before.size(), 3u);
    EXPECT_EQ(problem(), QString());
    EXPECT_TRUE(grid.lines() == before) << desk.ascii();
    EXPECT_EQ(before[2].slot, QString());
}

TEST_F(OrderSheet, AMissingWarehouseIsThePresetOneOnceTheLineIsLookedInto) {
    enterLine(1, "100001");
    grid.presetWarehouse("五金仓");
    control.SetCell(2, OrderColumn::Code, "100002");
    control.SetCell(2, OrderColumn::Quantity, "4");
    EXPECT_TRUE(grid.commit());
    EXPECT_EQ(problem(), QString());
    EXPECT_EQ(cell(2, OrderColumn::Warehouse), "五金仓");
    EXPECT_EQ(cell(2, OrderColumn::Slot), "2026-11-27 上午");
}

TEST_F(OrderSheet, AWarehouseIsTakenByCodeOrNameAndAnotherIsRefused) {
    enterLine(1, "100001");
    enter(1, OrderColumn::Warehouse, "c02");
    EXPECT_EQ(cell(1, OrderColumn::Warehouse), "五金仓");
    enter(1, OrderColumn::Warehouse, "钢材仓");
    EXPECT_EQ(cell(1, OrderColumn::Warehouse), "钢材仓");
    EXPECT_TRUE(told().empty());
    enter(1, OrderColumn::Warehouse, "月球仓");
    ASSERT_EQ(told().size(), 1u);
    EXPECT_EQ(told()[0], "没有这个仓库,请更正。");
    EXPECT_TRUE(desk.editor().visible);
    EXPECT_FALSE(grid.commit());
    desk.press(Key::Escape);
    EXPECT_EQ(cell(1, OrderColumn::Warehouse), "钢材仓");
    EXPECT_EQ(problem(), QString());
}

TEST_F(OrderSheet, AUnitIsOneOfTheListOrTheGoodsOwn) {
    enterLine(1, "100001");
    enter(1, OrderColumn::Unit, "箱");
    EXPECT_EQ(cell(1, OrderColumn::Unit), "箱");
    enter(1, OrderColumn::Unit, "个");
    enter(1, OrderColumn::Unit, "   ");
    EXPECT_EQ(grid.lines()[0].unit, QString());
    EXPECT_TRUE(told().empty());
    enter(1, OrderColumn::Unit, "担");
    ASSERT_EQ(told().size(), 1u);
    EXPECT_EQ(told()[0], "没有这个单位,请更正。");
    desk.press(Key::Escape);
}

TEST_F(OrderSheet, AWarehouseOrUnitThatNobodyCheckedIsAProblem) {
    enterLine(1, "100001");
    control.SetCell(1, OrderColumn::Warehouse, "月球仓");
    EXPECT_TRUE(grid.commit());
    EXPECT_EQ(problem(), QString("第 1 行的仓库“月球仓”不在仓库列表中"));
    enter(1, OrderColumn::Warehouse, "主仓库");
    control.SetCell(1, OrderColumn::Unit, "担");
    EXPECT_EQ(problem(), QString("第 1 行的单位“担”不在单位列表中"));
}

TEST_F(OrderSheet, AWarehouseThatNobodyCanLookUpIsTakenUntilTheOrderIsSaved) {
    enterLine(1, "100001");
    enter(1, OrderColumn::Warehouse, "C09");
    EXPECT_EQ(cell(1, OrderColumn::Warehouse), "C09");
    EXPECT_TRUE(told().empty());
}

TEST_F(OrderSheet, EnterGoesFromTheCodeToTheQuantityAndOnToTheNextLine) {
    grid.presetWarehouse("主仓库");
    enter(1, OrderColumn::Code, "100001");
    EXPECT_EQ(control.Col(), OrderColumn::Quantity);
    desk.type("3").press(Key::Enter);
    EXPECT_EQ(control.Row(), 2);
    EXPECT_EQ(control.Col(), OrderColumn::Code);
    EXPECT_EQ(cell(2, OrderColumn::Warehouse), "主仓库");
    EXPECT_EQ(cell(2, OrderColumn::Delivery), "2026-11-27");
    enter(2, OrderColumn::Remark, "加急");
    EXPECT_EQ(control.Row(), 3);
    EXPECT_EQ(control.Col(), OrderColumn::Code);
}

// What can be said of a column beside what it holds: what is told, what may be typed, what has to be there.
#include <optional>
#include <string>
#include <vector>

#include "kxVsGrid/sheet/Sheet.h"
#include "sheet/SheetDesk.h"

namespace kxVsGrid::testing {
namespace {

struct Delivery {
    std::string goods, slot, note;
    std::optional<Decimal> quantity;
    Decimal price;
};

class ColumnWords : public SheetDesk {
  protected:
    enum Column : std::int32_t { Number, GoodsText, Quantity, Price, Slot, Note };

    ColumnWords() {
        grid.Options().Refusals(GridOptions::RefusalStyle::Beside);
        const auto hasGoods = [](const Delivery& one) { return !one.goods.empty(); };
        sheet.text("goods", "品名", &Delivery::goods).hint("输入品名");
        sheet.number("quantity", "数量", &Delivery::quantity)
            .decimals(2)
            .nonZero(hasGoods)
            .insists()
            .wrong("“%1”太大");
        sheet.number("price", "单价", &Delivery::price).least(0).skipFilled();
        sheet.halfDay("slot", "时段", &Delivery::slot).alignment(flexAlignRightCenter).wrong("“%1”不是半天");
        sheet.text("note", "备注", &Delivery::note);
        sheet.rule(
            "note", [](const Delivery& one) { return one.note != "x"; }, "不能写“%1”");
    }
    void load(const std::vector<Delivery>& lines) {
        sheet.load(lines);
        desk.focusGrid();
    }
    std::string fault() {
        const auto first = sheet.firstFault();
        return first ? first->text() : std::string();
    }

    Sheet<Delivery> sheet{grid};
};

TEST_F(ColumnWords, HintsAreThoseOfTheCurrentCell) {
    EXPECT_EQ(sheet.hint(), "");
    load({});
    grid.Grid().Select(1, GoodsText);
    EXPECT_EQ(sheet.hint(), "输入品名");
    grid.Grid().Select(2, Quantity);
    EXPECT_EQ(sheet.hint(), "");
}

TEST_F(ColumnWords, ANumberBelowTheLeastIsRefused) {
    load({});
    type(1, Price, "-1");
    EXPECT_EQ(desk.tips(), std::vector<std::string>{"不能小于 0。"});
    desk.press(Key::Escape);
    type(1, Price, "0");
    EXPECT_FALSE(desk.editor().visible);
}

TEST_F(ColumnWords, EnterPassesWhatIsFilled) {
    load({{"甲", "", "", Decimal(1), Decimal(2)}});
    grid.Grid().Select(1, Quantity);
    desk.press(Key::Enter);
    EXPECT_EQ(grid.Col(), Slot);
}

TEST_F(ColumnWords, WhatIsRequiredOfSomeLinesIsMissingInNoOther) {
    load({{"", "", "便条", {}, 0}, {"甲", "", "", {}, 0}});
    EXPECT_EQ(sheet.faults().size(), 1u);
    EXPECT_EQ(fault(), "第 2 行的数量：不能为零");
    EXPECT_EQ(sheet.firstFault()->kind, FaultKind::Missing);
    EXPECT_EQ(sheet.firstFault()->caption, "数量");
    type(2, Quantity, "0");
    EXPECT_EQ(fault(), "第 2 行的数量：不能为零");
    type(2, Quantity, "0.001");
    EXPECT_EQ(fault(), "第 2 行的数量：不能为零");
    type(2, Quantity, "2");
    EXPECT_EQ(fault(), "");
}

TEST_F(ColumnWords, TheControlTellsOfWhatIsMissingWhereTheColumnInsists) {
    load({{"甲", "", "", {}, 0}});
    EXPECT_TRUE(sheet.firstFault()->show());
    EXPECT_EQ(desk.tips(), std::vector<std::string>{"数量不能为零!"});
    EXPECT_EQ(grid.Col(), Quantity);
    type(1, Quantity, "2");
    sheet.edit(1, [](Delivery& line) { line.note = "x"; });
    EXPECT_FALSE(sheet.firstFault()->show());
    EXPECT_EQ(desk.tips().size(), 1u);
}

TEST_F(ColumnWords, AHalfDayIsRewrittenRefusedOrAFault) {
    desk.setNow(2026, 11, 20, 14, 5, 9);
    load({{"甲", "", "", Decimal(1), 0}});
    type(1, Slot, "2026.12.1 下午");
    EXPECT_EQ(sheet.record(1).slot, "2026-12-01 下午");
    type(1, Slot, "2026-12-01 晚上");
    EXPECT_EQ(desk.tips(), std::vector<std::string>{"非法公历日期!(格式:2026-11-20 下午)"});
    desk.press(Key::Escape);
    grid.SetCell(1, Slot, "2026-02-30 上午");
    EXPECT_EQ(fault(), "第 1 行的时段：“2026-02-30 上午”不是半天");
    EXPECT_EQ(sheet.firstFault()->kind, FaultKind::Unreadable);
    grid.SetCell(1, Slot, "2026-02-28");
    EXPECT_NE(fault(), "");
    grid.SetCell(1, Slot, "");
    EXPECT_EQ(fault(), "");
}

TEST_F(ColumnWords, ADayAndItsHalfAreTakenFromTheCalendar) {
    load({{"甲", "", "", Decimal(1), 0}});
    grid.Grid().Select(1, Slot);
    desk.onDialog([](headless::CalendarDialog& calendar) {
        calendar.day(2026, 12, 6);
        calendar.half("下午");
        calendar.Ok();
    });
    desk.type(" ").press(Key::F2).press(Key::Enter);
    EXPECT_EQ(sheet.record(1).slot, "2026-12-06 下午");
}

TEST_F(ColumnWords, ReasonsNameTheText) {
    load({{"甲", "", "", Decimal(1), 0}});
    grid.SetCell(1, Quantity, "1e500");
    EXPECT_EQ(fault(), "第 1 行的数量：“1e500”太大");
    grid.SetCell(1, Quantity, "1");
    type(1, Note, "x");
    EXPECT_EQ(desk.tips(), std::vector<std::string>{"不能写“x”"});
    desk.press(Key::Escape);
    grid.SetCell(1, Note, "x");
    EXPECT_EQ(fault(), "第 1 行的备注：不能写“x”");
}

TEST_F(ColumnWords, EnterGoesToTheNextRowFromWhereNothingElseIsSaid) {
    sheet.enterToNextRow("goods");
    load({});
    for (const Column col : {GoodsText, Quantity, Slot}) {
        type(1, col, col == Slot ? "2026-12-01 上午" : "1");
        EXPECT_EQ(grid.Row(), 2) << col;
        EXPECT_EQ(grid.Col(), GoodsText) << col;
    }
}

TEST_F(ColumnWords, ACopyIsAdaptedOrEmpty) {
    sheet.copied([](Delivery& line) {
        line.note = "抄件";
        return line.goods == "甲";
    });
    load({{"甲", "", "原件", Decimal(1), 0}, {"乙", "", "", Decimal(1), 0}});
    grid.Grid().Select(1, GoodsText);
    ASSERT_TRUE(desk.run(Command::DuplicateRow));
    ASSERT_EQ(sheet.records().size(), 3u);
    EXPECT_EQ(text(grid.Row(), Note), "抄件");
    EXPECT_EQ(text(grid.Row(), GoodsText), "甲");
    ASSERT_TRUE(desk.run(Command::Undo));
    grid.Grid().Select(2, GoodsText);
    ASSERT_TRUE(desk.run(Command::DuplicateRow));
    EXPECT_EQ(sheet.records().size(), 2u);
}
}  // namespace
}  // namespace kxVsGrid::testing

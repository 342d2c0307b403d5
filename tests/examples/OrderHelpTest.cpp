// What F2 offers in the cells of an order, and what becomes of what is chosen there.
#include "OrderSheet.h"
#include "SampleData.h"

using kxVsGrid::headless::CalendarDialog;
using kxVsGrid::headless::ConstantDialog;
using kxVsGrid::headless::Desk;
using kxVsGrid::headless::LookupDialog;
using Box = kxVsGrid::MessageBox;

namespace {
class OrderHelp : public OrderSheet {
  protected:
    // Opens the editor with a blank, and its help.
    void help(int row, OrderColumn::Column col) {
        at(row, col);
        desk.type(" ").press(Key::F2);
    }

    std::vector<Goods> allGoods() override {
        if (broken) throw DatabaseError("读取商品", "orders.sqlite", "disk I/O error");
        return stock;
    }
    std::optional<Goods> editGoods(const QString& code) override {
        edited.push_back(code.toStdString());
        if (entered) stock.push_back(pipe);
        return entered ? std::optional(pipe) : std::nullopt;
    }
    std::optional<CodeAndName> chooseWarehouse(std::int32_t x, std::int32_t y,
                                               const QString& typed) override {
        corner = {x, y, 0, 0};
        asked.push_back(typed.toStdString());
        return warehouse;
    }

    std::vector<Goods> stock = {{"100001", "六角螺栓", "M8×40", "个", 333, "ljls"}};
    const Goods pipe{"100002", "无缝钢管", "DN25", "米", 1850, "wfgg"};
    bool broken = false;
    bool entered = true;
    std::vector<std::string> edited;
    std::optional<CodeAndName> warehouse = CodeAndName{"C02", "五金仓"};
    std::vector<std::string> asked;
    kxVsGrid::Rect corner{};
    const QString& failed = said;
};
}  // namespace

TEST_F(OrderHelp, ListsTheGoodsWithTheirPrices) {
    std::vector<std::string> header;
    std::vector<std::string> first;
    bool editShown = false;
    desk.onDialog([&](LookupDialog& list) {
        for (int c = 0; c < list.grid().Cols(); ++c) {
            if (list.grid().ColHidden(c)) continue;  // what is searched
            header.push_back(list.grid().DisplayText(0, c));
            first.push_back(list.grid().DisplayText(1, c));
        }
        editShown = list.editShown();
    });
    help(1, OrderColumn::Code);
    EXPECT_EQ(header, (std::vector<std::string>{"货号", "品名", "简码", "规格", "单位", "单价"}));
    EXPECT_EQ(first, (std::vector<std::string>{"100001", "六角螺栓", "ljls", "M8×40", "个", "3.33"}));
    EXPECT_TRUE(editShown);
}

TEST_F(OrderHelp, AGoodIsFoundByCodeNameOrInitials) {
    stock.push_back(pipe);
    for (const std::string_view text : {"100002", "无缝", "wf"}) {
        desk.onDialog([text](LookupDialog& list) {
            list.CodeText(text);
            list.press(Key::Enter);
        });
        help(1, OrderColumn::Code);
        EXPECT_EQ(desk.editor().text, "100002") << text;
        EXPECT_EQ(desk.editor().tag, "无缝钢管") << text;
        desk.press(Key::Escape);
    }
}

TEST_F(OrderHelp, AChosenGoodFillsTheLineAsATypedCodeDoes) {
    stock.push_back(pipe);
    desk.onDialog([](LookupDialog& list) {
        list.type("wfgg");
        list.press(Key::Enter);
    });
    help(1, OrderColumn::Code);
    EXPECT_EQ(cell(1, OrderColumn::Name), "");
    desk.press(Key::Enter);
    EXPECT_EQ(cell(1, OrderColumn::Code), "100002");
    EXPECT_EQ(cell(1, OrderColumn::Name), "无缝钢管");
    EXPECT_EQ(cell(1, OrderColumn::Spec), "DN25");
    EXPECT_EQ(cell(1, OrderColumn::Unit), "米");
    EXPECT_EQ(cell(1, OrderColumn::Price), "18.50");
    EXPECT_EQ(control.Col(), OrderColumn::Quantity);
    EXPECT_TRUE(told().empty());
}

TEST_F(OrderHelp, TheTypedBeginningOfACodeIsSearchedAtOnce) {
    stock.push_back(pipe);
    std::string name;
    desk.onDialog([&](LookupDialog& list) { name = list.grid().Text(list.grid().Row(), 1); });
    at(1, OrderColumn::Code);
    desk.type("100002").press(Key::F2);
    EXPECT_EQ(name, "无缝钢管");
}

TEST_F(OrderHelp, EscLeavesTheCodeAsItWasTyped) {
    desk.onDialog([](LookupDialog& list) { list.press(Key::Escape); });
    at(1, OrderColumn::Code);
    desk.type("10").press(Key::F2);
    EXPECT_EQ(desk.editor().text, "10");
    EXPECT_TRUE(desk.editor().visible);
}

TEST_F(OrderHelp, NewGoodsAreListedAndCanBeChosen) {
    int before = 0;
    int after = 0;
    desk.onDialog([&](LookupDialog& list) {
        before = list.grid().Rows();
        list.Edit();
        after = list.grid().Rows();
        list.CodeText("wfgg");
        list.Ok();
    });
    help(1, OrderColumn::Code);
    EXPECT_EQ(after, before + 1);
    desk.press(Key::Enter);
    EXPECT_EQ(cell(1, OrderColumn::Name), "无缝钢管");
}

TEST_F(OrderHelp, TheHighlightedGoodsAreEditedAndWhatWasStoredIsHighlighted) {
    stock.push_back({"100003", "法兰", "DN50", "片", 4500, "fl"});
    std::string chosen;
    desk.onDialog([&](LookupDialog& list) {
        list.CodeText("fl");
        list.Edit();
        chosen = list.grid().Text(list.grid().Row(), 0);
    });
    help(1, OrderColumn::Code);
    EXPECT_EQ(edited, std::vector<std::string>{"100003"});
    EXPECT_EQ(chosen, "100002");
}

TEST_F(OrderHelp, TheListStaysWhenNoGoodsWereEntered) {
    entered = false;
    int rows = 0;
    desk.onDialog([&](LookupDialog& list) {
        list.Edit();
        rows = list.grid().Rows();
    });
    help(1, OrderColumn::Code);
    EXPECT_EQ(rows, 2);
}

TEST_F(OrderHelp, ADatabaseThatFailsIsToldAndTheCellStays) {
    broken = true;
    at(1, OrderColumn::Code);
    desk.type("10").press(Key::F2);
    EXPECT_TRUE(failed.contains("disk I/O error")) << failed.toStdString();
    ASSERT_EQ(desk.messages().size(), 1u);
    EXPECT_EQ(desk.messages()[0], (Box{"当前的帮助编码返回错误，或找不到当前的帮助编码", 64, "Korvan软件"}));
    EXPECT_TRUE(desk.dialogs().empty());
    EXPECT_EQ(desk.editor().text, "10");
}

TEST_F(OrderHelp, ADatabaseThatFailsAfterTheGoodsWereEnteredKeepsTheList) {
    int rows = 0;
    desk.onDialog([&](LookupDialog& list) {
        broken = true;
        list.Edit();
        rows = list.grid().Rows();
    });
    help(1, OrderColumn::Code);
    EXPECT_TRUE(failed.contains("disk I/O error")) << failed.toStdString();
    EXPECT_EQ(rows, 2);
}

TEST_F(OrderHelp, AnEmptyCatalogueIsNamed) {
    stock.clear();
    help(1, OrderColumn::Code);
    ASSERT_EQ(desk.messages().size(), 1u);
    EXPECT_EQ(desk.messages()[0], (Box{"当前的商品数据为空,请先输入", 64, "Korvan软件"}));
}

TEST_F(OrderHelp, AUnitIsTakenFromTheList) {
    enterLine(1, "100001");
    desk.onDialog([](ConstantDialog& list) {
        while (list.grid().Text(list.grid().Row(), 1) != "箱") list.press(Key::Down);
        list.press(Key::Enter);
    });
    help(1, OrderColumn::Unit);
    desk.press(Key::Enter);
    EXPECT_EQ(cell(1, OrderColumn::Unit), "箱");
    EXPECT_EQ(grid.lines().front().unit, QString("箱"));
}

TEST_F(OrderHelp, EveryUnitOfTheSampleGoodsIsInTheList) {
    std::vector<std::string> units;
    desk.onDialog([&](ConstantDialog& list) {
        for (int row = 1; row < list.grid().Rows(); ++row) units.push_back(list.grid().Text(row, 1));
    });
    help(1, OrderColumn::Unit);
    for (const SampleGoods& goods : sampleGoods())
        ASSERT_NE(std::find(units.begin(), units.end(), goods.unit.toStdString()), units.end())
            << goods.unit.toStdString();
}

TEST_F(OrderHelp, ADeliveryDateIsTakenFromTheCalendarAndMovesTheHalfDay) {
    enterLine(1, "100001");
    std::int32_t opened = 0;
    desk.onDialog([&](CalendarDialog& calendar) {
        opened = calendar.day().day;
        calendar.day(2026, 12, 5);
        calendar.press(Key::Enter);
    });
    help(1, OrderColumn::Delivery);
    desk.press(Key::Enter);
    EXPECT_EQ(opened, 27);
    EXPECT_EQ(cell(1, OrderColumn::Delivery), "2026-12-05");
    EXPECT_EQ(cell(1, OrderColumn::Slot), "2026-12-05 上午");
}

TEST_F(OrderHelp, ADayAndItsHalfAreTakenFromTheCalendar) {
    enterLine(1, "100001");
    desk.onDialog([](CalendarDialog& calendar) {
        calendar.day(2026, 12, 6);
        calendar.half("下午");
        calendar.Ok();
    });
    help(1, OrderColumn::Slot);
    desk.press(Key::Enter);
    EXPECT_EQ(grid.lines().front().slot, QString("2026-12-06 下午"));
}

TEST_F(OrderHelp, ATimeOfEntryIsTakenFromTheCalendar) {
    enterLine(1, "100001");
    std::int32_t opened = 0;
    desk.onDialog([&](CalendarDialog& calendar) {
        opened = calendar.time().minute;
        calendar.day(2026, 11, 19);
        calendar.time(8, 5, 9);
        calendar.Ok();
    });
    help(1, OrderColumn::Entered);
    desk.press(Key::Enter);
    EXPECT_EQ(opened, 30);
    EXPECT_EQ(grid.lines().front().entered, QDateTime(QDate(2026, 11, 19), QTime(8, 5, 9)));
    EXPECT_TRUE(told().empty());
}

TEST_F(OrderHelp, AWarehouseIsChosenUnderItsCell) {
    help(1, OrderColumn::Warehouse);
    const kxVsGrid::Rect box = desk.editor().rect;
    constexpr int Pixel = 15;  // the text box lies inside the lines around the cell
    EXPECT_NEAR(corner.left, Desk::ScreenLeft + box.left, Pixel);
    EXPECT_NEAR(corner.top, Desk::ScreenTop + box.bottom(), Pixel);
    EXPECT_EQ(desk.editor().text, "五金仓");
    EXPECT_EQ(desk.editor().tag, "C02");
    desk.press(Key::Enter);
    EXPECT_EQ(cell(1, OrderColumn::Warehouse), "五金仓");
    EXPECT_TRUE(desk.dialogs().empty());
}

TEST_F(OrderHelp, AWarehouseThatWasNotChosenLeavesTheCellAsItWasTyped) {
    warehouse.reset();
    at(1, OrderColumn::Warehouse);
    desk.type("主").press(Key::F2);
    EXPECT_EQ(asked, std::vector<std::string>{"主"});
    EXPECT_EQ(desk.editor().text, "主");
    EXPECT_TRUE(desk.editor().visible);
}

TEST_F(OrderHelp, AWarehouseThatWasChosenIsNotMissing) {
    enter(1, OrderColumn::Code, "100001");
    enter(1, OrderColumn::Quantity, "5");
    help(1, OrderColumn::Warehouse);
    EXPECT_TRUE(grid.commit());
    EXPECT_EQ(problem(), QString());
}

TEST_F(OrderHelp, OtherColumnsHaveNone) {
    for (const auto col : {OrderColumn::Quantity, OrderColumn::Price, OrderColumn::Remark}) {
        at(1, col);
        desk.type("1");
        EXPECT_FALSE(desk.editor().helpButton) << col;
        desk.press(Key::Escape);
    }
    at(1, OrderColumn::Code);
    desk.type("1");
    EXPECT_TRUE(desk.editor().helpButton);
}

TEST_F(OrderHelp, TheButtonOpensItToo) {
    at(1, OrderColumn::Code);
    desk.type("1").pressHelpButton();
    ASSERT_EQ(desk.dialogs().size(), 1u);
    EXPECT_EQ(desk.dialogs()[0].name, "XT_TybmczFrm");
    EXPECT_EQ(desk.dialogs()[0].width, 9600);
}

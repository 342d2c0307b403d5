// Columns of a few texts.
#include "sheet/CodeSheet.h"

namespace kxVsGrid::testing {
namespace {

using ConstantsTest = CodeSheet;

TEST_F(ConstantsTest, TakesOneOfItsTextsAndRefusesOthers) {
    load(table());
    type(1, Unit, "箱");
    EXPECT_EQ(text(1, Unit), "箱");
    at(1, Unit);
    desk.type("吨").press(Key::Enter);
    EXPECT_TRUE(desk.editor().visible);
    EXPECT_EQ(desk.tips().back(), "只能是 只、箱");
    desk.press(Key::Escape);
    EXPECT_EQ(text(1, Unit), "箱");
    empty(1, Unit);
    EXPECT_EQ(text(1, Unit), "");
    EXPECT_EQ(fault(), "");
}

TEST_F(ConstantsTest, FindsAnotherTextThatCameUnchecked) {
    load(table(), {{"1001", "a", "吨", Decimal(1), Decimal(1)}});
    EXPECT_EQ(fault(), "第 1 行的单位：只能是 只、箱");
}

TEST_F(ConstantsTest, OffersItsTexts) {
    load(table());
    at(1, Unit);
    std::vector<std::string> listed;
    desk.onDialog([&](headless::ConstantDialog& dialog) {
        for (std::int32_t row = 1; row < dialog.grid().Rows(); ++row)
            listed.push_back(dialog.grid().Text(row, 1));
        dialog.clickRow(2);
        dialog.Ok();
    });
    desk.press(Key::F2).press(Key::Enter);
    EXPECT_EQ(listed, (std::vector<std::string>{"只", "箱"}));
    EXPECT_EQ(text(1, Unit), "箱");
    at(2, Unit);
    desk.type("只");
    EXPECT_EQ(desk.suggestions().texts, (std::vector<std::string>{"只"}));
}

struct TaxedLine {
    std::string name, unit;
    Decimal rate;
};

TEST(Constants, LetsOtherTextsPassByTheLineAndSaysWhyNotInTheHostsWords) {
    headless::Desk desk;
    kxGrid& grid = desk.place();
    Sheet<TaxedLine> sheet(grid);
    sheet.text("name", "品名", &TaxedLine::name);
    sheet.constants("unit", "单位", &TaxedLine::unit, {"只"})
        .also([](const TaxedLine& line, const std::string& text) {
            return line.name == "钢" && line.unit == text && text == "吨";
        })
        .refusal("没有这个单位")
        .width(900);
    sheet.constants("rate", "税率", &TaxedLine::rate, {"6", "13"});
    sheet.load(std::vector<TaxedLine>{{"钢", "", 0}, {"铁", "吨", 13}});
    grid.Options().Refusals(GridOptions::RefusalStyle::Beside);
    desk.focusGrid();
    grid.Grid().Select(1, 2);
    desk.type("吨").press(Key::Enter);
    EXPECT_EQ(sheet.record(1).unit, "吨");
    ASSERT_TRUE(sheet.firstFault().has_value());
    EXPECT_EQ(sheet.firstFault()->text(), "第 2 行的单位：没有这个单位");
    grid.Grid().Select(1, 3);
    desk.type("12+1").press(Key::Enter);
    EXPECT_EQ(sheet.record(1).rate, 13);
    grid.Grid().Select(1, 3);
    desk.type("7").press(Key::Enter);
    EXPECT_EQ(desk.tips().back(), "只能是 6、13");
}

TEST(Constants, AreTakenWhereNobodyKnowsAndAFaultThen) {
    headless::Desk desk;
    kxGrid& grid = desk.place();
    Sheet<TaxedLine> sheet(grid);
    bool down = true;
    sheet.constants("unit", "单位", &TaxedLine::unit, {"只"}).also([&](const TaxedLine&, const std::string&) {
        if (down) throw std::runtime_error("数据库连接中断");
        return true;
    });
    sheet.load(std::vector<TaxedLine>());
    desk.focusGrid();
    grid.Grid().Select(1, 1);
    desk.type("吨").press(Key::Enter);
    EXPECT_EQ(sheet.record(1).unit, "吨");
    EXPECT_EQ(sheet.firstFault().value().text(), "第 1 行的单位：数据库连接中断");
    down = false;
    EXPECT_FALSE(sheet.firstFault());
}

TEST(Constants, CannotBeTextsThatAListCannotHold) {
    headless::Desk desk;
    Sheet<TaxedLine> sheet(desk.place());
    sheet.constants("unit", "单位", &TaxedLine::unit, {"只|箱"});
    EXPECT_THROW(sheet.load(std::vector<TaxedLine>{}), GridError);
}
}  // namespace
}  // namespace kxVsGrid::testing

// The code of the manual's page "Checks", and what the page says of accepted texts and of boxes, on the desk.
#include <gtest/gtest.h>

#include <functional>
#include <optional>
#include <tuple>
#include <utility>

#include "kxVsGrid/headless/Desk.h"
#include "kxVsGrid/kxGrid.h"

using namespace kxVsGrid;

namespace {
#include "ChecksPage.inc"

using Box = MessageBox;

class ChecksPage : public testing::Test {
  protected:
    ChecksPage() {
        grid.FormatString("行号|货号|数量|仓库|交货日期|时段");
        setUpChecks(grid);
        answerCodes(grid,
                    [](const std::string& query, const std::string& codeField,
                       const std::string& text) -> std::optional<std::pair<std::string, std::string>> {
                        EXPECT_EQ(query, "SELECT code, name FROM goods");
                        EXPECT_EQ(codeField, "code");
                        if (text != "100001") return std::nullopt;
                        return std::pair("100001", "六角螺栓");
                    });
        keepTags(grid);
        grid.ReDraw(true);
        desk.setNow(2026, 11, 20, 14, 5, 9);
        desk.focusGrid();
    }

    void enter(std::int32_t row, Column col, std::string_view text) {
        grid.Grid().Select(row, col);
        desk.type(text).press(Key::Enter);
    }

    headless::Desk desk;
    kxGrid& grid = desk.place();
};

void expectFault(const std::optional<Fault>& fault, std::int32_t row, std::int32_t col) {
    ASSERT_TRUE(fault);
    EXPECT_EQ(fault->row, row);
    EXPECT_EQ(fault->col, col);
}
}  // namespace

TEST_F(ChecksPage, ShowsACodeWithItsNameBehindIt) {
    enter(1, Goods, "100001");
    EXPECT_EQ(grid.ReadCell(1, Goods, true), "100001");
    EXPECT_EQ(grid.ReadCell(1, Goods), "六角螺栓");
}

TEST_F(ChecksPage, QuotesTheBoxOfEachRefusal) {
    const struct {
        Column col;
        const char* text;
        Box box;
    } refusals[] = {
        {Goods, "4711", {"没有这个货号。", 16, "错误："}},
        {Delivery, "2011-02-30", {"非法公历日期!(格式:2026-11-20)", 64, "提示："}},
        {HalfDay, "2011-02-03", {"非法公历日期!(格式:2026-11-20 下午)", 64, "提示："}},
    };
    for (const auto& refusal : refusals) {
        desk.clear();
        enter(1, refusal.col, refusal.text);
        ASSERT_EQ(desk.messages().size(), 1U) << refusal.text;
        EXPECT_EQ(desk.messages()[0], refusal.box) << refusal.text;
        EXPECT_EQ(desk.editor().text, refusal.text);
        desk.press(Key::Escape);
    }
    grid.VsCtrl(Delivery)->i字段有效性判断类型(ij时间型);
    desk.clear();
    enter(1, Delivery, "2011-02-03 12:30");
    EXPECT_EQ(desk.messages().at(0), (Box{"非法公历日期!(格式:2026-11-20 14:05:09)", 64, "提示："}));
}

TEST_F(ChecksPage, ListsTheWritingsOfADate) {
    for (const char* text :
         {"2011-2-3", "2011/2/3", "2011.2.3", "2011年2月3日", "11-02-03", "2011-2-3 8:05", "20110203"}) {
        enter(1, Delivery, text);
        EXPECT_EQ(grid.ReadCell(1, Delivery, true), "2011-02-03") << text;
        EXPECT_EQ(grid.ReadCell(1, Delivery), "2011-02-03") << text;
        enter(1, Delivery, "2000-1-1");
    }
    enter(1, Delivery, "30-2-3");
    EXPECT_EQ(grid.ReadCell(1, Delivery, true), "1930-02-03");
    EXPECT_TRUE(desk.messages().empty());
    for (const char* text : {"2011020", "8:05", "99-2-29"}) {
        desk.clear();
        enter(1, Delivery, text);
        EXPECT_EQ(desk.messages().size(), 1U) << text;
        desk.press(Key::Escape);
    }
}

TEST_F(ChecksPage, FindsNoFaultInALineThatIsComplete) {
    enter(1, Goods, "100001");
    enter(1, Warehouse, "主仓库");
    grid.Grid().Select(1, Quantity);
    desk.type("2*3");
    EXPECT_FALSE(firstFault(grid));
    EXPECT_EQ(grid.ReadCell(1, Quantity, true), "6");
    EXPECT_TRUE(desk.messages().empty());
}

TEST_F(ChecksPage, LeadsToAQuantityOfZero) {
    enter(1, Goods, "100001");
    enter(1, Warehouse, "主仓库");
    enter(1, Quantity, "0");
    expectFault(firstFault(grid), 1, Quantity);
    EXPECT_EQ(desk.messages().at(0), (Box{"数量不能为零!", 64, "提示："}));
    EXPECT_EQ(grid.Col(), Quantity);
    desk.type("5");
    EXPECT_FALSE(firstFault(grid)) << "what is being typed counts";
}

TEST_F(ChecksPage, LeadsToAnEmptyWarehouse) {
    enter(1, Goods, "100001");
    enter(1, Quantity, "5");
    expectFault(firstFault(grid), 1, Warehouse);
    EXPECT_EQ(desk.messages().at(0), (Box{"仓库不能为空!", 64, "提示："}));
}

TEST_F(ChecksPage, KeepsARefusedTextInTheEditor) {
    enter(1, Goods, "4711");
    expectFault(firstFault(grid), 1, Goods);
    EXPECT_EQ(desk.messages().size(), 1U);
    EXPECT_EQ(desk.editor().text, "4711");
}

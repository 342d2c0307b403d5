// The examples at the heads of the headers of sheets, as they stand there.
#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <vector>

#include "kxVsGrid/headless/Desk.h"
#include "kxVsGrid/sheet/Sheet.h"

namespace {
enum class Grade { Second, First };
}

#include "examples/sheet/FieldText.inc"

namespace kxVsGrid {
namespace {

struct GradedLine {
    std::int64_t id = 0;
    int version = 0;
    Grade grade{};
    Decimal price;
};

TEST(SheetExamples, ThatOfFieldTextShowsAHostsOwnType) {
    headless::Desk desk;
    kxGrid& grid = desk.place();
    Sheet<GradedLine> sheet(grid);
    sheet.text("grade", "等级", &GradedLine::grade);
    sheet.load(std::vector<GradedLine>{{1, 1, Grade::First, 0}});
    EXPECT_EQ(grid.RawText(1, 1), "一等");
    EXPECT_EQ(sheet.record(1).grade, Grade::First);
    grid.SetCell(1, 1, "三等");
    EXPECT_THROW(sheet.record(1), UnreadableCell);
}

TEST(SheetExamples, ThatOfCodesTakesOtherMembersFromACode) {
    headless::Desk desk;
    kxGrid& grid = desk.place();
#include "examples/sheet/Codes.inc"
    sheet.text("name", "品名", &Line::name);
    sheet.number("price", "单价", &Line::price);
    sheet.load(std::vector<Line>{});
    desk.focusGrid();
    grid.Grid().Select(1, 1);
    desk.type("１００００１").press(Key::Enter);
    EXPECT_EQ(sheet.record(1).code, "100001");
    EXPECT_EQ(sheet.record(1).name, "六角螺栓");
    EXPECT_EQ(sheet.record(1).price, 3);
}

TEST(SheetExamples, ThatOfFieldReadsAMember) {
    using Line = GradedLine;
#include "examples/sheet/Field.inc"
    Line line;
    EXPECT_TRUE(price.read(&line, "1.5"));
    EXPECT_EQ(line.price, Decimal("1.5"));
}

TEST(SheetExamples, ThatOfSheetComputesAnAmount) {
    headless::Desk desk;
    kxGrid& grid = desk.place();
#include "examples/sheet/Sheet.inc"
    ASSERT_EQ(lines.size(), 1u);
    EXPECT_EQ(lines[0].amount, 36);
}

TEST(SheetExamples, ThatOfSheetColumnDescribesAPrice) {
    using Line = GradedLine;
    headless::Desk desk;
    kxGrid& grid = desk.place();
    Sheet<Line> sheet(grid);
#include "examples/sheet/SheetColumn.inc"
    sheet.load(std::vector<Line>{{1, 1, {}, Decimal("2.5")}});
    EXPECT_EQ(grid.ReadSum(1), "2.50");
}

TEST(SheetExamples, ThatsOfRecordChangesAndFaultSaveAndShow) {
    using Line = GradedLine;
    headless::Desk desk;
    kxGrid& grid = desk.place();
    Sheet<Line> sheet(grid);
    sheet.text("grade", "等级", &Line::grade);
    sheet.number("price", "单价", &Line::price).required();
    sheet.load(std::vector<Line>{{1, 1, Grade::First, 5}, {2, 1, Grade::First, 6}});
    sheet.append(std::vector<Line>{{0, 0, Grade::First, 7}});
    std::vector<std::string> done;
    const auto insert = [&](const Line&) {
        done.push_back("insert");
        return 3;
    };
    const auto update = [&](const Line& before, const Line&) {
        done.push_back("update " + std::to_string(before.id));
        return before.version + 1;
    };
    const auto remove = [&](const Line& before) { done.push_back("remove " + std::to_string(before.id)); };
    sheet.edit(1, [](Line& line) { line.price = 8; });
    grid.Grid().RemoveRow(2);
    {
#include "examples/sheet/RecordChanges.inc"
    } EXPECT_EQ(done, (std::vector<std::string>{"insert", "update 1", "remove 2"}));
    EXPECT_FALSE(sheet.modified());

    sheet.edit(2, [](Line& line) { line.price = 0; });
    struct {
        std::string text;
    } status;
#include "examples/sheet/Fault.inc"
    EXPECT_EQ(status.text, "第 2 行的单价：不能为零");
    EXPECT_EQ(grid.Row(), 2);
}
}  // namespace
}  // namespace kxVsGrid

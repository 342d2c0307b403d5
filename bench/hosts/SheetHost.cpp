// The same host with a sheet.
#include <cstdint>
#include <string>
#include <vector>

#include "kxVsGrid/sheet/Sheet.h"

struct Line {
    std::int64_t id = 0;
    std::string code, name;
    kxVsGrid::Decimal quantity, price, amount;
};

void describe(kxVsGrid::Sheet<Line>& sheet) {
    sheet.identity(&Line::id);
    sheet.text("code", "货号", &Line::code);
    sheet.text("name", "品名", &Line::name).stretch();
    sheet.number("quantity", "数量", &Line::quantity).decimals(3);
    sheet.number("price", "单价", &Line::price).decimals(2);
    sheet.number("amount", "金额", &Line::amount).decimals(2).total().computed([](const Line& line) {
        return line.quantity * line.price;
    });
    sheet.rule(
        "quantity", [](const Line& line) { return line.quantity != 0; }, "数量不能为零");
}

void load(kxVsGrid::Sheet<Line>& sheet, const std::vector<Line>& lines) {
    sheet.load(lines);
}

std::vector<Line> added(const kxVsGrid::Sheet<Line>& sheet) {
    std::vector<Line> lines;
    for (const auto& line : sheet.changes().added) lines.push_back(line.record);
    return lines;
}

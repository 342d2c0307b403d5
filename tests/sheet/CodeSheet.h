// A sheet of order lines whose goods are known by codes, on a desk.
#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

#include "kxVsGrid/sheet/Sheet.h"
#include "sheet/SheetDesk.h"

namespace kxVsGrid::testing {

struct Goods {
    std::string code, name, initials, size;
    Decimal price;
};

inline std::vector<Goods> someGoods() {
    return {{"1001", "六角螺栓", "ljls", "M8", Decimal("3.5")},
            {"1002", "无缝钢管", "wfgg", "DN25", Decimal("20")},
            {"1003", "六角螺母", "ljlm", "M8", Decimal("1.25")}};
}

struct GoodsLine {
    std::string code, name, unit;
    Decimal price, quantity;

    friend bool operator==(const GoodsLine&, const GoodsLine&) = default;
};

class CodeSheet : public SheetDesk {
  protected:
    enum Column : std::int32_t { Number, Code, Name, Price, Quantity, Unit };

    /// Declares the columns and shows these lines.
    void load(const Codes<Goods>& codes, const std::vector<GoodsLine>& lines = {}) {
        sheet.code("code", "货号", &GoodsLine::code, codes)
            .found([this](GoodsLine& line, const Goods& goods) {
                ++followed;
                line.name = goods.name;
                line.price = goods.price;
            });
        finish(lines);
    }
    /// The same where a cleared code clears.
    void loadClearing(const Codes<Goods>& codes, const std::vector<GoodsLine>& lines = {}) {
        sheet.code("code", "货号", &GoodsLine::code, codes)
            .found([](GoodsLine& line, const Goods& goods) { line.name = goods.name; })
            .refusal("商品目录中没有这个货号")
            .cleared([](GoodsLine& line) { line.name.clear(); });
        finish(lines);
    }
    void finish(const std::vector<GoodsLine>& lines) {
        sheet.text("name", "品名", &GoodsLine::name);
        sheet.number("price", "单价", &GoodsLine::price).decimals(2);
        sheet.number("quantity", "数量", &GoodsLine::quantity);
        sheet.constants("unit", "单位", &GoodsLine::unit, {"只", "箱"});
        sheet.load(lines);
        grid.Options().Refusals(GridOptions::RefusalStyle::Beside);
        desk.focusGrid();
    }
    static Codes<Goods> table() {
        return Codes<Goods>(someGoods(), &Goods::code).name(&Goods::name).also(&Goods::initials);
    }
    /// Asks this test, which can be out of reach.
    Codes<Goods> asking() {
        return Codes<Goods>::asking(
                   [this](std::string_view typed) -> std::optional<Goods> {
                       asked.emplace_back(typed);
                       if (down) throw std::runtime_error("数据库连接中断");
                       for (const Goods& one : someGoods())
                           if (one.code == typed) return one;
                       return std::nullopt;
                   },
                   &Goods::code)
            .name(&Goods::name);
    }
    static GoodsLine line(std::string code, std::string name, std::string_view price) {
        return {std::move(code), std::move(name), {}, Decimal(price), Decimal(1)};
    }

    /// Code, name and price.
    std::string shown(std::int32_t row) {
        return text(row, Code) + " " + text(row, Name) + " " + text(row, Price);
    }
    void at(std::int32_t row, std::int32_t col) { grid.Grid().Select(row, col); }
    void paste(std::int32_t row, std::int32_t col, std::string_view block) {
        at(row, col);
        desk.clipboard(block);
        desk.run(Command::Paste);
    }
    /// The clerk empties a cell by typing.
    void empty(std::int32_t row, std::int32_t col) {
        at(row, col);
        desk.press(Key::F2).select(0, 100).press(Key::Delete).press(Key::Enter);
    }
    /// The current cell into all below it.
    void fillColumn(std::int32_t row, std::int32_t col) {
        at(row, col);
        desk.onPopup([](headless::PoppedMenu& menu) { menu.choose("填充列", "复制单元格(&C)"); });
        desk.rightClick(0, col);
        desk.onPopup({});
    }
    std::string problem(std::int32_t row, std::int32_t col) {
        const CellMark* const mark = grid.Mark(row, col);
        return mark && mark->kind == CellMark::Kind::Problem ? mark->text : std::string();
    }
    std::string fault() {
        const std::optional<Fault> first = sheet.firstFault();
        return first ? first->text() : std::string();
    }
    void undo() { ASSERT_TRUE(grid.History().Undo()); }
    void redo() { ASSERT_TRUE(grid.History().Redo()); }

    Sheet<GoodsLine> sheet{grid};
    int followed = 0;
    std::vector<std::string> asked;
    bool down = false;
};
}  // namespace kxVsGrid::testing

// The count on a grid: what its columns are, what is wrong with a line, and how it is loaded and saved. It needs no
// window: the tests drive it on a machine without one.
#pragma once

#include <string>

#include "CountStore.h"
#include "kxVsGrid/sheet/Sheet.h"

namespace stock_count {
class CountSheet {
  public:
    CountSheet(kxVsGrid::kxGrid& grid, CountStore& store, const Date& today) : store_(store), sheet_(grid) {
        goods_.name(&Goods::name).also(&Goods::pinyin);
        goods_.field("规格", &Goods::spec, 1300)
            .field("单位", &Goods::unit, 700)
            .field("单价", &Goods::price, 1000);

        sheet_.identity(&CountLine::id).version(&CountLine::version);
        sheet_.code("goods", "货号", &CountLine::goods, goods_)
            .found([](CountLine& line, const Goods& goods) {
                line.name = goods.name;
                line.spec = goods.spec;
                line.unit = goods.unit;
                line.price = goods.price;
            })
            .cleared([](CountLine& line) { line.name = line.spec = line.unit = {}; })
            .width("100000000");
        sheet_.text("name", "品名", &CountLine::name).readOnly().stretch();
        sheet_.text("spec", "规格", &CountLine::spec).readOnly().width("M00×0000");
        sheet_.text("unit", "单位", &CountLine::unit).readOnly().width("公斤公");
        sheet_.text("bin", "库位", &CountLine::bin).required().limit(8).width("A-0000000");
        sheet_.text("batch", "批号", &CountLine::batch).limit(10).width("P26010000");
        sheet_.number("book", "账面数量", &CountLine::book).decimals(3);
        sheet_.number("counted", "实盘数量", &CountLine::counted).decimals(3);
        sheet_.number("difference", "差异", &CountLine::difference)
            .decimals(3)
            .computed([](const CountLine& line) {
                return line.counted ? std::optional(*line.counted - line.book) : std::nullopt;
            });
        sheet_.number("price", "单价", &CountLine::price).decimals(2);
        sheet_.number("amount", "差异金额", &CountLine::differenceAmount)
            .decimals(2)
            .total()
            .computed([](const CountLine& line) {
                return line.difference ? std::optional(*line.difference * line.price) : std::nullopt;
            });
        // Whoever counts a line stamps it with the day; undo takes the stamp back.
        sheet_.date("day", "盘点日期", &CountLine::countedOn).computed([today](const CountLine& line) {
            return line.counted ? line.countedOn.value_or(today) : std::optional<Date>();
        });
        sheet_.text("remark", "备注", &CountLine::remark)
            .limit(40)
            .width("备注备注备注备注")
            .enterToNextRow("counted");

        sheet_.inUse([](const CountLine& line) { return !line.goods.empty(); });
        sheet_.rule(
            "counted", [](const CountLine& line) { return line.counted.value_or(0) >= 0; },
            "实盘数量不能为负数");
    }

    /// False when progress ended it.
    bool load(const kxVsGrid::sheet::Progress& progress = {}) {
        return sheet_.load(store_.lines(), progress, store_.size());
    }

    /// Why nothing was saved, for the clerk, who is taken to the place; empty when everything was.
    std::string save() try {
        const auto fault = sheet_.save([this](auto& changes) { store_.save(changes); });
        return fault ? fault->text() : std::string();
    } catch (const DatabaseError& error) {
        return error.what();
    }

    kxVsGrid::Sheet<CountLine>& sheet() { return sheet_; }

  private:
    CountStore& store_;
    kxVsGrid::Codes<Goods> goods_{store_.goods(), &Goods::code};
    kxVsGrid::Sheet<CountLine> sheet_;
};
}  // namespace stock_count

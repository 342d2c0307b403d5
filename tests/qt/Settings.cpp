#include "qt/Settings.h"

#include "kxVsGrid/StoredKeys.h"
#include "kxVsGrid/qt/kxGridWidget.h"

namespace kxVsGrid::qt::testing {

MemoryBag orderSettings() {
    MemoryBag bag;
    bag.Write("FormatString", "行号|<货号      |>数量    |<备注 \"<&>\" \\  ");
    bag.Write("Editable", true);
    bag.Write("ShowZero", true);
    bag.Write("SumRow", true);
    for (const auto& [name, value] : {std::pair{"Cols", 4},
                                      {"Rows", 12},
                                      {"FixedCols", 1},
                                      {"FixedRows", 2},
                                      {"BackColor", 0xF0FFF0},
                                      {"BackColorBkg", 0x808000},
                                      {"BackColorFixed", 0xC0E0FF},
                                      {"ForeColor", 0x800000},
                                      {"ForeColorFixe", 0x000080},
                                      {"Appearance", 0}})
        bag.Write(name, Variant(std::int32_t{value}));
    for (std::int32_t col = 0; col < 4; ++col) {
        const Variant values[] = {col != 0,
                                  col != 3,
                                  col == 1,
                                  std::int16_t(10 * col),
                                  std::int32_t{col == 2 ? 5 : 8},
                                  std::int32_t{0},
                                  std::int32_t{1},
                                  std::int32_t{col},
                                  std::int32_t{col == 1 ? 1 : 0},
                                  col == 1 ? "HP" : "",
                                  "字段 " + std::to_string(col),
                                  "第 " + std::to_string(col) + " 列\n有误",
                                  "FBM",
                                  "FMC",
                                  "select * from 货品 where a < 'b' & \"c\"",
                                  std::int16_t(col == 1),
                                  col == 2,
                                  std::int32_t{col == 2 ? 7 : 1},
                                  true};
        std::size_t i = 0;
        for (const StoredKey& key : columnKeys()) bag.Write(columnKey(col, key.written), values[i++]);
    }
    return bag;
}

std::string loadedFrom(MemoryBag bag) {
    kxGridWidget widget;
    widget.grid().ReadProperties(bag);
    return settingsOf(widget.grid());
}
}  // namespace kxVsGrid::qt::testing

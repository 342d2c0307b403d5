// A sheet of order lines on a desk.
#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "kxVsGrid/sheet/Sheet.h"
#include "sheet/SheetDesk.h"

namespace kxVsGrid::testing {

struct OrderLine {
    std::int64_t id = 0;
    std::int64_t version = 0;
    std::string code;
    std::string name;
    std::optional<Decimal> quantity;
    Decimal price;
    Decimal amount;
    bool gift = false;

    friend bool operator==(const OrderLine&, const OrderLine&) = default;
};

class OrderSheet : public SheetDesk {
  protected:
    enum Column : std::int32_t { Number, Code, Name, Quantity, Price, Amount, Gift };

    OrderSheet() {
        sheet.identity(&OrderLine::id).version(&OrderLine::version);
        sheet.text("code", "货号", &OrderLine::code);
        sheet.text("name", "品名", &OrderLine::name).stretch();
        sheet.number("quantity", "数量", &OrderLine::quantity).decimals(3).total();
        sheet.number("price", "单价", &OrderLine::price).decimals(2);
        sheet.number("amount", "金额", &OrderLine::amount)
            .decimals(2)
            .total()
            .computed([](const OrderLine& line) { return line.quantity.value_or(0) * line.price; });
        sheet.flag("gift", "赠品", &OrderLine::gift);
    }

    static Decimal number(std::string_view text) { return Decimal(text); }
    static OrderLine line(std::int64_t id, std::string code, std::string_view quantity,
                          std::string_view price) {
        OrderLine line{id, 1, std::move(code), "name", {}, number(price), {}, false};
        if (!quantity.empty()) line.quantity = number(quantity);
        line.amount = (line.quantity.value_or(0) * line.price).rounded(2);
        return line;
    }
    /// Three lines.
    std::vector<OrderLine> loaded() {
        const std::vector<OrderLine> lines = {line(11, "A1", "2", "1.5"), line(12, "B2", "", "4"),
                                              line(13, "C3", "0", "0.25")};
        sheet.load(lines);
        desk.focusGrid();
        return lines;
    }

    Sheet<OrderLine> sheet{grid};
};
}  // namespace kxVsGrid::testing

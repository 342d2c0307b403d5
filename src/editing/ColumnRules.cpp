#include "editing/ColumnRules.h"

#include <memory>

#include "editing/ExactNumber.h"
#include "kxVsGrid/support/Decimal.h"
#include "support/Numbers.h"

namespace kxVsGrid::editing {
namespace {

using Reason = std::optional<std::string>;

/// What a number has behind its point, as cells write it: in an exact column in every digit.
int decimalsOf(const ColumnOptions& rules, std::string_view text, double number) {
    if (rules.exact())
        if (const std::optional<Decimal> exact = Decimal::read(text)) return exact->decimals();
    const std::string written = support::numberText(number);
    const std::size_t point = written.find('.');
    return point == std::string::npos ? 0 : static_cast<int>(written.size() - point - 1);
}

Reason brokenByNumber(const ColumnOptions& rules, std::string_view text) {
    const std::optional<double> number = support::completeNumber(text);
    if (!number) return std::nullopt;
    if (const auto most = rules.mostDecimals(); most && decimalsOf(rules, text, *number) > *most) {
        return *most == 0 ? "不能有小数。" : "小数最多 " + std::to_string(*most) + " 位。";
    }
    if (const auto smallest = rules.smallest(); smallest && *number < *smallest)
        return "不能小于 " + support::numberText(*smallest) + "。";
    if (const auto largest = rules.largest(); largest && *number > *largest)
        return "不能大于 " + support::numberText(*largest) + "。";
    return std::nullopt;
}

/// Rows are counted as the clerk counts them.
Reason brokenByRepeating(const ColumnOptions& rules, const CellGrid& grid, std::int32_t row, std::int32_t col,
                         std::string_view text) {
    if (rules.mayRepeat() || text.empty()) return std::nullopt;
    const std::int32_t other = grid.RowWithText(col, text, row);
    if (other < 0) return std::nullopt;
    return "与第 " + std::to_string(other - grid.FixedRows() + 1) + " 行重复。";
}

Reason brokenByText(const ColumnOptions& rules, const CellGrid& grid, std::int32_t row, std::int32_t col,
                    std::string_view text) {
    if (text.empty()) return std::nullopt;
    if (Reason reason = brokenByNumber(rules, text)) return reason;
    if (!rules.matches(text)) return "不符合规定的格式。";
    return brokenByRepeating(rules, grid, row, col, text);
}
}  // namespace

std::optional<std::string> brokenColumnRule(const host::ControlContext& c, std::int32_t row, std::int32_t col,
                                            std::string_view text) {
    const std::shared_ptr<const ColumnOptions> rules = c.columns.rules(col);
    if (!rules || !c.host.there()) return std::nullopt;
    if (rules->exact() && c.columns.at(col).iType() == flexDTDouble && !fitsExactly(text))
        return "数字最多 18 位。";
    if (Reason reason = brokenByText(*rules, c.grid, row, col, text)) return reason;
    const ColumnOptions::Acceptance accepts = rules->accepts();  // it may put another one
    if (!accepts) return std::nullopt;
    std::string reason = accepts(row, text);
    return reason.empty() ? std::nullopt : Reason(std::move(reason));
}

std::optional<std::string> brokenByRepeating(const host::ControlContext& c, std::int32_t row,
                                             std::int32_t col, std::string_view text) {
    const std::shared_ptr<const ColumnOptions> rules = c.columns.rules(col);
    return rules ? brokenByRepeating(*rules, c.grid, row, col, text) : std::nullopt;
}
}  // namespace kxVsGrid::editing

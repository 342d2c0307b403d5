// The gate for values that come in blocks.
#include <algorithm>
#include <array>

#include "editing/ExpressionTip.h"
#include "editing/InputForms.h"
#include "editing/WriteGate.h"
#include "support/PlainSigns.h"
#include "support/Text.h"

namespace kxVsGrid::editing {
namespace {

bool isOneOf(std::string_view text, std::span<const std::string_view> words) {
    return std::any_of(words.begin(), words.end(),
                       [text](std::string_view word) { return support::equalsIgnoringCase(text, word); });
}

constexpr std::array<std::string_view, 4> Yes{"-1", "1", "True", "是"};
constexpr std::array<std::string_view, 3> No{"0", "False", "否"};

/// A year, a month and a day, whether or not there is such a day: who copied that meant no difference and no quotient.
bool looksLikeDate(std::string_view text) {
    text = support::trim(text);
    std::size_t at = 0;
    const auto digits = [&](std::size_t least, std::size_t most) {
        const std::size_t from = at;
        while (at < text.size() && text[at] >= '0' && text[at] <= '9') ++at;
        return at - from >= least && at - from <= most;
    };
    if (!digits(4, 4) || at == text.size() || (text[at] != '-' && text[at] != '/')) return false;
    const char separator = text[at++];
    if (!digits(1, 2) || at == text.size() || text[at++] != separator) return false;
    return digits(1, 2) && at == text.size();
}
}  // namespace

WriteGate::Admission WriteGate::admit(std::int32_t row, std::int32_t col, std::string_view text,
                                      KnownCodes& known) const {
    const std::shared_ptr<cVsControl> column = c_.columns.shared(col);
    if (column->iType() == flexDTBoolean) return admitBoolean(text);
    std::string typed = column->b是否编辑多行() ? std::string(text) : support::inOneLine(text);
    if (takesPlainSigns(*column)) typed = support::inPlainSigns(typed);
    const auto limit = static_cast<std::size_t>(std::max<std::int16_t>(column->iLimitLength(), 0));
    if (limit > 0 && support::characters(typed) > limit)
        return {{}, {}, "最多 " + std::to_string(limit) + " 个字。", true};
    if (column->iType() == flexDTDouble && looksLikeDate(typed)) return {{}, {}, "是日期，不是数字。"};

    typed = inFull(col, typed);
    std::optional<std::string> cell = stored(col, typed);
    if (!cell) return refuseExpression(col, typed);
    if (const auto broken = brokenRule(row, col, *cell)) return {{}, {}, *broken};
    std::optional<std::string> tag;
    if (cell->empty()) tag.emplace();
    if (!isThere(row, col)) return {};
    if (column->i有效性判断() == 0) return {std::move(*cell), std::move(tag), {}};
    const FieldVerdict verdict = checkOnce(col, typed, known);
    if (verdict.refusal)
        return {{}, {}, verdict.refusal->text.empty() ? "未通过检查。" : verdict.refusal->text};
    if (!verdict.rewritten) return {std::move(*cell), std::move(tag), {}};
    if (!isThere(row, col)) return {};
    if (const auto repeated = brokenByRewriting(row, col, verdict.rewritten->text))
        return {{}, {}, *repeated};
    cell = stored(col, verdict.rewritten->text);
    if (!cell) return refuseExpression(col, verdict.rewritten->text);
    return {std::move(*cell), verdict.rewritten->tag, {}};
}

/// A host that was asked may have taken the cell away.
bool WriteGate::isThere(std::int32_t row, std::int32_t col) const {
    return c_.host.there() && row < c_.grid.Rows() && col < c_.grid.Cols();
}

WriteGate::Admission WriteGate::admitBoolean(std::string_view text) const {
    text = support::trim(text);
    if (text.empty()) return {{}, std::string(), {}};
    if (isOneOf(text, Yes)) return {"-1", {}, {}};
    if (isOneOf(text, No)) return {"0", {}, {}};
    return {{}, {}, "只能是 是 或 否。"};
}

FieldVerdict WriteGate::checkOnce(std::int32_t col, const std::string& text, KnownCodes& known) const {
    if (c_.columns.at(col).i字段有效性判断类型() != ij编码型) return checkField(c_, col, text);
    std::string key = std::to_string(col) + ':' + text;
    const auto found = known.find(key);
    if (found != known.end()) return found->second;
    FieldVerdict verdict = checkField(c_, col, text);
    known.emplace(std::move(key), verdict);
    return verdict;
}

WriteGate::Admission WriteGate::refuseExpression(std::int32_t col, std::string_view text) const {
    std::string reason = expressionTip(text, numberForms(c_.grid, col));
    return {{}, {}, reason.empty() ? "不是数字。" : std::move(reason)};
}
}  // namespace kxVsGrid::editing

#include "sheet/Faults.h"

#include "kxVsGrid/support/Date.h"
#include "sheet/Constants.h"
#include "sheet/Presets.h"
#include "sheet/ThrownReason.h"

namespace kxVsGrid::sheet {
namespace {

/// The host's words for a text.
std::string worded(std::string words, std::string_view text) {
    constexpr std::string_view Place = "%1";
    for (std::size_t at = words.find(Place); at != std::string::npos;
         at = words.find(Place, at + text.size()))
        words.replace(at, Place.size(), text);
    return words;
}

/// As such a column keeps it: 2026-11-27 上午.
bool isHalfDay(std::string_view text) {
    const std::size_t blank = text.find(' ');
    if (blank == std::string_view::npos || !Date::read(text.substr(0, blank))) return false;
    const std::string_view half = text.substr(blank + 1);
    return half == "上午" || half == "下午";
}
}  // namespace

std::string Faults::brokenRule(const void* record, std::int32_t column, bool typed) const {
    for (const Rule& rule : c_.rules) {
        if (c_.gone) return {};
        if (rule.column != column || (typed && !rule.whenTyped)) continue;
        try {
            if (!rule.holds(record)) return rule.reason;
        } catch (...) {
            return thrownReason("不能检查");
        }
    }
    return {};
}

/// Rules, and what follows from the others, are not judged where the whole record is not known.
Faults::Reason Faults::reason(const void* record, std::int32_t row, std::int32_t column, bool known,
                              CodeColumns::Answers& answers) const {
    const ColumnPlan& plan = c_.plan(column);
    const std::string text = c_.cells().Text(row, c_.gridCol(column));
    if (!isReadable(column, text)) return {"“" + text + "”不能识别", FaultKind::Unreadable};
    if (known && plan.computed)
        if (std::string why = computing_.reason(record, column); !why.empty())
            return {std::move(why), FaultKind::Computed};
    if (c_.gone) return {};
    if (std::string why = missing(record, row, column, known); !why.empty())
        return {std::move(why), FaultKind::Missing};
    if (!known) return {};
    std::string why = plan.codes ? codes_.reason(row, column, text, answers) : std::string();
    if (why.empty()) why = refusedConstant(plan, record, text, false);
    if (!why.empty()) return {std::move(why), FaultKind::Unknown};
    return {worded(brokenRule(record, column, false), text), FaultKind::Rule};
}

std::optional<Fault> Faults::at(const void* record, std::int32_t row, std::int32_t column, bool known,
                                CodeColumns::Answers& answers) const {
    Reason why = reason(record, row, column, known, answers);
    if (why.text.empty() || c_.gone) return std::nullopt;
    const std::string& wrong = c_.plan(column).wrong;
    if (!wrong.empty() && (why.kind == FaultKind::Unreadable || why.kind == FaultKind::Unknown))
        why.text = worded(wrong, c_.cells().Text(row, c_.gridCol(column)));
    Fault fault = c_.faultAt(row, column, std::move(why.text));
    fault.kind = why.kind;
    try {
        if (c_.wording) fault.reason = c_.wording(fault);
    } catch (...) {
        // The sheet's own words do.
    }
    return c_.gone ? std::nullopt : std::optional(std::move(fault));
}

void Faults::visit(std::int32_t row, const std::function<bool(Fault)>& visitor) const {
    CodeColumns::Answers answers;
    visitRow(row, answers, visitor);
}

bool Faults::visitRow(std::int32_t row, CodeColumns::Answers& answers,
                      const std::function<bool(Fault)>& visitor) const {
    std::optional<Fault> unreadable;
    const AnyRecord record = lines_.read(row, unreadable);
    const bool known = !c_.refuses(unreadable);
    if (known && !lines_.isInUse(row, record.get())) return true;
    for (std::int32_t column = 0; column < c_.count(); ++column)
        if (auto fault = at(record.get(), row, column, known, answers); fault && !visitor(std::move(*fault)))
            return false;
    return true;
}

bool Faults::isReadable(std::int32_t column, const std::string& text) const {
    const ColumnPlan& plan = c_.plan(column);
    const AnyRecord scratch = c_.make(nullptr);
    return plan.field->read(scratch.get(), text) && (!plan.halfDay || text.empty() || isHalfDay(text));
}

/// Of which lines something is required is not known where the whole record is not.
std::string Faults::missing(const void* record, std::int32_t row, std::int32_t column, bool known) const {
    const ColumnPlan& plan = c_.plan(column);
    if (!plan.required || (plan.requiredWhen && !known)) return {};
    const bool empty = c_.cells().Text(row, c_.gridCol(column)).empty();
    if (!empty && !isBlankZero(record, row, column)) return {};
    try {
        if (!Presets::requiresIn(plan, record)) return {};
    } catch (...) {
        return thrownReason("不能检查");
    }
    return plan.countsZero() ? "不能为零" : "不能为空";
}

/// A 0, however it is written, of a member that cannot be without a value, or where a 0 says nothing.
bool Faults::isBlankZero(const void* record, std::int32_t row, std::int32_t column) const {
    const Field& field = *c_.plan(column).field;
    if (field.kind() != FieldKind::Number) return false;
    if (c_.plan(column).nonZero)
        if (const auto number = Decimal::read(c_.cells().Text(row, c_.gridCol(column)));
            number && *number == 0)
            return true;
    if (!c_.plan(column).blanksZero()) return false;
    const AnyRecord blank = c_.make(nullptr);
    field.read(blank.get(), {});
    return field.alike(blank.get(), record);
}

void Faults::visit(const std::function<bool(Fault)>& visitor) const {
    CodeColumns::Answers answers;
    codes_.retry(answers);
    for (std::int32_t row = c_.firstRow(); row < c_.endRow(); ++row)
        if (!visitRow(row, answers, visitor)) return;
}

/// Judged on the line as it would be, with what follows from the text.
std::string Faults::refusal(std::int32_t row, std::int32_t column, std::string_view text) const {
    const ColumnPlan& plan = c_.plan(column);
    std::optional<Fault> unreadable;
    const AnyRecord record = lines_.readTyped(row, unreadable);
    if (!plan.constants.empty()) text = trimmedCode(text);
    const std::string value =
        plan.decimals ? Lines::rounded(std::string(text), *plan.decimals) : std::string(text);
    const FieldKind kind = plan.field->kind();
    if (!plan.field->read(record.get(), value)) {
        // The column's check comes after this one, and takes dates in more forms than cells hold.
        if (kind == FieldKind::Date || kind == FieldKind::Moment) return {};
        return kind == FieldKind::Number ? "这个数太大，或者小数位太多。" : "不能识别。";
    }
    if (unreadable && unreadable->col != c_.gridCol(column)) return {};
    computing_.fill(record.get());
    if (c_.gone) return {};
    if (std::string why = refusedConstant(plan, record.get(), value, true); !why.empty()) return why;
    const bool becomesLine = lines_.makesLine(column) && !value.empty();
    if (!becomesLine && !lines_.isInUse(row, record.get())) return {};
    return worded(brokenRule(record.get(), column, true), value);
}
}  // namespace kxVsGrid::sheet

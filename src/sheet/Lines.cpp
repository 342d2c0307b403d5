#include "sheet/Lines.h"

namespace kxVsGrid::sheet {

namespace {
/// As the grid blanks it.
bool isZero(FieldKind kind, const std::string& text) {
    if (kind == FieldKind::Number) return text == "0";
    return (kind == FieldKind::Date || kind == FieldKind::Moment) && text.starts_with("1900-01-01");
}

/// A short look: False proves that there is nothing to round.
bool hasMoreDecimals(const std::string& text, int decimals) {
    const std::size_t point = text.find('.');
    return point != std::string::npos && text.size() - point - 1 > static_cast<std::size_t>(decimals);
}
}  // namespace

std::string Lines::rounded(const std::string& text, int decimals) {
    const std::optional<Decimal> number = Decimal::read(text);
    return number && number->decimals() > decimals ? number->rounded(decimals).text() : text;
}

std::string Lines::text(const void* record, std::int32_t column) const {
    std::string text;
    putText(record, column, text);
    return text;
}

void Lines::putText(const void* record, std::int32_t column, std::string& text) const {
    const ColumnPlan& plan = c_.plan(column);
    text.clear();
    plan.field->append(record, text);
    if (plan.computed && plan.decimals && hasMoreDecimals(text, *plan.decimals))
        text = rounded(text, *plan.decimals);
    if (!c_.gone && isBlanked(column, text)) text.clear();
}

bool Lines::isBlanked(std::int32_t column, const std::string& text) const {
    const ColumnPlan& plan = c_.plan(column);
    return isZero(plan.field->kind(), text) && plan.blanksZero() && !c_.grid.bIsShowZero();
}

AnyRecord Lines::read(std::int32_t row, std::optional<Fault>& fault) const {
    return read(row, fault, true);
}

AnyRecord Lines::readTyped(std::int32_t row, std::optional<Fault>& fault) const {
    return read(row, fault, false);
}

AnyRecord Lines::read(std::int32_t row, std::optional<Fault>& fault, bool computedToo) const {
    const KeptRecord kept = saved_.of(c_.cells().KnownId(row));
    AnyRecord record = c_.make(kept.get());
    for (std::int32_t column = 0; column < c_.count(); ++column) {
        if (!computedToo && c_.plan(column).computed) continue;
        const std::string text = c_.cells().Text(row, c_.gridCol(column));
        const Field& field = *c_.plan(column).field;
        if (field.read(record.get(), text)) continue;
        field.read(record.get(), {});
        if (fault) continue;
        fault = c_.faultAt(row, column, "“" + text + "”不能识别");
        fault->kind = FaultKind::Unreadable;
    }
    return record;
}

AnyRecord Lines::readWhole(std::int32_t row) const {
    std::optional<Fault> fault;
    AnyRecord record = read(row, fault);
    if (c_.refuses(fault)) throw UnreadableCell(*fault);
    return record;
}

AnyRecord Lines::lineAt(std::int32_t row) const {
    if (!c_.inUse && !holdsText(row)) return nullptr;
    AnyRecord record = readWhole(row);
    return !c_.inUse || c_.inUse(record.get()) ? record : nullptr;
}

/// What the clerk can type, and what rows do not get by themselves.
bool Lines::makesLine(std::int32_t column) const {
    const ColumnPlan& plan = c_.plan(column);
    return !c_.inUse && !plan.readOnly && plan.preset.empty();
}

bool Lines::holdsText(std::int32_t row) const {
    for (std::int32_t column = 0; column < c_.count(); ++column)
        if (makesLine(column) && !c_.cells().Text(row, c_.gridCol(column)).empty()) return true;
    return false;
}

bool Lines::isInUse(std::int32_t row) const {
    if (!c_.inUse) return holdsText(row);
    std::optional<Fault> fault;
    const AnyRecord record = read(row, fault);
    return c_.refuses(fault) || c_.inUse(record.get());
}

bool Lines::isInUse(std::int32_t row, const void* record) const {
    return c_.inUse ? c_.inUse(record) : holdsText(row);
}

bool Lines::isInUse(const void* record) const {
    if (c_.inUse) return c_.inUse(record);
    for (std::int32_t column = 0; column < c_.count(); ++column)
        if (makesLine(column) && !text(record, column).empty()) return true;
    return false;
}

std::int32_t Lines::end() const {
    std::int32_t row = c_.endRow();
    while (row > c_.firstRow() && !isInUse(row - 1)) --row;
    return row;
}

void Lines::write(std::int32_t row, const void* record) const {
    const AnyRecord now = c_.make(nullptr);
    const RowId id = c_.cells().IdOf(row);
    for (std::int32_t column = 0; column < c_.count(); ++column) {
        const ColumnPlan& plan = c_.plan(column);
        if (plan.computed) continue;
        const std::int32_t col = c_.gridCol(column);
        if ((row = c_.rowOf(id)) < 0) return;
        const bool readable = plan.field->read(now.get(), c_.cells().Text(row, col));
        if (!readable) plan.field->read(now.get(), {});
        // A text that counts as blank stays for who reads it, until something else is to stand there.
        const bool counts = readable || c_.unreadable == Unreadable::Blank;
        if (counts && plan.field->alike(now.get(), record)) continue;
        c_.grid.SetCell(row, col, text(record, column));
    }
}

Decimal Lines::sum(std::int32_t column) const {
    if (c_.plan(column).field->kind() != FieldKind::Number)
        throw GridError("sum: the column " + c_.plan(column).name + " holds no numbers");
    const std::int32_t col = c_.gridCol(column);
    Decimal sum;
    for (std::int32_t row = c_.firstRow(); row < c_.endRow(); ++row) {
        const std::string text = c_.cells().Text(row, col);
        if (text.empty() || !isInUse(row)) continue;
        const std::optional<Decimal> number = Decimal::read(text);
        if (!number) throw UnreadableCell(c_.faultAt(row, column, "“" + text + "”不能识别"));
        sum += *number;
    }
    return sum;
}
}  // namespace kxVsGrid::sheet

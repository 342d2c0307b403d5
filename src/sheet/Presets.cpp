#include "sheet/Presets.h"

#include <algorithm>
#include <vector>

namespace kxVsGrid::sheet {

bool Presets::begins(std::int32_t row, std::int32_t column) const {
    const bool gives = std::any_of(c_.plans.begin(), c_.plans.end(),
                                   [](const ColumnPlan& plan) { return !plan.preset.empty(); });
    if (!gives || row == c_.grid.Row() || any(row, column)) return false;
    if (!lines_.isInUse(row) || c_.gone) return false;
    std::optional<Fault> unreadable;
    const AnyRecord without = lines_.readTyped(row, unreadable);
    c_.plan(column).field->read(without.get(), {});
    return !lines_.isInUse(without.get());
}

void Presets::give(std::int32_t row) const {
    const RowId id = c_.cells().IdOf(row);
    for (std::int32_t column = 0; column < c_.count(); ++column) {
        const std::string text = c_.plan(column).preset;
        if ((row = c_.rowOf(id)) < 0) return;
        if (!text.empty() && isEmpty(row, column)) c_.grid.SetCell(row, c_.gridCol(column), text, text);
    }
}

void Presets::complete() const {
    std::vector<RowId> lacking;
    for (std::int32_t row = c_.firstRow(); row < c_.endRow(); ++row)
        if (lacksRequired(row)) lacking.push_back(c_.cells().IdOf(row));
    if (lacking.empty() || c_.gone) return;
    ChangeStep step = c_.grid.Step("补填预设");
    for (const RowId id : lacking)
        if (const std::int32_t row = c_.rowOf(id); row >= 0) give(row);
    step.close();
}

bool Presets::lacksRequired(std::int32_t row) const {
    AnyRecord record;
    for (std::int32_t column = 0; column < c_.count(); ++column) {
        const ColumnPlan& plan = c_.plan(column);
        if (!plan.required || plan.preset.empty() || !isEmpty(row, column)) continue;
        std::optional<Fault> unreadable;
        if (!record) record = lines_.read(row, unreadable);
        try {
            if (lines_.isInUse(row, record.get()) && requiresIn(plan, record.get())) return !c_.gone;
        } catch (...) {
            // It is a fault of the line then.
        }
    }
    return false;
}

bool Presets::any(std::int32_t row, std::int32_t but) const {
    for (std::int32_t column = 0; column < c_.count(); ++column)
        if (column != but && !c_.plan(column).preset.empty() && !isEmpty(row, column)) return true;
    return false;
}

bool Presets::waits(std::int32_t row) const {
    for (std::int32_t column = 0; column < c_.count(); ++column) {
        const std::string& preset = c_.plan(column).preset;
        if (!preset.empty() && c_.cells().Text(row, c_.gridCol(column)) == preset)
            return !lines_.isInUse(row);
    }
    return false;
}

/// May throw, as the host's function does.
bool Presets::requiresIn(const ColumnPlan& plan, const void* record) {
    return plan.required && (!plan.requiredWhen || plan.requiredWhen(record));
}
}  // namespace kxVsGrid::sheet

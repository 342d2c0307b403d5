// What rows get beside what the clerk types: presets, where nothing stands yet.
#pragma once

#include <cstdint>

#include "sheet/Lines.h"
#include "sheet/SheetContext.h"

namespace kxVsGrid::sheet {

class Presets {
  public:
    Presets(const SheetContext& context, const Lines& lines) : c_(context), lines_(lines) {}

    /// The row is a line by the cell alone, the clerk is elsewhere, and nothing is there yet of what is preset. To be
    /// asked as soon as the cell has its text, before anything follows from it.
    bool begins(std::int32_t row, std::int32_t column) const;
    /// Every preset that its column lacks.
    void give(std::int32_t row) const;
    /// The same to lines that lack something required that is preset.
    void complete() const;
    /// Something stands already where something is preset, but for one column.
    bool any(std::int32_t row, std::int32_t but = -1) const;
    /// No line, but the clerk has been there: something stands of what is preset.
    bool waits(std::int32_t row) const;
    /// The column has to be filled in this line.
    static bool requiresIn(const ColumnPlan& plan, const void* record);

  private:
    bool lacksRequired(std::int32_t row) const;
    bool isEmpty(std::int32_t row, std::int32_t column) const {
        return c_.cells().Text(row, c_.gridCol(column)).empty();
    }

    const SheetContext& c_;
    const Lines& lines_;
};
}  // namespace kxVsGrid::sheet

// Reading and writing of a control's stored settings.
#pragma once

#include <string_view>

#include "grid/ControlFlags.h"
#include "grid/Layout.h"
#include "grid/TotalRow.h"
#include "grid/columns/ColumnArray.h"
#include "kxVsGrid/CellGrid.h"
#include "kxVsGrid/PropertyBag.h"

namespace kxVsGrid::grid {

/// Some instance is being loaded, or its loading has failed: nobody writes settings. One flag for the whole
/// process. A failed read leaves it set on purpose, so that settings that were only half read never replace
/// the stored ones; the next complete read, or the next new instance, clears it.
class SettingsLoading {
  public:
    static bool underway() { return underway_; }
    static void underway(bool now) { underway_ = now; }

  private:
    static inline bool underway_ = false;
};

/// Works on the grids directly: nothing is reported, no rows are added, no totals made.
class Settings {
  public:
    Settings(CellGrid& main, CellGrid& sums, columns::ColumnArray& columns, ControlFlags& flags,
             TotalRow& totals, Layout& layout)
        : main_(main), sums_(sums), columns_(columns), flags_(flags), totals_(totals), layout_(layout) {}

    /// Applies every value at once. What fails is thrown, and what was applied before stays.
    void read(PropertyBag& bag);
    void write(PropertyBag& bag);

  private:
    void readGrid(PropertyBag& bag);
    void readColumn(PropertyBag& bag, std::int32_t col);
    Variant gridValue(std::string_view member) const;
    void writeColumn(PropertyBag& bag, std::int32_t col);

    CellGrid& main_;
    CellGrid& sums_;
    columns::ColumnArray& columns_;
    ControlFlags& flags_;
    TotalRow& totals_;
    Layout& layout_;
};
}  // namespace kxVsGrid::grid

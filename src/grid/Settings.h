// Reading and writing of a control's stored settings.
#pragma once

#include <string_view>

#include "columns/ColumnArray.h"
#include "grid/Properties.h"
#include "kxVsGrid/PropertyBag.h"
#include "totals/TotalRow.h"

namespace kxVsGrid::grid {

/// Some instance is being loaded, or its loading has failed: nobody writes settings. One flag for the whole
/// process. A failed read leaves it set on purpose, so that settings that were only half read never replace
/// the stored ones; the next complete read, or the next new instance, clears it.
class SettingsLoading {
  public:
    static bool underway() { return underway_; }
    static void setUnderway(bool now) { underway_ = now; }

  private:
    static inline bool underway_ = false;
};

/// The stored properties in their orders, between a bag and the control. Loading goes past the control's
/// members.
class Settings {
  public:
    Settings(CellGrid& main, CellGrid& sums, columns::ColumnArray& columns, host::ControlFlags& flags,
             totals::TotalRow& totals, Layout& layout)
        : grid_{main, sums, flags, layout}, columns_(columns), totals_(totals) {}

    /// Applies every value at once. What fails is thrown, and what was applied before stays.
    void read(PropertyBag& bag);
    /// Stores what the control holds when it is called, whatever the bag does meanwhile.
    void write(PropertyBag& bag, kxGrid& control);

  private:
    void readGrid(PropertyBag& bag);
    void readColumn(PropertyBag& bag, std::int32_t col);
    void writeColumn(PropertyBag& bag, std::int32_t col);

    Loaded grid_;
    columns::ColumnArray& columns_;
    totals::TotalRow& totals_;
};
}  // namespace kxVsGrid::grid

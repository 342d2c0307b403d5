// Reading and writing of a control's stored settings.
#pragma once

#include <string>
#include <string_view>

#include "columns/ClerkColumns.h"
#include "columns/ColumnArray.h"
#include "grid/GridProperties.h"
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
    /// Whoever goes on without what could not be read, as a designer of forms does, lets settings be written.
    static void giveUp() { underway_ = false; }

  private:
    static inline bool underway_ = false;
};

/// What the clerk is told when a reading fails, of the exception that is being handled.
std::string readFault();
/// What the clerk would be told if a control read these settings; empty when it could. No control is needed, and
/// none of the process is held up.
std::string faultOfReading(PropertyBag& bag);

/// The stored properties in their orders, between a bag and the control. Loading goes past the control's
/// members.
class Settings {
  public:
    Settings(CellGrid& main, CellGrid& sums, columns::ColumnArray& columns,
             const columns::ClerkColumns* clerkColumns, host::ControlFlags& flags, totals::TotalRow& totals,
             Layout& layout)
        : grid_{main, sums, flags, layout}, columns_(columns), clerkColumns_(clerkColumns), totals_(totals) {}

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
    const columns::ClerkColumns* clerkColumns_;  ///< nothing where there is no clerk
    totals::TotalRow& totals_;
};
}  // namespace kxVsGrid::grid

// What the clerk's commands work on.
#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "columns/ClerkColumns.h"
#include "editing/EditSession.h"
#include "host/ControlContext.h"
#include "kxVsGrid/PasteReport.h"
#include "kxVsGrid/Platform.h"
#include "rows/Rows.h"

namespace kxVsGrid::clerk {

class Filters;

/// What they ask of the control above them: cells as hosts read and write them, and where places lie.
class CommandOwner {
  public:
    virtual ~CommandOwner() = default;
    virtual std::string readCell(std::int32_t row, std::int32_t col, bool text) = 0;
    /// False when it failed and a box told of it.
    virtual bool setCell(std::int32_t row, std::int32_t col, std::string_view text, std::string_view tag) = 0;
    /// Writes a cell as it is told, keeps its column's total, and lets what handlers throw through.
    virtual void putCell(std::int32_t row, std::int32_t col, std::string_view text,
                         const std::string_view& tag) = 0;
    /// The clerk has written a cell.
    virtual void clerkWrote(std::int32_t row, std::int32_t col) = 0;
    /// Whether the clerk has changed data is again what it was.
    virtual void changedData(bool changed) = 0;
    /// The host hears of a block that was written; the clerk, when something was not.
    virtual void tell(const PasteReport& report) = 0;
    /// What is looked for is another text, and whether there is one.
    virtual void searchChanged() = 0;
    /// Filters have come, changed or ended, or hide other rows.
    virtual void filtersChanged() = 0;
    /// Kept for as long as something is going on whose listeners may destroy the control.
    virtual std::shared_ptr<void> keep() = 0;
    /// What F2 does on a closed cell.
    virtual void openHelp() = 0;
    /// Where a place in the control's grid lies on the screen.
    virtual Rect onScreen(const Rect& place) const = 0;
};

struct ClerkContext : host::ControlContext {
    const rows::DefaultedCells& defaulted;
    Platform& platform;
    Seat& seat;
    rows::Rows& rows;
    editing::EditSession& editor;
    CommandOwner& owner;
    columns::ClerkColumns& clerkColumns;
    Filters& filters;
};
}  // namespace kxVsGrid::clerk

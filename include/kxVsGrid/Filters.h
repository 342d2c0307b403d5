// The filters of one control: by the texts of a column only the rows are shown that have one of them there.
//
//     grid.Options(City).filterable(true);                // the clerk may (Command::Filter)
//     grid.Filters().Show(City, {"北京", "上海"});        // so may the host
//     status.text = std::to_string(grid.Filters().HiddenRows()) + " 行被筛选隐藏";
//     grid.Filters().ShowAll();
//
// Several columns filter together: a row is shown when all let it through. Filtering is no step, changes no
// cell and no total, and hides beside what CellGrid::RowHidden hides. What it goes by is what the clerk sees of a
// cell: the displayed text without blanks around it; 是 or 否 in a column of ticks, where an empty cell is 否.
// A text that is not named is not shown, also when it comes later.
//
// The row that the clerk is in never vanishes under him. The current row stays shown, and so do rows that were
// added or written to, and those that an undo, code or 转到行 leads to, until another row becomes the current one:
// then just these rows are looked at anew. Where no row is left the current cell stays in a row that is not seen;
// neither editor nor command touches it there.
//
// A filter ends with its column (Cols), where the column's format or type becomes another one, and where other rows
// come in the place of all: Clear, ReadProperties, Recover.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "kxVsGrid/Event.h"

namespace kxVsGrid {

namespace clerk {
class Filters;
}

class Filters {
  public:
    explicit Filters(clerk::Filters& filters) : filters_(filters) {}

    /// Rows are shown whose text in the column is one of these, in the place of what the column was filtered by;
    /// none where none is named. An open editor is committed first: False, and nothing has changed, when its text
    /// is refused. A current row that is hidden is left for the next one that is shown, below or else above.
    /// GridError outside 0 to Cols() - 1. Takes a time that grows with the rows.
    bool Show(std::int32_t Col, const std::vector<std::string>& texts);
    /// The column filters no more; all columns. The current cell is brought into view. False as above.
    bool ShowAll(std::int32_t Col);
    bool ShowAll();
    /// Some column filters; this one does.
    bool On() const;
    bool On(std::int32_t Col) const;
    /// What Show was told, in any order; empty for a column that does not filter.
    std::vector<std::string> Shown(std::int32_t Col) const;
    /// How many rows would be shown but for the filters.
    std::int32_t HiddenRows() const;
    /// A filter has come, changed or ended, or rows that were looked at anew have been hidden or shown.
    Event<> Changed;

  private:
    clerk::Filters& filters_;
};
}  // namespace kxVsGrid

// A cell of a sheet that is not as it has to be.
//
//     if (const auto fault = sheet.firstFault()) {
//         fault->show();
//         status.text = fault->text();
//     }
#pragma once

#include <cstdint>
#include <functional>
#include <stdexcept>
#include <string>

#include "kxVsGrid/Members.h"
#include "kxVsGrid/RowId.h"

namespace kxVsGrid {

enum class FaultKind {
    Rule,        ///< a rule of the host's is broken
    Missing,     ///< nothing stands where something has to, or a 0 where none may
    Unreadable,  ///< the text is no value of its column
    Unknown,     ///< a code that is not found, or a text that is none of the constants
    Computed     ///< what is computed cannot be
};

struct Fault {
    std::int32_t row = 0;  ///< zero-based, in the grid; -1, as the column, where no single cell is wrong
    std::int32_t col = 0;
    std::string where;   ///< for the clerk: 第 3 行的数量; empty where no place has to be named
    std::string reason;  ///< for the clerk, without the place

    std::string text() const { return where.empty() ? reason : where + "：" + reason; }
    /// Makes the cell the current one, and brings it into view. True when the clerk has been told as well: by the
    /// control, where something is missing in a column that insists on it. Nothing where the sheet has gone.
    bool show() const { return go && go(); }
    std::function<bool()> go;
    FaultKind kind = FaultKind::Rule;
    std::string caption;  ///< of the column
};

/// Thrown by what writes the changes of Sheet::save, of a line that cannot be saved as it is: somebody else has changed
/// it for instance. save() takes the clerk there, and answers the line and the reason.
class LineRefused : public std::runtime_error {
  public:
    LineRefused(RowId line, const std::string& reason) : std::runtime_error(reason), row(line) {}
    RowId row;
};

/// A cell holds a text that is no value of its column; what() names the cell.
class UnreadableCell : public GridError {
  public:
    explicit UnreadableCell(const Fault& where) : GridError(where.text()), fault(where) {}
    Fault fault;
};
}  // namespace kxVsGrid

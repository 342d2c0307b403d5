// The rows of a draft as its lines leave them, apart from any grid that is in use.
#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "cellgrid/store/RunList.h"
#include "changes/DraftFormat.h"
#include "kxVsGrid/CellGrid.h"

namespace kxVsGrid::changes {

/// How many rows there are, and of which of them all is known.
class DraftRows {
  public:
    struct Change {
        enum class Kind { Added, Removed, Reordered };
        Kind kind;
        std::int32_t at;
        std::int32_t count;
        std::vector<DraftStretch> order = {};  ///< of those that changed places
    };

    DraftRows(std::int32_t rows, std::int32_t fixedRows) : rows_(rows), fixedRows_(fixedRows) {}

    std::int32_t count() const { return rows_; }
    std::int32_t fixed() const { return fixedRows_; }
    bool knows(std::int32_t row) const { return known_.at(row); }
    bool knowsAll() const;
    /// In their order.
    const std::vector<Change>& changes() const { return changes_; }

    void add(std::int32_t at, std::int32_t count);
    void remove(std::int32_t at, std::int32_t count);
    void reorder(std::int32_t first, const std::vector<DraftStretch>& order);
    void know(std::int32_t first, std::int32_t count) { known_.set(first, count, true); }

  private:
    std::int32_t rows_;
    std::int32_t fixedRows_;
    cellgrid::SparseRuns<bool> known_;
    std::vector<Change> changes_;
};

class DraftTable {
  public:
    DraftTable(std::int32_t rows, std::int32_t fixedRows, std::int32_t cols);

    // --- What the lines say. Places have to be there; `rows` is as it is before the change.
    void write(const DraftRows& rows, std::int32_t row, std::int32_t col, CellPart part,
               std::string_view text);
    void add(std::int32_t at, std::int32_t count);
    void remove(std::int32_t at, std::int32_t count);
    void reorder(std::int32_t first, const std::vector<DraftStretch>& order);
    void clear(std::int32_t first, std::int32_t last);

    /// Makes the grid like this, raising no CellChanged. `document`: it holds what the draft began with; the
    /// same rows are added, removed and moved then, so that those that stay are the same ones. Rows that are
    /// not known keep what they hold but for what was written to them.
    void putInto(CellGrid& grid, const DraftRows& rows, bool document) const;

  private:
    void emptyOthers(CellGrid& grid, const DraftRows& rows) const;
    void writeCells(CellGrid& grid) const;
    void writePatches(CellGrid& grid, const DraftRows& rows) const;

    CellGrid cells_;
    /// What was written to rows that are not known: columns and parts.
    std::map<RowId, std::map<std::pair<std::int32_t, CellPart>, std::string>> patches_;
};
}  // namespace kxVsGrid::changes

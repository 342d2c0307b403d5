// The rows of a draft as its lines leave them, apart from any grid that is in use.
#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <utility>
#include <vector>

#include "changes/DraftFrontier.h"
#include "kxVsGrid/CellGrid.h"

namespace kxVsGrid::changes {

class DraftTable {
  public:
    DraftTable(std::int32_t rows, std::int32_t fixedRows, std::int32_t cols);

    std::int32_t rows() const { return cells_.Rows(); }
    /// The first row of the next slice.
    std::int32_t given() const { return given_.row(); }

    // --- What the lines say; places have to be there.
    void write(std::int32_t row, std::int32_t col, CellPart part, std::string_view text);
    void add(std::int32_t at, std::int32_t count);
    void remove(std::int32_t at, std::int32_t count);
    void clear(std::int32_t first, std::int32_t last);
    /// The `count` rows from given() on hold what is written to them from here on, and nothing else.
    void beginSlice(std::int32_t count);

    /// Makes the grid like this. `document`: it holds what the draft began with; the same rows are added and
    /// removed then, so that those that stay are the same ones. Rows that the draft does not know keep what
    /// they hold but for what was written to them.
    void putInto(CellGrid& grid, bool document) const;

  private:
    struct RowChange {
        bool added;
        std::int32_t at;
        std::int32_t count;
    };
    bool knows(std::int32_t row) const;
    void changeRows(CellGrid& grid) const;
    bool writeCells(CellGrid& grid) const;
    bool writeKnown(CellGrid& grid) const;
    bool emptyOthers(CellGrid& grid) const;
    bool writePatches(CellGrid& grid) const;

    CellGrid cells_;
    // Rows whose contents are known whole: those that were given, those that were added at the end, and others
    // by id.
    DraftFrontier given_;
    DraftFrontier appended_;
    std::unordered_set<RowId> known_;
    /// What was written to rows that are not: columns and parts.
    std::map<RowId, std::map<std::pair<std::int32_t, CellPart>, std::string>> patches_;
    std::vector<RowChange> rowChanges_;
};
}  // namespace kxVsGrid::changes

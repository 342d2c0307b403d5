// All texts and tags of a grid when it was saved, by row: what has changed since is found by comparing.
#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <map>
#include <ostream>
#include <string>
#include <utility>
#include <vector>

#include "kxVsGrid/kxGrid.h"

namespace kxVsGrid::testing {

/// Lines that were added, changed and removed, as one text.
struct Difference {
    std::string lines;
    friend bool operator==(const Difference&, const Difference&) = default;
    friend std::ostream& operator<<(std::ostream& out, const Difference& difference) {
        return out << (difference.lines.empty() ? "nothing" : difference.lines);
    }
    void add(const char* what, RowId row, const std::string& cells = {}) {
        lines += std::string(what) + std::to_string(static_cast<std::uint64_t>(row)) + cells + "\n";
    }
    static std::string removedCell(std::int32_t col, const std::string& text, const std::string& tag) {
        return " " + std::to_string(col) + "='" + text + "','" + tag + "'";
    }
    static std::string changedCell(std::int32_t col, const char* part, const std::string& before) {
        return " " + std::to_string(col) + part + "='" + before + "'";
    }
};

class SavedCopy {
  public:
    explicit SavedCopy(kxGrid& grid) : grid_(grid) {}
    void take() {
        rows_.clear();
        for (std::int32_t row = cells().FixedRows(); row < cells().Rows(); ++row)
            rows_[cells().IdOf(row)] = lineOf(row);
    }
    Difference difference() {
        Difference found;
        for (std::int32_t row = cells().FixedRows(); row < cells().Rows(); ++row)
            if (!lineOf(row).empty() && asSaved(row).empty()) found.add("added ", cells().IdOf(row));
        for (std::int32_t row = cells().FixedRows(); row < cells().Rows(); ++row) {
            const Line now = lineOf(row);
            const Line then = asSaved(row);
            if (!now.empty() && !then.empty() && now != then)
                found.add("changed ", cells().IdOf(row), differing(then, now));
        }
        for (const auto& [row, line] : rows_) {
            const std::int32_t place = cells().RowOf(row);
            if (line.empty() || (place >= 0 && !lineOf(place).empty())) continue;
            std::string gone;
            for (const auto& [col, cell] : line)
                gone += Difference::removedCell(col, cell.first, cell.second);
            found.add("removed ", row, gone);
        }
        return found;
    }

  private:
    using Line = std::map<std::int32_t, std::pair<std::string, std::string>>;  ///< cells that hold something

    CellGrid& cells() { return grid_.Grid(); }
    Line lineOf(std::int32_t row) {
        Line line;
        for (std::int32_t col = cells().FixedCols(); col < cells().Cols(); ++col) {
            const std::pair cell{cells().Text(row, col), cells().Data(row, col)};
            if (cell != std::pair<std::string, std::string>()) line[col] = cell;
        }
        return line;
    }
    Line asSaved(std::int32_t row) {
        const auto found = rows_.find(cells().IdOf(row));
        return found == rows_.end() ? Line{} : found->second;
    }
    static std::string differing(Line then, Line now) {
        std::string cells;
        Line cols = then;
        cols.insert(now.begin(), now.end());
        for (const auto& [col, any] : cols) {
            if (then[col].first != now[col].first)
                cells += Difference::changedCell(col, "text", then[col].first);
            if (then[col].second != now[col].second)
                cells += Difference::changedCell(col, "tag", then[col].second);
        }
        return cells;
    }

    kxGrid& grid_;
    std::map<RowId, Line> rows_;
};

/// What the grid's log tells.
inline Difference logged(kxGrid& grid) {
    Difference told;
    for (const RowId row : grid.Changes().Added()) told.add("added ", row);
    for (const ChangedRow& row : grid.Changes().Changed()) {
        std::string cells;
        for (const ChangedCell& cell : row.cells)
            cells +=
                Difference::changedCell(cell.col, cell.part == CellPart::Text ? "text" : "tag", cell.before);
        told.add("changed ", row.row, cells);
    }
    for (const RemovedRow& row : grid.Changes().Removed()) {
        std::string cells;
        for (const RemovedCell& cell : row.cells)
            cells += Difference::removedCell(cell.col, cell.text, cell.tag);
        told.add("removed ", row.row, cells);
    }
    return told;
}
}  // namespace kxVsGrid::testing

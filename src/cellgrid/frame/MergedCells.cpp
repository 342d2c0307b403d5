#include "cellgrid/frame/MergedCells.h"

#include <algorithm>
#include <string>

namespace kxVsGrid::cellgrid {
namespace {

bool anyMerges(const CellGrid& grid, std::span<const Band> rows, std::span<const Band> cols) {
    return std::any_of(rows.begin(), rows.end(), [&](const Band& row) { return grid.MergeRow(row.index); }) ||
           std::any_of(cols.begin(), cols.end(), [&](const Band& col) { return grid.MergeCol(col.index); });
}

/// Two shown bands that nothing scrolled away lies between.
bool neighbours(const Band& before, const Band& after) {
    return before.still == after.still || before.index + 1 == after.index;
}
}  // namespace

/// The texts and merge settings of the cells, read once.
class MergedCells::Finder {
  public:
    Finder(const CellGrid& grid, std::span<const Band> rows, std::span<const Band> cols)
        : rows_(rows), cols_(cols) {
        texts_.reserve(rows.size() * cols.size());
        for (const Band& row : rows) {
            mergeRow_.push_back(grid.MergeRow(row.index));
            for (const Band& col : cols)
                texts_.push_back(row.fixed ? grid.Text(row.index, col.index)
                                           : grid.DisplayText(row.index, col.index));
        }
        for (const Band& col : cols) mergeCol_.push_back(grid.MergeCol(col.index));
    }

    /// The largest block that begins with the cell: as far to the right, then as far down as it goes.
    MergedBlock blockFrom(std::size_t row, std::size_t col, const MergedCells& merged) const {
        MergedBlock block{row, row, col, col};
        if (text(row, col).empty()) return block;
        while (mergeRow_[row] && block.lastCol + 1 < cols_.size() && joinsRight(block, merged))
            ++block.lastCol;
        while (block.lastRow + 1 < rows_.size() && joinsBelow(block, merged)) ++block.lastRow;
        return block;
    }

  private:
    const std::string& text(std::size_t row, std::size_t col) const {
        return texts_[row * cols_.size() + col];
    }

    bool joinsRight(const MergedBlock& block, const MergedCells& merged) const {
        const std::size_t next = block.lastCol + 1;
        return neighbours(cols_[block.lastCol], cols_[next]) && !merged.covers(block.firstRow, next) &&
               text(block.firstRow, next) == text(block.firstRow, block.firstCol);
    }

    bool joinsBelow(const MergedBlock& block, const MergedCells& merged) const {
        const std::size_t next = block.lastRow + 1;
        if (!neighbours(rows_[block.lastRow], rows_[next])) return false;
        if (block.lastCol > block.firstCol && !mergeRow_[next]) return false;
        for (std::size_t col = block.firstCol; col <= block.lastCol; ++col)
            if (!mergeCol_[col] || merged.covers(next, col) ||
                text(next, col) != text(block.firstRow, block.firstCol))
                return false;
        return true;
    }

    std::span<const Band> rows_;
    std::span<const Band> cols_;
    std::vector<std::string> texts_;
    std::vector<bool> mergeRow_;
    std::vector<bool> mergeCol_;
};

MergedCells::MergedCells(const CellGrid& grid, std::span<const Band> rows, std::span<const Band> cols)
    : cols_(cols.size()) {
    if (grid.MergeCells() != flexMergeFixedOnly || !anyMerges(grid, rows, cols)) return;
    const Finder finder(grid, rows, cols);
    covered_.assign(rows.size() * cols.size(), false);
    for (std::size_t row = 0; row < rows.size(); ++row) {
        for (std::size_t col = 0; col < cols.size(); ++col) {
            if (covers(row, col)) continue;
            const MergedBlock block = finder.blockFrom(row, col, *this);
            if (block.lastRow == row && block.lastCol == col) continue;
            blocks_.push_back(block);
            for (std::size_t r = block.firstRow; r <= block.lastRow; ++r)
                for (std::size_t c = block.firstCol; c <= block.lastCol; ++c) covered_[r * cols_ + c] = true;
        }
    }
}
}  // namespace kxVsGrid::cellgrid

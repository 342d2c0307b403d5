#include "changes/DraftTable.h"

#include <algorithm>

namespace kxVsGrid::changes {
namespace {

void addRows(CellGrid& grid, std::int32_t at, std::int32_t count) {
    if (at == grid.Rows()) return grid.Rows(at + count);
    for (std::int32_t i = 0; i < count; ++i) grid.InsertRow(at);
}

void removeRows(CellGrid& grid, std::int32_t at, std::int32_t count) {
    if (at + count == grid.Rows()) return grid.Rows(at);
    for (std::int32_t i = 0; i < count; ++i) grid.RemoveRow(at);
}
}  // namespace

DraftTable::DraftTable(std::int32_t rows, std::int32_t fixedRows, std::int32_t cols) {
    cells_.FixedCols(0);
    cells_.FixedRows(0);
    cells_.Cols(cols);
    cells_.Rows(rows);
    cells_.FixedRows(fixedRows);
    given_.start(fixedRows);
    appended_.start(rows);
}

bool DraftTable::knows(std::int32_t row) const {
    if (row < given_.row() || row >= appended_.row()) return true;
    return !known_.empty() && known_.contains(cells_.KnownId(row));
}

// --- What the lines say

void DraftTable::write(std::int32_t row, std::int32_t col, CellPart part, std::string_view text) {
    if (!knows(row)) {
        patches_[cells_.IdOf(row)][{col, part}] = text;
        return;
    }
    if (part == CellPart::Text)
        cells_.Text(row, col, text);
    else
        cells_.Data(row, col, text);
}

void DraftTable::add(std::int32_t at, std::int32_t count) {
    given_.added(at, count);
    appended_.added(at, count);
    addRows(cells_, at, count);
    for (std::int32_t row = at; row < at + count && !knows(row); ++row) known_.insert(cells_.IdOf(row));
    rowChanges_.push_back({true, at, count});
}

void DraftTable::remove(std::int32_t at, std::int32_t count) {
    given_.removing(at, count);
    appended_.removing(at, count);
    removeRows(cells_, at, count);
    rowChanges_.push_back({false, at, count});
}

void DraftTable::clear(std::int32_t first, std::int32_t last) {
    cells_.ClearText(first, last);
    const std::int32_t unknownEnd = std::min(last + 1, appended_.row());
    for (std::int32_t row = std::max(first, given_.row()); row < unknownEnd; ++row)
        known_.insert(cells_.IdOf(row));
}

void DraftTable::beginSlice(std::int32_t count) {
    cells_.ClearText(given_.row(), given_.row() + count - 1);
    given_.passed(given_.row() + count);
}

// --- Into a grid

void DraftTable::putInto(CellGrid& grid, bool document) const {
    if (document) {
        changeRows(grid);
    } else {
        grid.Rows(cells_.FixedRows());
        grid.Rows(cells_.Rows());
    }
    // A handler that hears of a cell may have written to others.
    if (writeCells(grid) && grid.CellChanged.heard()) writeCells(grid);
}

void DraftTable::changeRows(CellGrid& grid) const {
    for (const RowChange& change : rowChanges_)
        (change.added ? addRows : removeRows)(grid, change.at, change.count);
}

/// Whether any differed.
bool DraftTable::writeCells(CellGrid& grid) const {
    const bool emptied = emptyOthers(grid);
    const bool wrote = writeKnown(grid);
    return writePatches(grid) || wrote || emptied;
}

bool DraftTable::emptyOthers(CellGrid& grid) const {
    if (grid.Rows() <= grid.FixedRows()) return false;
    std::vector<std::pair<std::int32_t, std::int32_t>> others;
    grid.ForEachCell(grid.FixedRows(), grid.Rows() - 1, [&](auto row, auto col, auto, auto) {
        if (row < cells_.Rows() && knows(row) && cells_.Text(row, col).empty() &&
            cells_.Data(row, col).empty())
            others.emplace_back(row, col);
    });
    for (const auto& [row, col] : others) grid.Cell(row, col, {}, {});
    return !others.empty();
}

bool DraftTable::writeKnown(CellGrid& grid) const {
    bool wrote = false;
    if (cells_.Rows() <= cells_.FixedRows()) return wrote;
    cells_.ForEachCell(cells_.FixedRows(), cells_.Rows() - 1, [&](auto row, auto col, auto text, auto tag) {
        if (row >= grid.Rows() || (grid.Text(row, col) == text && grid.Data(row, col) == tag)) return;
        grid.Cell(row, col, text, tag);
        wrote = true;
    });
    return wrote;
}

bool DraftTable::writePatches(CellGrid& grid) const {
    bool wrote = false;
    for (const auto& [id, cells] : patches_) {
        const std::int32_t row = cells_.RowOf(id);
        if (row < 0 || row >= grid.Rows() || knows(row)) continue;
        for (const auto& [place, text] : cells) {
            const auto [col, part] = place;
            if (part == CellPart::Text ? grid.Text(row, col) == text : grid.Data(row, col) == text) continue;
            part == CellPart::Text ? grid.Text(row, col, text) : grid.Data(row, col, text);
            wrote = true;
        }
    }
    return wrote;
}
}  // namespace kxVsGrid::changes

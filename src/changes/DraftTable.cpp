#include "changes/DraftTable.h"

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

std::vector<std::int32_t> fromOf(const std::vector<DraftStretch>& order) {
    std::vector<std::int32_t> from;
    for (const DraftStretch& stretch : order)
        for (std::int32_t i = 0; i < stretch.count; ++i) from.push_back(stretch.row + i);
    return from;
}

void apply(CellGrid& grid, const DraftRows::Change& change) {
    if (change.kind == DraftRows::Change::Kind::Added)
        addRows(grid, change.at, change.count);
    else if (change.kind == DraftRows::Change::Kind::Removed)
        removeRows(grid, change.at, change.count);
    else
        grid.Reorder(change.at, fromOf(change.order));
}

void put(CellGrid& grid, std::int32_t row, std::int32_t col, CellPart part, std::string_view text) {
    if (row >= grid.Rows() || col >= grid.Cols()) return;
    if (part == CellPart::Tag)
        grid.RestoreData(row, col, text);
    else if (grid.Text(row, col) != text)
        grid.RestoreText(row, col, text);
}
}  // namespace

// --- Rows

bool DraftRows::knowsAll() const {
    cellgrid::SparseRuns<bool> known = known_;
    bool all = true;
    known.transform(fixedRows_, rows_ - fixedRows_, [&all](bool one) {
        all = all && one;
        return one;
    });
    return all;
}

/// Rows that came hold nothing but what is written to them from then on.
void DraftRows::add(std::int32_t at, std::int32_t count) {
    known_.insert(at, count);
    know(at, count);
    rows_ += count;
    changes_.push_back({Change::Kind::Added, at, count});
}

void DraftRows::remove(std::int32_t at, std::int32_t count) {
    known_.remove(at, count);
    rows_ -= count;
    changes_.push_back({Change::Kind::Removed, at, count});
}

void DraftRows::reorder(std::int32_t first, const std::vector<DraftStretch>& order) {
    if (auto known = known_.prepareReorder(first, fromOf(order))) known_.replace(*known);
    changes_.push_back({Change::Kind::Reordered, first, 0, order});
}

// --- What the lines say

DraftTable::DraftTable(std::int32_t rows, std::int32_t fixedRows, std::int32_t cols) {
    cells_.FixedCols(0);
    cells_.FixedRows(0);
    cells_.Cols(cols);
    cells_.Rows(rows);
    cells_.FixedRows(fixedRows);
}

void DraftTable::write(const DraftRows& rows, std::int32_t row, std::int32_t col, CellPart part,
                       std::string_view text) {
    if (!rows.knows(row))
        patches_[cells_.IdOf(row)][{col, part}] = text;
    else if (part == CellPart::Text)
        cells_.Text(row, col, text);
    else
        cells_.Data(row, col, text);
}

void DraftTable::add(std::int32_t at, std::int32_t count) {
    addRows(cells_, at, count);
}

void DraftTable::remove(std::int32_t at, std::int32_t count) {
    removeRows(cells_, at, count);
}

void DraftTable::reorder(std::int32_t first, const std::vector<DraftStretch>& order) {
    cells_.Reorder(first, fromOf(order));
}

void DraftTable::clear(std::int32_t first, std::int32_t last) {
    cells_.ClearText(first, last);
}

// --- Into a grid

void DraftTable::putInto(CellGrid& grid, const DraftRows& rows, bool document) const {
    if (document) {
        for (const DraftRows::Change& change : rows.changes()) apply(grid, change);
    } else {
        grid.Rows(rows.fixed());
        grid.Rows(rows.count());
    }
    emptyOthers(grid, rows);
    writeCells(grid);
    writePatches(grid, rows);
}

void DraftTable::emptyOthers(CellGrid& grid, const DraftRows& rows) const {
    if (grid.Rows() <= grid.FixedRows()) return;
    std::vector<std::pair<std::int32_t, std::int32_t>> others;
    grid.ForEachCell(grid.FixedRows(), grid.Rows() - 1, [&](auto row, auto col, auto, auto) {
        if (row < cells_.Rows() && col < cells_.Cols() && rows.knows(row) && cells_.Text(row, col).empty() &&
            cells_.Data(row, col).empty())
            others.emplace_back(row, col);
    });
    for (const auto& [row, col] : others) {
        put(grid, row, col, CellPart::Tag, {});
        put(grid, row, col, CellPart::Text, {});
    }
}

void DraftTable::writeCells(CellGrid& grid) const {
    if (cells_.Rows() <= cells_.FixedRows()) return;
    cells_.ForEachCell(cells_.FixedRows(), cells_.Rows() - 1, [&](auto row, auto col, auto text, auto tag) {
        put(grid, row, col, CellPart::Tag, tag);
        put(grid, row, col, CellPart::Text, text);
    });
}

void DraftTable::writePatches(CellGrid& grid, const DraftRows& rows) const {
    for (const auto& [id, cells] : patches_) {
        const std::int32_t row = cells_.RowOf(id);
        if (row < 0 || rows.knows(row)) continue;
        for (const auto& [place, text] : cells) put(grid, row, place.first, place.second, text);
    }
}
}  // namespace kxVsGrid::changes

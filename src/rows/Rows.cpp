#include "rows/Rows.h"

#include <algorithm>
#include <string>

#include "columns/ColumnColors.h"
#include "rows/DefaultTexts.h"
#include "rows/PairWrite.h"
#include "support/FirstFault.h"
#include "support/FlagSpan.h"

namespace kxVsGrid::rows {
namespace {

using totals::TotalRow;

constexpr std::int32_t NewRowHeight = 300;
/// An emptied grid keeps this many data rows to key into.
constexpr std::int32_t FewestDataRows = 5;

std::string_view nameOf(bool inside, bool copies) {
    if (copies) return inside ? "复制插入行" : "复制行";
    return inside ? "插入行" : "新增行";
}
}  // namespace

// --- Coming

void Rows::add(std::int32_t position, bool withDefaults, bool copyData) {
    bool consent = true;
    c_.host.raise(&GridEvents::AddVsRow, c_.grid.Row(), consent);
    if (!consent) return;
    c_.steps.during(nameOf(position < c_.grid.Rows(), copyData), Cause::Rows,
                    [&] { addInStep(position, withDefaults, copyData); });
}

void Rows::addInStep(std::int32_t position, bool withDefaults, bool copyData) {
    CellGrid& grid = c_.grid;
    support::FlagSpan automatic(AutoDefault_, withDefaults, true);
    const std::int32_t col = grid.Col();
    const std::int32_t current = grid.Row();
    position = insert(position);
    const FollowedRow made(follower_, position);
    const FollowedRow source(follower_, current < position ? current : current + 1);
    show(position);
    if (grid.Col() >= 0 && made.there()) grid.Row(made.row());
    grid.NumberRows();

    if (copyData) {
        copy(source, made);
    } else if (grid.Col() == col && withDefaults && made.there()) {
        entered(made.row());  // wherever the current cell is: told as a move of it to itself
        c_.host.raise(&GridEvents::AfterRowColChange, grid.Row(), grid.Col(), grid.Row(), grid.Col());
    }

    bool keep = false;
    c_.host.raise(&GridEvents::AfterAddRow, keep, made.row(), copyData, source.row());
    if (copyData && !keep) empty(made);
    c_.totals.recalculate(TotalRow::AllColumns);
}

void Rows::append() {
    CellGrid& grid = c_.grid;
    bool consent = false;
    c_.host.raise(&GridEvents::AddVsRow, grid.Row(), consent);
    if (!consent) return;
    c_.steps.during("新增行", Cause::Rows, [&] {
        appendEmpty();
        const std::int32_t row = grid.Rows() - 1;
        show(row);
        if (grid.Col() >= 0) grid.Row(row);
        grid.NumberRows();
    });
}

void Rows::appendIfLast(std::int32_t row) {
    if (row < c_.grid.Rows() - 1) return;
    bool consent = false;
    c_.host.raise(&GridEvents::AddVsRow, row, consent);
    if (!consent) return;
    c_.steps.during("新增行", Cause::Rows, [&] {
        appendEmpty();
        c_.grid.NumberRows();
    });
    c_.steps.keepPrelude();
}

/// A row never goes in between the fixed ones; a host that took rows away meanwhile gets it after the last
/// one.
std::int32_t Rows::insert(std::int32_t position) {
    CellGrid& grid = c_.grid;
    position = std::clamp(position, grid.FixedRows(), grid.Rows());
    {
        const TotalRow::EmptyRows emptyRow(c_.totals);
        grid.InsertRow(position);
    }
    grid.RowHeight(position, NewRowHeight);
    columns::paintRow(grid, c_.columns, position);
    return position;
}

void Rows::show(std::int32_t row) {
    CellGrid& grid = c_.grid;
    if (!grid.RowIsVisible(row)) grid.BringRowIntoView(row, grid.ClientHeight() - grid.BottomStrip());
}

/// A host that takes one of the rows away as it hears of a change ends the copy.
void Rows::copy(const FollowedRow& from, const FollowedRow& to) {
    for (std::int32_t c = c_.grid.FixedCols(); c < c_.grid.Cols() && from.there() && to.there(); ++c)
        copyCell(from, to, c);
}

void Rows::copyCell(const FollowedRow& from, const FollowedRow& to, std::int32_t col) {
    CellGrid& grid = c_.grid;
    const PairWrite pair(grid, follower_, to.row(), col);
    const std::string tag = grid.Data(from.row(), col);
    pair.during(tag, [&] {
        grid.Data(to.row(), col, tag);
        if (from.there() && to.there() && col < grid.Cols())
            grid.Text(to.row(), col, grid.Text(from.row(), col));
        else
            pair.putBack(tag);
    });
}

void Rows::empty(const FollowedRow& row) {
    CellGrid& grid = c_.grid;
    for (std::int32_t c = grid.FixedCols(); c < grid.Cols() && row.there(); ++c) {
        const PairWrite pair(grid, follower_, row.row(), c);
        pair.during("", [&] {
            grid.Data(row.row(), c, "");
            if (row.there() && c < grid.Cols()) grid.Text(row.row(), c, "");
        });
    }
}

void Rows::entered(std::int32_t row) {
    c_.wheel.moved();
    if (c_.flags.Editable && AutoDefault_ && !c_.steps.restoring() && row > c_.grid.FixedRows()) {
        const bool currentWritten = fillDefaultTexts(c_.grid, c_.columns, c_.defaulted, follower_, row);
        if (currentWritten) c_.editor.captureAndLoad();  // what was filled in is not checked unchanged
    }
    c_.totals.recalculate(TotalRow::AllColumns);
}

// --- Going

bool Rows::mayRemove(std::int32_t row) {
    bool consent = false;
    c_.host.raise(&GridEvents::DeleteVsRow, row, consent);
    return consent && c_.grid.Rows() > c_.grid.FixedRows();
}

/// Not one that a filter hides.
void Rows::removeCurrent() {
    if (c_.grid.Row() >= 0 && c_.grid.RowFiltered(c_.grid.Row())) return;
    if (mayRemove(c_.grid.Row()) && c_.grid.Row() >= c_.grid.FixedRows()) remove(c_.grid.Row());
}

void Rows::remove(std::int32_t row) {
    const FollowedRow followed(follower_, row);
    c_.steps.during("删除行", Cause::Rows, [&] { removeInStep(followed); });
}

void Rows::removeInStep(const FollowedRow& row) {
    CellGrid& grid = c_.grid;
    // the only data row gives way to the first of those that refill the grid, not to a header
    if (grid.Rows() == grid.FixedRows() + 1) appendEmpty();
    grid.RemoveRow(row.row());
    c_.editor.captureAndLoad();
    c_.totals.recalculate(TotalRow::AllColumns);
    refill();
    grid.NumberRows();
    c_.host.raise(&GridEvents::AfterDeleteVsRow);
}

void Rows::count(std::int32_t rows) {
    CellGrid& grid = c_.grid;
    support::FirstFault fault;
    fault.during([&] {
        rows = std::max(rows, grid.FixedRows());
        if (rows < grid.Rows()) return grid.Rows(rows);
        const TotalRow::EmptyRows emptyRows(c_.totals);
        grid.Rows(rows);
    });
    if (!refill()) fault.raise();
    grid.NumberRows();
    follow();
    fault.raise();
}

void Rows::replaced() {
    refill();
    follow();
}

/// What depends on which rows there are.
void Rows::follow() {
    columns::paintColumns(c_.grid, c_.columns);
    c_.totals.recalculate(TotalRow::AllColumns);
    c_.wheel.rowsChanged();
}

/// False when there were enough.
bool Rows::refill() {
    const std::int32_t fewest = c_.grid.FixedRows() + FewestDataRows;
    if (c_.grid.Rows() >= fewest) return false;
    while (c_.grid.Rows() < fewest) appendEmpty();
    return true;
}
}  // namespace kxVsGrid::rows

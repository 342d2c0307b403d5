#include "grid/events/Keys.h"

#include <algorithm>

#include "editing/NextCell.h"
#include "grid/columns/EditableColumn.h"
#include "grid/events/RowAdder.h"
#include "support/Span.h"

namespace kxVsGrid::events {
namespace {

constexpr std::int16_t EnterCharacter = 13;
constexpr std::int16_t LastControlCharacter = 32;

bool isPrintable(std::int16_t ascii) {
    return ascii > LastControlCharacter || ascii < 0;
}
}  // namespace

void Keys::keyDown(std::int16_t& code) {
    if (!c_.flags.Editable) return;
    if (code == static_cast<std::int16_t>(Key::Insert)) insertRow();
    if (code == static_cast<std::int16_t>(Key::Delete)) deleteRow();
    if (code == static_cast<std::int16_t>(Key::F2) && editsHere()) {
        code = 0;
        editWithHelp();
    }
}

bool Keys::editsHere() {
    const CellGrid& grid = c_.grid;
    return c_.flags.Editable && columns::isEditableCell(grid, c_.columns, grid.Row(), grid.Col());
}

void Keys::editWithHelp() {
    if (!c_.editor.visible()) rows_.appendIfLast(c_.grid.Row());
    c_.editor.open();
    if (c_.editor.visible() && c_.columns.at(c_.grid.Col()).b是否提供帮助()) c_.editor.help();
}

bool Keys::asksTheHost(std::int16_t code) const {
    if (!c_.flags.Editable) return false;
    if (code == static_cast<std::int16_t>(Key::Insert)) return c_.host.hears(&GridEvents::AddVsRow);
    return code == static_cast<std::int16_t>(Key::Delete) && c_.host.hears(&GridEvents::DeleteVsRow);
}

/// Always at the end; the row commands insert at the current row.
void Keys::insertRow() {
    CellGrid& grid = c_.grid;
    bool consent = false;
    c_.host.raise(&GridEvents::AddVsRow, grid.Row(), consent);
    if (!consent) return;
    rows_.appendEmptyRow();
    const std::int32_t row = grid.Rows() - 1;
    if (!grid.RowIsVisible(row))
        grid.TopRow(grid.TopRowToShow(row, grid.ClientHeight() - grid.BottomStrip()));
    if (grid.Col() >= 0) grid.Row(row);
    grid.NumberRows();
}

void Keys::deleteRow() {
    CellGrid& grid = c_.grid;
    bool consent = false;
    c_.host.raise(&GridEvents::DeleteVsRow, grid.Row(), consent);
    if (!consent || grid.Rows() <= grid.FixedRows() || grid.Row() < grid.FixedRows()) return;
    // the only data row gives way to the first of those that refill the grid, not to a header
    if (grid.Rows() == grid.FixedRows() + 1) rows_.appendEmptyRow();
    grid.RemoveRow(grid.Row());
    c_.editor.captureAndLoad();
    c_.totals.recalculate(grid::TotalRow::AllColumns);
    rows_.refill();
    grid.NumberRows();
    c_.host.raise(&GridEvents::AfterDeleteVsRow);
}

bool Keys::isBoolean(std::int32_t col) {
    return c_.columns.at(col).iType() == flexDTBoolean;
}

void Keys::keyPress(std::int16_t& ascii, std::string_view typed) {
    CellGrid& grid = c_.grid;
    if (!c_.flags.Editable || grid.Col() < 0) return;
    if (!c_.columns.at(grid.Col()).bIsEditable()) {
        if (ascii != EnterCharacter || !c_.options.EnterPassesReadOnly()) return;
        // no header is an editable cell, whatever its column says
        if (grid.Row() < grid.FixedRows()) return;
    }
    if (ascii == EnterCharacter) {
        ascii = 0;
        if (const auto next = editing::nextEditableCell(grid, c_.columns)) grid.Select(next->row, next->col);
    } else if (isPrintable(ascii)) {
        if (grid.Row() < grid.FixedRows()) return;
        rows_.appendIfLast(grid.Row());
        c_.editor.open();
        passToEditor(typed);
    } else {
        if (columns::isDataCell(grid, grid.Row(), grid.Col()) && isBoolean(grid.Col()))
            rows_.appendIfLast(grid.Row());
        c_.editor.open();
    }
}

/// The typed character becomes the first one in the editor, in place of what it has selected.
void Keys::passToEditor(std::string_view typed) {
    support::Span changing(c_.moves.ChangingRow);
    if (c_.editor.visible()) c_.seat.typeIntoEditor(typed);
    c_.platform.processPendingInput();
}

bool Keys::openForTyping() {
    CellGrid& grid = c_.grid;
    if (c_.editor.visible()) return true;
    if (!editsHere() || isBoolean(grid.Col())) return false;
    rows_.appendIfLast(grid.Row());
    c_.editor.open(editing::Editor::Focus::LeaveWithGrid);
    return c_.editor.visible();
}

/// A hidden current cell is left for one that can be seen: to the left, down, or up when there is none below.
/// One move, however many hidden rows lie between.
void Keys::leaveHiddenCell() {
    CellGrid& grid = c_.grid;
    std::int32_t col = grid.Col();
    while (col > grid.FixedCols() && grid.ColHidden(col)) --col;
    std::int32_t row = grid.Row();
    if (grid.RowHidden(row)) {
        row = grid.ShownRowAfter(row);
        if (row < 0) row = std::max(grid.ShownRowBefore(grid.Row()), grid.FixedRows());
    }
    if (row < grid.Rows()) grid.Select(row, col);
}

void Keys::doubleClick(bool edits) {
    CellGrid& grid = c_.grid;
    if (edits && grid.Col() >= 0 && grid.Row() >= 0) {
        leaveHiddenCell();
        if (columns::isDataCell(grid, grid.Row(), grid.Col()) && isBoolean(grid.Col()))
            rows_.appendIfLast(grid.Row());
        if (c_.editor.visible()) c_.editor.commit();
        c_.editor.open();
    }
    c_.host.raise(&GridEvents::DblClick);
}
}  // namespace kxVsGrid::events

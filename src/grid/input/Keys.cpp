#include "grid/input/Keys.h"

#include <algorithm>

#include "columns/EditableColumn.h"
#include "editing/BringIntoView.h"
#include "editing/NextCell.h"
#include "host/CellLock.h"
#include "support/Text.h"

namespace kxVsGrid::grid {
namespace {

constexpr std::int16_t EnterCharacter = 13;
constexpr std::int16_t LastControlCharacter = 32;

bool isPrintable(std::int16_t ascii) {
    return ascii > LastControlCharacter || ascii < 0;
}
}  // namespace

void Keys::keyDown(std::int16_t& code, std::int16_t shift) {
    const auto key = static_cast<Key>(code);
    if (key == Key::Menu || (key == Key::F10 && (shift & ShiftKey) != 0)) {
        code = 0;
        // the Shift of Shift+F10 names the key
        return menus_.open(key == Key::F10 ? static_cast<std::int16_t>(shift & ~ShiftKey) : shift);
    }
    if (!c_.flags.Editable) return;
    if (key == Key::Insert) c_.rows.append();
    if (key == Key::Delete) c_.rows.removeCurrent();
    if (key == Key::F2 && c_.editor.opensHere()) {
        code = 0;
        openHelp();
    }
}

void Keys::openHelp() {
    if (!c_.editor.visible()) c_.rows.appendIfLast(c_.grid.Row());
    c_.editor.open();
    if (c_.editor.visible() && c_.columns.at(c_.grid.Col()).b是否提供帮助()) c_.editor.help();
}

bool Keys::asksTheHost(std::int16_t code) const {
    if (!c_.flags.Editable) return false;
    if (code == static_cast<std::int16_t>(Key::Insert)) return c_.host.hears(&GridEvents::AddVsRow);
    return code == static_cast<std::int16_t>(Key::Delete) && c_.host.hears(&GridEvents::DeleteVsRow);
}

bool Keys::isBoolean(std::int32_t col) {
    return c_.columns.at(col).iType() == flexDTBoolean;
}

/// Nothing is done to a row that a filter hides: the clerk does not see it.
bool Keys::isUnseen(std::int32_t row) const {
    return row >= 0 && c_.grid.RowFiltered(row);
}

void Keys::keyPress(std::int16_t& ascii, std::string_view typed) {
    CellGrid& grid = c_.grid;
    if (!c_.flags.Editable || grid.Col() < 0) return;
    if (isUnseen(grid.Row()) && ascii != EnterCharacter) return;
    const bool readOnly =
        !c_.columns.at(grid.Col()).bIsEditable() || host::isLocked(c_, grid.Row(), grid.Col());
    if (!c_.host.there() || grid.Col() < 0) return;
    if (readOnly) {
        if (ascii != EnterCharacter || !c_.options.EnterPassesReadOnly()) return;
        // no header is an editable cell, whatever its column says
        if (grid.Row() < grid.FixedRows()) return;
    }
    if (ascii == EnterCharacter) {
        ascii = 0;
        if (const auto next = editing::nextCellForEnter(c_)) grid.Select(next->row, next->col);
    } else if (isPrintable(ascii)) {
        if (grid.Row() < grid.FixedRows()) return;
        c_.rows.appendIfLast(grid.Row());
        c_.editor.open();
        passToEditor(typed.empty() ? support::utf8(static_cast<std::uint16_t>(ascii)) : std::string(typed));
    } else {
        if (columns::isDataCell(grid, grid.Row(), grid.Col()) && isBoolean(grid.Col()))
            c_.rows.appendIfLast(grid.Row());
        c_.editor.open();
    }
}

/// The typed character becomes the first one in the editor, in place of what it has selected.
void Keys::passToEditor(std::string_view typed) {
    if (c_.editor.visible()) c_.seat.typeIntoEditor(typed);
    c_.platform.processPendingInput();
}

bool Keys::openForTyping() {
    CellGrid& grid = c_.grid;
    if (c_.editor.visible()) return true;
    if (!c_.editor.opensHere() || isBoolean(grid.Col())) return false;
    c_.rows.appendIfLast(grid.Row());
    c_.editor.open(editing::EditSession::Focus::LeaveWithGrid);
    return c_.editor.visible();
}

/// A hidden current cell is left for one that can be seen: to the left, down, or up when there is none below.
/// One move, however many hidden rows lie between.
void Keys::leaveHiddenCell() {
    CellGrid& grid = c_.grid;
    std::int32_t col = grid.Col();
    while (col > grid.FixedCols() && grid.ColHidden(col)) --col;
    std::int32_t row = grid.Row();
    if (!grid.RowShown(row)) {
        row = grid.ShownRowAfter(row);
        if (row < 0) row = std::max(grid.ShownRowBefore(grid.Row()), grid.FixedRows());
    }
    if (row < grid.Rows()) grid.Select(row, col);
}

void Keys::doubleClick(bool edits) {
    CellGrid& grid = c_.grid;
    if (edits && grid.Col() >= 0 && grid.Row() >= 0) {
        leaveHiddenCell();
        if (isUnseen(grid.Row())) return c_.host.raise(&GridEvents::DblClick);
        if (columns::isDataCell(grid, grid.Row(), grid.Col()) && isBoolean(grid.Col()))
            c_.rows.appendIfLast(grid.Row());
        if (c_.editor.visible()) c_.editor.commit();
        c_.editor.open();
    }
    c_.host.raise(&GridEvents::DblClick);
}
}  // namespace kxVsGrid::grid

#include "grid/events/Navigation.h"

#include "editing/NextCell.h"
#include "grid/events/BringIntoView.h"
#include "grid/events/DefaultTexts.h"
#include "support/Span.h"

namespace kxVsGrid::events {

using support::Span;

void Navigation::gainedFocus() {
    if (c_.editor.refused() || (c_.editor.visible() && !c_.moves.MoveAllowed)) {
        c_.seat.giveFocus(FocusPlace::Editor);
        return;
    }
    leaveFixedArea();
}

void Navigation::leaveFixedArea() {
    CellGrid& grid = c_.grid;
    if (grid.Row() < grid.FixedRows() && grid.Rows() > grid.FixedRows()) {
        Span internal(c_.moves.MovingInternally);
        const std::int32_t shown = grid.ShownRowAfter(grid.FixedRows() - 1);
        grid.Select(shown < 0 ? grid.FixedRows() : shown, grid.Col());
    }
    if (grid.Col() >= 0 && grid.Col() < grid.FixedCols() && grid.FixedCols() < grid.Cols()) {
        Span internal(c_.moves.MovingInternally);
        grid.Select(grid.Row(), grid.FixedCols());
    }
}

void Navigation::beforeRowColChange(std::int32_t oldRow, std::int32_t oldCol, std::int32_t newRow,
                                    std::int32_t newCol, bool& cancel) {
    if (!c_.moves.MoveAllowed) {
        cancel = true;
        return;
    }
    c_.host.raise(&GridEvents::BeforeRowColChange, oldRow, oldCol, newRow, newCol, cancel);
}

void Navigation::leaveCell() {
    if (!c_.moves.MovingInternally) c_.editor.leaveCell();
}

void Navigation::enterCell() {
    c_.editor.enterCell();
    c_.host.raise(&GridEvents::EnterCell);
}

void Navigation::rowColChange() {
    c_.moves.ChangingRow = true;
    if (c_.moves.MovingInternally) return;  // stays set until the next change clears it
    {
        Span changing(c_.moves.ChangingRow);
        std::int16_t result = 0;
        c_.host.raise(&GridEvents::ValidData, result);
        bringCurrentRowIntoView(c_.grid);
        bringCurrentColIntoView(c_.grid);
    }
    c_.host.raise(&GridEvents::RowColChange);
}

void Navigation::afterRowColChange(std::int32_t oldRow, std::int32_t oldCol, std::int32_t newRow,
                                   std::int32_t newCol) {
    settleRow(newRow);
    c_.host.raise(&GridEvents::AfterRowColChange, oldRow, oldCol, newRow, newCol);
}

void Navigation::rowAdded(std::int32_t row) {
    settleRow(row);
    const CellGrid& grid = c_.grid;
    c_.host.raise(&GridEvents::AfterRowColChange, grid.Row(), grid.Col(), grid.Row(), grid.Col());
}

void Navigation::settleRow(std::int32_t row) {
    c_.wheel.moved();
    if (c_.flags.Editable && c_.moves.AutoDefault && row > c_.grid.FixedRows()) {
        const bool currentWritten = fillDefaultTexts(c_.grid, c_.columns, c_.defaulted, c_.follower, row);
        if (currentWritten) c_.editor.captureAndLoad();  // what was filled in is not checked unchanged
    }
    c_.totals.recalculate(grid::TotalRow::AllColumns);
}

void Navigation::scrolled(std::int32_t oldTopRow, std::int32_t oldLeftCol) {
    if (!scrollGuard_) {
        Span guard(scrollGuard_);
        if (c_.editor.visible()) c_.grid.ScrollTo(oldTopRow, oldLeftCol);
    }
    c_.editor.place();
    c_.totals.followScroll();
    c_.seat.layoutChanged();
}

bool Navigation::tab(bool forward) {
    if (c_.editor.visible() && !c_.editor.commit()) {
        if (c_.editor.visible()) c_.seat.giveFocus(FocusPlace::Editor);
        return true;
    }
    const auto next =
        forward ? editing::nextTabStop(c_.grid, c_.columns) : editing::previousTabStop(c_.grid, c_.columns);
    if (next) c_.grid.Select(next->row, next->col);
    c_.seat.giveFocus(FocusPlace::Grid);
    return next.has_value();
}
}  // namespace kxVsGrid::events

#include "grid/input/MoveEvents.h"

#include "editing/BringIntoView.h"
#include "editing/NextCell.h"
#include "support/FlagSpan.h"

namespace kxVsGrid::grid {

using support::FlagSpan;

void MoveEvents::gainedFocus() {
    if (c_.editor.refused()) return c_.seat.giveFocus(FocusPlace::Editor);
    if (!leaving_) leaveFixedArea();
}

void MoveEvents::leaveFixedArea() {
    CellGrid& grid = c_.grid;
    if (grid.Col() < 0) return;  // a grid without columns has no current cell
    if (grid.Row() < grid.FixedRows() && grid.Rows() > grid.FixedRows()) {
        FlagSpan internal(MovingInternally_);
        std::int32_t shown = grid.ShownRowAfter(grid.FixedRows() - 1);
        if (shown < 0) shown = grid.FixedRows();
        if (!grid.RowFiltered(shown)) grid.Select(shown, grid.Col());
    }
    if (grid.Col() < grid.FixedCols() && grid.FixedCols() < grid.Cols()) {
        FlagSpan internal(MovingInternally_);
        grid.Select(grid.Row(), grid.FixedCols());
    }
}

void MoveEvents::beforeRowColChange(std::int32_t oldRow, std::int32_t oldCol, std::int32_t newRow,
                                    std::int32_t newCol, bool& cancel) {
    c_.host.raise(&GridEvents::BeforeRowColChange, oldRow, oldCol, newRow, newCol, cancel);
}

void MoveEvents::leaveCell() {
    if (MovingInternally_) return;
    FlagSpan leaving(leaving_);
    c_.editor.leaveCell();
}

void MoveEvents::enterCell() {
    c_.editor.enterCell();
    c_.host.raise(&GridEvents::EnterCell);
}

void MoveEvents::rowColChange() {
    if (MovingInternally_) return;
    std::int16_t result = 0;
    c_.host.raise(&GridEvents::ValidData, result);
    editing::bringCurrentCellIntoView(c_.grid);
    c_.host.raise(&GridEvents::RowColChange);
}

void MoveEvents::afterRowColChange(std::int32_t oldRow, std::int32_t oldCol, std::int32_t newRow,
                                   std::int32_t newCol) {
    c_.steps.during("默认值", Cause::Typed, [&] { c_.rows.entered(newRow); });
    c_.host.raise(&GridEvents::AfterRowColChange, oldRow, oldCol, newRow, newCol);
}

void MoveEvents::scrolled() {
    if (!scrollGuard_) {
        FlagSpan guard(scrollGuard_);
        if (c_.editor.visible()) c_.grid.ScrollBack();
    }
    c_.editor.place();
    c_.totals.followScroll();
    c_.seat.layoutChanged();
}

bool MoveEvents::tab(bool forward) {
    c_.editor.takeSuggestion(suggest::SuggestionChoice::By::Tab);
    if (!c_.editor.commitOrStay()) return true;
    const auto next = forward ? editing::nextTabStop(c_) : editing::previousTabStop(c_);
    if (next) c_.grid.Select(next->row, next->col);
    c_.seat.giveFocus(FocusPlace::Grid);
    return next.has_value();
}
}  // namespace kxVsGrid::grid

// What is selected beside the current cell, and how the user selects it.
#include <algorithm>

#include "cellgrid/GridImpl.h"

namespace kxVsGrid {

using cellgrid::Difference;
using cellgrid::Ends;
using cellgrid::misuse;
using cellgrid::Selection;

// --- The state.

Ends CellGrid::Impl::rowEnds() const {
    if (!selection.any) return {currentRow, currentRow};
    return selection.hasRowEnds() ? selection.rows : Ends{layout.rows.fixed, rows() - 1};
}

Ends CellGrid::Impl::colEnds() const {
    if (!selection.any) return {currentCol, currentCol};
    return selection.hasColEnds() ? selection.cols : Ends{layout.cols.fixed, cols() - 1};
}

CellRange CellGrid::Impl::selected() const {
    const Ends down = rowEnds();
    const Ends across = colEnds();
    if (down.low() < layout.rows.fixed || across.low() < layout.cols.fixed) return {};
    return {down.low(), across.low(), down.high(), across.high()};
}

bool CellGrid::Impl::selectedFromCursor() const {
    return selection.any && selection.kind == SelectionKind::Cells && selection.rows.anchor == currentRow &&
           selection.cols.anchor == currentCol;
}

Selection CellGrid::Impl::selectionTo(std::int32_t row, std::int32_t col) const {
    return (selection.any ? selection : Selection::ofCells(rowEnds(), colEnds())).to(row, col);
}

/// The current cell alone is no selection.
bool CellGrid::Impl::isCursor(const Selection& some) const {
    return some == Selection::ofCells({currentRow, currentRow}, {currentCol, currentCol});
}

bool CellGrid::Impl::putSelection(Selection fresh) {
    if (isCursor(fresh)) fresh = {};
    if (fresh == selection) return false;
    const CellRange before = selection.any ? selected() : CellRange{};
    selection = fresh;
    damageSelection(before, selection.any ? selected() : CellRange{});
    return true;
}

bool CellGrid::Impl::select(const Selection& fresh) {
    if (!putSelection(fresh)) return false;
    tell(&CellGrid::SelChange);
    return true;
}

void CellGrid::Impl::tidySelection() {
    if (!selection.any) return;
    const bool left = anyData() &&
                      (!selection.hasRowEnds() || selection.rows.limit(layout.rows.fixed, rows())) &&
                      (!selection.hasColEnds() || selection.cols.limit(layout.cols.fixed, cols()));
    if (!left || isCursor(selection)) selection = {};
}

/// The cells whose tint has changed, and the headers of the rows and columns that have.
void CellGrid::Impl::damageSelection(const CellRange& before, const CellRange& after) {
    if (damage.all()) return;
    const auto damageChange = [&](const CellRange& old, const CellRange& now) {
        for (const CellRange& part : Difference(old, now)) damageRange(part);
        for (const CellRange& part : Difference(now, old)) damageRange(part);
    };
    damageChange(before, after);
    // an empty range has no headers
    const auto rowHeaders = [&](const CellRange& range) {
        return CellRange{range.firstRow, 0, range.lastRow, range.empty() ? -1 : layout.cols.fixed - 1};
    };
    const auto colHeaders = [&](const CellRange& range) {
        return CellRange{0, range.firstCol, range.empty() ? -1 : layout.rows.fixed - 1, range.lastCol};
    };
    damageChange(rowHeaders(before), rowHeaders(after));
    damageChange(colHeaders(before), colHeaders(after));
}

// --- By code.

bool CellGrid::SelectsRanges() const {
    return impl_->selectsRanges;
}
void CellGrid::SelectsRanges(bool ranges) {
    impl_->selectsRanges = ranges;
    if (!ranges) impl_->selecting.reset();
}
std::int32_t CellGrid::SelRow() const {
    return impl_->rowEnds().anchor;
}
std::int32_t CellGrid::SelCol() const {
    return impl_->colEnds().anchor;
}
std::int32_t CellGrid::RowSel() const {
    return impl_->rowEnds().corner;
}
std::int32_t CellGrid::ColSel() const {
    return impl_->colEnds().corner;
}
SelectionKind CellGrid::SelectedAs() const {
    return impl_->selection.kind;
}
bool CellGrid::SelectsOneCell() const {
    return !impl_->selection.any;
}
CellRange CellGrid::Selected() const {
    return impl_->selected();
}

namespace {
void requireData(const char* member, const char* what, const cellgrid::Lane& lane, std::int32_t index) {
    cellgrid::requireIndex(member, what, index, lane.axis.count());
    if (index < lane.fixed) misuse(member, index, "is a fixed " + std::string(what));
}
}  // namespace

void CellGrid::SelectRange(std::int32_t anchorRow, std::int32_t anchorCol, std::int32_t cornerRow,
                           std::int32_t cornerCol) {
    for (const std::int32_t row : {anchorRow, cornerRow})
        requireData("SelectRange", "row", impl_->layout.rows, row);
    for (const std::int32_t col : {anchorCol, cornerCol})
        requireData("SelectRange", "column", impl_->layout.cols, col);
    held()->select(Selection::ofCells({anchorRow, cornerRow}, {anchorCol, cornerCol}));
}

void CellGrid::SelectRows(std::int32_t anchor, std::int32_t corner) {
    for (const std::int32_t row : {anchor, corner}) requireData("SelectRows", "row", impl_->layout.rows, row);
    if (impl_->anyData()) held()->select(Selection::ofRows({anchor, corner}));
}

void CellGrid::SelectCols(std::int32_t anchor, std::int32_t corner) {
    for (const std::int32_t col : {anchor, corner})
        requireData("SelectCols", "column", impl_->layout.cols, col);
    if (impl_->anyData()) held()->select(Selection::ofCols({anchor, corner}));
}

void CellGrid::SelectAll() {
    if (impl_->anyData()) held()->select(Selection::ofAll());
}

void CellGrid::Unselect() {
    held()->select({});
}

bool CellGrid::DragScrolls() const {
    return impl_->selecting && impl_->selecting->scrolls;
}

// --- By the user.

/// A selection cannot begin in the fixed area: from there Shift moves.
bool CellGrid::Impl::extends(std::int16_t shift) const {
    return selectsRanges && !selectsRows && (shift & ShiftKey) != 0 && !selected().empty();
}

bool CellGrid::Impl::extendByUser(Place corner) {
    const cellgrid::Viewport::Place before = layout.place();
    const bool selects = select(selectionTo(corner.row, corner.col));
    bringIntoView(rowEnds().corner, colEnds().corner, !selection.any || selection.hasRowEnds(),
                  !selection.any || selection.hasColEnds());
    return selects || layout.place() != before;
}

/// A press that the host has kept away begins nothing.
void CellGrid::Impl::pressedCell(std::int16_t shift, Place place) {
    if (extends(shift)) {
        const Selection from =
            Selection::ofCells({rowEnds().anchor, place.row}, {colEnds().anchor, place.col});
        selecting = Selecting{SelectionKind::Cells, place};
        select(from);
        return bringIntoView(rowEnds().corner, colEnds().corner, true, true);
    }
    moveByUser(place.row, place.col);
    if (!there || !selectsRanges || selectsRows) return;
    if (currentRow == place.row && currentCol == place.col)
        selecting = Selecting{SelectionKind::Cells, place};
}

void CellGrid::Impl::pressedHeader(std::int16_t shift, Place place) {
    if (!selectsRanges || selectsRows || !anyData()) return;
    const bool going = extends(shift);
    const bool ofCols = place.row < layout.rows.fixed;
    const bool ofRows = place.col < layout.cols.fixed;
    if (ofRows && ofCols) {
        select(Selection::ofAll());
    } else if (ofCols) {
        selecting = Selecting{SelectionKind::Columns, place};
        select(Selection::ofCols({going ? colEnds().anchor : place.col, place.col}));
    } else {
        selecting = Selecting{SelectionKind::Rows, place};
        select(Selection::ofRows({going ? rowEnds().anchor : place.row, place.row}));
    }
}

namespace {
/// What the pointer has reached in one direction, and whether it lies beside the data cells there.
struct Reached {
    std::int32_t index;
    bool beside;
};

/// Beside them it is the next one that cannot be seen wholly. `end` is where the cells end in the view. Who
/// comes from scrolled cells to frozen ones goes back through what is scrolled away between them first.
Reached reached(const cellgrid::Lane& lane, std::int32_t point, std::int32_t end, bool fromStill) {
    const cellgrid::Axis& axis = lane.axis;
    const std::int32_t last = axis.shownBefore(axis.count());
    if (point < lane.stillExtent()) {
        const std::int32_t before = lane.offset > 0 ? lane.first : axis.shownBefore(lane.first);
        if (!fromStill && before >= lane.still) return {before, true};
        if (point >= lane.fixedExtent() && point < end) return {lane.at(point), false};
        return {axis.shownAfter(lane.fixed - 1), true};
    }
    if (point < end) {
        const std::int32_t under = lane.at(point);
        return {under < 0 ? last : under, false};
    }
    const std::int32_t seen = lane.at(end - 1);
    if (seen < lane.still) return {last, true};
    const bool wholly = lane.place(seen) + axis.extent(seen) <= end || seen <= lane.first;
    return {wholly ? std::max(axis.shownAfter(seen), seen) : seen, true};
}
}  // namespace

CellGrid::Impl::Pointed CellGrid::Impl::pointed(std::int32_t x, std::int32_t y) const {
    const bool fromStill = selecting && selecting->fromStill;
    const Reached down = reached(layout.rows, y, layout.clientHeight() - layout.bottomStrip, false);
    const Reached across = reached(layout.cols, x, layout.clientWidth(), fromStill);
    return {{down.index, across.index}, down.beside, across.beside};
}

/// A pointer that rests extends nothing, also where the view has moved under it with the press. A drag ends
/// where what it began at has gone, or has become a heading under it.
void CellGrid::Impl::draggedOver(std::int32_t x, std::int32_t y) {
    const SelectionKind kind = selecting->kind;
    if (kind != SelectionKind::Cells && (!selection.any || selection.kind != kind)) return selecting.reset();
    if (selected().empty()) return selecting.reset();
    const Pointed now = pointed(x, y);
    if (now.place.row < layout.rows.fixed || now.place.col < layout.cols.fixed) return;
    const bool alongRows = now.besideRows && kind != SelectionKind::Columns;
    const bool alongCols = now.besideCols && kind != SelectionKind::Rows;
    selecting->scrolls = false;
    if (now.place == selecting->at && !alongRows && !alongCols) return;
    selecting->at = now.place;
    const cellgrid::Viewport::Place before = layout.place();
    select(selectionTo(now.place.row, now.place.col));
    if (alongRows || alongCols) bringIntoView(rowEnds().corner, colEnds().corner, alongRows, alongCols);
    if (selecting) selecting->scrolls = layout.place() != before;
}
}  // namespace kxVsGrid

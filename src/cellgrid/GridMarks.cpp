// Marks on cells: set, taken away, found one after the other.
#include <utility>

#include "cellgrid/GridImpl.h"

namespace kxVsGrid {
namespace {

bool comesBefore(const MarkedCell& a, const MarkedCell& b) {
    return a.row != b.row ? a.row < b.row : a.col < b.col;
}

/// Keeps the earlier of two places.
void takeEarlier(std::optional<MarkedCell>& place, const MarkedCell& other) {
    if (!place || comesBefore(other, *place)) place = other;
}
}  // namespace

/// That of a merged header lies elsewhere than its cell.
void CellGrid::Impl::setMark(std::int32_t row, std::int32_t col, std::optional<CellMark> mark) {
    const bool changed = mark ? marks.put(ids.idOf(row), col, std::move(*mark))
                              : markOf(row, col) && marks.erase(ids.known(row), col);
    if (!changed) return;
    if (row < layout.rows.fixed || col < layout.cols.fixed)
        damage.addAll();
    else
        damageCell(row, col);
    tell(&CellGrid::MarksChanged);
}

void CellGrid::Impl::clearMarks(std::optional<CellMark::Kind> kind) {
    if (!marks.clear(kind)) return;
    damage.addAll();
    tell(&CellGrid::MarksChanged);
}

const CellMark* CellGrid::Mark(std::int32_t row, std::int32_t col) const {
    impl_->requireCell("Mark", row, col);
    return impl_->markOf(row, col);
}

void CellGrid::Mark(std::int32_t row, std::int32_t col, std::optional<CellMark> mark) {
    impl_->requireCell("Mark", row, col);
    held()->setMark(row, col, std::move(mark));
}

void CellGrid::ClearMarks(std::optional<CellMark::Kind> kind) {
    held()->clearMarks(kind);
}

std::optional<MarkedCell> CellGrid::NextMark(std::int32_t row, std::int32_t col,
                                             std::optional<CellMark::Kind> kind) const {
    const Impl& impl = *impl_;
    const auto isShown = [](const cellgrid::Lane& lane, std::int32_t index) {
        return index >= lane.fixed && lane.axis.extent(index) > 0;
    };
    std::optional<MarkedCell> first;
    std::optional<MarkedCell> next;
    impl.marks.forEach([&](RowId id, std::int32_t markedCol, const CellMark& mark) {
        if (kind && mark.kind != *kind) return;
        const MarkedCell cell{impl.ids.rowOf(id), markedCol};
        if (!isShown(impl.layout.rows, cell.row) || !isShown(impl.layout.cols, cell.col)) return;
        takeEarlier(first, cell);
        if (comesBefore({row, col}, cell)) takeEarlier(next, cell);
    });
    return next ? next : first;
}
}  // namespace kxVsGrid

// Rows and columns come and go: the one place where geometry, styles and cells change their number, together.
#include <algorithm>
#include <utility>

#include "cellgrid/GridImpl.h"
#include "cellgrid/format/FormatString.h"
#include "support/Undo.h"

namespace kxVsGrid {

using cellgrid::misuse;

void CellGrid::Impl::insertRows(std::int32_t position, std::int32_t n, RowId id) {
    listeners.tellFilled();
    store.insertRows(position, n);
    support::Undo undoStore([&] { store.removeRows(position, n); });
    layout.rows.axis.insert(position, n);
    support::Undo undoAxis([&] { layout.rows.axis.remove(position, n); });
    mergedRows.insert(position, n);
    undoAxis.keep();
    undoStore.keep();
    ids.inserted(position, n);
    if (id != RowId::None) ids.returned(id, position);
    rowsInserted(position, n);
    tellStream([&](ChangeListener& one) { one.added(position, n); });
}

void CellGrid::Impl::removeRows(std::int32_t position, std::int32_t n) {
    store.prepareRemove(position, n);
    tellStream([&](ChangeListener& one) { one.removing(position, n); });
    store.removeRows(position, n);
    layout.rows.axis.remove(position, n);
    mergedRows.remove(position, n);
    ids.removed(position, n);
}

void CellGrid::Impl::setRows(std::int32_t count) {
    const std::int32_t now = rows();
    if (count < layout.rows.fixed) misuse("Rows", count, "is less than FixedRows");
    if (count > MaxRows) misuse("Rows", count, "is more than the maximum");
    if (count == now) return;
    contentWillChange(-1);
    if (count > now) {
        insertRows(now, count - now);
        if (currentRow < 0) currentRow = layout.rows.fixed;
        return countChanged();
    }
    removeRows(count, now - count);
    const bool lost = currentRow >= count;
    const std::int32_t oldRow = std::exchange(currentRow, std::min(currentRow, count - 1));
    viewAfterLoss(lost, oldRow, currentCol);
}

void CellGrid::Impl::countChanged() {
    const Scroll scrolled = settle();
    tell(&CellGrid::SizeChanged);
    announce(scrolled);
}

/// Rows or columns are gone, the current cell with them when `lost`; the state is already the new one. A move
/// so forced asks nobody, and without any cell left there is none to announce.
void CellGrid::Impl::viewAfterLoss(bool lost, std::int32_t oldRow, std::int32_t oldCol) {
    if (lost) {
        ++movesForced;
        selecting.reset();
        selection = {};
    }
    tidySelection();
    const std::uint64_t stamp = moves();
    countChanged();
    if (lost && moves() == stamp && currentRow >= 0 && currentCol >= 0) announceForcedMove(oldRow, oldCol);
}

void CellGrid::Impl::insertCols(std::int32_t n) {
    const std::int32_t now = cols();
    store.setCols(now + n);
    support::Undo undoStore([&] { store.setCols(now); });
    layout.cols.axis.insert(now, n);
    undoStore.keep();
    if (currentCol >= 0) return;
    currentCol = layout.cols.fixed;
    for (Move* m = moving; m; m = m->outer)
        if (m->newCol < 0) m->newCol = currentCol;  // asked for while there was no column
}

void CellGrid::Impl::setCols(std::int32_t count) {
    const std::int32_t now = cols();
    if (count != 0 && count < layout.cols.fixed) misuse("Cols", count, "is less than FixedCols");
    if (count < 0) misuse("Cols", count, "is negative");
    if (count > MaxCols) misuse("Cols", count, "is more than the maximum");
    if (count == now) return;
    if (count > now) {
        insertCols(count - now);
        tellStream([](ChangeListener& one) { one.columnsChanged(); });
        return countChanged();
    }
    contentWillChange(-1);
    formatString = cellgrid::cutFormatString(formatString, count);
    store.setCols(count);
    layout.cols.axis.remove(count, now - count);
    if (samples.size() > static_cast<std::size_t>(count)) samples.resize(static_cast<std::size_t>(count));
    layout.cols.fixed = std::min(layout.cols.fixed, count);
    if (drag.col >= count) drag = {};
    marks.colsLimited(count);
    tellStream([](ChangeListener& one) { one.columnsChanged(); });
    const bool lost = currentCol >= count;
    const std::int32_t oldCol = std::exchange(currentCol, std::min(currentCol, count - 1));
    viewAfterLoss(lost, currentRow, oldCol);
}

void CellGrid::Impl::setFixedRows(std::int32_t count) {
    if (count < 0) misuse("FixedRows", count, "is negative");
    if (count > rows()) misuse("FixedRows", count, "is more than Rows");
    if (count == layout.rows.fixed) return;
    contentWillChange(-1);
    store.setFixedRows(count);
    tellShown(-1);
    setFixed(layout.rows, count);
}

void CellGrid::Impl::setFixedCols(std::int32_t count) {
    if (count < 0) misuse("FixedCols", count, "is negative");
    if (count > cols()) misuse("FixedCols", count, "is more than Cols");
    if (count == layout.cols.fixed) return;
    if (count == 0) {  // what numbered the rows is a column of data now
        contentWillChange(0);
        store.endRowNumbers();
        tellShown(0);
    }
    setFixed(layout.cols, count);
}

void CellGrid::Impl::setFixed(cellgrid::Lane& lane, std::int32_t count) {
    lane.fixed = count;
    tidySelection();
    geometryChanged();
}

void CellGrid::Impl::insertRow(std::int32_t position, RowId id) {
    if (position < 0 || position > rows()) misuse("InsertRow", position, "is no row, nor the end");
    if (rows() == MaxRows) misuse("InsertRow", position, "would exceed the maximum of Rows");
    if (id != RowId::None && !ids.prepareReturn(id))
        misuse("BringRowBack", position, "is for no row that went");
    contentWillChange(-1);
    insertRows(position, 1, id);
    if (currentRow < 0) currentRow = layout.rows.fixed;
    const Scroll scrolled = settle();
    tell(&CellGrid::RowMoved, position, true);
    announce(scrolled);
}

void CellGrid::Impl::removeRow(std::int32_t position) {
    requireRow("RemoveRow", position);
    if (rows() == layout.rows.fixed) misuse("RemoveRow", position, "would leave fewer rows than FixedRows");
    contentWillChange(-1);
    removeRows(position, 1);
    rowRemoved(position);
    const Scroll scrolled = settle();
    tell(&CellGrid::RowMoved, position, false);
    announce(scrolled);
}

void CellGrid::Impl::setWidth(std::int32_t col, std::int32_t twips) {
    if (layout.cols.axis.setSize(col, twips)) geometryChanged();
}

void CellGrid::Impl::setSample(std::int32_t col, std::string_view sample) {
    const auto i = static_cast<std::size_t>(col);
    std::string kept(sample);
    const std::int32_t width = widthFor(kept);
    cellgrid::requireSize("ColWidth", width);
    if (samples.size() <= i) samples.resize(i + 1);
    samples[i] = std::move(kept);
    setWidth(col, width);
}

/// One change of places, however many columns; all are measured before the first is changed.
void CellGrid::Impl::measureCols() {
    std::vector<std::pair<std::int32_t, std::int32_t>> widths;
    for (std::size_t i = 0; i < samples.size(); ++i)
        if (!samples[i].empty())
            widths.emplace_back(static_cast<std::int32_t>(i),
                                std::min(widthFor(samples[i]), cellgrid::MaxSize));
    bool changed = false;
    for (const auto& [col, width] : widths) changed = layout.cols.axis.setSize(col, width) || changed;
    if (changed) geometryChanged();
}

/// A caption and the width it needs, in a column that an event's listener may have taken away.
void CellGrid::Impl::setCaption(std::int32_t field, std::string_view text, std::string_view caption) {
    setSample(field, text);
    if (there && layout.rows.fixed > 0) setText(0, field, caption);
}

void CellGrid::Impl::setFormatString(std::string_view format) {
    const std::string kept(format);  // the fields point into it while listeners may put another string
    const std::int64_t named = cellgrid::countColumnFields(kept);
    if (named > MaxCols) misuse("FormatString", named, "columns are more than the maximum");
    const auto fields =
        cellgrid::parseFormatString(kept, static_cast<std::size_t>(std::max(MaxCols, rows())));
    if (named > cols()) setCols(static_cast<std::int32_t>(named));
    if (!there) return;
    formatString = kept;
    for (std::size_t i = 0; i < fields.columns.size(); ++i) {
        const cellgrid::FormatField& field = fields.columns[i];
        const auto at = static_cast<std::int32_t>(i);
        if (!there || at >= cols()) return;
        if (field.align) grid.ColAlignment(at, *field.align);
        if (!field.text.empty()) setCaption(at, field.text, field.caption);
    }
    for (std::size_t i = 0; i < fields.rows.size(); ++i) {
        const auto at = static_cast<std::int64_t>(i) + layout.rows.fixed;
        if (!there || at >= rows() || cols() == 0) return;
        if (!fields.rows[i].text.empty()) setText(static_cast<std::int32_t>(at), 0, fields.rows[i].caption);
    }
}
}  // namespace kxVsGrid

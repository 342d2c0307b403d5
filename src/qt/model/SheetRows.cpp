// Rows of a model that come and go in a grid.
#include <algorithm>
#include <numeric>

#include "qt/model/SheetLink.h"
#include "support/FlagSpan.h"

namespace kxVsGrid::qt {
namespace {
constexpr int OneByOne = 32;  // more rows come and go at once
}  // namespace

bool ModelSheet::Link::isEmpty(int row) const {
    for (int column = 0; column < columns(); ++column)
        if (!cells().Text(row + firstRow(), colOf(column)).empty()) return false;
    return true;
}

/// An editor is open there.
bool ModelSheet::Link::isTypedInto(int row) const {
    return isCurrent(row) && theGrid_.editorView().visible;
}

/// Other rows take the place of all but those that were typed and the model does not have.
void ModelSheet::Link::resetRows() {
    const int count = model().rowCount();
    const std::int32_t row = theGrid_.Row();
    const std::int32_t col = std::max(theGrid_.Col(), theGrid_.FixedCols());
    const bool typing = map_.modelRow(row - firstRow()) < 0 && isTypedInto(row - firstRow());
    {
        const support::FlagSpan fetching(fetching_);
        const Own own(*this, -1, -1, -1);
        std::vector<std::int32_t> from;
        for (int i = 0; i < map_.rows(); ++i)
            if (map_.modelRow(i) < 0 && (!isEmpty(i) || isTypedInto(i))) from.push_back(i + firstRow());
        const auto kept = static_cast<int>(from.size());
        if (kept > 0) {
            for (int i = 0; i < map_.rows(); ++i)
                if (map_.modelRow(i) >= 0 || (isEmpty(i) && !isTypedInto(i))) from.push_back(i + firstRow());
            cells().Reorder(firstRow(), from);
        }
        if (there()) cells().Rows(firstRow() + kept + 1);
        if (there()) cells().InsertRow(theGrid_.Rows());
        if (there()) cells().RemoveRow(firstRow() + kept);
        if (!there()) return;
        map_.modelBegin(count);
        cells().Rows(firstRow() + kept + 1 + count);
        if (there() && kept > 0 && count > 0) cells().MoveRows(firstRow(), kept, firstRow() + count);
        if (!there()) return;
        map_.bind(0, 0, count);
        if (!takesRows() && kept == 0 && count > 0) cells().Rows(firstRow() + count);
        if (there()) cells().NumberRows();
    }
    if (!there()) return;
    removed_.clear();
    parked_.clear();
    born_.clear();
    open_ = QPersistentModelIndex();
    nextSlice_ = 0;
    std::erase_if(unsent_, [this](RowId id) { return dataRow(id) < 0; });
    std::erase_if(failed_, [this](RowId id) { return dataRow(id) < 0; });
    theGrid_.History().Forget();
    if (there() && columns() > 0 && !typing)
        cells().Select(std::clamp(row, firstRow(), theGrid_.Rows() - 1), std::min(col, theGrid_.Cols() - 1));
    if (!there()) return;
    fetchVisible();
    missed();
}

/// Loose ones.
void ModelSheet::Link::insertRows(int row, int count) {
    const Own own(*this, -1, -1, -1);
    const std::int32_t end = theGrid_.Rows();
    if (count <= OneByOne || row + firstRow() >= end) {
        for (int i = 0; i < count && there() && count <= OneByOne; ++i) cells().InsertRow(row + firstRow());
        if (count > OneByOne) cells().Rows(end + count);
        return;
    }
    cells().Rows(end + count);
    if (there()) cells().MoveRows(end, count, row + firstRow());
}

/// In ascending order. One row is left in any case.
void ModelSheet::Link::removeRows(const std::vector<int>& rows) {
    if (rows.empty()) return;
    const Own own(*this, -1, -1, -1);
    if (static_cast<int>(rows.size()) == map_.rows()) cells().InsertRow(theGrid_.Rows());
    if (rows.size() <= OneByOne) {
        for (auto row = rows.rbegin(); row != rows.rend() && there(); ++row)
            cells().RemoveRow(*row + firstRow());
        return;
    }
    std::vector<std::int32_t> from;
    auto going = rows.begin();
    for (int row = rows.front(); row < map_.rows(); ++row) {
        if (going != rows.end() && *going == row)
            ++going;
        else
            from.push_back(row + firstRow());
    }
    for (const int row : rows) from.push_back(row + firstRow());
    cells().Reorder(rows.front() + firstRow(), from);
    if (there()) cells().Rows(theGrid_.Rows() - static_cast<std::int32_t>(rows.size()));
}

/// The last row is one to key on in.
void ModelSheet::Link::ensureSpare() {
    if (!there() || !takesRows()) return;
    const int last = map_.rows() - 1;
    if (last >= 0 && map_.modelRow(last) < 0 && isEmpty(last)) return;
    const Own own(*this, -1, -1, -1);
    cells().InsertRow(theGrid_.Rows());
}

/// Rows that nothing was typed into: but for the last one, and the one that the clerk is in.
void ModelSheet::Link::dropEmpty() {
    if (!there() || map_.rows() <= map_.modelRows() - static_cast<int>(parked_.size()) + 1) return;
    std::vector<int> rows;
    for (int row = 0; row < map_.rows() - 1; ++row)
        if (map_.modelRow(row) < 0 && !isCurrent(row) && isEmpty(row)) rows.push_back(row);
    removeRows(rows);
}

/// Where a row comes that stands before `modelRow` in the model.
int ModelSheet::Link::placeFor(int modelRow) const {
    for (; modelRow < map_.modelRows(); ++modelRow)
        if (const int row = map_.rowOf(modelRow); row >= 0) return row;
    return map_.lastBound() + 1;
}

/// One that the model has marked as removed goes before what takes its place: it may be the same to a database.
int ModelSheet::Link::modelPlaceFor(int row, RowId id) const {
    for (const auto& [index, parked] : parked_)
        if (parked == id && index.isValid()) return index.row() + 1;
    for (int next = row + 1; next < map_.rows(); ++next)
        if (map_.modelRow(next) >= 0) return map_.modelRow(next);
    return model().rowCount();
}

/// Rows that the model had marked as removed, and that it lets be changed again.
void ModelSheet::Link::comeBack(int first, int last) {
    const auto isBack = [&](const auto& parked) {
        const int row = parked.first.row();
        return parked.first.isValid() && row >= first && row <= last && isEditable(row);
    };
    for (auto parked = std::find_if(parked_.begin(), parked_.end(), isBack); parked != parked_.end();
         parked = std::find_if(parked_.begin(), parked_.end(), isBack)) {
        const Removed row{parked->second, parked->first.row()};
        parked_.erase(parked);
        putBack(row, {});
        if (!there()) return;
    }
}

/// Under the id that it had: undo passes over it then.
void ModelSheet::Link::putBack(const Removed& gone, const QString& why) {
    RowId id = gone.row;
    int row = dataRow(id);
    if (row >= 0 && map_.modelRow(row) >= 0) {
        row = -1;
        id = RowId::None;
    }
    if (row < 0) {
        const Own own(*this, -1, -1, -1);
        row = placeFor(gone.modelRow);
        if (id == RowId::None)
            cells().InsertRow(row + firstRow());
        else
            cells().BringRowBack(row + firstRow(), id);
        if (!there()) return;
        id = idOf(row);
    }
    map_.bind(row, gone.modelRow);
    readBack(row);
    if (there() && !why.isEmpty()) refuse(id, 0, why);
}

/// Loose rows stay where they are.
void ModelSheet::Link::inModelOrder() {
    std::vector<std::int32_t> from;
    from.reserve(static_cast<std::size_t>(map_.rows()));
    int modelRow = 0;
    for (int row = 0; row < map_.rows(); ++row) {
        if (map_.modelRow(row) < 0) {
            from.push_back(row + firstRow());
            continue;
        }
        while (map_.rowOf(modelRow) < 0) ++modelRow;
        from.push_back(map_.rowOf(modelRow++) + firstRow());
    }
    const Own own(*this, -1, -1, -1);
    cells().Reorder(firstRow(), from);
}
}  // namespace kxVsGrid::qt

// Texts of a model that come into a grid when they are needed.
#include <QElapsedTimer>
#include <algorithm>
#include <string_view>

#include "qt/model/SheetLink.h"
#include "support/FlagSpan.h"

namespace kxVsGrid::qt {
namespace {

constexpr int Block = 64;        // rows that are fetched together
constexpr int Beyond = 32;       // rows that are fetched above and below those in view
constexpr int AtOnce = 256;      // so few are not left to idle time
constexpr qint64 SliceMs = 4;    // of idle time; a key that comes meanwhile waits no longer
constexpr int MostInView = 500;  // rows that are gone through for the last one in view
}  // namespace

std::string ModelSheet::Link::modelText(int modelRow, int column) const {
    const QModelIndex there = index(modelRow, column);
    QVariant value = there.data(Qt::EditRole);
    if (!value.isValid()) value = there.data(Qt::DisplayRole);
    return plans_[static_cast<std::size_t>(column)].text(value);
}

/// A listener who throws keeps nothing from being written.
void ModelSheet::Link::put(int row, int column, const std::string& text) {
    const std::int32_t at = row + firstRow();
    if (at >= theGrid_.Rows() || colOf(column) >= theGrid_.Cols()) return;
    if (cells().Text(at, colOf(column)) == text) return;
    const Own own(*this, row, row, column);
    try {
        cells().Text(at, colOf(column), text);
    } catch (...) {
        if (there() && at < theGrid_.Rows() && cells().Text(at, colOf(column)) != text) throw;
    }
}

bool ModelSheet::Link::isDirty(int row, int column) const {
    if (dirty_.empty()) return false;
    const auto known = dirty_.find(cells().KnownId(row + firstRow()));
    return known != dirty_.end() &&
           std::find(known->second.begin(), known->second.end(), column) != known->second.end();
}

bool ModelSheet::Link::isDirty(int row) const {
    return !dirty_.empty() && dirty_.count(cells().KnownId(row + firstRow())) > 0;
}

/// What the model has now, except where it has still to be told.
void ModelSheet::Link::readBack(int row) {
    const RowId id = idOf(row);
    for (int column = 0; column < columns() && there(); ++column) {
        const int now = dataRow(id);
        const int modelRow = map_.modelRow(now);
        if (modelRow < 0) return;
        map_.fetched(now);
        if (!isDirty(now, column)) put(now, column, modelText(modelRow, column));
    }
}

void ModelSheet::Link::fetchRow(int row) {
    if (map_.isMissing(row)) fetchRows(row, row);
}

void ModelSheet::Link::fetchRows(int first, int last) {
    first = std::max(0, first);
    last = std::min(last, map_.rows() - 1);
    const auto self = shared_from_this();
    while (there()) {
        first = map_.missingIn(first, last);
        if (first < 0) return;
        int end = first;
        while (end < last && end - first + 1 < Block && map_.isMissing(end + 1)) ++end;
        if (isDirty(first)) {
            ++first;  // the model is told of it first
            continue;
        }
        while (end > first && !dirty_.empty()) {
            bool clean = true;
            for (int row = first; row <= end; ++row) clean = clean && !isDirty(row);
            if (clean) break;
            end = first;
        }
        fetchBlock(first, end);
        first = end + 1;
    }
}

/// First all texts, then all writes: nobody hears of a write in between.
void ModelSheet::Link::fetchBlock(int first, int last) {
    const auto count = static_cast<std::size_t>(last) - static_cast<std::size_t>(first) + 1;
    std::vector<std::string> texts;
    texts.reserve(count * plans_.size());
    for (int column = 0; column < columns(); ++column)
        for (int row = first; row <= last; ++row) texts.push_back(modelText(map_.modelRow(row), column));
    for (int row = first; row <= last; ++row) map_.fetched(row);
    std::vector<std::string_view> views(count);
    for (int column = 0; column < columns(); ++column) {
        if (!there() || last + firstRow() >= theGrid_.Rows()) return;
        const auto begin = static_cast<std::ptrdiff_t>(count) * column;
        std::copy_n(texts.begin() + begin, count, views.begin());
        try {
            const Own own(*this, first, last, column);
            cells().Fill(colOf(column), first + firstRow(), views);
        } catch (...) {
            for (int row = first; row <= last && there(); ++row)
                put(row, column, texts[static_cast<std::size_t>(begin + row - first)]);
        }
    }
}

void ModelSheet::Link::fetchVisible() {
    if (fetching_ || map_.missing() == 0) return;
    const support::FlagSpan fetching(fetching_);
    const std::int32_t top = cells().TopRow();
    std::int32_t last = top;
    for (int i = 0; i < MostInView && last + 1 < theGrid_.Rows(); ++i) {
        if (!cells().RowIsVisible(last + 1) && cells().RowShown(last + 1)) break;
        ++last;
    }
    fetchRows(top - firstRow() - Beyond, last - firstRow() + Beyond);
    if (there()) fetchRow(theGrid_.Row() - firstRow());
}

void ModelSheet::Link::fetchSelected() {
    if (map_.missing() == 0 && !fetchesMore()) return;
    if (cells().SelectsOneCell()) return fetchRow(theGrid_.Row() - firstRow());
    const SelectionKind kind = cells().SelectedAs();
    if (kind == SelectionKind::Columns || kind == SelectionKind::All) return fetchAll();
    const CellRange range = cells().Selected();
    fetchRows(range.firstRow - firstRow(), range.lastRow - firstRow());
    if (there()) missed();
}

/// All rows that the model has elsewhere: new ones have no place among those that are still to come.
void ModelSheet::Link::fetchModel() {
    while (there() && fetchesMore()) fetchMore();
}

void ModelSheet::Link::fetchMore() {
    const int before = model().rowCount();
    model().fetchMore({});
    if (there() && model().rowCount() <= before) stuck_ = true;
}

void ModelSheet::Link::fetchAll() {
    if (!there()) return;
    const auto self = shared_from_this();
    fetchModel();
    if (there()) fetchRows(0, map_.rows() - 1);
    if (there()) missed();
}

void ModelSheet::Link::fetchSlice() {
    QElapsedTimer spent;
    spent.start();
    fetchVisible();
    while (there() && spent.elapsed() < SliceMs) {
        if (fetchesMore()) {
            fetchMore();
            continue;
        }
        int next = map_.missingIn(nextSlice_, map_.rows());
        if (next < 0) next = map_.missingIn(0, map_.rows());
        if (next < 0) break;
        const int left = map_.missing();
        fetchRows(next, next + Block - 1);
        nextSlice_ = next + Block;
        if (there() && map_.missing() == left && !dirty_.empty()) break;
    }
    if (there()) missed();
}

/// Some texts may be missing, or the last ones have come.
void ModelSheet::Link::missed() {
    if (there()) fitNumbers();
    if (!there()) return;
    if (!fetchesMore() && map_.missing() > 0 && map_.missing() <= AtOnce) fetchRows(0, map_.rows() - 1);
    if (!there()) return;
    const bool allThere = map_.missing() == 0 && !model().canFetchMore({});
    if (!allThere && wholeTold_) {
        wholeTold_ = false;
        allowWhole();
    }
    if (!there()) return;
    if (allThere || (map_.missing() == 0 && !fetchesMore()))
        idle_.stop();
    else if (!idle_.isActive())
        idle_.start();
    if (allThere) tellWhole();
}

void ModelSheet::Link::tellWhole() {
    if (std::exchange(wholeTold_, true)) return;
    allowWhole();
    if (there()) settleTotals();
    if (there()) Q_EMIT face_->fetched();
}

/// What was written past the clerk is not added up by itself.
void ModelSheet::Link::settleTotals() {
    if (!there() || !wholeTold_ || !std::exchange(totalsDue_, false)) return;
    if (theGrid_.SumRow()) theGrid_.RecalculateTotals();
}
}  // namespace kxVsGrid::qt

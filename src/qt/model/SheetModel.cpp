// What becomes of a model, shown in a grid.
#include <algorithm>
#include <numeric>

#include "qt/model/SheetLink.h"
#include "support/FlagSpan.h"

namespace kxVsGrid::qt {
namespace {

constexpr std::int64_t MostWritten = 20'000;  // cells that are written at once; more come in idle time

bool concernTexts(const QList<int>& roles) {
    if (roles.isEmpty()) return true;
    return std::any_of(roles.begin(), roles.end(),
                       [](int role) { return role == Qt::EditRole || role == Qt::DisplayRole; });
}
}  // namespace

void ModelSheet::Link::dataChanged(const QModelIndex& first, const QModelIndex& last,
                                   const QList<int>& roles) {
    if (first.parent().isValid() || !concernTexts(roles)) return;
    const int firstRow = first.row();
    const int lastRow = last.row();
    const int firstColumn = first.column();
    const int lastColumn = std::min(last.column(), columns() - 1);
    if (!parked_.empty()) comeBack(firstRow, lastRow);
    const std::int64_t cells = std::int64_t{lastRow - firstRow + 1} * (lastColumn - firstColumn + 1);
    const int inserting = inserting_ == RowId::None || !there() ? -1 : dataRow(inserting_);
    for (int modelRow = firstRow; modelRow <= lastRow && there(); ++modelRow) {
        const int row = map_.rowOf(modelRow);
        if (row < 0 || row == inserting || map_.isMissing(row)) continue;
        if (cells > MostWritten) {
            map_.lost(row);
            continue;
        }
        const RowId id = idOf(row);
        for (int column = firstColumn; column <= lastColumn && there(); ++column) {
            const int now = dataRow(id);
            if (now >= 0 && map_.modelRow(now) >= 0 && !isDirty(now, column))
                put(now, column, modelText(map_.modelRow(now), column));
        }
    }
    if (!there()) return;
    fetchVisible();
    missed();
    settleTotals();
}

void ModelSheet::Link::rowsInserted(int first, int last) {
    stuck_ = false;
    const int count = last - first + 1;
    map_.modelInserted(first, count);
    for (Removed& row : removed_)
        if (row.modelRow >= first) row.modelRow += count;
    if (inserting_ != RowId::None && !inserted_.isValid()) {
        const int row = dataRow(inserting_);
        inserted_ = index(first, 0);
        if (row >= 0) {
            map_.bind(row, first);
            map_.fetched(row);
            ++first;
        }
    }
    if (first > last) return;
    const int place = placeFor(last + 1);
    insertRows(place, last - first + 1);
    if (!there() || map_.rows() < place + last - first + 1) return modelReset();
    map_.bind(place, first, last - first + 1);
    if (guess()) define();
    if (!there()) return;
    rowsSettled();
}

/// The model's rows have come or gone.
void ModelSheet::Link::rowsSettled() {
    ensureSpare();
    fetchVisible();
    missed();
    settleTotals();
}

void ModelSheet::Link::rowsRemoved(int first, int last) {
    std::vector<int> rows;
    for (int modelRow = first; modelRow <= last; ++modelRow)
        if (const int row = map_.rowOf(modelRow); row >= 0) rows.push_back(row);
    std::sort(rows.begin(), rows.end());
    const int count = last - first + 1;
    removeRows(rows);
    if (!there()) return;
    map_.modelRemoved(first, count);
    std::erase_if(removed_,
                  [=](const Removed& row) { return row.modelRow >= first && row.modelRow <= last; });
    for (Removed& row : removed_)
        if (row.modelRow > last) row.modelRow -= count;
    std::erase_if(parked_, [](const auto& row) { return !row.first.isValid(); });
    rowsSettled();
}

void ModelSheet::Link::rowsMoved(int first, int last, int to) {
    std::vector<int> order(static_cast<std::size_t>(map_.modelRows()));
    std::iota(order.begin(), order.end(), 0);
    if (to > last)
        std::rotate(order.begin() + first, order.begin() + last + 1, order.begin() + to);
    else
        std::rotate(order.begin() + to, order.begin() + first, order.begin() + last + 1);
    std::vector<int> numbers(order.size());
    for (std::size_t i = 0; i < order.size(); ++i)
        numbers[static_cast<std::size_t>(order[i])] = static_cast<int>(i);
    renumber(numbers);
}

void ModelSheet::Link::beforeLayout() {
    layout_.clear();
    layout_.reserve(static_cast<std::size_t>(map_.modelRows()));
    for (int row = 0; row < map_.modelRows(); ++row) layout_.emplace_back(index(row, 0));
}

void ModelSheet::Link::layoutChanged(QAbstractItemModel::LayoutChangeHint hint) {
    const auto layout = std::exchange(layout_, {});
    const bool known = static_cast<int>(layout.size()) == map_.modelRows() &&
                       model().rowCount() == map_.modelRows() &&
                       hint != QAbstractItemModel::HorizontalSortHint;
    std::vector<int> numbers;
    numbers.reserve(layout.size());
    for (const QPersistentModelIndex& index : layout) numbers.push_back(index.isValid() ? index.row() : -1);
    if (!known || std::find(numbers.begin(), numbers.end(), -1) != numbers.end()) return modelReset();
    renumber(numbers);
}

/// A grid that the clerk has sorted keeps his order.
void ModelSheet::Link::renumber(const std::vector<int>& numbers) {
    const bool follows = map_.inOrder();
    map_.renumber(numbers);
    for (Removed& row : removed_) row.modelRow = numbers[static_cast<std::size_t>(row.modelRow)];
    if (follows) inModelOrder();
    if (!there()) return;
    fetchVisible();
    missed();
}

void ModelSheet::Link::modelReset() {
    stuck_ = false;
    wholeTold_ = false;
    const bool others = planColumns();
    const bool otherKinds = guess();
    if (others)
        layOut();
    else if (otherKinds)
        define();
    if (there()) resetRows();
    if (there()) settleTotals();
}
}  // namespace kxVsGrid::qt

#include "qt/model/GridFollower.h"

#include <QMetaObject>
#include <algorithm>
#include <limits>
#include <utility>

#include "support/FlagSpan.h"

namespace kxVsGrid::qt {
namespace {
/// Of so many rows it is known that they have been written to; of more, all may have been.
constexpr std::int32_t MostRows = 1000;
}  // namespace

GridModel::Follower::Follower(GridModel& model, kxGrid& grid) : model_(model), grid_(grid), there_(grid) {
    look();
    grid_.Grid().AddListener(*this);
    // Hosts may write from here on, which they may not while a listener is told.
    stepped_ = grid_.Changes().After.connect([this](const StepChanges&) { flush(); });
}

void GridModel::Follower::leave() {
    there_.removeListener(*this);
    stepped_.disconnect();
    there_.leave();
}

void GridModel::Follower::look() {
    fixedRows_ = grid_.FixedRows();
    fixedCols_ = grid_.FixedCols();
    rows_ = std::max(0, grid_.Rows() - fixedRows_);
    cols_ = std::max(0, grid_.Cols() - fixedCols_);
}

bool GridModel::Follower::isElsewhere() const {
    return fixedRows_ != grid_.FixedRows() || fixedCols_ != grid_.FixedCols();
}

std::int32_t GridModel::Follower::gridRow(int row) const {
    const std::int32_t now = moves_.place(row + fixedRows_);
    return grid() && now < grid_.Rows() ? now : -1;
}

int GridModel::Follower::modelRow(std::int32_t row) const {
    const std::int32_t before = moves_.origin(row);
    return before < fixedRows_ || before >= fixedRows_ + rows_ ? -1 : before - fixedRows_;
}

// --- What is heard

void GridModel::Follower::begin(bool& what) noexcept {
    what = true;
    later();
}

/// For what is written outside of steps.
void GridModel::Follower::later() noexcept try {
    if (std::exchange(scheduled_, true)) return;
    QMetaObject::invokeMethod(
        &model_,
        [this] {
            scheduled_ = false;
            flush();
        },
        Qt::QueuedConnection);
} catch (...) {
    scheduled_ = false;  // the next step tells it
}

void GridModel::Follower::dirty(std::int32_t row, Cols cols) {
    if (std::ssize(dirty_) >= MostRows) return begin(all_);
    dirty_.insert(grid_.Grid().IdOf(row));
    dirtyCols_ = {std::min(dirtyCols_.first, cols.first), std::max(dirtyCols_.second, cols.second)};
    later();
}

void GridModel::Follower::written(std::int32_t row, std::int32_t col, CellPart, std::string_view,
                                  std::string_view) noexcept try {
    if (reset_ || all_) return;
    if (row < fixedRows_ || col < fixedCols_) return begin(headers_);
    dirty(row, {col, col});
} catch (...) {
    begin(all_);
}

void GridModel::Follower::added(std::int32_t at, std::int32_t count) noexcept try {
    if (at < fixedRows_) return begin(reset_);
    moves_.inserted(at, count);
    later();
    if (count > MostRows) return begin(all_);
    for (std::int32_t row = at; row < at + count; ++row) dirty(row, {fixedCols_, grid_.Cols() - 1});
} catch (...) {
    begin(reset_);
}

void GridModel::Follower::removing(std::int32_t at, std::int32_t count) noexcept try {
    if (at < fixedRows_) return begin(reset_);
    moves_.removed(at, count);
    later();
} catch (...) {
    begin(reset_);
}

void GridModel::Follower::reordered(std::int32_t first, std::span<const std::int32_t> from) noexcept try {
    moves_.reordered(first, from);
    later();
} catch (...) {
    begin(reset_);
}

void GridModel::Follower::cleared(std::int32_t, std::int32_t) noexcept {
    begin(all_);
}

void GridModel::Follower::shown(std::int32_t) noexcept {
    begin(all_);
}

// --- What is told

/// Whoever is told may write, which comes to the end of what is to be told, or destroy the grid or the model.
void GridModel::Follower::flush() {
    if (telling_ || !grid()) return;
    const auto self = shared_from_this();
    const support::FlagSpan telling(telling_);
    while (grid() && pending()) {
        if (reset_ || moves_.tooMany() || isElsewhere())
            tellReset();
        else if (!moves_.empty())
            tellMove();
        else
            tellCells();
    }
}

void GridModel::Follower::tellReset() {
    model_.beginResetModel();
    if (!grid()) return;
    moves_.forget();
    dirty_.clear();
    dirtyCols_ = NoCols;
    all_ = reset_ = headers_ = false;
    look();
    model_.endResetModel();
}

/// The model has its rows of before until the move is taken off, in the middle of what is told of it.
void GridModel::Follower::tellMove() {
    const RowMoves::Move move = moves_.front();
    moves_.hold();
    const int first = move.at - fixedRows_;
    switch (move.kind) {
        case RowMoves::Move::Kind::Insert:
            model_.beginInsertRows({}, first, first + move.count - 1);
            if (!grid()) return;
            moves_.pop();
            rows_ += move.count;
            return model_.endInsertRows();
        case RowMoves::Move::Kind::Remove:
            model_.beginRemoveRows({}, first, first + move.count - 1);
            if (!grid()) return;
            moves_.pop();
            rows_ -= move.count;
            return model_.endRemoveRows();
        default:
            return tellReordered(move);
    }
}

void GridModel::Follower::tellReordered(const RowMoves::Move& move) {
    Q_EMIT model_.layoutAboutToBeChanged({}, QAbstractItemModel::VerticalSortHint);
    if (!grid()) return;
    moves_.pop();
    const QModelIndexList before = model_.persistentIndexList();
    QModelIndexList after;
    for (const QModelIndex& index : before)
        after.append(model_.index(move.place(index.row() + fixedRows_) - fixedRows_, index.column()));
    model_.changePersistentIndexList(before, after);
    Q_EMIT model_.layoutChanged({}, QAbstractItemModel::VerticalSortHint);
}

void GridModel::Follower::tellHeaders() {
    headers_ = false;
    if (cols_ > 0) Q_EMIT model_.headerDataChanged(Qt::Horizontal, 0, cols_ - 1);
    if (grid() && rows_ > 0) Q_EMIT model_.headerDataChanged(Qt::Vertical, 0, rows_ - 1);
}

/// All at once: a proxy that sorts looks for the place of one row among the others, which have to be where they belong.
void GridModel::Follower::tellCells() {
    if (headers_) return tellHeaders();
    const auto dirty = std::exchange(dirty_, {});
    const Cols cols = std::exchange(dirtyCols_, NoCols);
    if (std::exchange(all_, false))
        return tellCells(fixedRows_, fixedRows_ + rows_ - 1, {fixedCols_, fixedCols_ + cols_ - 1});
    std::int32_t first = std::numeric_limits<std::int32_t>::max(), last = -1;
    for (const RowId id : dirty) {
        const std::int32_t row = grid_.Grid().RowOf(id);
        if (row < 0) continue;
        first = std::min(first, row);
        last = std::max(last, row);
    }
    tellCells(first, last, cols);
}

void GridModel::Follower::tellCells(std::int32_t firstRow, std::int32_t lastRow, Cols cols) {
    const int last = std::min(lastRow - fixedRows_, rows_ - 1);
    const int lastCol = std::min(cols.second - fixedCols_, cols_ - 1);
    if (last < firstRow - fixedRows_ || lastCol < 0) return;
    Q_EMIT model_.dataChanged(model_.index(firstRow - fixedRows_, cols.first - fixedCols_),
                              model_.index(last, lastCol));
}
}  // namespace kxVsGrid::qt

// What was done in a grid, for its model.
#include <algorithm>

#include "qt/model/SheetLink.h"
#include "support/FlagSpan.h"

namespace kxVsGrid::qt {
namespace {

constexpr int MostRounds = 100;  // of those who answer each change with another one

const QString NotTaken = QStringLiteral("没有保存：数据源没有接受。");
const QString NotEmpty = QStringLiteral("不能为空。");

bool isKeyedIn(Cause cause) {
    return cause == Cause::Typed || cause == Cause::Help || cause == Cause::Rows || cause == Cause::Undo;
}
}  // namespace

void ModelSheet::Link::flush(Cause cause) {
    if (flushing_ || !there()) return;
    const auto self = shared_from_this();
    const support::FlagSpan flushing(flushing_);
    try {
        for (int i = 0; i < MostRounds && there() && (!dirty_.empty() || !removed_.empty() || compareAll_);
             ++i)
            sendAll(cause);
        cameBack_.clear();
        if (there() && open_.isValid() && !isCurrent(map_.rowOf(open_.row()))) submitOpen();
        ensureSpare();
        dropEmpty();
        settleTotals();
        missed();
    } catch (...) {
        compareAll_ = true;
        later();
        throw;
    }
}

void ModelSheet::Link::sendAll(Cause cause) {
    const std::vector<Waiting> waiting = takeDirty(cause);
    sendRemovals();
    for (const Waiting& row : waiting)
        if (there()) sendRow(row);
    sendNew(cause, false);
}

/// All texts are taken before the first one is sent: the model may tell of whole rows.
std::vector<ModelSheet::Link::Waiting> ModelSheet::Link::takeDirty(Cause cause) {
    if (std::exchange(compareAll_, false)) {
        Cols all(plans_.size());
        for (std::size_t i = 0; i < all.size(); ++i) all[i] = static_cast<std::int32_t>(i);
        for (int row = 0; row < map_.rows(); ++row)
            if (!map_.isMissing(row) && (map_.modelRow(row) >= 0 || !isEmpty(row))) dirty_[idOf(row)] = all;
    }
    std::vector<Waiting> waiting;
    for (auto& [id, cols] : std::exchange(dirty_, {})) {
        const int row = dataRow(id);
        if (row < 0) continue;
        const int modelRow = map_.modelRow(row);
        if (modelRow < 0) {
            failed_.erase(id);
            if (isEmpty(row)) {
                unsent_.erase(id);
                for (int column = 0; column < columns(); ++column) unmark(row, column);
            } else {
                unsent_.insert(id);
            }
            continue;
        }
        if (cause == Cause::Undo && wasUnborn(id, row)) continue;
        Waiting changed{id, {}};
        for (const std::int32_t column : cols) {
            std::string text = cells().Text(row + firstRow(), colOf(column));
            if (text != modelText(modelRow, column)) changed.cells.push_back({column, std::move(text)});
        }
        if (!changed.cells.empty() || map_.isMissing(row)) waiting.push_back(std::move(changed));
    }
    return waiting;
}

/// Undo has emptied all that was typed into a row before it became the model's: it is no row of the model's again.
bool ModelSheet::Link::wasUnborn(RowId id, int row) {
    const auto born = born_.find(id);
    if (born == born_.end()) return false;
    for (const std::int32_t column : born->second)
        if (!cells().Text(row + firstRow(), colOf(column)).empty()) return false;
    removed_.push_back({id, map_.modelRow(row)});
    born_.erase(born);
    map_.release(row);
    for (int column = 0; column < columns() && there(); ++column) put(row, column, {});
    return true;
}

// --- Rows that have gone

void ModelSheet::Link::sendRemovals() {
    if (removed_.empty() || !there()) return;
    const auto isOpen = [this](const Removed& row) { return open_.row() == row.modelRow; };
    if (open_.isValid() && std::any_of(removed_.begin(), removed_.end(), isOpen))
        open_ = QPersistentModelIndex();
    else
        submitOpen();
    while (there() && !removed_.empty()) {
        std::sort(removed_.begin(), removed_.end(),
                  [](const Removed& a, const Removed& b) { return a.modelRow < b.modelRow; });
        std::vector<Removed> rows{removed_.back()};
        removed_.pop_back();
        while (!removed_.empty() && removed_.back().modelRow == rows.back().modelRow - 1) {
            rows.push_back(removed_.back());
            removed_.pop_back();
        }
        std::reverse(rows.begin(), rows.end());
        removeRange(rows.front().modelRow, rows);
    }
}

/// At once where the model can do that.
void ModelSheet::Link::removeRange(int first, const std::vector<Removed>& rows) {
    fetchModel();
    if (!there()) return;
    std::vector<QPersistentModelIndex> indexes;
    indexes.reserve(rows.size());
    for (const Removed& row : rows) indexes.emplace_back(index(row.modelRow, 0));
    const bool done = rows.size() > 1 && model().removeRows(first, static_cast<int>(rows.size()));
    for (std::size_t i = rows.size(); i-- > 0 && there();) {
        if (!indexes[i].isValid()) continue;
        if (done)
            parked_.emplace_back(indexes[i], rows[i].row);
        else
            removeOne(indexes[i], rows[i]);
    }
}

/// A model may keep a row that it will remove later; it has no row in the grid meanwhile.
void ModelSheet::Link::removeOne(const QPersistentModelIndex& row, const Removed& removed) {
    if (model().removeRows(row.row(), 1)) {
        if (there() && row.isValid()) parked_.emplace_back(row, removed.row);
        return;
    }
    if (!there()) return;
    const QString why = whyRefused();
    model().revert();
    if (there() && row.isValid()) putBack({removed.row, row.row()}, why);
}

// --- Cells

QString ModelSheet::Link::refusal(const QPersistentModelIndex& row, const Sent& cell) {
    const ModelPlan plan = this->plan(cell.column);
    if (plan.required && cell.text.empty()) return NotEmpty;
    const QModelIndex there = index(row.row(), cell.column);
    const QVariant now = there.data(Qt::EditRole);
    if (model().setData(there, plan.value(cell.text, now), Qt::EditRole) || !this->there()) return {};
    QString why = whyRefused();
    // One that tried, and has kept what it was given.
    if (row.isValid() && modelText(row.row(), cell.column) == cell.text) model().revert();
    return why;
}

void ModelSheet::Link::sendRow(const Waiting& waiting) {
    int row = dataRow(waiting.row);
    if (map_.modelRow(row) < 0) return;
    const QPersistentModelIndex there = index(map_.modelRow(row), 0);
    if (open_.isValid() && open_ != there) submitOpen();
    std::vector<std::pair<int, QString>> refused;
    for (const Sent& cell : waiting.cells) {
        if (!this->there() || !there.isValid()) return;
        const QString why = refusal(there, cell);
        if (!why.isEmpty()) {
            refused.emplace_back(cell.column, why);
            continue;
        }
        if (!this->there()) return;
        if (open_ != there) openCols_.clear();
        open_ = there;
        openRow_ = waiting.row;
        openCols_.push_back(cell.column);
        if (row = dataRow(waiting.row); row >= 0) unmark(row, cell.column);
    }
    if (row = dataRow(waiting.row); row >= 0) readBack(row);
    for (const auto& [column, why] : refused)
        if (this->there()) refuse(waiting.row, column, why);
    if (row = dataRow(waiting.row); this->there() && !isCurrent(row)) submitOpen();
}

/// What cannot be submitted is put back.
bool ModelSheet::Link::submitOpen() {
    const QPersistentModelIndex there = std::exchange(open_, {});
    const RowId id = std::exchange(openRow_, RowId::None);
    const Cols cols = std::exchange(openCols_, {});
    if (!this->there() || !there.isValid()) return true;
    const bool done = model().submit();
    if (!this->there()) return done;
    const QString why = done ? QString() : whyRefused();
    if (!done) model().revert();
    if (const int row = dataRow(id); row >= 0) readBack(row);
    if (done) return true;
    for (const std::int32_t column : cols)
        if (this->there()) refuse(id, column, why);
    return false;
}

/// The clerk has left a row.
void ModelSheet::Link::leftRow() {
    if (flushing_) return;
    const auto self = shared_from_this();
    const support::FlagSpan flushing(flushing_);
    if (open_.isValid() && !isCurrent(map_.rowOf(open_.row()))) submitOpen();
    if (there() && !cells().StepOpen()) sendNew(Cause::Typed, false);
    ensureSpare();
    settleTotals();
}

// --- New rows

void ModelSheet::Link::sendNew(Cause cause, bool all) {
    std::vector<std::pair<int, RowId>> rows;
    for (const RowId id : std::set<RowId>(unsent_)) {
        const int row = dataRow(id);
        if (row < 0 || map_.modelRow(row) >= 0)
            unsent_.erase(id);
        else if (all || !isCurrent(row) || !isKeyedIn(cause) ||
                 (cause == Cause::Undo && cameBack_.count(id) > 0))
            rows.emplace_back(row, id);
    }
    std::sort(rows.begin(), rows.end());
    for (const auto& [row, id] : rows)
        if (there()) sendNewRow(id);
}

std::vector<ModelSheet::Link::Sent> ModelSheet::Link::filledCells(int row) const {
    std::vector<Sent> filled;
    for (int column = 0; column < columns(); ++column)
        if (std::string text = cells().Text(row + firstRow(), colOf(column)); !text.empty())
            filled.push_back({column, std::move(text)});
    return filled;
}

/// The first required one that is not among them; -1 for none.
int ModelSheet::Link::missingColumn(const std::vector<Sent>& cells) const {
    for (int column = 0; column < columns(); ++column) {
        const auto isThere = [column](const Sent& cell) { return cell.column == column; };
        if (plans_[static_cast<std::size_t>(column)].required &&
            std::none_of(cells.begin(), cells.end(), isThere))
            return column;
    }
    return -1;
}

bool ModelSheet::Link::sendNewRow(RowId id) {
    unsent_.erase(id);
    fetchModel();
    submitOpen();
    const int row = dataRow(id);
    if (row < 0 || map_.modelRow(row) >= 0) return true;
    const std::vector<Sent> filled = filledCells(row);
    if (filled.empty()) return true;
    if (const int column = missingColumn(filled); column >= 0) {
        refuseNew(id, column, NotEmpty);
        return false;
    }
    QString why;
    QPersistentModelIndex made;
    int failed = filled.front().column;
    {
        inserting_ = id;
        inserted_ = QPersistentModelIndex();
        const bool inserted = model().insertRow(modelPlaceFor(row, id));
        made = std::exchange(inserted_, {});
        if (there() && (!inserted || !made.isValid())) why = whyRefused();
        if (there() && made.isValid()) failed = fillNew(made, filled, why);
        inserting_ = RowId::None;
    }
    if (!there()) return false;
    if (!why.isEmpty()) {
        failNew(id, made);
        if (there()) refuseNew(id, failed, why);
        return false;
    }
    Cols& cols = born_[id];
    for (const Sent& cell : filled) cols.push_back(cell.column);
    if (const int now = dataRow(id); now >= 0) {
        for (int column = 0; column < columns(); ++column) unmark(now, column);
        readBack(now);
    }
    return true;
}

/// Answers which cell was refused, with the reason.
int ModelSheet::Link::fillNew(const QPersistentModelIndex& made, const std::vector<Sent>& cells,
                              QString& why) {
    for (const Sent& cell : cells) {
        if (!there() || !made.isValid()) break;
        const QVariant value = plan(cell.column).value(cell.text, {});
        if (model().setData(index(made.row(), cell.column), value, Qt::EditRole)) continue;
        if (there()) why = whyRefused();
        return cell.column;
    }
    const int first = cells.front().column;
    if (there() && made.isValid() && !model().submit() && there()) why = whyRefused();
    return first;
}

/// The model gets rid of what it has of the row; the grid keeps all.
void ModelSheet::Link::failNew(RowId id, const QPersistentModelIndex& made) {
    if (const int row = dataRow(id); row >= 0) map_.release(row);
    if (!made.isValid()) return;
    model().revert();
    if (there() && made.isValid()) model().removeRow(made.row());
    if (there() && made.isValid()) parked_.emplace_back(made, RowId::None);
}

void ModelSheet::Link::refuseNew(RowId id, int column, const QString& why) {
    failed_.insert(id);
    refuse(id, column, why);
}

// --- What was refused

QString ModelSheet::Link::whyRefused() const {
    const auto asked = reason;
    const QString why = asked ? asked() : QString();
    return why.isEmpty() ? NotTaken : why;
}

/// On a cell that is seen.
void ModelSheet::Link::refuse(RowId id, int column, const QString& why) {
    const int row = dataRow(id);
    if (row < 0) return;
    for (int i = 0; i < columns() && theGrid_.ColHidden(colOf(column)); ++i)
        column = (column + 1) % columns();
    theGrid_.Mark(row + firstRow(), colOf(column), CellMark{CellMark::Kind::Problem, why.toStdString()});
    if (there()) Q_EMIT face_->refused(row + firstRow(), colOf(column), why);
}

void ModelSheet::Link::unmark(int row, int column) {
    const CellMark* const mark = theGrid_.Mark(row + firstRow(), colOf(column));
    if (mark && mark->kind == CellMark::Kind::Problem)
        theGrid_.Mark(row + firstRow(), colOf(column), std::nullopt);
}

bool ModelSheet::Link::submit() {
    if (!there()) return false;
    const auto self = shared_from_this();
    if (!theGrid_.ValidTextData() || !there()) return false;
    flush(Cause::Code);
    if (!there() || flushing_) return false;
    const support::FlagSpan flushing(flushing_);
    unsent_.merge(std::exchange(failed_, {}));
    bool done = submitOpen();
    if (there()) sendNew(Cause::Code, true);
    if (there()) done = submitOpen() && done;
    if (there()) done = model().submit() && done;
    ensureSpare();
    settleTotals();
    return there() && done && failed_.empty();
}
}  // namespace kxVsGrid::qt

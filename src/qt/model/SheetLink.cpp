#include "qt/model/SheetLink.h"

#include <algorithm>

#include "support/FlagSpan.h"

namespace kxVsGrid::qt {

ModelSheet::Link::Own::Own(Link& link, int firstRow, int lastRow, int column)
    : link_(link),
      unrecorded_(link.theGrid_.Unrecorded()),
      before_(std::exchange(link.own_, {firstRow, lastRow, column})) {
    ++link_.ownDepth_;
}

ModelSheet::Link::Own::~Own() {
    --link_.ownDepth_;
    link_.own_ = before_;
}

ModelSheet::Link::Link(ModelSheet& face, kxGrid& grid, QAbstractItemModel& model)
    : face_(&face), model_(&model), theGrid_(grid), grid_(grid) {}

void ModelSheet::Link::attach() {
    if (!theGrid_.Own(weak_from_this())) throw GridError("ModelSheet: the grid has an owner already");
    theGrid_.Options().FillsToLastLine(true);
    if (theGrid_.Options().ReadOnlyShade() == 0) theGrid_.Options().ReadOnlyShade(5);
    idle_.setInterval(0);
    QObject::connect(&idle_, &QTimer::timeout, &idle_, [this] {
        if (!there()) return idle_.stop();
        safely([this] { fetchSlice(); });
    });
    theGrid_.Clear();
    theGrid_.ClearMarks();
    map_.begin(theGrid_.Rows() - firstRow());
    cells().AddListener(*this);
    hearGrid();
    hearModel();
    attached_ = true;
    planColumns();
    guess();
    layOut();
    resetRows();
}

void ModelSheet::Link::leave() {
    if (attached_) grid_.removeListener(*this);
    connections_.clear();
    if (model_) QObject::disconnect(model_, nullptr, &scope_, nullptr);
    idle_.stop();
    face_ = nullptr;
}

// --- Ties

void ModelSheet::Link::hearGrid() {
    // Each of these may be called while the sheet goes.
    const auto tie = [this](auto& event, auto work) {
        connections_.emplace_back(event.connect([weak = weak_from_this(), work](auto&&... arguments) {
            const auto self = weak.lock();
            if (self && self->there()) work(*self, arguments...);
        }));
    };
    kxGrid& grid = theGrid_;
    connections_.emplace_back(grid.AddVsRow.connect([weak = weak_from_this()](std::int32_t, bool& consent) {
        const auto self = weak.lock();
        consent = self && self->there() && self->theGrid_.Editable() && self->takesRows();
    }));
    connections_.emplace_back(
        grid.DeleteVsRow.connect([weak = weak_from_this()](std::int32_t row, bool& consent) {
            const auto self = weak.lock();
            consent = self && self->there() && self->theGrid_.Editable();
            if (!consent) return;
            self->fetchRow(row - self->firstRow());
            const int modelRow = self->map_.modelRow(row - self->firstRow());
            consent = modelRow < 0 || (self->mayRemove && self->isEditable(modelRow));
        }));
    connections_.emplace_back(grid.AfterAddRow.connect(
        [](bool& keeps, std::int32_t, bool copied, std::int32_t) { keeps = copied; }));
    connections_.emplace_back(grid.Options().CellLocked.connect(
        [weak = weak_from_this()](std::int32_t row, std::int32_t col, bool& locked) {
            const auto self = weak.lock();
            if (!self || !self->there()) {
                locked = true;
                return;
            }
            if (self->locked(row - self->firstRow(), col - self->theGrid_.FixedCols())) locked = true;
        }));
    tie(grid.Options().RowInUse, [](Link& self, std::int32_t row, bool& inUse) {
        self.fetchAll();
        inUse = self.there() && !self.isEmpty(row - self.firstRow());
    });
    tie(grid.Options().AllRowsNeeded, [](Link& self) { self.fetchAll(); });
    tie(grid.Changes().After, [](Link& self, const StepChanges& step) { self.flush(step.cause); });
    tie(grid.AfterRowColChange, [](Link& self, auto before, auto, auto now, auto) {
        if (before != now) self.leftRow();
    });
    tie(grid.Grid().BeforeRowColChange,
        [](Link& self, auto, auto, auto row, auto...) { self.fetchRow(row - self.firstRow()); });
    tie(grid.Grid().SelChange, [](Link& self) { self.fetchSelected(); });
    const auto look = [](Link& self, auto&&...) { self.fetchVisible(); };
    const auto fitAndLook = [](Link& self, auto&&...) {
        self.fit();
        if (self.there()) self.fetchVisible();
    };
    tie(grid.Grid().AfterScroll, look);
    tie(grid.Grid().OffsetChanged, look);
    tie(grid.Grid().RowsReordered, look);
    tie(grid.Grid().PlacesChanged, fitAndLook);
    tie(grid.Grid().SizeChanged, fitAndLook);
    tie(grid.Grid().RowMoved, fitAndLook);
}

/// No exception leaves into Qt: what a listener of the grid throws is lost where nobody called the grid.
template <class Work>
void ModelSheet::Link::safely(Work work) noexcept try {
    const auto self = shared_from_this();
    if (there()) work();
} catch (...) {
    later();
}

void ModelSheet::Link::hearModel() {
    using Model = QAbstractItemModel;
    const auto tie = [this](auto signal, auto slot) {
        QObject::connect(&model(), signal, &scope_,
                         [this, slot](const auto&... arguments) { safely([&] { slot(arguments...); }); });
    };
    tie(&Model::dataChanged, [this](const QModelIndex& first, const QModelIndex& last,
                                    const QList<int>& roles) { dataChanged(first, last, roles); });
    tie(&Model::rowsInserted, [this](const QModelIndex& parent, int first, int last, const auto&...) {
        if (!parent.isValid()) rowsInserted(first, last);
    });
    tie(&Model::rowsRemoved, [this](const QModelIndex& parent, int first, int last, const auto&...) {
        if (!parent.isValid()) rowsRemoved(first, last);
    });
    tie(&Model::rowsMoved,
        [this](const QModelIndex& from, int first, int last, const QModelIndex& to, int row, const auto&...) {
            if (!from.isValid() && !to.isValid()) return rowsMoved(first, last, row);
            if (!from.isValid() || !to.isValid()) modelReset();
        });
    tie(&Model::layoutAboutToBeChanged, [this](const auto&...) { beforeLayout(); });
    tie(&Model::layoutChanged,
        [this](const QList<QPersistentModelIndex>&, Model::LayoutChangeHint hint) { layoutChanged(hint); });
    tie(&Model::modelReset, [this](const auto&...) { modelReset(); });
    tie(&Model::headerDataChanged, [this](Qt::Orientation orientation, int first, int last) {
        if (orientation == Qt::Horizontal) recaption(first, last);
    });
    tie(&Model::columnsInserted, [this](const QModelIndex& parent, int first, int last, const auto&...) {
        if (parent.isValid()) return;
        changeColumns([&] {
            for (int column = first; column <= last; ++column)
                plans_.insert(plans_.begin() + column, ModelPlan());
        });
    });
    tie(&Model::columnsRemoved, [this](const QModelIndex& parent, int first, int last, const auto&...) {
        if (parent.isValid()) return;
        changeColumns([&] { plans_.erase(plans_.begin() + first, plans_.begin() + last + 1); });
    });
    tie(&Model::columnsMoved, [this](const QModelIndex& from, int first, int last, const QModelIndex& to,
                                     int column, const auto&...) {
        if (from.isValid() || to.isValid()) return;
        changeColumns([&] {
            const auto begin = plans_.begin();
            if (column > last)
                std::rotate(begin + first, begin + last + 1, begin + column);
            else
                std::rotate(begin + column, begin + first, begin + last + 1);
        });
    });
}

/// What is written outside of steps is told when the loop runs.
void ModelSheet::Link::later() noexcept try {
    if (!face_ || std::exchange(scheduled_, true)) return;
    QMetaObject::invokeMethod(
        face_,
        [weak = weak_from_this()] {
            const auto self = weak.lock();
            if (!self) return;
            self->scheduled_ = false;
            self->safely([&] {
                if (self->cells().StepOpen()) return;
                self->flush(Cause::Code);
                if (self->there()) self->leftRow();
            });
        },
        Qt::QueuedConnection);
} catch (...) {
    scheduled_ = false;  // the next step tells it
}

// --- What is heard of the grid

void ModelSheet::Link::note(std::int32_t row, int column) {
    Cols& cols = dirty_[cells().IdOf(row)];
    if (std::find(cols.begin(), cols.end(), column) == cols.end()) cols.push_back(column);
    later();
}

void ModelSheet::Link::written(std::int32_t row, std::int32_t col, CellPart part, std::string_view,
                               std::string_view) noexcept try {
    if (part == CellPart::Tag || !there()) return;
    const int data = row - firstRow();
    const int column = col - theGrid_.FixedCols();
    if (data < 0 || column < 0 || column >= columns()) return;
    totalsDue_ = totalsDue_ || ownDepth_ > 0;
    if (ownDepth_ > 0 && column == own_.column && data >= own_.firstRow && data <= own_.lastRow) return;
    note(row, column);
} catch (...) {
    compareAll_ = true;
}

/// A removed row whose step is taken back is the model's again.
void ModelSheet::Link::added(std::int32_t at, std::int32_t count) noexcept try {
    if (!there()) return;
    const int first = std::max(0, at - firstRow());
    map_.inserted(first, count);
    if (ownDepth_ > 0) return;
    for (std::int32_t row = at; row < at + count; ++row) {
        const RowId id = cells().KnownId(row);
        const auto gone = std::find_if(removed_.begin(), removed_.end(),
                                       [id](const Removed& removed) { return removed.row == id; });
        if (id != RowId::None && gone != removed_.end()) {
            map_.bind(row - firstRow(), gone->modelRow);
            map_.fetched(row - firstRow());
            removed_.erase(gone);
        } else if (cells().StepOpen()) {
            cameBack_.insert(cells().IdOf(row));
        }
    }
    later();
} catch (...) {
    compareAll_ = true;
}

void ModelSheet::Link::removing(std::int32_t at, std::int32_t count) noexcept try {
    if (!there()) return;
    const int first = std::max(0, at - firstRow());
    if (ownDepth_ == 0) {
        for (int row = first; row < first + count; ++row)
            if (const int modelRow = map_.modelRow(row); modelRow >= 0)
                removed_.push_back({idOf(row), modelRow});
        later();
    }
    map_.removed(first, count);
} catch (...) {
    compareAll_ = true;
}

void ModelSheet::Link::reordered(std::int32_t first, std::span<const std::int32_t> from) noexcept try {
    if (there()) map_.reordered(first - firstRow(), from, firstRow());
} catch (...) {
    compareAll_ = true;
}

/// The clerk may have left a row in it.
void ModelSheet::Link::stepClosed(std::string_view, Cause) noexcept {
    if (!unsent_.empty() || open_.isValid()) later();
}

void ModelSheet::Link::cleared(std::int32_t, std::int32_t) noexcept {
    compareAll_ = true;
    later();
}

// --- Questions

int ModelSheet::Link::dataRow(RowId id) const {
    const std::int32_t row = there() ? cells().RowOf(id) : -1;
    return row < firstRow() ? -1 : row - firstRow();
}

bool ModelSheet::Link::isEditable(int modelRow) const {
    for (int column = 0; column < columns(); ++column)
        if (index(modelRow, column).flags() & (Qt::ItemIsEditable | Qt::ItemIsUserCheckable)) return true;
    return false;
}

/// A model whose first rows cannot be edited is taken for one that cannot be changed at all.
bool ModelSheet::Link::takesRows() const {
    constexpr int Enough = 8;
    if (!mayInsert || open_.isValid()) return mayInsert;
    int seen = 0;
    for (int modelRow = 0; modelRow < map_.modelRows() && seen < Enough; ++modelRow) {
        if (map_.rowOf(modelRow) < 0) continue;  // one that it keeps as removed
        if (isEditable(modelRow)) return true;
        ++seen;
    }
    return seen == 0;
}

/// A model may lock all other rows as long as one of them is not submitted, which the way there will do.
bool ModelSheet::Link::locked(int row, int column) {
    if (row < 0 || column < 0 || column >= columns()) return false;
    fetchRow(row);
    if (!there()) return true;
    const int modelRow = map_.modelRow(row);
    if (modelRow < 0) return !mayInsert;
    const bool other = open_.isValid() && open_.row() != modelRow;
    return !other && !(index(modelRow, column).flags() & (Qt::ItemIsEditable | Qt::ItemIsUserCheckable));
}

std::int32_t ModelSheet::Link::gridRow(const QModelIndex& index) const {
    if (!there() || index.model() != model_ || index.parent().isValid()) return -1;
    const int row = map_.rowOf(index.row());
    return row < 0 ? -1 : row + firstRow();
}

std::int32_t ModelSheet::Link::gridCol(const QModelIndex& index) const {
    return there() && index.model() == model_ && index.column() < columns() ? colOf(index.column()) : -1;
}

QModelIndex ModelSheet::Link::indexAt(std::int32_t row, std::int32_t col) const {
    if (!there()) return {};
    const int modelRow = map_.modelRow(row - firstRow());
    const int column = col - theGrid_.FixedCols();
    return modelRow < 0 || column < 0 || column >= columns() ? QModelIndex() : index(modelRow, column);
}
}  // namespace kxVsGrid::qt

// What ties a model to a grid: which row is which, what of the grid the model has not got yet, and the way of each
// change to the other side.
#pragma once

#include <QPersistentModelIndex>
#include <QPointer>
#include <QTimer>
#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "kxVsGrid/ChangeListener.h"
#include "kxVsGrid/qt/ModelSheet.h"
#include "qt/model/GridTie.h"
#include "qt/model/ModelPlan.h"
#include "qt/model/RowMap.h"

namespace kxVsGrid::qt {

class ModelSheet::Link : private ChangeListener, public std::enable_shared_from_this<Link> {
  public:
    Link(ModelSheet& face, kxGrid& grid, QAbstractItemModel& model);
    Link(const Link&) = delete;
    Link& operator=(const Link&) = delete;
    /// Lays out, and listens to both.
    void attach();
    /// The sheet goes.
    void leave();

    /// The sheet, its grid and its model are there.
    bool there() const { return face_ && model_ && grid_.there(); }

    // --- Columns (SheetColumns.cpp)
    int columnNamed(const QString& name) const;
    int columns() const { return static_cast<int>(plans_.size()); }
    void change(int column, const std::function<void(ModelPlan&)>& change);
    void allow(bool& what, bool may);

    // --- Grid to model (SheetWrites.cpp)
    bool submit();
    bool hasUnsent() const { return !unsent_.empty() || !failed_.empty(); }

    // --- Texts (SheetFetch.cpp)
    bool whole() const { return there() && wholeTold_; }
    void fetchAll();

    std::int32_t gridRow(const QModelIndex& index) const;
    std::int32_t gridCol(const QModelIndex& index) const;
    QModelIndex indexAt(std::int32_t row, std::int32_t col) const;

    bool mayInsert = true;
    bool mayRemove = true;
    std::function<QString()> reason;

  private:
    using Cols = std::vector<std::int32_t>;  ///< by number of the model's columns

    /// Writes of the sheet's own, which are no steps, and which it does not hear as the clerk's.
    class Own {
      public:
        Own(Link& link, int firstRow, int lastRow, int column);
        ~Own();
        Own(const Own&) = delete;
        Own& operator=(const Own&) = delete;

      private:
        Link& link_;
        UnrecordedSpan unrecorded_;
        struct Range {
            int firstRow, lastRow, column;
        } before_;
        friend class Link;
    };
    /// A cell of a row that the model is to get.
    struct Sent {
        int column;
        std::string text;
    };
    struct Waiting {
        RowId row;
        std::vector<Sent> cells;
    };
    struct Removed {
        RowId row;
        int modelRow;
    };

    // ChangeListener
    bool hearsFilled() const noexcept override { return false; }
    void written(std::int32_t row, std::int32_t col, CellPart part, std::string_view before,
                 std::string_view after) noexcept override;
    void added(std::int32_t at, std::int32_t count) noexcept override;
    void removing(std::int32_t at, std::int32_t count) noexcept override;
    void reordered(std::int32_t first, std::span<const std::int32_t> from) noexcept override;
    void cleared(std::int32_t first, std::int32_t last) noexcept override;
    void stepClosed(std::string_view name, Cause cause) noexcept override;
    void note(std::int32_t row, int column);

    // --- Ties (SheetLink.cpp)
    void hearGrid();
    void hearModel();
    template <class Work>
    void safely(Work work) noexcept;
    void later() noexcept;
    CellGrid& cells() const { return theGrid_.Grid(); }
    QAbstractItemModel& model() const { return *model_; }
    int firstRow() const { return theGrid_.FixedRows(); }
    std::int32_t colOf(int column) const { return theGrid_.FixedCols() + column; }
    ModelPlan& plan(int column) { return plans_[static_cast<std::size_t>(column)]; }
    QModelIndex index(int modelRow, int column) const { return model_->index(modelRow, column); }
    /// In data rows; -1 when it has gone.
    int dataRow(RowId id) const;
    RowId idOf(int row) const { return cells().IdOf(row + firstRow()); }
    bool isCurrent(int row) const { return theGrid_.Row() - firstRow() == row; }
    bool locked(int row, int column);
    bool takesRows() const;
    bool isEditable(int modelRow) const;

    // --- Columns
    std::string headerOf(int column) const;
    bool planColumns();
    bool guess();
    void layOut();
    void define();
    void allowWhole();
    void recaption(int first, int last);
    void fit();
    void fitNumbers();

    // --- Texts
    std::string modelText(int modelRow, int column) const;
    void put(int row, int column, const std::string& text);
    void fetchRow(int row);
    void fetchRows(int first, int last);
    void fetchBlock(int first, int last);
    void fetchVisible();
    void fetchSelected();
    void fetchSlice();
    void fetchModel();
    void fetchMore();
    void readBack(int row);
    bool isDirty(int row, int column) const;
    bool isDirty(int row) const;
    bool fetchesMore() const { return !stuck_ && model_->canFetchMore({}); }
    void missed();
    void tellWhole();

    // --- Rows (SheetRows.cpp)
    void resetRows();
    void insertRows(int row, int count);
    void removeRows(const std::vector<int>& rows);
    void ensureSpare();
    void dropEmpty();
    bool isEmpty(int row) const;
    bool isTypedInto(int row) const;
    int placeFor(int modelRow) const;
    int modelPlaceFor(int row, RowId id) const;
    void comeBack(int first, int last);
    void putBack(const Removed& row, const QString& why);
    void inModelOrder();

    // --- Grid to model
    void flush(Cause cause);
    void sendAll(Cause cause);
    std::vector<Waiting> takeDirty(Cause cause);
    bool wasUnborn(RowId id, int row);
    void sendRemovals();
    void removeRange(int first, const std::vector<Removed>& rows);
    void removeOne(const QPersistentModelIndex& index, const Removed& row);
    void sendRow(const Waiting& waiting);
    QString refusal(const QPersistentModelIndex& row, const Sent& cell);
    void sendNew(Cause cause, bool all);
    bool sendNewRow(RowId id);
    std::vector<Sent> filledCells(int row) const;
    int missingColumn(const std::vector<Sent>& cells) const;
    int fillNew(const QPersistentModelIndex& made, const std::vector<Sent>& cells, QString& why);
    void failNew(RowId id, const QPersistentModelIndex& made);
    void refuseNew(RowId id, int column, const QString& why);
    bool submitOpen();
    void leftRow();
    QString whyRefused() const;
    void refuse(RowId id, int column, const QString& why);
    void unmark(int row, int column);
    void settleTotals();

    // --- Model to grid (SheetModel.cpp)
    void dataChanged(const QModelIndex& first, const QModelIndex& last, const QList<int>& roles);
    void rowsInserted(int first, int last);
    void rowsRemoved(int first, int last);
    void rowsSettled();
    void rowsMoved(int first, int last, int to);
    void beforeLayout();
    void layoutChanged(QAbstractItemModel::LayoutChangeHint hint);
    void renumber(const std::vector<int>& numbers);
    void modelReset();
    void changeColumns(const std::function<void()>& change);

    ModelSheet* face_;
    QPointer<QAbstractItemModel> model_;
    kxGrid& theGrid_;
    GridTie grid_;
    std::vector<ScopedConnection> connections_;
    QObject scope_;  ///< of the ties to the model
    QTimer idle_;

    std::vector<ModelPlan> plans_;
    RowMap map_;
    Own::Range own_{-1, -1, -1};  ///< the cells that the sheet itself is writing
    int ownDepth_ = 0;            ///< the sheet itself writes, or brings and takes rows
    int nextSlice_ = 0;

    std::map<RowId, Cols> dirty_;  ///< what was written and the model has not been told
    std::vector<Removed>
        removed_;               ///< rows of the model that have gone from the grid, and it has not been told
    std::set<RowId> unsent_;    ///< new rows that wait
    std::set<RowId> failed_;    ///< new rows that were refused
    std::set<RowId> cameBack_;  ///< rows that the step under way has added
    std::map<RowId, Cols> born_;  ///< rows that became the model's here, and which cells were filled
    std::vector<std::pair<QPersistentModelIndex, RowId>>
        parked_;                  ///< rows that the model has marked as removed
    QPersistentModelIndex open_;  ///< changed, and not submitted
    RowId openRow_ = RowId::None;
    Cols openCols_;
    RowId inserting_ = RowId::None;  ///< the row that is becoming one of the model's
    QPersistentModelIndex inserted_;
    std::vector<QPersistentModelIndex> layout_;  ///< the model's rows while their order becomes another one
    bool attached_ = false;
    bool flushing_ = false;
    bool scheduled_ = false;
    bool fetching_ = false;
    bool fitting_ = false;
    std::size_t digits_ = 0;  ///< of row numbers that there is room for
    bool stuck_ = false;      ///< the model says that it has more, and brings nothing
    bool wholeTold_ = false;
    bool totalsDue_ = false;
    bool compareAll_ = false;  ///< more may have been written than is known
};
}  // namespace kxVsGrid::qt

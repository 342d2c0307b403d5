// What a Qt programmer in want of speed writes by hand: a table model over one flat array of cells. A cell
// has what a cell of the grid has: a text, a tag, an alignment and two colours.
#pragma once

#include <QAbstractTableModel>
#include <QString>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace kxbench {

class LeanModel : public QAbstractTableModel {
  public:
    struct Cell {
        QString text;
        QString tag;
        std::int32_t alignment = 0;  ///< Qt::Alignment; 0 is not set
        std::uint32_t foreColor = 0;
        std::uint32_t backColor = 0;
        bool foreColorSet = false;
        bool backColorSet = false;
    };
    static constexpr int TagRole = Qt::UserRole;

    /// Empty cells; what was there is dropped.
    void resize(int rows, int cols);
    /// Direct access for a fill between reset() and the next change.
    template <class Fill>
    void refill(int rows, int cols, Fill fill) {
        beginResetModel();
        cells_.clear();
        allocate(rows, cols);
        for (int row = 0; row < rows; ++row)
            for (int col = 0; col < cols; ++col) fill(row, col, at(row, col));
        endResetModel();
    }

    /// The same, column by column: `fill(col, cell)` gets the column's first cell; the next row's comes
    /// `cols` cells later.
    template <class Fill>
    void refillColumns(int rows, int cols, Fill fill) {
        beginResetModel();
        cells_.clear();
        allocate(rows, cols);
        for (int col = 0; col < cols; ++col) fill(col, cells_.data() + col);
        endResetModel();
    }

    /// Every cell, row by row.
    const std::vector<Cell>& cells() const { return cells_; }

    int rowCount(const QModelIndex& parent = {}) const override { return parent.isValid() ? 0 : rows_; }
    int columnCount(const QModelIndex& parent = {}) const override { return parent.isValid() ? 0 : cols_; }
    Qt::ItemFlags flags(const QModelIndex& index) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    bool setData(const QModelIndex& index, const QVariant& value, int role = Qt::EditRole) override;
    bool insertRows(int row, int count, const QModelIndex& parent = {}) override;
    bool removeRows(int row, int count, const QModelIndex& parent = {}) override;

  private:
    void allocate(int rows, int cols);
    std::size_t place(int row, int col) const {
        return static_cast<std::size_t>(row) * static_cast<std::size_t>(cols_) +
               static_cast<std::size_t>(col);
    }
    Cell& at(int row, int col) { return cells_[place(row, col)]; }
    const Cell& at(int row, int col) const { return cells_[place(row, col)]; }

    std::vector<Cell> cells_;
    int rows_ = 0;
    int cols_ = 0;
};
static_assert(sizeof(LeanModel::Cell) == 64);
}  // namespace kxbench

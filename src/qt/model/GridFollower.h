// Follows a grid for a model: hears of each change, keeps what the model has not told yet, and tells it.
#pragma once

#include <cstdint>
#include <limits>
#include <memory>
#include <set>
#include <utility>

#include "kxVsGrid/ChangeListener.h"
#include "kxVsGrid/qt/GridModel.h"
#include "qt/model/GridTie.h"
#include "qt/model/RowMoves.h"

namespace kxVsGrid::qt {

class GridModel::Follower : private ChangeListener, public std::enable_shared_from_this<Follower> {
  public:
    Follower(GridModel& model, kxGrid& grid);
    Follower(const Follower&) = delete;
    Follower& operator=(const Follower&) = delete;
    /// The model goes; a call of it may still be underway.
    void leave();

    /// None when it has gone.
    kxGrid* grid() const { return there_.there() ? &grid_ : nullptr; }
    int rows() const { return grid() ? rows_ : 0; }
    int cols() const { return grid() ? cols_ : 0; }
    /// Where a row of the model stands in the grid, -1 for one that has gone; and the other way round.
    std::int32_t gridRow(int row) const;
    std::int32_t gridCol(int col) const { return col + fixedCols_; }
    int modelRow(std::int32_t row) const;
    void flush();

  private:
    using Cols = std::pair<std::int32_t, std::int32_t>;  ///< first and last, in the grid
    static constexpr Cols NoCols{std::numeric_limits<std::int32_t>::max(), -1};

    bool hearsFilled() const noexcept override { return false; }
    void written(std::int32_t row, std::int32_t col, CellPart part, std::string_view before,
                 std::string_view after) noexcept override;
    void added(std::int32_t at, std::int32_t count) noexcept override;
    void removing(std::int32_t at, std::int32_t count) noexcept override;
    void reordered(std::int32_t first, std::span<const std::int32_t> from) noexcept override;
    void cleared(std::int32_t first, std::int32_t last) noexcept override;
    void columnsChanged() noexcept override { begin(reset_); }
    void shown(std::int32_t col) noexcept override;

    void begin(bool& what) noexcept;
    void dirty(std::int32_t row, Cols cols);
    void later() noexcept;
    bool isElsewhere() const;
    bool pending() const {
        return !moves_.empty() || reset_ || all_ || headers_ || !dirty_.empty() || isElsewhere();
    }
    void look();
    void tellReset();
    void tellMove();
    void tellReordered(const RowMoves::Move& move);
    void tellCells();
    void tellHeaders();
    void tellCells(std::int32_t firstRow, std::int32_t lastRow, Cols cols);

    GridModel& model_;
    kxGrid& grid_;
    GridTie there_;
    ScopedConnection stepped_;
    int rows_ = 0;
    int cols_ = 0;
    std::int32_t fixedRows_ = 0;
    std::int32_t fixedCols_ = 0;
    RowMoves moves_;
    std::set<RowId> dirty_;    ///< rows that have been written to
    Cols dirtyCols_ = NoCols;  ///< and the columns between the outermost cells
    bool all_ = false;         ///< any cell may have become another one
    bool headers_ = false;     ///< a caption may have become another one
    bool reset_ = false;       ///< the whole may have become another one
    bool telling_ = false;
    bool scheduled_ = false;
};
}  // namespace kxVsGrid::qt

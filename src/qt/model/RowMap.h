// Which row of a model stands in which data row of a grid: a number for each row both ways, whoever moves them.
//
// Data rows count from 0 here, below the headings. A row of the grid that is none of the model's is a loose one; its
// texts are not there yet while it is missing.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace kxVsGrid::qt {

class RowMap {
  public:
    int rows() const { return static_cast<int>(model_.size()); }
    int modelRows() const { return modelRows_; }
    /// -1 for a loose row.
    int modelRow(int row) const { return isRow(row) && at(row) >= 0 ? at(row) & ~Missing : -1; }
    /// Where a row of the model stands, -1 nowhere. Takes a time that grows with the rows after they have moved.
    int rowOf(int modelRow) const;
    bool isMissing(int row) const { return isRow(row) && at(row) >= Missing; }
    int missing() const { return missing_; }
    /// The first one from a row on, and no later than another one; -1 for none.
    int missingIn(int row, int last) const;
    /// The model's rows stand in its order.
    bool inOrder() const;
    /// The last row that is no loose one, -1 for none.
    int lastBound() const;

    // --- The grid's rows
    void begin(int rows);
    void inserted(int row, int count);
    void removed(int row, int count);
    /// `from` says which row, by its old place, stands at each place from `first` on.
    void reordered(int first, std::span<const std::int32_t> from, std::int32_t base);

    // --- What stands there
    /// Loose rows become `count` rows of the model, from `modelRow` on; missing ones.
    void bind(int row, int modelRow, int count = 1);
    /// The row is loose from now on.
    void release(int row);
    void fetched(int row);
    void lost(int row);
    void allLost();

    // --- The model's rows
    void modelBegin(int rows);
    void modelInserted(int first, int count);
    /// Those that still stand in the grid are loose then.
    void modelRemoved(int first, int count);
    /// Each one has become another one, by its old number; -1: none.
    void renumber(std::span<const int> rows);

  private:
    static constexpr std::int32_t Missing = 1 << 30;

    bool isRow(int row) const { return row >= 0 && row < rows(); }
    std::int32_t at(int row) const { return model_[static_cast<std::size_t>(row)]; }
    std::int32_t& at(int row) { return model_[static_cast<std::size_t>(row)]; }
    void forgetPlaces() { stale_ = true; }

    std::vector<std::int32_t> model_;  ///< by row: the model's, with a bit for a missing one; -1 loose
    mutable std::vector<std::int32_t> place_;  ///< the other way round
    mutable bool stale_ = false;
    int modelRows_ = 0;
    int missing_ = 0;
};
}  // namespace kxVsGrid::qt

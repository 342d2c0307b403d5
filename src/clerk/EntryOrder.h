// The order that rows stood in before the clerk sorted them.
//
// It is known from the first sort on, however rows come, go and change places meanwhile. Rows that came later stand
// behind the others. Once the rows stand in it again, it is forgotten with the next change of their order that is
// neither a sort nor the way back to one.
#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "kxVsGrid/CellGrid.h"

namespace kxVsGrid::clerk {

class EntryOrder : private ChangeListener {
  public:
    explicit EntryOrder(CellGrid& grid) : grid_(grid) {}
    ~EntryOrder() override { forget(); }
    EntryOrder(const EntryOrder&) = delete;
    EntryOrder& operator=(const EntryOrder&) = delete;

    /// So many data rows are about to be sorted.
    void sorting(std::size_t rows);
    /// The rows stand in another order than they did.
    bool isAnother() const { return another_ && first_ == grid_.FixedRows(); }
    /// The old order, as CellGrid::Reorder takes it from the first data row on.
    std::vector<std::int32_t> order() const;

  private:
    void keep(std::size_t rows);
    void added(std::int32_t at, std::int32_t count) noexcept override;
    void removing(std::int32_t at, std::int32_t count) noexcept override;
    void stepOpened(std::string_view name, Cause cause) noexcept override;
    void stepClosed(std::string_view name, Cause cause) noexcept override;
    void reordered(std::int32_t first, std::span<const std::int32_t> from) noexcept override;
    void forget() noexcept;
    /// Where a row's place stands in places_; its size for rows below those that are kept.
    std::size_t indexOf(std::int32_t row) const noexcept;

    CellGrid& grid_;
    std::int32_t first_ = 0;            ///< the first data row
    std::vector<std::int32_t> places_;  ///< of each data row as they stand: where it stood
    std::int32_t known_ = 0;            ///< so many places were given out
    bool another_ = false;
    bool goingBack_ = false;  ///< an undo or a redo is under way
    bool sorting_ = false;    ///< the next change of the order is a sort
    bool listening_ = false;
};
}  // namespace kxVsGrid::clerk

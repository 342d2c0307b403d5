// Which lines were added, changed and removed since the grid was saved: by row id, what each cell that was
// written to held then.
//
// Only the first write to a text or tag counts, and most of what is written to was empty: that is one bit in a
// record of its row. What was there is kept besides. Nothing is judged before somebody asks; values are
// compared then. Rows that came need no record of their own: they are empty, as what is no line.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "changes/EmptyCells.h"
#include "changes/Listening.h"
#include "kxVsGrid/CellGrid.h"
#include "kxVsGrid/Changes.h"

namespace kxVsGrid::changes {

class ChangeLog : private ChangeListener {
  public:
    explicit ChangeLog(CellGrid& grid) : grid_(grid) {}
    ChangeLog(const ChangeLog&) = delete;
    ChangeLog& operator=(const ChangeLog&) = delete;

    void saved() noexcept;
    /// Unknown until saved() is called.
    void stop() noexcept;
    bool empty();
    bool unknown() const;
    std::vector<RowId> addedRows();
    std::vector<ChangedRow> changedRows();
    std::vector<RemovedRow> removedRows();

  private:
    static constexpr std::int32_t GroupCols = EmptyCells::Cols;
    static constexpr std::size_t PageRows = 256;
    static constexpr std::uint32_t None = 0xFFFF'FFFF;
    /// The columns [32 group, 32 group + 32) of a row, of which something was written to.
    struct Block {
        RowId row;
        std::int32_t group;
        std::uint32_t next;     ///< another one of the row
        std::uint32_t first;    ///< of its kept texts
        std::uint64_t touched;  ///< texts and tags that were written to: EmptyCells
    };
    /// A text or tag that was not empty, as saved.
    struct Kept {
        std::size_t at;
        std::uint32_t length;
        std::uint32_t next;
        std::int16_t col;
        CellPart part;
    };
    static_assert(CellGrid::MaxCols <= INT16_MAX);
    /// The same of one row, in order.
    struct Slot {
        std::int32_t col;
        CellPart part;
        std::string_view text;
    };
    enum class Verdict { Same, Added, Changed, Removed };
    /// What has become of a row.
    struct Judged {
        Verdict verdict = Verdict::Same;
        std::int32_t place = -1;
        std::vector<Slot> differing;  ///< as saved
    };

    // ChangeListener
    void written(std::int32_t row, std::int32_t col, CellPart part, std::string_view before,
                 std::string_view after) noexcept override;
    bool hearsFilled() const noexcept override { return true; }
    void filled(std::int32_t row, std::int32_t col, std::uint32_t texts,
                std::uint32_t tags) noexcept override;
    void added(std::int32_t at, std::int32_t count) noexcept override;
    void removing(std::int32_t at, std::int32_t count) noexcept override;
    void reordered(std::int32_t first, std::span<const std::int32_t> from) noexcept override;
    void cleared(std::int32_t first, std::int32_t last) noexcept override;
    void columnsChanged() noexcept override;

    void lose() noexcept;
    void forget() noexcept;
    void keepRows(std::int32_t first, std::int32_t last) noexcept;
    Block& know(std::int32_t row, std::int32_t group);
    void look(std::int32_t row, std::int32_t group);
    void keepText(Block& block, std::int32_t col, CellPart part, std::string_view text);
    std::uint32_t headOf(RowId row) const;
    std::uint32_t find(RowId row, std::int32_t group) const;
    std::uint32_t& obtainHead(RowId row);
    void dropIdleBlocks();

    std::vector<Slot> slotsOf(RowId row) const;
    bool touched(RowId row, std::int32_t col, CellPart part) const;
    Judged judge(RowId row) const;
    template <class Visit>
    void forEachRow(Visit visit) const;

    CellGrid& grid_;
    std::vector<Block> blocks_;
    /// The newest block of each row, by row id.
    std::vector<std::unique_ptr<std::array<std::uint32_t, PageRows>>> heads_;
    std::vector<Kept> kept_;
    std::string texts_;
    std::size_t gone_ = 0;        ///< rows that have gone since idle blocks were dropped
    std::size_t hint_ = 0;        ///< the block whose row was not as saved when last asked
    std::int32_t fixedRows_ = 0;  ///< when it was saved
    std::int32_t cols_ = 0;
    std::int32_t knownRow_ = -1;  ///< the row and group that was written to last
    std::int32_t knownGroup_ = -1;
    Block* known_ = nullptr;
    Listening listening_{grid_, *this};
};
}  // namespace kxVsGrid::changes

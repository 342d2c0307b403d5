// What it takes to take a step back: the texts and tags that it has replaced, the rows that it added, the
// rows that it removed, and the order of those that changed places. Rows are named by their ids.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "changes/EmptyCells.h"
#include "kxVsGrid/CellGrid.h"
#include "kxVsGrid/CellMark.h"

namespace kxVsGrid::changes {

struct KeptCell {
    std::int32_t col = 0;
    std::string text;
    std::string tag;
    std::optional<mEmflexAlign> alignment;
    std::optional<std::uint32_t> foreColor;
    std::optional<std::uint32_t> backColor;
};

/// A row that has gone, with all that belongs to it.
struct KeptRow {
    RowId id = RowId::None;
    std::int32_t height = 0;
    bool hidden = false;
    bool merged = false;
    std::vector<KeptCell> cells;  ///< those that are not as in a new row, by column
};

struct AddedRows {
    std::vector<RowId> ids;
};

struct RemovedRows {
    std::int32_t at = 0;
    RowId before = RowId::None;  ///< the rows that it stood between
    RowId after = RowId::None;
    std::vector<KeptRow> rows;
};

/// Rows that changed places, as they stood.
struct ReorderedRows {
    /// In their order. All of the stretch: of those that stayed some may be needed to tell where the others
    /// stood, when some have gone.
    std::vector<RowId> ids;
    /// Where few of a great many rows moved, the others are not named: those that were moved from above them
    /// stood between `outer`, which was beyond the stretch, and `inner`, the first that stayed; those from
    /// below alike.
    RowId inner = RowId::None;
    RowId outer = RowId::None;
    bool above = false;
};

/// A mark that a step has put on a cell, and what was there before.
struct KeptMark {
    RowId row = RowId::None;
    std::int32_t col = 0;
    std::optional<CellMark> before;
    std::optional<CellMark> after;
};

class Record {
  public:
    struct Entry {
        /// Most of what is written to was empty: such cells of a row share an entry, as filling a table
        /// takes a great many.
        enum class Kind : std::uint8_t { Written, Filled, Added, Removed, Reordered };
        RowId row = RowId::None;   ///< that was written to
        std::uint64_t at = 0;      ///< of the text before, or of the rows; EmptyCells
        std::uint32_t length = 0;  ///< of the text before; of empty cells the one that was written first
        std::int16_t col = 0;      ///< of empty cells the first one that there is a bit for
        Kind kind = Kind::Written;
        CellPart part = CellPart::Text;
    };
    static_assert(CellGrid::MaxCols <= INT16_MAX);

    std::string name;
    Cause cause = Cause::Code;

    bool empty() const { return entries_.empty(); }
    const std::vector<Entry>& entries() const { return entries_; }
    /// visit(col, part, before) for each text and tag of an entry's row that was written; a cell that was
    /// written first comes first.
    template <class Visit>
    void forEachWrite(const Entry& entry, Visit visit) const {
        if (entry.kind == Entry::Kind::Written)
            visit(std::int32_t{entry.col}, entry.part,
                  std::string_view(texts_).substr(entry.at, entry.length));
        if (entry.kind != Entry::Kind::Filled) return;
        const auto visitCell = [&](std::int32_t offset) {
            for (const CellPart part : {CellPart::Tag, CellPart::Text})
                if ((entry.at & EmptyCells::bit(offset, part)) != 0)
                    visit(entry.col + offset, part, std::string_view());
        };
        const auto first = static_cast<std::int32_t>(entry.length);
        visitCell(first);
        for (std::int32_t offset = 0; offset < EmptyCells::Cols; ++offset)
            if (offset != first) visitCell(offset);
    }
    /// They go back with the changes, where they still stand as they were put; of themselves they are no change.
    const std::vector<KeptMark>& marks() const { return marks_; }
    const AddedRows& added(const Entry& entry) const { return added_[entry.at]; }
    const RemovedRows& removed(const Entry& entry) const { return removed_[entry.at]; }
    const ReorderedRows& reordered(const Entry& entry) const { return reordered_[entry.at]; }
    /// Roughly what it takes of memory.
    std::size_t bytes() const;

    /// When one of these fails, nothing has changed.
    void write(RowId row, std::int32_t col, CellPart part, std::string_view before);
    /// Texts and tags that were empty: EmptyCells from `col` on, which begins a group of them.
    void fill(RowId row, std::int32_t col, std::uint64_t cells);
    void add(AddedRows rows);
    void remove(RemovedRows rows);
    void reorder(ReorderedRows rows);
    void keepMarks(std::vector<KeptMark> marks);
    /// Little will be added to it any more: gives back what it does not need.
    void finish();
    /// The entries that are there grow no more: their number marks this moment.
    std::size_t mark() noexcept;
    /// What was recorded from the `mark`-th entry on, which this loses.
    Record cutFrom(std::size_t mark);
    /// Nothing is recorded any more; name and cause stay.
    void cutAll() noexcept;

  private:
    static constexpr std::size_t None = static_cast<std::size_t>(-1);

    std::vector<Entry> entries_;
    std::size_t filled_ = None;  ///< the entry of empty cells that may grow
    std::string texts_;
    std::vector<AddedRows> added_;
    std::vector<RemovedRows> removed_;
    std::vector<ReorderedRows> reordered_;
    std::vector<KeptMark> marks_;
    std::size_t rowBytes_ = 0;
};

/// What memory a number of rows would take, before it is taken.
std::size_t bytesOfRows(std::int32_t count);
/// Rows that are about to go.
RemovedRows keepRows(CellGrid& grid, std::int32_t at, std::int32_t count);
/// The order of rows that have changed places just now (ChangeListener::reordered).
std::vector<ReorderedRows> keepOrder(CellGrid& grid, std::int32_t first, std::span<const std::int32_t> from);
/// What memory that would take, before it is taken.
std::size_t bytesOfOrder(std::span<const std::int32_t> from);
/// The rows that were written to or added or that changed places, and the columns that were written to, as
/// they stand now; ascending.
void findPlaces(const CellGrid& grid, const Record& record, std::vector<std::int32_t>& rows,
                std::vector<std::int32_t>& cols);
}  // namespace kxVsGrid::changes

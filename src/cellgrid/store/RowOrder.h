// Which row is where: row index -> handle. Cells are stored by handle, so inserting or removing a row in the
// middle of a million moves handles of one segment and no cells. A row has no handle until something is
// written into it; rows never written cost nothing, however many there are.
#pragma once

#include <algorithm>
#include <cstdint>
#include <memory>
#include <span>
#include <vector>

#include "cellgrid/store/RunBlocks.h"

namespace kxVsGrid::cellgrid {

using RowHandle = std::uint32_t;
constexpr RowHandle NoHandle = 0xFFFF'FFFF;

class RowOrder {
  public:
    /// Handles of one segment at most.
    static constexpr std::int32_t SegmentRows = 2048;

    std::int32_t rows() const { return static_cast<std::int32_t>(segments_.count()); }
    /// Rows that have a handle.
    std::int32_t written() const { return written_; }

    /// NoHandle for a row that was never written.
    RowHandle handle(std::int32_t row) const {
        if (row < hitFirst_ || row >= hitEnd_) look(row);
        return hitHandles_ ? hitHandles_[row - hitFirst_] : NoHandle;
    }
    /// The row's handle, a fresh one when it has none. Handles are small numbers, used again once freed.
    RowHandle obtain(std::int32_t row) {
        const RowHandle known = handle(row);
        return known != NoHandle ? known : give(row);
    }

    /// Handles for the rows [row, row + n), in a time that does not grow with the rows beside them. When memory
    /// fails some of them have one.
    void obtainAll(std::int32_t row, std::int32_t n);
    /// The handles of `row` and of those after it that lie side by side with its own: at least one, no more
    /// than `n`. The row has one.
    std::span<const RowHandle> handles(std::int32_t row, std::int32_t n) const {
        if (row < hitFirst_ || row >= hitEnd_) look(row);
        return {hitHandles_ + (row - hitFirst_), static_cast<std::size_t>(std::min(n, hitEnd_ - row))};
    }

    void insert(std::int32_t row, std::int32_t n);
    /// Takes the memory that remove needs, so that it cannot fail.
    void prepareRemove(std::int32_t row, std::int32_t n);
    /// Takes rows out, after prepareRemove of the same; `freed(handle)` hears of each handle that is no
    /// longer in use. Rows that were never written need no preparation.
    template <class Freed>
    void remove(std::int32_t row, std::int32_t n, Freed freed) {
        forEach(row, row + n, [&](std::int32_t, RowHandle handle) {
            freed(handle);
            release(handle);
        });
        drop(row, n);
    }

    /// Rows [first, first + from.size()) that shall change places; `from[i]` is the old place of the one that
    /// stands at first + i then.
    struct Reordering {
        std::int32_t first = 0;
        std::vector<RowHandle> handles;  ///< as they shall stand; none when none of the rows was written
    };
    /// Takes the memory that it needs: reorder cannot fail then.
    Reordering prepareReorder(std::int32_t first, std::span<const std::int32_t> from);
    void reorder(const Reordering& prepared) noexcept;

    /// visit(row, handles, n) for stretches of rows of [first, stop), in order; some of the handles may be
    /// NoHandle. Rows in stretches that were never written are left out.
    template <class Visit>
    void forEachStretch(std::int32_t first, std::int32_t stop, Visit visit) const {
        for (auto place = segments_.find(first); !segments_.atEnd(place) && place.first < stop;
             place = segments_.next(place)) {
            const Segment& segment = segments_[place];
            if (!segment.handles) continue;
            const auto base = static_cast<std::int32_t>(place.first);
            const std::int32_t from = std::max(first, base);
            visit(from, segment.handles.get() + (from - base), std::min(stop, base + segment.count) - from);
        }
    }
    /// visit(row, handle) for the rows of [first, stop) that have one, in order.
    template <class Visit>
    void forEach(std::int32_t first, std::int32_t stop, Visit visit) const {
        forEachStretch(first, stop, [&](std::int32_t row, const RowHandle* handles, std::int32_t n) {
            for (std::int32_t i = 0; i < n; ++i) {
                if (handles[i] != NoHandle) visit(row + i, handles[i]);
            }
        });
    }

  private:
    /// Handles row by row, or, without handles, a stretch of rows never written.
    struct Segment {
        std::int32_t count = 0;
        std::int32_t capacity = 0;
        std::unique_ptr<RowHandle[]> handles;

        std::int64_t extent() const { return 0; }
        void reserve(std::int32_t rows);
        void open(std::int32_t offset, std::int32_t n);
        void close(std::int32_t offset, std::int32_t n);
        Segment tail(std::int32_t from) const;
    };
    using Segments = RunBlocks<Segment>;
    using Place = Segments::Place;

    void look(std::int32_t row) const;
    void hit(const Place& place) const;
    void forgetHit() const { hitFirst_ = hitEnd_ = 0; }
    RowHandle give(std::int32_t row);
    void provide(std::int32_t row);
    void release(RowHandle handle);
    void drop(std::int32_t row, std::int32_t n);
    bool moveIntoNext(const Place& empty, std::int32_t row, RowHandle fresh);
    void openBlock(const Place& empty, std::int32_t row, RowHandle fresh);
    void shrinkEmpty(const Place& empty, std::int32_t n = 1);
    void widen(std::int32_t row, std::int32_t n);
    void insertEmpty(std::int32_t row, std::int32_t n);
    void joinAt(std::int32_t row);
    Place giveUpTail(const Place& place, Segment tail);
    void split(std::int32_t row);

    Segments segments_;
    std::vector<RowHandle> freed_;
    RowHandle next_ = 0;
    std::int32_t written_ = 0;
    // The segment that was last looked into, none while hitEnd_ is 0: sequential access finds its row at
    // once.
    mutable Place hit_;
    mutable std::int32_t hitFirst_ = 0;
    mutable std::int32_t hitEnd_ = 0;
    mutable const RowHandle* hitHandles_ = nullptr;
};
}  // namespace kxVsGrid::cellgrid

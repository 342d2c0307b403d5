#include "cellgrid/store/RowOrder.h"

#include <new>
#include <utility>

#include "support/Room.h"

namespace kxVsGrid::cellgrid {

namespace {
/// Rows that get their handles' places together when one of them is written far from all others.
constexpr std::int32_t BlockRows = 64;
}  // namespace

void RowOrder::Segment::reserve(std::int32_t rows) {
    if (rows <= capacity) return;
    const std::int32_t wider = std::min(SegmentRows, std::max({rows, capacity * 2, 16}));
    std::unique_ptr<RowHandle[]> larger(new RowHandle[static_cast<std::size_t>(wider)]);
    std::copy_n(handles.get(), handles ? count : 0, larger.get());
    handles = std::move(larger);
    capacity = wider;
}

/// Makes room for `n` rows without a handle.
void RowOrder::Segment::open(std::int32_t offset, std::int32_t n) {
    reserve(count + n);
    RowHandle* at = handles.get() + offset;
    std::copy_backward(at, handles.get() + count, handles.get() + count + n);
    std::fill_n(at, n, NoHandle);
    count += n;
}

void RowOrder::Segment::close(std::int32_t offset, std::int32_t n) {
    if (handles) std::copy(handles.get() + offset + n, handles.get() + count, handles.get() + offset);
    count -= n;
}

/// A copy of the rows from an offset on.
RowOrder::Segment RowOrder::Segment::tail(std::int32_t from) const {
    Segment rest;
    const std::int32_t n = count - from;
    if (handles) {
        rest.reserve(n);
        std::copy_n(handles.get() + from, n, rest.handles.get());
    }
    rest.count = n;
    return rest;
}

void RowOrder::look(std::int32_t row) const {
    hit(hitEnd_ > 0 && row == hitEnd_ ? segments_.next(hit_) : segments_.find(row));
}

void RowOrder::hit(const Place& place) const {
    const Segment& segment = segments_[place];
    hit_ = place;
    hitFirst_ = static_cast<std::int32_t>(place.first);
    hitEnd_ = hitFirst_ + segment.count;
    hitHandles_ = segment.handles.get();
}

/// Comes right after a look at the row, which therefore is in the segment that was hit. The handle counts as
/// given when it has its place.
RowHandle RowOrder::give(std::int32_t row) {
    const RowHandle fresh = freed_.empty() ? next_ : freed_.back();
    if (!hitHandles_) widen(row, BlockRows);
    const Place place = hit_;
    if (segments_[place].handles) {
        segments_.change(place, [&](Segment& s) { s.handles[row - place.first] = fresh; });
    } else {
        forgetHit();
        if (!moveIntoNext(place, row, fresh)) openBlock(place, row, fresh);
    }
    if (freed_.empty())
        ++next_;
    else
        freed_.pop_back();
    ++written_;
    return fresh;
}

/// A row at the end of an empty stretch joins the handles after it, as one at its beginning joins those before it
/// (widen): filling rows in order, either way, fills segments one after the other.
bool RowOrder::moveIntoNext(const Place& empty, std::int32_t row, RowHandle fresh) {
    const Place after = segments_.next(empty);
    if (row != after.first - 1 || segments_.atEnd(after)) return false;
    if (!segments_[after].handles || segments_[after].count >= SegmentRows) return false;
    segments_.change(after, [&](Segment& s) {
        s.open(0, 1);
        s.handles[0] = fresh;
    });
    shrinkEmpty(empty);
    return true;
}

void RowOrder::obtainAll(std::int32_t row, std::int32_t n) {
    const std::int32_t stop = row + n;
    for (; row < stop; ++row) {
        if (handle(row) != NoHandle) continue;
        if (!hitHandles_) widen(row, stop - row);
        give(row);
    }
}

/// Comes right after a look at the row, which is in an empty stretch: where that begins with it, up to n rows
/// of the stretch join the handles before it at once, without a handle yet.
void RowOrder::widen(std::int32_t row, std::int32_t n) {
    const Place empty = hit_;
    if (row != empty.first || segments_.atBegin(empty)) return;
    const Place before = segments_.previous(empty);
    if (!segments_[before].handles) return;
    const std::int32_t more = std::min({n, SegmentRows - segments_[before].count, segments_[empty].count});
    if (more <= 0) return;
    segments_.change(before, [more](Segment& s) { s.open(s.count, more); });
    forgetHit();
    shrinkEmpty(empty, more);
    hit(before);
}

void RowOrder::shrinkEmpty(const Place& empty, std::int32_t n) {
    segments_.change(empty, [n](Segment& s) { s.count -= n; });
    if (segments_[empty].count == 0) segments_.erase(empty);
}

void RowOrder::openBlock(const Place& empty, std::int32_t row, RowHandle fresh) {
    const std::int32_t offset = static_cast<std::int32_t>(row - empty.first);
    const std::int32_t head = offset - offset % BlockRows;
    Segment block;
    block.open(0, std::min(BlockRows, segments_[empty].count - head));
    block.handles[offset - head] = fresh;

    // The stretch becomes its head, the block and its tail, without those that have no rows. After each step
    // all rows are there, should the next one fail.
    Segment tail;
    tail.count = segments_[empty].count - head - block.count;
    Place rest = empty;
    if (tail.count > 0) rest = giveUpTail(empty, std::move(tail));
    rest = giveUpTail(rest, std::move(block));
    if (segments_[rest].count == 0) segments_.erase(rest);
}

/// Puts a segment after another one, which gives up as many rows; answers where that one is now.
RowOrder::Place RowOrder::giveUpTail(const Place& place, Segment tail) {
    const std::int32_t n = tail.count;
    const Place rest = segments_.previous(segments_.insert(segments_.next(place), std::move(tail)));
    segments_.change(rest, [n](Segment& s) { s.count -= n; });
    return rest;
}

void RowOrder::release(RowHandle handle) {
    --written_;
    if (written_ == 0) {
        std::vector<RowHandle>().swap(freed_);
        next_ = 0;
    } else {
        freed_.push_back(handle);
    }
}

void RowOrder::insert(std::int32_t row, std::int32_t n) {
    if (n <= 0) return;
    forgetHit();
    Place place = segments_.find(row);
    if (segments_.atEnd(place) || !segments_[place].handles || place.first == row) return insertEmpty(row, n);
    if (n > BlockRows) {
        split(row);
        return insertEmpty(row, n);
    }
    if (segments_[place].count + n > SegmentRows) {
        split(static_cast<std::int32_t>(place.first + segments_[place].count / 2));
        place = segments_.find(row);
        if (place.first == row) return insertEmpty(row, n);
    }
    segments_.change(place, [&](Segment& s) { s.open(static_cast<std::int32_t>(row - place.first), n); });
}

/// Inserts rows where a segment begins or within an empty stretch.
void RowOrder::insertEmpty(std::int32_t row, std::int32_t n) {
    const auto longer = [n](Segment& s) { s.count += n; };
    const Place place = segments_.find(row);
    if (!segments_.atEnd(place) && !segments_[place].handles) return segments_.change(place, longer);
    if (!segments_.atBegin(place)) {
        const Place before = segments_.previous(place);
        if (!segments_[before].handles) return segments_.change(before, longer);
    }
    Segment empty;
    empty.count = n;
    segments_.insert(place, std::move(empty));
}

void RowOrder::split(std::int32_t row) {
    const Place place = segments_.find(row);
    if (place.first == row) return;
    giveUpTail(place, segments_[place].tail(static_cast<std::int32_t>(row - place.first)));
}

void RowOrder::prepareRemove(std::int32_t row, std::int32_t n) {
    std::size_t handles = 0;
    forEach(row, row + n, [&](std::int32_t, RowHandle) { ++handles; });
    support::makeRoom(freed_, handles);
}

/// Rows without a handle may have a place for one: until they are reordered, nothing has changed.
RowOrder::Reordering RowOrder::prepareReorder(std::int32_t first, std::span<const std::int32_t> from) {
    Reordering prepared;
    const std::int32_t stop = first + static_cast<std::int32_t>(from.size());
    bool any = false;
    forEach(first, stop, [&any](std::int32_t, RowHandle) { any = true; });
    if (!any) return prepared;
    std::vector<RowHandle> old(from.size(), NoHandle);
    forEach(first, stop,
            [&](std::int32_t row, RowHandle handle) { old[static_cast<std::size_t>(row - first)] = handle; });
    prepared.first = first;
    prepared.handles.reserve(from.size());
    for (const std::int32_t row : from)
        prepared.handles.push_back(old[static_cast<std::size_t>(row - first)]);
    for (std::int32_t row = first; row < stop; ++row)
        if (prepared.handles[static_cast<std::size_t>(row - first)] != NoHandle) provide(row);
    return prepared;
}

/// A place for the row's handle.
void RowOrder::provide(std::int32_t row) {
    if (row < hitFirst_ || row >= hitEnd_) look(row);
    if (hitHandles_) return;
    const Place place = hit_;
    forgetHit();
    openBlock(place, row, NoHandle);
}

/// Segments whose last handle went elsewhere become stretches of rows never written again, and short ones
/// that lie side by side become one.
void RowOrder::reorder(const Reordering& prepared) noexcept {
    forgetHit();
    const std::int32_t stop = prepared.first + static_cast<std::int32_t>(prepared.handles.size());
    for (std::int32_t row = prepared.first; row < stop;) {
        const Place place = segments_.find(row);
        const auto base = static_cast<std::int32_t>(place.first);
        const std::int32_t here = std::min(stop, base + segments_[place].count) - row;
        if (segments_[place].handles)
            segments_.change(place, [&](Segment& s) {
                RowHandle* const at = s.handles.get();
                std::copy_n(prepared.handles.begin() + (row - prepared.first), here, at + (row - base));
                if (std::any_of(at, at + s.count, [](RowHandle h) { return h != NoHandle; })) return;
                s.handles.reset();
                s.capacity = 0;
            });
        row += here;
        joinAt(base);
    }
    joinAt(stop);
}

void RowOrder::drop(std::int32_t row, std::int32_t n) {
    forgetHit();
    Place place = segments_.find(row);
    while (n > 0) {
        const std::int32_t offset = static_cast<std::int32_t>(row - place.first);
        const std::int32_t here = std::min(n, segments_[place].count - offset);
        n -= here;
        if (here == segments_[place].count) {
            place = segments_.erase(place);
        } else {
            segments_.change(place, [&](Segment& s) { s.close(offset, here); });
            if (n > 0) place = segments_.next(place);
        }
    }
    joinAt(row);
}

/// Joins the segments that meet at `row` when both are empty, or short. That only saves memory: where there
/// is none for it, they stay apart.
void RowOrder::joinAt(std::int32_t row) {
    if (row <= 0 || row >= rows()) return;
    const Place place = segments_.find(row);
    if (place.first != row) return;
    const Place before = segments_.previous(place);
    const std::int32_t n = segments_[place].count;
    if (!segments_[place].handles != !segments_[before].handles) return;
    if (!segments_[place].handles) {
        segments_.erase(place);
        segments_.change(segments_.find(row - 1), [n](Segment& s) { s.count += n; });
    } else if (segments_[before].count + n <= SegmentRows / 2) {
        const RowHandle* const gone = segments_[place].handles.get();
        try {
            segments_.change(before, [&](Segment& s) { s.reserve(s.count + n); });
        } catch (const std::bad_alloc&) {
            return;
        }
        segments_.change(before, [&](Segment& s) {
            std::copy_n(gone, n, s.handles.get() + s.count);
            s.count += n;
        });
        segments_.erase(place);
    }
}
}  // namespace kxVsGrid::cellgrid

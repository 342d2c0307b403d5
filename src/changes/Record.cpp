#include "changes/Record.h"

#include <algorithm>
#include <bit>
#include <unordered_set>
#include <utility>

#include "support/Room.h"

namespace kxVsGrid::changes {
namespace {

std::size_t bytesOf(const RemovedRows& rows) {
    std::size_t bytes = sizeof(RemovedRows);
    for (const KeptRow& row : rows.rows) {
        bytes += sizeof(KeptRow) + row.cells.capacity() * sizeof(KeptCell);
        for (const KeptCell& cell : row.cells) bytes += cell.text.size() + cell.tag.size();
    }
    return bytes;
}

std::size_t bytesOf(const AddedRows& rows) {
    return sizeof(AddedRows) + rows.ids.size() * sizeof(RowId);
}

std::size_t bytesOf(const ReorderedRows& rows) {
    return sizeof(ReorderedRows) + rows.ids.size() * sizeof(RowId);
}

template <class Rows>
std::vector<Rows> tailOf(const std::vector<Rows>& all, std::size_t first, std::size_t& bytes) {
    std::vector<Rows> tail(all.begin() + static_cast<std::ptrdiff_t>(first), all.end());
    for (std::size_t i = first; i < all.size(); ++i) bytes += bytesOf(all[i]);
    return tail;
}

/// Cells that have a style of their own; their contents are still to be read.
std::vector<KeptCell> keepStyles(const CellGrid& grid, std::int32_t row) {
    std::vector<KeptCell> cells;
    for (std::int32_t col = 0; col < grid.Cols(); ++col) {
        KeptCell cell{col,
                      {},
                      {},
                      grid.CellAlignment(row, col),
                      grid.CellForeColor(row, col),
                      grid.CellBackColor(row, col)};
        if (cell.alignment || cell.foreColor || cell.backColor) cells.push_back(std::move(cell));
    }
    return cells;
}

/// Those that are not named stand between the ones that moved and the neighbour that they had.
void addPlaces(const CellGrid& grid, const ReorderedRows& moved, std::vector<RowId>& ids,
               std::vector<std::int32_t>& rows) {
    ids.insert(ids.end(), moved.ids.begin(), moved.ids.end());
    const std::int32_t inner = grid.RowOf(moved.inner);
    if (inner < 0) return;
    std::int32_t least = inner;
    std::int32_t most = inner;
    for (const RowId id : moved.ids)
        if (const std::int32_t row = grid.RowOf(id); row >= 0) {
            least = std::min(least, row);
            most = std::max(most, row);
        }
    for (std::int32_t row = least; row <= most; ++row) rows.push_back(row);
}

/// Rows of a new order that stood one below the other in the old one, too.
struct Stretch {
    std::size_t at = 0;
    std::size_t count = 0;
};

Stretch longestOf(std::span<const std::int32_t> from) {
    Stretch longest;
    for (std::size_t at = 0; at < from.size();) {
        std::size_t end = at + 1;
        while (end < from.size() && from[end] == from[end - 1] + 1) ++end;
        if (end - at > longest.count) longest = {at, end - at};
        at = end;
    }
    return longest;
}

/// To name all others takes but little of what it takes to name all.
bool standsOut(const Stretch& stays, std::size_t rows) {
    constexpr std::size_t Many = 1024;
    return rows >= Many && (rows - stays.count) * 8 < rows;
}

/// The rows that stood above the stretch that stays, and those that stood below it.
std::vector<ReorderedRows> keepMoved(CellGrid& grid, std::int32_t first, std::span<const std::int32_t> from,
                                     const Stretch& stays) {
    const auto now = [first](std::size_t i) { return first + static_cast<std::int32_t>(i); };
    std::vector<std::pair<std::int32_t, RowId>> moved;
    moved.reserve(from.size() - stays.count);
    for (std::size_t i = 0; i < from.size(); ++i)
        if (i < stays.at || i >= stays.at + stays.count) moved.emplace_back(from[i], grid.IdOf(now(i)));
    std::sort(moved.begin(), moved.end());
    ReorderedRows above;
    above.above = true;
    above.inner = grid.IdOf(now(stays.at));
    if (first > 0) above.outer = grid.IdOf(first - 1);
    ReorderedRows below;
    below.inner = grid.IdOf(now(stays.at + stays.count - 1));
    if (now(from.size()) < grid.Rows()) below.outer = grid.IdOf(now(from.size()));
    for (const auto& [old, id] : moved) (old < from[stays.at] ? above : below).ids.push_back(id);
    std::vector<ReorderedRows> kept;
    for (ReorderedRows* const one : {&above, &below})
        if (!one->ids.empty()) kept.push_back(std::move(*one));
    return kept;
}

/// In order; without those that are not there. Where most of the rows are named, looking them up in a table is less
/// than putting them in order.
void keepEachOnce(std::vector<std::int32_t>& rows, std::int32_t count) {
    std::erase(rows, -1);
    if (rows.size() < static_cast<std::size_t>(count) / 8) {
        std::sort(rows.begin(), rows.end());
        rows.erase(std::unique(rows.begin(), rows.end()), rows.end());
        return;
    }
    std::vector<bool> named(static_cast<std::size_t>(count));
    for (const std::int32_t row : rows) named[static_cast<std::size_t>(row)] = true;
    rows.clear();
    for (std::int32_t row = 0; row < count; ++row)
        if (named[static_cast<std::size_t>(row)]) rows.push_back(row);
}

KeptCell& cellOf(KeptRow& row, std::int32_t col) {
    const auto place = std::lower_bound(row.cells.begin(), row.cells.end(), col,
                                        [](const KeptCell& cell, std::int32_t c) { return cell.col < c; });
    if (place != row.cells.end() && place->col == col) return *place;
    KeptCell fresh;
    fresh.col = col;
    return *row.cells.insert(place, std::move(fresh));
}
}  // namespace

std::size_t bytesOfRows(std::int32_t count) {
    return static_cast<std::size_t>(count) * sizeof(KeptRow);
}

RemovedRows keepRows(CellGrid& grid, std::int32_t at, std::int32_t count) {
    RemovedRows kept;
    kept.at = at;
    if (at > 0) kept.before = grid.IdOf(at - 1);
    if (at + count < grid.Rows()) kept.after = grid.IdOf(at + count);
    kept.rows.reserve(static_cast<std::size_t>(count));
    for (std::int32_t row = at; row < at + count; ++row)
        kept.rows.push_back({grid.KnownId(row), grid.RowHeight(row), grid.RowHidden(row), grid.MergeRow(row),
                             keepStyles(grid, row)});
    grid.ForEachCell(at, at + count - 1,
                     [&](std::int32_t row, std::int32_t col, std::string_view text, std::string_view tag) {
                         KeptRow& keptRow = kept.rows[static_cast<std::size_t>(row - at)];
                         if (keptRow.id == RowId::None) keptRow.id = grid.IdOf(row);
                         KeptCell& cell = cellOf(keptRow, col);
                         cell.text = text;
                         cell.tag = tag;
                     });
    return kept;
}

std::size_t bytesOfOrder(std::span<const std::int32_t> from) {
    const Stretch stays = longestOf(from);
    return (standsOut(stays, from.size()) ? from.size() - stays.count : from.size()) * sizeof(RowId);
}

std::vector<ReorderedRows> keepOrder(CellGrid& grid, std::int32_t first, std::span<const std::int32_t> from) {
    const Stretch stays = longestOf(from);
    if (standsOut(stays, from.size())) return keepMoved(grid, first, from, stays);
    std::vector<RowId> now(from.size());
    grid.IdsOf(first, now);
    ReorderedRows kept;
    kept.ids.resize(from.size());
    for (std::size_t i = 0; i < from.size(); ++i)
        kept.ids[static_cast<std::size_t>(from[i] - first)] = now[i];
    std::vector<ReorderedRows> all;
    all.push_back(std::move(kept));
    return all;
}

std::size_t Record::bytes() const {
    return sizeof(Record) + entries_.capacity() * sizeof(Entry) + texts_.capacity() + rowBytes_;
}

void Record::write(RowId row, std::int32_t col, CellPart part, std::string_view before) {
    const std::int32_t offset = col % EmptyCells::Cols;
    if (before.empty()) return fill(row, col - offset, EmptyCells::bit(offset, part));
    filled_ = None;  // of each text the first one counts
    support::makeRoom(entries_);
    const std::size_t at = texts_.size();
    texts_.append(before);
    entries_.push_back({row, at, static_cast<std::uint32_t>(before.size()), static_cast<std::int16_t>(col),
                        Entry::Kind::Written, part});
}

void Record::fill(RowId row, std::int32_t col, std::uint64_t cells) {
    if (filled_ != None && entries_[filled_].row == row && entries_[filled_].col == col) {
        entries_[filled_].at |= cells;
        return;
    }
    support::makeRoom(entries_);
    const auto first = static_cast<std::uint32_t>(std::countr_zero(cells) % EmptyCells::Cols);
    entries_.push_back(
        {row, cells, first, static_cast<std::int16_t>(col), Entry::Kind::Filled, CellPart::Text});
    filled_ = entries_.size() - 1;
}

/// Of many small records most would be room.
void Record::finish() {
    constexpr std::size_t Small = 64;
    if (entries_.size() < Small) entries_.shrink_to_fit();
}

std::size_t Record::mark() noexcept {
    filled_ = None;
    return entries_.size();
}

void Record::add(AddedRows rows) {
    support::makeRoom(entries_);
    const std::size_t more = bytesOf(rows);
    added_.push_back(std::move(rows));
    rowBytes_ += more;
    entries_.push_back({RowId::None, added_.size() - 1, 0, 0, Entry::Kind::Added, CellPart::Text});
}

void Record::remove(RemovedRows rows) {
    support::makeRoom(entries_);
    const std::size_t more = bytesOf(rows);
    removed_.push_back(std::move(rows));
    rowBytes_ += more;
    entries_.push_back({RowId::None, removed_.size() - 1, 0, 0, Entry::Kind::Removed, CellPart::Text});
}

void Record::reorder(ReorderedRows rows) {
    support::makeRoom(entries_);
    const std::size_t more = bytesOf(rows);
    reordered_.push_back(std::move(rows));
    rowBytes_ += more;
    entries_.push_back({RowId::None, reordered_.size() - 1, 0, 0, Entry::Kind::Reordered, CellPart::Text});
}

void Record::keepMarks(std::vector<KeptMark> marks) {
    marks_.reserve(marks_.size() + marks.size());
    for (KeptMark& mark : marks) {
        rowBytes_ += sizeof(KeptMark) + (mark.before ? mark.before->text.size() : 0) +
                     (mark.after ? mark.after->text.size() : 0);
        marks_.push_back(std::move(mark));
    }
}

void Record::cutAll() noexcept {
    mark();
    entries_.clear();
    texts_.clear();
    added_.clear();
    removed_.clear();
    reordered_.clear();
    marks_.clear();
    rowBytes_ = 0;
}

void findPlaces(const CellGrid& grid, const Record& record, std::vector<std::int32_t>& rows,
                std::vector<std::int32_t>& cols) {
    std::vector<RowId> ids;
    std::unordered_set<std::int32_t> written;
    for (const Record::Entry& entry : record.entries()) {
        if (entry.kind == Record::Entry::Kind::Added)
            ids.insert(ids.end(), record.added(entry).ids.begin(), record.added(entry).ids.end());
        if (entry.kind == Record::Entry::Kind::Reordered) addPlaces(grid, record.reordered(entry), ids, rows);
        record.forEachWrite(entry, [&](std::int32_t col, CellPart, std::string_view) {
            if (ids.empty() || ids.back() != entry.row) ids.push_back(entry.row);
            written.insert(col);
        });
    }
    const std::size_t more = rows.size();
    rows.resize(more + ids.size());
    grid.RowsOf(ids, std::span(rows).subspan(more));
    keepEachOnce(rows, grid.Rows());
    cols.assign(written.begin(), written.end());
    std::sort(cols.begin(), cols.end());
}

/// Texts and rows stand in the order of their entries: those of the tail are tails themselves.
Record Record::cutFrom(std::size_t mark) {
    filled_ = None;
    Record cut;
    cut.name = name;
    cut.cause = cause;
    cut.entries_.assign(entries_.begin() + static_cast<std::ptrdiff_t>(mark), entries_.end());
    std::size_t text = texts_.size();
    std::size_t added = added_.size();
    std::size_t removed = removed_.size();
    std::size_t reordered = reordered_.size();
    for (const Entry& entry : cut.entries_) {
        if (entry.kind == Entry::Kind::Written) text = std::min(text, entry.at);
        if (entry.kind == Entry::Kind::Added) added = std::min(added, entry.at);
        if (entry.kind == Entry::Kind::Removed) removed = std::min(removed, entry.at);
        if (entry.kind == Entry::Kind::Reordered) reordered = std::min(reordered, entry.at);
    }
    cut.texts_ = texts_.substr(text);
    cut.added_ = tailOf(added_, added, cut.rowBytes_);
    cut.removed_ = tailOf(removed_, removed, cut.rowBytes_);
    cut.reordered_ = tailOf(reordered_, reordered, cut.rowBytes_);
    for (Entry& entry : cut.entries_) {
        if (entry.kind == Entry::Kind::Written) entry.at -= text;
        if (entry.kind == Entry::Kind::Added) entry.at -= added;
        if (entry.kind == Entry::Kind::Removed) entry.at -= removed;
        if (entry.kind == Entry::Kind::Reordered) entry.at -= reordered;
    }
    rowBytes_ -= cut.rowBytes_;
    entries_.resize(mark);
    texts_.resize(text);
    added_.resize(added);
    removed_.resize(removed);
    reordered_.resize(reordered);
    return cut;
}
}  // namespace kxVsGrid::changes

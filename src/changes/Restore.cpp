#include "changes/Restore.h"

#include <algorithm>
#include <numeric>
#include <tuple>

namespace kxVsGrid::changes {

using Kind = Record::Entry::Kind;

void Restore::run(support::FirstFault& fault) {
    findPassing();
    const auto& entries = record_.entries();
    targets_.reserve(entries.size());
    for (auto entry = entries.rbegin(); entry != entries.rend(); ++entry) {
        if (entry->kind == Kind::Added)
            takeAway(record_.added(*entry), fault);
        else if (entry->kind == Kind::Removed)
            bringBack(record_.removed(*entry), fault);
        else if (entry->kind == Kind::Reordered)
            putInOrder(record_.reordered(*entry), fault);
        record_.forEachWrite(*entry, [&](std::int32_t col, CellPart part, std::string_view before) {
            targets_.push_back({entry->row, col, part, before});
        });
    }
    keepFirst();
    const bool heard = grid_.CellChanged.heard();
    write(false, heard, fault);
    if (heard) write(true, heard, fault);
}

void Restore::findPassing() {
    std::unordered_set<RowId> added;
    std::unordered_set<RowId> old;
    for (const Record::Entry& entry : record_.entries()) {
        if (entry.kind == Kind::Added)
            added.insert(record_.added(entry).ids.begin(), record_.added(entry).ids.end());
        if (entry.kind != Kind::Removed) continue;
        for (const KeptRow& row : record_.removed(entry).rows) {
            if (row.id == RowId::None) continue;
            if (!added.contains(row.id)) old.insert(row.id);
            if (!old.contains(row.id)) passing_.insert(row.id);
        }
    }
}

void Restore::takeAway(const AddedRows& rows, support::FirstFault& fault) {
    for (auto id = rows.ids.rbegin(); id != rows.ids.rend(); ++id) {
        const std::int32_t row = grid_.RowOf(*id);
        if (row < 0 || grid_.Rows() <= grid_.FixedRows()) continue;
        fault.during([&] { grid_.RemoveRow(row); });
    }
}

void Restore::putInOrder(const ReorderedRows& rows, support::FirstFault& fault) {
    std::vector<std::int32_t> there(rows.ids.size());
    grid_.RowsOf(rows.ids, there);
    std::erase_if(there, [this](std::int32_t row) { return row < grid_.FixedRows(); });
    if (there.empty()) return;
    const std::int32_t place = placeOf(rows);
    if (place < 0)
        sharePlaces(there, fault);
    else
        putAt(std::max(place, grid_.FixedRows()), there, fault);
}

/// The row that they stand before, beside a neighbour; -1 where none is named that is there.
std::int32_t Restore::placeOf(const ReorderedRows& rows) const {
    const std::int32_t inner = grid_.RowOf(rows.inner);
    if (inner >= 0) return rows.above ? inner : inner + 1;
    const std::int32_t outer = grid_.RowOf(rows.outer);
    if (outer < 0) return -1;
    return rows.above ? outer + 1 : outer;
}

/// In this order they stand where they stand now: rows that nobody recorded stay where they are.
void Restore::sharePlaces(const std::vector<std::int32_t>& there, support::FirstFault& fault) {
    const std::int32_t least = *std::min_element(there.begin(), there.end());
    const std::int32_t most = *std::max_element(there.begin(), there.end());
    if (static_cast<std::size_t>(most - least) + 1 == there.size())  // no row between them is another one
        return fault.during([&] { grid_.Reorder(least, there); });
    std::vector<std::int32_t> places = there;
    std::sort(places.begin(), places.end());
    const std::int32_t first = places.front();
    std::vector<std::int32_t> from(static_cast<std::size_t>(places.back() - first) + 1);
    std::iota(from.begin(), from.end(), first);
    for (std::size_t i = 0; i < there.size(); ++i)
        from[static_cast<std::size_t>(places[i] - first)] = there[i];
    fault.during([&] { grid_.Reorder(first, from); });
}

/// In this order they come together, before the row at `place`.
void Restore::putAt(std::int32_t place, const std::vector<std::int32_t>& there, support::FirstFault& fault) {
    std::vector<std::int32_t> sorted = there;
    std::sort(sorted.begin(), sorted.end());
    const std::int32_t first = std::min(place, sorted.front());
    const std::int32_t stop = std::max(place, sorted.back() + 1);
    std::vector<std::int32_t> from;
    from.reserve(static_cast<std::size_t>(stop - first));
    auto moved = sorted.begin();
    for (std::int32_t row = first; row < stop; ++row) {
        if (row == place) from.insert(from.end(), there.begin(), there.end());
        if (moved != sorted.end() && *moved == row)
            ++moved;
        else
            from.push_back(row);
    }
    if (place == stop) from.insert(from.end(), there.begin(), there.end());
    fault.during([&] { grid_.Reorder(first, from); });
}

/// Where a neighbour stands now, where the row itself stood when both have gone.
std::int32_t Restore::placeOf(const RemovedRows& removed) const {
    const std::int32_t after = grid_.RowOf(removed.after);
    if (after >= 0) return after;
    const std::int32_t before = grid_.RowOf(removed.before);
    if (before >= 0) return before + 1;
    return std::clamp(removed.at, grid_.FixedRows(), grid_.Rows());
}

void Restore::bringBack(const RemovedRows& removed, support::FirstFault& fault) {
    // A row that came and went with its neighbour names none: those before it say where the block stood.
    const std::int32_t first = placeOf(removed);
    RowId previous = RowId::None;
    for (const KeptRow& kept : removed.rows) {
        if (passing(kept.id) || grid_.RowOf(kept.id) >= 0) continue;
        const std::int32_t above = grid_.RowOf(previous);
        const std::int32_t position = above < 0 ? std::min(first, grid_.Rows()) : above + 1;
        bringRowBack(kept, position, fault);
        if (position < grid_.Rows()) previous = grid_.IdOf(position);
    }
}

void Restore::bringRowBack(const KeptRow& kept, std::int32_t position, support::FirstFault& fault) {
    RowId id = kept.id;
    fault.during([&] {
        if (id == RowId::None)
            grid_.InsertRow(position);
        else
            grid_.BringRowBack(position, id);
    });
    if (id == RowId::None && position < grid_.Rows()) id = grid_.IdOf(position);
    if (grid_.RowOf(id) < 0) return;
    if (broughtBack_ == RowId::None) broughtBack_ = id;
    const auto dressed = [&](auto dressing) {
        fault.during([&] {
            if (const std::int32_t row = grid_.RowOf(id); row >= 0) dressing(row);
        });
    };
    dressed([&](std::int32_t row) { grid_.RowHeight(row, kept.height); });
    dressed([&](std::int32_t row) { grid_.RowHidden(row, kept.hidden); });
    dressed([&](std::int32_t row) { grid_.MergeRow(row, kept.merged); });
    for (const KeptCell& cell : kept.cells) {
        dressed([&](std::int32_t row) { dress(row, cell); });
        if (!cell.text.empty()) targets_.push_back({id, cell.col, CellPart::Text, cell.text});
        if (!cell.tag.empty()) targets_.push_back({id, cell.col, CellPart::Tag, cell.tag});
    }
}

void Restore::dress(std::int32_t row, const KeptCell& cell) {
    if (cell.col >= grid_.Cols()) return;
    grid_.CellAlignment(row, cell.col, cell.alignment);
    grid_.CellForeColor(row, cell.col, cell.foreColor);
    grid_.CellBackColor(row, cell.col, cell.backColor);
}

/// A tag comes before its text, as everywhere.
bool Restore::earlier(const Target& a, const Target& b) {
    return std::tuple(a.row, a.col, b.part) < std::tuple(b.row, b.col, a.part);
}

/// They were found from the last one to the first: turned around, the first of each slot counts. Mostly a
/// step has gone through the cells in order.
void Restore::keepFirst() {
    std::reverse(targets_.begin(), targets_.end());
    if (!std::is_sorted(targets_.begin(), targets_.end(), earlier))
        std::stable_sort(targets_.begin(), targets_.end(), earlier);
    targets_.erase(std::unique(targets_.begin(), targets_.end(),
                               [](const Target& a, const Target& b) { return sameSlot(a, b); }),
                   targets_.end());
}

/// Where nobody hears of the writes, a row stays where it is.
void Restore::write(bool again, bool heard, support::FirstFault& fault) {
    RowId known = RowId::None;
    std::int32_t row = -1;
    for (const Target& target : targets_) {
        if (heard || target.row != known) row = grid_.RowOf(target.row);
        known = target.row;
        if (row < 0 || target.col >= grid_.Cols()) continue;
        fault.during([&] {
            if (target.part == CellPart::Tag)
                grid_.Data(row, target.col, target.text);
            else if (!again || grid_.Text(row, target.col) != target.text)
                writeText(row, target);
        });
    }
}

/// The stream takes a row's number for no text: what stood over it makes way for it again.
void Restore::writeText(std::int32_t row, const Target& target) {
    grid_.Text(row, target.col, target.text);
    if (target.col != 0 || !target.text.empty()) return;
    const std::int32_t now = grid_.RowOf(target.row);
    if (now >= 0 && grid_.Text(now, 0).empty()) grid_.ShowRowNumber(now);
}

bool Restore::restores(RowId row, std::int32_t col, CellPart part) const {
    const Target wanted{row, col, part, {}};
    const auto place = std::lower_bound(targets_.begin(), targets_.end(), wanted, earlier);
    return place != targets_.end() && sameSlot(*place, wanted);
}

std::optional<std::pair<std::int32_t, std::int32_t>> Restore::place() const {
    // What followed from a sort is not what the clerk did.
    if (const std::int32_t row = record_.cause == Cause::Sort ? reorderedRow() : -1; row >= 0)
        return std::pair{row, -1};
    std::optional<std::pair<std::int32_t, std::int32_t>> found;
    for (const Record::Entry& entry : record_.entries()) {
        const std::int32_t row = grid_.RowOf(entry.row);
        if (row < grid_.FixedRows()) continue;
        record_.forEachWrite(entry, [&](std::int32_t col, CellPart, std::string_view) {
            if (!found && col >= grid_.FixedCols() && col < grid_.Cols() && !grid_.ColHidden(col))
                found = {row, col};
        });
        if (found) return found;
    }
    std::int32_t row = grid_.RowOf(broughtBack_);
    if (row < 0) row = reorderedRow();
    if (row < 0) return std::nullopt;
    return std::pair{row, -1};
}

/// -1 where there is none.
std::int32_t Restore::reorderedRow() const {
    const RowId current = grid_.Row() >= 0 ? grid_.KnownId(grid_.Row()) : RowId::None;
    std::int32_t first = -1;
    for (const Record::Entry& entry : record_.entries()) {
        if (entry.kind != Kind::Reordered) continue;
        for (const RowId id : record_.reordered(entry).ids) {
            if (id == current) return grid_.Row();
            if (first < 0) first = grid_.RowOf(id);
        }
    }
    return first;
}
}  // namespace kxVsGrid::changes

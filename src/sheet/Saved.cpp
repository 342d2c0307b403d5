#include "sheet/Saved.h"

#include <algorithm>

#include "sheet/Lines.h"

namespace kxVsGrid::sheet {

KeptRecord Saved::of(RowId row) const {
    const auto found = row == RowId::None ? records_.end() : records_.find(row);
    return found == records_.end() ? nullptr : found->second;
}

void Saved::begin(const Lines& lines, const std::vector<RowId>& rows, std::vector<KeptRecord> records) {
    records_.clear();
    records_.reserve(rows.size());
    noLines_.clear();
    for (std::size_t i = 0; i < rows.size(); ++i) {
        if (!lines.isInUse(records[i].get())) noLines_.insert(rows[i]);
        records_.emplace(rows[i], std::move(records[i]));
    }
    order_ = rows;
    still_.clear();
    if (handedOut_ == Handed::OfThese) handedOut_ = Handed::OfOthers;
    witness_ = RowId::None;
    c_.grid.Changes().Saved();
}

bool Saved::alike(const void* before, const void* now) const {
    return std::all_of(c_.plans.begin(), c_.plans.end(),
                       [&](const ColumnPlan& plan) { return plan.field->alike(before, now); });
}

/// The rows that may have changed, in the order in which they stand; those that have gone come last.
std::vector<RowId> Saved::touched() const {
    const Changes& log = c_.grid.Changes();
    std::vector<RowId> ids = still_;
    if (log.Unknown()) {
        for (const auto& [id, record] : records_) ids.push_back(id);
        std::vector<RowId> there(static_cast<std::size_t>(c_.endRow() - c_.firstRow()));
        c_.cells().IdsOf(c_.firstRow(), there);
        ids.insert(ids.end(), there.begin(), there.end());
    } else {
        for (const RowId id : log.Added()) ids.push_back(id);
        for (const ChangedRow& row : log.Changed()) ids.push_back(row.row);
        for (const RemovedRow& row : log.Removed()) ids.push_back(row.row);
    }
    std::sort(ids.begin(), ids.end());
    ids.erase(std::unique(ids.begin(), ids.end()), ids.end());

    std::vector<std::int32_t> rows(ids.size());
    c_.cells().RowsOf(ids, rows);
    std::vector<std::pair<std::uint32_t, RowId>> placed;  // -1 is the largest
    for (std::size_t i = 0; i < ids.size(); ++i)
        placed.emplace_back(static_cast<std::uint32_t>(rows[i]), ids[i]);
    std::sort(placed.begin(), placed.end());
    std::transform(placed.begin(), placed.end(), ids.begin(), [](const auto& one) { return one.second; });
    return ids;
}

KeptRecord Saved::lineOf(RowId row) const {
    return noLines_.contains(row) ? nullptr : of(row);
}

/// A line that was loaded and is none, by what the host says of it, is nobody's to remove; one that becomes a line
/// again has changed.
std::optional<AnyChange> Saved::changed(RowId id, const KeptRecord& now) const {
    if (!now) {
        KeptRecord before = lineOf(id);
        return before ? std::optional<AnyChange>({id, std::move(before), nullptr}) : std::nullopt;
    }
    const KeptRecord before = of(id);
    const bool numbered =
        before && c_.position && c_.position->get(before.get()) != c_.position->get(now.get());
    if (before && !numbered && alike(before.get(), now.get())) return std::nullopt;
    return AnyChange{id, before, now};
}

std::optional<AnyChange> Saved::changeOf(const Lines& lines, RowId id) const {
    const std::int32_t row = c_.rowOf(id);
    const AnyRecord now = row >= 0 ? lines.lineAt(row) : nullptr;
    // Where it stands is looked at by those who know all lines.
    if (const KeptRecord before = of(id); now && before && c_.position)
        c_.position->put(now.get(), c_.position->get(before.get()));
    return changed(id, now);
}

/// Every line has a number, so all of them are looked at. Lines that were loaded with other numbers than their places
/// get these with the next save.
std::vector<AnyChange> Saved::numberedChanges(const Lines& lines) const {
    std::vector<RowId> ids(static_cast<std::size_t>(c_.endRow() - c_.firstRow()));
    c_.cells().IdsOf(c_.firstRow(), ids);
    std::vector<AnyChange> changes;
    std::unordered_set<RowId> gone(order_.begin(), order_.end());
    std::int64_t number = 0;
    for (std::size_t i = 0; i < ids.size(); ++i) {
        const std::int32_t row = c_.firstRow() + static_cast<std::int32_t>(i);
        const AnyRecord now = lines.lineAt(row);
        if (!now) continue;
        c_.position->put(now.get(), ++number);
        gone.erase(ids[i]);
        if (auto change = changed(ids[i], now)) changes.push_back(std::move(*change));
    }
    for (const RowId id : order_)
        if (gone.contains(id))
            if (auto change = changed(id, nullptr)) changes.push_back(std::move(*change));
    return changes;
}

/// Rows that are no lines have no place among them.
bool Saved::moved(const Lines& lines) const {
    std::vector<std::int32_t> rows(order_.size());
    c_.cells().RowsOf(order_, rows);
    std::erase_if(rows, [](std::int32_t row) { return row < 0; });
    if (std::is_sorted(rows.begin(), rows.end())) return false;
    std::erase_if(rows, [&](std::int32_t row) { return !lines.isInUse(row); });
    return !std::is_sorted(rows.begin(), rows.end());
}

/// As they are numbered, or else as they stand.
void Saved::keepOrder() {
    order_.clear();
    for (const auto& [id, record] : records_) order_.push_back(id);
    std::unordered_map<RowId, std::int64_t> places;
    for (const RowId id : order_)
        places[id] = c_.position ? c_.position->get(records_.at(id).get()) : c_.cells().RowOf(id);
    std::sort(order_.begin(), order_.end(),
              [&](RowId one, RowId other) { return places.at(one) < places.at(other); });
}

std::vector<AnyChange> Saved::changes(const Lines& lines) const {
    handedOut_ = Handed::OfThese;
    if (c_.position) return differs(lines) ? numberedChanges(lines) : std::vector<AnyChange>();
    std::vector<AnyChange> changes;
    for (const RowId id : touched())
        if (auto change = changeOf(lines, id)) changes.push_back(std::move(*change));
    return changes;
}

bool Saved::differs(const Lines& lines) const {
    const auto has = [&](RowId id) {
        try {
            return changeOf(lines, id).has_value();
        } catch (const UnreadableCell&) {
            return true;
        }
    };
    if (witness_ != RowId::None && has(witness_)) return true;
    witness_ = RowId::None;
    if (!still_.empty() || !c_.grid.Changes().empty()) {
        const std::vector<RowId> ids = touched();
        const auto found = std::find_if(ids.begin(), ids.end(), has);
        if (found != ids.end()) witness_ = *found;
    }
    return witness_ != RowId::None || (c_.position && moved(lines));
}

void Saved::replace(RowId row, KeptRecord record) {
    const auto known = records_.find(row);
    if (known == records_.end()) throw GridError("storedAs: the line was neither loaded nor saved");
    known->second = std::move(record);
    still_.push_back(row);
    witness_ = RowId::None;
}

void Saved::requireIdentity(const std::vector<AnyChange>& saved) const {
    for (const AnyChange& change : saved) {
        if (!change.after) continue;
        if (c_.identity && !c_.identity->known(change.after.get()))
            throw GridError("accept: a line that is said to be saved has no identity");
        if (c_.version && change.before && c_.version->alike(change.before.get(), change.after.get()))
            throw GridError("accept: a line that is said to be saved has its version of before");
    }
}

/// What was written between changes() and this is compared with what was handed out.
void Saved::accept(const Lines& lines, const std::vector<AnyChange>& saved) {
    if (stale()) throw GridError("accept: other lines were loaded since these changes were asked for");
    requireIdentity(saved);
    std::vector<RowId> ids = touched();
    for (const AnyChange& change : saved) {
        noLines_.erase(change.row);
        if (change.after)
            records_[change.row] = change.after;
        else
            records_.erase(change.row);
        ids.push_back(change.row);
    }
    std::sort(ids.begin(), ids.end());
    ids.erase(std::unique(ids.begin(), ids.end()), ids.end());
    std::erase_if(ids, [&](RowId id) {
        try {
            return !changeOf(lines, id).has_value();
        } catch (const UnreadableCell&) {
            return false;
        }
    });
    still_ = std::move(ids);
    keepOrder();
    witness_ = RowId::None;
    c_.grid.Changes().Saved();
}
}  // namespace kxVsGrid::sheet

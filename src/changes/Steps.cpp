#include "changes/Steps.h"

#include <algorithm>
#include <new>
#include <utility>

#include "changes/Restore.h"
#include "support/FlagSpan.h"
#include "support/Room.h"

namespace kxVsGrid::changes {

using support::FirstFault;
using support::FlagSpan;

// --- Hearing

void Steps::listen(bool on) {
    if (on == listening_.on()) return;
    listening_.on(on);
    knownRow_ = -1;
}

void Steps::listenAsNeeded() {
    listen((depth_ > 0 && wanted()) || restoring_ || !done_.empty() || !undone_.empty());
}

/// Where a change is to be kept; what was undone cannot be redone after it. None where it is not kept.
Record* Steps::keeper() noexcept {
    if (lost_ || forgetsStep_) return nullptr;
    if (unrecorded_ > (restoring_ ? unrecordedBefore_ : 0)) return nullptr;
    if (restoring_) return &back_;
    undone_.clear();
    if (depth_ > 0) return wanted() ? &current_ : nullptr;
    return done_.empty() ? nullptr : &done_.back().record;
}

/// What cannot be kept is given up, with all before it; the write itself goes on.
template <class Keep>
void Steps::record(std::size_t bytesAhead, Keep keep) noexcept {
    Record* const record = keeper();
    if (!record) return;
    const bool limited = record != &current_ || !wholeToTakeBack_;
    try {
        if (limited && bytesAhead > limit_) throw std::bad_alloc();
        keep(*record);
        if (limited && record->bytes() > limit_) throw std::bad_alloc();
    } catch (...) {
        failed();
    }
}

void Steps::failed() noexcept {
    lost_ = depth_ > 0 || restoring_;
    forgot_ = true;
    done_.clear();
    undone_.clear();
    current_.cutAll();
    back_.cutAll();
}

/// Most writes go to the row of the one before.
RowId Steps::idOf(std::int32_t row) {
    if (row != knownRow_) {
        knownId_ = grid_.IdOf(row);
        knownRow_ = row;
    }
    return knownId_;
}

void Steps::written(std::int32_t row, std::int32_t col, CellPart part, std::string_view before,
                    std::string_view) noexcept {
    record(0, [&](Record& record) { record.write(idOf(row), col, part, before); });
}

void Steps::filled(std::int32_t row, std::int32_t col, std::uint32_t texts, std::uint32_t tags) noexcept {
    record(0, [&](Record& record) { record.fill(idOf(row), col, EmptyCells::bits(texts, tags)); });
}

void Steps::added(std::int32_t at, std::int32_t count) noexcept {
    knownRow_ = -1;
    if (underway()) origins_.added(at, count);
    record(static_cast<std::size_t>(count) * sizeof(RowId), [&](Record& record) {
        AddedRows rows;
        rows.ids.reserve(static_cast<std::size_t>(count));
        for (std::int32_t row = at; row < at + count; ++row) rows.ids.push_back(grid_.IdOf(row));
        record.add(std::move(rows));
    });
}

void Steps::removing(std::int32_t at, std::int32_t count) noexcept {
    knownRow_ = -1;
    if (underway()) origins_.removed(at, count);
    record(bytesOfRows(count), [&](Record& record) { record.remove(keepRows(grid_, at, count)); });
}

void Steps::reordered(std::int32_t first, std::span<const std::int32_t> from) noexcept {
    knownRow_ = -1;
    if (underway()) origins_.reordered(grid_.Rows(), first, from);
    record(bytesOfOrder(from), [&](Record& record) {
        for (ReorderedRows& rows : keepOrder(grid_, first, from)) record.reorder(std::move(rows));
    });
}

/// Rows without contents are no change.
void Steps::cleared(std::int32_t first, std::int32_t last) noexcept {
    grid_.ForEachCell(first, last, [this](auto row, auto col, auto text, auto tag) {
        record(0, [&](Record& record) {
            const RowId id = grid_.IdOf(row);
            if (!tag.empty()) record.write(id, col, CellPart::Tag, tag);
            if (!text.empty()) record.write(id, col, CellPart::Text, text);
        });
    });
}

void Steps::columnsChanged() noexcept {
    forget();
}

// --- Steps

void Steps::open(std::string_view name, Cause cause, bool joinsPrelude) {
    grid_.TellFilled();
    if (depth_ > 0 || restoring_) {
        ++depth_;
        return;
    }
    std::string owned(name);
    serialAtOpening_ = serial_;
    done_.makeRoom();
    current_ = {};
    joined_ = 0;
    lost_ = forgetsStep_ = false;
    settledEntries_ = 0;
    marks_.clear();
    origins_.begin(told());
    depth_ = 1;
    try {
        listenAsNeeded();
    } catch (...) {
        depth_ = 0;
        throw;
    }
    if (joinsPrelude && prelude_ != 0 && !done_.empty() && done_.back().serial == prelude_ &&
        undone_.empty()) {
        joined_ = prelude_;
        current_ = done_.pop().record;
        joinedEntries_ = current_.mark();
        joinedName_ = std::move(current_.name);
    }
    prelude_ = 0;
    current_.name = std::move(owned);
    current_.cause = cause;
    grid_.TellStepOpened(current_.name, cause);
}

void Steps::close() {
    if (depth_ == 0) return;
    grid_.TellFilled();
    if (depth_ > 1 || restoring_) {
        --depth_;
        return;
    }
    const auto kept = owner_.keep();
    FirstFault fault;
    settle(fault);
    grid_.TellFilled();
    depth_ = 0;
    grid_.TellStepClosed(current_.name, current_.cause);
    Told told;
    if (changes.After.heard()) told = toldOf(current_, current_.cause);
    keepDone();
    finish(told, fault);
}

/// What is left to do when a step, or a way back, is done. What it throws is the first fault.
void Steps::finish(const Told& told, FirstFault& fault) {
    fault.during([&] { listenAsNeeded(); });
    if (told.anything) fault.during([&] { changes.After(told.changes()); });
    fault.during([&] { tellForgot(); });
    fault.during([&] { owner_.historyChanged(); });
    fault.raise();
}

/// Without the memory for it, it says that it does not know.
Steps::Told Steps::toldOf(const Record& record, Cause cause) const noexcept {
    Told told;
    told.cause = cause;
    told.known = !lost_ && !origins_.lost();
    told.anything = lost_ || !record.empty();
    try {
        told.name = record.name;
        findPlaces(grid_, record, told.rows, told.cols);
        told.from.assign(origins_.from().begin(), origins_.from().end());
    } catch (...) {
        told.known = false;
    }
    return told;
}

/// There is room for it since the step was opened.
void Steps::keepDone() noexcept {
    if (std::exchange(wholeToTakeBack_, false) && current_.bytes() > limit_) failed();
    Record record = std::move(current_);
    current_ = {};
    const bool whole = !lost_ && !forgetsStep_;
    lost_ = forgetsStep_ = false;
    if (record.empty() || !whole || !enabled_) return;
    const bool nothingYet = joined_ != 0 && record.entries().size() == joinedEntries_;
    if (nothingYet) record.name = std::move(joinedName_);
    record.finish();
    try {
        done_.push({std::move(record), ++serial_});
        if (nothingYet) prelude_ = serial_;
    } catch (...) {
        failed();
    }
    trim();
}

void Steps::trim() noexcept {
    const std::size_t undone = undone_.bytes();
    while (!done_.empty() && undone + done_.bytes() > limit_) done_.dropOldest();
    if (undone > limit_) undone_.clear();
}

void Steps::settle(FirstFault& fault) {
    if (settlers_.empty() || (current_.entries().size() <= settledEntries_ && !lost_)) return;
    const Told told = toldOf(current_, current_.cause);
    for (std::size_t i = 0; i < settlers_.size(); ++i)
        fault.during([&] {
            const Changes::Settler settler = settlers_[i];
            settler(told.changes());
        });
    fault.during([&] { owner_.recalculateAll(); });
}

void Steps::tellForgot() {
    if (std::exchange(forgot_, false)) history.Forgot();
}

// --- The host's steps

std::size_t Steps::openHostStep(std::string_view name, Cause cause) {
    support::makeRoom(marks_);
    ++hostSteps_;
    try {
        open(name, cause);
    } catch (...) {
        --hostSteps_;
        throw;
    }
    wholeToTakeBack_ = wholeToTakeBack_ || cause != Cause::Code;
    marks_.push_back(current_.mark());
    return marks_.size() - 1;
}

void Steps::closeHostStep() {
    --hostSteps_;
    close();
}

void Steps::keepMarks(std::vector<KeptMark> marks) noexcept {
    grid_.TellFilled();
    if (depth_ == 0 || restoring_ || current_.empty() || marks.empty()) return;
    record(0, [&](Record& record) { record.keepMarks(std::move(marks)); });
}

bool Steps::takeBack(std::size_t hostStep) {
    grid_.TellFilled();
    if (silent_ || restoring_ || lost_ || forgetsStep_ || depth_ == 0 || hostStep >= marks_.size())
        return false;
    const auto kept = owner_.keep();
    const std::size_t mark = marks_[hostStep];
    const Record record = current_.cutFrom(mark);
    undone_.clear();
    // Steps that were begun later begin here now.
    for (std::size_t& other : marks_) other = std::min(other, mark);
    FirstFault fault;
    restore(record, false, fault);
    grid_.TellFilled();
    if (mark == 0) settledEntries_ = current_.mark();
    fault.raise();
    return true;
}

// --- The way back

/// Leaves in `back_` what would take it back. Where memory ends on the way nobody knows any more what stands
/// where: it forgets.
void Steps::restore(const Record& record, bool moves, FirstFault& fault) {
    back_ = {};
    unrecordedBefore_ = unrecorded_;
    Restore restore(grid_, record);
    {
        FlagSpan restoring(restoring_);
        FirstFault run;
        run.during([&] { restore.run(run); });
        if (run.outOfMemory()) failed();
        fault.during([&] { run.raise(); });
        fault.during([&] { owner_.recalculateAll(); });
        const auto place = restore.place();
        if (moves && place) fault.during([&] { owner_.show(place->first, place->second); });
        fault.during([&] { owner_.contentRestored(); });
        if (moves) restoreMarks(record, fault);
        grid_.TellFilled();
    }
    if (!moves) forward(std::exchange(back_, {}), restore);
}

/// From the last one to the first: a cell may have got several. What it takes to go back again is in `back_`.
void Steps::restoreMarks(const Record& record, FirstFault& fault) {
    std::vector<KeptMark> back;
    for (auto mark = record.marks().rbegin(); mark != record.marks().rend() && !silent_; ++mark)
        fault.during([&] {
            back.push_back({mark->row, mark->col, mark->after, mark->before});
            const std::int32_t row = grid_.RowOf(mark->row);
            if (row < 0 || mark->col >= grid_.Cols()) return;
            const CellMark* const now = grid_.Mark(row, mark->col);
            if ((now ? std::optional(*now) : std::nullopt) == mark->after)
                grid_.Mark(row, mark->col, mark->before);
        });
    grid_.TellFilled();
    if (!back_.empty() && !lost_) fault.during([&] { back_.keepMarks(std::move(back)); });
}

/// What handlers wrote elsewhere while a step was taken back stays in the step.
void Steps::forward(const Record& meanwhile, const Restore& restored) {
    for (const Record::Entry& entry : meanwhile.entries())
        meanwhile.forEachWrite(entry, [&](std::int32_t col, CellPart part, std::string_view before) {
            if (restored.restores(entry.row, col, part)) return;
            record(0, [&](Record& record) { record.write(entry.row, col, part, before); });
        });
}

bool Steps::goBack(KeptSteps& from, KeptSteps& to) {
    grid_.TellFilled();
    if (from.empty() || !mayGoBack()) return false;
    const auto kept = owner_.keep();
    if (!owner_.closeEditor()) return false;
    grid_.TellFilled();
    if (from.empty() || !mayGoBack()) return false;
    to.makeRoom();
    listenAsNeeded();
    Record record = from.pop().record;
    prelude_ = 0;
    lost_ = forgetsStep_ = false;
    origins_.begin(told());
    grid_.TellStepOpened(record.name, Cause::Undo);
    FirstFault fault;
    restore(record, true, fault);
    grid_.TellStepClosed(record.name, Cause::Undo);
    back_.cause = record.cause;
    Record back = std::exchange(back_, {});
    back.name = std::move(record.name);
    Told told;
    if (changes.After.heard()) told = toldOf(back, Cause::Undo);
    const bool whole = !lost_ && !forgetsStep_;
    lost_ = forgetsStep_ = false;
    if (whole && enabled_) fault.during([&] { to.push({std::move(back), ++serial_}); });
    trim();
    finish(told, fault);
    return true;
}

void Steps::limit(std::size_t bytes) {
    grid_.TellFilled();
    limit_ = bytes;
    trim();
    listenAsNeeded();
    owner_.historyChanged();
}

void Steps::enable(bool enabled) {
    grid_.TellFilled();
    enabled_ = enabled;
    if (!enabled) forget();
    listenAsNeeded();
    owner_.historyChanged();
}

void Steps::forget() noexcept {
    grid_.TellFilled();
    done_.clear();
    undone_.clear();
    current_.cutAll();
    back_.cutAll();
    prelude_ = 0;
    forgetsStep_ = depth_ > 0 || restoring_;
    if (!forgetsStep_) listen(false);
}

void Steps::silence() {
    silent_ = true;
    settlers_.clear();
    history.Forgot.disconnectAll();
    changes.After.disconnectAll();
}

void Steps::forgetByHost() {
    forget();
    owner_.historyChanged();
}

}  // namespace kxVsGrid::changes

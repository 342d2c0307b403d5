#include "clerk/find/Search.h"

#include <algorithm>
#include <utility>

#include "clerk/ShownCells.h"
#include "clerk/TipAtCell.h"
#include "columns/EditableColumn.h"
#include "editing/BringIntoView.h"

namespace kxVsGrid::clerk {
namespace {

/// So many cells are looked through at once: some tenths of a millisecond, a few where a format shows them.
constexpr std::int32_t CellsAtOnce = 16'384;
constexpr std::int32_t FewestRowsAtOnce = 16;
/// So often a display is told how far a search has come.
constexpr std::int32_t StretchesBetweenLooks = 16;

bool isBefore(const FoundCell& a, const FoundCell& b) {
    return a.row != b.row ? a.row < b.row : a.col < b.col;
}
}  // namespace

// --- The rule

void Search::rule(const FindRule& rule) {
    const auto kept = c_.owner.keep();
    if (!rule.text.empty()) c_.options.AllRowsNeeded();
    if (!c_.host.there()) return;
    ++rules_;
    rule_ = rule;
    pattern_ = support::TextPattern(rule.text, rule.wholeCell, rule.matchCase);
    column_ = c_.grid.Col();
    const std::int32_t cols = rule.thisColumn ? 1 : std::max(1, c_.grid.Cols());
    counts_.begin(std::max(FewestRowsAtOnce, CellsAtOnce / cols));
    underway_ = true;
    refused_ = wrapped_ = visited_ = false;
    present_.reset();
    base_.emplace(c_.rows.follower(), current());
    looking_.reset();
    if (!rule.text.empty()) looking_.emplace(c_.rows.follower(), current(), true, true);
    listen();
    c_.grid.CellTint([this](std::int32_t row, std::int32_t col) { return tintOf({row, col}); });
    changed();
    c_.owner.searchChanged();
}

/// The view may be anywhere.
void Search::end() {
    if (!std::exchange(underway_, false)) return;
    const auto kept = c_.owner.keep();
    told_ = false;
    stopListening();
    looking_.reset();
    present_.reset();
    c_.grid.CellTint({});
    if (c_.grid.Row() >= 0 && c_.grid.Col() >= 0) editing::bringCurrentCellIntoView(c_.grid);
}

void Search::silence() {
    underway_ = false;
    onWork_ = {};
    stopListening();
}

// --- What matches

bool Search::matches(const FoundCell& cell) const {
    const CellGrid& grid = c_.grid;
    if (!columns::isDataCell(grid, cell.row, cell.col) || (rule_.thisColumn && cell.col != column_))
        return false;
    if (!grid.RowShown(cell.row) || !isShownCol(grid, cell.col)) return false;
    return grid.ColDataType(cell.col) != flexDTBoolean && pattern_.in(grid.DisplayText(cell.row, cell.col));
}

CellGrid::Tint Search::tintOf(const FoundCell& cell) const {
    if (pattern_.text().empty() || !matches(cell)) return CellGrid::Tint::None;
    const bool here = present_ && present_->row.there() && present_->cell() == cell;
    return here ? CellGrid::Tint::FoundHere : CellGrid::Tint::Found;
}

/// Those that are searched. A check box shows no text.
std::vector<std::int32_t> Search::columns() const {
    const CellGrid& grid = c_.grid;
    std::vector<std::int32_t> cols = shownCols(grid, grid.FixedCols(), grid.Cols() - 1);
    std::erase_if(cols, [&](std::int32_t col) {
        return grid.ColDataType(col) == flexDTBoolean || (rule_.thisColumn && col != column_);
    });
    return cols;
}

/// The matches of a stretch of rows, row by row. A host computes texts, and may do anything meanwhile.
std::vector<FoundCell> Search::look(std::int32_t stretch) const {
    const CellGrid& grid = c_.grid;
    const std::int64_t begin = std::int64_t{stretch} * counts_.stretchRows();
    const auto first = static_cast<std::int32_t>(std::max<std::int64_t>(begin, grid.FixedRows()));
    const auto last =
        static_cast<std::int32_t>(std::min<std::int64_t>(begin + counts_.stretchRows(), grid.Rows()) - 1);
    std::vector<FoundCell> found;
    std::vector<FoundCell> asked;
    std::vector<std::int32_t> rows;
    std::vector<std::int32_t> computed;
    for (const std::int32_t col : columns()) {
        rows.clear();
        computed.clear();
        grid.FindTexts(pattern_, col, first, last, rows, computed);
        for (const std::int32_t row : rows) found.push_back({row, col});
        for (const std::int32_t row : computed) asked.push_back({row, col});
    }
    for (const FoundCell& cell : asked)
        if (matches(cell)) found.push_back(cell);
    std::sort(found.begin(), found.end(), isBefore);
    return found;
}

/// One whose texts cannot be computed counts as looked through.
std::vector<FoundCell> Search::lookAndCount(std::int32_t stretch) {
    counts_.put(stretch, 0);
    std::vector<FoundCell> found = look(stretch);
    counts_.put(stretch, found.size());
    return found;
}

// --- On the way around

/// Looks through the next stretch in which there may be something.
std::optional<FoundCell> Search::advance(Round& round) {
    counts_.fit(c_.grid.Rows());
    if (round.structure != structure_) round.step = 0;
    round.structure = structure_;
    const std::int32_t count = counts_.stretches();
    const FoundCell start = round.start.cell();
    const std::int32_t first =
        std::clamp(counts_.stretchOf(std::max(0, start.row)), 0, std::max(0, count - 1));
    while (round.step <= count && count > 0) {
        const std::int32_t step = round.step++;
        const std::int32_t away = step % count;
        const std::int32_t stretch = round.forward ? (first + away) % count : (first - away + count) % count;
        if (counts_.knownEmpty(stretch)) continue;
        std::vector<FoundCell> found = lookAndCount(stretch);
        if (!round.forward) std::reverse(found.begin(), found.end());
        const auto ahead = [&](const FoundCell& cell) {
            if (cell == start) return round.inclusive;
            return isBefore(cell, start) != round.forward;
        };
        const bool firstHalf = step == 0;
        const bool secondHalf = step == count;
        for (const FoundCell& cell : found)
            if ((!firstHalf || ahead(cell)) && (!secondHalf || !ahead(cell))) return cell;
        return std::nullopt;
    }
    round.over = true;
    return std::nullopt;
}

/// To the end of the round, in which the clerk can cancel.
std::optional<FoundCell> Search::seek(Round& round) {
    const std::uint64_t rules = rules_;
    const std::unique_ptr<Progress> progress = c_.platform.progress("查找", c_.grid.Rows());
    gaveUp_ = false;
    for (std::int32_t done = 0; !round.over; ++done) {
        if (const auto found = advance(round)) return found;
        if (!goesOn(rules)) return std::nullopt;
        const std::int64_t rows = std::int64_t{round.step} * counts_.stretchRows();
        gaveUp_ = progress && done % StretchesBetweenLooks == 0 && !progress->goOn(rows);
        if (gaveUp_ || !goesOn(rules)) return std::nullopt;
    }
    return std::nullopt;
}

/// While nobody tells of changes nothing is known of any stretch.
std::optional<FoundCell> Search::seekFrom(const FoundCell& from, bool forward, bool inclusive) {
    if (!listening_) counts_.forgetFrom(0);
    Round round(c_.rows.follower(), from, forward, inclusive);
    const auto found = seek(round);
    if (!found) return found;
    const FoundCell start = round.start.cell();
    wrapped_ = *found == start ? !inclusive : isBefore(*found, start) == forward;
    return found;
}

/// False when the clerk has cancelled it, or something else has come between.
bool Search::countAll() {
    const std::uint64_t rules = rules_;
    counts_.fit(c_.grid.Rows());
    const std::unique_ptr<Progress> progress = c_.platform.progress("查找", c_.grid.Rows());
    std::int64_t done = 0;
    for (std::int32_t next = counts_.unknown(); next >= 0; next = counts_.unknown()) {
        lookAndCount(next);
        if (!goesOn(rules)) return false;
        const std::int64_t rows = std::min<std::int64_t>(++done * counts_.stretchRows(), c_.grid.Rows());
        if (progress && done % StretchesBetweenLooks == 0 && !progress->goOn(rows)) return false;
        if (!goesOn(rules)) return false;
        counts_.fit(c_.grid.Rows());
    }
    return true;
}

bool Search::work() {
    told_ = false;
    if (!underway_ || pattern_.text().empty()) return false;
    const auto kept = c_.owner.keep();
    const std::uint64_t rules = rules_;
    counts_.fit(c_.grid.Rows());
    if (looking_) {
        const auto found = advance(*looking_);
        if (rules != rules_ || !underway_ || !looking_) return underway_;
        const FoundCell start = looking_->start.cell();
        if (found || looking_->over) looking_.reset();
        if (found) {
            wrapped_ = isBefore(*found, start);
            setPresent(found);
            show(*found);
            if (rules != rules_ || !underway_) return underway_;
        }
    } else if (const std::int32_t next = counts_.unknown(); next >= 0) {
        lookAndCount(next);
    }
    return looking_ || !counts_.complete();
}

bool Search::presentStands() const {
    return present_ && present_->row.there() && matches(present_->cell());
}

FindState Search::state() const {
    FindState state;
    if (!underway_ || pattern_.text().empty()) return state;
    state.count = counts_.total();
    state.complete = counts_.complete() && counts_.stretches() > 0 && !looking_;
    state.refused = refused_;
    if (!presentStands()) return state;
    state.match = present_->cell();
    state.wrapped = wrapped_;
    const std::int32_t stretch = counts_.stretchOf(state.match->row);
    const std::int64_t before = counts_.before(stretch);
    if (before < 0) return state;
    const std::vector<FoundCell> found = look(stretch);
    const auto at = std::lower_bound(found.begin(), found.end(), *state.match, isBefore);
    state.number = before + (at - found.begin()) + 1;
    state.count = std::max(state.count, state.number);
    return state;
}

// --- Going there

bool Search::clerkMoved() const {
    return !base_ || !base_->row.there() || base_->cell() != current();
}

/// The column that is searched is the clerk's.
void Search::followClerk() {
    if (!clerkMoved()) return;
    looking_.reset();
    visited_ = true;
    base_.emplace(c_.rows.follower(), current());
    if (!rule_.thisColumn || column_ == c_.grid.Col()) return;
    column_ = c_.grid.Col();
    allChanged();
    c_.grid.damageAll();
}

void Search::setPresent(const std::optional<FoundCell>& cell) {
    const auto damage = [this](const FoundCell& at) {
        if (at.row >= 0 && at.row < c_.grid.Rows() && at.col >= 0 && at.col < c_.grid.Cols())
            c_.grid.damageCell(at.row, at.col);
    };
    if (present_) damage(present_->cell());
    present_.reset();
    visited_ = false;
    if (!cell) return;
    present_.emplace(c_.rows.follower(), *cell);
    damage(*cell);
}

/// The current cell stays where it is. A host that hears of the scrolling may take columns away.
void Search::show(const FoundCell& cell) {
    CellGrid& grid = c_.grid;
    grid.BringRowIntoView(cell.row, grid.ClientHeight() - grid.BottomStrip());
    if (cell.col < grid.Cols()) grid.BringColIntoView(cell.col, grid.ClientWidth());
}

bool Search::go(bool forward) {
    const auto kept = c_.owner.keep();
    const std::uint64_t rules = rules_;
    if (rule_.text.empty() || !c_.editor.commitOrStay() || !goesOn(rules)) return false;
    const bool moved = clerkMoved();
    const bool fresh = looking_.has_value() && !moved;
    followClerk();
    refused_ = false;
    if (forward && !moved && !visited_ && presentStands()) return moveTo(present_->cell());
    const bool fromPresent = !moved && present_ && present_->row.there();
    looking_.reset();
    const auto found =
        seekFrom(fromPresent ? present_->cell() : current(), forward, forward && fresh && !fromPresent);
    if (!goesOn(rules)) return false;
    if (!found) {
        setPresent(std::nullopt);
        if (!underway_ && !gaveUp_) tellAtCell(c_, "没有找到“" + rule_.text + "”。");
        return false;
    }
    if (wrapped_ && !underway_) tellAtCell(c_, forward ? "已到末尾，从头继续。" : "已到开头，从末尾继续。");
    if (underway_) setPresent(found);
    return moveTo(*found);
}

/// One move, as the clerk's own.
bool Search::moveTo(const FoundCell& cell) {
    CellGrid& grid = c_.grid;
    const std::uint64_t rules = rules_;
    const Place to(c_.rows.follower(), cell);
    visited_ = true;
    grid.Select(cell.row, cell.col);
    if (!goesOn(rules)) return false;
    const bool there = to.row.there() && current() == to.cell();
    refused_ = !there;
    base_.emplace(c_.rows.follower(), current());
    if (there)
        editing::bringCurrentCellIntoView(grid);
    else if (to.row.there())
        show(to.cell());
    return there;
}
}  // namespace kxVsGrid::clerk

// Replacing what was found: each cell passes the gate as if its new text were typed.
#include <algorithm>

#include "clerk/find/Search.h"

namespace kxVsGrid::clerk {
namespace {

std::string stepName(std::int64_t cells) {
    return "替换 " + std::to_string(cells) + " 格";
}
}  // namespace

bool Search::mayReplace() {
    const std::uint64_t rules = rules_;
    return c_.flags.Editable && !rule_.text.empty() && c_.editor.commitOrStay() && goesOn(rules);
}

/// In what is stored, where the matches are those that are shown: a format hides digits, which shall not be lost.
std::string Search::replaced(const FoundCell& cell, std::string_view with) const {
    if (pattern_.whole()) return std::string(with);
    const std::string shown = c_.grid.DisplayText(cell.row, cell.col);
    const std::string stored = c_.grid.Text(cell.row, cell.col);
    const bool alike = pattern_.occurrences(shown) == pattern_.occurrences(stored);
    return pattern_.replaced(alike ? stored : shown, with);
}

bool Search::replace(std::string_view with) {
    const auto kept = c_.owner.keep();
    if (!underway_ || !mayReplace()) return false;
    const std::uint64_t rules = rules_;
    const bool fresh = looking_.has_value();
    followClerk();
    looking_.reset();
    bool done = false;
    FoundCell from = current();
    bool inclusive = fresh;
    if (presentStands()) {
        const Place at(c_.rows.follower(), present_->cell());
        BlockEdit edit(c_, Command::Replace, 1);
        edit.during(stepName(1), [&] { edit.write(at.row, at.col, replaced(at.cell(), with)); });
        done = edit.report().written > 0;
        if (!goesOn(rules) || !underway_) return done;
        from = at.cell();
        inclusive = false;
    }
    const auto next = seekFrom(from, true, inclusive);
    if (!goesOn(rules) || !underway_) return done;
    setPresent(next);
    if (next) show(*next);
    return done;
}

PasteReport Search::replaceAll(std::string_view with) {
    const auto kept = c_.owner.keep();
    PasteReport nothing;
    nothing.command = Command::Replace;
    if (!mayReplace()) return nothing;
    const std::string text(with);
    followClerk();
    const bool listened = listening_;
    if (!listened) counts_.forgetFrom(0);
    listen();
    struct Listening {
        Search& search;
        bool goesOn;
        ~Listening() {
            if (!goesOn && !search.underway_) search.stopListening();
        }
    } const listening{*this, listened};

    nothing.cancelled = !countAll();
    const std::int64_t cells = counts_.total();
    if (nothing.cancelled || cells == 0 || !c_.host.there()) return nothing;
    BlockEdit edit(c_, Command::Replace, cells);
    edit.during(stepName(cells), [&] { replaceEach(edit, text); });
    return edit.report();
}

/// The next stretch in which there is something, for as long as there are any up to the last row.
bool Search::nextToReplace(std::vector<FoundCell>& found, std::int32_t& stretch, std::int32_t last) {
    counts_.fit(c_.grid.Rows());
    while (stretch < counts_.stretches() && stretch <= counts_.stretchOf(last)) {
        const std::int32_t here = stretch++;
        if (counts_.knownEmpty(here)) continue;
        found = look(here);
        if (!found.empty()) return true;
    }
    return false;
}

/// What was replaced is not looked at again, whatever rows handlers insert and remove. Where they put rows into
/// another order nobody can tell what was.
void Search::replaceEach(BlockEdit& edit, std::string_view with) {
    const std::uint64_t rules = rules_;
    const std::uint64_t reorderings = reorderings_;
    std::uint64_t structure = structure_;
    rows::FollowedRow last(c_.rows.follower(), c_.grid.Rows() - 1);
    std::optional<Place> at;
    std::vector<FoundCell> found;
    std::size_t next = 0;
    std::int32_t stretch = 0;
    while (edit.goesOn()) {
        if (rules != rules_ || reorderings != reorderings_ || !last.there()) return edit.cutShort();
        if (structure != structure_ && at) stretch = counts_.stretchOf(at->cell().row);
        if (structure != structure_) found.clear();
        structure = structure_;
        if (next >= found.size() || found.empty()) {
            next = 0;
            if (!nextToReplace(found, stretch, last.row())) return;
            if (!at) continue;
            const FoundCell done = at->cell();
            const bool gone = !at->row.there();
            std::erase_if(found, [&](const FoundCell& cell) {
                if (cell.row != done.row) return cell.row < done.row;
                return !gone && cell.col <= done.col;
            });
            continue;
        }
        const FoundCell cell = found[next++];
        if (cell.row > last.row()) return;
        at.emplace(c_.rows.follower(), cell);
        if (matches(cell)) edit.write(at->row, cell.col, replaced(cell, with));
    }
}
}  // namespace kxVsGrid::clerk

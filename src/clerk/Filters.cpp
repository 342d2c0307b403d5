#include "clerk/Filters.h"

#include <algorithm>
#include <new>

#include "clerk/ClerkContext.h"
#include "clerk/ColumnTexts.h"
#include "editing/BringIntoView.h"
#include "support/FirstFault.h"
#include "support/Text.h"

namespace kxVsGrid::clerk {
namespace {

/// More rows than these that come or go empty at once are not noted one by one.
constexpr std::int32_t ManyRowsAtOnce = 10'000;
}  // namespace

// --- What there is

const Filters::Rule* Filters::ruleOf(std::int32_t col) const {
    for (const auto& rule : rules_)
        if (rule->col == col) return rule.get();
    return nullptr;
}

Filters::Rules Filters::without(std::int32_t col) const {
    Rules rest = rules_;
    std::erase_if(rest, [col](const auto& rule) { return rule->col == col; });
    return rest;
}

std::vector<std::string> Filters::textsOf(std::int32_t col) const {
    const Rule* const rule = ruleOf(col);
    if (!rule) return {};
    return {rule->texts.begin(), rule->texts.end()};
}

bool Filters::lets(std::int32_t col, std::string_view text) const {
    const Rule* const rule = ruleOf(col);
    return !rule || rule->texts.contains(text);
}

std::int32_t Filters::hiddenRows() const {
    return c_.grid.FilteredRows(c_.grid.FixedRows(), c_.grid.Rows() - 1);
}

void Filters::requireCol(const char* member, std::int32_t col) const {
    if (col >= 0 && col < c_.grid.Cols()) return;
    throw GridError(std::string("Filters.") + member + ": column " + std::to_string(col) +
                    " is not within 0 to " + std::to_string(c_.grid.Cols() - 1));
}

bool Filters::passes(std::int32_t row) const {
    return std::all_of(rules_.begin(), rules_.end(), [&](const auto& rule) {
        return rule->texts.contains(seenText(c_.grid, row, rule->col));
    });
}

// --- Putting them

bool Filters::show(std::int32_t col, const std::vector<std::string>& texts) {
    const auto kept = owner_.keep();
    if (!commitsFirst() || col >= c_.grid.Cols()) return false;
    auto rule = std::make_shared<Rule>(Rule{col, c_.grid.ColFormat(col), c_.grid.ColDataType(col), {}});
    for (const std::string& text : texts) rule->texts.emplace(support::trim(text));
    Rules rules = without(col);
    const auto place =
        std::find_if(rules.begin(), rules.end(), [col](const auto& other) { return other->col > col; });
    rules.insert(place, std::move(rule));
    put(std::move(rules));
    return true;
}

bool Filters::end(std::int32_t col) {
    const auto kept = owner_.keep();
    if (!on(col)) return true;
    if (!commitsFirst()) return false;
    put(without(col));
    return true;
}

bool Filters::end() {
    const auto kept = owner_.keep();
    if (!on()) return true;
    if (!commitsFirst()) return false;
    put({});
    return true;
}

void Filters::drop() {
    const auto kept = owner_.keep();
    if (on()) put({});
}

/// A host that filters while a text is being committed finds the row shown afterwards.
bool Filters::commitsFirst() {
    if (editor_.committing()) return true;
    editor_.commitUnlessLocked();
    return c_.host.there() && !editor_.visible();
}

/// What can fail before any row has changed fails before anything has.
void Filters::put(Rules rules) {
    CellGrid& grid = c_.grid;
    std::vector<bool> hidden = hiddenBy(rules);
    const auto row = static_cast<std::size_t>(std::max(grid.Row(), 0));
    Rows kept;
    if (editor_.visible() && row < hidden.size() && hidden[row]) {
        hidden[row] = false;
        kept.insert(grid.IdOf(grid.Row()));
    }
    const RowId current = rules.empty() ? RowId::None : currentId();
    if (!rules.empty()) listening_.on(true);
    grid.TellFilled();

    const std::uint64_t serial = ++serial_;
    Rules before = std::exchange(rules_, std::move(rules));
    touched_ = std::move(kept);
    fresh_.clear();
    lastNotedRow_ = -1;  // what rows did while nothing filtered was not heard
    current_ = current;
    fixedRows_ = grid.FixedRows();
    lost_ = removed_ = false;
    sign();
    support::FirstFault fault;
    fault.during([&] { grid.FilterRows(0, hidden); });
    if (fault.outOfMemory() && serial == serial_) {
        rules_ = std::move(before);
        lost_ = true;
        sign();
        fault.raise();
    }
    if (serial == serial_ && c_.host.there()) {
        if (rules_.empty()) listening_.on(false);
        fault.during([&] {
            if (on())
                leaveUnseenRow();
            else if (grid.Col() >= 0)
                editing::bringCurrentCellIntoView(grid);
        });
    }
    fault.during([&] { tell(); });
    fault.raise();
}

std::vector<bool> Filters::hiddenBy(const Rules& rules) const {
    const std::int32_t first = c_.grid.FixedRows();
    std::vector<bool> hidden(static_cast<std::size_t>(c_.grid.Rows()));
    for (const auto& rule : rules) {
        ColumnTexts texts(c_.grid, rule->col);
        std::vector<bool> passing;  // by the number of the text
        const auto pass = [&](std::uint32_t number) {
            while (passing.size() <= number)
                passing.push_back(
                    rule->texts.contains(texts.text(static_cast<std::uint32_t>(passing.size()))));
            return passing[number];
        };
        std::vector<bool> out(hidden.size(), !pass(ColumnTexts::Nothing));
        texts.read([&](std::int32_t row, std::uint32_t number) {
            out[static_cast<std::size_t>(row)] = !pass(number);
        });
        for (auto row = static_cast<std::size_t>(first); row < hidden.size(); ++row)
            if (out[row]) hidden[row] = true;
    }
    return hidden;
}

void Filters::sign() {
    for (std::int32_t col = 0; col < c_.grid.Cols(); ++col) c_.grid.ColFiltered(col, on(col));
}

/// One move, down or else up. Where no row is left, or the host refuses, the current cell stays.
void Filters::leaveUnseenRow() {
    CellGrid& grid = c_.grid;
    const std::int32_t row = grid.Row();
    if (row < grid.FixedRows() || grid.Col() < 0 || !grid.RowFiltered(row)) return;
    std::int32_t to = grid.ShownRowAfter(row);
    if (to < 0) to = grid.ShownRowBefore(row);
    if (to >= grid.FixedRows()) grid.Select(to, grid.Col());
}

void Filters::tell() {
    untold_ = false;
    if (!c_.host.there()) return;
    owner_.filtersChanged();
    if (c_.host.there()) face.Changed();
}

// --- Rows that are shown for a while

void Filters::expose(std::int32_t row) {
    CellGrid& grid = c_.grid;
    if (!on() || row < grid.FixedRows() || row >= grid.Rows() || !grid.RowFiltered(row)) return;
    (c_.steps.restoring() ? fresh_ : touched_).insert(grid.IdOf(row));
    untold_ = true;
    grid.RowFiltered(row, false);
}

/// Within a row that is not seen, since none is left, it shows nothing.
void Filters::entered() {
    const std::int32_t row = c_.grid.Row();
    if (on() && row >= 0 && currentId() != current_) expose(row);
}

RowId Filters::currentId() {
    const std::int32_t row = c_.grid.Row();
    return row < 0 ? RowId::None : c_.grid.IdOf(row);
}

/// What was lost is found again when all rows are looked at.
void Filters::note(std::int32_t row, bool staysInStep) noexcept {
    try {
        if (row != lastNotedRow_) {
            lastNoted_ = c_.grid.IdOf(row);
            lastNotedRow_ = row;
        }
        (staysInStep && c_.steps.underway() ? fresh_ : touched_).insert(lastNoted_);
    } catch (const std::bad_alloc&) {
        lost_ = true;
    }
}

void Filters::written(std::int32_t row, std::int32_t col, CellPart part, std::string_view,
                      std::string_view) noexcept {
    if (part == CellPart::Text && row >= fixedRows_ && on(col)) note(row, c_.steps.restoring());
}

void Filters::filled(std::int32_t row, std::int32_t col, std::uint32_t texts, std::uint32_t) noexcept {
    constexpr std::int32_t Cells = 32;
    for (const auto& rule : rules_)
        if (rule->col >= col && rule->col < col + Cells && (texts >> (rule->col - col) & 1U) != 0)
            return note(row, c_.steps.restoring());
}

void Filters::added(std::int32_t at, std::int32_t count) noexcept {
    lastNotedRow_ = -1;
    if (count > ManyRowsAtOnce)
        lost_ = true;
    else
        for (std::int32_t row = at; row < at + count; ++row) note(row, true);
    lastNotedRow_ = -1;
}

void Filters::removing(std::int32_t, std::int32_t) noexcept {
    lastNotedRow_ = -1;
    removed_ = true;
}

void Filters::reordered(std::int32_t, std::span<const std::int32_t>) noexcept {
    lastNotedRow_ = -1;
}

void Filters::cleared(std::int32_t first, std::int32_t last) noexcept {
    if (last - first > ManyRowsAtOnce)
        lost_ = true;
    else
        for (std::int32_t row = first; row <= last; ++row) note(row, false);
}

// --- Looking at rows anew

/// What is to be done is taken before anything is raised: a listener may bring this about once more.
void Filters::settle() {
    if (!on() || c_.steps.underway() || !c_.host.there()) return;
    const auto kept = owner_.keep();
    c_.grid.TellFilled();
    endOutdated();
    if (!on() || !c_.host.there()) return;
    // first, so that what has come just now is not looked at for this move
    if (std::exchange(removed_, false)) leaveUnseenRow();
    if (!on() || !c_.host.there()) return;
    lookAgain();
    if (untold_) tell();
}

/// A column that shows its cells otherwise now.
void Filters::endOutdated() {
    Rules rest = rules_;
    std::erase_if(rest, [&](const auto& rule) {
        return rule->col >= c_.grid.Cols() || rule->format != c_.grid.ColFormat(rule->col) ||
               rule->type != c_.grid.ColDataType(rule->col);
    });
    if (rest.size() != rules_.size()) put(std::move(rest));
}

void Filters::lookAgain() {
    const RowId now = currentId();
    const Rows brought = std::exchange(fresh_, {});
    Rows rows;
    if (now != current_) rows = std::exchange(touched_, {});
    touched_.insert(brought.begin(), brought.end());
    if (now != current_) {
        if (rows.erase(now) > 0) touched_.insert(now);
        for (const RowId row : brought) rows.erase(row);
    }
    const bool another = std::exchange(current_, now) != now;
    if (another && std::exchange(lost_, false)) return lookAtAll();
    lookAt(rows, brought);
}

/// The current row, and what has just come, stays shown.
void Filters::lookAtAll() {
    CellGrid& grid = c_.grid;
    std::vector<bool> hidden = hiddenBy(rules_);
    const auto stays = [&](std::int32_t row) {
        if (row < grid.FixedRows() || grid.RowFiltered(row) || !hidden[static_cast<std::size_t>(row)]) return;
        hidden[static_cast<std::size_t>(row)] = false;
        touched_.insert(grid.IdOf(row));
    };
    for (const RowId id : Rows(touched_))
        if (const std::int32_t row = grid.RowOf(id); row >= 0) stays(row);
    stays(grid.Row());
    fixedRows_ = grid.FixedRows();
    untold_ = true;
    try {
        grid.FilterRows(0, hidden);
    } catch (const std::bad_alloc&) {
        lost_ = true;
        throw;
    }
}

/// `brought` are those of an undo: what of them passes is seen at once.
void Filters::lookAt(const Rows& rows, const Rows& brought) {
    CellGrid& grid = c_.grid;
    std::vector<std::pair<std::int32_t, bool>> changes;
    const auto look = [&](RowId id, bool mayHide) {
        const std::int32_t row = grid.RowOf(id);
        if (row < grid.FixedRows()) return;
        const bool hides = !passes(row);
        if (hides != grid.RowFiltered(row) && (mayHide || !hides)) changes.emplace_back(row, hides);
    };
    for (const RowId id : rows) look(id, true);
    for (const RowId id : brought) look(id, false);
    if (changes.empty()) return;
    std::sort(changes.begin(), changes.end());
    untold_ = true;
    try {
        grid.FilterRows(changes);
    } catch (const std::bad_alloc&) {
        lost_ = true;
        throw;
    }
}

void Filters::sizeChanged() {
    if (!on()) return;
    const auto kept = owner_.keep();
    endOutdated();
    if (on() && fixedRows_ != c_.grid.FixedRows()) lookAtAll();
    if (untold_) tell();
}
}  // namespace kxVsGrid::clerk

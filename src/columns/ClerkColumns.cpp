#include "columns/ClerkColumns.h"

#include <algorithm>
#include <unordered_set>
#include <utility>

#include "columns/FittedWidth.h"
#include "support/Text.h"

namespace kxVsGrid::columns {
namespace {

/// Columns are listed from left to right.
bool holds(const std::vector<std::int32_t>& cols, std::int32_t col) {
    return std::binary_search(cols.begin(), cols.end(), col);
}

/// A name is one line of a bag.
std::string named(std::string text) {
    for (char& c : text)
        if (static_cast<unsigned char>(c) < ' ') c = ' ';
    return std::string(support::trim(text));
}
}  // namespace

// --- What is so

bool ClerkColumns::isShown(std::int32_t col) const {
    return isThere(col) && !grid_.ColHidden(col) && grid_.ColWidth(col) > 0;
}

bool ClerkColumns::hides(std::int32_t col) const {
    const auto i = static_cast<std::size_t>(col);
    if (!isThere(col) || i >= hidden_.size() || !hidden_[i] || !grid_.ColHidden(col)) return false;
    const cVsControl* const column = columns_.find(col);
    return !column || column->bIsVisible();
}

std::vector<std::int32_t> ClerkColumns::hidden() const {
    std::vector<std::int32_t> cols;
    for (std::size_t i = 0; i < hidden_.size(); ++i)
        if (hides(static_cast<std::int32_t>(i))) cols.push_back(static_cast<std::int32_t>(i));
    return cols;
}

bool ClerkColumns::leavesSome(const std::vector<std::int32_t>& hidden) const {
    for (std::int32_t col = grid_.FixedCols(); col < grid_.Cols(); ++col)
        if (isShown(col) && !holds(hidden, col)) return true;
    return false;
}

/// What is not the clerk's any more was put by the host since: that is the design now.
const ClerkColumns::Resized* ClerkColumns::resized(std::int32_t col) const {
    const auto i = static_cast<std::size_t>(col);
    if (!isThere(col) || i >= resized_.size() || !resized_[i]) return nullptr;
    const bool still = grid_.ColWidth(col) == resized_[i]->clerks && grid_.ColSample(col).empty();
    return still ? &*resized_[i] : nullptr;
}

std::int32_t ClerkColumns::width(std::int32_t col) const {
    const Resized* const one = resized(col);
    return one && one->clerks != one->designed.twips ? one->clerks : 0;
}

const ClerkColumns::Frozen* ClerkColumns::clerksFrozen() const {
    const bool still =
        frozen_ && grid_.FrozenCols() == std::min(frozen_->clerks, grid_.Cols() - grid_.FixedCols());
    return still ? &*frozen_ : nullptr;
}

std::optional<std::int32_t> ClerkColumns::frozen() const {
    const Frozen* const one = clerksFrozen();
    return one && one->clerks != one->designed ? std::optional(one->clerks) : std::nullopt;
}

bool ClerkColumns::isChanged() const {
    if (frozen() || !hidden().empty()) return true;
    for (std::size_t i = 0; i < resized_.size(); ++i)
        if (width(static_cast<std::int32_t>(i)) > 0) return true;
    return false;
}

std::string ClerkColumns::nameOf(std::int32_t col) const {
    const cVsControl* const column = columns_.find(col);
    std::string name = column ? named(column->sName()) : std::string();
    if (name.empty() && grid_.FixedRows() > 0) name = named(grid_.Text(grid_.FixedRows() - 1, col));
    return name;
}

std::vector<std::string> ClerkColumns::names() const {
    std::vector<std::string> names;
    std::unordered_set<std::string> seen;
    for (std::int32_t col = 0; col < grid_.Cols(); ++col) {
        names.push_back(nameOf(col));
        if (!seen.insert(names.back()).second) names.back().clear();
    }
    return names;
}

// --- Widths

void ClerkColumns::widthWillChange(std::int32_t col) {
    grabbedWidth_ = present(col);
    grabbed_ = col;
}

/// An edge that was pressed and not moved has changed nothing.
void ClerkColumns::widthChanged(std::int32_t col) {
    if (std::exchange(grabbed_, -1) != col || !isThere(col)) return;
    const Width before = std::exchange(grabbedWidth_, {});
    const bool same = grid_.ColWidth(col) == before.twips;
    if (same && grid_.ColSample(col) == before.sample) return;
    noteWidth(col, before);
    if (!same) face.Changed();
}

std::int32_t ClerkColumns::fittedWidth(std::int32_t col, std::int32_t boxSide, bool total) const {
    return columns::fittedWidth(grid_, col, boxSide, total ? &sums_ : nullptr);
}

void ClerkColumns::noteWidth(std::int32_t col, const Width& before) {
    const auto i = static_cast<std::size_t>(col);
    if (resized_.size() <= i) resized_.resize(i + 1);
    const bool wasClerks = resized_[i] && before.twips == resized_[i]->clerks && before.sample.empty();
    if (wasClerks)
        resized_[i]->clerks = grid_.ColWidth(col);
    else
        resized_[i] = Resized{before, grid_.ColWidth(col)};
}

void ClerkColumns::applyWidth(std::int32_t col, std::int32_t twips) {
    if (!isThere(col)) return;
    if (twips > 0) {
        const Width before = present(col);
        grid_.ColWidth(col, twips);
        if (isThere(col)) noteWidth(col, before);
        return;
    }
    const Resized* const one = resized(col);
    if (!one) return;
    const Width designed = one->designed;
    resized_[static_cast<std::size_t>(col)].reset();
    if (designed.sample.empty())
        grid_.ColWidth(col, designed.twips);
    else
        grid_.ColSample(col, designed.sample);
}

// --- Hidden columns

std::int32_t ClerkColumns::shownBeside(std::int32_t col, const std::vector<std::int32_t>& but) const {
    const auto fits = [&](std::int32_t c) { return isShown(c) && !holds(but, c); };
    for (std::int32_t c = col + 1; c < grid_.Cols(); ++c)
        if (fits(c)) return c;
    for (std::int32_t c = std::min(col, grid_.Cols()) - 1; c >= grid_.FixedCols(); --c)
        if (fits(c)) return c;
    return -1;
}

/// The current cell goes first: a host that keeps it where it is keeps its column.
bool ClerkColumns::leave(const std::vector<std::int32_t>& cols) {
    if (grid_.Row() < 0 || !holds(cols, grid_.Col())) return true;
    const std::int32_t to = shownBeside(grid_.Col(), cols);
    if (to >= 0) grid_.Select(grid_.Row(), to);
    return !holds(cols, grid_.Col());
}

void ClerkColumns::putHidden(const std::vector<std::int32_t>& cols, bool hidden) {
    for (const std::int32_t col : cols) {
        if (!isThere(col)) continue;
        const auto i = static_cast<std::size_t>(col);
        if (hidden_.size() <= i) hidden_.resize(i + 1);
        hidden_[i] = hidden;
        grid_.ColHidden(col, hidden);
        if (col < sums_.Cols()) sums_.ColHidden(col, hidden);
    }
    owner_.columnsPlaced();
}

bool ClerkColumns::hide(const std::vector<std::int32_t>& cols) {
    const auto kept = owner_.keep();
    if (!leave(cols) || !leavesSome(cols)) return false;
    putHidden(cols, true);
    face.Changed();
    return true;
}

/// What the host hides stays hidden, and his.
std::vector<std::int32_t> ClerkColumns::hiddenOf(std::vector<std::int32_t> cols) const {
    std::erase_if(cols, [this](std::int32_t col) { return !hides(col); });
    return cols;
}

bool ClerkColumns::show(const std::vector<std::int32_t>& cols) {
    const auto kept = owner_.keep();
    const std::vector<std::int32_t> back = hiddenOf(cols);
    if (back.empty()) return false;
    putHidden(back, false);
    face.Changed();
    return true;
}

void ClerkColumns::applyHidden(const std::vector<std::int32_t>& hide, const std::vector<std::int32_t>& show) {
    const std::vector<std::int32_t> back = hiddenOf(show);
    std::vector<std::int32_t> gone;
    for (const std::int32_t col : hide)
        if (col >= grid_.FixedCols() && isThere(col) && !grid_.ColHidden(col)) gone.push_back(col);
    if (gone.empty() && back.empty()) return;
    if (back.empty() && !leavesSome(gone)) return;
    putHidden(back, false);
    if (!leave(gone)) std::erase(gone, grid_.Col());
    putHidden(gone, true);
}

void ClerkColumns::hostHid(std::int32_t col) {
    if (static_cast<std::size_t>(col) < hidden_.size()) hidden_[static_cast<std::size_t>(col)] = false;
}

void ClerkColumns::colsLimited(std::int32_t cols) {
    const auto count = static_cast<std::size_t>(cols);
    if (hidden_.size() > count) hidden_.resize(count);
    if (resized_.size() > count) resized_.resize(count);
    if (grabbed_ >= cols) grabbed_ = -1;
}

// --- Frozen columns

void ClerkColumns::putFrozen(std::int32_t cols) {
    const Frozen* const before = clerksFrozen();
    frozen_ = Frozen{before ? before->designed : grid_.FrozenCols(), cols};
    owner_.freeze(cols);
    owner_.columnsPlaced();
}

void ClerkColumns::freeze(std::int32_t cols) {
    const auto kept = owner_.keep();
    putFrozen(cols);
    face.Changed();
}

void ClerkColumns::applyFrozen(std::optional<std::int32_t> cols) {
    const Frozen* const clerks = clerksFrozen();
    if (cols)
        putFrozen(*cols);
    else if (clerks)
        putFrozen(clerks->designed);
}

// --- As designed

void ClerkColumns::reset() {
    const auto kept = owner_.keep();
    owner_.commitOpenText();
    for (std::int32_t col = 0; col < grid_.Cols(); ++col) applyWidth(col, 0);
    putHidden(hidden(), false);
    applyFrozen(std::nullopt);
    owner_.columnsPlaced();
}

void ClerkColumns::resetByClerk() {
    const auto kept = owner_.keep();
    reset();
    face.Changed();
}
}  // namespace kxVsGrid::columns

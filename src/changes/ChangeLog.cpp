#include "changes/ChangeLog.h"

#include <algorithm>
#include <new>
#include <tuple>
#include <utility>

#include "support/Room.h"

namespace kxVsGrid::changes {
// --- Hearing

/// Without the memory to listen, it stays unknown.
void ChangeLog::saved() noexcept {
    grid_.TellFilled();
    forget();
    try {
        listening_.on(true);
    } catch (const std::bad_alloc&) {
        return;
    }
    fixedRows_ = grid_.FixedRows();
    cols_ = grid_.Cols();
}

void ChangeLog::stop() noexcept {
    grid_.TellFilled();
    lose();
}

bool ChangeLog::unknown() const {
    grid_.TellFilled();
    return !listening_.on() || grid_.FixedRows() != fixedRows_;
}

/// Nothing can be told until the grid is saved again; the writes go on.
void ChangeLog::lose() noexcept {
    forget();
    listening_.on(false);
}

void ChangeLog::forget() noexcept {
    blocks_ = std::vector<Block>();
    heads_.clear();
    kept_ = std::vector<Kept>();
    std::string().swap(texts_);
    gone_ = hint_ = 0;
    knownRow_ = -1;
}

void ChangeLog::written(std::int32_t row, std::int32_t col, CellPart part, std::string_view before,
                        std::string_view) noexcept {
    try {
        Block& block = know(row, col / GroupCols);
        const std::uint64_t bit = EmptyCells::bit(col % GroupCols, part);
        if ((block.touched & bit) != 0) return;
        if (!before.empty()) keepText(block, col, part, before);
        block.touched |= bit;
    } catch (...) {
        lose();
    }
}

void ChangeLog::filled(std::int32_t row, std::int32_t col, std::uint32_t texts, std::uint32_t tags) noexcept {
    try {
        know(row, col / GroupCols).touched |= EmptyCells::bits(texts, tags);
    } catch (...) {
        lose();
    }
}

/// Rows that come are empty, and so is what they held when the grid was saved. Where they move headings,
/// nobody knows what a line is.
void ChangeLog::added(std::int32_t at, std::int32_t) noexcept {
    knownRow_ = -1;
    if (at < grid_.FixedRows()) lose();
}

void ChangeLog::removing(std::int32_t at, std::int32_t count) noexcept {
    if (at < grid_.FixedRows()) return lose();
    keepRows(at, at + count - 1);
    knownRow_ = -1;
    gone_ += static_cast<std::size_t>(count);
}

void ChangeLog::reordered(std::int32_t, std::span<const std::int32_t>) noexcept {
    knownRow_ = -1;
}

void ChangeLog::cleared(std::int32_t first, std::int32_t last) noexcept {
    keepRows(first, last);
}

void ChangeLog::columnsChanged() noexcept {
    if (grid_.Cols() < cols_) return lose();
    cols_ = grid_.Cols();
}

/// What the rows hold is about to go.
void ChangeLog::keepRows(std::int32_t first, std::int32_t last) noexcept {
    try {
        grid_.ForEachCell(first, last, [this](auto row, auto col, auto text, auto tag) {
            if (!listening_.on()) return;
            if (!text.empty()) written(row, col, CellPart::Text, text, {});
            if (!tag.empty() && listening_.on()) written(row, col, CellPart::Tag, tag, {});
        });
    } catch (...) {
        lose();
    }
}

// --- Keeping

/// The block of a cell, a new one when there is none. Most writes go to the block of the one before.
inline ChangeLog::Block& ChangeLog::know(std::int32_t row, std::int32_t group) {
    if (row != knownRow_ || group != knownGroup_) [[unlikely]]
        look(row, group);
    return *known_;
}

void ChangeLog::look(std::int32_t row, std::int32_t group) {
    const RowId id = grid_.IdOf(row);
    std::uint32_t block = find(id, group);
    if (block == None) {
        knownRow_ = -1;
        if (blocks_.size() == blocks_.capacity() && gone_ > blocks_.size() / 2) dropIdleBlocks();
        if (blocks_.size() == None) throw std::bad_alloc();
        support::makeRoom(blocks_);
        std::uint32_t& head = obtainHead(id);
        block = static_cast<std::uint32_t>(blocks_.size());
        blocks_.push_back({id, group, head, None, 0});
        head = block;
    }
    known_ = &blocks_[block];
    knownRow_ = row;
    knownGroup_ = group;
}

void ChangeLog::keepText(Block& block, std::int32_t col, CellPart part, std::string_view text) {
    if (kept_.size() == None) throw std::bad_alloc();
    support::makeRoom(kept_);
    const std::size_t at = texts_.size();
    texts_.append(text);
    kept_.push_back(
        {at, static_cast<std::uint32_t>(text.size()), block.first, static_cast<std::int16_t>(col), part});
    block.first = static_cast<std::uint32_t>(kept_.size() - 1);
}

std::uint32_t ChangeLog::headOf(RowId row) const {
    const auto number = static_cast<std::uint64_t>(row);
    const std::size_t page = number / PageRows;
    return page < heads_.size() && heads_[page] ? (*heads_[page])[number % PageRows] : None;
}

std::uint32_t ChangeLog::find(RowId row, std::int32_t group) const {
    std::uint32_t block = headOf(row);
    while (block != None && blocks_[block].group != group) block = blocks_[block].next;
    return block;
}

std::uint32_t& ChangeLog::obtainHead(RowId row) {
    const auto number = static_cast<std::uint64_t>(row);
    const std::size_t page = number / PageRows;
    if (page >= heads_.size()) {
        support::makeRoom(heads_, page + 1 - heads_.size());
        heads_.resize(page + 1);
    }
    if (!heads_[page]) {
        heads_[page] = std::make_unique<std::array<std::uint32_t, PageRows>>();
        heads_[page]->fill(None);
    }
    return (*heads_[page])[number % PageRows];
}

/// Rows that came and went, and held nothing when the grid was saved.
void ChangeLog::dropIdleBlocks() {
    std::erase_if(blocks_, [this](const Block& b) { return b.first == None && grid_.RowOf(b.row) < 0; });
    heads_.clear();
    for (std::size_t i = 0; i < blocks_.size(); ++i) {
        std::uint32_t& head = obtainHead(blocks_[i].row);
        blocks_[i].next = std::exchange(head, static_cast<std::uint32_t>(i));
    }
    gone_ = hint_ = 0;
}

// --- Telling

/// What is kept of a row.
std::vector<ChangeLog::Slot> ChangeLog::slotsOf(RowId row) const {
    std::vector<Slot> slots;
    for (std::uint32_t block = headOf(row); block != None; block = blocks_[block].next)
        for (std::uint32_t i = blocks_[block].first; i != None; i = kept_[i].next)
            slots.push_back(
                {kept_[i].col, kept_[i].part, std::string_view(texts_).substr(kept_[i].at, kept_[i].length)});
    std::sort(slots.begin(), slots.end(), [](const Slot& a, const Slot& b) {
        return std::tuple(a.col, a.part) < std::tuple(b.col, b.part);
    });
    return slots;
}

bool ChangeLog::touched(RowId row, std::int32_t col, CellPart part) const {
    const std::uint32_t block = find(row, col / GroupCols);
    return block != None && (blocks_[block].touched & EmptyCells::bit(col % GroupCols, part)) != 0;
}

/// What the row holds comes in the order of what is kept of it.
ChangeLog::Judged ChangeLog::judge(RowId row) const {
    Judged judged;
    judged.place = grid_.RowOf(row);
    if (judged.place >= 0 && judged.place < grid_.FixedRows()) return judged;
    const std::vector<Slot> slots = slotsOf(row);
    auto slot = slots.begin();
    bool held = !slots.empty();
    bool holds = false;
    const auto look = [&](std::int32_t col, CellPart part, std::string_view text) {
        while (slot != slots.end() && std::tuple(slot->col, slot->part) < std::tuple(col, part))
            judged.differing.push_back(*slot++);
        if (text.empty()) return;
        holds = true;
        if (slot != slots.end() && slot->col == col && slot->part == part) {
            if (slot->text != text) judged.differing.push_back(*slot);
            ++slot;
        } else if (touched(row, col, part)) {
            judged.differing.push_back({col, part, {}});
        } else {
            held = true;
        }
    };
    if (judged.place >= 0)
        grid_.ForEachCell(judged.place, judged.place, [&](auto, auto col, auto text, auto tag) {
            look(col, CellPart::Text, text);
            look(col, CellPart::Tag, tag);
        });
    judged.differing.insert(judged.differing.end(), slot, slots.end());
    if (held && !holds)
        judged.verdict = Verdict::Removed;
    else if (holds && !held)
        judged.verdict = Verdict::Added;
    else if (!judged.differing.empty())
        judged.verdict = Verdict::Changed;
    return judged;
}

template <class Visit>
void ChangeLog::forEachRow(Visit visit) const {
    if (unknown()) return;
    for (std::size_t i = 0; i < blocks_.size(); ++i)
        if (headOf(blocks_[i].row) == i) visit(blocks_[i].row, judge(blocks_[i].row));
}

/// A log whose rows are all as saved starts anew, so that nobody looks at them again.
bool ChangeLog::empty() {
    if (unknown()) return false;
    for (std::size_t n = blocks_.size(); n > 0; --n) {
        if (hint_ >= blocks_.size()) hint_ = 0;
        if (judge(blocks_[hint_].row).verdict != Verdict::Same) return false;
        ++hint_;
    }
    forget();
    return true;
}

std::vector<RowId> ChangeLog::addedRows() {
    std::vector<std::pair<std::int32_t, RowId>> found;
    forEachRow([&](RowId row, const Judged& judged) {
        if (judged.verdict == Verdict::Added) found.emplace_back(judged.place, row);
    });
    std::sort(found.begin(), found.end());
    std::vector<RowId> rows;
    rows.reserve(found.size());
    for (const auto& [place, row] : found) rows.push_back(row);
    return rows;
}

std::vector<ChangedRow> ChangeLog::changedRows() {
    std::vector<std::pair<std::int32_t, ChangedRow>> found;
    forEachRow([&](RowId row, const Judged& judged) {
        if (judged.verdict != Verdict::Changed) return;
        ChangedRow changed{row, {}};
        for (const Slot& slot : judged.differing)
            changed.cells.push_back({slot.col, slot.part, std::string(slot.text)});
        found.emplace_back(judged.place, std::move(changed));
    });
    std::sort(found.begin(), found.end(), [](const auto& a, const auto& b) { return a.first < b.first; });
    std::vector<ChangedRow> rows;
    rows.reserve(found.size());
    for (auto& [place, row] : found) rows.push_back(std::move(row));
    return rows;
}

/// All that such a row held was written to, or it would still hold something.
std::vector<RemovedRow> ChangeLog::removedRows() {
    std::vector<RemovedRow> rows;
    forEachRow([&](RowId row, const Judged& judged) {
        if (judged.verdict != Verdict::Removed) return;
        RemovedRow removed{row, {}};
        for (const Slot& slot : judged.differing) {
            if (removed.cells.empty() || removed.cells.back().col != slot.col)
                removed.cells.push_back({slot.col, {}, {}});
            RemovedCell& cell = removed.cells.back();
            (slot.part == CellPart::Text ? cell.text : cell.tag) = slot.text;
        }
        rows.push_back(std::move(removed));
    });
    std::sort(rows.begin(), rows.end(),
              [](const RemovedRow& a, const RemovedRow& b) { return a.row < b.row; });
    return rows;
}
}  // namespace kxVsGrid::changes

#include "changes/ChangeLog.h"

#include <algorithm>
#include <new>
#include <tuple>
#include <utility>

#include "support/Room.h"

namespace kxVsGrid::changes {
namespace {

constexpr std::size_t SmallestTable = 16;

std::size_t indexOf(CellPart part) {
    return part == CellPart::Text ? 0 : 1;
}
std::uint64_t bitOf(std::int32_t col, std::int32_t groupCols) {
    return std::uint64_t{1} << (col % groupCols);
}
}  // namespace

// --- Hearing

void ChangeLog::listen(bool on) {
    if (on == listening_) return;
    if (on)
        grid_.AddListener(*this);
    else
        grid_.RemoveListener(*this);
    listening_ = on;
}

/// Without the memory to listen, it stays unknown.
void ChangeLog::saved() noexcept {
    forget();
    try {
        listen(true);
    } catch (const std::bad_alloc&) {
        return;
    }
    fixedRows_ = grid_.FixedRows();
    cols_ = grid_.Cols();
}

/// Nothing can be told until the grid is saved again; the writes go on.
void ChangeLog::lose() noexcept {
    forget();
    listen(false);
}

void ChangeLog::forget() noexcept {
    blocks_ = std::vector<Block>();
    table_ = std::vector<std::uint32_t>();
    kept_ = std::vector<Kept>();
    std::string().swap(texts_);
    gone_ = hint_ = 0;
    knownRow_ = -1;
}

void ChangeLog::written(std::int32_t row, std::int32_t col, CellPart part, std::string_view before,
                        std::string_view) noexcept {
    try {
        const std::int32_t group = col / GroupCols;
        if (row != knownRow_ || group != knownGroup_) know(row, group);
        Block& block = blocks_[known_];
        std::uint64_t& touched = block.touched[indexOf(part)];
        const std::uint64_t bit = bitOf(col, GroupCols);
        if ((touched & bit) != 0) return;
        if (!before.empty()) keepText(block, col, part, before);
        touched |= bit;
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
            if (!listening_) return;
            if (!text.empty()) written(row, col, CellPart::Text, text, {});
            if (!tag.empty() && listening_) written(row, col, CellPart::Tag, tag, {});
        });
    } catch (...) {
        lose();
    }
}

// --- Keeping

/// The block that is written to from now on; a new one when there is none.
void ChangeLog::know(std::int32_t row, std::int32_t group) {
    const RowId id = grid_.IdOf(row);
    std::uint32_t block = find(id, group);
    if (block == None) {
        makeRoomForBlock();
        block = static_cast<std::uint32_t>(blocks_.size());
        blocks_.push_back({id, group, None, {}});
        table_[spotOf(id, group)] = block;
    }
    known_ = block;
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

/// Where the block stands in the table, or would stand.
std::size_t ChangeLog::spotOf(RowId row, std::int32_t group) const {
    const std::size_t mask = table_.size() - 1;
    const auto key = static_cast<std::uint64_t>(row) + (static_cast<std::uint64_t>(group) << 40);
    std::size_t spot = static_cast<std::size_t>((key * 0x9E37'79B9'7F4A'7C15U) >> 32) & mask;
    while (table_[spot] != None) {
        const Block& there = blocks_[table_[spot]];
        if (there.row == row && there.group == group) break;
        spot = (spot + 1) & mask;
    }
    return spot;
}

std::uint32_t ChangeLog::find(RowId row, std::int32_t group) const {
    return table_.empty() ? None : table_[spotOf(row, group)];
}

/// One more block can be added without taking memory, and the table stays half empty.
void ChangeLog::makeRoomForBlock() {
    if (2 * (blocks_.size() + 1) <= table_.size()) return;
    if (gone_ > 0 && gone_ >= blocks_.size() / 2) dropIdleBlocks();
    if (blocks_.size() >= None / 4) throw std::bad_alloc();
    std::size_t spots = std::max(table_.size(), SmallestTable);
    while (spots < 4 * blocks_.size()) spots *= 2;
    blocks_.reserve(spots / 2);
    makeTable(spots);
}

/// Rows that came and went, and held nothing when the grid was saved.
void ChangeLog::dropIdleBlocks() {
    std::erase_if(blocks_, [this](const Block& b) { return b.first == None && grid_.RowOf(b.row) < 0; });
    gone_ = hint_ = 0;
}

void ChangeLog::makeTable(std::size_t spots) {
    table_.assign(spots, None);
    for (std::size_t i = 0; i < blocks_.size(); ++i)
        table_[spotOf(blocks_[i].row, blocks_[i].group)] = static_cast<std::uint32_t>(i);
}

// --- Telling

/// Each row is looked at once: of its blocks, by the first one.
bool ChangeLog::leads(const Block& block) const {
    for (std::int32_t group = 0; group < block.group; ++group)
        if (find(block.row, group) != None) return false;
    return true;
}

/// What is kept of a row.
std::vector<ChangeLog::Slot> ChangeLog::slotsOf(RowId row) const {
    std::vector<Slot> slots;
    for (std::int32_t group = 0; group * GroupCols < cols_; ++group) {
        const std::uint32_t block = find(row, group);
        if (block == None) continue;
        for (std::uint32_t i = blocks_[block].first; i != None; i = kept_[i].next)
            slots.push_back(
                {kept_[i].col, kept_[i].part, std::string_view(texts_).substr(kept_[i].at, kept_[i].length)});
    }
    std::sort(slots.begin(), slots.end(), [](const Slot& a, const Slot& b) {
        return std::tuple(a.col, a.part) < std::tuple(b.col, b.part);
    });
    return slots;
}

bool ChangeLog::touched(RowId row, std::int32_t col, CellPart part) const {
    const std::uint32_t block = find(row, col / GroupCols);
    return block != None && (blocks_[block].touched[indexOf(part)] & bitOf(col, GroupCols)) != 0;
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
    for (const Block& block : blocks_)
        if (leads(block)) visit(block.row, judge(block.row));
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

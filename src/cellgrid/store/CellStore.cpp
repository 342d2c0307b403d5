#include "cellgrid/store/CellStore.h"

#include <algorithm>
#include <charconv>
#include <new>
#include <utility>

#include "support/Room.h"
#include "support/Undo.h"

namespace kxVsGrid::cellgrid {

namespace {
/// Arenas smaller than this are never worth packing anew.
constexpr std::size_t SmallArena = 1 << 20;
/// With so many rows removed at once it is better to forget the numbers of all than to keep their memory.
constexpr std::int32_t ManyRows = 10'000;

std::string_view rowNumber(std::int32_t number, CellStore::Scratch& scratch) {
    char* const begin = scratch.bytes.data();
    const auto end = std::to_chars(begin, begin + scratch.bytes.size(), number).ptr;
    return {begin, static_cast<std::size_t>(end - begin)};
}
}  // namespace

void CellStore::insertRows(std::int32_t row, std::int32_t n) {
    order_.insert(row, n);
    std::size_t done = 0;
    support::Undo undo([&] {
        for (std::size_t c = 0; c < done; ++c) columns_[c].styles.remove(row, n);
        order_.remove(row, n, [](RowHandle) {});
    });
    for (; done < columns_.size(); ++done) columns_[done].styles.insert(row, n);
    undo.keep();
}

void CellStore::removeRows(std::int32_t row, std::int32_t n) {
    order_.prepareRemove(row, n);
    for (GridColumn& c : columns_) {
        if (n >= ManyRows) c.numbers.reset();
        clearColumn(c, row, n);
        c.styles.remove(row, n);
    }
    order_.remove(row, n, [](RowHandle) {});
    if (n > 1) compact();
}

CellStore::Reordering CellStore::prepareReorder(std::int32_t first, std::span<const std::int32_t> from) {
    Reordering prepared;
    prepared.rows = order_.prepareReorder(first, from);
    for (std::size_t col = 0; col < columns_.size(); ++col)
        if (auto styles = columns_[col].styles.prepareReorder(first, from))
            prepared.styles.emplace_back(col, std::move(*styles));
    return prepared;
}

void CellStore::reorder(Reordering& prepared) noexcept {
    order_.reorder(prepared.rows);
    for (auto& [col, styles] : prepared.styles) columns_[col].styles.replace(styles);
}

void CellStore::setCols(std::int32_t count) {
    for (std::int32_t col = count; col < cols(); ++col) clearColumn(column(col), 0, rows());
    if (count == 0) endRowNumbers();
    const bool fewer = count < cols();
    columns_.resize(static_cast<std::size_t>(count));
    if (fewer) compact();
}

std::string_view CellStore::slotText(TextSlot s, Scratch& scratch) const {
    if (!slot::isComputed(s)) return arena_.text(s, scratch.bytes);
    const Computer compute = computed_[slot::reference(s)];  // lives on should it overwrite its own cell
    scratch.text = (*compute)();
    return scratch.text;
}

/// The text of a cell whose slot is `s`.
std::string_view CellStore::textOf(TextSlot s, std::int32_t row, std::int32_t col, Scratch& scratch) const {
    if (s == slot::Empty && numbered(row, col)) return rowNumber(row - fixedRows_ + 1, scratch);
    return slotText(s, scratch);
}

std::string_view CellStore::displayText(std::int32_t row, std::int32_t col, Scratch& scratch) const {
    const std::string_view plain = text(row, col, scratch);
    const CellFormat* format = column(col).format.get();
    if (!format || row < fixedRows_ || plain.empty()) return plain;
    std::string shown;
    if (!format->apply(plain, shown)) return plain;
    scratch.text = std::move(shown);
    return scratch.text;
}

/// What `text` does to a cell that holds `old`; `fresh` is the text's slot if it fits into one.
inline CellStore::Effect CellStore::effect(std::int32_t col, TextSlot old, TextSlot fresh,
                                           std::string_view text) const {
    if (fresh != slot::Empty) return fresh == old ? Effect::Nothing : Effect::Changed;
    if (text.empty()) return effectOfEmpty(col, old);
    slot::Buffer buffer;
    return slot::hasBlock(old) && arena_.text(old, buffer) == text ? Effect::Nothing : Effect::Changed;
}

CellStore::Effect CellStore::effectOfEmpty(std::int32_t col, TextSlot old) const {
    if (slot::hasBlock(old) || (old != slot::Empty && slot::isShort(old))) return Effect::Changed;
    const bool shown = slot::isComputed(old) || (old == slot::Empty && numbered_ && col == 0);
    return shown ? Effect::Shown : Effect::Nothing;
}

CellStore::Effect CellStore::effectOfText(std::int32_t row, std::int32_t col, std::string_view text) const {
    return effect(col, textSlot(row, col), slot::ofShort(text), text);
}

/// `page` is the handle's.
inline void CellStore::putTextSlot(GridColumn& c, CellPages::Page& page, RowHandle handle, TextSlot s,
                                   Replaced* replaced) {
    const TextSlot old = page.get(CellPages::Text, handle);
    c.cells.set(page, CellPages::Text, handle, s);
    if (c.numbers) c.numbers->forget(handle);
    if (replaced)
        replaced->slot_ = old;
    else
        releaseSlot(old);
}

/// Where a cell's row and column are stored.
struct CellStore::Spot {
    GridColumn& column;
    RowHandle handle;
    CellPages::Page* page;  ///< nullptr for a cell that was never written

    TextSlot get(CellPages::Kind kind) const { return page ? page->get(kind, handle) : slot::Empty; }
};

inline CellStore::Spot CellStore::spot(std::int32_t row, std::int32_t col) {
    GridColumn& c = column(col);
    const RowHandle handle = order_.handle(row);
    return {c, handle, handle == NoHandle ? nullptr : c.cells.find(handle)};
}

/// Makes room for the text, or the tag, of a cell: what is put there afterwards cannot fail.
inline void CellStore::provide(Spot& at, std::int32_t row, CellPages::Kind kind) {
    if (!at.page) {
        at.handle = order_.obtain(row);
        at.page = &at.column.cells.obtain(at.handle);
    }
    CellPages::provide(*at.page, kind);
}

/// `ready` is the text's block, should it have one already; what is used of it is taken.
inline CellStore::Effect CellStore::putText(Spot& at, std::int32_t row, std::int32_t col,
                                            std::string_view text, TextSlot& ready, Replaced* replaced) {
    TextSlot fresh = slot::ofShort(text);
    const Effect done = effect(col, at.get(CellPages::Text), fresh, text);
    if (done == Effect::Nothing) return done;
    provide(at, row, CellPages::Text);
    if (text.empty())
        fresh = writtenEmpty(col);
    else if (fresh == slot::Empty)
        fresh = ready != slot::Empty ? std::exchange(ready, slot::Empty) : arena_.storeLong(text);
    putTextSlot(at.column, *at.page, at.handle, fresh, replaced);
    return done;
}

CellStore::Effect CellStore::setText(std::int32_t row, std::int32_t col, std::string_view text) {
    Spot at = spot(row, col);
    TextSlot none = slot::Empty;
    return putText(at, row, col, text, none);
}

CellStore::Effect CellStore::setText(std::int32_t row, std::int32_t col, std::string_view text,
                                     Replaced& replaced) {
    Spot at = spot(row, col);
    TextSlot none = slot::Empty;
    return putText(at, row, col, text, none, &replaced);
}

CellStore::Effect CellStore::setText(std::int32_t row, std::int32_t col, std::string_view text,
                                     TextRoom& room, Replaced* replaced) {
    Spot at = spot(row, col);
    return putText(at, row, col, text, room.slot_, replaced);
}

void CellStore::TextRoom::take(CellStore& store, std::int32_t row, std::int32_t col, std::string_view text) {
    Spot at = store.spot(row, col);
    store.provide(at, row, CellPages::Text);
    slot_ = store.arena_.store(text);
    store_ = &store;
    ++store.textRooms_;
}

CellStore::TextRoom::~TextRoom() {
    if (!store_) return;
    --store_->textRooms_;
    store_->arena_.release(slot_);
}

void CellStore::setComputed(std::int32_t row, std::int32_t col, std::function<std::string()> compute,
                            Replaced* replaced) {
    if (!compute) {
        Spot at = spot(row, col);
        TextSlot none = slot::Empty;
        putText(at, row, col, {}, none, replaced);
        return;
    }
    auto computer = std::make_shared<const std::function<std::string()>>(std::move(compute));
    Spot at = spot(row, col);
    provide(at, row, CellPages::Text);
    if (freeComputed_.empty()) {
        support::makeRoom(computed_);
        support::makeRoom(freeComputed_, computed_.capacity());  // giving a number back cannot fail
        freeComputed_.push_back(static_cast<std::uint32_t>(computed_.size()));
        computed_.emplace_back();
    }
    const std::uint32_t number = freeComputed_.back();
    computed_[number] = std::move(computer);
    freeComputed_.pop_back();
    putTextSlot(at.column, *at.page, at.handle, slot::Computed | number, replaced);
}

std::string_view CellStore::tag(std::int32_t row, std::int32_t col, Scratch& scratch) const {
    return arena_.text(tagSlot(row, col), scratch.bytes);
}

inline void CellStore::putTagSlot(Spot& at, TextSlot s, Replaced* replaced) {
    const TextSlot old = at.get(CellPages::Tag);
    at.column.cells.set(*at.page, CellPages::Tag, at.handle, s);
    if (replaced)
        replaced->slot_ = old;
    else
        arena_.release(old);
}

bool CellStore::setTag(std::int32_t row, std::int32_t col, std::string_view tag, Replaced* replaced) {
    Spot at = spot(row, col);
    const TextSlot fresh = slot::ofShort(tag);
    if (!changesTag(at.get(CellPages::Tag), fresh, tag)) return false;
    provide(at, row, CellPages::Tag);
    putTagSlot(at, fresh == slot::Empty && !tag.empty() ? arena_.storeLong(tag) : fresh, replaced);
    return true;
}

/// All that both need is there before one of them is put.
CellStore::Effect CellStore::overwrite(std::int32_t row, std::int32_t col, std::string_view text,
                                       const std::string_view& tag) {
    Spot at = spot(row, col);
    TextSlot freshTag = slot::ofShort(tag);
    TextSlot freshText = slot::ofShort(text);
    const bool newTag = changesTag(at.get(CellPages::Tag), freshTag, tag);
    const Effect done = effect(col, at.get(CellPages::Text), freshText, text);
    if (newTag) {
        provide(at, row, CellPages::Tag);
        if (freshTag == slot::Empty && !tag.empty()) freshTag = arena_.storeLong(tag);
    }
    if (done == Effect::Nothing) {
        if (newTag) putTagSlot(at, freshTag);
        return done;
    }
    support::Undo undoTag([&] {
        if (newTag) arena_.release(freshTag);
    });
    provide(at, row, CellPages::Text);
    if (text.empty())
        freshText = writtenEmpty(col);
    else if (freshText == slot::Empty)
        freshText = arena_.storeLong(text);
    undoTag.keep();
    if (newTag) putTagSlot(at, freshTag);
    putTextSlot(at.column, *at.page, at.handle, freshText);
    return done;
}

void CellStore::clearTexts(std::int32_t row, std::int32_t n) {
    for (GridColumn& c : columns_) clearColumn(c, row, n);
    if (numbered_) {
        for (std::int32_t r = row; r < row + n; ++r) setText(r, 0, {});
    }
    compact();
}

bool CellStore::writtenInDataRows(std::int32_t col) const {
    const std::size_t used = column(col).cells.used(CellPages::Text);
    std::size_t inFixedRows = 0;
    for (std::int32_t row = 0; row < fixedRows_ && inFixedRows < used; ++row)
        inFixedRows += textSlot(row, col) != slot::Empty;
    return inFixedRows < used;
}

void CellStore::numberRows() {
    numbered_ = true;
    GridColumn& c = column(0);
    c.numbers.reset();
    if (!writtenInDataRows(0)) return;
    order_.forEach(fixedRows_, rows(), [&](std::int32_t, RowHandle handle) {
        if (CellPages::Page* page = c.cells.find(handle)) putTextSlot(c, *page, handle, slot::Empty);
    });
}

bool CellStore::showRowNumber(std::int32_t row) {
    if (!numbered_ || textSlot(row, 0) != slot::WrittenEmpty) return false;
    GridColumn& c = column(0);
    const RowHandle handle = order_.handle(row);
    putTextSlot(c, *c.cells.find(handle), handle, slot::Empty);
    return true;
}

std::int32_t CellStore::rowWithText(std::int32_t col, std::string_view text, std::int32_t except) const {
    const CellPages& cells = column(col).cells;
    slot::Buffer bytes;
    std::int32_t found = -1;
    forEachHandle(cells, fixedRows_, rows(), [&](std::int32_t row, RowHandle handle) {
        if (found >= 0 || row == except) return;
        const TextSlot s = cells.get(CellPages::Text, handle);
        if (!slot::isComputed(s) && arena_.text(s, bytes) == text) found = row;
    });
    return found;
}

void CellStore::endRowNumbers() {
    numbered_ = false;
    if (cols() > 0) column(0).numbers.reset();
}

void CellStore::setFormat(std::int32_t col, std::string_view pattern) {
    GridColumn& c = column(col);
    c.format = pattern.empty() ? nullptr : std::make_unique<CellFormat>(pattern);
    c.numbers.reset();
}

void CellStore::releaseLongSlot(TextSlot s) {
    if (!slot::isComputed(s)) return arena_.release(s);
    computed_[slot::reference(s)] = nullptr;
    freeComputed_.push_back(slot::reference(s));
}

void CellStore::clearColumn(GridColumn& c, std::int32_t row, std::int32_t n) {
    if (c.cells.unused()) return;
    order_.forEach(row, row + n, [&](std::int32_t, RowHandle handle) {
        CellPages::Page* page = c.cells.find(handle);
        if (!page) return;
        putTextSlot(c, *page, handle, slot::Empty);
        const TextSlot tag = page->get(CellPages::Tag, handle);
        c.cells.set(*page, CellPages::Tag, handle, slot::Empty);
        arena_.release(tag);
    });
}

/// Moves the long texts into a new arena when most of the old one lies idle. That only saves memory: where
/// there is none for the new one, or where a text waits for its cell, the old one stays.
void CellStore::compact() {
    if (textRooms_ > 0) return;
    if (arena_.footprint() < SmallArena || arena_.used() * 4 > arena_.footprint()) return;
    try {
        pack();
    } catch (const std::bad_alloc&) {
    }
}

/// All texts are in the new arena before a single cell points there.
void CellStore::pack() {
    TextArena packed;
    std::vector<TextSlot> moved;
    slot::Buffer buffer;
    for (GridColumn& c : columns_)
        c.cells.forEach([&](const TextSlot& s) {
            if (slot::hasBlock(s)) moved.push_back(packed.store(arena_.text(s, buffer)));
        });
    auto next = moved.begin();
    for (GridColumn& c : columns_)
        c.cells.forEach([&](TextSlot& s) {
            if (slot::hasBlock(s)) s = *next++;
        });
    arena_ = std::move(packed);
}
}  // namespace kxVsGrid::cellgrid

// Reading and writing cells: the watcher hears first, the stream, the picture and CellChanged afterwards, and
// only of real changes.
#include <utility>

#include "cellgrid/GridImpl.h"

namespace kxVsGrid {

using cellgrid::CellStore;
using Effect = CellStore::Effect;

void CellGrid::Impl::setText(std::int32_t row, std::int32_t col, std::string_view text) {
    if (listening == 0) [[likely]] {
        if (store.setText(row, col, text) != Effect::Nothing && !damage.all()) damageCell(row, col);
        return;
    }
    if (forewarn(row, col, text)) told(row, col, storeText(row, col, text));
}

/// What the write does is found out twice only for a watcher that awaits it.
bool CellGrid::Impl::forewarn(std::int32_t row, std::int32_t col, std::string_view text) {
    if (!watcher || !watcher->awaits(col)) return true;
    if (store.effectOfText(row, col, text) == Effect::Nothing) return true;
    watcher->contentWillChange(col);
    return holds(row, col);
}

Effect CellGrid::Impl::storeText(std::int32_t row, std::int32_t col, std::string_view text,
                                 CellStore::TextRoom* room) {
    mayWrite();
    listeners.tellFilled();
    if ((listening & Streamed) == 0)
        return room ? store.setText(row, col, text, *room) : store.setText(row, col, text);
    CellStore::Replaced before(store);
    const Effect effect =
        room ? store.setText(row, col, text, *room, &before) : store.setText(row, col, text, before);
    tellWritten(row, col, effect, before, text);
    return effect;
}

void CellGrid::Impl::tellWritten(std::int32_t row, std::int32_t col, Effect effect,
                                 const CellStore::Replaced& before, std::string_view after) {
    if (effect == Effect::Shown) tellShown(col);
    if (effect != Effect::Changed) return;
    cellgrid::slot::Buffer bytes;
    const std::string_view old = before.text(bytes);
    listeners.tell([&](ChangeListener& one) { one.written(row, col, CellPart::Text, old, after); });
}

bool CellGrid::Impl::storeTag(std::int32_t row, std::int32_t col, std::string_view tag) {
    mayWrite();
    listeners.tellFilled();
    if ((listening & Streamed) == 0) return store.setTag(row, col, tag);
    CellStore::Replaced before(store);
    if (!store.setTag(row, col, tag, &before)) return false;
    cellgrid::slot::Buffer bytes;
    const std::string_view old = before.text(bytes);
    listeners.tell([&](ChangeListener& one) { one.written(row, col, CellPart::Tag, old, tag); });
    return true;
}

void CellGrid::Impl::setComputed(std::int32_t row, std::int32_t col, std::function<std::string()> compute) {
    contentWillChange(col);
    CellStore::Replaced before(store);
    store.setComputed(row, col, std::move(compute), &before);
    cellgrid::slot::Buffer bytes;
    const std::string_view old = before.text(bytes);
    if (!old.empty())
        tellStream([&](ChangeListener& one) { one.written(row, col, CellPart::Text, old, {}); });
    tellShown(col);
    damageCell(row, col);
}

/// The texts that the numbers take the place of are emptied one by one where somebody wants to know them.
void CellGrid::Impl::numberRows() {
    contentWillChange(0);
    if ((listening & Streamed) != 0)
        store.forEachDataText(0, [this](std::int32_t row) { storeText(row, 0, {}); });
    store.numberRows();
    tellShown(0);
    damage.addAll();
}

void CellGrid::Impl::showRowNumber(std::int32_t row) {
    contentWillChange(0);
    if (!store.showRowNumber(row)) return;
    tellShown(0);
    damageCell(row, 0);
}

void CellGrid::Impl::told(std::int32_t row, std::int32_t col, Effect effect) {
    if (effect == Effect::Nothing) return;
    if (!damage.all()) damageCell(row, col);
    if (effect == Effect::Changed) grid.CellChanged(row, col);
}

/// Nobody hears of the two, which the store writes whole.
bool CellGrid::Impl::setCellWatched(std::int32_t row, std::int32_t col, std::string_view text,
                                    const std::string_view& tag) {
    if (!forewarn(row, col, text)) return false;
    told(row, col, store.setCell(row, col, text, tag));
    return true;
}

/// What filling a table does while the stream alone hears of it. False, and nothing is done, where it takes
/// more.
inline bool CellGrid::Impl::fillCell(std::int32_t row, std::int32_t col, std::string_view text,
                                     const std::string_view& tag) {
    if (listening != Streamed || text.empty() || !listeners.allHearFilled() || !store.holdsNothing(row, col))
        return false;
    mayWrite();
    store.setCell(row, col, text, tag);
    if (!damage.all()) damageCell(row, col);
    listeners.fill(row, col, !tag.empty());
    return true;
}

/// What can fail before a listener has heard of one of the two fails before either is written.
bool CellGrid::Impl::setCellHeard(std::int32_t row, std::int32_t col, std::string_view text,
                                  const std::string_view& tag) {
    if (!store.changesTag(row, col, tag)) {
        setText(row, col, text);
        return true;
    }
    CellStore::TextRoom room;
    if (store.effectOfText(row, col, text) != Effect::Nothing) {
        contentWillChange(col);
        if (!holds(row, col)) return false;
        room.take(store, row, col, text);
    }
    if (storeTag(row, col, tag)) {
        grid.CellChanged(row, col);
        if (!there || !holds(row, col)) return false;
        if (!forewarn(row, col, text)) return false;  // a listener may have asked for a total meanwhile
    }
    told(row, col, storeText(row, col, text, &room));
    return true;
}

std::string CellGrid::Text(std::int32_t row, std::int32_t col) const {
    impl_->requireCell("Text", row, col);
    CellStore::Scratch scratch;
    return std::string(impl_->store.text(row, col, scratch));
}

void CellGrid::Text(std::int32_t row, std::int32_t col, std::string_view text) {
    impl_->requireCell("Text", row, col);
    impl_->setText(row, col, text);
}

std::string CellGrid::DisplayText(std::int32_t row, std::int32_t col) const {
    impl_->requireCell("DisplayText", row, col);
    CellStore::Scratch scratch;
    return std::string(impl_->store.displayText(row, col, scratch));
}

std::string CellGrid::Data(std::int32_t row, std::int32_t col) const {
    impl_->requireCell("Data", row, col);
    CellStore::Scratch scratch;
    return std::string(impl_->store.tag(row, col, scratch));
}

void CellGrid::Data(std::int32_t row, std::int32_t col, std::string_view data) {
    impl_->requireCell("Data", row, col);
    if (impl_->storeTag(row, col, data)) CellChanged(row, col);
}

void CellGrid::RestoreData(std::int32_t row, std::int32_t col, std::string_view data) {
    impl_->requireCell("RestoreData", row, col);
    impl_->storeTag(row, col, data);
}

void CellGrid::RestoreText(std::int32_t row, std::int32_t col, std::string_view text) {
    impl_->requireCell("RestoreText", row, col);
    if (impl_->forewarn(row, col, text) && impl_->storeText(row, col, text) != Effect::Nothing)
        impl_->damageCell(row, col);
}

bool CellGrid::Cell(std::int32_t row, std::int32_t col, std::string_view text, const std::string_view& data) {
    Impl& impl = *impl_;
    if (!impl.holds(row, col)) return false;
    if ((impl.listening & ~Impl::Watched) != 0) [[unlikely]] {
        if (impl.fillCell(row, col, text, data)) return true;
        return held()->setCellHeard(row, col, text, data);
    }
    if (impl.listening != 0 && !impl.fillsUnheard(col)) return impl.setCellWatched(row, col, text, data);
    const Effect effect = impl.store.setCell(row, col, text, data);
    if (!impl.damage.all() && effect != Effect::Nothing) impl.damageCell(row, col);
    return true;
}
}  // namespace kxVsGrid

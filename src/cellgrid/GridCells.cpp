// Reading and writing cells: the watcher hears first, the picture and CellChanged afterwards, and only of
// real changes.
#include "cellgrid/GridImpl.h"

namespace kxVsGrid {

using cellgrid::CellStore;
using Effect = CellStore::Effect;

void CellGrid::Impl::setText(std::int32_t row, std::int32_t col, std::string_view text) {
    if (watcher) [[unlikely]] {
        if (store.effectOfText(row, col, text) == Effect::Nothing) return;
        watcher->contentWillChange(col);
    }
    told(row, col, store.setText(row, col, text));
}

void CellGrid::Impl::told(std::int32_t row, std::int32_t col, Effect effect) {
    if (effect == Effect::Nothing) return;
    if (!damage.all()) damageCell(row, col);
    if (effect == Effect::Changed) grid.CellChanged(row, col);
}

/// Nobody hears of the two, which the store writes whole.
bool CellGrid::Impl::setCellWatched(std::int32_t row, std::int32_t col, std::string_view text,
                                    const std::string_view& tag) {
    if (store.effectOfText(row, col, text) != Effect::Nothing) {
        watcher->contentWillChange(col);
        if (!holds(row, col)) return false;
    }
    told(row, col, store.setCell(row, col, text, tag));
    return true;
}

/// What can fail before a listener has heard of one of the two fails before either is written.
bool CellGrid::Impl::setCellHeard(std::int32_t row, std::int32_t col, std::string_view text,
                                  const std::string_view& tag) {
    {
        CellStore::Scratch scratch;
        if (store.tag(row, col, scratch) == tag) {
            setText(row, col, text);
            return true;
        }
    }
    const auto textChanges = [&] { return store.effectOfText(row, col, text) != Effect::Nothing; };
    cellgrid::CellStore::TextRoom room;
    if (textChanges()) {
        contentWillChange(col);
        if (!holds(row, col)) return false;
        room.take(store, row, col, text);
    }
    if (store.setTag(row, col, tag)) {
        grid.CellChanged(row, col);
        if (!there || !holds(row, col)) return false;
        if (watcher && textChanges())
            contentWillChange(col);  // a listener may have asked for a total meanwhile
        if (!holds(row, col)) return false;
    }
    told(row, col, store.setText(row, col, text, room));
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
    if (impl_->store.setTag(row, col, data)) CellChanged(row, col);
}

void CellGrid::RestoreData(std::int32_t row, std::int32_t col, std::string_view data) {
    impl_->requireCell("RestoreData", row, col);
    impl_->store.setTag(row, col, data);
}

bool CellGrid::Cell(std::int32_t row, std::int32_t col, std::string_view text, const std::string_view& data) {
    Impl& impl = *impl_;
    if (!impl.holds(row, col)) return false;
    if (CellChanged.heard()) [[unlikely]]
        return held()->setCellHeard(row, col, text, data);
    if (impl.watcher) return impl.setCellWatched(row, col, text, data);
    const Effect effect = impl.store.setCell(row, col, text, data);
    if (!impl.damage.all() && effect != Effect::Nothing) impl.damageCell(row, col);
    return true;
}
}  // namespace kxVsGrid

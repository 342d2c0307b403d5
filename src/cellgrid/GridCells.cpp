// Writing cells: the watcher hears first, the picture and CellChanged afterwards, and only of real changes.
#include "cellgrid/GridImpl.h"

namespace kxVsGrid {

using cellgrid::CellStore;

void CellGrid::Impl::setText(std::int32_t atRow, std::int32_t atCol, std::string_view text) {
    using Effect = CellStore::Effect;
    if (watcher) {
        if (store.effectOfText(atRow, atCol, text) == Effect::Nothing) return;
        watcher->contentWillChange(atCol);
    }
    const Effect effect = store.setText(atRow, atCol, text);
    if (effect == Effect::Nothing) return;
    if (!damage.all()) damageCell(atRow, atCol);
    if (effect == Effect::Changed) grid.CellChanged(atRow, atCol);
}

void CellGrid::Impl::setTag(std::int32_t atRow, std::int32_t atCol, std::string_view tag) {
    if (store.setTag(atRow, atCol, tag)) grid.CellChanged(atRow, atCol);
}
}  // namespace kxVsGrid

#include "cellgrid/store/HandlePages.h"

namespace kxVsGrid::cellgrid {

void CellPages::empty(Page& page, Kind kind, RowHandle handle) {
    if (page.get(kind, handle) == slot::Empty) return;
    page.slots[kind][handle % PageSlots] = slot::Empty;
    --used_[kind];
    if (--page.used[kind] == 0) page.slots[kind].reset();
}
}  // namespace kxVsGrid::cellgrid

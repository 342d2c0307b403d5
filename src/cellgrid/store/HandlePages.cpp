#include "cellgrid/store/HandlePages.h"

namespace kxVsGrid::cellgrid {

void CellPages::empty(Page& page, Kind kind, RowHandle handle) {
    if (page.get(kind, handle) == slot::Empty) return;
    page.slots[kind][handle % PageSlots] = slot::Empty;
    used_.takeOne(kind);
    page.used.takeOne(kind);
    if (page.used.get(kind) > 0) return;
    if (filling_.page == &page) filling_ = {};
    page.slots[kind].reset();
}

/// False where the page has no room for both.
bool CellPages::comeTo(RowHandle handle) {
    Page* const page = find(handle);
    if (!page || !page->slots[Text] || !page->slots[Tag]) return false;
    filling_ = {handle / PageSlots, page->slots[Text].get(), page->slots[Tag].get(), page};
    return true;
}
}  // namespace kxVsGrid::cellgrid

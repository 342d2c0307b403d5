#include "cellgrid/HandlePages.h"

namespace kxVsGrid::cellgrid {

SlotPages::Page* SlotPages::addPage(RowHandle handle) {
    const std::size_t number = handle / PageSlots;
    if (number >= pages_.size()) pages_.resize(number + 1);
    pages_[number] = std::make_unique<Page>();
    return pages_[number].get();
}

void SlotPages::empty(RowHandle handle) {
    std::unique_ptr<Page>& page = pages_[handle / PageSlots];
    page->slots[handle % PageSlots] = slot::Empty;
    --used_;
    if (--page->used == 0) page.reset();
}
}  // namespace kxVsGrid::cellgrid

// Looking for a text in a column as it is stored.
#include "cellgrid/store/CellStore.h"
#include "cellgrid/store/SlotPattern.h"

namespace kxVsGrid::cellgrid {

void CellStore::findTexts(const support::TextPattern& pattern, std::int32_t col, std::int32_t first,
                          std::int32_t stop, std::vector<std::int32_t>& found,
                          std::vector<std::int32_t>& computed) const {
    const GridColumn& column = this->column(col);
    if (column.cells.used(CellPages::Text) == 0) return;
    const CellFormat* const format = column.format.get();
    const SlotPattern stored(pattern);
    slot::Buffer bytes;
    std::string shown;
    const auto isIn = [&](std::int32_t row, TextSlot s) {
        if (!format || row < fixedRows_ || s == slot::Empty || s == slot::WrittenEmpty)
            return stored.in(s, arena_);
        const std::string_view plain = arena_.text(s, bytes);
        return pattern.in(format->apply(plain, shown) ? std::string_view(shown) : plain);
    };
    const TextSlot lowest = format ? TextSlot{1} << slot::KindShift : stored.lowest();
    constexpr auto PageSlots = static_cast<RowHandle>(CellPages::PageSlots);
    const TextSlot* slots = nullptr;  // of the page that was looked into last
    RowHandle page = NoHandle;
    forEachHandle(column.cells, first, stop, [&](std::int32_t row, RowHandle handle) {
        if (handle / PageSlots != page) {
            page = handle / PageSlots;
            const CellPages::Page* const there = column.cells.find(handle);
            slots = there ? there->slots[CellPages::Text].get() : nullptr;
        }
        if (!slots) return;
        const TextSlot s = slots[handle % PageSlots];
        if (s < lowest) return;
        if (slot::isComputed(s))
            computed.push_back(row);
        else if (isIn(row, s))
            found.push_back(row);
    });
}
}  // namespace kxVsGrid::cellgrid

// A value per row handle in pages that exist only where something is stored; a page that holds nothing any
// more is given back.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <memory>
#include <vector>

#include "cellgrid/RowOrder.h"
#include "cellgrid/TextSlot.h"

namespace kxVsGrid::cellgrid {

/// The texts, or the tags, of one column.
class SlotPages {
  public:
    TextSlot get(RowHandle handle) const {
        const Page* const page = find(handle);
        return page ? page->slots[handle % PageSlots] : slot::Empty;
    }
    /// `old` is what the slot holds now.
    void set(RowHandle handle, TextSlot old, TextSlot value) {
        if (value == slot::Empty) {
            if (old != slot::Empty) empty(handle);
            return;
        }
        Page* page = find(handle);
        if (!page) page = addPage(handle);
        page->slots[handle % PageSlots] = value;
        const bool fills = old == slot::Empty;
        page->used += fills;
        used_ += fills;
    }
    /// How many slots hold something.
    std::size_t used() const { return used_; }

    /// Every slot that holds something gets what `move` makes of it, which holds something too.
    template <class Move>
    void moveEach(Move move) {
        for (const std::unique_ptr<Page>& page : pages_) {
            if (!page) continue;
            for (TextSlot& here : page->slots) {
                if (here != slot::Empty) here = move(here);
            }
        }
    }

  private:
    static constexpr std::size_t PageSlots = 256;
    struct Page {
        std::array<TextSlot, PageSlots> slots{};
        std::uint32_t used = 0;
    };

    Page* find(RowHandle handle) const {
        const std::size_t number = handle / PageSlots;
        return number < pages_.size() ? pages_[number].get() : nullptr;
    }
    Page* addPage(RowHandle handle);
    void empty(RowHandle handle);

    std::vector<std::unique_ptr<Page>> pages_;
    std::size_t used_ = 0;
};

/// The numbers that a column's texts were read as; NaN where not yet.
class NumberPages {
  public:
    static constexpr std::size_t PageNumbers = 1024;
    using Page = std::array<double, PageNumbers>;

    void forget(RowHandle handle) {
        const std::size_t page = handle / PageNumbers;
        if (page < pages_.size() && pages_[page]) (*pages_[page])[handle % PageNumbers] = unknown();
    }
    /// The page of the handle's number.
    Page& page(RowHandle handle) {
        const std::size_t number = handle / PageNumbers;
        if (number >= pages_.size()) pages_.resize(number + 1);
        if (!pages_[number]) {
            pages_[number] = std::make_unique<Page>();
            pages_[number]->fill(unknown());
        }
        return *pages_[number];
    }
    static double unknown() { return std::numeric_limits<double>::quiet_NaN(); }

  private:
    std::vector<std::unique_ptr<Page>> pages_;
};
}  // namespace kxVsGrid::cellgrid

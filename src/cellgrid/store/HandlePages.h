// A value per row handle in pages that take memory only where something is stored; what holds nothing any
// more is given back.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <memory>
#include <vector>

#include "cellgrid/store/RowOrder.h"
#include "cellgrid/store/TextSlot.h"
#include "support/FetchAhead.h"

namespace kxVsGrid::cellgrid {

/// The texts and the tags of one column. They lie apart, since most columns have no tags, but are found in
/// one step.
class CellPages {
  public:
    enum Kind : std::size_t { Text, Tag };
    static constexpr std::size_t PageSlots = 256;
    struct Page {
        std::array<std::unique_ptr<TextSlot[]>, 2> slots;
        std::array<std::uint32_t, 2> used{};

        TextSlot get(Kind kind, RowHandle handle) const {
            return slots[kind] ? slots[kind][handle % PageSlots] : slot::Empty;
        }
        /// Whether neither a text nor a tag lies there, and both could.
        bool hasRoom(RowHandle handle) const {
            return slots[Text] && slots[Tag] &&
                   (slots[Text][handle % PageSlots] | slots[Tag][handle % PageSlots]) == slot::Empty;
        }
    };

    /// The page of a handle, which counts for its texts and its tags; nullptr while there is none. Good until
    /// a page is added.
    Page* find(RowHandle handle) {
        const std::size_t number = handle / PageSlots;
        return number < pages_.size() ? &pages_[number] : nullptr;
    }
    const Page* find(RowHandle handle) const { return const_cast<CellPages*>(this)->find(handle); }
    /// The page of a handle, added if needed.
    Page& obtain(RowHandle handle) {
        if (handle / PageSlots >= pages_.size()) pages_.resize(handle / PageSlots + 1);
        return pages_[handle / PageSlots];
    }
    TextSlot get(Kind kind, RowHandle handle) const {
        const std::size_t number = handle / PageSlots;
        return number < pages_.size() ? pages_[number].get(kind, handle) : slot::Empty;
    }
    /// Says that the slot will be read soon; nothing for a handle that has none.
    void fetchAhead(Kind kind, RowHandle handle) const {
        const std::size_t number = handle / PageSlots;
        if (number < pages_.size() && pages_[number].slots[kind])
            support::fetchAhead(&pages_[number].slots[kind][handle % PageSlots]);
    }
    /// Makes room for texts, or for tags, in a page: to set one there cannot fail then.
    static void provide(Page& page, Kind kind) {
        if (!page.slots[kind]) page.slots[kind] = std::make_unique<TextSlot[]>(PageSlots);
    }
    /// `page` is the handle's. Emptying a slot cannot fail.
    void set(Page& page, Kind kind, RowHandle handle, TextSlot value) {
        if (value == slot::Empty) return empty(page, kind, handle);
        provide(page, kind);
        TextSlot& here = page.slots[kind][handle % PageSlots];
        const bool fills = here == slot::Empty;
        here = value;
        page.used[kind] += fills;
        used_[kind] += fills;
    }
    /// Fills the two empty slots of a cell, in a page with room.
    [[gnu::always_inline]] void fill(Page& page, RowHandle handle, TextSlot text, TextSlot tag) {
        page.slots[Text][handle % PageSlots] = text;
        page.slots[Tag][handle % PageSlots] = tag;
        for (const Kind kind : {Text, Tag}) {
            ++page.used[kind];
            ++used_[kind];
        }
    }
    /// So many empty slots of a page have been filled.
    void filled(Page& page, Kind kind, std::size_t count) {
        page.used[kind] += static_cast<std::uint32_t>(count);
        used_[kind] += count;
    }
    /// How many slots hold something.
    std::size_t used(Kind kind) const { return used_[kind]; }
    bool unused() const { return used_[Text] == 0 && used_[Tag] == 0; }

    /// visit(TextSlot&) for every slot that holds something, always in the same order; it shall hold
    /// something afterwards too.
    template <class Visit>
    void forEach(Visit visit) {
        for (const Page& page : pages_) {
            for (const auto& slots : page.slots) {
                if (!slots) continue;
                for (std::size_t i = 0; i < PageSlots; ++i)
                    if (slots[i] != slot::Empty) visit(slots[i]);
            }
        }
    }

  private:
    void empty(Page& page, Kind kind, RowHandle handle);

    std::vector<Page> pages_;
    std::array<std::size_t, 2> used_{};
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

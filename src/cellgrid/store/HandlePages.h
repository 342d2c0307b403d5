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
    /// How many texts and how many tags there are, side by side in a word: most come in pairs.
    class Counts {
      public:
        std::size_t get(Kind kind) const { return (both_ >> (32 * kind)) & 0xFFFF'FFFF; }
        void add(Kind kind, std::size_t n) { both_ += std::uint64_t{n} << (32 * kind); }
        void takeOne(Kind kind) { both_ -= std::uint64_t{1} << (32 * kind); }
        void addPair() { both_ += 0x1'0000'0001; }
        bool none() const { return both_ == 0; }

      private:
        std::uint64_t both_ = 0;
    };
    struct Page {
        std::array<std::unique_ptr<TextSlot[]>, 2> slots;
        Counts used;

        TextSlot get(Kind kind, RowHandle handle) const {
            return slots[kind] ? slots[kind][handle % PageSlots] : slot::Empty;
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
        if (handle / PageSlots >= pages_.size()) {
            filling_ = {};
            pages_.resize(handle / PageSlots + 1);
        }
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
        page.used.add(kind, fills);
        used_.add(kind, fills);
    }
    /// Whether neither a text nor a tag lies there, and both could. Mostly the cell lies in the page that was asked
    /// about last, which is kept at hand: who fills a table comes to each column with the next row.
    [[gnu::always_inline]] bool hasRoom(RowHandle handle) {
        if (handle / PageSlots != filling_.number) [[unlikely]]
            if (!comeTo(handle)) return false;
        return (filling_.texts[handle % PageSlots] | filling_.tags[handle % PageSlots]) == slot::Empty;
    }
    /// Fills the two slots of the cell that there is room for, as was asked last.
    [[gnu::always_inline]] void fill(RowHandle handle, TextSlot text, TextSlot tag) {
        filling_.texts[handle % PageSlots] = text;
        filling_.tags[handle % PageSlots] = tag;
        // The next ones come when the other columns have had their turn.
        constexpr RowHandle SlotsOfALine = 8;
        support::fetchAhead(&filling_.texts[(handle + SlotsOfALine) % PageSlots]);
        support::fetchAhead(&filling_.tags[(handle + SlotsOfALine) % PageSlots]);
        filling_.page->used.addPair();
        used_.addPair();
    }
    /// So many empty slots of a page have been filled.
    void filled(Page& page, Kind kind, std::size_t count) {
        page.used.add(kind, count);
        used_.add(kind, count);
    }
    /// How many slots hold something.
    std::size_t used(Kind kind) const { return used_.get(kind); }
    bool unused() const { return used_.none(); }

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
    /// A page that has room for texts and for tags.
    struct Filling {
        std::size_t number = NoPage;
        TextSlot* texts = nullptr;
        TextSlot* tags = nullptr;
        Page* page = nullptr;
    };
    static constexpr std::size_t NoPage = ~std::size_t{0};

    bool comeTo(RowHandle handle);
    void empty(Page& page, Kind kind, RowHandle handle);

    std::vector<Page> pages_;
    Counts used_;
    Filling filling_;  ///< none when pages have moved, or given their slots back
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

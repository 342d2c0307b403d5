// The texts that do not fit into a slot. Blocks of four bytes and more are cut from chunks; a freed block
// goes to the list of its size and is used again, for the same size first, for smaller ones before a new
// chunk is taken. Texts above a kilobyte have blocks of their own.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string_view>
#include <vector>

#include "cellgrid/store/TextSlot.h"

namespace kxVsGrid::cellgrid {

class TextArena {
  public:
    static constexpr std::size_t MaxInChunk = 1024;

    /// The slot of any text; short ones take nothing from the arena.
    [[gnu::always_inline]] TextSlot store(std::string_view text) {
        if (text.size() <= slot::MaxBytes) return slot::ofBytes(text.data(), text.size());
        const TextSlot s = slot::ofPacked(text.data(), text.size());
        return s != slot::Empty ? s : storeLong(text);
    }
    /// The same for the second of two texts that are put together: when it fails, the first is given back.
    [[gnu::always_inline]] TextSlot storeAfter(TextSlot first, std::string_view text) {
        if (text.size() <= slot::MaxBytes) return slot::ofBytes(text.data(), text.size());
        const TextSlot s = slot::ofPacked(text.data(), text.size());
        return s != slot::Empty ? s : storeLongAfter(first, text);
    }
    /// The same as store for a text that does not fit into a slot.
    TextSlot storeLong(std::string_view text);
    TextSlot storeLongAfter(TextSlot first, std::string_view text);
    /// Gives back what the slot holds of the arena.
    void release(TextSlot s) {
        if (slot::hasBlock(s)) releaseLong(s);
    }
    /// The text of a slot, which lies in the buffer or in the arena; good until the next store or release.
    /// Slots that hold no text of their own (computed ones) have none.
    std::string_view text(TextSlot s, slot::Buffer& buffer) const {
        return slot::isShort(s) ? slot::shortText(s, buffer) : longText(s);
    }
    /// Bytes of the chunks and big blocks taken from the system.
    std::size_t footprint() const;
    /// Bytes of the texts that are in it now.
    std::size_t used() const { return used_; }

  private:
    static constexpr std::size_t Unit = 4;
    static constexpr std::uint32_t ChunkUnits = 4096;
    static constexpr std::size_t Classes = MaxInChunk / Unit + 1;  ///< block sizes in units, 0 unused
    static constexpr std::uint32_t None = 0xFFFF'FFFF;
    struct Big {
        std::unique_ptr<char[]> bytes;
        std::size_t length = 0;
    };

    TextSlot storeBig(std::string_view text);
    void releaseLong(TextSlot s);
    std::string_view longText(TextSlot s) const {
        if (slot::kind(s) == slot::kind(slot::Arena)) return {at(slot::reference(s)), slot::arenaLength(s)};
        if (slot::kind(s) != slot::kind(slot::Big)) return {};
        const Big& big = big_[slot::reference(s)];
        return {big.bytes.get(), big.length};
    }

    char* at(std::uint32_t reference) const {
        return chunks_[reference / ChunkUnits].get() + (reference % ChunkUnits) * Unit;
    }
    static std::uint32_t unitsFor(std::size_t bytes) {
        return static_cast<std::uint32_t>((bytes + Unit - 1) / Unit);
    }
    std::uint32_t take(std::uint32_t units);
    /// The same where names lie side by side: most are put where none was before.
    std::uint32_t takeFresh(std::uint32_t units) {
        if (freed_[units] != None || freshEnd_ - fresh_ < units) [[unlikely]]
            return take(units);
        fresh_ += units;
        return fresh_ - units;
    }
    std::uint32_t takeLarger(std::uint32_t units);
    void addChunk();
    void free(std::uint32_t reference, std::uint32_t units);

    std::vector<std::unique_ptr<char[]>> chunks_;
    std::uint32_t fresh_ = 0;     ///< first unit of the last chunk that was never handed out
    std::uint32_t freshEnd_ = 0;  ///< where that chunk ends
    std::array<std::uint32_t, Classes> freed_ = noLists();
    std::array<std::uint64_t, Classes / 64 + 1> freedSizes_{};  ///< a bit per list that is not empty
    std::size_t used_ = 0;
    std::vector<Big> big_;
    std::vector<std::uint32_t> freeBig_;  ///< has room for all: releasing cannot fail

    static constexpr std::array<std::uint32_t, Classes> noLists() {
        std::array<std::uint32_t, Classes> lists{};
        lists.fill(None);
        return lists;
    }
};
}  // namespace kxVsGrid::cellgrid

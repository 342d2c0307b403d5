// A text that is looked for in the texts of cells as they are stored: most of them are judged without being read.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "cellgrid/store/TextArena.h"
#include "cellgrid/store/TextSlot.h"
#include "support/TextPattern.h"

namespace kxVsGrid::cellgrid {

class SlotPattern {
  public:
    /// The pattern must outlive it.
    explicit SlotPattern(const support::TextPattern& pattern)
        : pattern_(pattern), size_(pattern.text().size()), whole_(pattern.whole()), folds_(pattern.folds()) {
        const std::string_view text = pattern.text();
        if (size_ <= slot::MaxBytes) {
            word_ = slot::ofBytes(text.data(), size_) & low(8 * size_);
            mask_ = low(8 * size_);
        }
        const auto isPacked = [](char c) { return c >= slot::FirstPacked && c <= slot::LastPacked; };
        packable_ = size_ > 0 && size_ <= slot::MaxPacked && std::all_of(text.begin(), text.end(), isPacked);
        if (!packable_) return;
        for (std::size_t i = 0; i < size_; ++i)
            packed_ |= static_cast<std::uint64_t>(text[i] - slot::FirstPacked) << (4 * i);
        packedMask_ = low(4 * size_);
    }

    /// Slots below this one hold no text that it could be in.
    TextSlot lowest() const {
        const std::size_t kind = size_ <= slot::MaxBytes || packable_ ? size_ : slot::kind(slot::Computed);
        return TextSlot{kind} << slot::KindShift;
    }
    /// Whether it is in the text that the slot holds; not in what is computed, or of no text.
    bool in(TextSlot s, const TextArena& arena) const {
        const unsigned kind = slot::kind(s);
        if (kind <= slot::MaxBytes) return size_ <= kind && inBytes(s, kind);
        if (kind <= slot::MaxPacked) return packable_ && size_ <= kind && inPacked(s, kind);
        if (!slot::hasBlock(s)) return false;
        if (kind == slot::kind(slot::Arena) && slot::arenaLength(s) < size_) return false;
        slot::Buffer none;
        return pattern_.in(arena.text(s, none));
    }

  private:
    static constexpr std::uint64_t low(std::size_t bits) { return (std::uint64_t{1} << bits) - 1; }

    bool inBytes(TextSlot s, std::size_t n) const {
        if (size_ == 0 || (whole_ && n != size_)) return false;
        std::uint64_t text = s & low(8 * slot::MaxBytes);
        if (folds_) text = support::inLowerCase(text);
        for (std::size_t i = 0; i + size_ <= n; ++i, text >>= 8)
            if ((text & mask_) == word_) return true;
        return false;
    }
    bool inPacked(TextSlot s, std::size_t n) const {
        if (whole_ && n != size_) return false;
        std::uint64_t text = s & low(4 * slot::MaxPacked);
        for (std::size_t i = 0; i + size_ <= n; ++i, text >>= 4)
            if ((text & packedMask_) == packed_) return true;
        return false;
    }

    const support::TextPattern& pattern_;
    std::size_t size_;
    bool whole_;
    bool folds_;
    bool packable_ = false;
    std::uint64_t word_ = 0;  ///< as a slot holds up to seven bytes
    std::uint64_t mask_ = 0;
    std::uint64_t packed_ = 0;
    std::uint64_t packedMask_ = 0;
};
}  // namespace kxVsGrid::cellgrid

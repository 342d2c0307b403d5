#include "cellgrid/store/TextArena.h"

#include <algorithm>
#include <bit>

#include "support/Room.h"

namespace kxVsGrid::cellgrid {

namespace {

/// Names are short: four copies of a fixed size, overlapping as the length wants it, are done before a call,
/// or a choice, that nothing predicts has begun. Texts here have eight bytes or more.
void copyText(char* to, std::string_view text) {
    const char* const from = text.data();
    const std::size_t n = text.size();
    if (n > 32) [[unlikely]] {
        std::memcpy(to, from, n);
        return;
    }
    const std::size_t second = std::min<std::size_t>(n - 8, 8);
    const std::size_t places[] = {0, second, n - 8 - second, n - 8};
    std::array<std::uint64_t, 4> words;
    for (std::size_t i = 0; i < 4; ++i) words[i] = slot::eightBytes(from + places[i]);
    for (std::size_t i = 0; i < 4; ++i) std::memcpy(to + places[i], &words[i], 8);
}
}  // namespace

TextSlot TextArena::storeLongAfter(TextSlot first, std::string_view text) {
    try {
        return storeLong(text);
    } catch (...) {
        release(first);
        throw;
    }
}

TextSlot TextArena::storeLong(std::string_view text) {
    if (text.size() > MaxInChunk) return storeBig(text);
    const std::uint32_t reference = takeFresh(unitsFor(text.size()));
    used_ += text.size();
    copyText(at(reference), text);
    return slot::Arena | (TextSlot{text.size()} << 32) | reference;
}

TextSlot TextArena::storeBig(std::string_view text) {
    Big big{std::unique_ptr<char[]>(new char[text.size()]), text.size()};
    std::memcpy(big.bytes.get(), text.data(), text.size());
    if (freeBig_.empty()) {
        support::makeRoom(freeBig_, big_.size() + 1);
        big_.push_back(std::move(big));
        used_ += text.size();
        return slot::Big | (big_.size() - 1);
    }
    used_ += text.size();
    const std::uint32_t number = freeBig_.back();
    freeBig_.pop_back();
    big_[number] = std::move(big);
    return slot::Big | number;
}

void TextArena::releaseLong(TextSlot s) {
    used_ -= longText(s).size();
    if (slot::kind(s) == slot::kind(slot::Arena))
        return free(slot::reference(s), unitsFor(slot::arenaLength(s)));
    big_[slot::reference(s)] = {};
    freeBig_.push_back(slot::reference(s));
}

std::size_t TextArena::footprint() const {
    std::size_t bytes = chunks_.size() * ChunkUnits * Unit;
    for (const Big& big : big_) bytes += big.length;
    return bytes;
}

std::uint32_t TextArena::take(std::uint32_t units) {
    const std::uint32_t same = freed_[units];
    if (same != None) {
        std::memcpy(&freed_[units], at(same), Unit);
        if (freed_[units] == None) freedSizes_[units / 64] &= ~(std::uint64_t{1} << (units % 64));
        return same;
    }
    if (freshEnd_ - fresh_ < units) {
        const std::uint32_t larger = takeLarger(units);
        if (larger != None) return larger;
        addChunk();
    }
    const std::uint32_t reference = fresh_;
    fresh_ += units;
    return reference;
}

/// Cuts the block from a freed larger one, whose rest is freed in turn.
std::uint32_t TextArena::takeLarger(std::uint32_t units) {
    for (std::size_t word = (units + 1) / 64; word < freedSizes_.size(); ++word) {
        std::uint64_t sizes = freedSizes_[word];
        if (word == (units + 1) / 64) sizes &= ~std::uint64_t{0} << ((units + 1) % 64);
        if (sizes == 0) continue;
        const auto size =
            static_cast<std::uint32_t>(word * 64 + static_cast<std::size_t>(std::countr_zero(sizes)));
        const std::uint32_t reference = take(size);
        free(reference + units, size - units);
        return reference;
    }
    return None;
}

void TextArena::addChunk() {
    if (fresh_ < freshEnd_) free(fresh_, freshEnd_ - fresh_);
    fresh_ = freshEnd_;  // should the next line throw, nothing is handed out twice
    chunks_.push_back(std::unique_ptr<char[]>(new char[ChunkUnits * Unit]));
    fresh_ = static_cast<std::uint32_t>(chunks_.size() - 1) * ChunkUnits;
    freshEnd_ = fresh_ + ChunkUnits;
}

void TextArena::free(std::uint32_t reference, std::uint32_t units) {
    std::memcpy(at(reference), &freed_[units], Unit);
    freed_[units] = reference;
    freedSizes_[units / 64] |= std::uint64_t{1} << (units % 64);
}
}  // namespace kxVsGrid::cellgrid

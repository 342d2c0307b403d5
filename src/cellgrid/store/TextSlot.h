// Eight bytes that stand for one text of a cell. Up to seven bytes of text lie in the slot itself; numbers,
// dates and codes of up to fourteen characters out of "+,-./0123456789:" are packed into it, half a byte
// each; longer texts lie in the arena. Equal short texts have equal slots.
#pragma once

#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

namespace kxVsGrid::cellgrid {

/// The top byte says what the rest is.
using TextSlot = std::uint64_t;

namespace slot {
constexpr unsigned KindShift = 56;
constexpr TextSlot Empty = 0;  ///< nothing stored
/// Kinds 1 to 7: so many bytes, the first in the lowest byte.
constexpr std::size_t MaxBytes = 7;
/// Kinds 8 to 14: so many packed characters, the first in the lowest half byte.
constexpr std::size_t MaxPacked = 14;
/// An empty text that code wrote where otherwise something computed would show.
constexpr TextSlot WrittenEmpty = TextSlot{0x20} << KindShift;
/// A text that is asked for at every look; the low half is the number of the asker.
constexpr TextSlot Computed = TextSlot{0x30} << KindShift;
/// Length in bits 32 to 55, the arena's reference in the low half.
constexpr TextSlot Arena = TextSlot{0x40} << KindShift;
/// The low half is the number of a text with a block of its own.
constexpr TextSlot Big = TextSlot{0x50} << KindShift;

constexpr unsigned kind(TextSlot s) {
    return static_cast<unsigned>(s >> KindShift);
}
constexpr bool isShort(TextSlot s) {
    return kind(s) <= MaxPacked;
}
constexpr bool isComputed(TextSlot s) {
    return kind(s) == kind(Computed);
}
constexpr bool hasBlock(TextSlot s) {
    return kind(s) == kind(Arena) || kind(s) == kind(Big);
}
constexpr std::uint32_t reference(TextSlot s) {
    return static_cast<std::uint32_t>(s);
}
constexpr std::size_t arenaLength(TextSlot s) {
    return static_cast<std::size_t>(s >> 32) & 0xFF'FFFF;
}

/// The sixteen characters that are packed lie side by side in ASCII, so that eight of them are told from
/// others, and packed, by a few steps with the whole word.
constexpr char FirstPacked = '+';
constexpr char LastPacked = ':';
static_assert(LastPacked - FirstPacked == 15);
static_assert(std::endian::native == std::endian::little, "texts are read as words, first byte lowest");

/// `byte` in each byte of a word.
constexpr std::uint64_t inEachByte(unsigned byte) {
    return 0x0101'0101'0101'0101U * byte;
}

inline std::uint64_t eightBytes(const char* text) {
    std::uint64_t bytes;
    std::memcpy(&bytes, text, 8);
    return bytes;
}

/// Whether all eight bytes are packed characters.
constexpr bool arePacked(std::uint64_t bytes) {
    constexpr unsigned High = 0x80;
    // With the high bits clear no byte's sum carries into the next; a set high bit then answers "at least".
    const std::uint64_t notBelow = bytes + inEachByte(High - FirstPacked);
    const std::uint64_t above = bytes + inEachByte(High - 1 - LastPacked);
    return ((bytes | ~notBelow | above) & inEachByte(High)) == 0;
}

/// Eight packed characters in the low half of the word.
constexpr std::uint64_t packed(std::uint64_t bytes) {
    std::uint64_t codes = bytes - inEachByte(FirstPacked);
    codes = (codes | (codes >> 4)) & 0x00FF'00FF'00FF'00FFU;
    codes = (codes | (codes >> 8)) & 0x0000'FFFF'0000'FFFFU;
    return (codes | (codes >> 16)) & 0xFFFF'FFFFU;
}

/// The slot of up to seven bytes; Empty for none.
[[gnu::always_inline]] inline TextSlot ofBytes(const char* text, std::size_t n) {
    TextSlot bytes = 0;
    if (n >= 4) {
        // Two reads that overlap in the middle: no loop, no call.
        std::uint32_t head;
        std::uint32_t tail;
        std::memcpy(&head, text, 4);
        std::memcpy(&tail, text + n - 4, 4);
        bytes = head | (TextSlot{tail} << (8 * (n - 4)));
    } else if (n > 0) {
        const auto byte = [text](std::size_t i) { return TextSlot{static_cast<unsigned char>(text[i])}; };
        bytes = byte(0) | (byte(n / 2) << (8 * (n / 2))) | (byte(n - 1) << (8 * (n - 1)));
    }
    return bytes | (TextSlot{n} << KindShift);
}

/// The slot of a text of eight bytes or more that can be packed, Empty for all others. One question for both
/// reasons why it cannot: which of them it is, nobody can foretell.
[[gnu::always_inline]] inline TextSlot ofPacked(const char* text, std::size_t n) {
    const std::uint64_t head = eightBytes(text);
    const std::uint64_t tail = eightBytes(text + n - 8);  // overlaps the head
    if ((n <= MaxPacked) & arePacked(head) & arePacked(tail))
        return (TextSlot{n} << KindShift) | packed(head) | (packed(tail) >> (4 * (16 - n)) << 32);
    return Empty;
}

/// The slot of a text that fits into it, Empty for all others. The empty text is Empty too.
inline TextSlot ofShort(std::string_view text) {
    const std::size_t n = text.size();
    return n <= MaxBytes ? ofBytes(text.data(), n) : ofPacked(text.data(), n);
}

/// Room for the text of a slot that lies in the slot.
using Buffer = std::array<char, 16>;

/// The text of a slot for which isShort() holds.
inline std::string_view shortText(TextSlot s, Buffer& buffer) {
    const std::size_t n = kind(s);
    if (n <= MaxBytes) {
        for (std::size_t i = 0; i < 8; ++i) buffer[i] = static_cast<char>(s >> (8 * i));
    } else {
        for (std::size_t i = 0; i < n; ++i)
            buffer[i] = static_cast<char>(FirstPacked + ((s >> (4 * i)) & 15));
    }
    return {buffer.data(), n};
}
}  // namespace slot
}  // namespace kxVsGrid::cellgrid

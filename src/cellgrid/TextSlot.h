// Eight bytes that stand for one text of a cell. Up to seven bytes of text lie in the slot itself; numbers,
// dates and codes of up to fourteen characters out of "0123456789.-/: ," are packed into it, half a byte
// each; longer texts lie in the arena. Equal short texts have equal slots.
#pragma once

#include <array>
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

constexpr std::string_view PackedCharacters = "0123456789.-/: ,";
constexpr std::array<std::uint8_t, 256> makePackedCodes() {
    std::array<std::uint8_t, 256> codes{};
    codes.fill(0xFF);
    for (std::size_t i = 0; i < PackedCharacters.size(); ++i)
        codes[static_cast<unsigned char>(PackedCharacters[i])] = static_cast<std::uint8_t>(i);
    return codes;
}
inline constexpr std::array<std::uint8_t, 256> PackedCodes = makePackedCodes();

/// The slot of up to seven bytes.
inline TextSlot ofBytes(const char* text, std::size_t n) {
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

/// The slot of a text that fits into it, Empty for all others. The empty text is Empty too.
inline TextSlot ofShort(std::string_view text) {
    const std::size_t n = text.size();
    if (n <= MaxBytes) return n == 0 ? Empty : ofBytes(text.data(), n);
    if (n > MaxPacked) return Empty;
    TextSlot packed = TextSlot{n} << KindShift;
    for (std::size_t i = 0; i < n; ++i) {
        const std::uint8_t code = PackedCodes[static_cast<unsigned char>(text[i])];
        if (code == 0xFF) return Empty;
        packed |= TextSlot{code} << (4 * i);
    }
    return packed;
}

/// Room for the text of a slot that lies in the slot.
using Buffer = std::array<char, 16>;

/// The text of a slot for which isShort() holds.
inline std::string_view shortText(TextSlot s, Buffer& buffer) {
    const std::size_t n = kind(s);
    if (n <= MaxBytes) {
        for (std::size_t i = 0; i < 8; ++i) buffer[i] = static_cast<char>(s >> (8 * i));
    } else {
        for (std::size_t i = 0; i < n; ++i) buffer[i] = PackedCharacters[(s >> (4 * i)) & 15];
    }
    return {buffer.data(), n};
}
}  // namespace slot
}  // namespace kxVsGrid::cellgrid

// The usual 32 bit checksum of bytes (CRC-32, ISO 3309): tells torn and altered lines, defends against nobody.
#pragma once

#include <array>
#include <cstdint>
#include <string_view>

namespace kxVsGrid::support {

inline constexpr std::array<std::uint32_t, 256> ChecksumTable = [] {
    constexpr std::uint32_t Polynomial = 0xEDB8'8320;
    std::array<std::uint32_t, 256> table{};
    for (std::uint32_t byte = 0; byte < 256; ++byte) {
        std::uint32_t value = byte;
        for (int bit = 0; bit < 8; ++bit) value = (value >> 1) ^ ((value & 1) != 0 ? Polynomial : 0);
        table[byte] = value;
    }
    return table;
}();

/// Of the bytes behind those that `before` is the checksum of.
constexpr std::uint32_t checksum(std::string_view bytes, std::uint32_t before = 0) {
    std::uint32_t value = ~before;
    for (const char c : bytes)
        value = (value >> 8) ^ ChecksumTable[(value ^ static_cast<unsigned char>(c)) & 0xFF];
    return ~value;
}
static_assert(checksum("123456789") == 0xCBF4'3926);
static_assert(checksum("6789", checksum("12345")) == 0xCBF4'3926);
}  // namespace kxVsGrid::support

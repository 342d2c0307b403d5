// The usual 32 bit checksum of bytes (CRC-32, ISO 3309): tells torn and altered lines, defends against nobody.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace kxVsGrid::support {

/// For a byte that has so many others behind it in the eight that are taken at a time.
inline constexpr std::array<std::array<std::uint32_t, 256>, 8> ChecksumTables = [] {
    constexpr std::uint32_t Polynomial = 0xEDB8'8320;
    std::array<std::array<std::uint32_t, 256>, 8> tables{};
    for (std::uint32_t byte = 0; byte < 256; ++byte) {
        std::uint32_t value = byte;
        for (int bit = 0; bit < 8; ++bit) value = (value >> 1) ^ ((value & 1) != 0 ? Polynomial : 0);
        tables[0][byte] = value;
    }
    for (std::size_t behind = 1; behind < tables.size(); ++behind)
        for (std::size_t byte = 0; byte < 256; ++byte) {
            const std::uint32_t value = tables[behind - 1][byte];
            tables[behind][byte] = (value >> 8) ^ tables[0][value & 0xFF];
        }
    return tables;
}();

/// Of the bytes behind those that `before` is the checksum of.
constexpr std::uint32_t checksum(std::string_view bytes, std::uint32_t before = 0) {
    std::uint32_t value = ~before;
    while (bytes.size() >= ChecksumTables.size()) {
        std::uint32_t next = 0;
        for (std::size_t at = 0; at < ChecksumTables.size(); ++at) {
            const std::uint32_t mixed = at < 4 ? (value >> (8 * at)) & 0xFF : 0;
            next ^= ChecksumTables[7 - at][mixed ^ static_cast<unsigned char>(bytes[at])];
        }
        value = next;
        bytes.remove_prefix(ChecksumTables.size());
    }
    for (const char c : bytes)
        value = (value >> 8) ^ ChecksumTables[0][(value ^ static_cast<unsigned char>(c)) & 0xFF];
    return ~value;
}
static_assert(checksum("123456789") == 0xCBF4'3926);
static_assert(checksum("6789", checksum("12345")) == 0xCBF4'3926);
}  // namespace kxVsGrid::support

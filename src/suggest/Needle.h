// A text that is looked for in a long stretch of bytes, many bytes at a time.
//
// Up to three bytes of it, the rarest ones there, are compared at many places in one go, by a loop without
// branches; where all of them fit, the whole text is compared. Texts of one kind share most of their bytes
// (digits, the first bytes of Chinese characters): one byte alone, as memmem looks for it, would be found
// everywhere.
#pragma once

#include <array>
#include <cstddef>
#include <string_view>

namespace kxVsGrid::suggest {

/// How often each byte occurs.
using ByteCounts = std::array<std::size_t, 256>;

class Needle {
  public:
    static constexpr std::size_t None = std::string_view::npos;

    /// `text` must not be empty, and outlive this.
    Needle(std::string_view text, const ByteCounts& counts);
    /// Some byte of it occurs nowhere.
    bool absent() const { return absent_; }
    /// The first place from `from` on where it stands in `bytes`.
    std::size_t find(std::string_view bytes, std::size_t from) const;

  private:
    static constexpr std::size_t Compared = 3;
    static constexpr std::size_t AtOnce = 128;
    bool mayBeIn(const char* block) const;

    std::string_view text_;
    std::array<std::size_t, Compared> offsets_{};
    std::array<char, Compared> bytes_{};
    bool absent_ = false;
};
}  // namespace kxVsGrid::suggest

// A text that is looked for in others.
#pragma once

#include <algorithm>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>

namespace kxVsGrid::support {

/// A letter of ASCII in lower case, any other byte as it is.
constexpr char inLowerCase(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c | 0x20) : c;
}

namespace pattern {
constexpr std::uint64_t Each = 0x0101'0101'0101'0101U;
static_assert(std::endian::native == std::endian::little, "texts are read as words, first byte lowest");

inline std::uint64_t eightBytes(const char* text) {
    std::uint64_t bytes;
    std::memcpy(&bytes, text, 8);
    return bytes;
}
/// The high bit of each byte that is zero, and no other bit.
constexpr std::uint64_t zeroBytes(std::uint64_t bytes) {
    const std::uint64_t low = (bytes & (Each * 0x7F)) + Each * 0x7F;
    return ~(low | bytes | (Each * 0x7F));
}
}  // namespace pattern

/// Eight bytes at once.
constexpr std::uint64_t inLowerCase(std::uint64_t bytes) {
    using pattern::Each;
    const std::uint64_t low = bytes & (Each * 0x7F);
    const std::uint64_t fromA = low + Each * (0x80 - 'A');
    const std::uint64_t aboveZ = low + Each * (0x7F - 'Z');
    return bytes | ((fromA & ~aboveZ & ~bytes & (Each * 0x80)) >> 2);
}

class TextPattern {
  public:
    /// An empty text is in no other one. Without `matchCase` the case of ASCII letters does not count; characters
    /// beyond ASCII are only themselves.
    TextPattern(std::string_view text, bool whole, bool matchCase);

    const std::string& text() const { return text_; }
    bool whole() const { return whole_; }
    /// Case does not count, and there are letters.
    bool folds() const { return folds_; }

    bool in(std::string_view text) const {
        if (text.size() < text_.size() || text_.empty()) return false;
        if (whole_) return text.size() == text_.size() && matchesAt(text.data());
        return findEnd(text.data(), text_.size() - 1, text.size()) != std::string_view::npos;
    }
    /// Where the first match at or after a byte begins; npos for none. Not for whole().
    std::size_t find(std::string_view text, std::size_t from) const;
    /// How often it is in the text; matches do not overlap.
    std::size_t occurrences(std::string_view text) const;
    /// The text with something else in the place of each match.
    std::string replaced(std::string_view text, std::string_view with) const;

  private:
    bool matchesAt(const char* text) const;
    std::size_t findEnd(const char* text, std::size_t from, std::size_t end) const;

    std::string text_;  ///< in lower case where case does not count
    bool whole_;
    bool folds_;
    char last_ = 0;
    std::uint64_t lasts_ = 0;     ///< the last byte, eight times
    std::uint64_t lastCase_ = 0;  ///< the bit that makes its case, eight times; 0 where that counts
};

/// The last byte of the pattern tells most: characters beyond ASCII begin alike.
inline std::size_t TextPattern::findEnd(const char* text, std::size_t from, std::size_t end) const {
    const std::size_t before = text_.size() - 1;
    std::size_t at = from;
    while (at < end) {
        // at the end of a long text a word that has been looked at in part
        const std::size_t word = end >= 8 ? std::min(at, end - 8) : end;
        if (word == end) break;
        std::uint64_t hits = pattern::zeroBytes((pattern::eightBytes(text + word) | lastCase_) ^ lasts_);
        hits &= ~std::uint64_t{0} << (8 * (at - word));
        for (; hits != 0; hits &= hits - 1) {
            const std::size_t place = word + static_cast<std::size_t>(std::countr_zero(hits)) / 8;
            if (matchesAt(text + place - before)) return place;
        }
        at = word + 8;
    }
    for (; at < end; ++at) {
        const char c = folds_ ? inLowerCase(text[at]) : text[at];
        if (c == last_ && matchesAt(text + at - before)) return at;
    }
    return std::string_view::npos;
}
}  // namespace kxVsGrid::support

#include "suggest/Needle.h"

#include <algorithm>
#include <numeric>
#include <vector>

namespace kxVsGrid::suggest {
namespace {

/// Longer texts are known by their first bytes well enough.
constexpr std::size_t LookedAt = 256;
}  // namespace

Needle::Needle(std::string_view text, const ByteCounts& counts) : text_(text) {
    const auto count = [&](std::size_t offset) { return counts[static_cast<unsigned char>(text[offset])]; };
    std::vector<std::size_t> rarest(std::min(text.size(), LookedAt));
    std::iota(rarest.begin(), rarest.end(), std::size_t{0});
    const std::size_t compared = std::min(Compared, rarest.size());
    std::partial_sort(rarest.begin(), rarest.begin() + static_cast<std::ptrdiff_t>(compared), rarest.end(),
                      [&](std::size_t a, std::size_t b) { return count(a) < count(b); });
    for (std::size_t i = 0; i < Compared; ++i) {
        offsets_[i] = rarest[std::min(i, compared - 1)];
        bytes_[i] = text[offsets_[i]];
    }
    absent_ = count(offsets_[0]) == 0;
}

bool Needle::mayBeIn(const char* block) const {
    const char* const a = block + offsets_[0];
    const char* const b = block + offsets_[1];
    const char* const c = block + offsets_[2];
    unsigned char fits = 0;
    for (std::size_t i = 0; i < AtOnce; ++i)
        fits = static_cast<unsigned char>(fits |
                                          ((a[i] == bytes_[0]) & (b[i] == bytes_[1]) & (c[i] == bytes_[2])));
    return fits != 0;
}

std::size_t Needle::find(std::string_view bytes, std::size_t from) const {
    if (absent_ || bytes.size() < text_.size()) return None;
    const std::size_t last = bytes.size() - text_.size();
    while (from <= last) {
        const bool whole = last - from >= AtOnce;
        if (whole && !mayBeIn(bytes.data() + from)) {
            from += AtOnce;
            continue;
        }
        const std::size_t stop = whole ? from + AtOnce : last + 1;
        for (; from < stop; ++from) {
            const char* const at = bytes.data() + from;
            if (at[offsets_[0]] == bytes_[0] && at[offsets_[1]] == bytes_[1] &&
                at[offsets_[2]] == bytes_[2] && bytes.compare(from, text_.size(), text_) == 0)
                return from;
        }
    }
    return None;
}
}  // namespace kxVsGrid::suggest

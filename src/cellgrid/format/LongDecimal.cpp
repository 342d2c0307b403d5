#include "cellgrid/format/LongDecimal.h"

#include <algorithm>

#include "support/Numbers.h"
#include "support/ReadDecimal.h"
#include "support/Text.h"

namespace kxVsGrid::cellgrid {
namespace {

using support::isDigit;

/// Numbers with at most this many digits before the point are surely in a double's range.
constexpr std::int64_t SafeMagnitude = 308;
/// Exponents are counted no further than this; more digits than that no text has.
constexpr std::int64_t LargestExponent = 1'000'000'000'000;
}  // namespace

bool LongDecimal::read(std::string_view text) {
    text = support::trim(text);
    digits_.clear();
    point_ = 0;
    std::size_t at = 0;
    negative_ = !text.empty() && text[0] == '-';
    if (negative_ || (!text.empty() && text[0] == '+')) ++at;
    bool anyDigit = false;
    bool pointSeen = false;
    for (; at < text.size(); ++at) {
        const char c = text[at];
        if (c == '.' && !pointSeen) {
            pointSeen = true;
            continue;
        }
        if (!isDigit(c)) break;
        anyDigit = true;
        const bool leadingZero = c == '0' && digits_.empty();
        if (!leadingZero) digits_.push_back(c);
        if (!pointSeen && !leadingZero) ++point_;
        if (pointSeen && leadingZero) --point_;
    }
    if (!anyDigit) return false;
    if (at < text.size()) {
        if (!readExponent(text, at)) return false;
        if (!digits_.empty() && point_ > SafeMagnitude && !support::completeNumber(text)) return false;
    }
    dropTrailingZeros();
    return true;
}

bool LongDecimal::readExponent(std::string_view text, std::size_t at) {
    if (text[at] != 'e' && text[at] != 'E') return false;
    ++at;
    const bool minus = at < text.size() && text[at] == '-';
    if (minus || (at < text.size() && text[at] == '+')) ++at;
    if (at == text.size()) return false;
    std::int64_t exponent = 0;
    for (; at < text.size(); ++at) {
        if (!isDigit(text[at])) return false;
        exponent = std::min(exponent * 10 + (text[at] - '0'), LargestExponent);
    }
    point_ += minus ? -exponent : exponent;
    return true;
}

void LongDecimal::dropTrailingZeros() {
    while (!digits_.empty() && digits_.back() == '0') digits_.pop_back();
    if (digits_.empty()) point_ = 0;
}

void LongDecimal::shift(std::int64_t places) {
    if (!digits_.empty()) point_ += places;
}

void LongDecimal::round(std::int64_t decimals) {
    const std::int64_t kept = point_ + decimals;
    if (kept >= static_cast<std::int64_t>(digits_.size())) return;
    if (kept < 0) {
        digits_.clear();
        point_ = 0;
        return;
    }
    const auto cut = static_cast<std::size_t>(kept);
    const bool up = digits_[cut] >= '5';
    digits_.resize(cut);
    if (up) {
        while (!digits_.empty() && digits_.back() == '9') digits_.pop_back();
        if (digits_.empty()) {
            digits_.push_back('1');
            ++point_;
        } else {
            ++digits_.back();
        }
    }
    dropTrailingZeros();
}
}  // namespace kxVsGrid::cellgrid

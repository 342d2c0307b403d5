#include "dialogs/PrefixIndex.h"

#include <algorithm>
#include <limits>

namespace kxVsGrid::dialogs {
namespace {

constexpr std::size_t KeyBytes = 8;
constexpr std::size_t RunRows = 4096;     ///< sorted in one slice
constexpr std::size_t MergeRows = 16384;  ///< merged in one slice

/// What comes after the bytes of one number.
std::string_view rest(std::string_view text) {
    return text.substr(std::min(text.size(), KeyBytes));
}

/// The bits of a number that the bytes of a text fill.
std::uint64_t maskOf(std::string_view text) {
    return text.size() >= KeyBytes ? ~std::uint64_t{0} : ~(~std::uint64_t{0} >> (8 * text.size()));
}
}  // namespace

PrefixIndex::PrefixIndex(std::int32_t rows, Texts texts) : texts_(std::move(texts)) {
    keys_.reserve(static_cast<std::size_t>(rows));
    more_.reserve(static_cast<std::size_t>(rows));
    for (std::int32_t row = 0; row < rows; ++row) {
        const std::string text = texts_(row);
        keys_.push_back(keyOf(text));
        more_.push_back(keyOf(rest(text)));
        zeros_ = zeros_ || text.find('\0') != std::string::npos;
    }
    if (keys_.empty()) state_ = State::Built;
}

/// The first eight bytes, the first in the highest place; shorter texts are filled up with zeros.
PrefixIndex::Key PrefixIndex::keyOf(std::string_view text) {
    Key key = 0;
    for (std::size_t i = 0; i < KeyBytes; ++i)
        key = (key << 8) | (i < text.size() ? static_cast<unsigned char>(text[i]) : 0U);
    return key;
}

// --- Finding

/// A zero byte of a text cannot be told from its end by the numbers; any other last byte can.
PrefixIndex::Wanted::Wanted(std::string_view text)
    : prefix(text),
      key(keyOf(text)),
      mask(maskOf(text)),
      more(keyOf(rest(text))),
      moreMask(maskOf(rest(text))),
      exact(text.size() <= 2 * KeyBytes && text.back() != '\0') {}

std::optional<std::int32_t> PrefixIndex::find(std::string_view prefix, std::int32_t stop) const {
    if (keys_.empty()) return std::nullopt;
    if (prefix.empty()) return 0;
    const Wanted wanted(prefix);
    if (state_ != State::Built)
        return scan(wanted, std::min(keys_.size(), static_cast<std::size_t>(std::max(stop, 0))));
    const std::size_t first = firstNotBefore(wanted, false);
    const std::size_t end = firstNotBefore(wanted, true);
    if (first == end) return std::nullopt;
    return static_cast<std::int32_t>(smallestOf(first, end));
}

/// Below, at or above 0 as the row's text, cut to the prefix's length, is before, equal to or after it.
int PrefixIndex::compare(Row row, const Wanted& wanted) const {
    const Key own = keys_[row] & wanted.mask;
    if (own != wanted.key) return own < wanted.key ? -1 : 1;
    const Key more = more_[row] & wanted.moreMask;
    if (more != wanted.more) return more < wanted.more ? -1 : 1;
    if (wanted.exact) return 0;
    const std::string text = texts_(static_cast<std::int32_t>(row));
    return std::string_view(text).substr(0, wanted.prefix.size()).compare(wanted.prefix);
}

bool PrefixIndex::startsWith(std::size_t row, const Wanted& wanted) const {
    return compare(static_cast<Row>(row), wanted) == 0;
}

/// Several rows at a time, without a branch for each, until one of them agrees in its numbers.
std::optional<std::int32_t> PrefixIndex::scan(const Wanted& wanted, std::size_t stop) const {
    constexpr std::size_t AtATime = 16;
    const Key* const keys = keys_.data();
    const Key* const more = more_.data();
    const auto none = [&](std::size_t row) {
        bool any = false;
        for (std::size_t i = row; i < row + AtATime; ++i) any |= ((keys[i] ^ wanted.key) & wanted.mask) == 0;
        return !any;
    };
    const auto noneOfBoth = [&](std::size_t row) {
        bool any = false;
        for (std::size_t i = row; i < row + AtATime; ++i)
            any |=
                (((keys[i] ^ wanted.key) & wanted.mask) | ((more[i] ^ wanted.more) & wanted.moreMask)) == 0;
        return !any;
    };
    const bool isLong = wanted.moreMask != 0;
    std::size_t row = 0;
    while (row < stop) {
        if (row + AtATime <= stop && (isLong ? noneOfBoth(row) : none(row))) {
            row += AtATime;
            continue;
        }
        for (const std::size_t end = std::min(stop, row + AtATime); row < end; ++row)
            if (startsWith(row, wanted)) return static_cast<std::int32_t>(row);
    }
    return std::nullopt;
}

/// Where in the order the rows with the prefix begin, or, with `after`, end.
std::size_t PrefixIndex::firstNotBefore(const Wanted& wanted, bool after) const {
    const auto found = std::partition_point(order_.begin(), order_.end(), [&](Row row) {
        const int order = compare(row, wanted);
        return order < 0 || (after && order == 0);
    });
    return static_cast<std::size_t>(found - order_.begin());
}

PrefixIndex::Row PrefixIndex::smallestOf(std::size_t first, std::size_t stop) const {
    const std::size_t n = order_.size();
    const auto node = [&](std::size_t i) { return i < n ? tree_[i] : order_[i - n]; };
    Row smallest = std::numeric_limits<Row>::max();
    for (first += n, stop += n; first < stop; first /= 2, stop /= 2) {
        if (first % 2 == 1) smallest = std::min(smallest, node(first++));
        if (stop % 2 == 1) smallest = std::min(smallest, node(--stop));
    }
    return smallest;
}

// --- Building

bool PrefixIndex::before(Row a, Row b) const {
    if (keys_[a] != keys_[b]) return keys_[a] < keys_[b];
    if (more_[a] != more_[b]) return more_[a] < more_[b];
    constexpr Key LastByte = 0xFF;
    if ((more_[a] & LastByte) != 0 || zeros_) {  // the texts go on, or end somewhere in the zeros
        const int order = texts_(static_cast<std::int32_t>(a)).compare(texts_(static_cast<std::int32_t>(b)));
        if (order != 0) return order < 0;
    }
    return a < b;
}

bool PrefixIndex::build() {
    switch (state_) {
        case State::SortingRuns:
            sortRun();
            break;
        case State::Merging:
            mergeSome();
            break;
        case State::Built:
            break;
    }
    return state_ != State::Built;
}

void PrefixIndex::sortRun() {
    const std::size_t stop = std::min(keys_.size(), done_ + RunRows);
    for (std::size_t row = done_; row < stop; ++row) order_.push_back(static_cast<Row>(row));
    std::sort(order_.begin() + static_cast<std::ptrdiff_t>(done_), order_.end(),
              [this](Row a, Row b) { return before(a, b); });
    done_ = stop;
    if (done_ < keys_.size()) return;
    run_ = RunRows;
    done_ = left_ = 0;
    right_ = run_;
    state_ = State::Merging;
    if (run_ >= order_.size()) growTree();
}

void PrefixIndex::mergeSome() {
    const std::size_t n = order_.size();
    merged_.reserve(n);
    for (std::size_t i = 0; i < MergeRows && done_ < n; ++i) {
        const std::size_t pair = done_ / (2 * run_) * (2 * run_);
        const std::size_t leftEnd = std::min(n, pair + run_);
        const std::size_t rightEnd = std::min(n, pair + 2 * run_);
        const bool takeLeft =
            left_ < leftEnd && (right_ >= rightEnd || before(order_[left_], order_[right_]));
        merged_.push_back(order_[takeLeft ? left_++ : right_++]);
        if (++done_ == rightEnd) {
            left_ = rightEnd;
            right_ = std::min(n, rightEnd + run_);
        }
    }
    if (done_ < n) return;
    order_.swap(merged_);
    merged_.clear();
    run_ *= 2;
    done_ = left_ = 0;
    right_ = std::min(n, run_);
    if (run_ >= n) growTree();
}

void PrefixIndex::growTree() {
    const std::size_t n = order_.size();
    merged_ = {};
    tree_.assign(n, 0);
    const auto node = [&](std::size_t i) { return i < n ? tree_[i] : order_[i - n]; };
    for (std::size_t i = n - 1; i > 0; --i) tree_[i] = std::min(node(2 * i), node(2 * i + 1));
    state_ = State::Built;
}
}  // namespace kxVsGrid::dialogs

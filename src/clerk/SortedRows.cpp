#include "clerk/SortedRows.h"

#include <algorithm>
#include <array>
#include <bit>
#include <optional>
#include <utility>

#include "support/Dates.h"
#include "support/DistinctTexts.h"
#include "support/Numbers.h"
#include "support/Text.h"

namespace kxVsGrid::clerk {
namespace {

struct Ranked {
    std::uint64_t key;
    std::int32_t row;
};

/// Orders like the number does.
std::uint64_t keyOf(double number) {
    constexpr std::uint64_t Sign = std::uint64_t{1} << 63;
    const auto bits = std::bit_cast<std::uint64_t>(number == 0 ? 0.0 : number);
    return (bits & Sign) != 0 ? ~bits : bits | Sign;
}

std::uint64_t keyOf(const DateTime& date) {
    const std::int64_t seconds =
        ((support::dayNumber(date) * 24 + date.hour) * 60 + date.minute) * 60 + date.second;
    return static_cast<std::uint64_t>(seconds) ^ (std::uint64_t{1} << 63);
}

std::optional<std::uint64_t> keyOf(SortKind kind, std::string_view text) {
    if (kind == SortKind::Numbers) {
        const auto number = support::completeNumber(text);
        return number ? std::optional(keyOf(*number)) : std::nullopt;
    }
    if (kind == SortKind::Dates) {
        const auto date = support::parseDate(text);
        return date ? std::optional(keyOf(*date)) : std::nullopt;
    }
    return std::nullopt;
}

/// By key, in passes of eleven bits from the lowest up, each of which keeps the order of the one before. Parts in which
/// all keys are alike take none.
void sortByKey(std::vector<Ranked>& rows) {
    constexpr int Bits = 11;
    constexpr std::size_t Values = std::size_t{1} << Bits;
    std::uint64_t varying = 0;
    for (const Ranked& row : rows) varying |= row.key ^ rows.front().key;
    std::vector<Ranked> other(rows.size());
    for (int shift = 0; shift < 64 && varying >> shift != 0; shift += Bits) {
        if ((varying >> shift & (Values - 1)) == 0) continue;
        std::array<std::uint32_t, Values + 1> ends{};
        const auto part = [shift](const Ranked& row) { return (row.key >> shift) & (Values - 1); };
        for (const Ranked& row : rows) ++ends[part(row) + 1];
        for (std::size_t value = 0; value < Values; ++value) ends[value + 1] += ends[value];
        for (const Ranked& row : rows) other[ends[part(row)]++] = row;
        rows.swap(other);
    }
}

/// For short lists the passes cost more than they save.
void sortRows(std::vector<Ranked>& rows, bool down) {
    constexpr std::size_t Many = 20'000;
    if (down)
        for (Ranked& row : rows) row.key = ~row.key;
    if (rows.size() >= Many) return sortByKey(rows);
    std::stable_sort(rows.begin(), rows.end(),
                     [](const Ranked& a, const Ranked& b) { return a.key < b.key; });
}

class Sorting {
  public:
    Sorting(const CellGrid& grid, const rows::DefaultedCells& defaulted, std::int32_t col, SortKind kind)
        : grid_(grid), defaulted_(defaulted), col_(col), kind_(kind), first_(grid.FixedRows()) {}

    /// Mostly the column alone tells which rows are in use.
    void read() {
        const std::int32_t last = grid_.Rows() - 1;
        if (last < first_) return;
        grid_.ForEachCell({first_, col_, last, col_},
                          [this](auto row, auto, auto text, auto) { take(row, text); });
        forEachUnused(last, [this](std::int32_t from, std::int32_t to) {
            grid_.ForEachCell(from, to, [this](auto row, auto col, auto text, auto) {
                if (col != col_) use(row, col, text);
            });
        });
    }

    std::vector<std::int32_t> order(bool down, const Platform& platform) {
        leaveOutUnused(ranked_);
        leaveOutUnused(texts_);
        rankTexts(platform);
        sortRows(ranked_, down);
        sortRows(texts_, down);
        std::vector<std::int32_t> from;
        from.reserve(seen_.size());
        for (const Ranked& row : ranked_) from.push_back(row.row);
        for (const Ranked& row : texts_) from.push_back(row.row);
        for (const bool inUse : {true, false})
            for (std::size_t i = 0; i < seen_.size(); ++i)
                if (seen_[i].inUse == inUse && !(inUse && seen_[i].here))
                    from.push_back(first_ + static_cast<std::int32_t>(i));
        return from;
    }

  private:
    struct Seen {
        bool inUse = false;  ///< something stands in the row that default filling has not put there
        bool here = false;   ///< something stands in the column
    };

    Seen& use(std::int32_t row, std::int32_t col, std::string_view text) {
        const auto i = static_cast<std::size_t>(row - first_);
        if (i >= seen_.size()) seen_.resize(i + 1);
        if (!seen_[i].inUse) seen_[i].inUse = !defaulted_.holds(row, col, text);
        return seen_[i];
    }

    void take(std::int32_t row, std::string_view text) {
        Seen& seen = use(row, col_, text);
        if (support::trim(text).empty()) return;
        seen.here = true;
        if (const auto key = keyOf(kind_, text))
            ranked_.push_back({*key, row});
        else
            texts_.push_back({distinct_.add(text), row});
    }

    /// visit(first, last) for the stretches of rows down to `last` that are not in use so far; where they are many, for
    /// all of them at once.
    template <class Visit>
    void forEachUnused(std::int32_t last, Visit visit) {
        constexpr std::size_t Many = 64;
        std::vector<std::pair<std::int32_t, std::int32_t>> stretches;
        for (std::size_t i = 0; i < seen_.size(); ++i) {
            if (seen_[i].inUse) continue;
            const auto row = first_ + static_cast<std::int32_t>(i);
            if (!stretches.empty() && stretches.back().second + 1 == row)
                stretches.back().second = row;
            else
                stretches.emplace_back(row, row);
        }
        const auto end = first_ + static_cast<std::int32_t>(seen_.size());
        if (end <= last) stretches.emplace_back(end, last);
        if (stretches.size() > Many) stretches = {{stretches.front().first, stretches.back().second}};
        for (const auto& [from, to] : stretches) visit(from, to);
    }

    void leaveOutUnused(std::vector<Ranked>& rows) const {
        std::erase_if(rows, [this](const Ranked& one) {
            return !seen_[static_cast<std::size_t>(one.row - first_)].inUse;
        });
    }

    /// Cells come in no order of rows that could be relied on.
    void rankTexts(const Platform& platform) {
        const std::vector<std::uint32_t> ranks = platform.collationRanks(distinct_.texts());
        for (Ranked& row : texts_) row.key = ranks[row.key];
        const auto higher = [](const Ranked& a, const Ranked& b) { return a.row < b.row; };
        for (std::vector<Ranked>* rows : {&ranked_, &texts_})
            if (!std::is_sorted(rows->begin(), rows->end(), higher))
                std::sort(rows->begin(), rows->end(), higher);
    }

    const CellGrid& grid_;
    const rows::DefaultedCells& defaulted_;
    std::int32_t col_;
    SortKind kind_;
    std::int32_t first_;
    std::vector<Seen> seen_;  ///< of the data rows down to the last one that holds something
    std::vector<Ranked> ranked_;
    std::vector<Ranked> texts_;
    support::DistinctTexts distinct_;
};
}  // namespace

std::vector<std::int32_t> sortedRows(const CellGrid& grid, const rows::DefaultedCells& defaulted,
                                     std::int32_t col, SortKind kind, bool down, const Platform& platform) {
    Sorting sorting(grid, defaulted, col, kind);
    sorting.read();
    return sorting.order(down, platform);
}

std::vector<std::uint32_t> sortedTexts(const std::vector<SortedText>& texts, SortKind kind,
                                       const Platform& platform) {
    std::vector<Ranked> valued;
    std::vector<Ranked> worded;
    std::vector<Ranked> empty;
    std::vector<std::string_view> words;
    for (std::size_t i = 0; i < texts.size(); ++i) {
        const auto row = static_cast<std::int32_t>(i);
        if (texts[i].seen.empty()) {
            empty.push_back({0, row});
        } else if (const auto key = keyOf(kind, texts[i].stored)) {
            valued.push_back({*key, row});
        } else {
            words.push_back(texts[i].seen);
            worded.push_back({0, row});
        }
    }
    const std::vector<std::uint32_t> ranks = platform.collationRanks(words);
    for (std::size_t i = 0; i < worded.size(); ++i) worded[i].key = ranks[i];
    std::vector<std::uint32_t> order;
    order.reserve(texts.size());
    for (std::vector<Ranked>* some : {&valued, &worded, &empty}) {
        sortRows(*some, false);
        for (const Ranked& one : *some) order.push_back(static_cast<std::uint32_t>(one.row));
    }
    return order;
}
}  // namespace kxVsGrid::clerk

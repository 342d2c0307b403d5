// Finds the first row of a table whose text in a column starts with what was typed, without looking at all
// rows.
//
// Per column: the first sixteen bytes of each text as two numbers, so that most comparisons never look at a
// text; once it was built, the rows in the order of their texts, and over that order a tree of smallest rows.
// A text's rows then form one stretch, found by halving; its smallest row is found in as many steps again.
// Until the order stands, the numbers of all rows are looked through.
#pragma once

#include <cstdint>
#include <functional>
#include <limits>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace kxVsGrid::dialogs {

class PrefixIndex {
  public:
    /// Answers the text of a row (from 0).
    using Texts = std::function<std::string(std::int32_t row)>;

    /// Looks at the text of every row once, and again where sixteen bytes do not tell two texts apart.
    PrefixIndex(std::int32_t rows, Texts texts);

    /// The first row whose text starts with `prefix`, byte by byte. Rows from `stop` on need not be looked
    /// at.
    std::optional<std::int32_t> find(std::string_view prefix,
                                     std::int32_t stop = std::numeric_limits<std::int32_t>::max()) const;

    /// Works a few milliseconds at the order. False when it stands.
    bool build();
    bool built() const { return state_ == State::Built; }

  private:
    using Key = std::uint64_t;
    using Row = std::uint32_t;
    enum class State { SortingRuns, Merging, Built };

    /// A prefix as the numbers see it.
    struct Wanted {
        explicit Wanted(std::string_view prefix);
        std::string_view prefix;
        Key key;  ///< its first eight bytes, and the bits that they have of a number
        Key mask;
        Key more;  ///< its next eight bytes
        Key moreMask;
        bool exact;  ///< the numbers tell all
    };

    static Key keyOf(std::string_view text);
    bool before(Row a, Row b) const;
    bool startsWith(std::size_t row, const Wanted& wanted) const;
    int compare(Row row, const Wanted& wanted) const;
    std::optional<std::int32_t> scan(const Wanted& wanted, std::size_t stop) const;
    std::size_t firstNotBefore(const Wanted& wanted, bool after) const;
    Row smallestOf(std::size_t first, std::size_t stop) const;
    void sortRun();
    void mergeSome();
    void growTree();

    std::vector<Key> keys_;  ///< by row: the first eight bytes of the text
    std::vector<Key> more_;  ///< and the next eight
    bool zeros_ = false;     ///< some text holds zero bytes
    Texts texts_;
    State state_ = State::SortingRuns;
    std::vector<Row> order_;  ///< rows by text, then by row
    std::vector<Row> tree_;   ///< the smaller of nodes 2i and 2i+1 at i; the order itself is its last layer
    // The merge under way: two neighbouring runs of `run_` rows into `merged_`.
    std::size_t done_ = 0;  ///< rows sorted into runs; then rows merged in this round
    std::size_t run_ = 0;
    std::size_t left_ = 0;
    std::size_t right_ = 0;
    std::vector<Row> merged_;
};
}  // namespace kxVsGrid::dialogs

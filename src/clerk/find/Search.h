// The search behind a find bar: what is looked for, the present match, how many there are.
//
// It goes through the rows in stretches, one at each call of work(), from the current cell on and around the end.
// Of a stretch only the number of its matches is kept; where they are is found out again when that is asked. Whoever
// changes the grid makes the stretches that he touches unknown. The present match follows its row.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "clerk/BlockEdit.h"
#include "clerk/ClerkContext.h"
#include "clerk/find/MatchCounts.h"
#include "kxVsGrid/ChangeListener.h"
#include "kxVsGrid/Find.h"
#include "rows/FollowedRow.h"
#include "support/TextPattern.h"

namespace kxVsGrid::clerk {

class Search : private ChangeListener {
  public:
    explicit Search(const ClerkContext& context) : c_(context) {}
    ~Search() override { stopListening(); }
    Search(const Search&) = delete;
    Search& operator=(const Search&) = delete;

    const FindRule& rule() const { return rule_; }
    void rule(const FindRule& rule);
    void end();
    bool underway() const { return underway_; }
    bool work();
    void onWork(std::function<void()> listener) {
        onWork_ = std::move(listener);
        told_ = false;
    }
    FindState state() const;
    bool go(bool forward);
    bool replace(std::string_view with);
    PasteReport replaceAll(std::string_view with);
    /// The control is going: nobody is told any more.
    void silence();

    Finder face{*this};

  private:
    /// A cell whose row is followed.
    struct Place {
        Place(rows::RowFollower& follower, const FoundCell& cell) : row(follower, cell.row), col(cell.col) {}
        FoundCell cell() const { return {row.row(), col}; }
        rows::FollowedRow row;
        std::int32_t col;
    };
    /// Once around the grid, from a cell on and back to it.
    struct Round {
        Round(rows::RowFollower& follower, const FoundCell& from, bool goesForward, bool takesStart)
            : start(follower, from), forward(goesForward), inclusive(takesStart) {}
        Place start;
        bool forward;
        bool inclusive;  ///< the cell itself counts first, not last
        std::int32_t step = 0;
        std::uint64_t structure = 0;
        bool over = false;
    };

    // --- Looking (Search.cpp)
    bool matches(const FoundCell& cell) const;
    CellGrid::Tint tintOf(const FoundCell& cell) const;
    std::vector<std::int32_t> columns() const;
    std::vector<FoundCell> look(std::int32_t stretch) const;
    std::vector<FoundCell> lookAndCount(std::int32_t stretch);
    std::optional<FoundCell> advance(Round& round);
    std::optional<FoundCell> seek(Round& round);
    std::optional<FoundCell> seekFrom(const FoundCell& from, bool forward, bool inclusive);
    bool countAll();
    bool presentStands() const;
    FoundCell current() const { return {c_.grid.Row(), c_.grid.Col()}; }
    bool clerkMoved() const;
    void followClerk();
    void setPresent(const std::optional<FoundCell>& cell);
    void show(const FoundCell& cell);
    bool moveTo(const FoundCell& cell);
    bool mayReplace();
    /// What was begun under a rule goes on: the control is there, and nobody has put another rule.
    bool goesOn(std::uint64_t rules) const { return c_.host.there() && rules == rules_; }

    // --- Replacing (Replacing.cpp)
    std::string replaced(const FoundCell& cell, std::string_view with) const;
    void replaceEach(BlockEdit& edit, std::string_view with);
    bool nextToReplace(std::vector<FoundCell>& found, std::int32_t& stretch, std::int32_t last);

    // --- What changes meanwhile (SearchChanges.cpp)
    void listen();
    void stopListening();
    void changed();
    void allChanged();
    void written(std::int32_t row, std::int32_t col, CellPart part, std::string_view before,
                 std::string_view after) noexcept override;
    void added(std::int32_t at, std::int32_t count) noexcept override;
    void removing(std::int32_t at, std::int32_t count) noexcept override;
    void reordered(std::int32_t first, std::span<const std::int32_t> from) noexcept override;
    void cleared(std::int32_t first, std::int32_t last) noexcept override;
    void columnsChanged() noexcept override;
    void shown(std::int32_t col) noexcept override;

    ClerkContext c_;
    FindRule rule_;
    support::TextPattern pattern_{"", false, true};
    std::int32_t column_ = -1;  ///< that alone is searched; where the rule says so
    MatchCounts counts_;
    std::optional<Place> present_;
    bool visited_ = false;  ///< the clerk was led to the present match, or was to be
    bool wrapped_ = false;
    bool refused_ = false;
    bool gaveUp_ = false;           ///< the clerk has cancelled the last search
    std::optional<Place> base_;     ///< where the current cell was when the search last looked at it
    std::optional<Round> looking_;  ///< for the first match of a new rule
    std::function<void()> onWork_;
    std::vector<ScopedConnection> connections_;
    std::uint64_t rules_ = 0;      ///< that were put
    std::uint64_t structure_ = 0;  ///< changes of rows and columns
    std::uint64_t reorderings_ = 0;
    bool underway_ = false;
    bool listening_ = false;
    bool told_ = false;  ///< that there is something to do; nobody has worked since
};
}  // namespace kxVsGrid::clerk

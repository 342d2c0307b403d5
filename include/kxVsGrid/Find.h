// Finding texts in the data cells of a control, and replacing them: what a find bar shows, and what its keys do.
//
//     kxVsGrid::Finder& find = grid.Find();
//     find.Rule({.text = "苹果"});                      // looks from the current cell on
//     while (find.Work()) {}                            // a window does this in idle time, a bit at each turn
//     if (find.State().match) find.Next();              // the current cell goes there
//     find.ReplaceAll("梨");                            // one step that can be undone
//     find.End();                                       // the rule stays, for F3
//
// What is looked at are the displayed texts of data cells that are shown: "1,234.50" where 1234.5 is stored; neither
// tags nor check boxes. Cells are gone through row by row. Looking moves no current cell: it shows a match by
// scrolling, and tints those in view. Whoever changes cells, rows or columns meanwhile changes what is found, and
// nothing is replaced that does not match at that moment.
#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "kxVsGrid/PasteReport.h"

namespace kxVsGrid {

namespace clerk {
class Search;
}

/// What is looked for.
struct FindRule {
    std::string text;         ///< nothing is found for an empty one
    bool wholeCell = false;   ///< the text is all that the cell shows
    bool matchCase = false;   ///< else the case of ASCII letters does not count
    bool thisColumn = false;  ///< only in the column of the current cell
    friend bool operator==(const FindRule&, const FindRule&) = default;
};

struct FoundCell {
    std::int32_t row = -1;
    std::int32_t col = -1;
    friend bool operator==(const FoundCell&, const FoundCell&) = default;
};

/// What is known of a search so far.
struct FindState {
    std::optional<FoundCell> match;  ///< the present one
    std::int64_t number = 0;         ///< of the present one, from 1; 0 as long as it is not known
    std::int64_t count = 0;          ///< of the matches found so far
    bool complete = false;           ///< those are all there are
    bool wrapped = false;  ///< the way to the present match went over the end, or the start, of the grid
    bool refused = false;  ///< the host did not let the current cell go to the present match
    friend bool operator==(const FindState&, const FindState&) = default;
};

class Finder {
  public:
    explicit Finder(clerk::Search& search) : search_(search) {}
    Finder(const Finder&) = delete;
    Finder& operator=(const Finder&) = delete;

    /// What is looked for, also after End().
    const FindRule& Rule() const;
    /// Looks anew from the current cell on, and tints what is found. The same rule once more does so, too.
    void Rule(const FindRule& rule);
    /// Nothing is tinted and counted any more. The view goes back to the current cell. The rule stays.
    void End();
    /// Between Rule() and End().
    bool Underway() const;

    /// Looks through some hundreds of rows. False when nothing is left to do until something changes. What a
    /// computed text throws comes through; its rows count as done.
    bool Work();
    /// Called when there is something to do again; an empty function: nobody. It may not throw.
    void OnWork(std::function<void()> listener);
    FindState State() const;

    /// Moves the current cell to the present match, as a clerk's move; from there to the next one, behind the last
    /// one to the first. A clerk who has moved it himself goes on from where he is. False when nothing was found,
    /// the host refuses the move, or an open editor its text. What is not known yet is looked for now, with a
    /// display of how far that has come, which the clerk can cancel. So with the following ones.
    bool Next();
    /// The same backwards.
    bool Previous();
    /// Replaces what matches in the present match, as if it were typed there, and shows the next one. Where there is
    /// none it shows one. False when nothing was replaced.
    bool Replace(std::string_view with);
    /// In all cells that match, as one step. A cell that is read-only or locked is passed over; what its column
    /// does not admit is refused and marked. The report is also told by Commands::Reported.
    PasteReport ReplaceAll(std::string_view with);

  private:
    clerk::Search& search_;
};
}  // namespace kxVsGrid

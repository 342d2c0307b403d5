// One act of a clerk's that writes many cells: each of them passes the gate, all of them are one step, and a
// report tells what has become of them.
//
// Nobody is there to put a refused value right: its cell keeps what it has and gets a mark. A handler that
// fails, takes the row away or ends the control ends the act; what was written until then stands. One that the
// clerk cancels takes itself back.
#pragma once

#include <algorithm>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "clerk/ClerkContext.h"
#include "clerk/ShownCells.h"
#include "kxVsGrid/CellMark.h"
#include "kxVsGrid/PasteReport.h"
#include "support/FirstFault.h"

namespace kxVsGrid::clerk {

/// What the step of so many cells is called: 粘贴 120 格.
std::string namedFor(Command command, std::int64_t cells);

class BlockEdit {
  public:
    /// `cells` is how many there are to be written, for the display of how far it has come.
    BlockEdit(const ClerkContext& context, Command command, std::int64_t cells);
    BlockEdit(const BlockEdit&) = delete;
    BlockEdit& operator=(const BlockEdit&) = delete;

    /// Runs the work, which writes cells for as long as goesOn(), as one step. What handlers throw comes
    /// through when the step is closed and the report is whole.
    template <class Work>
    void during(std::string_view step, Work work) {
        begin(step);
        support::FirstFault fault;
        fault.during(work);
        if (fault.any()) report_.cutShort = true;
        end(fault);
        fault.raise();
    }

    /// It is no command: what has become of it is told to who asked for it alone.
    void asEntry() { entry_ = leftToClerk_ = true; }
    /// What is refused is no report's and gets no mark: the clerk is to put it right at once.
    void leaveRefusedToClerk() { leftToClerk_ = true; }
    /// Why the last value was refused that was left to the clerk.
    const std::string& reason() const { return reason_; }
    /// An editor would cut the value that was refused last.
    bool tooLong() const { return tooLong_; }
    bool goesOn() const { return !stopped_ && c_.host.there(); }
    /// visit(row) for the shown rows from one to another, for as long as the act goes on.
    template <class Visit>
    void forEachRow(std::int32_t first, std::int32_t last, Visit visit) {
        passOver(c_.grid.FilteredRows(first, std::min(last, c_.grid.Rows() - 1)));
        ShownRows rows(c_.grid, c_.rows.follower(), first, last);
        while (goesOn() && rows.next()) visit(rows.row());
        if (rows.gone()) cutShort();
    }
    /// A value as it would be typed. Nothing when the act has ended; so with the pair.
    void write(const rows::FollowedRow& row, std::int32_t col, std::string_view text);
    /// A text with its tag, as they stood in the same column: the column's rules are all that is asked.
    void writePair(const rows::FollowedRow& row, std::int32_t col, const std::string& text,
                   const std::string& tag);
    /// More is to come below the row. The last one asks the host for another one, once, as typing there does;
    /// it also asks when something is written into it.
    void askForRowBelow(const rows::FollowedRow& row);
    /// So many rows are left out, since a filter hides them.
    void passOver(std::int64_t rows) { report_.filteredRows += rows; }
    /// Values that have no cell.
    void refuseBeyond(std::int64_t cells, std::string reason);
    /// The cells have gone.
    void cutShort();

    const PasteReport& report() const { return report_; }

  private:
    void begin(std::string_view step);
    void end(support::FirstFault& fault);
    void takeBack(support::FirstFault& fault);
    void keepProblems(support::FirstFault& fault);
    bool addsRows() const {
        return report_.command != Command::Cut && report_.command != Command::ClearCells &&
               report_.command != Command::Replace;
    }
    bool mayWrite(const rows::FollowedRow& row, std::int32_t col);
    bool stillThere(const rows::FollowedRow& row, std::int32_t col);
    void same(const rows::FollowedRow& row, std::int32_t col);
    void put(const rows::FollowedRow& row, std::int32_t col, const std::string& text, const std::string& tag);
    void refuse(const rows::FollowedRow& row, std::int32_t col, std::string_view text, std::string reason);
    void list(PasteReport::Refusal refusal);
    void keepMark(std::int32_t row, std::int32_t col);
    void written(const rows::FollowedRow& row, std::int32_t col);

    ClerkContext c_;
    PasteReport report_;
    std::int64_t cells_;
    std::int64_t done_ = 0;
    RowId asked_ = RowId::None;  ///< the last row, below which the host was asked for another one
    std::size_t step_ = 0;
    bool changedBefore_ = false;
    bool stopped_ = false;
    bool leftToClerk_ = false;
    bool entry_ = false;
    bool tooLong_ = false;
    std::string reason_;
    editing::WriteGate::KnownCodes codes_;
    std::vector<changes::KeptMark> marks_;  ///< that were put (`after`), replaced or taken away
    std::size_t marked_ = 0;                ///< so many cells have got one
    std::unique_ptr<Progress> progress_;
};
}  // namespace kxVsGrid::clerk

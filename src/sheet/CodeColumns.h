// Columns of codes: what is typed is looked up, and other members follow from what is found.
//
// For each line it is known for which code its members were found: the code of the record that is kept for the row,
// but for rows whose code has changed since. What a step has found counts once the step has closed, as far as the
// cells still hold it then: a step may be taken back.
#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "kxVsGrid/ChangeListener.h"
#include "sheet/Lines.h"
#include "sheet/Saved.h"
#include "sheet/SheetContext.h"

namespace kxVsGrid::sheet {

class CodeColumns : private ChangeListener {
  public:
    struct Answer {
        CodeSource::Found found;
        std::string reason;   ///< why the code may not stand there; empty where it may
        bool failed = false;  ///< the source threw: nobody knows
    };
    /// Of a column's source, by what was asked.
    using Answers = std::map<std::pair<std::int32_t, std::string>, Answer>;

    CodeColumns(const SheetContext& context, const Lines& lines, const Saved& saved)
        : c_(context), lines_(lines), saved_(saved) {}
    /// The grid may go from now on.
    void leave();

    /// By what a column's checks and helps are told from those of others.
    static std::string basisOf(const ColumnPlan& plan);
    static std::string refusalOf(const ColumnPlan& plan);

    /// -1 for a basis of none of these columns.
    static std::int32_t columnWith(const SheetContext& context, std::string_view basis);

    /// Answers a check that is for one of these columns; nothing else.
    void check(std::string_view basis, std::string_view typed, std::string& code, std::string& name);

    /// The code of a row was typed, pasted or put; true when other members have followed.
    bool follow(std::int32_t row);
    /// The same at the end of a step, where what cannot be found gets its mark. What was written outside of steps, a
    /// draft that was recovered for instance, stands as it is.
    void settle(std::int32_t row, const StepChanges& step);
    /// A row was made a copy of another one: its members go with its code as they are.
    void copied(std::int32_t row, std::int32_t source);
    /// The row was put back.
    void undone(std::int32_t row, Answers& answers);
    /// Codes that bear a problem get the colour of their column, others lose it. Colours are not undone: every
    /// step, and every way back, leaves its rows as they are to look then.
    void paint(std::int32_t row) const;
    bool paints() const;
    /// Looks again for what could not be found, and has members follow from it.
    void retry(Answers& answers);
    /// Why the code may not stand in the cell.
    std::string reason(std::int32_t row, std::int32_t column, const std::string& text,
                       Answers& answers) const;
    /// Other lines were loaded.
    void forget();

  private:
    struct Cell {
        RowId row;
        std::int32_t column;
        friend bool operator<(const Cell& one, const Cell& other) {
            return std::pair(one.row, one.column) < std::pair(other.row, other.column);
        }
    };
    /// What could not be found, as it was asked.
    struct Missed {
        std::string text;
        std::string reason;
    };

    void stepClosed(std::string_view name, Cause cause) noexcept override;
    bool hearsFilled() const noexcept override { return true; }
    void untilStepCloses();

    Answer lookUp(std::int32_t column, const std::string& text) const;
    const Answer& lookUp(std::int32_t column, const std::string& text, Answers& answers) const;
    using Written = std::function<bool(std::int32_t column)>;

    bool followLine(RowId row, const Written& written, bool marks);
    bool followCell(const Cell& cell, bool written, bool marks);
    bool stands(const Cell& cell, const std::string& text, bool written);
    bool clear(const Cell& cell);
    std::string apply(const Cell& cell, const std::string& text, const CodeSource::Found& found);
    void write(RowId row, const void* before, const void* after, const void* then);
    void writeTag(const Cell& cell, const std::string& tag);
    void noteFound(const Cell& cell, const std::string& code);
    std::string foundFor(const Cell& cell) const;
    void miss(const Cell& cell, const std::string& text, const std::string& reason, bool marks);
    void putBackMissed(const Cell& cell, const std::string& text, const std::string& reason);
    void mark(const Cell& cell, const std::string& reason);
    std::string reasonOnceMore(const Cell& cell, const std::string& text, Answers& answers) const;
    void settleMissed(const Cell& cell);
    std::string textOf(const Cell& cell) const;
    /// -1 when there is nothing to be done there any more.
    std::int32_t rowOf(const Cell& cell) const { return c_.rowOf(cell.row); }

    const SheetContext& c_;
    const Lines& lines_;
    const Saved& saved_;
    std::map<Cell, std::string> found_;  ///< the codes for which members were found
    std::map<Cell, Missed> missed_;      ///< cells with a code that could not be found; each bears a mark
    std::map<std::pair<Cell, std::string>, KeptRecord>
        doubtful_;            ///< what was missed once, and its lines then
    std::set<Cell> waiting_;  ///< preset codes of rows that are no lines yet
    // Of the step that is open:
    Answers answers_;
    std::map<Cell, std::string> following_;
    std::set<RowId> copies_;
    bool listening_ = false;
};
}  // namespace kxVsGrid::sheet

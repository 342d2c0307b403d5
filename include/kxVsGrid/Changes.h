// Steps of changes, and the way back: what a clerk has done is undone and redone act by act.
//
//     {
//         auto step = grid.Step("套用价格");  // until the end of the block all writes are one step
//         for (std::int32_t row = 1; row < grid.Rows(); ++row) grid.SetCell(row, 2, "9.5");
//     }
//     grid.History().Undo();  // the prices of before, with everything that followed them
//
// Each act of the clerk is a step with a name: a commit with all that the host writes while it hears of it, a
// toggled cell, a row command, a fill, a move with the default texts that it fills. A step begun inside
// another one joins it. What is written outside of steps joins the newest one; while there is none it is not
// kept.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "kxVsGrid/ChangeListener.h"
#include "kxVsGrid/Event.h"
#include "kxVsGrid/RowId.h"

namespace kxVsGrid {

namespace changes {
class Steps;
}

/// A step that a host has begun; it ends with this.
class ChangeStep {
  public:
    explicit ChangeStep(std::shared_ptr<changes::Steps> steps, std::string_view name);
    /// What a listener throws as the step ends is lost here: close() lets it through.
    ~ChangeStep();
    ChangeStep(const ChangeStep&) = delete;
    ChangeStep& operator=(const ChangeStep&) = delete;

    /// Ends the step now. Once is enough.
    void close();
    /// Undoes what was written since the step began, also where the history is off, and forgets what was
    /// undone before. The step goes on. False, and nothing has changed, when it could not be kept in memory,
    /// has ended, or is being taken back or undone already.
    bool takeBack();

  private:
    std::shared_ptr<changes::Steps> steps_;  ///< none when it has ended
    std::size_t mark_ = 0;
};

/// While it lives, writes are neither kept in the history nor do they end what can be redone.
class UnrecordedSpan {
  public:
    explicit UnrecordedSpan(std::shared_ptr<changes::Steps> steps);
    ~UnrecordedSpan();
    UnrecordedSpan(const UnrecordedSpan&) = delete;
    UnrecordedSpan& operator=(const UnrecordedSpan&) = delete;

  private:
    std::shared_ptr<changes::Steps> steps_;
};

class History {
  public:
    explicit History(changes::Steps& steps) : steps_(steps) {}

    /// Undoes the newest step that stands: texts and tags of its cells, and the rows that it added or
    /// removed, with their heights, hidden and merged states, colours and alignments; the marks that a pasted or
    /// filled block has left go, where they stand as it put them. Raises CellChanged as
    /// any write does, asks nobody's consent, makes all totals anew, and moves the current cell to what has
    /// changed without filling default texts. Rows are found wherever they are now; those that have gone are
    /// passed over. What handlers write meanwhile stands, except in cells that are restored.
    /// An open editor is committed first, a refused expression dropped. False, and nothing is done, while
    /// CanUndo() is False, and when the editor's text is refused by a check. What a handler throws comes
    /// through when all is done. Where memory ends in the middle of it the grid stays as far as it came, and
    /// the history is empty (Forgot).
    bool Undo();
    bool Redo();
    /// False on a grid that is not Editable, and while a step is open.
    bool CanUndo() const;
    /// The same; also False over a text that is being typed.
    bool CanRedo() const;
    /// The step's name, for menus; empty when there is none.
    std::string UndoName() const;
    std::string RedoName() const;

    /// So many bytes are kept at most; the oldest steps go, whole. 64 MiB at first.
    std::size_t Limit() const;
    void Limit(std::size_t bytes);
    /// False keeps nothing, and forgets what there is. True at first.
    bool Enabled() const;
    void Enabled(bool enabled);
    /// Nothing can be undone or redone any more: another document. Inside a step, the rest of the step is not
    /// kept either. Clear, ReadProperties and another number of columns do it too.
    void Forget();
    /// A step could not be kept in memory. It stands, and so does all before it: the history is empty.
    Event<> Forgot;

  private:
    changes::Steps& steps_;
};

/// What a step has changed.
struct StepChanges {
    std::string_view name;
    Cause cause;
    std::span<const std::int32_t> rows;  ///< that were added or written to, as they stand now; ascending
    std::span<const std::int32_t> cols;  ///< of the cells that were written; ascending
    bool known;                          ///< False: more than could be kept; anything may have changed
    /// Where rows have changed places: for each row of the grid, fixed ones too, the row that it was before the
    /// step, -1 for one that was added. A host with an array beside the grid makes its new one by it. Empty where
    /// rows have kept their order; RowMoved tells of those that came and went.
    std::span<const std::int32_t> from;
};

/// A cell's text, or its tag, that is another one than when the grid was saved.
struct ChangedCell {
    std::int32_t col;
    CellPart part;
    std::string before;  ///< as saved
};

struct ChangedRow {
    RowId row;
    std::vector<ChangedCell> cells;  ///< by column, a text before its tag
};

struct RemovedCell {
    std::int32_t col;
    std::string text;  ///< both as saved
    std::string tag;
};

struct RemovedRow {
    RowId row;
    std::vector<RemovedCell> cells;  ///< those that held a text or a tag, by column
};

/// What has become of a grid: step by step, and since it was saved.
///
///     load(grid);
///     grid.Changes().Saved();  // the log begins
///     ...
///     for (const RowId row : grid.Changes().Added()) insertLine(grid.Grid().RowOf(row));
///     for (const ChangedRow& row : grid.Changes().Changed()) updateLine(row);
///     for (const RemovedRow& row : grid.Changes().Removed()) deleteLine(row);
///     grid.Changes().Saved();
///
/// A line is a data row, below FixedRows, that holds a text or a tag: one that holds nothing is none, whether
/// its row is there or not. So a row that was empty and now holds something is an added line, and one whose
/// cells have all been emptied a removed one. Values are compared: what was written back to what it was has
/// not changed, and undoing all brings the log back to nothing. Where a row stands does not matter. What is
/// computed, row numbers too, is no data, and neither is what an open editor holds.
class Changes {
  public:
    explicit Changes(changes::Steps& steps) : steps_(steps) {}

    /// A step that changed something is done.
    Event<const StepChanges&> After;

    using Settler = std::function<void(const StepChanges&)>;
    /// Called before a step that changed something ends, in the order in which they were added, to bring the
    /// cells in order that depend on others: what a settler writes belongs to the step, and is not settled
    /// again. Not called for a step that was undone, redone or taken back. For as long as the grid lives.
    void AddSettler(Settler settler);

    // --- What is to be saved. A write costs a few steps more from the first Saved() on. Asking takes a time
    // that grows with the rows that were written to since the grid was saved.

    /// What is there now counts as saved. The log is kept from the first call on.
    void Saved();
    /// Nothing is kept any more, and writes cost nothing, until Saved(): for who is about to put another content in
    /// place of this one. Unknown() until then.
    void Forget();
    /// There is nothing to save: no line was added, changed or removed. False while Unknown(). Asked again and
    /// again it looks at no more than has changed meanwhile, as a rule.
    bool empty() const;
    /// What has changed cannot be told, until Saved(): save everything. So before the first Saved(), after
    /// Forget(), when memory did not suffice, when columns have gone, and when other rows have become headings. The
    /// lists are empty then.
    bool Unknown() const;
    /// Lines that were none, as the rows stand now.
    std::vector<RowId> Added() const;
    /// Lines that were and are, with other contents, as the rows stand now.
    std::vector<ChangedRow> Changed() const;
    /// Lines that are none any more, with all that they held; by row id. Their rows may still be there, empty.
    std::vector<RemovedRow> Removed() const;

  private:
    changes::Steps& steps_;
};
}  // namespace kxVsGrid

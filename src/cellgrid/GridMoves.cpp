// The current cell and its moves.
//
// Listeners may do anything meanwhile. A listener that moves the current cell itself completes its own move
// first, with all its events. Before the current cell has changed that replaces the move under way;
// afterwards the outer move goes on to tell of itself. Rows that a listener inserts or removes carry the
// target along; a target that vanishes ends the move. A listener that throws ends the move at that step.
#include <algorithm>

#include "cellgrid/GridImpl.h"
#include "support/Reordering.h"

namespace kxVsGrid {

namespace {
/// Makes a move the innermost one for as long as its events are raised.
template <class Move>
class MoveSpan {
  public:
    MoveSpan(Move*& innermost, Move& move) : innermost_(innermost) {
        move.outer = innermost;
        innermost = &move;
    }
    ~MoveSpan() { innermost_ = innermost_->outer; }
    MoveSpan(const MoveSpan&) = delete;
    MoveSpan& operator=(const MoveSpan&) = delete;

  private:
    Move*& innermost_;
};
}  // namespace

/// Answers whether the current cell became the one asked for, or was it already.
bool CellGrid::Impl::move(std::int32_t newRow, std::int32_t newCol) {
    if (newRow == currentRow && newCol == currentCol) return true;
    Move move{currentRow, currentCol, newRow, newCol, nullptr};
    const MoveSpan span(moving, move);
    const std::uint64_t asked = movesAsked;
    const auto stale = [&] { return movesAsked != asked || targetGone(move); };
    bool cancel = false;
    tell(&CellGrid::BeforeRowColChange, move.oldRow, move.oldCol, move.newRow, move.newCol, cancel);
    if (cancel || stale()) return false;
    tell(&CellGrid::LeaveCell);
    if (stale()) return false;

    move.oldRow = currentRow;
    move.oldCol = currentCol;
    selecting.reset();
    putSelection({});
    damageCursor();
    currentRow = move.newRow;
    currentCol = move.newCol;
    ++movesAsked;
    damageCursor();
    announce(move);
    return true;
}

/// A move that nobody is asked about, after its cell is gone.
void CellGrid::Impl::announceForcedMove(std::int32_t oldRow, std::int32_t oldCol) {
    Move move{oldRow, oldCol, currentRow, currentCol, nullptr};
    const MoveSpan span(moving, move);
    announce(move);
}

/// The events of a move that is done, as long as the cell that it went to is there.
void CellGrid::Impl::announce(const Move& move) {
    tell(&CellGrid::EnterCell);
    if (targetGone(move)) return;
    tell(&CellGrid::RowColChange);
    if (targetGone(move)) return;
    tell(&CellGrid::AfterRowColChange, move.oldRow, move.oldCol, move.newRow, move.newCol);
    if (targetGone(move)) return;
    tell(&CellGrid::SelChange);
}

void CellGrid::Impl::rowsInserted(std::int32_t position, std::int32_t n) {
    if (currentRow >= position) currentRow += n;
    if (selection.any && selection.hasRowEnds()) selection.rows.inserted(position, n);
    for (Move* m = moving; m; m = m->outer) {
        if (m->oldRow >= position) m->oldRow += n;
        if (m->newRow >= position) m->newRow += n;
    }
}

/// A selection goes on to begin at the current cell, or ends.
void CellGrid::Impl::rowRemoved(std::int32_t position) {
    const bool fromCursor = selectedFromCursor();
    if (currentRow > position || currentRow == rows()) --currentRow;
    if (selection.any && selection.hasRowEnds() && !selection.rows.removed(position)) selection = {};
    if (fromCursor && !selectedFromCursor()) selection = {};
    tidySelection();
    for (Move* m = moving; m; m = m->outer) {
        if (m->oldRow > position || m->oldRow == rows()) --m->oldRow;
        if (m->newRow == position)
            m->newRow = -1;
        else if (m->newRow > position)
            --m->newRow;
    }
}

void CellGrid::Impl::rowsReordered(std::int32_t first, std::span<const std::int32_t> from) {
    const auto follow = [&](std::int32_t& row) { row = support::placeAfter(row, first, from); };
    follow(currentRow);
    for (Move* m = moving; m; m = m->outer) {
        follow(m->oldRow);
        follow(m->newRow);
    }
    if (!selection.any || !selection.hasRowEnds()) return;
    // a block that went somewhere else as it is stays selected; of scattered rows nothing would be told
    const std::int32_t rows = selection.rows.high() - selection.rows.low();
    follow(selection.rows.anchor);
    follow(selection.rows.corner);
    if (selection.rows.high() - selection.rows.low() != rows) selection = {};
}
}  // namespace kxVsGrid

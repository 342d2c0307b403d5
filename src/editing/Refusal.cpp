// A text that was refused: how it stays in the editor, and what an expression has emptied comes back.
#include <limits>

#include "editing/EditSession.h"
#include "editing/ExpressionTip.h"
#include "support/Text.h"

namespace kxVsGrid::editing {

/// The text stays, all of it selected, and is not checked again until it has changed. A host that closed the
/// editor meanwhile has taken the text away; what the hidden editor mirrors now was not refused.
void EditSession::refuse(const MessageBox& message) {
    c_.showMessage(message);
    if (visible()) {
        setText(support::withoutLineBreaks(box_.text()));
        if (validLock_ < std::numeric_limits<std::int16_t>::max()) ++validLock_;
        state_ = State::Refused;
        box_.selectAll();
        publish();
    }
    giveKeyboard();
}

/// The cell is emptied; the clerk is told where the expression goes wrong.
void EditSession::refuseExpression() {
    const std::int32_t row = c_.grid.Row();
    const std::int32_t col = c_.grid.Col();
    tip_ = expressionTip(box_.text(), c_.grid.ColGroups(col));
    box_.caretToEnd();
    state_ = State::Refused;
    if (!c_.grid.Text(row, col).empty()) emptied_.emplace().capture(c_.grid, row, col);
    c_.grid.Text(row, col, "");
    publish();
}

/// A text that a host has written there since stays. What followed from the empty cell follows from the number
/// again: both belong to the act that emptied it.
void EditSession::giveBack(const EnteredCell& emptied) {
    const FollowedCell cell(c_.grid);
    if (!c_.grid.Text(cell.row(), cell.col()).empty()) return;
    c_.steps.resumeNewest();
    c_.steps.duringTyped("录入", Cause::Typed, [&] {
        c_.grid.Text(cell.row(), cell.col(), emptied.entryText());
        if (cell.there()) c_.grid.Data(cell.row(), cell.col(), emptied.entryTag());
        if (cell.there()) c_.owner.recalculate(cell.col());
    });
}
}  // namespace kxVsGrid::editing

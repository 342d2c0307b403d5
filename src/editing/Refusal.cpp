// A text that was refused: how the clerk is told, how it stays in the editor, and what an expression has emptied
// comes back.
#include <limits>

#include "editing/BringIntoView.h"
#include "editing/EditSession.h"
#include "editing/ExpressionTip.h"
#include "support/Text.h"

namespace kxVsGrid::editing {

bool EditSession::tellsBeside() const {
    return c_.options.Refusals() == GridOptions::RefusalStyle::Beside;
}

/// Beside a cell over which no editor stands, which may be gone.
void EditSession::tellAt(const FollowedCell& cell, std::string_view text) {
    if (!c_.host.there()) return;
    const Rect place = cell.there() ? c_.grid.CellRect(cell.row(), cell.col()) : Rect{};
    c_.platform.showTip(text, c_.owner.onScreen(place));
}

/// What is told of the current cell is not told of one that the clerk cannot see.
void EditSession::tellOfCurrent(const MessageBox& message) {
    if (!tellsBeside()) return c_.showMessage(message);
    if (visible() && !committing_) {  // a commit under way hides the editor, and the tip with it
        tip_ = message.text;
        publish();
        return;
    }
    const FollowedCell cell(c_.grid);
    if (!visible()) bringCurrentCellIntoView(c_.grid);
    tellAt(cell, message.text);
}

/// The text stays, all of it selected, and is not checked again until it has changed. A host that closed the
/// editor meanwhile has taken the text away; what the hidden editor mirrors now was not refused.
void EditSession::refuse(const MessageBox& message, const FollowedCell& cell) {
    const bool beside = tellsBeside();
    if (!beside) c_.showMessage(message);
    if (beside && !visible()) tellAt(cell, message.text);
    if (visible()) {
        setText(support::withoutLineBreaks(box_.text()));
        if (beside) tip_ = message.text;
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
    tip_ = expressionTip(box_.text(), numberForms(c_.grid, col));
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

// How what was typed becomes the cell's, checked and whole, or stays in the editor.
#include "editing/EditSession.h"
#include "editing/EmptyRule.h"
#include "support/FlagSpan.h"
#include "support/Text.h"

namespace kxVsGrid::editing {

using support::FlagSpan;

/// The keyboard of a hidden editor goes to the grid, also when a handler has thrown.
bool EditSession::commit() {
    if (committing_) return false;
    if (!c_.editable()) {
        if (refused()) return false;
        drop();
        return true;
    }
    settleSuggestions();
    try {
        const bool done = attempt();
        handKeyboardOver();
        return done;
    } catch (...) {
        handKeyboardOver();
        throw;
    }
}

void EditSession::handKeyboardOver() {
    if (state_ == State::Hidden) c_.owner.editorHidden();
}

/// What the host does in the check belongs to the step; the box that a refusal shows stands after it.
bool EditSession::attempt() {
    FlagSpan committing(committing_);
    std::optional<MessageBox> refusal;
    bool done = false;
    c_.steps.duringTyped("录入", chosen_ ? Cause::Help : Cause::Typed,
                         [&] { done = attemptInStep(refusal); });
    if (refusal) refuse(*refusal);
    return done;
}

bool EditSession::attemptInStep(std::optional<MessageBox>& refusal) {
    if (!passesCheck(refusal)) return false;
    const FollowedCell cell(c_.grid);
    const std::optional<std::string> text = gate_.stored(cell.col(), box_.text());
    if (!text) {
        refuseExpression();
        return false;
    }
    write(cell, *text);
    c_.owner.recalculate(-1);
    if (cell.there()) tellAfterEdit(cell);
    hide();
    return true;
}

/// What is told of a broken rule.
MessageBox EditSession::boxOf(const std::string& reason) {
    return {reason, MessageBox::Information, "提示："};
}

/// A host that went elsewhere while it was asked has closed the editor, which cannot open again before the
/// commit ends: there is nothing left to write.
bool EditSession::passesCheck(std::optional<MessageBox>& refusal) {
    const auto broken =
        gate_.brokenRuleOfTyped(c_.grid.Row(), c_.grid.Col(), std::string(box_.text()), entered_.entryText());
    if (broken) refusal = boxOf(*broken);
    if (refusal || !visible()) return false;
    const FieldVerdict verdict = gate_.check(c_.grid.Col(), std::string(box_.text()), entered_.entryText());
    refusal = verdict.refusal;
    if (refusal || !visible()) return false;
    if (verdict.rewritten) {
        const auto repeated = gate_.brokenByRewriting(c_.grid.Row(), c_.grid.Col(), verdict.rewritten->text);
        if (repeated) refusal = boxOf(*repeated);
        if (refusal) return false;
        setText(verdict.rewritten->text);
        setTag(verdict.rewritten->tag);
    }
    return true;
}

/// Text and tag stay one pair: where a handler throws as it hears of the text, the tag is stored all the
/// same, and what stands in the cell then is what the next commit starts from.
void EditSession::write(const FollowedCell& cell, const std::string& text) {
    const std::string tag = box_.tag();
    try {
        writePair(cell, text, tag);
    } catch (...) {
        if (cell.there() && c_.grid.Text(cell.row(), cell.col()) == text) {
            c_.grid.RestoreData(cell.row(), cell.col(), tag);
            written(cell);
        }
        throw;
    }
    written(cell);
}

/// A host that takes the cell away as it hears of the text leaves none for the tag. One that goes elsewhere
/// has the editor mirror another cell: the tag of the edited one is the tag of before. One that writes
/// another pair there means that.
void EditSession::writePair(const FollowedCell& cell, const std::string& text, const std::string& tag) {
    CellGrid& grid = c_.grid;
    const std::string tagBefore = grid.Data(cell.row(), cell.col());
    grid.Text(cell.row(), cell.col(), text);
    if (!cell.there()) return;
    const bool replaced =
        grid.Text(cell.row(), cell.col()) != text && grid.Data(cell.row(), cell.col()) != tagBefore;
    const bool stillEdited = visible() && cell.isCurrent();
    if (!replaced) grid.Data(cell.row(), cell.col(), stillEdited ? std::string(box_.tag()) : tag);
}

void EditSession::written(const FollowedCell& cell) {
    if (cell.isCurrent()) entered_.capture(c_.grid, cell.row(), cell.col());
    c_.owner.clerkWrote(cell.row(), cell.col());
}

void EditSession::tellAfterEdit(const FollowedCell& cell) {
    c_.host.raise(&GridEvents::AfterEdit, cell.row(), cell.col());
    if (cell.there() && !support::trim(c_.grid.Text(cell.row(), cell.col())).empty())
        c_.owner.appendIfLast(cell.row());
}

bool EditSession::commitOrStay() {
    if (state_ == State::Hidden || commit()) return true;
    if (visible()) giveKeyboard();
    return false;
}

void EditSession::commitUnlessLocked() {
    if (visible() && !locked() && !committing_) commit();
}

/// A hidden editor mirrors the current cell: there is nothing to write.
bool EditSession::validate() {
    if (c_.grid.Col() < 0) return true;
    if (!passesRule()) return false;
    return !visible() || committing_ || commit();
}

bool EditSession::passesRule() {
    const std::shared_ptr<cVsControl> column = c_.columns.shared(c_.grid.Col());
    const std::string message = brokenRule(*column, box().tag());
    if (message.empty()) return true;
    c_.showMessage({message, MessageBox::Information, "提示："});
    giveKeyboard();
    return false;
}
}  // namespace kxVsGrid::editing

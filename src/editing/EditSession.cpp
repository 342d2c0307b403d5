#include "editing/EditSession.h"

#include <limits>
#include <utility>

#include "editing/BringIntoView.h"
#include "editing/EditorKeys.h"
#include "editing/EmptyRule.h"
#include "editing/ExpressionTip.h"
#include "editing/HelpDriver.h"
#include "support/FlagSpan.h"
#include "support/Text.h"

namespace kxVsGrid::editing {

using support::FlagSpan;

EditSession::EditSession(const EditingContext& context) : c_(context), gate_(context), face_(context) {}

void EditSession::setText(std::string_view text) {
    mirror();
    if (box_.setText(text)) textChanged();
    publish();
}

void EditSession::setTag(std::string_view tag) {
    mirror();
    box_.setTag(tag);
}

/// Every change re-arms the check, whoever made it.
void EditSession::textChanged() {
    validLock_ = 0;
    chosen_ = false;
    tip_.clear();
    if (state_ == State::Refused) state_ = State::Open;
}

bool EditSession::unchanged() const {
    return visible() && box_.text() == c_.grid.Text(c_.grid.Row(), c_.grid.Col()) &&
           box_.tag() == c_.grid.Data(c_.grid.Row(), c_.grid.Col());
}

// --- Opening

void EditSession::open(Focus focus) {
    if (committing_ || !opensHere()) return;
    if (state_ != State::Hidden) {
        if (focus == Focus::Take) c_.seat.giveFocus(FocusPlace::Editor);
        return;
    }
    if (c_.columns.at(c_.grid.Col()).iType() == flexDTBoolean) return toggle();
    c_.host.raise(&GridEvents::BeforeTextEdit);
    if (opensHere()) show(focus);  // the host may have changed anything meanwhile
}

void EditSession::show(Focus focus) {
    if (!editedCellIsCurrent()) entered_.capture(c_.grid, c_.grid.Row(), c_.grid.Col());
    bringCurrentCellIntoView(c_.grid);
    load();
    box_.selectAll();
    tip_.clear();
    validLock_ = 0;
    chosen_ = false;
    typedInto_ = false;
    opened_ = box_.text();
    state_ = State::Open;
    face_.begin();
    publish();
    if (focus == Focus::Take) c_.seat.giveFocus(FocusPlace::Editor);
}

/// A Boolean cell has no editor: opening it writes the opposite truth value.
void EditSession::toggle() {
    const std::int32_t row = c_.grid.Row();
    const std::int32_t col = c_.grid.Col();
    c_.steps.duringTyped("勾选", Cause::Typed, [&] {
        c_.grid.Text(row, col, gate_.turnedOver(row, col));
        c_.owner.clerkWrote(row, col);
        c_.owner.recalculate(col);
        load();
        c_.host.raise(&GridEvents::AfterEdit, row, col);
    });
}

void EditSession::hide() {
    if (state_ == State::Hidden) return;
    state_ = State::Hidden;
    tip_.clear();
    validLock_ = 0;
    emptied_.reset();
    mirrored_.forget();
    c_.steps.dropPrelude();
    publish();
    if (!committing_) c_.owner.editorHidden();  // else at its end
}

void EditSession::drop() {
    hide();
    load();
}

void EditSession::giveUp() {
    std::optional<EnteredCell> emptied;
    if (c_.options.EscRestores() && editedCellIsCurrent()) emptied = std::exchange(emptied_, std::nullopt);
    hide();
    if (emptied && editedCellIsCurrent()) giveBack(*emptied);
    load();
}

/// A text that a host has written there since stays.
void EditSession::giveBack(const EnteredCell& emptied) {
    const FollowedCell cell(c_.grid);
    if (!c_.grid.Text(cell.row(), cell.col()).empty()) return;
    c_.grid.Text(cell.row(), cell.col(), emptied.entryText());
    if (cell.there()) c_.grid.Data(cell.row(), cell.col(), emptied.entryTag());
    if (cell.there()) c_.owner.recalculate(cell.col());
}

void EditSession::giveKeyboard() {
    c_.seat.giveFocus(visible() ? FocusPlace::Editor : FocusPlace::Grid);
}

// --- Commit

/// The keyboard of a hidden editor goes to the grid, also when a handler has thrown.
bool EditSession::commit() {
    if (committing_) return false;
    if (!c_.editable()) {
        if (refused()) return false;
        drop();
        return true;
    }
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

bool EditSession::passesCheck(std::optional<MessageBox>& refusal) {
    const FieldVerdict verdict = gate_.check(c_.grid.Col(), std::string(box_.text()), entered_.entryText());
    refusal = verdict.refusal;
    if (refusal) return false;
    // A host that went elsewhere while it was asked has closed the editor, which cannot open again before the
    // commit ends: there is nothing left to write.
    if (!visible()) return false;
    if (verdict.rewritten) {
        setText(verdict.rewritten->text);
        setTag(verdict.rewritten->tag);
    }
    return true;
}

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

// --- The grid reports

void EditSession::enterCell() {
    hide();  // still shown over a refused text when code moved the cell
    c_.steps.dropPrelude();
    if (c_.grid.Row() < 0 || c_.grid.Col() < 0) return;
    if (!editedCellIsCurrent()) entered_.capture(c_.grid, c_.grid.Row(), c_.grid.Col());
    load();
}

void EditSession::leaveCell() {
    if (state_ != State::Hidden && !committing_) commit();
}

/// Loads the current cell into the hidden editor.
void EditSession::load() {
    if (c_.grid.Row() < 0 || c_.grid.Col() < 0) return;
    mirrored_.take(c_.grid);
    box_.setTag(mirrored_.tag());
    if (box_.setText(mirrored_.text())) textChanged();
}

/// Has the hidden editor follow what was written into the current cell since it was loaded.
void EditSession::mirror() {
    if (state_ != State::Hidden || c_.grid.Row() < 0 || c_.grid.Col() < 0 || mirrored_.holds(c_.grid)) return;
    load();
}

void EditSession::captureAndLoad() {
    if (c_.grid.Row() < 0 || c_.grid.Col() < 0) return;
    entered_.capture(c_.grid, c_.grid.Row(), c_.grid.Col());
    if (state_ == State::Hidden) load();
}

void EditSession::rowInserted(std::int32_t position) {
    entered_.rowInserted(position);
    place();
}

void EditSession::rowRemoved(std::int32_t position) {
    entered_.rowRemoved(position);
    place();
}

void EditSession::place() {
    if (state_ == State::Hidden) return;
    if (!editedCellIsCurrent())
        hide();  // the cell is gone
    else if (overUnseenCell())
        leaveUnseenCell();
    else
        publish();
}

void EditSession::placesChanged() {
    if (state_ == State::Hidden) return;
    if (!editedCellIsCurrent() || overUnseenCell() || face_.misplaced()) place();
}

/// Hidden, or of no width or height: the clerk would type blind.
bool EditSession::overUnseenCell() const {
    const CellGrid& grid = c_.grid;
    if (!visible()) return false;
    const Rect cell = grid.CellRect(grid.Row(), grid.Col());
    return grid.ColHidden(grid.Col()) || grid.RowHidden(grid.Row()) || cell.width <= 0 || cell.height <= 0;
}

/// A commit under way ends as it would anywhere else.
void EditSession::leaveUnseenCell() {
    if (committing_) return;
    if (state_ != State::Refused) commit();
    if (overUnseenCell()) drop();
}

/// Shows the machine what has changed.
void EditSession::publish() {
    visible() ? face_.show(box_, state_ == State::Refused, tip_) : face_.hide();
}

// --- The clerk

bool EditSession::keyDown(std::int16_t code) {
    return EditorKeys(*this, c_).keyDown(static_cast<Key>(code));
}

/// The text box shall neither beep nor replace a selected text when Enter arrives as a character.
bool EditSession::keyPress(std::int16_t ascii) const {
    return ascii == 13 && !box_.text().empty() && box_.selLength() == box_.length();
}

void EditSession::edited(std::string_view text, std::size_t selStart, std::size_t selLength) {
    if (state_ == State::Hidden) return;
    const bool wasRefused = face_.view().refused;
    const bool changed = box_.setText(text);
    box_.select(selStart, selLength);
    face_.follow(box_);
    if (!changed) return;
    typedInto_ = true;
    textChanged();
    if (wasRefused || face_.buttonInTheWay()) publish();
}

void EditSession::selected(std::size_t selStart, std::size_t selLength) {
    if (state_ == State::Hidden) return;
    box_.select(selStart, selLength);
    face_.follow(box_);
}

void EditSession::focusLost() {
    commitUnlessLocked();
    if (tip_.empty()) return;
    tip_.clear();
    publish();
}

void EditSession::help() {
    if (!visible()) return;
    const FollowedCell cell(c_.grid);
    const std::shared_ptr<cVsControl> column = c_.columns.shared(cell.col());
    {
        HelpDriver driver(c_, *column, c_.grid.CellRect(cell.row(), cell.col()));
        driver.Drbmhelp(column->i帮助类型(), std::string(support::trim(box_.text())),
                        std::string(support::trim(column->sHelp_Code())));
        // A host that wrote or read cells meanwhile has committed the editor: what was chosen is not lost.
        if (!HelpExchange::shared().ReturnCode.empty() && cell.isCurrent()) takeChosen(*column);
    }
    giveKeyboard();
}

/// Puts the chosen pair into the editor. Which half of it shows is the column's choice, as with a typed code.
void EditSession::takeChosen(const cVsControl& column) {
    if (!visible() && opensHere()) show(Focus::LeaveWithGrid);
    if (!visible()) return;
    const HelpExchange chosen = HelpExchange::shared();
    const bool showsName = column.i帮助返回值显示类型() == iText记Name;
    setText(showsName ? chosen.ReturnName : chosen.ReturnCode);
    setTag(showsName ? chosen.ReturnCode : chosen.ReturnName);
    box_.selectAll();  // as when the editor opens: Enter takes it, typing replaces it
    publish();
    chosen_ = true;
}
}  // namespace kxVsGrid::editing

#include "editing/EditSession.h"

#include <utility>

#include "editing/BringIntoView.h"
#include "editing/EditorKeys.h"
#include "editing/HelpDriver.h"
#include "support/PlainSigns.h"
#include "support/Text.h"

namespace kxVsGrid::editing {

EditSession::EditSession(const EditingContext& context) : c_(context), gate_(context), face_(context) {}

void EditSession::setText(std::string_view text) {
    mirror();
    if (box_.setText(text)) {
        textChanged();
        suggestions_.close();
    }
    publish();
}

void EditSession::setTag(std::string_view tag) {
    mirror();
    tagOfTyped_.reset();
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

bool EditSession::opensHere() const {
    const std::int32_t row = c_.grid.Row();
    return row >= 0 && !c_.grid.RowFiltered(row) && gate_.opens(row, c_.grid.Col());
}

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
    tagOfTyped_.reset();
    opened_ = box_.text();
    state_ = State::Open;
    suggestions_.begin();
    face_.begin();
    publish();
    if (focus == Focus::Take) c_.seat.giveFocus(FocusPlace::Editor);
}

/// The rules of the column judge what the cell would become. A host that is asked may go elsewhere.
bool EditSession::mayToggle() {
    const std::int32_t row = c_.grid.Row();
    const std::int32_t col = c_.grid.Col();
    if (!c_.columns.rules(col)) return true;
    const FollowedCell cell(c_.grid);
    if (const auto broken = gate_.brokenRule(row, col, gate_.turnedOver(row, col))) {
        tellOfCurrent(boxOf(*broken));
        giveKeyboard();
        return false;
    }
    return cell.isCurrent() && opensHere() && c_.columns.at(cell.col()).iType() == flexDTBoolean;
}

/// A Boolean cell has no editor: opening it writes the opposite truth value.
void EditSession::toggle() {
    if (!mayToggle()) return;
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
    suggestions_.close();
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

void EditSession::giveKeyboard() {
    c_.seat.giveFocus(visible() ? FocusPlace::Editor : FocusPlace::Grid);
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

void EditSession::rowsReordered(std::int32_t first, std::span<const std::int32_t> from) {
    entered_.rowsReordered(first, from);
    if (emptied_) emptied_->rowsReordered(first, from);
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
    return grid.ColHidden(grid.Col()) || !grid.RowShown(grid.Row()) || cell.width <= 0 || cell.height <= 0;
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

/// What the clerk's text means in a column of numbers or dates.
std::string EditSession::asTaken(std::string_view text) const {
    return face_.view().plainSigns ? support::inPlainSigns(text) : std::string(text);
}

void EditSession::edited(std::string_view text, std::size_t selStart, std::size_t selLength) {
    if (state_ == State::Hidden) return;
    const bool wasTold = face_.view().refused || !face_.view().tip.empty();
    const std::string plain = asTaken(text);
    const bool shownOtherwise = plain != text;
    const bool changed = box_.setText(plain);
    box_.select(selStart, selLength);
    face_.follow(box_);
    if (changed) {
        typedInto_ = true;
        if (tagOfTyped_) box_.setTag(*std::exchange(tagOfTyped_, std::nullopt));
        textChanged();
    }
    if (shownOtherwise || (changed && (wasTold || face_.buttonInTheWay()))) publish();
    if (!changed) return;
    askForSuggestions();
}

void EditSession::selected(std::size_t selStart, std::size_t selLength) {
    if (state_ == State::Hidden) return;
    box_.select(selStart, selLength);
    face_.follow(box_);
}

/// A text that was refused beside the editor keeps its reason, wherever the keyboard is: the clerk comes back to
/// it, and Enter does not check it once more.
void EditSession::focusLost() {
    commitUnlessLocked();
    suggestions_.close();
    if (tip_.empty() || (locked() && tellsBeside())) return;
    tip_.clear();
    publish();
}

void EditSession::help() {
    if (!visible()) return;
    suggestions_.close();
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

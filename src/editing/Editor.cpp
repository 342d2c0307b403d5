#include "editing/Editor.h"

#include <limits>
#include <utility>

#include "editing/EditorKeys.h"
#include "editing/EditorPlaces.h"
#include "editing/ExpressionTip.h"
#include "editing/FieldCheck.h"
#include "editing/FieldRule.h"
#include "editing/HelpDriver.h"
#include "grid/columns/EditableColumn.h"
#include "kxVsGrid/mbasTxt.h"
#include "support/Numbers.h"
#include "support/Span.h"
#include "support/Text.h"

namespace kxVsGrid::editing {

using support::Span;

Editor::Editor(CellGrid& grid, columns::ColumnArray& columns, EditorOwner& owner, Seat& seat)
    : grid_(grid), columns_(columns), owner_(owner), seat_(seat) {}

void Editor::text(std::string_view text) {
    mirror();
    if (box_.text(text)) textChanged();
    publish();
}

void Editor::tag(std::string_view tag) {
    mirror();
    box_.tag(tag);
}

/// Every change re-arms the check, whoever made it.
void Editor::textChanged() {
    validLock_ = 0;
    refused_ = false;
    tip_.clear();
    owner_.allowMoves();
    hiding_ = box_.text().empty();
}

// --- Opening
// ---------------------------------------------------------------------------------------------------------

bool Editor::opensHere() const {
    return owner_.editable() && columns::isEditableCell(grid_, columns_, grid_.Row(), grid_.Col());
}

void Editor::open(Focus focus) {
    if (committing_ || !opensHere()) return;
    if (visible_) {
        if (focus == Focus::Take) seat_.giveFocus(FocusPlace::Editor);
        return;
    }
    if (columns_.at(grid_.Col()).iType() == flexDTBoolean) {
        toggle();
        return;
    }
    owner_.raiseBeforeTextEdit();
    if (opensHere()) show(focus);  // the host may have changed anything meanwhile
}

void Editor::show(Focus focus) {
    if (!entered_.is(grid_.Row(), grid_.Col())) entered_.capture(grid_, grid_.Row(), grid_.Col());
    owner_.bringCurrentCellIntoView();
    load();
    box_.selectAll();
    refused_ = false;
    tip_.clear();
    validLock_ = 0;
    visible_ = true;
    buttonOutside_ = false;
    publish();
    if (focus == Focus::Take) seat_.giveFocus(FocusPlace::Editor);
}

/// A Boolean cell has no editor: opening it writes the opposite truth value.
void Editor::toggle() {
    const std::int32_t row = grid_.Row();
    const std::int32_t col = grid_.Col();
    const bool wasTrue = support::leadingNumber(grid_.Text(row, col)) != 0;
    grid_.Text(row, col, wasTrue ? "0" : "-1");
    owner_.markChanged();
    owner_.recalculate(col);
    load();
    owner_.raiseAfterEdit(row, col);
}

void Editor::hide() {
    if (!visible_) return;
    {
        Span hiding(hiding_);
        visible_ = false;
        refused_ = false;
        tip_.clear();
        validLock_ = 0;
        emptied_.reset();
        mirrored_.forget();
        publish();
    }
    if (!committing_) owner_.editorHidden();  // else at its end
}

void Editor::drop() {
    hide();
    load();
}

void Editor::giveUp() {
    std::optional<EnteredCell> emptied;
    if (owner_.escRestores() && editedCellIsCurrent()) emptied = std::exchange(emptied_, std::nullopt);
    hide();
    if (emptied && editedCellIsCurrent()) giveBack(*emptied);
    load();
}

/// A text that a host has written there since stays.
void Editor::giveBack(const EnteredCell& emptied) {
    const FollowedCell cell(grid_);
    if (!grid_.Text(cell.row(), cell.col()).empty()) return;
    grid_.Text(cell.row(), cell.col(), emptied.entryText());
    if (cell.there()) grid_.Data(cell.row(), cell.col(), emptied.entryTag());
    if (cell.there()) owner_.recalculate(cell.col());
}

// --- Commit
// ----------------------------------------------------------------------------------------------------------

bool Editor::commit() {
    if (committing_) return false;
    if (!owner_.editable()) {
        if (refused()) return false;
        drop();
        return true;
    }
    const bool done = attempt();
    if (!visible_) owner_.editorHidden();
    return done;
}

bool Editor::attempt() {
    Span committing(committing_);
    if (!checkChangedText()) return false;
    const FollowedCell cell(grid_);
    const std::string tag = box_.tag();
    if (!writeText()) return false;
    // A host that takes the cell away as it hears of the text, or of the tag, leaves none for the rest. One
    // that goes elsewhere has the editor mirror another cell: the tag of the edited one is the tag of before.
    if (cell.there()) {
        const bool stillEdited = visible() && cell.isCurrent();
        grid_.Data(cell.row(), cell.col(), stillEdited ? std::string(box_.tag()) : tag);
    }
    owner_.recalculate(-1);
    owner_.markChanged();
    if (cell.there()) tellAfterEdit(cell);
    hide();
    if (cell.isCurrent()) entered_.capture(grid_, cell.row(), cell.col());
    return true;
}

void Editor::tellAfterEdit(const FollowedCell& cell) {
    owner_.raiseAfterEdit(cell.row(), cell.col());
    if (cell.there() && !support::trim(grid_.Text(cell.row(), cell.col())).empty())
        owner_.appendIfLast(cell.row());
}

/// The field check, for a text that differs from the one the cell had on entry.
bool Editor::checkChangedText() {
    const std::int32_t col = grid_.Col();
    if (support::trim(box_.text()) == entered_.entryText() || columns_.at(col).i有效性判断() == 0)
        return true;
    const FieldVerdict verdict = checkField(columns_, col, std::string(box_.text()), owner_);
    owner_.allowMoves();
    if (verdict.refusal) {
        refuse(*verdict.refusal);
        return false;
    }
    // A host that went elsewhere while it was asked has closed the editor, which cannot open again before the
    // commit ends: there is nothing left to write.
    if (!visible()) return false;
    if (verdict.rewritten) rewrite(verdict.rewritten->text, verdict.rewritten->tag);
    return true;
}

void Editor::rewrite(const std::string& text, const std::string& tag) {
    Span validating(validating_);
    this->text(text);
    this->tag(tag);
}

/// The text stays, all of it selected, and is not checked again until it has changed. A host that closed the
/// editor meanwhile has taken the text away; what the hidden editor mirrors now was not refused.
void Editor::refuse(const MessageBox& message) {
    owner_.showMessage(message);
    if (visible()) {
        {
            Span validating(validating_);
            text(support::withoutLineBreaks(box_.text()));
        }
        if (validLock_ < std::numeric_limits<std::int16_t>::max()) ++validLock_;
        refused_ = true;
        box_.selectAll();
        publish();
    }
    seat_.giveFocus(visible() ? FocusPlace::Editor : FocusPlace::Grid);
}

/// A hidden editor mirrors the current cell: there is nothing to write.
bool Editor::validate() {
    if (grid_.Col() < 0) return true;
    if (!passesRule()) return false;
    return !visible() || committing_ || commit();
}

bool Editor::passesRule() {
    const std::shared_ptr<cVsControl> column = columns_.shared(grid_.Col());
    const std::string message = brokenRule(*column, box().tag());
    return message.empty() || refuseByRule(message);
}

bool Editor::refuseByRule(const std::string& message) {
    owner_.showMessage({message, MessageBox::Information, "提示："});
    if (shown_.enabled) seat_.giveFocus(visible_ ? FocusPlace::Editor : FocusPlace::Grid);
    return false;
}

bool Editor::writeText() {
    const std::int32_t row = grid_.Row();
    const std::int32_t col = grid_.Col();
    switch (columns_.at(col).iType()) {
        case flexDTDouble:
            return writeNumber(row, col);
        case flexDTString:
            grid_.Text(row, col, std::string(support::trim(box_.text())));
            return true;
        default:
            grid_.Text(row, col, std::string(box_.text()));
            return true;
    }
}

bool Editor::writeNumber(std::int32_t row, std::int32_t col) {
    const std::string_view expression = support::trim(box_.text());
    if (expression.empty()) {
        grid_.Text(row, col, "");
        return true;
    }
    double value = 0;
    if (bEvaluateExp(support::withoutGroups(expression, grid_.ColGroups(col)), value)) {
        grid_.Text(row, col, support::numberText(value));
        return true;
    }
    tip_ = expressionTip(box_.text(), grid_.ColGroups(col));
    emptyRefused(row, col);
    return false;
}

void Editor::emptyRefused(std::int32_t row, std::int32_t col) {
    box_.caretToEnd();
    refused_ = true;
    if (!grid_.Text(row, col).empty()) emptied_.emplace().capture(grid_, row, col);
    grid_.Text(row, col, "");
    publish();
}

void Editor::commitForHost() {
    commitUnlessRefused();
}

void Editor::commitUnlessRefused() {
    if (visible() && validLock_ == 0 && !committing_) commit();
}

// --- The grid reports
// ------------------------------------------------------------------------------------------------

void Editor::enterCell() {
    hide();  // still shown over a refused text when code moved the cell
    const std::int32_t row = grid_.Row();
    const std::int32_t col = grid_.Col();
    if (row < 0 || col < 0) return;
    if (!entered_.is(row, col)) entered_.capture(grid_, row, col);
    load();
}

void Editor::leaveCell() {
    if (visible_ && !committing_) commit();
}

void Editor::load() {
    if (grid_.Row() < 0 || grid_.Col() < 0) return;
    mirrored_.take(grid_);
    box_.tag(mirrored_.tag());
    if (box_.text(mirrored_.text())) textChanged();
}

/// Has the hidden editor follow what was written into the current cell since it was loaded.
void Editor::mirror() {
    if (visible_ || grid_.Row() < 0 || grid_.Col() < 0 || mirrored_.holds(grid_)) return;
    load();
}

void Editor::captureAndLoad() {
    if (grid_.Row() < 0 || grid_.Col() < 0) return;
    entered_.capture(grid_, grid_.Row(), grid_.Col());
    if (!visible_) load();
}

void Editor::rowInserted(std::int32_t position) {
    entered_.rowInserted(position);
    place();
}

void Editor::rowRemoved(std::int32_t position) {
    entered_.rowRemoved(position);
    place();
}

void Editor::place() {
    if (!visible_) return;
    if (!editedCellIsCurrent())
        hide();  // the cell is gone
    else if (overHiddenColumn())
        leaveHiddenColumn();
    else
        publish();
}

void Editor::placesChanged() {
    if (!visible_) return;
    if (!editedCellIsCurrent() || overHiddenColumn() ||
        grid_.CellRect(grid_.Row(), grid_.Col()) != placedOver_)
        place();
}

bool Editor::overHiddenColumn() const {
    return visible() && grid_.ColHidden(grid_.Col());
}

/// A commit under way ends as it would anywhere else.
void Editor::leaveHiddenColumn() {
    if (committing_) return;
    if (!refused_) commit();
    if (overHiddenColumn()) drop();
}

/// A button that has made room for a long text stays where it is: it shall not jump while the clerk types.
void Editor::placeWithButton(EditorView& view) {
    const Rect client{0, 0, grid_.ClientWidth(), grid_.ClientHeight()};
    const std::int32_t needed = buttonOutside_ ? std::numeric_limits<std::int32_t>::max()
                                               : roomForText(owner_.textMetrics(), box_.text());
    const EditorPlaces places = placesWithButton(placedOver_, client, needed);
    view.rect = places.text;
    view.helpRect = places.button;
    buttonOutside_ = places.outside;
}

/// The help button stands where what is typed needs the room.
bool Editor::buttonInTheWay() const {
    return shown_.visible && shown_.helpButton && !buttonOutside_ &&
           roomForText(owner_.textMetrics(), box_.text()) > shown_.rect.width;
}

/// Shows the machine what has changed.
void Editor::publish() {
    EditorView view;
    view.visible = visible();
    if (view.visible) {
        const std::int32_t row = grid_.Row();
        const std::int32_t col = grid_.Col();
        const cVsControl& column = columns_.at(col);
        view.helpButton = column.b是否提供帮助();
        view.multiLine = column.b是否编辑多行();
        view.limit = column.iLimitLength();
        view.readsDigits = column.iType() == flexDTDouble || column.iType() == flexDTDate;
        view.refused = refused_;
        view.alignment = grid_.EffectiveAlignment(row, col);
        view.tip = tip_;
        view.rect = grid_.CellRect(row, col);
        if (view.rect != placedOver_) buttonOutside_ = false;
        placedOver_ = view.rect;
        if (view.helpButton) placeWithButton(view);
        view.text = box_.text();
        view.selStart = box_.selStart();
        view.selLength = box_.selLength();
    }
    shown_ = view;
    seat_.showEditor(shown_);
}

// --- The clerk
// -------------------------------------------------------------------------------------------------------

bool Editor::keyDown(std::int16_t code) {
    return EditorKeys(*this).keyDown(static_cast<Key>(code));
}

/// The text box shall neither beep nor replace a selected text when Enter arrives as a character.
bool Editor::keyPress(std::int16_t ascii) const {
    return ascii == 13 && !box_.text().empty() && box_.selLength() == box_.length();
}

void Editor::edited(std::string_view text, std::size_t selStart, std::size_t selLength) {
    if (!visible_) return;
    const bool wasRefused = shown_.refused;
    const bool changed = box_.text(text);
    box_.select(selStart, selLength);
    shown_.text = box_.text();  // the machine shows it already
    shown_.selStart = box_.selStart();
    shown_.selLength = box_.selLength();
    if (changed) textChanged();
    if (changed && (wasRefused || buttonInTheWay())) publish();
}

void Editor::selected(std::size_t selStart, std::size_t selLength) {
    if (!visible_) return;
    box_.select(selStart, selLength);
    shown_.selStart = box_.selStart();
    shown_.selLength = box_.selLength();
}

void Editor::focusLost() {
    commitUnlessRefused();
    if (tip_.empty()) return;
    tip_.clear();
    publish();
}

void Editor::help() {
    if (!visible()) return;
    const FollowedCell cell(grid_);
    const std::shared_ptr<cVsControl> column = columns_.shared(grid_.Col());
    {
        Span hiding(hiding_);
        HelpDriver driver(owner_, *column, grid_.CellRect(grid_.Row(), grid_.Col()));
        driver.Drbmhelp(column->i帮助类型(), std::string(support::trim(box_.text())),
                        std::string(support::trim(column->sHelp_Code())));
        // A host that wrote or read cells meanwhile has committed the editor: what was chosen is not lost.
        if (!HelpExchange::shared().ReturnCode.empty() && cell.isCurrent()) takeChosen(*column);
    }
    seat_.giveFocus(visible() ? FocusPlace::Editor : FocusPlace::Grid);
}

/// Puts the chosen pair into the editor. Which half of it shows is the column's choice, as with a typed code.
void Editor::takeChosen(const cVsControl& column) {
    if (!visible() && opensHere()) show(Focus::LeaveWithGrid);
    if (!visible()) return;
    const HelpExchange chosen = HelpExchange::shared();
    const bool showsName = column.i帮助返回值显示类型() == iText记Name;
    text(showsName ? chosen.ReturnName : chosen.ReturnCode);
    tag(showsName ? chosen.ReturnCode : chosen.ReturnName);
}
}  // namespace kxVsGrid::editing

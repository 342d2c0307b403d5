// What is suggested while the clerk types, and what he takes of it.
#include "editing/EditSession.h"
#include "editing/EditorKeys.h"
#include "support/Text.h"

namespace kxVsGrid::editing {

using suggest::SuggestionChoice;

/// A cell that the clerk may not change any more suggests nothing, though its editor stands open.
void EditSession::askForSuggestions() {
    if (!visible()) return;
    const cVsControl& column = c_.columns.at(c_.grid.Col());
    const std::shared_ptr<const ColumnOptions> rules = c_.columns.rules(c_.grid.Col());
    if (rules && c_.editable() && column.bIsEditable() && column.iType() != flexDTBoolean)
        suggestions_.typed(rules->suggest(), c_.grid.Row(), box_.text());
    else
        suggestions_.close();
}

void EditSession::takeSuggestion(SuggestionChoice::By key) {
    if (!visible() || committing_) return;
    const std::optional<Suggestion> chosen = suggestions_.chosen(key, box_.text());
    if (!chosen) return;
    suggestions_.close();
    take(*chosen);
}

void EditSession::suggestionPressed(std::size_t index) {
    if (visible() && suggestions_.point(index)) EditorKeys(*this, c_).keyDown(Key::Enter);
}

/// The check that would give the tag is not asked for the text that the cell had on entry.
void EditSession::take(const Suggestion& suggestion) {
    const cVsControl& column = c_.columns.at(c_.grid.Col());
    setText(column.b是否编辑多行() ? suggestion.text : support::inOneLine(suggestion.text));
    const bool keepsTag = column.i有效性判断() != 0 && support::trim(box_.text()) == entered_.entryText();
    if (!keepsTag) takeTag(suggestion.tag);
    box_.caretToEnd();
    publish();
}

/// Once the clerk types on, it is not that one's any more.
void EditSession::takeTag(const std::string& tag) {
    if (!tagOfTyped_) tagOfTyped_ = box_.tag();
    box_.setTag(tag);
}

/// The text is about to be committed, however: what is the text of a candidate brings its tag. The pair that the
/// cell had on entry stays one.
void EditSession::settleSuggestions() {
    const std::optional<Suggestion> same = visible() ? suggestions_.same(box_.text()) : std::nullopt;
    suggestions_.close();
    if (same && same->text != entered_.entryText()) takeTag(same->tag);
}

void EditSession::publishSuggestions() {
    c_.seat.showSuggestions(visible() ? suggestions_.view() : SuggestionView{});
}
}  // namespace kxVsGrid::editing

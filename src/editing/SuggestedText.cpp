// What is suggested while the clerk types, and what he takes of it.
#include "editing/EditSession.h"
#include "editing/EditorKeys.h"

namespace kxVsGrid::editing {

using suggest::SuggestionChoice;

void EditSession::askForSuggestions() {
    if (!visible()) return;
    const std::shared_ptr<const ColumnOptions> rules = c_.columns.rules(c_.grid.Col());
    if (rules) suggestions_.typed(rules->suggest(), c_.grid.Row(), box_.text());
}

void EditSession::takeSuggestion(SuggestionChoice::By key) {
    const std::optional<Suggestion> chosen = visible() ? suggestions_.chosen(key, box_.text()) : std::nullopt;
    suggestions_.close();
    if (chosen) take(*chosen);
}

void EditSession::suggestionPressed(std::size_t index) {
    const std::optional<Suggestion> pressed = visible() ? suggestions_.at(index) : std::nullopt;
    if (!pressed) return;
    suggestions_.close();
    take(*pressed);
    EditorKeys(*this, c_).keyDown(Key::Enter);
}

void EditSession::take(const Suggestion& suggestion) {
    setText(suggestion.text);
    setTag(suggestion.tag);
    box_.caretToEnd();
    publish();
}

void EditSession::publishSuggestions() {
    c_.seat.showSuggestions(visible() ? suggestions_.view() : SuggestionView{});
}
}  // namespace kxVsGrid::editing

#include "qt/QtSeat.h"

#include "qt/Stage.h"

namespace kxVsGrid::qt {

Stage* QtSeat::shown() const {
    return machine_->grid ? machine_->stage : nullptr;
}

void QtSeat::giveFocus(FocusPlace place) {
    if (Stage* stage = shown()) stage->giveFocus(place);
}

void QtSeat::leaveControl(bool forward) {
    if (Stage* stage = shown()) stage->leaveControl(forward);
}

void QtSeat::showEditor(const EditorView& editor) {
    if (Stage* stage = shown()) stage->showEditor(editor);
}

void QtSeat::showSuggestions(const SuggestionView& suggestions) {
    if (Stage* stage = shown()) stage->showSuggestions(suggestions);
}

void QtSeat::showFindBar(bool replace) {
    if (Stage* stage = shown()) stage->showFindBar(replace);
}

void QtSeat::typeIntoEditor(std::string_view character) {
    if (Stage* stage = shown()) stage->typeIntoEditor(character);
}

void QtSeat::editText(Command command) {
    if (Stage* stage = shown()) stage->editText(command);
}

void QtSeat::layoutChanged() {
    if (Stage* stage = shown()) stage->layoutChanged();
}

Rect QtSeat::onScreen(const Rect& place) const {
    const Stage* stage = shown();
    return stage != nullptr ? stage->onScreen(place) : Rect{};
}

void QtSeat::settingChanged(std::string_view name) {
    if (Stage* stage = shown()) stage->settingChanged(name);
}
}  // namespace kxVsGrid::qt

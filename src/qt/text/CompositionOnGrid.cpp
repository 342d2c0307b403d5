// What an input method composes on a closed cell: the editor opens and composes it, while the grid keeps the
// keyboard.
#include <QGuiApplication>
#include <QInputMethod>

#include "qt/Stage.h"

namespace kxVsGrid::qt {

void Stage::composing(bool underway) {
    guarded([&](Input& input) { input.composing(underway); });
}

void Stage::composeOnGrid(QInputMethodEvent& event) {
    event.accept();
    // An input method that sees the keyboard move to the editor commits what it is just delivering once more.
    if (handlingComposition_) return;
    const std::shared_ptr<Machine> machine = machine_;
    handlingComposition_ = true;
    handleComposition(event);
    if (machine->stage != nullptr) handlingComposition_ = false;
}

void Stage::handleComposition(QInputMethodEvent& event) {
    const bool something = !event.preeditString().isEmpty() || !event.commitString().isEmpty();
    if (!something && !box_->composing()) return;
    const std::shared_ptr<Machine> machine = machine_;
    composingOnGrid_ = true;
    if (!box_->composing()) {
        bool opened = false;
        if (!guarded([&](Input& input) { opened = input.openForTyping(); })) return;
        if (!opened || !box_->visible()) {
            composingOnGrid_ = false;
            QGuiApplication::inputMethod()->reset();
            return;
        }
        editorWaitsForFocus_ = true;
    }
    box_->compose(event);
    if (machine->stage == nullptr) return;
    composingOnGrid_ = box_->composing();
    // the box has not the keyboard: where its caret is, it does not tell
    if (composingOnGrid_) QGuiApplication::inputMethod()->update(Qt::ImQueryInput);
    if (!composingOnGrid_ && editorWaitsForFocus_) giveFocus(FocusPlace::Editor);
}

void Stage::endComposition() {
    const std::shared_ptr<Machine> machine = machine_;
    box_->endComposition();
    if (machine->stage != nullptr) composingOnGrid_ = false;
}
}  // namespace kxVsGrid::qt

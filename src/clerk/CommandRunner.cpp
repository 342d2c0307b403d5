#include "clerk/CommandRunner.h"

#include <utility>

namespace kxVsGrid {

std::string Commands::Caption(Command command) const {
    return runner_.caption(command);
}

namespace clerk {

bool CommandRunner::can(Command command) const {
    switch (command) {
        case Command::Undo:
            return steps_.canUndo();
        case Command::Redo:
            return steps_.canRedo();
    }
    return false;
}

bool CommandRunner::run(Command command) {
    switch (command) {
        case Command::Undo:
            return steps_.undo();
        case Command::Redo:
            return steps_.redo();
    }
    return false;
}

bool CommandRunner::textBoxHasIt(Command command) const {
    if (!editor_.visible()) return false;
    switch (command) {
        case Command::Undo:
            return !editor_.asOpened();
        case Command::Redo:
            return editor_.typedInto();
    }
    return false;
}

bool CommandRunner::runByKey(Command command) {
    if (textBoxHasIt(command)) return false;
    if (editor_.visible() && can(command)) editor_.drop();
    run(command);
    return true;
}

std::string CommandRunner::caption(Command command) const {
    std::string step;
    if (command == Command::Undo) step = steps_.undoName();
    if (command == Command::Redo) step = steps_.redoName();
    std::string caption(captionOf(command));
    return step.empty() ? caption : caption + "“" + step + "”";
}

void CommandRunner::tellChanges() {
    Told now{steps_.undoName(), steps_.redoName(), steps_.canUndo(), steps_.canRedo()};
    if (now == told_) return;
    told_ = std::move(now);
    face.Changed();
}
}  // namespace clerk
}  // namespace kxVsGrid

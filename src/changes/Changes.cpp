#include "kxVsGrid/Changes.h"

#include <utility>

#include "changes/Steps.h"

namespace kxVsGrid {

ChangeStep::ChangeStep(std::shared_ptr<changes::Steps> steps, std::string_view name)
    : steps_(std::move(steps)), mark_(steps_->openHostStep(name)) {}

ChangeStep::~ChangeStep() {
    try {
        close();
    } catch (...) {
        // The step is closed whole; nobody is there to hear what a listener made of it.
    }
}

void ChangeStep::close() {
    if (const auto steps = std::exchange(steps_, nullptr)) steps->closeHostStep();
}

bool ChangeStep::takeBack() {
    const auto steps = steps_;
    return steps && steps->takeBack(mark_);
}

UnrecordedSpan::UnrecordedSpan(std::shared_ptr<changes::Steps> steps) : steps_(std::move(steps)) {
    steps_->beginUnrecorded();
}

UnrecordedSpan::~UnrecordedSpan() {
    steps_->endUnrecorded();
}

bool History::Undo() {
    return steps_.undo();
}
bool History::Redo() {
    return steps_.redo();
}
bool History::CanUndo() const {
    return steps_.canUndo();
}
bool History::CanRedo() const {
    return steps_.canRedo();
}
std::string History::UndoName() const {
    return steps_.undoName();
}
std::string History::RedoName() const {
    return steps_.redoName();
}
std::size_t History::Limit() const {
    return steps_.limit();
}
void History::Limit(std::size_t bytes) {
    steps_.limit(bytes);
}
bool History::Enabled() const {
    return steps_.enabled();
}
void History::Enabled(bool enabled) {
    steps_.enable(enabled);
}
void History::Forget() {
    steps_.forgetByHost();
}

void Changes::AddSettler(Settler settler) {
    steps_.addSettler(std::move(settler));
}
void Changes::Saved() {
    steps_.log.saved();
}
void Changes::Forget() {
    steps_.log.stop();
}
bool Changes::empty() const {
    return steps_.log.empty();
}
bool Changes::Unknown() const {
    return steps_.log.unknown();
}
std::vector<RowId> Changes::Added() const {
    return steps_.log.addedRows();
}
std::vector<ChangedRow> Changes::Changed() const {
    return steps_.log.changedRows();
}
std::vector<RemovedRow> Changes::Removed() const {
    return steps_.log.removedRows();
}
}  // namespace kxVsGrid

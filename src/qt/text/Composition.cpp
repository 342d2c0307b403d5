#include "qt/text/Composition.h"

#include <QGuiApplication>
#include <QInputMethod>

#include "support/FlagSpan.h"

namespace kxVsGrid::qt {

using support::FlagSpan;

void Composition::apply(TextBoxPort& box, QInputMethodEvent& event) {
    const bool shows = !event.preeditString().isEmpty();
    const bool commits = !event.commitString().isEmpty() || event.replacementLength() > 0;
    if (shows && !underway_) begin(box);
    const bool was = underway_;
    preedit_ = event.preeditString();
    {
        const FlagSpan applying(applying_);
        box.applyInputMethod(event);
    }
    event.accept();
    if (commits)
        commit(box);
    else if (was && !shows)
        drop(box);
}

void Composition::begin(const TextBoxPort& box) {
    before_ = box.state();
    underway_ = true;
    listener_.composes(true);
}

/// Another composition may have begun in the same breath: what has been committed is told then as well, and
/// is what dropping the new one goes back to.
void Composition::commit(const TextBoxPort& box) {
    const bool goesOn = !preedit_.isEmpty();
    const bool was = underway_;
    underway_ = false;
    if (was) listener_.composes(false);
    if (listener_.committed() && goesOn) begin(box);
}

void Composition::drop(TextBoxPort& box) {
    {
        const FlagSpan applying(applying_);
        if (box.state().text != before_.text) box.setText(before_.text);
        box.select(before_.start, before_.length);
    }
    underway_ = false;
    listener_.composes(false);
}

void Composition::end(TextBoxPort& box) {
    if (!underway_) return;
    // most input methods commit by themselves when they are told to
    QGuiApplication::inputMethod()->commit();
    if (!underway_) return;
    QInputMethodEvent commit;
    commit.setCommitString(preedit_);
    apply(box, commit);
    QGuiApplication::inputMethod()->reset();
}

void Composition::forget() {
    if (!underway_) return;
    underway_ = false;
    preedit_.clear();
    QGuiApplication::inputMethod()->reset();
    listener_.composes(false);
}
}  // namespace kxVsGrid::qt

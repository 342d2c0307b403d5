#include "qt/text/BoxMirror.h"

#include "qt/text/EditMenu.h"

namespace kxVsGrid::qt {

void BoxMirror::clerkActs(bool begins) {
    acting_ += begins ? 1 : -1;
    if (acting_ == 0) look();
}

/// Compares the box with what the core knows of it. False when the mirror was destroyed meanwhile.
bool BoxMirror::look() {
    if (mirroring_ || composition_.busy() || !watching()) return true;
    if (port().state().text != shown_.text) textChanging(shown_.text);
    const BoxState now = port().state();
    if (now == shown_) return true;
    const bool sameText = now.text == shown_.text;
    CoreText told = known(now);
    if (sameText) told.text = coreText();
    shown_ = now;
    return tell(told, sameText);
}

CoreText BoxMirror::known(const BoxState& state) const {
    QString text = state.text;
    if (lineEnds_ == LineEnds::CarriageReturnAndLineFeed)
        text.replace(QLatin1String("\n"), QLatin1String("\r\n"));
    const std::size_t start = charactersBefore(state.text, state.start, lineEnds_);
    const std::size_t end = charactersBefore(state.text, state.start + state.length, lineEnds_);
    return {fromQt(text), start, end - start};
}

void BoxMirror::put(const QString& text) {
    composition_.forget();
    port().setText(text);
}

bool BoxMirror::keyDown(const QKeyEvent& event) {
    return composition_.underway() || keyToCore(event);
}

void BoxMirror::inputMethod(QInputMethodEvent& event) {
    composition_.apply(port(), event);
}

bool BoxMirror::committed() {
    return look() && watching();
}

void BoxMirror::endComposition() {
    composition_.end(port());
}

void BoxMirror::menu(const QPoint& place) {
    endComposition();
    showEditMenu(port(), *this, place);
}
}  // namespace kxVsGrid::qt

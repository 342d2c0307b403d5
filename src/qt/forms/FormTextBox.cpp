#include "qt/forms/FormTextBox.h"

#include <limits>

#include "qt/forms/FormDialog.h"
#include "qt/text/EditMenu.h"
#include "qt/text/Encoding.h"
#include "support/FlagSpan.h"

namespace kxVsGrid::qt {

FormTextBox::FormTextBox(FormDialog& dialog, FormControl& control)
    : LineBox(*this, &dialog), dialog_(dialog), control_(control) {
    setFrame(true);
    setTextMargins(0, 0, 0, 0);
    setFocusPolicy(Qt::StrongFocus);
    setMaxLength(std::numeric_limits<int>::max());
}

void FormTextBox::mirror() {
    const support::FlagSpan mirroring(mirroring_);
    const QString text = toQt(control_.text);
    if (text != shown_.text) {
        composition_.forget();
        LineBox::setText(text);
    }
    if (!composition_.underway()) showSelection();
}

void FormTextBox::showSelection() {
    const support::FlagSpan mirroring(mirroring_);
    const QString text = toQt(control_.text);
    const qsizetype start = positionOf(text, static_cast<std::size_t>(control_.selStart), LineEnds::Single);
    const std::size_t end =
        static_cast<std::size_t>(control_.selStart) + static_cast<std::size_t>(control_.selLength);
    const bool selects = hasFocus();
    select(start, selects ? positionOf(text, end, LineEnds::Single) - start : 0);
    shown_ = state();
}

// --- What the clerk changes

void FormTextBox::clerkActs(bool begins) {
    acting_ += begins ? 1 : -1;
    if (acting_ == 0) look();
}

void FormTextBox::look() {
    if (mirroring_ || composition_.busy()) return;
    const BoxState now = state();
    if (now == shown_) return;
    const std::string text = now.text == shown_.text ? control_.text : fromQt(now.text);
    shown_ = now;
    const std::size_t start = charactersBefore(now.text, now.start, LineEnds::Single);
    const std::size_t end = charactersBefore(now.text, now.start + now.length, LineEnds::Single);
    dialog_.act([&](Form& form) {
        form.edit(control_, text, static_cast<std::int32_t>(start), static_cast<std::int32_t>(end - start));
    });
}

bool FormTextBox::keyDown(const QKeyEvent& event) {
    return composition_.underway() || dialog_.key(control_, event);
}

void FormTextBox::inputMethod(QInputMethodEvent& event) {
    composition_.apply(*this, event);
}

bool FormTextBox::committed() {
    look();
    return true;
}

void FormTextBox::endComposition() {
    composition_.end(*this);
}

void FormTextBox::focusInEvent(QFocusEvent* event) {
    if (!composition_.underway()) showSelection();
    LineBox::focusInEvent(event);
}

void FormTextBox::focusLost(const QFocusEvent& event) {
    const bool comesBack =
        event.reason() == Qt::ActiveWindowFocusReason || event.reason() == Qt::PopupFocusReason;
    if (!comesBack && !composition_.underway()) showSelection();
}

// --- As text boxes of dialogs do

bool FormTextBox::leave(bool forward) {
    // NOLINTNEXTLINE(bugprone-parent-virtual-call): in the window's own order, not as an editor does
    return QLineEdit::focusNextPrevChild(forward);
}

void FormTextBox::menu(const QPoint& place) {
    endComposition();
    showEditMenu(*this, *this, place);
}

void FormTextBox::paintEvent(QPaintEvent* event) {
    // NOLINTNEXTLINE(bugprone-parent-virtual-call): without the edge of an editor
    QLineEdit::paintEvent(event);
}
}  // namespace kxVsGrid::qt

#include "qt/forms/FormTextBox.h"

#include <QPointer>
#include <limits>

#include "qt/forms/FormDialog.h"
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
    if (text != shown_.text) put(text);
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

bool FormTextBox::tell(const CoreText& told, bool) {
    const QPointer<FormTextBox> alive(this);
    dialog_.act([&](Form& form) {
        form.edit(control_, told.text, static_cast<std::int32_t>(told.selStart),
                  static_cast<std::int32_t>(told.selLength));
    });
    return !alive.isNull();
}

const std::string& FormTextBox::coreText() const {
    return control_.text;
}

bool FormTextBox::keyToCore(const QKeyEvent& event) {
    return dialog_.key(control_, event);
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

void FormTextBox::paintEvent(QPaintEvent* event) {
    // NOLINTNEXTLINE(bugprone-parent-virtual-call): without the edge of an editor
    QLineEdit::paintEvent(event);
}
}  // namespace kxVsGrid::qt

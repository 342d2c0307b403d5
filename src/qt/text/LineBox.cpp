#include <QClipboard>
#include <QGuiApplication>
#include <limits>

#include "qt/text/TextBoxes.h"

namespace kxVsGrid::qt {
namespace {

/// QLineEdit itself keeps two pixels beside its text; cells keep three.
constexpr int TextMargin = 1;
}  // namespace

LineBox::LineBox(BoxEvents& events, QWidget* parent) : ClerkBox(events, parent) {
    setFrame(false);
    setMaxLength(std::numeric_limits<int>::max());  // a column's own limit is kept by the mirror
    setTextMargins(TextMargin, 0, TextMargin, 0);
    watch();
}

BoxState LineBox::state() const {
    if (hasSelectedText()) return {text(), selectionStart(), selectionLength()};
    return {text(), cursorPosition(), 0};
}

void LineBox::select(qsizetype start, qsizetype length) {
    if (length > 0)
        setSelection(static_cast<int>(start), static_cast<int>(length));
    else
        setCursorPosition(static_cast<int>(start));
}

void LineBox::setAlignment(mEmflexAlign alignment) {
    constexpr Qt::AlignmentFlag horizontal[] = {Qt::AlignLeft, Qt::AlignHCenter, Qt::AlignRight};
    const int across = alignment / 3;
    // to the right of the text QLineEdit keeps a pixel for its caret
    setTextMargins(TextMargin, 0, across == 2 ? 0 : TextMargin, 0);
    QLineEdit::setAlignment((across >= 0 && across < 3 ? horizontal[across] : Qt::AlignLeft) |
                            Qt::AlignVCenter);
}

void LineBox::paste() {
    QString text = QGuiApplication::clipboard()->text();
    text.replace(QLatin1String("\r\n"), QLatin1String("\n"));
    text.replace(u'\r', u'\n');
    while (text.endsWith(u'\n')) text.chop(1);
    text.replace(u'\n', u' ');
    if (text.isEmpty()) return;
    tellPaste(text);
    insert(text);
}

bool LineBox::takeKey(QKeyEvent& key) {
    if (key.matches(QKeySequence::Paste))
        paste();
    else
        QLineEdit::keyPressEvent(&key);  // NOLINT(bugprone-parent-virtual-call): ClerkBox's asks this box
    return key.isAccepted();
}

/// Qt drops the selection; the core's stays as it is.
void LineBox::loseFocus(QFocusEvent& event) {
    const BoxState before = state();
    QLineEdit::focusOutEvent(&event);  // NOLINT(bugprone-parent-virtual-call): ClerkBox's asks this box
    if (!(state() == before)) select(before.start, before.length);
}
}  // namespace kxVsGrid::qt

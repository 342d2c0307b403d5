#include <QClipboard>
#include <QContextMenuEvent>
#include <QGuiApplication>
#include <QWheelEvent>
#include <limits>

#include "qt/Wording.h"
#include "qt/text/BoxParts.h"

namespace kxVsGrid::qt {
namespace {

/// QLineEdit itself keeps two pixels beside its text; cells keep three.
constexpr int TextMargin = 1;
}  // namespace

LineBox::LineBox(BoxEvents& events, QWidget* parent) : QLineEdit(parent), events_(events) {
    setFrame(false);
    setMaxLength(std::numeric_limits<int>::max());  // a column's own limit is kept by the mirror
    setFocusPolicy(Qt::ClickFocus);
    setTextMargins(TextMargin, 0, TextMargin, 0);
    setAccessibleName(wording::Editor);
    const auto look = [this] {
        events_.clerkActs(true);
        events_.clerkActs(false);
    };
    connect(this, &QLineEdit::textChanged, this, look);
    connect(this, &QLineEdit::cursorPositionChanged, this, look);
    connect(this, &QLineEdit::selectionChanged, this, look);
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
    if (!text.isEmpty()) insert(text);
}

bool LineBox::event(QEvent* event) {
    return beforeBox(events_, *this, *event) || QLineEdit::event(event);
}

void LineBox::keyPressEvent(QKeyEvent* event) {
    if (events_.keyDown(*event)) {
        event->accept();
        return;
    }
    QKeyEvent offered = asOffered(*event);
    asClerk(events_, *this, [&] {
        if (offered.matches(QKeySequence::Paste))
            paste();
        else
            QLineEdit::keyPressEvent(&offered);
    });
    event->setAccepted(offered.isAccepted());
}

void LineBox::keyReleaseEvent(QKeyEvent* event) {
    events_.keyUp(*event);
    event->accept();
}

void LineBox::inputMethodEvent(QInputMethodEvent* event) {
    events_.inputMethod(*event);
}

void LineBox::focusInEvent(QFocusEvent* event) {
    asClerk(events_, *this, [&] { QLineEdit::focusInEvent(event); });
    events_.focusGained();
}

void LineBox::focusOutEvent(QFocusEvent* event) {
    // Qt drops the selection; the core's stays as it is
    const BoxState before = state();
    events_.clerkActs(true);
    QLineEdit::focusOutEvent(event);
    if (!(state() == before)) select(before.start, before.length);
    events_.clerkActs(false);
    events_.focusLost(*event);
}

void LineBox::mousePressEvent(QMouseEvent* event) {
    events_.endComposition();
    asClerk(events_, *this, [&] { QLineEdit::mousePressEvent(event); });
}

void LineBox::mouseMoveEvent(QMouseEvent* event) {
    asClerk(events_, *this, [&] { QLineEdit::mouseMoveEvent(event); });
}

void LineBox::contextMenuEvent(QContextMenuEvent* event) {
    events_.menu(event->globalPos());
}

void LineBox::wheelEvent(QWheelEvent* event) {
    event->accept();
    events_.wheel(*event);
}

void LineBox::paintEvent(QPaintEvent* event) {
    QLineEdit::paintEvent(event);
    QPainter painter(this);
    paintEdge(painter, *this, rect(), events_.refused());
}

bool LineBox::focusNextPrevChild(bool next) {
    return events_.leave(next);
}
}  // namespace kxVsGrid::qt

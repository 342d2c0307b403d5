#include <QContextMenuEvent>
#include <QTextBlock>
#include <QTextDocument>
#include <QTextOption>
#include <QWheelEvent>

#include "qt/Wording.h"
#include "qt/text/BoxParts.h"

namespace kxVsGrid::qt {
namespace {

/// Beside the text, as in a cell.
constexpr int DocumentMargin = 3;
}  // namespace

LinesBox::LinesBox(BoxEvents& events, QWidget* parent) : QPlainTextEdit(parent), events_(events) {
    setFrameShape(QFrame::NoFrame);
    setFocusPolicy(Qt::ClickFocus);
    setTabChangesFocus(true);
    setLineWrapMode(QPlainTextEdit::NoWrap);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    document()->setDocumentMargin(DocumentMargin);
    setAccessibleName(wording::Editor);
    const auto look = [this] {
        events_.clerkActs(true);
        events_.clerkActs(false);
    };
    connect(this, &QPlainTextEdit::textChanged, this, look);
    connect(this, &QPlainTextEdit::cursorPositionChanged, this, look);
    connect(this, &QPlainTextEdit::selectionChanged, this, look);
}

/// Read raw: QPlainTextEdit's own text would turn no-break blanks into blanks.
BoxState LinesBox::state() const {
    QString text = document()->toRawText();
    text.replace(QChar(QChar::ParagraphSeparator), u'\n');
    text.replace(QChar(QChar::LineSeparator), u'\n');
    const QTextCursor cursor = textCursor();
    return {text, cursor.selectionStart(), cursor.selectionEnd() - cursor.selectionStart()};
}

void LinesBox::select(qsizetype start, qsizetype length) {
    QTextCursor cursor = textCursor();
    cursor.setPosition(static_cast<int>(start));
    cursor.setPosition(static_cast<int>(start + length), QTextCursor::KeepAnchor);
    setTextCursor(cursor);
}

void LinesBox::setAlignment(mEmflexAlign alignment) {
    constexpr Qt::AlignmentFlag horizontal[] = {Qt::AlignLeft, Qt::AlignHCenter, Qt::AlignRight};
    const int across = alignment / 3;
    QTextOption option = document()->defaultTextOption();
    option.setAlignment(across >= 0 && across < 3 ? horizontal[across] : Qt::AlignLeft);
    document()->setDefaultTextOption(option);
}

bool LinesBox::event(QEvent* event) {
    return beforeBox(events_, *this, *event) || QPlainTextEdit::event(event);
}

void LinesBox::keyPressEvent(QKeyEvent* event) {
    if (events_.keyDown(*event)) {
        event->accept();
        return;
    }
    QKeyEvent offered = asOffered(*event);
    asClerk(events_, *this, [&] { QPlainTextEdit::keyPressEvent(&offered); });
    event->accept();
}

void LinesBox::keyReleaseEvent(QKeyEvent* event) {
    events_.keyUp(*event);
    event->accept();
}

void LinesBox::inputMethodEvent(QInputMethodEvent* event) {
    events_.inputMethod(*event);
}

void LinesBox::focusInEvent(QFocusEvent* event) {
    asClerk(events_, *this, [&] { QPlainTextEdit::focusInEvent(event); });
    events_.focusGained();
}

void LinesBox::focusOutEvent(QFocusEvent* event) {
    asClerk(events_, *this, [&] { QPlainTextEdit::focusOutEvent(event); });
    events_.focusLost(*event);
}

void LinesBox::mousePressEvent(QMouseEvent* event) {
    events_.endComposition();
    asClerk(events_, *this, [&] { QPlainTextEdit::mousePressEvent(event); });
}

void LinesBox::mouseMoveEvent(QMouseEvent* event) {
    asClerk(events_, *this, [&] { QPlainTextEdit::mouseMoveEvent(event); });
}

void LinesBox::contextMenuEvent(QContextMenuEvent* event) {
    events_.menu(event->globalPos());
}

void LinesBox::wheelEvent(QWheelEvent* event) {
    event->accept();
    events_.wheel(*event);
}

void LinesBox::paintEvent(QPaintEvent* event) {
    QPlainTextEdit::paintEvent(event);
    QPainter painter(viewport());
    paintEdge(painter, *this, viewport()->rect(), events_.refused());
}

bool LinesBox::focusNextPrevChild(bool next) {
    return events_.leave(next);
}
}  // namespace kxVsGrid::qt

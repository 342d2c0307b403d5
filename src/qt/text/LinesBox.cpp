#include <QMimeData>
#include <QTextBlock>
#include <QTextDocument>
#include <QTextOption>

#include "qt/text/TextBoxes.h"

namespace kxVsGrid::qt {
namespace {

/// Beside the text, as in a cell.
constexpr int DocumentMargin = 3;
}  // namespace

LinesBox::LinesBox(BoxEvents& events, QWidget* parent) : ClerkBox(events, parent) {
    setFrameShape(QFrame::NoFrame);
    setTabChangesFocus(true);
    setLineWrapMode(QPlainTextEdit::NoWrap);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    document()->setDocumentMargin(DocumentMargin);
    watch();
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

void LinesBox::insertFromMimeData(const QMimeData* source) {
    const QString text = asTaken(source->text());
    QString lines = text;
    tellPaste(lines.replace(QLatin1String("\r\n"), QLatin1String("\n")));
    QMimeData taken;
    taken.setText(text);
    QPlainTextEdit::insertFromMimeData(text == source->text() ? source : &taken);
}

void LinesBox::setAlignment(mEmflexAlign alignment) {
    constexpr Qt::AlignmentFlag horizontal[] = {Qt::AlignLeft, Qt::AlignHCenter, Qt::AlignRight};
    const int across = alignment / 3;
    QTextOption option = document()->defaultTextOption();
    option.setAlignment(across >= 0 && across < 3 ? horizontal[across] : Qt::AlignLeft);
    document()->setDefaultTextOption(option);
}
}  // namespace kxVsGrid::qt

// Data in a tool tip: shown as it is, also where it looks like markup.
#pragma once

#include <QString>
#include <QTextDocument>

namespace kxVsGrid::qt {

/// Qt decides by the text whether a tip is markup; a text that would be taken for it is escaped, and what
/// that makes of it is marked as markup, blanks and lines kept.
inline QString plainTip(const QString& text) {
    if (!Qt::mightBeRichText(text)) return text;
    return QStringLiteral("<span style='white-space:pre-wrap'>") + text.toHtmlEscaped() +
           QStringLiteral("</span>");
}
}  // namespace kxVsGrid::qt

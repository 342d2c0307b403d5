// Data in a tool tip: shown as it is, also where it looks like markup.
#pragma once

#include <QString>
#include <QTextDocument>

inline QString plainTip(const QString& text) {
    return Qt::mightBeRichText(text) ? QStringLiteral("<p>") + text.toHtmlEscaped() + QStringLiteral("</p>")
                                     : text;
}

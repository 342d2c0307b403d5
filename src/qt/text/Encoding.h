// Texts between the core (UTF-8, positions in characters) and Qt (UTF-16, positions in code units).
//
// A character is a code point; a byte that is no part of valid UTF-8 counts as one character and is shown as
// U+FFFD. Both sides count alike, so a position always names the same place.
#pragma once

#include <QString>
#include <cstddef>
#include <string>
#include <string_view>

namespace kxVsGrid::qt {

QString toQt(std::string_view text);
std::string fromQt(const QString& text);

/// How the core's text ends its lines; a text box always has a single line feed.
enum class LineEnds { Single, CarriageReturnAndLineFeed };

/// Characters of the core's text before a position of the box's.
std::size_t charactersBefore(const QString& boxText, qsizetype position, LineEnds lineEnds);
/// Position in the box's text of a character of the core's; its end when there are fewer.
qsizetype positionOf(const QString& boxText, std::size_t character, LineEnds lineEnds);
/// The text with each full-width sign as its ASCII self, in the same places (support/PlainSigns.h).
QString inPlainSigns(QString text);
/// Code points of a text.
std::size_t characters(const QString& text);
}  // namespace kxVsGrid::qt

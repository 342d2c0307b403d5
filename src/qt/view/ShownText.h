// What of a text can be seen in its cell. A text may be a million characters long, or one character under a
// million marks: only what may show is handed to Qt, which shapes all that it is given.
#pragma once

#include <QFontMetricsF>
#include <QSize>
#include <QString>
#include <string_view>

namespace kxVsGrid::qt {

/// The lines of a text as far as they fit wholly into the room, at least one; each as far as it fits. A sign
/// stands where something is left out. The cost depends on the room, and on the search for ends of lines.
QString shownText(std::string_view utf8, const QFontMetricsF& metrics, const QSize& room);

/// Characters of a tip; more would leave every screen.
constexpr qsizetype LongestTip = 4000;

/// The text, or its first `most` characters and a sign; not parted between a character and its marks, unless
/// these have no end.
QString shortened(std::string_view utf8, qsizetype most);
}  // namespace kxVsGrid::qt

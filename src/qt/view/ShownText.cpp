#include "qt/view/ShownText.h"

#include <QStringList>
#include <QTextBoundaryFinder>
#include <algorithm>

#include "qt/text/Encoding.h"

namespace kxVsGrid::qt {
namespace {

constexpr QChar More = u'…';

/// A character takes a pixel at least; there may be a mark to each, and some that take no room at all.
qsizetype mostThatShow(int pixels) {
    return 64 + 2 * static_cast<qsizetype>(std::max(pixels, 0));
}

/// The next line of what is left, whose end is taken away with it; the last one leaves null behind.
std::string_view takeLine(std::string_view& rest) {
    std::size_t end = rest.find('\n');
    end = std::min(end, rest.substr(0, end).find('\r'));
    const std::string_view line = rest.substr(0, end);
    if (end == std::string_view::npos) {
        rest = {};
        return line;
    }
    const bool two = rest[end] == '\r' && end + 1 < rest.size() && rest[end + 1] == '\n';
    rest = std::string_view(rest.data() + end + (two ? 2 : 1), rest.size() - end - (two ? 2 : 1));
    return line;
}

/// The first bytes of a text, to the end of a character.
std::string_view firstBytes(std::string_view utf8, std::size_t most) {
    if (utf8.size() <= most) return utf8;
    const auto follows = [&](std::size_t at) {
        return (static_cast<unsigned char>(utf8[at]) & 0xC0U) == 0x80U;
    };
    std::size_t end = most;
    for (int step = 0; step < 3 && end > 0 && follows(end); ++step) --end;
    return utf8.substr(0, end);
}

/// Where a text can be parted, at `most` or before: between two characters with their marks.
qsizetype safePlace(const QString& text, qsizetype most) {
    QTextBoundaryFinder finder(QTextBoundaryFinder::Grapheme, text);
    finder.setPosition(most);
    const qsizetype at = finder.isAtBoundary() ? most : finder.toPreviousBoundary();
    if (at >= most / 2) return at;
    return text.at(most).isLowSurrogate() ? most - 1 : most;
}
}  // namespace

QString shortened(std::string_view utf8, qsizetype most) {
    constexpr std::size_t LongestCharacter = 4;
    const std::string_view start = firstBytes(utf8, (static_cast<std::size_t>(most) + 1) * LongestCharacter);
    const QString text = toQt(start);
    if (text.size() <= most) return start.size() == utf8.size() ? text : text + More;
    return text.left(safePlace(text, most)) + More;
}

QString shownText(std::string_view utf8, const QFontMetricsF& metrics, const QSize& room) {
    const auto fitting =
        std::max<qsizetype>(1, static_cast<qsizetype>(room.height() / metrics.lineSpacing()));
    const qsizetype most = mostThatShow(room.width());
    QStringList lines;
    for (std::string_view rest = utf8; rest.data() != nullptr && lines.size() < fitting;) {
        QString line = shortened(takeLine(rest), most);
        if (rest.data() != nullptr && lines.size() + 1 == fitting) line += More;
        lines += metrics.elidedText(line, Qt::ElideRight, room.width());
    }
    return lines.join(u'\n');
}
}  // namespace kxVsGrid::qt

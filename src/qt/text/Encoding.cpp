#include "qt/text/Encoding.h"

#include <algorithm>

#include "support/PlainSigns.h"
#include "support/Text.h"

namespace kxVsGrid::qt {

QString toQt(std::string_view text) {
    QString result;
    result.reserve(static_cast<qsizetype>(text.size()));
    while (!text.empty()) {
        const char32_t codePoint = support::firstCodePoint(text);
        result.append(QChar::fromUcs4(codePoint));
        text.remove_prefix(support::byteOfCharacter(text, 1));
    }
    return result;
}

std::string fromQt(const QString& text) {
    const QByteArray bytes = text.toUtf8();
    return std::string(bytes.constData(), static_cast<std::size_t>(bytes.size()));
}

namespace {
/// Code units of the character at a position.
qsizetype unitsAt(const QString& text, qsizetype position) {
    const bool pair =
        text[position].isHighSurrogate() && position + 1 < text.size() && text[position + 1].isLowSurrogate();
    return pair ? 2 : 1;
}

std::size_t weight(QChar unit, LineEnds lineEnds) {
    return unit == u'\n' && lineEnds == LineEnds::CarriageReturnAndLineFeed ? 2 : 1;
}
}  // namespace

std::size_t charactersBefore(const QString& boxText, qsizetype position, LineEnds lineEnds) {
    std::size_t count = 0;
    for (qsizetype at = 0; at < position && at < boxText.size(); at += unitsAt(boxText, at))
        count += weight(boxText[at], lineEnds);
    return count;
}

qsizetype positionOf(const QString& boxText, std::size_t character, LineEnds lineEnds) {
    std::size_t count = 0;
    qsizetype at = 0;
    while (at < boxText.size() && count < character) {
        count += weight(boxText[at], lineEnds);
        at += unitsAt(boxText, at);
    }
    return at;
}

QString inPlainSigns(QString text) {
    const auto signs = support::plainSigns();
    for (QChar& character : text) {
        const auto sign = std::find_if(signs.begin(), signs.end(), [character](const auto& candidate) {
            return support::firstCodePoint(candidate.fullWidth) == character.unicode();
        });
        if (sign != signs.end()) character = QLatin1Char(sign->plain);
    }
    return text;
}

std::size_t characters(const QString& text) {
    return charactersBefore(text, text.size(), LineEnds::Single);
}
}  // namespace kxVsGrid::qt

#include "Initials.h"

#include <unicode/translit.h>
#include <unicode/uscript.h>

#include <QHash>
#include <memory>

namespace {
/// ICU knows a reading for every Chinese character: of those with several the most usual one, whatever word
/// the character stands in. 弹簧 is "dh" for it, where a clerk types "th": initials can be written by hand.
QChar read(UChar32 character) {
    UErrorCode status = U_ZERO_ERROR;
    static const std::unique_ptr<icu::Transliterator> reader(
        icu::Transliterator::createInstance("Han-Latin; Latin-ASCII; Lower", UTRANS_FORWARD, status));
    if (!reader) return {};
    icu::UnicodeString text(character);
    reader->transliterate(text);
    const char16_t first = text.charAt(0);
    return first >= u'a' && first <= u'z' ? QChar(first) : QChar();
}

/// Names are made of few hundred characters; reading one takes microseconds.
QChar initialOf(UChar32 character) {
    static QHash<UChar32, QChar> known;
    const auto found = known.constFind(character);
    return found != known.cend() ? *found : *known.insert(character, read(character));
}

bool isChinese(UChar32 character) {
    UErrorCode status = U_ZERO_ERROR;
    return uscript_getScript(character, &status) == USCRIPT_HAN;
}
}  // namespace

QString initialsOf(const QString& name) {
    QString result;
    for (const uint c : name.normalized(QString::NormalizationForm_KC).toLower().toUcs4()) {
        const auto character = static_cast<UChar32>(c);
        if (c <= 0x7f) {
            if (const QChar letter(static_cast<ushort>(c)); letter.isLetterOrNumber()) result += letter;
        } else if (isChinese(character)) {
            if (const QChar initial = initialOf(character); !initial.isNull()) result += initial;
        }
    }
    return result;
}

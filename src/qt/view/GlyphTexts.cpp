#include "qt/view/GlyphTexts.h"

#include <QFontMetricsF>
#include <QGlyphRun>
#include <QTextLayout>
#include <algorithm>
#include <iterator>

namespace kxVsGrid::qt {
namespace {

struct Range {
    char16_t first;
    char16_t last;
};

/// Scripts whose characters stand side by side, one glyph each.
constexpr Range sideBySide[] = {
    {0x0020, 0x007E}, {0x00A0, 0x00AC}, {0x00AE, 0x02AF}, {0x0370, 0x0482}, {0x048A, 0x052F},
    {0x1E00, 0x1FFF}, {0x2010, 0x2027}, {0x2030, 0x205E}, {0x2070, 0x20BF}, {0x2100, 0x23FF},
    {0x2460, 0x25FF}, {0x2E80, 0x2FDF}, {0x3000, 0x3029}, {0x3030, 0x3096}, {0x309B, 0x30FF},
    {0x3105, 0x312F}, {0x31A0, 0x33FF}, {0x3400, 0x4DBF}, {0x4E00, 0x9FFF}, {0xAC00, 0xD7A3},
    {0xF900, 0xFAFF}, {0xFF01, 0xFFEE},
};

bool standsAlone(char16_t character) {
    const auto* range = std::find_if(std::begin(sideBySide), std::end(sideBySide),
                                     [&](const Range& r) { return character <= r.last; });
    return range != std::end(sideBySide) && character >= range->first && !QChar(character).isMark();
}

/// Fonts that need more than their glyphs side by side.
bool isPlain(const QFont& font) {
    return !font.underline() && !font.overline() && !font.strikeOut() && font.letterSpacing() == 0 &&
           font.wordSpacing() == 0 && font.capitalization() == QFont::MixedCase;
}

bool isOneLine(std::string_view text) {
    return text.find('\n') == std::string_view::npos && text.find('\r') == std::string_view::npos;
}

/// One code point of the basic plane, or 0 for anything else; `at` moves behind it.
char16_t nextCharacter(std::string_view text, std::size_t& at) {
    const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(text[i]); };
    const auto follows = [&](std::size_t i) { return i < text.size() && (byte(i) & 0xC0U) == 0x80U; };
    const unsigned first = byte(at);
    if (first < 0x80) {
        ++at;
        return static_cast<char16_t>(first);
    }
    if (first >= 0xC2 && first < 0xE0 && follows(at + 1)) {
        const unsigned code = ((first & 0x1FU) << 6) | (byte(at + 1) & 0x3FU);
        at += 2;
        return static_cast<char16_t>(code);
    }
    if (first >= 0xE0 && first < 0xF0 && follows(at + 1) && follows(at + 2)) {
        const unsigned code =
            ((first & 0x0FU) << 12) | ((byte(at + 1) & 0x3FU) << 6) | (byte(at + 2) & 0x3FU);
        at += 3;
        return code >= 0x800 ? static_cast<char16_t>(code) : u'\0';
    }
    return 0;
}
}  // namespace

void GlyphTexts::use(const QFont& font, const QPaintDevice* device) {
    if (device_ != nullptr && font == font_) return;
    font_ = font;
    device_ = device;
    plain_ = isPlain(font);
    pages_ = {};
    fonts_.clear();
    const QFontMetricsF metrics(QFont(font, device));
    ascent_ = metrics.ascent();
    height_ = metrics.height();
    ellipsis_.clear();
    if (!place("…", ellipsis_)) ellipsis_.clear();
}

bool GlyphTexts::place(std::string_view utf8, std::vector<Glyph>& glyphs, float room) {
    glyphs.clear();
    if (!plain_) return false;
    float x = 0;
    for (std::size_t at = 0; at < utf8.size();) {
        const char16_t character = nextCharacter(utf8, at);
        if (character == 0) return false;
        const Entry& known = entry(character);
        if (known.font == Shaped) return false;
        glyphs.push_back({known.index, known.font, x, known.advance});
        x += known.advance;
        if (x > room) return isOneLine(utf8.substr(at));
    }
    return true;
}

const GlyphTexts::Entry& GlyphTexts::entry(char16_t character) {
    auto& page = pages_[character / PageSize];
    if (!page) page = std::make_unique<Page>();
    Entry& known = (*page)[character % PageSize];
    if (known.font == Unknown) look(character, known);
    return known;
}

void GlyphTexts::look(char16_t character, Entry& entry) {
    entry.font = Shaped;
    if (!standsAlone(character)) return;
    QTextLayout layout(QString(QChar(character)), font_, device_);
    layout.beginLayout();
    const QTextLine line = layout.createLine();
    layout.endLayout();
    const QList<QGlyphRun> runs = layout.glyphRuns();
    const bool blank = QChar(character).isSpace();
    const bool one = runs.size() == 1 && runs[0].glyphIndexes().size() == 1;
    if (!one && !blank) return;
    entry.font = fontNumber(runs.isEmpty() ? QRawFont::fromFont(font_) : runs[0].rawFont());
    entry.index = blank ? Blank : runs[0].glyphIndexes().constFirst();
    entry.advance = static_cast<float>(line.horizontalAdvance());
}

std::uint16_t GlyphTexts::fontNumber(const QRawFont& font) {
    const auto found = std::find(fonts_.begin(), fonts_.end(), font);
    if (found != fonts_.end()) return static_cast<std::uint16_t>(found - fonts_.begin());
    fonts_.push_back(font);
    return static_cast<std::uint16_t>(fonts_.size() - 1);
}
}  // namespace kxVsGrid::qt

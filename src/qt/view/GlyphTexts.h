// Short texts as glyphs, without laying each one out.
//
// A screenful of a grid is hundreds of short texts of a few hundred different characters. Which font shows a
// character, with which glyph and how wide, is asked of Qt's text layout once per character and remembered;
// a text is then a walk through a table. Texts that have to be shaped (combining marks, right-to-left and
// Indic scripts, characters beyond the basic plane, line breaks) are left to the caller.
#pragma once

#include <QFont>
#include <QPaintDevice>
#include <QRawFont>
#include <array>
#include <cstdint>
#include <limits>
#include <memory>
#include <string_view>
#include <vector>

namespace kxVsGrid::qt {

class GlyphTexts {
  public:
    /// Index of a character that has a width and nothing to paint.
    static constexpr std::uint32_t Blank = 0xFFFFFFFF;

    struct Glyph {
        std::uint32_t index = 0;
        std::uint16_t font = 0;
        float x = 0;  ///< from the start of the text, in pixels
        float advance = 0;
    };

    /// Forgets what it knows when the font is another one.
    void use(const QFont& font, const QPaintDevice* device);
    /// The glyphs of a text, from left to right; false when it has to be shaped. Ends with the first glyph
    /// beyond `room` (pixels), whatever one line has behind it.
    bool place(std::string_view utf8, std::vector<Glyph>& glyphs,
               float room = std::numeric_limits<float>::infinity());
    /// The sign for "there is more of it".
    const std::vector<Glyph>& ellipsis() const { return ellipsis_; }
    const QRawFont& font(std::uint16_t number) const { return fonts_[number]; }
    const QFont& font() const { return font_; }
    double ascent() const { return ascent_; }
    double height() const { return height_; }

    static float width(const std::vector<Glyph>& glyphs) {
        return glyphs.empty() ? 0 : glyphs.back().x + glyphs.back().advance;
    }

  private:
    struct Entry {
        std::uint32_t index = 0;
        float advance = 0;
        std::uint16_t font = Unknown;
    };
    static constexpr std::uint16_t Unknown = 0xFFFF;
    static constexpr std::uint16_t Shaped = 0xFFFE;
    static constexpr std::size_t PageSize = 256;
    using Page = std::array<Entry, PageSize>;

    const Entry& entry(char16_t character);
    void look(char16_t character, Entry& entry);
    std::uint16_t fontNumber(const QRawFont& font);

    QFont font_;
    const QPaintDevice* device_ = nullptr;
    double ascent_ = 0;
    double height_ = 0;
    bool plain_ = false;
    std::array<std::unique_ptr<Page>, PageSize> pages_;
    std::vector<QRawFont> fonts_;
    std::vector<Glyph> ellipsis_;
};
}  // namespace kxVsGrid::qt

#include "qt/view/TextBatches.h"

#include <QColor>
#include <QGlyphRun>

namespace kxVsGrid::qt {

TextBatches::Batch& TextBatches::batch(std::uint16_t font, QRgb color) {
    for (std::size_t i = 0; i < used_; ++i)
        if (batches_[i].font == font && batches_[i].color == color) return batches_[i];
    if (used_ == batches_.size()) batches_.emplace_back();
    Batch& fresh = batches_[used_++];
    fresh.font = font;
    fresh.color = color;
    fresh.glyphs.clear();
    fresh.places.clear();
    return fresh;
}

void TextBatches::add(const std::vector<GlyphTexts::Glyph>& glyphs, double x, double baseline, QRgb color) {
    Batch* to = nullptr;
    for (const GlyphTexts::Glyph& glyph : glyphs) {
        if (to == nullptr || to->font != glyph.font) to = &batch(glyph.font, color);
        if (glyph.index == GlyphTexts::Blank) continue;
        to->glyphs.push_back(glyph.index);
        to->places.emplace_back(x + static_cast<double>(glyph.x), baseline);
    }
}

void TextBatches::paint(QPainter& painter, const GlyphTexts& texts) {
    QGlyphRun run;
    for (std::size_t i = 0; i < used_; ++i) {
        const Batch& batch = batches_[i];
        if (batch.glyphs.empty()) continue;
        run.setRawFont(texts.font(batch.font));
        run.setRawData(batch.glyphs.data(), batch.places.data(), static_cast<int>(batch.glyphs.size()));
        painter.setPen(QColor(batch.color));
        painter.drawGlyphRun(QPointF(), run);
    }
    used_ = 0;
}
}  // namespace kxVsGrid::qt

// Glyphs that wait to be painted together: one call per font and colour instead of one per cell.
#pragma once

#include <QPainter>
#include <QPointF>
#include <QRgb>
#include <cstdint>
#include <vector>

#include "qt/view/GlyphTexts.h"

namespace kxVsGrid::qt {

class TextBatches {
  public:
    /// Adds a text whose first glyph stands at `x` on the line `baseline`.
    void add(const std::vector<GlyphTexts::Glyph>& glyphs, double x, double baseline, QRgb color);
    /// Paints what waits, and forgets it.
    void paint(QPainter& painter, const GlyphTexts& texts);

  private:
    struct Batch {
        std::uint16_t font = 0;
        QRgb color = 0;
        std::vector<std::uint32_t> glyphs;
        std::vector<QPointF> places;
    };
    Batch& batch(std::uint16_t font, QRgb color);

    std::vector<Batch> batches_;  // emptied ones keep their memory
    std::size_t used_ = 0;
};
}  // namespace kxVsGrid::qt

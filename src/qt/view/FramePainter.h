// Replays the core's frames on a painter.
//
// Everything is placed in device pixels, so that lines are one pixel wide and texts sharp at every scale.
#pragma once

#include <QFont>
#include <QPaintDevice>
#include <QPainter>
#include <QRect>
#include <optional>
#include <vector>

#include "kxVsGrid/Frame.h"
#include "qt/view/GlyphTexts.h"
#include "qt/view/Scale.h"
#include "qt/view/SystemColors.h"
#include "qt/view/TextBatches.h"

namespace kxVsGrid::qt {

/// From here on places are device pixels. A widget of a fractional scale may begin within one: its lines and
/// letters do not.
void useDevicePixels(QPainter& painter, double ratio);

class FramePainter {
  public:
    /// What the next frames look like. Cheap when nothing has changed.
    void look(const QFont& font, const SystemColors& colors, const Scale& scale, const QPaintDevice* device);
    /// Paints a frame whose view starts at `origin` (twips, in the widget that the painter paints on).
    void paint(QPainter& painter, const Frame& frame, const Rect& origin);

  private:
    struct Ground {
        QRect rect;
        std::uint32_t color;
    };

    QRect place(const Rect& rect) const;
    void fill(QPainter& painter, const FrameItem& item);
    void line(QPainter& painter, const FrameItem& item);
    void text(QPainter& painter, const FrameItem& item);
    void shapedText(QPainter& painter, const FrameItem& item, const QRect& rect, QRgb color);
    void elide(double room);
    void checkMark(QPainter& painter, const FrameItem& item);
    void mark(QPainter& painter, const FrameItem& item);
    void funnel(QPainter& painter, const FrameItem& item);
    void raised(QPainter& painter, const FrameItem& item);
    void tint(QPainter& painter, const FrameItem& item);
    void focus(QPainter& painter, const FrameItem& item);
    std::uint32_t groundOf(const QRect& rect) const;
    QRgb textColor(const FrameItem& item, const QRect& rect) const;
    void startRegion(QPainter& painter);

    SystemColors colors_;
    GlyphTexts texts_;
    TextBatches batches_;
    std::vector<GlyphTexts::Glyph> glyphs_;
    std::vector<Ground> grounds_;  // fills of the region that is being painted
    bool hostGround_ = false;      // one of them is in a colour of the host's
    bool textsBegun_ = false;
    std::optional<Scale> scale_;
    Rect origin_;
};
}  // namespace kxVsGrid::qt

// Paints what a part of a widget shows of a cell grid, in the widget's colours and font: of the main grid and
// the total row, and of the lists in dialogs.
#pragma once

#include <QPainter>
#include <QRegion>
#include <QWidget>
#include <optional>

#include "kxVsGrid/CellGrid.h"
#include "kxVsGrid/Frame.h"
#include "qt/view/FramePainter.h"

namespace kxVsGrid::qt {

class GridPainter {
  public:
    /// Takes over the widget's palette, font and scale. True when its screen has another scale than the last
    /// time, which Qt does not tell.
    bool follow(const QWidget& widget);
    const SystemColors& colors() const { return colors_; }
    /// Paints the grid, whose view starts at `origin`, as far as it lies in `part`. The memory of `frame` is
    /// used again.
    void paint(QPainter& painter, const QRect& part, const CellGrid& grid, const Rect& origin,
               FrameState state, Frame& frame);

  private:
    FramePainter frames_;
    SystemColors colors_;
    qint64 paletteKey_ = -1;
    std::optional<Scale> scale_;
};

/// The pixels of what has been damaged of a grid whose view starts at `origin`; not for damage of everything.
QRegion pixelsOf(const CellGrid::Damage& damage, const Rect& origin, const Scale& scale);

/// The text of the cell that was hit, when the cell cannot show all of it; empty otherwise.
/// Of a text that no screen would hold, the beginning.
std::string cutText(const CellGrid& grid, const GridHit& hit, const TextMetrics& metrics);

/// Paints a region part by part; a region of very many parts in one piece.
template <class PaintPart>
void paintParts(QPainter& painter, const QRegion& region, PaintPart paintPart) {
    constexpr int ManyParts = 8;
    if (region.rectCount() > ManyParts) {
        paintPart(region.boundingRect());
        return;
    }
    const bool one = region.rectCount() == 1;
    for (const QRect& part : region) {
        if (!one) painter.setClipRect(part);
        paintPart(part);
    }
}
}  // namespace kxVsGrid::qt

#include "qt/view/GridPainter.h"

#include <utility>

#include "qt/text/Encoding.h"
#include "qt/view/ShownText.h"

namespace kxVsGrid::qt {

bool GridPainter::follow(const QWidget& widget) {
    if (widget.palette().cacheKey() != paletteKey_) {
        paletteKey_ = widget.palette().cacheKey();
        colors_ = SystemColors(widget.palette());
    }
    const Scale now(widget);
    const bool another = scale_ && !(scale_ == now);
    scale_ = now;
    frames_.look(widget.font(), colors_, now, &widget);
    return another;
}

void GridPainter::paint(QPainter& painter, const QRect& part, const CellGrid& grid, const Rect& origin,
                        FrameState state, Frame& frame) {
    if (!scale_ || !scale_->pixels(origin).intersects(part)) return;
    state.clip = scale_->twips(part);
    state.clip.left -= origin.left;
    state.clip.top -= origin.top;
    makeFrame(frame, grid, state);
    frames_.paint(painter, frame, origin);
}

QRegion pixelsOf(const CellGrid::Damage& damage, const Rect& origin, const Scale& scale) {
    QRegion region;
    for (Rect rect : damage.rects) {
        rect.left += origin.left;
        rect.top += origin.top;
        region += scale.pixels(rect).adjusted(-1, -1, 1, 1);
    }
    return region;
}

std::string cutText(const CellGrid& grid, const GridHit& hit, const TextMetrics& metrics) {
    if (hit.part != GridHit::Part::Cell && hit.part != GridHit::Part::FixedCell) return {};
    std::string shown = grid.DisplayText(hit.row, hit.col);
    const std::int32_t room = grid.CellRect(hit.row, hit.col).width;
    // a text of more bytes than the cell has twips is not measured: it may be a million characters long
    const bool cut = shown.find('\n') != std::string::npos || std::cmp_greater(shown.size(), room) ||
                     metrics.textWidth(shown) + metrics.padding() > room;
    if (!cut) return {};
    return std::cmp_greater(shown.size(), LongestTip) ? fromQt(shortened(shown, LongestTip)) : shown;
}
}  // namespace kxVsGrid::qt

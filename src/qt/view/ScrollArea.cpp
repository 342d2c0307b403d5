#include "qt/view/ScrollArea.h"

#include <QCoreApplication>
#include <algorithm>
#include <utility>

#include "support/FlagSpan.h"

namespace kxVsGrid::qt {
namespace {

void setRange(QScrollBar& bar, std::int32_t first, std::int32_t last, std::int32_t value, std::int32_t page) {
    bar.setRange(first, std::max(first, last));
    bar.setPageStep(std::max(1, page));
    bar.setValue(value);
}

/// How many fit wholly into a length, counted from `first`; stops where the count no longer matters.
template <class Extent>
std::int32_t fitting(std::int32_t first, std::int32_t end, std::int32_t room, const Extent& extent) {
    std::int32_t count = 0;
    for (std::int32_t i = first; i < end && count < 1000; ++i) {
        room -= extent(i);
        if (room < 0) break;
        ++count;
    }
    return count;
}

/// Cut at the start, the view may be at its end before the last place that the bar would go to.
std::int32_t lastTop(const CellGrid& grid) {
    const std::int32_t last = grid.ShownRowBefore(grid.Rows());
    if (grid.TopOffset() == 0 || last < 0 || grid.Cols() == 0) return grid.MaxTopRow();
    const bool atEnd = grid.CellRect(last, 0).bottom() <= grid.ClientHeight() - grid.BottomStrip();
    return atEnd ? grid.TopRow() : grid.MaxTopRow();
}

std::int32_t lastLeft(const CellGrid& grid) {
    if (grid.LeftOffset() == 0 || grid.Rows() == 0) return grid.MaxLeftCol();
    std::int32_t last = grid.Cols() - 1;
    while (last > grid.LeftCol() && grid.CellRect(0, last).width == 0) --last;
    const bool atEnd = grid.CellRect(0, last).right() <= grid.ClientWidth();
    return atEnd ? grid.LeftCol() : grid.MaxLeftCol();
}
}  // namespace

/// As thick as the grid leaves room for.
class ScrollArea::Bar : public QScrollBar {
  public:
    Bar(Qt::Orientation orientation, ScrollArea& area) : QScrollBar(orientation), area_(area) {
        setFocusPolicy(Qt::NoFocus);
        setCursor(Qt::ArrowCursor);
        setContextMenuPolicy(Qt::NoContextMenu);
        connect(this, &QScrollBar::valueChanged, this, [this](int) {
            if (!area_.following_) area_.scrolled_(area_.vertical_.value(), area_.horizontal_.value());
        });
    }

    QSize sizeHint() const override {
        return orientation() == Qt::Horizontal ? QSize(0, thickness_) : QSize(thickness_, 0);
    }
    /// Whether that is another state than before.
    bool becomes(bool shown, int thickness) {
        const bool known = shown == shown_ && (!shown || thickness == thickness_);
        shown_ = shown;
        if (shown) thickness_ = thickness;
        return !known;
    }
    Qt::ScrollBarPolicy policy() const { return shown_ ? Qt::ScrollBarAlwaysOn : Qt::ScrollBarAlwaysOff; }

  private:
    ScrollArea& area_;
    int thickness_ = 0;
    bool shown_ = false;
};

ScrollArea::ScrollArea(QWidget* parent, Scrolled scrolled)
    : QAbstractScrollArea(parent),
      scrolled_(std::move(scrolled)),
      horizontal_(*new Bar(Qt::Horizontal, *this)),
      vertical_(*new Bar(Qt::Vertical, *this)) {
    setFrameShape(QFrame::NoFrame);
    setFocusPolicy(Qt::NoFocus);
    setContextMenuPolicy(Qt::PreventContextMenu);
    setHorizontalScrollBar(&horizontal_);
    setVerticalScrollBar(&vertical_);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
}

/// The class would have the keyboard for its viewport.
void ScrollArea::hold(QWidget& cells) {
    setViewport(&cells);
    cells.setFocusProxy(nullptr);
}

void ScrollArea::showEvent(QShowEvent* event) {
    QAbstractScrollArea::showEvent(event);
    layOut();
}

/// The class does so by itself where it is asked to, and only while it is seen.
void ScrollArea::layOut() {
    setHorizontalScrollBarPolicy(horizontal_.policy());
    setVerticalScrollBarPolicy(vertical_.policy());
    QEvent request(QEvent::LayoutRequest);
    QCoreApplication::sendEvent(this, &request);
}

void ScrollArea::follow(const CellGrid& grid, const Scale& scale) {
    const support::FlagSpan following(following_);
    if (grid.VerticalBarShown()) {
        const std::int32_t room = grid.ClientHeight() - grid.FixedHeight() - grid.BottomStrip();
        const auto height = [&](std::int32_t row) { return grid.RowShown(row) ? grid.RowHeight(row) : 0; };
        setRange(vertical_, grid.FixedRows(), lastTop(grid), grid.TopRow(),
                 fitting(grid.TopRow(), grid.Rows(), room, height));
    }
    if (grid.HorizontalBarShown()) {
        const std::int32_t room = grid.ClientWidth() - grid.StillWidth();
        const auto width = [&](std::int32_t col) { return grid.ColHidden(col) ? 0 : grid.ColWidth(col); };
        setRange(horizontal_, grid.StillCols(), lastLeft(grid), grid.LeftCol(),
                 fitting(grid.LeftCol(), grid.Cols(), room, width));
    } else {
        // the bar that is shown reports both places
        setRange(horizontal_, grid.LeftCol(), grid.LeftCol(), grid.LeftCol(), 1);
    }
    if (!grid.VerticalBarShown()) setRange(vertical_, grid.TopRow(), grid.TopRow(), grid.TopRow(), 1);
    const int height = scale.pixel(grid.Height()) - scale.pixel(grid.ClientHeight());
    const int width = scale.pixel(grid.Width()) - scale.pixel(grid.ClientWidth());
    const bool newHeight = horizontal_.becomes(grid.HorizontalBarShown(), height);
    const bool newWidth = vertical_.becomes(grid.VerticalBarShown(), width);
    if (newHeight || newWidth) layOut();
}
}  // namespace kxVsGrid::qt

#include "qt/view/ScrollBars.h"

#include <algorithm>

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
}  // namespace

ScrollBars::ScrollBars(QWidget& parent, const std::function<void(std::int32_t, std::int32_t)>& scrolled)
    : horizontal_(*new QScrollBar(Qt::Horizontal, &parent)),
      vertical_(*new QScrollBar(Qt::Vertical, &parent)) {
    for (QScrollBar* bar : {&horizontal_, &vertical_}) {
        bar->setFocusPolicy(Qt::NoFocus);
        bar->setCursor(Qt::ArrowCursor);
        bar->setContextMenuPolicy(Qt::NoContextMenu);
        bar->hide();
        QObject::connect(bar, &QScrollBar::valueChanged, bar, [this, scrolled](int) {
            if (!following_) scrolled(vertical_.value(), horizontal_.value());
        });
    }
}

void ScrollBars::follow(const CellGrid& grid, const Scale& scale) {
    const support::FlagSpan following(following_);
    place(grid, scale);
    if (grid.VerticalBarShown()) {
        const std::int32_t room = grid.ClientHeight() - grid.FixedHeight() - grid.BottomStrip();
        const auto height = [&](std::int32_t row) { return grid.RowShown(row) ? grid.RowHeight(row) : 0; };
        setRange(vertical_, grid.FixedRows(), grid.MaxTopRow(), grid.TopRow(),
                 fitting(grid.TopRow(), grid.Rows(), room, height));
    }
    if (grid.HorizontalBarShown()) {
        const std::int32_t room = grid.ClientWidth() - grid.FixedWidth();
        const auto width = [&](std::int32_t col) { return grid.ColHidden(col) ? 0 : grid.ColWidth(col); };
        setRange(horizontal_, grid.FixedCols(), grid.MaxLeftCol(), grid.LeftCol(),
                 fitting(grid.LeftCol(), grid.Cols(), room, width));
    } else {
        // the bar that is shown reports both places
        setRange(horizontal_, grid.LeftCol(), grid.LeftCol(), grid.LeftCol(), 1);
    }
    if (!grid.VerticalBarShown()) setRange(vertical_, grid.TopRow(), grid.TopRow(), grid.TopRow(), 1);
    horizontal_.setVisible(grid.HorizontalBarShown());
    vertical_.setVisible(grid.VerticalBarShown());
}

void ScrollBars::place(const CellGrid& grid, const Scale& scale) {
    const int width = scale.pixel(grid.ClientWidth());
    const int height = scale.pixel(grid.ClientHeight());
    horizontal_.setGeometry(0, height, width, scale.pixel(grid.Height()) - height);
    vertical_.setGeometry(width, 0, scale.pixel(grid.Width()) - width, height);
}

QRect ScrollBars::corner() const {
    if (horizontal_.isHidden() || vertical_.isHidden()) return {};
    return {vertical_.x(), horizontal_.y(), vertical_.width(), horizontal_.height()};
}
}  // namespace kxVsGrid::qt

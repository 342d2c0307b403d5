// The two scroll bars of the main grid. Whether they are shown, and over what range, the grid decides.
#pragma once

#include <QScrollBar>
#include <functional>

#include "kxVsGrid/CellGrid.h"
#include "qt/view/Scale.h"

namespace kxVsGrid::qt {

class ScrollBars {
  public:
    /// `scrolled` hears of a bar that the clerk moved: top row and left column.
    ScrollBars(QWidget& parent, const std::function<void(std::int32_t, std::int32_t)>& scrolled);

    void follow(const CellGrid& grid, const Scale& scale);
    /// Where the bars leave a corner between them; empty without one.
    QRect corner() const;

  private:
    void place(const CellGrid& grid, const Scale& scale);

    QScrollBar& horizontal_;
    QScrollBar& vertical_;
    bool following_ = false;
};
}  // namespace kxVsGrid::qt

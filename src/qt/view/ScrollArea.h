// The scroll area around a grid. Where the bars stand, over what range they go and whether they are shown, the grid
// decides; what is scrolled is the grid's to move.
#pragma once

#include <QAbstractScrollArea>
#include <QScrollBar>
#include <cstdint>
#include <functional>

#include "kxVsGrid/CellGrid.h"
#include "qt/view/Scale.h"

namespace kxVsGrid::qt {

class ScrollArea : public QAbstractScrollArea {
  public:
    /// `scrolled` hears of a bar that the clerk moved: top row and left column.
    using Scrolled = std::function<void(std::int32_t topRow, std::int32_t leftCol)>;
    ScrollArea(QWidget* parent, Scrolled scrolled);

    /// The widget with the grid's cells. It has its own way with every event, and with the keyboard.
    void hold(QWidget& cells);
    /// The bars stand as the grid does.
    void follow(const CellGrid& grid, const Scale& scale);

  protected:
    bool viewportEvent(QEvent*) override { return false; }
    void scrollContentsBy(int, int) override {}
    void showEvent(QShowEvent* event) override;

  private:
    class Bar;

    void layOut();

    Scrolled scrolled_;
    Bar& horizontal_;
    Bar& vertical_;
    bool following_ = false;
};
}  // namespace kxVsGrid::qt

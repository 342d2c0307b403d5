// A widget on which cell grids are seen and touched: what the main grid and the lists in dialogs have in common.
#pragma once

#include <QHelpEvent>
#include <QMouseEvent>
#include <QWidget>
#include <cstdint>
#include <string>

#include "qt/view/GridPainter.h"
#include "qt/view/Scale.h"

namespace kxVsGrid::qt {

/// What the mouse does, in the core's terms: a sum of buttons, one of ShiftMask, a place in twips.
struct Touch {
    std::int16_t buttons;
    std::int16_t shift;
    std::int32_t x;
    std::int32_t y;
};

class GridSurface : public QWidget {
  public:
    explicit GridSurface(QWidget* parent);

    /// Asks for a paint of what has been damaged of a grid whose view starts at `origin`.
    void repaintDamage(const CellGrid::Damage& damage, const Rect& origin);

  protected:
    /// The screen has another scale than at the last paint, which Qt does not tell; told after the paint.
    virtual void lookChanged() = 0;
    virtual void paintGrids(QPainter& painter, const QRegion& region) = 0;
    /// The mouse rests: shows a text that does not fit its cell in full.
    virtual void showWholeText(const QHelpEvent& event) = 0;

    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

    Touch touchOf(const QMouseEvent& event, Qt::MouseButtons buttons) const;
    GridHit hit(const CellGrid& grid, const Rect& origin, const QPointF& at) const;
    /// The tip with the text of a cell; none for an empty text.
    void showTip(const QHelpEvent& event, const std::string& text);
    /// The cursor that says that an edge of a column can be dragged here.
    void showCursor(bool overEdge);

    GridPainter painter_;

  private:
    bool splitCursor_ = false;
};
}  // namespace kxVsGrid::qt

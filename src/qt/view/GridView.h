// The grids as they are seen and touched: paints the frames of the main grid and the total row, and hands
// keys, mouse and input methods on. It takes no focus by a press: the control is asked first and takes it
// itself.
#pragma once

#include "kxVsGrid/Frame.h"
#include "kxVsGrid/Platform.h"
#include "qt/view/DragScroll.h"
#include "qt/view/GridSurface.h"
#include "qt/view/MousePress.h"

namespace kxVsGrid::qt {

class Stage;

class GridView : public GridSurface {
  public:
    GridView(Stage& stage, QWidget* parent);

    Stage& stage() const { return stage_; }
    /// Where the main grid is painted: at the very edge, like the total row, so that their columns meet. The
    /// twip that the layout leaves free is no pixel on any screen.
    Rect mainPlace() const;
    /// Moves the keyboard to the control after (or before) the grid in the window.
    bool leave(bool forward);

    QVariant inputMethodQuery(Qt::InputMethodQuery query) const override;

  protected:
    bool event(QEvent* event) override;
    void lookChanged() override;
    void paintGrids(QPainter& painter, const QRegion& region) override;
    void showWholeText(const QHelpEvent& event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void inputMethodEvent(QInputMethodEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    bool focusNextPrevChild(bool next) override;

  private:
    void paintPart(QPainter& painter, const QRect& part);
    void paintGrid(QPainter& painter, const QRect& part, const CellGrid& grid, const Rect& origin,
                   Frame& frame);
    void paintFailed(const QString& failure);
    void paintTotalEdges(QPainter& painter);
    using PressTold = void (Input::*)(std::int16_t, std::int16_t, std::int32_t, std::int32_t);
    void press(const QMouseEvent& event, const BoxMeanwhile& box, PressTold told);
    void mouseMoved(const Touch& touch);
    void dragOn(const Touch& touch);
    bool takesKeyboard(const QPointF& at);
    bool overTotals(const QPointF& at) const;
    static std::string markUnder(const CellGrid& cells, const GridHit& under);
    void showTextUnder(const QHelpEvent& event);
    std::optional<Command> commandOf(const QKeyEvent& event) const;
    QVariant boxQuery(Qt::InputMethodQuery query) const;

    Stage& stage_;
    DragScroll dragScroll_;
    Frame mainFrame_;
    Frame totalFrame_;
    bool partFailed_ = false;   // of what is being painted
    bool toldFailure_ = false;  // that painting fails, since it last did not
};
}  // namespace kxVsGrid::qt

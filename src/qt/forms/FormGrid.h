// A form's grid: paints it as the main grid is painted, and hands keys, mouse and wheel on to it.
#pragma once

#include <QTimer>
#include <exception>

#include "kxVsGrid/Form.h"
#include "kxVsGrid/Frame.h"
#include "qt/view/GridSurface.h"
#include "qt/view/QtMetrics.h"
#include "qt/view/ScrollArea.h"
#include "qt/view/WheelNotches.h"

namespace kxVsGrid::qt {

class FormDialog;

/// The grid within its frame and its scroll bars.
class FormGrid : public ScrollArea {
  public:
    FormGrid(FormDialog& dialog, FormControl& control);

    CellGrid& grid() const { return *control_.grid; }

  private:
    FormControl& control_;
};

class FormGridView : public GridSurface {
  public:
    FormGridView(FormDialog& dialog, FormControl& control, FormGrid& area);
    ~FormGridView() override;

  protected:
    void changeEvent(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void lookChanged() override { fit(); }
    void paintGrids(QPainter& painter, const QRegion& region) override;
    void showWholeText(const QHelpEvent& event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

  private:
    void fit();
    void followDamage();
    void fail(const std::exception_ptr& failure);

    FormDialog& dialog_;
    FormControl& control_;
    CellGrid& grid_;
    FormGrid& area_;
    QtMetrics metrics_;
    Frame frame_;
    QTimer repaint_;
    WheelNotches notches_;
    bool onRow_ = false;  // the last press, the first of a double click, was on a data row
};
}  // namespace kxVsGrid::qt

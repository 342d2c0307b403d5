// The small button at the editor's edge that opens the column's help.
#pragma once

#include <QToolButton>

namespace kxVsGrid::qt {

class Stage;

class HelpButton : public QToolButton {
  public:
    HelpButton(Stage& stage, QWidget* parent);

  protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

  private:
    Stage& stage_;
};
}  // namespace kxVsGrid::qt

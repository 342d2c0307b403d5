// A form's text box: shows the control's text and selection, and reports what the clerk changes.
//
// A selection shows while the box has the keyboard. A text that nobody touched keeps its bytes. While an
// input method composes nothing is reported, and keys are the input method's.
#pragma once

#include "qt/text/Composition.h"
#include "qt/text/TextBoxes.h"

namespace kxVsGrid {
struct FormControl;
}

namespace kxVsGrid::qt {

class FormDialog;

class FormTextBox : private BoxEvents, private Composition::Listener, public LineBox {
  public:
    FormTextBox(FormDialog& dialog, FormControl& control);

    void mirror();

  protected:
    void focusInEvent(QFocusEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

  private:
    bool keyDown(const QKeyEvent& event) override;
    void keyUp(const QKeyEvent&) override {}
    void clerkActs(bool begins) override;
    void inputMethod(QInputMethodEvent& event) override;
    void focusGained() override {}
    void focusLost(const QFocusEvent& event) override;
    void endComposition() override;
    bool leave(bool forward) override;
    void menu(const QPoint& place) override;
    void wheel(const QWheelEvent&) override {}
    bool refused() const override { return false; }

    void composes(bool) override {}
    bool committed() override;
    void look();
    void showSelection();

    FormDialog& dialog_;
    FormControl& control_;
    Composition composition_{*this};
    BoxState shown_;  ///< as the form knows it
    int acting_ = 0;
    bool mirroring_ = false;
};
}  // namespace kxVsGrid::qt
